#include <gtest/gtest.h>
#include <platform/service_processor/inband/InBandTransport.h>
#include <sys/stat.h>
#include <unistd.h>

#include "TemporaryFolder.h"
#include "TroubleOf.h"

namespace platform {
namespace {

std::optional<ThrownTrouble> TroubleWith(const std::string& device) {
    return TroubleOf([&] {
        InBandTransport(device).Send({.netFn = 0x3A, .lun = 0, .command = 0x09},
                                     ShareFrom(Now(), std::chrono::milliseconds(1000)));
    });
}

// Whoever runs the tests is somebody who may not do everything while this lives.
class WithoutPrivileges {
public:
    WithoutPrivileges() : ok(geteuid() != 0 || seteuid(kNobody) == 0) {}
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;
    ~WithoutPrivileges() {
        if (geteuid() == kNobody) {
            EXPECT_EQ(seteuid(getuid()), 0);
        }
    }

    bool Ok() const { return ok; }

private:
    static constexpr uid_t kNobody = 65534;
    bool ok;
};

TEST(InBandTransport, Describe_NamesTheDevice) {
    EXPECT_EQ(InBandTransport("/dev/ipmi3").Describe(), "inband /dev/ipmi3");
}

TEST(InBandTransport, MissingDevice_IsNamedWithItsReason) {
    const TemporaryFolder folder;
    const std::string device = folder.File("ipmi0");
    EXPECT_EQ(TroubleWith(device),
              (ThrownTrouble{TroubleCode::NoDevice,
                             "The device " + device +
                                 " cannot be opened: No such file or directory. Check the setting "
                                 "device, and that the kernel module ipmi_devintf is loaded."}));
}

TEST(InBandTransport, DeviceWithoutPermission_IsNamedWithItsReason) {
    const TemporaryFolder folder;
    ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
    const std::string device = folder.Write("ipmi0", "");
    ASSERT_EQ(chmod(device.c_str(), 0000), 0);
    const WithoutPrivileges reduced;
    ASSERT_TRUE(reduced.Ok());
    EXPECT_EQ(TroubleWith(device),
              (ThrownTrouble{TroubleCode::Permission,
                             "The device " + device +
                                 " cannot be opened: Permission denied. Run as root, or as a user "
                                 "who may read and write it."}));
}

TEST(InBandTransport, FileThatIsNoDevice_IsNamed) {
    const TemporaryFolder folder;
    const std::string device = folder.Write("ipmi0", "");
    EXPECT_EQ(TroubleWith(device),
              (ThrownTrouble{
                  TroubleCode::Other,
                  "The device " + device +
                      " does not work as an IPMI device: Inappropriate ioctl for device. Check "
                      "that it "
                      "belongs to the kernel module ipmi_devintf."}));
}

}  // namespace
}  // namespace platform
