#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mof/Reader.h>
#include <mof/generator/PublishedMof.h>

namespace {

std::string Published(const std::string& text) {
    const std::string mof = mof::PublishedMof(mof::ReadText(text, "a.mof"));
    return mof.substr(mof.find("\n\n") + 2);  // what follows the comment at the beginning
}

TEST(PublishedMof, BaseClasses_AreLeftOut_AndOwnMembersAreKept) {
    EXPECT_EQ(Published(R"(
class CIM_Record { string Text; };
[Description ("A \"record\" \\ of ours.")] class QUVSG_BMCI2C_Record : CIM_Record {
    boolean Good; uint16 Codes[];
};)"),
              R"([Description ("A \"record\" \\ of ours.")]
class QUVSG_BMCI2C_Record : CIM_Record {
    boolean Good;
    uint16 Codes[];
};
)");
}

TEST(PublishedMof, ClassWhosePublishedBaseHasOtherKeys_DeclaresEverythingItself) {
    EXPECT_EQ(Published(R"(
class CIM_ManagedElement { string Caption; };
class CIM_Setting : CIM_ManagedElement {
    uint32 Apply([In] string To[], [In, Out] uint8 Mode, [In (false), Out] string Failed);
    uint32 Reset();
};
class CIM_DiagnosticSetting : CIM_Setting { [Key] string InstanceID; uint16 Level; };
[Description ("A setting.")] class QUVSG_BMCI2C_DiagnosticSetting : CIM_DiagnosticSetting { };)"),
              R"([Description ("A setting.")]
class QUVSG_BMCI2C_DiagnosticSetting : CIM_ManagedElement {
    [Key] string InstanceID;
    uint16 Level;
    uint32 Apply(
        [In] string To[],
        [In, Out] uint8 Mode,
        [In (false), Out] string Failed);
    uint32 Reset();
};
)");
}

TEST(PublishedMof, AssociationWhosePublishedBaseHasOtherKeys_HasNoBase) {
    EXPECT_EQ(Published(R"(
class CIM_Record { };
[Association] class CIM_RecordAppliesToElement { [Key] CIM_Record REF Record; };
[Association, Description ("A tie.")]
class QUVSG_BMCI2C_RecordAppliesToElement : CIM_RecordAppliesToElement { };)"),
              R"([Association, Description ("A tie.")]
class QUVSG_BMCI2C_RecordAppliesToElement {
    [Key] CIM_Record REF Record;
};
)");
}

}  // namespace
