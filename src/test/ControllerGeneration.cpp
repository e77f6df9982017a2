#include <test/BMCI2C_Test_Impl.h>
#include <test/CoreLog.h>

#include <utility>

using NQUVZDX20::kLogTrace;

namespace {

constexpr int kAnnouncedLength = 256;  // unlike the status request's
constexpr std::size_t kGenerationByte = 1;
constexpr std::uint8_t kSecondGeneration = 0x01;

}  // namespace

bool BMCI2C_Test_Impl::IsOxcV2() {
    std::unique_ptr<SPLibrary> controller = ControllerOfNode(0);
    IpmiExchange exchange(OemCommand::ControllerGeneration, kAnnouncedLength);
    WriteCoreLog(kLogTrace, exchange.DumpRequest());
    if (!exchange.SendTo(std::move(controller))) {
        return false;
    }
    const IpmiResponse response = exchange.Response();
    WriteCoreLog(kLogTrace, response.Dump());
    if (response.Length() <= 1) {
        WriteCoreLog(kLogTrace, "isOxcV2 response length not correct");
        return false;
    }
    if (response.CompletionCode() != 0) {
        WriteCoreLog(kLogTrace, "IsOxcV2 completion code failed");
        return false;
    }
    return (response.DataByte(kGenerationByte) & kSecondGeneration) != 0;
}
