#include <freeipmi/freeipmi.h>
#include <gtest/gtest.h>
#include <platform/service_processor/Workarounds.h>

#include "TroubleOf.h"

namespace platform {
namespace {

TEST(WorkaroundFlags, NoNames_GiveNone) {
    EXPECT_EQ(WorkaroundFlags("2.0", {}), 0U);
    EXPECT_EQ(WorkaroundFlags("1.5", {}), 0U);
}

TEST(WorkaroundFlags, NamesOfProtocol20_GiveItsFlags) {
    EXPECT_EQ(WorkaroundFlags("2.0", {"opensesspriv"}), 0x10U);
    EXPECT_EQ(WorkaroundFlags("2.0", {"authcap", "intel20", "supermicro20", "sun20", "opensesspriv",
                                      "integritycheckvalue", "nochecksumcheck"}),
              0x7FU);
}

TEST(WorkaroundFlags, NamesOfProtocol15_GiveItsFlags) {
    EXPECT_EQ(WorkaroundFlags("1.5", {"endianseq"}), 0x10U);
    EXPECT_EQ(WorkaroundFlags("1.5", {"authcap", "idzero", "forcepermsg", "unexpectedauth",
                                      "endianseq", "noauthcodecheck", "nochecksumcheck"}),
              0x7FU);
}

TEST(WorkaroundFlags, NameOfTheOtherProtocol_IsRefused) {
    EXPECT_EQ(TroubleOf([] { WorkaroundFlags("1.5", {"opensesspriv"}); }),
              (ThrownTrouble{TroubleCode::Settings,
                             "The protocol 1.5 has no workaround 'opensesspriv'."}));
    EXPECT_EQ(
        TroubleOf([] {
            WorkaroundFlags("2.0", {"sun20", "idzero"});
        }),
        (ThrownTrouble{TroubleCode::Settings, "The protocol 2.0 has no workaround 'idzero'."}));
}

}  // namespace
}  // namespace platform
