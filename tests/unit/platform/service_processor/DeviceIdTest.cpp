#include <gtest/gtest.h>
#include <platform/service_processor/DeviceId.h>

#include "TroubleOf.h"

namespace platform {
namespace {

// Device 0x20, firmware 2.05 with bit 7 of the major number set, manufacturer 0x12A2B (the upper
// four bits are not its own), product 0x0403.
const std::vector<std::uint8_t> kWholeAnswer = {0x20, 0x81, 0x82, 0x05, 0x02, 0xBF,
                                                0x2B, 0x2A, 0xF1, 0x03, 0x04};

std::optional<ThrownTrouble> TroubleWith(const IpmiAnswer& answer) {
    return TroubleOf([&] { ReadDeviceId(answer); });
}

TEST(DeviceId, WholeAnswer_GivesItsNumbers) {
    EXPECT_EQ(
        ReadDeviceId({.completionCode = 0x00, .data = kWholeAnswer}),
        (DeviceId{.manufacturer = 0x12A2B, .product = 0x0403, .firmware = "2.05", .device = 0x20}));
}

TEST(DeviceId, AuxiliaryFirmwareBytes_ChangeNothing) {
    IpmiAnswer answer{.completionCode = 0x00, .data = kWholeAnswer};
    answer.data.insert(answer.data.end(), {1, 2, 3, 4});
    EXPECT_EQ(ReadDeviceId(answer).product, 0x0403);
}

TEST(DeviceId, OneByteLess_IsTooShort) {
    IpmiAnswer answer{.completionCode = 0x00, .data = kWholeAnswer};
    answer.data.pop_back();
    EXPECT_EQ(TroubleWith(answer),
              (ThrownTrouble{TroubleCode::UnusableAnswers,
                             "The controller's answer to Get Device ID is too short: it has 10 "
                             "data bytes instead of 11. Restart the controller, or update its "
                             "firmware."}));
}

TEST(DeviceId, CompletionCode_IsToldWithItsMeaning) {
    EXPECT_EQ(TroubleWith({.completionCode = 0xFF, .data = kWholeAnswer}),
              (ThrownTrouble{TroubleCode::Busy,
                             "The controller answered Get Device ID with completion code 0xff "
                             "(the controller is busy). Wait a while, then try again."}));
    EXPECT_EQ(TroubleWith({.completionCode = 0xC1}),
              (ThrownTrouble{TroubleCode::Refused,
                             "The controller answered Get Device ID with completion code 0xc1 (the "
                             "controller does not know the command). Every controller knows this "
                             "command: try again, and restart the controller if that does not "
                             "help."}));
}

}  // namespace
}  // namespace platform
