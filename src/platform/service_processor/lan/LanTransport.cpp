#include <platform/service_processor/lan/HostAddress.h>
#include <platform/service_processor/lan/LanSession.h>
#include <platform/service_processor/lan/LanTransport.h>

#include <algorithm>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace platform {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kFirstPause{250};
constexpr milliseconds kLongestPause{4000};
constexpr milliseconds kStopLook{100};
constexpr milliseconds kSpareSecond{1000};

// Backoff with jitter: half of the pause to one and a half, so that several programs do not retry
// together.
milliseconds Jittered(milliseconds pause) {
    const auto part = lan::RandomBytes(1).front();
    return pause / 2 + pause * part / 0xFF;
}

// The sessions of one request.
class Sessions {
public:
    Sessions(const lan::LanAccount& lanAccount, std::string hostAddress,
             TimeAllowance timeAllowance)
        : account(lanAccount), address(std::move(hostAddress)), allowance(timeAllowance) {}

    IpmiAnswer Send(const IpmiRequest& request) {
        while (true) {
            ++attempts;
            try {
                IpmiAnswer answer = SendInSession(request);
                answer.attempts = attempts;
                return answer;
            } catch (const lan::LanFailure& failure) {
                if (!MayRetry(failure)) throw InWords(failure);
            }
        }
    }

private:
    IpmiAnswer SendInSession(const IpmiRequest& request) {
        try {
            begin = Now();
            return lan::LanSession(account, address, allowance, deadline).Send(request);
        } catch (const std::system_error& error) {
            throw CannotReach(account, error.code().value());
        } catch (const TransportError& stopped) {
            throw TransportError(stopped.AsTrouble(), attempts);
        }
    }

    // True if another session should be tried now.
    bool MayRetry(const lan::LanFailure& failure) {
        switch (failure.retry) {
            case lan::Retry::Never:
                return false;
            case lan::Retry::Once:
                return BeginSecondTry(failure);
            case lan::Retry::Later:
                return Pause();
        }
        return false;
    }

    // It may take a second longer than the session before it, but no less than the time limit.
    bool BeginSecondTry(const lan::LanFailure& failure) {
        const Time now = Now();
        if (first || now >= allowance.end) return false;
        first = failure;
        deadline = now + std::max<Time::duration>(now - begin, allowance.limit) + kSpareSecond;
        return true;
    }

    // If both sessions time out, the first one's progress determines the trouble.
    TransportError InWords(const lan::LanFailure& last) const {
        const lan::LanFailure& told = first && last.code == TroubleCode::NoAnswer ? *first : last;
        return {told.code, told.text, told.advice, attempts};
    }

    // False when there is no time for it.
    bool Pause() {
        const Time end = Now() + Jittered(pause);
        pause = std::min(2 * pause, kLongestPause);
        if (end >= allowance.end) return false;
        for (Time now = Now(); now < end; now = Now()) {
            if (allowance.IsStopped()) throw Interrupted(attempts);
            std::this_thread::sleep_for(std::min<Time::duration>(end - now, kStopLook));
        }
        return true;
    }

    const lan::LanAccount& account;
    const std::string address;
    const TimeAllowance allowance;
    Time begin;                   // of the last session
    Time deadline = Time::max();  // of its requests
    milliseconds pause = kFirstPause;
    int attempts = 0;
    std::optional<lan::LanFailure> first;  // after which there was one more session
};

}  // namespace

LanTransport::LanTransport(ControllerSettings controllerSettings)
    : controller(std::move(controllerSettings)) {}

std::string LanTransport::Describe() const { return "lan " + lan::LanPlace(controller); }

IpmiAnswer LanTransport::Send(const IpmiRequest& request, TimeAllowance allowance) {
    const lan::LanAccount account(controller);
    const std::string address = HostAddress(controller.host, allowance);
    return Sessions(account, address, allowance).Send(request);
}

}  // namespace platform
