#include <base/NoDestructor.h>
#include <platform/service_processor/Clock.h>
#include <platform/service_processor/InWords.h>
#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/lan/HostAddress.h>
#include <platform/service_processor/lan/ResolverCalls.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace platform {

namespace {

using std::chrono::milliseconds;

// Poll interval of the stop flag.
constexpr milliseconds kStopLooks{100};

struct FreeAddresses {
    void operator()(addrinfo* addresses) const { freeaddrinfo(addresses); }
};
using Addresses = std::unique_ptr<addrinfo, FreeAddresses>;

constexpr addrinfo Hints(int flags) {
    addrinfo hints{};
    hints.ai_flags = flags;
    hints.ai_socktype = SOCK_DGRAM;
    return hints;
}

std::string WithoutBrackets(const std::string& host) {
    const bool hasBrackets = host.size() > 2 && host.front() == '[' && host.back() == ']';
    return hasBrackets ? host.substr(1, host.size() - 2) : host;
}

std::string Digits(const addrinfo& address) {
    std::array<char, NI_MAXHOST> text{};
    getnameinfo(address.ai_addr, address.ai_addrlen, text.data(), text.size(), nullptr, 0,
                NI_NUMERICHOST);
    return text.data();
}

// Nothing when the text is a name.
Addresses AddressInDigits(const std::string& text) {
    const addrinfo hints = Hints(AI_NUMERICHOST);
    addrinfo* found = nullptr;
    getaddrinfo(text.c_str(), nullptr, &hints, &found);
    return Addresses(found);
}

// A name lookup in progress; the resolver writes into the object until it is done.
class Lookup {
public:
    explicit Lookup(std::string hostName) : name(std::move(hostName)) {
        request.ar_name = name.c_str();
        request.ar_request = &hints;
    }
    Lookup(const Lookup&) = delete;
    Lookup& operator=(const Lookup&) = delete;
    ~Lookup() { freeaddrinfo(request.ar_result); }

    // 0, or the resolver's reason why not (EAI_...).
    int Start() { return resolver_calls::Start(&request); }

    // Ends early when the program is told to stop.
    void WaitUntil(Time end, const TimeAllowance& allowance) {
        for (auto left = end - Now(); IsUnderWay() && left.count() > 0 && !allowance.IsStopped();
             left = end - Now()) {
            const std::chrono::nanoseconds wait = std::min<Time::duration>(left, kStopLooks);
            resolver_calls::Wait(&request, {.tv_sec = 0, .tv_nsec = wait.count()});
        }
    }

    bool IsUnderWay() { return State() == EAI_INPROGRESS; }

    int State() { return resolver_calls::State(&request); }

    const addrinfo& Result() const { return *request.ar_result; }

private:
    const std::string name;
    const addrinfo hints = Hints(AI_V4MAPPED | AI_ADDRCONFIG);
    gaicb request{};
};

// Lookups that timed out. Each stays until the resolver is done with it.
class GivenUp {
public:
    void Add(std::unique_ptr<Lookup> lookup) {
        const std::lock_guard guard(lock);
        std::erase_if(lookups, [](const auto& one) { return !one->IsUnderWay(); });
        lookups.push_back(std::move(lookup));
    }

private:
    std::mutex lock;  // guards lookups
    std::vector<std::unique_ptr<Lookup>> lookups;
};

GivenUp& TheGivenUp() {
    static base::NoDestructor<GivenUp> givenUp;
    return *givenUp;
}

TransportError NotFound(const std::string& host, const std::string& reason) {
    return {TroubleCode::NameNotFound,
            "The address of the host '" + host + "' cannot be found: " + reason + ".",
            "Correct the setting host, or the name resolution of this machine."};
}

}  // namespace

std::string HostAddress(const std::string& host, const TimeAllowance& allowance) {
    const std::string name = WithoutBrackets(host);
    if (const Addresses address = AddressInDigits(name)) return Digits(*address);

    const Time end = Now() + allowance.limit;
    auto lookup = std::make_unique<Lookup>(name);
    if (const int error = lookup->Start(); error != 0) throw NotFound(host, gai_strerror(error));
    lookup->WaitUntil(end, allowance);
    if (lookup->IsUnderWay()) {
        TheGivenUp().Add(std::move(lookup));
        if (allowance.IsStopped()) throw Interrupted();
        throw NotFound(host, "no answer within " + InSeconds(allowance.limit));
    }
    if (const int error = lookup->State(); error != 0) throw NotFound(host, gai_strerror(error));
    return Digits(lookup->Result());
}

}  // namespace platform
