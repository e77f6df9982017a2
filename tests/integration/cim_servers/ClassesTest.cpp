// All classes of the module: what they have after a run, and what they refuse.
#include <map>

#include "ServerTest.h"

namespace {

using testing::Each;
using testing::Eq;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

class EveryClass : public ServerTest {
protected:
    static std::string Unsupported(const std::string& className, const std::string& operation,
                                   int status) {
        return "7: " + className + "_Provider: " + operation +
               " failed: the provider does not support it (status " + std::to_string(status) + ").";
    }
};

const std::map<std::string, std::size_t> kInstances = {
    {"AffectedJobElement", 1},
    {"AvailableDiagnosticService", 1},
    {"ConcreteJob", 1},
    {"CorrespondingSettingsRecord", 0},
    {"DiagnosticCompletionRecord", 1},
    {"DiagnosticService", 1},
    {"DiagnosticServiceCapabilities", 1},
    {"DiagnosticServiceRecord", 1},
    {"DiagnosticSetting", 1},
    {"DiagnosticSettingRecord", 0},
    {"DiagnosticsLog", 1},
    {"ElementCapabilities", 0},
    {"ElementSetting", 1},
    {"ElementSoftwareIdentity", 0},
    {"HelpService", 1},
    {"JobSettingData", 0},
    {"LogManagesRecord", 0},
    {"ManagedSystemElement", 1},
    {"OwningJobElement", 1},
    {"RecordAppliesToElement", 1},
    {"ServiceAvailableToElement", 0},
    {"SoftwareIdentity", 1},
    {"UseOfLog", 1},
};

}  // namespace

FOR_EVERY_SERVER(EveryClass);

TEST_P(EveryClass, IsKnownHere) {
    std::vector<std::string> expected;
    for (const auto& [name, count] : kInstances) expected.push_back("QUVSG_BMCI2C_" + name);
    EXPECT_THAT(server.ModuleClasses(), UnorderedElementsAreArray(expected));
}

TEST_P(EveryClass, Enumerates) {
    EXPECT_TRUE(Run().IsOk());
    for (const auto& [name, count] : kInstances) {
        const Reply reply = server.EnumerateInstances("QUVSG_BMCI2C_" + name);
        EXPECT_TRUE(reply.IsOk()) << name << ": " << reply;
        EXPECT_EQ(reply.instances.size(), count) << name;
    }
}

TEST_P(EveryClass, EnumeratesItsNames) {
    EXPECT_TRUE(Run().IsOk());
    for (const auto& [name, count] : kInstances) {
        const Reply names = server.EnumerateInstanceNames("QUVSG_BMCI2C_" + name);
        EXPECT_TRUE(names.IsOk()) << name << ": " << names;
        EXPECT_EQ(names.paths.size(), count) << name;
    }
}

TEST_P(EveryClass, HasEveryPropertyAndNoDefaultOfTheServer) {
    EXPECT_TRUE(Run().IsOk());
    for (const std::string& className : server.ModuleClasses()) {
        for (const Object& instance : server.EnumerateInstances(className).instances) {
            for (const host::PropertyInfo& property :
                 server.Classes().Find(className)->properties) {
                EXPECT_NE(instance[property.name], "absent") << className << "." << property.name;
                if (kDefaultedProperties.contains(property.name)) {
                    EXPECT_EQ(instance[property.name], "null") << className << "." << property.name;
                }
            }
        }
    }
}

TEST_P(EveryClass, RefusesToGetCreateModifyAndDelete) {
    for (const std::string& className : server.ModuleClasses()) {
        const Path path = {className, {}};
        EXPECT_EQ(ToText(server.GetInstance(path)), Unsupported(className, "getInstance", 61));
        EXPECT_EQ(ToText(server.CreateInstance(className)),
                  Unsupported(className, "createInstance", 81));
        EXPECT_EQ(ToText(server.ModifyInstance(path)),
                  Unsupported(className, "modifyInstance", 101));
        EXPECT_EQ(ToText(server.DeleteInstance(path)),
                  Unsupported(className, "deleteInstance", 91));
    }
}

TEST_P(EveryClass, ThatIsAnAssociation_RefusesToBeFollowed) {
    for (const std::string& className : server.ModuleClasses()) {
        if (!server.Classes().Find(className)->isAssociation) continue;
        EXPECT_EQ(ToText(server.Associators(className, kServicePath)),
                  Unsupported(className, "associators", 171));
        EXPECT_EQ(ToText(server.AssociatorNames(className, kServicePath)),
                  Unsupported(className, "associatorNames", 111));
        EXPECT_EQ(ToText(server.References(className, kServicePath)),
                  Unsupported(className, "references", 121));
        EXPECT_EQ(ToText(server.ReferenceNames(className, kServicePath)),
                  Unsupported(className, "referenceNames", 121));
    }
}

TEST_P(EveryClass, HasTheInterfacesOfItsKind) {
    for (const std::string& className : server.ModuleClasses()) {
        EXPECT_TRUE(server.Make<CMPIInstanceMI>(className)) << className;
        EXPECT_TRUE(server.Make<CMPIMethodMI>(className)) << className;
        EXPECT_EQ(server.Make<CMPIAssociationMI>(className),
                  server.Classes().Find(className)->isAssociation)
            << className;
    }
}

TEST_P(EveryClass, WithoutSomePropertiesInTheServer_ShowsTheOthers) {
    EXPECT_TRUE(Run().IsOk());
    for (const char* property : {"Caption", "OtherEnabledState", "ErrorCount", "Started"})
        server.LeaveOut(property);
    const std::string sentOn = GetParam().sendsUnknownProperties ? "true" : "absent";
    for (const auto& [name, count] : kInstances) {
        const Reply reply = server.EnumerateInstances("QUVSG_BMCI2C_" + name);
        EXPECT_TRUE(reply.IsOk()) << name << ": " << reply;
        EXPECT_EQ(reply.instances.size(), count) << name;
    }
    const Object service = server.EnumerateInstances(kService).instances.at(0);
    EXPECT_EQ(service["Started"], sentOn);
    EXPECT_EQ(service["StartMode"], "\"Automatic\"");
}
