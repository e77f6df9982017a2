// Log lines as a run of the diagnostic writes them.
#pragma once

#include <cli/LogCapture.h>

#include <cstdint>
#include <string>
#include <vector>

namespace cli {

class RunLog {
public:
    explicit RunLog(int controllers) {
        Add("BMCI2C: Total number of BMC(s) found = " + std::to_string(controllers));
    }

    RunLog& Add(const std::string& text) {
        lines.push_back({3, text});
        return *this;
    }

    RunLog& Ask() {
        return Add("Sending command data: 01 20 3a 00 09 00 00 00 00 00 00 00 00 00 00 ");
    }

    RunLog& Delivered(bool isDelivered) {
        return Add("isCmdComplete of sendIPMICommand() is : " + std::to_string(isDelivered) +
                   " fIsOXC: 0");
    }

    // The answer as the run dumps it: `data` from byte 9 on, then zeros up to its end.
    RunLog& Answer(int length, std::uint8_t completionCode, std::vector<std::uint8_t> data) {
        std::vector<std::uint8_t> bytes = {0x01, 0x20, 0x3a, 0x00, 0x09, 0x00, 0x00, 0x00};
        bytes.push_back(completionCode);
        bytes.insert(bytes.end(), data.begin(), data.end());
        bytes.resize(256);
        std::string text = "Response length is : " + std::to_string(length) +
                           " Including completion code, received response data is : ";
        for (int i = 0; i < length + 9 && i < 256; ++i)
            text += Hexadecimal(bytes.at(static_cast<std::size_t>(i)));
        return Add(text);
    }

    // A controller that answers with these status bytes.
    RunLog& Controller(const std::vector<std::uint8_t>& data) {
        return Ask().Delivered(true).Answer(static_cast<int>(data.size()) + 1, 0, data);
    }

    RunLog& Generation(int generation) {
        Add("Sending command data: 01 20 3a 00 c1 00 00 00 00 00 00 00 00 00 00 ");
        Answer(3, 0, {0x00, static_cast<std::uint8_t>(generation == 2)});
        return Add(generation == 2 ? "BMCI2C: OXC V2 detected" : "BMCI2C: OXC V1 detected");
    }

    std::vector<LogLine> lines;

private:
    static std::string Hexadecimal(std::uint8_t byte) {
        constexpr char kDigits[] = "0123456789abcdef";
        return {kDigits[byte >> 4], kDigits[byte & 0xF], ' '};
    }
};

}  // namespace cli
