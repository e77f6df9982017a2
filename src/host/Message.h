// Messages of the host to whoever runs it.
#pragma once

#include <cmpi/cmpi.h>

#include <functional>
#include <string>

namespace host {

struct Message {
    CMPISeverity severity = CMPI_SEV_INFO;
    std::string component;  // the provider
    std::string text;
};

// Takes messages; may be empty. It is called on the threads of the requests, concurrently.
using MessageSink = std::function<void(const Message&)>;

}  // namespace host
