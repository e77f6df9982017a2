// One session with a controller: opened, used for one request, and closed.
#pragma once

#include <platform/service_processor/IpmiMessage.h>
#include <platform/service_processor/lan/Conversation.h>
#include <platform/service_processor/lan/LanTrouble.h>

#include <memory>
#include <string>

namespace platform::lan {

class LanSession {
public:
    // `lanAccount` must outlive the object. `address` is the host's, in digits. Requests are not
    // waited for beyond `deadline`.
    LanSession(const LanAccount& lanAccount, const std::string& address, TimeAllowance allowance,
               Time deadline);
    LanSession(const LanSession&) = delete;
    LanSession& operator=(const LanSession&) = delete;

    // Closes the session that a failure has left open, without waiting for an answer.
    ~LanSession();

    // Throws LanFailure, and TransportError when it was told to stop.
    IpmiAnswer Send(const IpmiRequest& request);

private:
    IpmiAnswer OpenAndSend(const IpmiRequest& request);
    void AskCapabilities();
    void SetPrivilegeLevel();
    IpmiRequest CloseRequest() const;

    const LanAccount& account;
    const TimeAllowance allowance;
    LanChannel channel;
    Conversation conversation;
    Stage stage = Stage::Asking;
    std::unique_ptr<LanFormat> format;  // of the open session
};

}  // namespace platform::lan
