// Opens a session.
#pragma once

#include <platform/service_processor/lan/Conversation.h>

#include <memory>

namespace platform::lan {

// Of IPMI 1.5, and of RMCP+ (IPMI 2.0). They return how the session's packets are made, and throw
// LanFailure and what LanChannel throws.
std::unique_ptr<LanFormat> LogIn15(const LanAccount& account, Conversation& conversation);
std::unique_ptr<LanFormat> LogIn20(const LanAccount& account, LanChannel& channel);

}  // namespace platform::lan
