#include <cli/report/BusStatus.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string_view>

namespace cli {

namespace {

using Bytes = std::vector<std::uint8_t>;
using Outcome = ControllerStatus::Outcome;

// The lines of a run that tell of controllers.
constexpr std::string_view kCount = "BMCI2C: Total number of BMC(s) found = ";
constexpr std::string_view kRequest = "Sending command data: ";
constexpr std::string_view kNotDelivered = "isCmdComplete of sendIPMICommand() is : 0";
constexpr std::string_view kResponse = "Response length is : ";
constexpr std::string_view kDump = " Including completion code, received response data is : ";
constexpr std::string_view kOxcV1 = "BMCI2C: OXC V1 detected";
constexpr std::string_view kOxcV2 = "BMCI2C: OXC V2 detected";

constexpr std::size_t kCommandIndex = 4;
constexpr std::uint8_t kBusStatusCommand = 0x09;

constexpr std::size_t kCompletionCodeIndex = 8;
constexpr std::size_t kFirstDataIndex = 9;
constexpr unsigned int kBussesPerByte = 8;
constexpr unsigned int kBussesInFirstByteOfOxcV1 = 6;
constexpr std::size_t kByteUnusedByOxcV2 = 1;

enum class Generation { NotOxc, V1, V2 };

// The rest of a text that begins with `prefix`.
std::optional<std::string_view> Behind(std::string_view prefix, std::string_view text) {
    if (!text.starts_with(prefix)) return std::nullopt;
    return text.substr(prefix.size());
}

int LeadingNumber(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

Bytes BytesOf(std::string_view dump) {
    Bytes bytes;
    std::istringstream stream{std::string(dump)};
    for (std::string digits; stream >> digits;) {
        std::uint8_t byte = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
        bytes.push_back(byte);
    }
    return bytes;
}

// The length counts the completion code as well, so the last byte that the run looks at lies
// behind the controller's last one: it is none of the controller's, unless a bit of it is set. The
// dump of a very long answer ends before.
Bytes StatusBytes(const Bytes& dump, std::size_t length) {
    Bytes data(dump.begin() + static_cast<std::ptrdiff_t>(std::min(kFirstDataIndex, dump.size())),
               dump.end());
    if (data.size() == length && data.back() == 0) data.pop_back();
    return data;
}

// Follows the run's lines, controller by controller.
class LogReader {
public:
    void Read(std::string_view line) {
        if (const auto number = Behind(kCount, line)) {
            count = static_cast<std::size_t>(std::max(LeadingNumber(*number), 0));
        } else if (const auto request = Behind(kRequest, line)) {
            ReadRequest(*request);
        } else if (const auto response = Behind(kResponse, line)) {
            if (asksBusStatus) ReadResponse(*response);
        } else if (Behind(kNotDelivered, line) && !controllers.empty()) {
            controllers.back().status.outcome = Outcome::NotDelivered;
        } else if (line == kOxcV1) {
            SetGeneration(Generation::V1);
        } else if (line == kOxcV2) {
            SetGeneration(Generation::V2);
        }
    }

    std::vector<ControllerStatus> Statuses(std::size_t atLeast) const {
        std::vector<ControllerStatus> statuses;
        for (const Seen& controller : controllers) statuses.push_back(StatusOf(controller));
        if (!controllers.empty() || count > 0)
            statuses.resize(std::max({statuses.size(), count, atLeast}));
        return statuses;
    }

private:
    struct Seen {
        ControllerStatus status;
        Bytes data = {};
        Generation generation = Generation::NotOxc;
    };

    void ReadRequest(std::string_view dump) {
        const Bytes request = BytesOf(dump);
        asksBusStatus =
            request.size() > kCommandIndex && request[kCommandIndex] == kBusStatusCommand;
        if (asksBusStatus) controllers.emplace_back();
    }

    void ReadResponse(std::string_view text) {
        Seen& controller = controllers.back();
        const auto dump = text.find(kDump);
        if (dump == std::string_view::npos) return;
        const Bytes bytes = BytesOf(text.substr(dump + kDump.size()));
        const int length = LeadingNumber(text);
        controller.status.length = length;
        if (length <= 1 || bytes.size() <= kCompletionCodeIndex) {
            controller.status.outcome = Outcome::BadLength;
        } else if (bytes[kCompletionCodeIndex] != 0) {
            controller.status.outcome = Outcome::Refused;
            controller.status.completionCode = bytes[kCompletionCodeIndex];
        } else {
            controller.status.outcome = Outcome::Examined;
            controller.data = StatusBytes(bytes, static_cast<std::size_t>(length));
        }
    }

    void SetGeneration(Generation generation) {
        if (!controllers.empty()) controllers.back().generation = generation;
    }

    static ControllerStatus StatusOf(const Seen& controller) {
        ControllerStatus status = controller.status;
        for (std::size_t position = 0; position < controller.data.size(); ++position) {
            const std::uint8_t byte = controller.data[position];
            const bool isUnused =
                controller.generation == Generation::V2 && position == kByteUnusedByOxcV2;
            status.hasBytesWithoutBusses |= isUnused && byte != 0;
            if (isUnused && byte != 0) continue;  // takes no bus numbers, though a zero byte does
            for (unsigned int bit = 0; bit < kBussesPerByte; ++bit)
                status.busses.push_back(BusOf(controller.generation, position, byte, bit));
        }
        return status;
    }

    static Bus BusOf(Generation generation, std::size_t position, std::uint8_t byte,
                     unsigned int bit) {
        const bool isBus =
            !(generation == Generation::V2 && position == kByteUnusedByOxcV2) &&
            !(generation == Generation::V1 && position == 0 && bit >= kBussesInFirstByteOfOxcV1);
        if (!isBus) return Bus::None;
        return (byte >> bit & 1U) != 0 ? Bus::Failed : Bus::Good;
    }

    std::size_t count = 0;
    bool asksBusStatus = false;  // the last request was for the bus status
    std::vector<Seen> controllers;
};

}  // namespace

std::vector<ControllerStatus> StatusFromLog(const std::vector<LogLine>& lines, std::size_t count) {
    LogReader reader;
    for (const LogLine& line : lines) reader.Read(line.text);
    return reader.Statuses(count);
}

}  // namespace cli
