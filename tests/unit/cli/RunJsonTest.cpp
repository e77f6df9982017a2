#include <cli/run/RunJson.h>
#include <gmock/gmock.h>

#include "Results.h"

namespace cli {
namespace {

using testing::ElementsAre;

Json JsonOf(const RunResult& result) {
    return RunJson({.result = result, .job = {{"InstanceID", "X:1"}}, .records = Json::array()});
}

std::vector<std::string> KeysOf(const Json& object) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : object.items()) keys.push_back(key);
    return keys;
}

TEST(RunJson, Object_HasTheKeysOfTheFormatInOrder) {
    const Json json = JsonOf(ResultOf({}));
    EXPECT_THAT(KeysOf(json),
                ElementsAre("format_version", "version", "simulated", "verdict", "begin", "end",
                            "seconds", "machine", "controllers", "failed", "status", "return_value",
                            "job", "records", "end_of_record", "messages", "troubles"));
    EXPECT_EQ(json["format_version"], 1);
    EXPECT_EQ(json["simulated"], false);
    EXPECT_EQ(json["status"], 0);
    EXPECT_EQ(json["return_value"], 1);
    EXPECT_EQ(json["job"]["InstanceID"], "X:1");
    EXPECT_TRUE(json["controllers"].is_array());
    EXPECT_TRUE(json["failed"].is_array());
    EXPECT_TRUE(json["end_of_record"].is_null());
    EXPECT_EQ(json["seconds"], 0.42);
}

TEST(RunJson, Verdict_HasItsName) {
    EXPECT_EQ(JsonOf(ResultOf({}))["verdict"], "not_completed");
    EXPECT_EQ(JsonOf(ResultOf({Examined(0, {kGood})}))["verdict"], "passed");
    EXPECT_EQ(JsonOf(ResultOf({Examined(0, {kFailed})}))["verdict"], "failed");
    EXPECT_EQ(JsonOf(Interrupted(ResultOf({})))["verdict"], "interrupted");
}

TEST(RunJson, Times_AreUtcWithMilliseconds) {
    using std::chrono::system_clock;
    RunResult result = ResultOf({});
    result.begin = system_clock::time_point(std::chrono::milliseconds(1'795'306'778'005));
    result.end = system_clock::time_point(std::chrono::milliseconds(-1));
    const Json json = JsonOf(result);
    EXPECT_EQ(json["begin"], "2026-11-22T00:19:38.005Z");
    EXPECT_EQ(json["end"], "1969-12-31T23:59:59.999Z");
}

TEST(RunJson, Machine_IsComplete) {
    RunResult result = ResultOf({});
    EXPECT_EQ(JsonOf(result)["machine"].dump(),
              R"({"type":"7000","bios_id":"P7E100A","oxc":false,"catalog":"/c.xml",)"
              R"("supported":true})");
    result.machine.oxc.reset();
    EXPECT_TRUE(JsonOf(result)["machine"]["oxc"].is_null());
}

TEST(RunJson, ExaminedController_IsComplete) {
    ControllerResult controller = Examined(0, {kGood, std::nullopt, kUnjudged});
    controller.completionCode = 0;
    controller.data = {0x0F, 0xA0};
    controller.attempts = 2;
    controller.elapsed = std::chrono::milliseconds(100);
    controller.length = 3;
    controller.generation = Generation::Unknown;
    EXPECT_EQ(JsonOf(ResultOf({controller}))["controllers"][0].dump(),
              R"({"node":0,"address":"inband /dev/ipmi0","outcome":"examined",)"
              R"("generation":"unknown","completion_code":0,"data":"0fa0","attempts":2,)"
              R"("seconds":0.1,"busses":[{"bus":0,"state":"good"},{"bus":2,"state":"unjudged"}],)"
              R"("trouble":null,"length":3,"unused_byte":false,)"
              R"("message":"166-000-001 PASS: all good","recommendations":[]})");
}

TEST(RunJson, ControllerThatWasNotAsked_HasNullsAndNoBusses) {
    EXPECT_EQ(JsonOf(ResultOf({NotAsked(0)}))["controllers"][0].dump(),
              R"({"node":0,"address":"inband /dev/ipmi0","outcome":"not_asked","generation":null,)"
              R"("completion_code":null,"data":"","attempts":0,"seconds":0.0,"busses":[],)"
              R"("trouble":{"code":"not_asked","text":"It was not asked.","advice":""},)"
              R"("length":null,"unused_byte":false,"message":null,"recommendations":[]})");
}

TEST(RunJson, Outcomes_HaveTheirNames) {
    const Json controllers = JsonOf(ResultOf({Refusing(0), Short(1), Silent(2)}))["controllers"];
    EXPECT_EQ(controllers[0]["outcome"], "refused");
    EXPECT_EQ(controllers[0]["completion_code"], 0xC1);
    EXPECT_EQ(controllers[1]["outcome"], "unusable_answer");
    EXPECT_EQ(controllers[2]["outcome"], "not_delivered");
}

TEST(RunJson, Generations_AreNumbers) {
    ControllerResult first = Examined(0, {kGood});
    first.generation = Generation::First;
    ControllerResult second = Examined(1, {kGood});
    second.generation = Generation::Second;
    const Json controllers = JsonOf(ResultOf({first, second}))["controllers"];
    EXPECT_EQ(controllers[0]["generation"], 1);
    EXPECT_EQ(controllers[1]["generation"], 2);
}

TEST(RunJson, FailedBusses_AreListedOverAllControllers) {
    EXPECT_EQ(
        JsonOf(ResultOf({Examined(0, {kGood, kFailed}), Examined(1, {kFailed})}))["failed"].dump(),
        R"([{"node":0,"bus":1,"message":"166-902-001 FAIL: bus 1",)"
        R"("recommendations":["Check the cables.","Call support."]},)"
        R"({"node":1,"bus":0,"message":"166-901-002 FAIL: bus 0",)"
        R"("recommendations":["Check the cables.","Call support."]}])");
}

TEST(RunJson, MessagesTroublesAndEndOfTheRun_AreTold) {
    RunResult result = ResultOf({Refusing(0)});
    result.messages = {{"166-899-001 Aborted", {"Advice."}}};
    result.troubles = {{"code", "Text.", "Help."}};
    result.endOfRecord = 0;
    const Json json = JsonOf(result);
    EXPECT_EQ(json["messages"].dump(),
              R"([{"message":"166-899-001 Aborted","recommendations":["Advice."]}])");
    EXPECT_EQ(json["troubles"].dump(), R"([{"code":"code","text":"Text.","advice":"Help."}])");
    EXPECT_EQ(json["end_of_record"], 0);
}

TEST(RunJson, TextThatIsNotUtf8_StillGivesJson) {
    RunResult result = ResultOf({});
    result.machine.type = "\xFF\033";
    const std::string text = JsonText(JsonOf(result));
    EXPECT_EQ(Json::parse(text)["machine"]["type"], "\xEF\xBF\xBD\033");
}

}  // namespace
}  // namespace cli
