#include <test/BMCI2C_Test_Impl.h>
#include <test/CoreLog.h>
#include <test/MessageNumbers.h>

#include <sstream>
#include <vector>

using NQUVZDX20::EZDXLogSeverity;
using NQUVZDX20::kLogTrace;

namespace {

// The IPMI completion codes that have a message of their own.
constexpr unsigned char kFirstNamedCode = 0xC0;
constexpr unsigned char kLastNamedCode = 0xD5;

unsigned short HeadingOf(int kind) {
    switch (kind) {
        case kBusFaultMessage:
            return kBusFaultHeading;
        case kNotCompletedMessage:
            return kNotCompletedHeading;
        default:
            return kPassHeading;
    }
}

// With leading zeros, and without the separators that a host's locale may put between digits.
std::string ThreeDigitsOrMore(std::int32_t number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 3 ? std::string(3 - digits.size(), '0') + digits : digits;
}

}  // namespace

void BMCI2C_Test_Impl::WriteOutput(EZDXLogSeverity severity, const std::string& text) {
    WriteCoreLog(severity, "BMCI2C: " + text);
}

void BMCI2C_Test_Impl::WriteOutputLocation(EZDXLogSeverity severity, const char* file, int line,
                                           const std::string& text) {
    std::ostringstream output;
    output << "BMCI2C At " << file << ": " << std::to_string(line) << ": " << text;
    WriteCoreLog(severity, output.str());
}

void BMCI2C_Test_Impl::WriteLocation(LocationLine line) {
    WriteOutputLocation(kLogTrace, "BMCI2C_Test_Impl.cpp", static_cast<int>(line), "");
}

std::string BMCI2C_Test_Impl::ProcessCompletionCode(unsigned char code) {
    return TextOf(CompletionCodeMessage(code));
}

ResultMessage BMCI2C_Test_Impl::CompletionCodeMessage(unsigned char code) {
    WriteLocation(LocationLine::CompletionCode);
    const bool named = code >= kFirstNamedCode && code <= kLastNamedCode;
    const int number =
        named ? kFirstCompletionCode + (code - kFirstNamedCode) : kUnknownCompletionCode;
    return BuildMessage(kNotCompletedMessage, static_cast<unsigned short>(number));
}

std::string BMCI2C_Test_Impl::GetMessageString(int kind, unsigned short number) {
    return TextOf(BuildMessage(kind, number));
}

ResultMessage BMCI2C_Test_Impl::BuildMessage(int kind, unsigned short number) {
    WriteLocation(LocationLine::MessageBegin);
    if (!IsMachineSupported() || machine == nullptr || genericMachine == nullptr) {
        return {};
    }
    WriteLocation(LocationLine::MessageHeading);
    ResultMessage message{.line = MessageLine(kind, number), .recommendations = {}};
    if (kind != kPassMessage) {
        message.recommendations = Recommendations(number);
    }
    WriteLocation(LocationLine::MessageEnd);
    return message;
}

// "166-NUMBER-NODE HEADING TEXT".
std::string BMCI2C_Test_Impl::MessageLine(int kind, unsigned short number) {
    const TXMessage generic = genericMachine->GetMessege();
    std::string text = machine->GetMessege().GetValueFromMap(number);
    if (text.empty()) {
        text = generic.GetValueFromMap(number);
    }
    if (text.empty()) {
        text = generic.GetValueFromMap(kFallbackText) + ": message num: " + std::to_string(number);
    }
    return "166-" + ThreeDigitsOrMore(number) + '-' + ThreeDigitsOrMore(nodeCount) + ' ' +
           generic.GetValueFromMap(HeadingOf(kind)) + text;
}

std::vector<std::string> BMCI2C_Test_Impl::Recommendations(unsigned short number) {
    std::vector<std::string> texts = machine->GetMessege().GetRecommendations(number);
    return texts.empty() ? genericMachine->GetMessege().GetRecommendations(number) : texts;
}
