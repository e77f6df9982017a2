// Associators and references that the module derives, as a setting asks it to.
#include <cstdlib>

#include "ServerTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kReplace = 1;
// Before a server loads the module, which reads its settings once.
const int isSet = setenv("BMCI2C_CONFIG", BMCI2C_DERIVING_SETTINGS, kReplace);

using DerivedAssociations = ServerTest;

constexpr char kOwningJob[] = "QUVSG_BMCI2C_OwningJobElement";
constexpr char kElementSetting[] = "QUVSG_BMCI2C_ElementSetting";

}  // namespace

FOR_EVERY_SERVER(DerivedAssociations);

TEST_P(DerivedAssociations, Settings_AreReadFromTheFile) { EXPECT_EQ(isSet, 0); }

TEST_P(DerivedAssociations, AssociatorNames_OfTheService_AreItsJobs) {
    EXPECT_TRUE(Run().IsOk());
    const std::string job = server.EnumerateInstanceNames(kJob).paths.at(0);
    const Reply names = server.AssociatorNames(kOwningJob, kServicePath);
    EXPECT_TRUE(names.IsOk()) << names;
    EXPECT_THAT(names.paths, ElementsAre(job));
}

TEST_P(DerivedAssociations, Associators_AreWholeInstances) {
    EXPECT_TRUE(Run().IsOk());
    const Object job = server.EnumerateInstances(kJob).instances.at(0);
    const Reply jobs = server.Associators(kOwningJob, kServicePath);
    ASSERT_TRUE(jobs.IsOk()) << jobs;
    ASSERT_EQ(jobs.instances.size(), 1U);
    EXPECT_EQ(jobs.instances[0].path, job.path);
    EXPECT_EQ(jobs.instances[0]["Caption"], job["Caption"]);
    EXPECT_EQ(jobs.instances[0]["InstanceID"], job["InstanceID"]);
}

TEST_P(DerivedAssociations, References_AreTheLinks) {
    EXPECT_TRUE(Run().IsOk());
    const Reply links = server.EnumerateInstances(kOwningJob);
    const Reply references = server.References(kOwningJob, kServicePath);
    ASSERT_TRUE(references.IsOk()) << references;
    ASSERT_EQ(references.instances.size(), 1U);
    EXPECT_EQ(references.instances[0].path, links.instances.at(0).path);
    EXPECT_EQ(references.instances[0].properties, links.instances.at(0).properties);
    EXPECT_THAT(server.ReferenceNames(kOwningJob, kServicePath).paths,
                ElementsAre(references.instances[0].path));
}

TEST_P(DerivedAssociations, ResultClassAndRoles_AreHonoured) {
    EXPECT_TRUE(Run().IsOk());
    const auto count = [this](const AssociationFilter& filter) {
        const Reply names = server.AssociatorNames(kOwningJob, kServicePath, filter);
        EXPECT_TRUE(names.IsOk()) << names;
        return names.paths.size();
    };
    EXPECT_EQ(count({"CIM_Job", "OwningElement", "OwnedElement"}), 1U);
    EXPECT_EQ(count({.resultClass = "CIM_Log"}), 0U);
    EXPECT_EQ(count({.role = "OwnedElement"}), 0U);
    EXPECT_EQ(count({.resultRole = "OwningElement"}), 0U);
    EXPECT_THAT(server.References(kOwningJob, kServicePath, {.role = "OwnedElement"}).instances,
                IsEmpty());
}

TEST_P(DerivedAssociations, LinksThatAreEnumeratedAgainAndAgain_AreDeliveredOnce) {
    for (int times = 0; times < 3; ++times) server.EnumerateInstances(kElementSetting);
    EXPECT_GT(server.EnumerateInstances(kElementSetting).instances.size(), 3U);
    const Reply settings = server.AssociatorNames(kElementSetting, kServicePath);
    EXPECT_TRUE(settings.IsOk()) << settings;
    EXPECT_EQ(settings.paths.size(), 1U);
    EXPECT_EQ(server.References(kElementSetting, kServicePath).instances.size(), 1U);
}

TEST_P(DerivedAssociations, SourceThatTheAssociationCannotHold_EnumeratesNothing) {
    const Path help{"QUVSG_BMCI2C_DiagnosticSettingRecord", {{"InstanceID", "x"}}};
    const auto before = server.EnumerateInstances(kElementSetting).instances.size();
    for (int times = 0; times < 3; ++times) {
        const Reply none = server.AssociatorNames(kElementSetting, help);
        EXPECT_TRUE(none.IsOk()) << none;
        EXPECT_THAT(none.paths, IsEmpty());
    }
    EXPECT_EQ(server.EnumerateInstances(kElementSetting).instances.size(), before + 1);
}

TEST_P(DerivedAssociations, SourceThatDoesNotExist_HasNone) {
    EXPECT_TRUE(Run().IsOk());
    const Reply none = server.AssociatorNames(kOwningJob, {kService, {{"Name", "no such test"}}});
    EXPECT_TRUE(none.IsOk()) << none;
    EXPECT_THAT(none.paths, IsEmpty());
}
