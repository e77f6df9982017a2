// Why a session did not lead to an answer.
#pragma once

#include <platform/service_processor/TransportError.h>

#include <string>

namespace platform::lan {

// Whether another session may do better.
enum class Retry {
    Never,
    Once,   // the controller fell silent, or lost track of the session
    Later,  // it has no session free now
};

// Thrown by a session; text and advice as in Trouble.
struct LanFailure {
    TroubleCode code;
    std::string text;
    std::string advice;
    Retry retry = Retry::Never;
};

}  // namespace platform::lan
