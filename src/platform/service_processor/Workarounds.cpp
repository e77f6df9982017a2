#include <freeipmi/freeipmi.h>
#include <platform/service_processor/TransportError.h>
#include <platform/service_processor/Workarounds.h>

#include <algorithm>
#include <span>
#include <string_view>

namespace platform {

namespace {

struct Workaround {
    std::string_view name;
    unsigned int flag;
};

// In the order of FreeIPMI's api/ipmi-api.h.
constexpr Workaround kProtocol15[] = {
    {"authcap", IPMI_WORKAROUND_FLAGS_OUTOFBAND_AUTHENTICATION_CAPABILITIES},
    {"idzero", IPMI_WORKAROUND_FLAGS_OUTOFBAND_ACCEPT_SESSION_ID_ZERO},
    {"forcepermsg", IPMI_WORKAROUND_FLAGS_OUTOFBAND_FORCE_PERMSG_AUTHENTICATION},
    {"unexpectedauth", IPMI_WORKAROUND_FLAGS_OUTOFBAND_CHECK_UNEXPECTED_AUTHCODE},
    {"endianseq", IPMI_WORKAROUND_FLAGS_OUTOFBAND_BIG_ENDIAN_SEQUENCE_NUMBER},
    {"noauthcodecheck", IPMI_WORKAROUND_FLAGS_OUTOFBAND_NO_AUTH_CODE_CHECK},
    {"nochecksumcheck", IPMI_WORKAROUND_FLAGS_OUTOFBAND_NO_CHECKSUM_CHECK},
};

constexpr Workaround kProtocol20[] = {
    {"authcap", IPMI_WORKAROUND_FLAGS_OUTOFBAND_2_0_AUTHENTICATION_CAPABILITIES},
    {"intel20", IPMI_WORKAROUND_FLAGS_OUTOFBAND_2_0_INTEL_2_0_SESSION},
    {"supermicro20", IPMI_WORKAROUND_FLAGS_OUTOFBAND_2_0_SUPERMICRO_2_0_SESSION},
    {"sun20", IPMI_WORKAROUND_FLAGS_OUTOFBAND_2_0_SUN_2_0_SESSION},
    {"opensesspriv", IPMI_WORKAROUND_FLAGS_OUTOFBAND_2_0_OPEN_SESSION_PRIVILEGE},
    {"integritycheckvalue", IPMI_WORKAROUND_FLAGS_OUTOFBAND_2_0_NON_EMPTY_INTEGRITY_CHECK_VALUE},
    {"nochecksumcheck", IPMI_WORKAROUND_FLAGS_OUTOFBAND_2_0_NO_CHECKSUM_CHECK},
};

}  // namespace

unsigned int WorkaroundFlags(const std::string& protocol, const std::vector<std::string>& names) {
    const std::span<const Workaround> known =
        protocol == "1.5" ? std::span<const Workaround>(kProtocol15) : kProtocol20;
    unsigned int flags = IPMI_WORKAROUND_FLAGS_DEFAULT;
    for (const std::string& name : names) {
        const auto found = std::ranges::find(known, name, &Workaround::name);
        if (found == known.end()) {
            throw TransportError(TroubleCode::Settings,
                                 "The protocol " + protocol + " has no workaround '" + name + "'.",
                                 "");
        }
        flags |= found->flag;
    }
    return flags;
}

}  // namespace platform
