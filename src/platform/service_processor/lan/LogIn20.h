// Opens an RMCP+ session (IPMI 2.0).
#pragma once

#include <platform/service_processor/lan/LanAccount.h>
#include <platform/service_processor/lan/LanChannel.h>
#include <platform/service_processor/lan/LanFormat.h>

#include <memory>

namespace platform::lan {

// How the session's packets are made. Throws LanFailure and what LanChannel throws.
std::unique_ptr<LanFormat> LogIn20(const LanAccount& account, LanChannel& channel);

}  // namespace platform::lan
