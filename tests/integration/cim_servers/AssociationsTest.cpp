// Associations: their providers ask the server for the endpoints while a request is under way.
#include "ServerTest.h"

namespace {

using Associations = ServerTest;

// A reference property's value is its object path in quotes.
std::string Reference(const Reply& names) { return '"' + names.paths.at(0) + '"'; }

}  // namespace

FOR_EVERY_SERVER(Associations);

TEST_P(Associations, References_AreTheNamesOfTheEndpoints) {
    EXPECT_TRUE(Run().IsOk());
    const auto one = [this](const std::string& name) {
        return server.EnumerateInstances("QUVSG_BMCI2C_" + name).instances.at(0);
    };
    const auto reference = [this](const std::string& name) {
        return Reference(server.EnumerateInstanceNames("QUVSG_BMCI2C_" + name));
    };
    EXPECT_EQ(one("AffectedJobElement")["AffectedElement"], reference("ManagedSystemElement"));
    EXPECT_EQ(one("AffectedJobElement")["AffectingElement"], reference("ConcreteJob"));
    EXPECT_EQ(one("OwningJobElement")["OwningElement"], reference("DiagnosticService"));
    EXPECT_EQ(one("OwningJobElement")["OwnedElement"], reference("ConcreteJob"));
    EXPECT_EQ(one("RecordAppliesToElement")["Record"], reference("DiagnosticServiceRecord"));
    EXPECT_EQ(one("RecordAppliesToElement")["Element"], reference("ManagedSystemElement"));
    EXPECT_EQ(one("UseOfLog")["Antecedent"], reference("DiagnosticsLog"));
    EXPECT_EQ(one("UseOfLog")["Dependent"], reference("DiagnosticService"));
}
