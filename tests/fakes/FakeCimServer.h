// A CIM server that answers up-calls with scripted instances.
#pragma once

#include <framework/Instance.h>

#include <functional>
#include <string>
#include <vector>

struct FakeCimServer {
    static void Reset();

    // Makes the instances of a class, with one count each for the server to give away; null stands
    // for an answer that holds none. A class without a script fails to enumerate.
    static void Script(const std::string& className,
                       std::function<std::vector<cimple::Instance*>()> instances);

    // "namespace:class" of every up-call since Reset.
    static std::vector<std::string> calls;
};
