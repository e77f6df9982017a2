// How a LAN request spends its time: one session after the other until the controller answers.
//
// A session has seven exchanges at most (five to open it, the command, the closing), and any of
// them may take as long as its silence. A seventh of what is left for each silence therefore keeps
// the end, even with a controller that answers everything as late as it may.
//
// - A controller that answers nothing, or stops while the session is opened, is asked again in a
//   new session until it was silent for the time limit: first with many packets close together, so
//   that lost ones do not matter, then with few and longer waits, for a slow one.
// - A controller that opened the session well but left the command unanswered gets one patient
//   session: what is left is for the command, for the closing, and for one lost packet where the
//   first opening lost one; FreeIPMI takes no answer that comes after it has asked again. Only here
//   can a request take longer than its time, namely when a controller that has opened the first
//   session quickly answers the steps of the second one late: five steps of up to two silences
//   each. The command is not sent then.
#pragma once

#include <platform/service_processor/Clock.h>
#include <platform/service_processor/LanTimeouts.h>
#include <platform/service_processor/TimeAllowance.h>

#include <optional>

namespace platform {

// A LAN request to a silent controller ends within this time, whatever the limit.
constexpr std::chrono::milliseconds kLanTotal{10000};

// The longest silence of a whole request; what remains of the total is for the exchanges before it.
constexpr std::chrono::milliseconds kLanLongestSilence{6000};

struct LanSession {
    std::chrono::milliseconds silence;  // of each exchange
    Packets packets;

    bool operator==(const LanSession&) const = default;
};

class LanSchedule {
public:
    LanSchedule(TimeAllowance allowance, Time start);

    // How long a controller that answers nothing is asked.
    std::chrono::milliseconds Silence() const { return silence; }

    // The next session when no session was opened yet, or the controller fell silent in the last
    // one; nothing when it was silent long enough. `silences` counts the sessions in which it fell
    // silent, `silent` is the time of their silence.
    std::optional<LanSession> Next(int silences, std::chrono::milliseconds silent, Time now) const;

    // A session of one packet for a controller that left only the command unanswered, the opening
    // having taken `opening`; nothing when there is no time for a longer wait than `last` had.
    std::optional<LanSession> Patient(const LanSession& last, std::chrono::milliseconds opening,
                                      Time now) const;

    // False when the session's opening has left too little time for the command.
    bool HasTimeFor(const LanSession& session, Time now) const;

private:
    std::chrono::milliseconds Left(Time now) const;

    Time start;
    std::chrono::milliseconds total;
    std::chrono::milliseconds silence;
};

}  // namespace platform
