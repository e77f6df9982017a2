// The message of the mof::Error that an action throws, or "no error".
#pragma once

#include <mof/Reader.h>

#include <string>

template <class Action>
std::string ErrorText(Action action) {
    try {
        action();
    } catch (const mof::Error& error) {
        return error.what();
    }
    return "no error";
}
