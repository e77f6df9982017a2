#include <platform/service_processor/Clock.h>
#include <test/BMCI2C_Test_Impl.h>
#include <test/CoreLog.h>
#include <test/RunTroubles.h>

#include <utility>

using NQUVZDX20::kLogTrace;

namespace {

constexpr int kAnnouncedGenerationLength = 256;  // unlike the status request's
constexpr std::size_t kGenerationByte = 1;
constexpr std::uint8_t kSecondGeneration = 0x01;

}  // namespace

bool BMCI2C_Test_Impl::IsOxcV2() {
    return AskGeneration(SPLibrary::DescribeMachine(), {.begin = platform::Now()}).generation ==
           Generation::Second;
}

BMCI2C_Test_Impl::GenerationAnswer BMCI2C_Test_Impl::AskGeneration(const SPMachine& described,
                                                                   const SPShare& share) {
    const auto unknown = [](const platform::Trouble& trouble) {
        return GenerationAnswer{.generation = Generation::Unknown, .reason = trouble.text};
    };
    std::unique_ptr<SPLibrary> controller = ControllerOfNode(0, described);
    IpmiExchange exchange(platform::kControllerGeneration, kAnnouncedGenerationLength);
    WriteCoreLog(kLogTrace, exchange.DumpRequest());
    if (!exchange.SendTo(std::move(controller), share)) {
        return unknown(exchange.Facts().trouble.value_or(run_trouble::NotPresent()));
    }
    const platform::IpmiResponse response = exchange.Response();
    WriteCoreLog(kLogTrace, Dump(response));
    if (response.IsTooShort()) {
        WriteCoreLog(kLogTrace, "isOxcV2 response length not correct");
        return unknown(run_trouble::TooShort(response.Length()));
    }
    if (response.CompletionCode() != platform::kCompleted) {
        WriteCoreLog(kLogTrace, "IsOxcV2 completion code failed");
        return unknown(run_trouble::Refused(response.CompletionCode()));
    }
    const bool isSecond = (response.DataByte(kGenerationByte) & kSecondGeneration) != 0;
    return {.generation = isSecond ? Generation::Second : Generation::First, .reason = ""};
}

// The query goes to node 0 and uses its time.
BMCI2C_Test_Impl::GenerationAnswer BMCI2C_Test_Impl::DetectGeneration(const CurrentRun& run) {
    if (!isOxcMachine) {
        return {.generation = Generation::None, .reason = ""};
    }
    const GenerationAnswer answer =
        AskGeneration(run.described, {.begin = platform::Now(), .stop = run.options.stop});
    const bool isV2 = answer.generation == Generation::Second;
    WriteOutput(kLogTrace, isV2 ? "OXC V2 detected" : "OXC V1 detected");
    return answer;
}
