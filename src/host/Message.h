// What providers, and the host itself, have to tell whoever runs the host.
#pragma once

#include <functional>
#include <string>

namespace host {

struct Message {
    enum class Kind { Log, Trace };

    Kind kind = Kind::Log;
    int level = 0;  // a CMPISeverity of a log message, a CMPILevel of a trace message
    std::string component;
    std::string text;
};

// Takes messages; may be empty. It is called on the threads of the requests, from several at once.
using MessageSink = std::function<void(const Message&)>;

}  // namespace host
