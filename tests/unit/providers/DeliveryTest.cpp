// When an instance is delivered: after the opening trace line and the instance's printed lines,
// before the closing one.
#include <algorithm>

#include "AssociationFixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using Lines = std::vector<std::string>;

class Delivery : public AssociationTest {
protected:
    // The lines that were written when the provider's first instance came.
    template <class Provider, class Class>
    static Lines LinesAtDelivery() {
        FakeTraceSink::lines.clear();
        Lines atDelivery;
        cimple::Enum_Instances_Handler<Class> handler(
            [](cimple::Instance* instance, int /*status*/, void* data) {
                auto& lines = *static_cast<Lines*>(data);
                if (lines.empty()) lines = FakeTraceSink::lines;
                cimple::unref(instance);
            },
            &atDelivery);
        Provider provider;
        EXPECT_EQ(provider.enum_instances(nullptr, &handler), 0);
        return atDelivery;
    }
};

std::string Opening(const std::string& name) {
    return "+++QUVSG_BMCI2C_" + name + "_Provider::enum_instances()\n";
}

// The opening line came first, a printed instance of the class last.
void ExpectPrinted(const Lines& lines, const std::string& traceName, const std::string& className) {
    ASSERT_GT(lines.size(), 2U) << className;
    EXPECT_EQ(lines.front(), Opening(traceName));
    EXPECT_EQ(lines.back(), "}\n") << className;
    EXPECT_THAT(lines, Contains("QUVSG_BMCI2C_" + className + " \n"));
    EXPECT_THAT(lines, Not(Contains(testing::StartsWith("---")))) << className;
}

}  // namespace

#define LINES_OF(X) (LinesAtDelivery<QUVSG_BMCI2C_##X##_Provider, QUVSG_BMCI2C_##X>())

TEST_F(Delivery, OfAnInstanceThatIsNotPrinted_FollowsTheOpeningLine) {
    EXPECT_THAT(LINES_OF(SoftwareIdentity), ElementsAre(Opening("SoftwareIdentity")));
    EXPECT_THAT(LINES_OF(HelpService), ElementsAre(Opening("HelpService")));
    EXPECT_THAT(LINES_OF(DiagnosticServiceCapabilities),
                ElementsAre(Opening("DiagnosticServiceCapabilities")));
    EXPECT_THAT(LINES_OF(DiagnosticSetting), ElementsAre(Opening("DiagnosticSetting")));
}

TEST_F(Delivery, OfAPrintedInstance_FollowsItsPrint) {
    ExpectPrinted(LINES_OF(ConcreteJob), "ConcreteJob", "ConcreteJob");
    ExpectPrinted(LINES_OF(DiagnosticsLog), "DiagnosticsLog", "DiagnosticsLog");
    ExpectPrinted(LINES_OF(DiagnosticServiceRecord), "DiagnosticServiceRecord",
                  "DiagnosticServiceRecord");
}

TEST_F(Delivery, OfAnAssociation_FollowsItsPrint) {
    ExpectPrinted(LINES_OF(AffectedJobElement), "AffectedJobElement", "AffectedJobElement");
    ExpectPrinted(LINES_OF(AvailableDiagnosticService), "AvailableDiagnosticService",
                  "AvailableDiagnosticService");
    ExpectPrinted(LINES_OF(ElementSetting), "ElementSettingData", "ElementSetting");
    ExpectPrinted(LINES_OF(OwningJobElement), "OwningJobElement", "OwningJobElement");
    ExpectPrinted(LINES_OF(RecordAppliesToElement), "RecordAppliesToElement",
                  "RecordAppliesToElement");
    ExpectPrinted(LINES_OF(UseOfLog), "UseOfLog", "UseOfLog");
}

TEST_F(Delivery, OfAnAssociation_FollowsThePrintsOfItsEndpoints) {
    const Lines lines = LINES_OF(AffectedJobElement);
    ASSERT_GT(lines.size(), 2U);
    const auto element =
        std::find(lines.begin(), lines.end(), "QUVSG_BMCI2C_ManagedSystemElement \n");
    const auto job = std::find(element, lines.end(), "QUVSG_BMCI2C_ConcreteJob \n");
    const auto association = std::find(job, lines.end(), "QUVSG_BMCI2C_AffectedJobElement \n");
    EXPECT_NE(association, lines.end());
}
