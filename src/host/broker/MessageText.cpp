#include <host/broker/MessageText.h>
#include <host/objects/Objects.h>

namespace host {

namespace {

// Narrow integers travel as int, reals as double.
std::string ReadArgument(CMPIType type, va_list arguments) {
    switch (type) {
        case CMPI_boolean:
            return va_arg(arguments, int) ? "true" : "false";
        case CMPI_sint8:
        case CMPI_sint16:
        case CMPI_sint32:
            return std::to_string(va_arg(arguments, int));
        case CMPI_uint8:
        case CMPI_uint16:
        case CMPI_uint32:
            return std::to_string(va_arg(arguments, unsigned int));
        case CMPI_sint64:
            return std::to_string(va_arg(arguments, CMPISint64));
        case CMPI_uint64:
            return std::to_string(va_arg(arguments, CMPIUint64));
        case CMPI_real32:
        case CMPI_real64:
            return std::to_string(va_arg(arguments, double));
        case CMPI_chars:
            return Required(va_arg(arguments, const char*), "A message's argument");
        case CMPI_string:
            return Data(va_arg(arguments, const CMPIString*));
        default:
            throw Failure(CMPI_RC_ERR_INVALID_DATA_TYPE,
                          "A message's argument cannot be of type " + std::to_string(type) + ".");
    }
}

}  // namespace

std::vector<std::string> ReadArguments(CMPICount count, va_list arguments) {
    std::vector<std::string> texts;
    for (CMPICount index = 0; index < count; ++index) {
        const auto type = static_cast<CMPIType>(va_arg(arguments, int));
        texts.push_back(ReadArgument(type, arguments));
    }
    return texts;
}

std::string WithArguments(const std::string& text, const std::vector<std::string>& arguments) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isPlace =
            text[at] == '$' && at + 1 < text.size() && text[at + 1] >= '0' && text[at + 1] <= '9';
        const std::size_t index = isPlace ? static_cast<std::size_t>(text[at + 1] - '0') : 0;
        if (isPlace && index < arguments.size()) {
            result += arguments[index];
            ++at;
        } else {
            result += text[at];
        }
    }
    return result;
}

}  // namespace host
