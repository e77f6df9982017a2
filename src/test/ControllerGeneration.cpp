#include <test/BMCI2C_Test_Impl.h>
#include <test/CoreLog.h>
#include <test/RunTroubles.h>

#include <utility>

using NQUVZDX20::kLogTrace;

namespace {

constexpr int kAnnouncedLength = 256;  // unlike the status request's
constexpr std::size_t kGenerationByte = 1;
constexpr std::uint8_t kSecondGeneration = 0x01;

}  // namespace

bool BMCI2C_Test_Impl::IsOxcV2() {
    std::string reason;
    return AskGeneration({.begin = std::chrono::steady_clock::now()}, SPLibrary::DescribeMachine(),
                         reason) == Generation::Second;
}

// Unknown, with the reason, when the answer is of no use.
Generation BMCI2C_Test_Impl::AskGeneration(const SPShare& share, const SPMachine& machine,
                                           std::string& reason) {
    std::unique_ptr<SPLibrary> controller = ControllerOfNode(0, machine);
    IpmiExchange exchange(platform::kControllerGeneration, kAnnouncedLength);
    WriteCoreLog(kLogTrace, exchange.DumpRequest());
    if (controller != nullptr) {
        controller->Use(share);
    }
    if (!exchange.SendTo(std::move(controller))) {
        const auto& trouble = exchange.Facts().trouble;
        reason = trouble ? trouble->text : run_trouble::NotPresent().text;
        return Generation::Unknown;
    }
    const platform::IpmiResponse response = exchange.Response();
    WriteCoreLog(kLogTrace, Dump(response));
    if (response.IsTooShort()) {
        WriteCoreLog(kLogTrace, "isOxcV2 response length not correct");
        reason = run_trouble::TooShort(response.Length()).text;
        return Generation::Unknown;
    }
    if (response.CompletionCode() != platform::kCompleted) {
        WriteCoreLog(kLogTrace, "IsOxcV2 completion code failed");
        reason = run_trouble::Refused(response.CompletionCode()).text;
        return Generation::Unknown;
    }
    const bool isSecond = (response.DataByte(kGenerationByte) & kSecondGeneration) != 0;
    return isSecond ? Generation::Second : Generation::First;
}
