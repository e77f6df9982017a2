#include <cli/Errors.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace cli {

namespace {

// By status number, in the numbers' order.
constexpr std::array<std::string_view, 19> kMeanings = {
    "success",
    "failed",
    "access denied",
    "invalid namespace",
    "invalid parameter",
    "invalid class",
    "not found",
    "not supported",
    "class has children",
    "class has instances",
    "invalid superclass",
    "already exists",
    "no such property",
    "type mismatch",
    "query language not supported",
    "invalid query",
    "method not available",
    "method not found",
    "no more elements",
};

std::string Advice(const host::Status& status) {
    return status.code == CMPI_RC_ERR_INVALID_CLASS ? " Call bmci2c info to see the classes." : "";
}

}  // namespace

std::string StatusText(const host::Status& status) {
    std::string text = "CIM status " + std::to_string(status.code);
    const auto number = static_cast<std::size_t>(status.code);
    if (number < kMeanings.size()) text += ", " + std::string(kMeanings[number]);
    return status.text.empty() ? text + "." : text + ": " + status.text;
}

CallError::CallError(const std::string& request, const host::Status& status,
                     const std::string& advice)
    : std::runtime_error(request + " failed. " + StatusText(status) + Advice(status) + advice) {}

}  // namespace cli
