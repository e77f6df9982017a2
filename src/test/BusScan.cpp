#include <test/BMCI2C_Test_Impl.h>
#include <test/MessageNumbers.h>

#include <algorithm>
#include <utility>

using NQUVZDX20::kLogTrace;

namespace {

// A data byte of the answer stands for eight busses, the lowest bit for the first of them.
constexpr unsigned int kBussesPerByte = 8;
constexpr unsigned int kAllBits = 0xFF;
constexpr unsigned int kBitsOfFirstByteOnOxcV1 = 0x3F;
constexpr std::size_t kByteUnusedByOxcV2 = 1;

// The bits of a data byte that stand for busses. An OXC controller of unknown generation is judged
// like one of the first.
unsigned int BussesOfByte(std::size_t position, Generation generation) {
    switch (generation) {
        case Generation::Second:
            return position == kByteUnusedByOxcV2 ? 0 : kAllBits;
        case Generation::First:
        case Generation::Unknown:
            return position == 0 ? kBitsOfFirstByteOnOxcV1 : kAllBits;
        default:
            return kAllBits;
    }
}

bool IsSet(unsigned int bits, unsigned int bit) { return (bits >> bit & 1U) != 0; }

// The busses of one data byte, without those that are not there.
void AddBusses(unsigned int byte, unsigned int examined, unsigned int firstBus,
               ControllerResult& controller) {
    for (unsigned int bit = 0; bit < kBussesPerByte; ++bit) {
        const bool failed = IsSet(byte, bit);
        if (IsSet(examined, bit)) {
            controller.busses.push_back(
                {firstBus + bit, failed ? BusState::Failed : BusState::Good});
        } else if (failed && controller.generation == Generation::Unknown) {
            controller.busses.push_back({firstBus + bit, BusState::Unjudged});
        }
    }
}

}  // namespace

bool BMCI2C_Test_Impl::DependsOnGeneration(const ControllerResult& controller) {
    if (controller.generation != Generation::Unknown) {
        return false;
    }
    const std::vector<std::uint8_t>& data = controller.data;
    return std::ranges::any_of(controller.busses,
                               [](const Bus& bus) { return bus.state == BusState::Unjudged; }) ||
           (data.size() > kByteUnusedByOxcV2 && data[kByteUnusedByOxcV2] != 0);
}

std::string BMCI2C_Test_Impl::ScanBusses(const platform::IpmiResponse& response,
                                         ControllerResult& controller) {
    std::string failures;
    unsigned int firstBus = 0;
    const std::span<const std::uint8_t> data = response.Data();
    const std::size_t ofController = response.ControllerData().size();
    for (std::size_t position = 0; position < data.size(); ++position) {
        WriteLocation(LocationLine::DataByte);
        const unsigned int byte = data[position];
        const unsigned int examined = BussesOfByte(position, controller.generation);
        if (byte != 0) {
            WriteLocation(LocationLine::FailedBusses);
            if (examined == 0) {
                // The numbers of later busses do not count this byte, though they do when it is 0.
                controller.hasUnusedByte = true;
                continue;
            }
        }
        if (position < ofController) {
            AddBusses(byte, examined, firstBus, controller);
        }
        for (unsigned int bit = 0; bit < kBussesPerByte; ++bit) {
            if (IsSet(byte & examined, bit)) {
                AddFailedBus(firstBus + bit, failures, controller);
            }
        }
        firstBus += kBussesPerByte;
    }
    return failures;
}

void BMCI2C_Test_Impl::AddFailedBus(unsigned int bus, std::string& failures,
                                    ControllerResult& controller) {
    if (!failures.empty()) {
        failures += '\n';
    }
    ResultMessage message =
        BuildMessage(kBusFaultMessage, static_cast<unsigned short>(kFirstBus + bus));
    failures += TextOf(message);
    controller.failedBusses.push_back({bus, std::move(message)});
    WriteOutput(kLogTrace, "Failure string: " + failures);
}
