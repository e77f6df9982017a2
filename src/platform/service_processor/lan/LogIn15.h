// Opens a session of IPMI 1.5.
#pragma once

#include <platform/service_processor/lan/Conversation.h>

#include <memory>

namespace platform::lan {

// How the session's packets are made. Throws LanFailure and what Conversation throws.
std::unique_ptr<LanFormat> LogIn15(const LanAccount& account, Conversation& conversation);

}  // namespace platform::lan
