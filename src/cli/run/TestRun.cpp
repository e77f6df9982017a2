#include <cli/run/InstanceJson.h>
#include <cli/run/TestRun.h>
#include <framework/Instance_Ptr.h>
#include <providers/QUVSG_BMCI2C_ConcreteJob_Provider.h>
#include <providers/QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider.h>
#include <test/BMCI2C_Test_Impl.h>
#include <test/Globals_BMCI2C_Test.h>

#include <string>

namespace cli {

namespace {

// What the module's service names a run.
const std::string kTestName = "I2C Bus";

Json JobJson() {
    const cimple::Instance_Ptr job(QUVSG_BMCI2C_ConcreteJob_Provider::BuildConcreteJob());
    return ToJson(*job);
}

Json RecordsJson(DiagService& test) {
    Json records = Json::array();
    for (const auto& record : QUVSG_BMCI2C_DiagnosticCompletionRecord_Provider::BuildRecords(test))
        records.push_back(ToJson(*record));
    return records;
}

}  // namespace

TestRun RunTest(const RunOptions& options) {
    Globals_BMCI2C_Test& registry = *Globals_BMCI2C_Test::Instance();
    auto& test = dynamic_cast<BMCI2C_Test_Impl&>(*registry.tests.front());
    TestRun run{.result = test.Run(kTestName, options), .job = {}, .records = {}};
    registry.GenerateInstanceID();
    run.job = JobJson();
    run.records = RecordsJson(test);
    return run;
}

}  // namespace cli
