#include <test/BMCI2C_Test_Impl.h>
#include <test/CatalogTexts.h>
#include <test/CoreLog.h>
#include <test/MessageNumbers.h>

#include <sstream>

using NQUVZDX20::EZDXLogSeverity;
using NQUVZDX20::kLogTrace;

namespace {

// The IPMI completion codes that have a message of their own.
constexpr unsigned char kFirstNamedCode = 0xC0;
constexpr unsigned char kLastNamedCode = 0xD5;

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
    ResultMessage message =
        CatalogTexts(*machine, *genericMachine).Message(kind, number, nodeCount);
    WriteLocation(LocationLine::MessageEnd);
    return message;
}
