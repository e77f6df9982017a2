#include "FakeResolver.h"

#include <platform/service_processor/lan/ResolverCalls.h>

#include <map>

#include "FakeClock.h"

namespace {

using End = std::optional<platform::Time>;  // unset: never

FakeResolver::Answer theAnswer;
std::map<const gaicb*, End> ends;  // of all requests

addrinfo* AddressOf(const std::string& digits) {
    addrinfo hints{};
    hints.ai_flags = AI_NUMERICHOST;
    addrinfo* address = nullptr;
    getaddrinfo(digits.c_str(), nullptr, &hints, &address);
    return address;
}

bool IsOver(const End& end) { return end && *end <= FakeClock::now; }

}  // namespace

void FakeResolver::Reset(const Answer& answer) {
    EndAll();
    theAnswer = answer;
    names.clear();
    startError = 0;
}

void FakeResolver::EndAll() {
    for (auto& [request, end] : ends) end = platform::Time::min();
}

int platform::resolver_calls::Start(gaicb* request) {
    if (FakeResolver::startError != 0) return FakeResolver::startError;
    FakeResolver::names.emplace_back(request->ar_name);
    ends[request] = theAnswer.after ? End(FakeClock::now + *theAnswer.after) : std::nullopt;
    return 0;
}

int platform::resolver_calls::Wait(const gaicb* request, const timespec& time) {
    const Time timeOut =
        FakeClock::now + std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    const End& end = ends.at(request);
    FakeClock::now = std::min(timeOut, end.value_or(timeOut));
    return IsOver(end) ? 0 : EAI_AGAIN;
}

int platform::resolver_calls::State(gaicb* request) {
    if (!IsOver(ends.at(request))) return EAI_INPROGRESS;
    if (theAnswer.address.empty()) return theAnswer.error;
    if (request->ar_result == nullptr) request->ar_result = AddressOf(theAnswer.address);
    return 0;
}
