#include <gmock/gmock.h>
#include <platform/diagnostics/TOSSpecific.h>
#include <platform/diagnostics/TRootObject.h>

#include "JsonLines.h"
#include "SettingsEnvironment.h"
#include "TemporaryFolder.h"

namespace {

using NQUVZDX20::TRootObject;

// The settings and the logger of a process are made once, so this is the program's only test.
TEST(LogEnvironment, LogAndLevel_AreFollowedAlsoWhileTheFileIsBroken) {
    const TemporaryFolder folder;
    const SettingsEnvironment environment;
    const std::string config = folder.Write("platform.toml", "[machine]\nkind = \"7000\"\n");
    environment.Set("BMCI2C_CONFIG", config);
    environment.Set("BMCI2C_LOG", "json:" + folder.File("log"));
    environment.Set("BMCI2C_LOG_LEVEL", "3");

    EXPECT_FALSE(NQUVZDX20::TOSSpecific::isOEMBuild());
    folder.Write("platform.toml", "[machine]\ntype = \"7000\"\n");
    EXPECT_EQ(NQUVZDX20::TOSSpecific::GetMachineTypeFromID(), "7000");
    TRootObject::GetCoreLogger()->Log(NQUVZDX20::kLogTrace, "three");
    TRootObject::GetCoreLogger()->Log(NQUVZDX20::kLogFinest, "four");

    const std::string problem = R"({"severity":0,"text":"Settings: )" + config +
                                ":2:1: key 'machine.kind': found an unknown key, allowed are "
                                R"(bios_id, bios_id_source, type and type_source."})";
    const std::string three = R"({"severity":3,"text":"three"})";
    EXPECT_THAT(JsonLinesOf(folder.File("log")), testing::ElementsAre(problem, three));
}

}  // namespace
