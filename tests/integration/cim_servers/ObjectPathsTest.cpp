// Object paths in the forms in which servers pass them.
#include "ServerTest.h"

namespace {

using ObjectPaths = ServerTest;

}  // namespace

FOR_EVERY_SERVER(ObjectPaths);

TEST_P(ObjectPaths, KeysInAnyOrderAndLetterCase_NameTheService) {
    const Reply run = server.InvokeMethod({kService,
                                           {{"NAME", "BMC I2C Test"},
                                            {"creationclassname", ""},
                                            {"SystemName", ""},
                                            {"SystemCreationClassName", ""}}},
                                          "RunDiagnostic");
    EXPECT_TRUE(run.IsOk()) << run;
}

TEST_P(ObjectPaths, EmptyForeignKey_IsPassedOver) {
    const Reply reply =
        server.GetInstance({"QUVSG_BMCI2C_DiagnosticSetting",
                            {{"SettingID", ""}, {"InstanceID", "QUVSG_BMCI2C_DiagnosticSetting"}}});
    EXPECT_EQ(ToText(reply),
              "7: QUVSG_BMCI2C_DiagnosticSetting_Provider: getInstance failed: the provider does "
              "not support it (status 61).");
}
