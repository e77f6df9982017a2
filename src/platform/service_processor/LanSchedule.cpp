#include <platform/service_processor/LanSchedule.h>

#include <algorithm>

namespace platform {

namespace {

using std::chrono::milliseconds;

constexpr int kExchanges = 7;

// What a request may take beyond the time limit.
constexpr milliseconds kBeyondLimit{4750};

// Of a patient session: the command, and the closing.
constexpr int kPatientExchanges = 2;

// The opening of a patient session may take so much longer than twice the first one.
constexpr milliseconds kSlowerOpening{200};

// Less is not worth a session.
constexpr milliseconds kShortestSilence{50};

}  // namespace

LanSchedule::LanSchedule(TimeAllowance allowance, Time startTime)
    : start(startTime),
      total(std::min(allowance.limit + kBeyondLimit, kLanTotal)),
      silence(std::min({allowance.limit, kLanLongestSilence, total})) {}

milliseconds LanSchedule::Left(Time now) const {
    return total - std::chrono::ceil<milliseconds>(now - start);
}

std::optional<LanSession> LanSchedule::Next(int silences, milliseconds silent, Time now) const {
    const milliseconds share = Left(now) / kExchanges;
    if (silences == 0) return LanSession{.silence = share, .packets = Packets::Four};
    const milliseconds longest = std::min(share, silence - silent);
    if (longest < kShortestSilence) return std::nullopt;
    return LanSession{.silence = longest,
                      .packets = silences % 2 == 0 ? Packets::Four : Packets::Two};
}

std::optional<LanSession> LanSchedule::Patient(const LanSession& last, milliseconds opening,
                                               Time now) const {
    const LanTimeouts lastTimeouts = TimeoutsFor(last.silence, last.packets);
    const bool lostPackets = opening >= milliseconds(lastTimeouts.retransmission);
    const int parts = lostPackets ? kPatientExchanges + 1 : kPatientExchanges;
    const milliseconds rest = Left(now) - 2 * opening - kSlowerOpening - kBeforeOnePacket;
    const LanSession patient{.silence = rest / parts, .packets = Packets::One};
    if (patient.silence <= last.silence) return std::nullopt;
    return patient;
}

bool LanSchedule::HasTimeFor(const LanSession& session, Time now) const {
    const int exchanges = session.packets == Packets::One ? kPatientExchanges : 1;
    return Left(now) >= exchanges * session.silence;
}

}  // namespace platform
