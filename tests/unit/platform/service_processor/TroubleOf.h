// What a call throws, to be compared as a whole.
#pragma once

#include <platform/service_processor/TransportError.h>

#include <optional>
#include <ostream>
#include <string>

struct ThrownTrouble {
    platform::TroubleCode kind;
    std::string text;

    bool operator==(const ThrownTrouble&) const = default;
};

inline std::ostream& operator<<(std::ostream& output, const ThrownTrouble& thrown) {
    return output << "kind " << static_cast<int>(thrown.kind) << ": " << thrown.text;
}

inline platform::TroubleCode CodeOf(const platform::TransportError& error) {
    int code = 0;
    while (NameOf(static_cast<platform::TroubleCode>(code)) != error.AsTrouble().code) ++code;
    return static_cast<platform::TroubleCode>(code);
}

// The trouble that `call` throws; nothing when it throws none.
template <class Call>
std::optional<ThrownTrouble> TroubleOf(Call call) {
    try {
        call();
    } catch (const platform::TransportError& error) {
        return ThrownTrouble{CodeOf(error), error.what()};
    }
    return std::nullopt;
}
