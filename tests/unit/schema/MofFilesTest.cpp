#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mof/Names.h>
#include <mof/Reader.h>
#include <mof/generator/Registrations.h>

#include <algorithm>
#include <map>
#include <sstream>

namespace {

using Scopes = std::vector<std::string>;

// Calls visit(qualifiers, scope) for everything in the schema that has qualifiers.
template <class Visitor>
void ForEachQualifierList(const mof::Schema& schema, Visitor visit) {
    for (const mof::Class& cls : schema.classes) {
        visit(cls.qualifiers, mof::IsAssociation(schema, cls) ? "association" : "class");
        for (const mof::Property& property : cls.properties) {
            const bool isReference = property.type.type == mof::DataType::Reference;
            visit(property.qualifiers, isReference ? "reference" : "property");
        }
        for (const mof::Method& method : cls.methods) {
            visit(method.qualifiers, "method");
            for (const mof::Parameter& parameter : method.parameters) {
                visit(parameter.qualifiers, "parameter");
            }
        }
    }
}

TEST(MofFiles, EveryQualifier_IsDeclaredForWhatItStandsAt) {
    const auto schema = mof::ReadFile(SCHEMA_FILE);
    std::map<std::string, Scopes> declared;
    for (const auto& qualifier : schema.qualifiers) {
        declared[mof::FoldedName(qualifier.name)] = qualifier.scopes;
    }
    std::size_t count = 0;
    ForEachQualifierList(schema, [&](const std::vector<mof::Qualifier>& list, const char* scope) {
        for (const mof::Qualifier& qualifier : list) {
            ++count;
            EXPECT_THAT(declared[mof::FoldedName(qualifier.name)],
                        testing::Contains(testing::AnyOf("any", scope)))
                << qualifier.name;
        }
    });
    EXPECT_GT(count, schema.classes.size());
}

TEST(MofFiles, EveryDeclaredQualifier_IsUsed) {
    const auto schema = mof::ReadFile(SCHEMA_FILE);
    std::vector<std::string> used;
    ForEachQualifierList(schema, [&](const std::vector<mof::Qualifier>& list, const char*) {
        for (const mof::Qualifier& qualifier : list) {
            used.push_back(mof::FoldedName(qualifier.name));
        }
    });
    for (const auto& qualifier : schema.qualifiers) {
        EXPECT_THAT(used, testing::Contains(mof::FoldedName(qualifier.name)));
    }
}

TEST(MofFiles, EveryOverride_NamesItsOwnProperty) {
    const auto schema = mof::ReadFile(SCHEMA_FILE);
    int overrides = 0;
    for (const mof::Class& cls : schema.classes) {
        for (const mof::Property& property : cls.properties) {
            if (const auto* override = mof::FindQualifier(property.qualifiers, "Override")) {
                ++overrides;
                EXPECT_EQ(override->value, mof::Literal(property.name)) << cls.name;
            }
        }
    }
    EXPECT_EQ(overrides, 9);
}

TEST(MofFiles, EveryClass_IsDescribed) {
    const auto schema = mof::ReadFile(SCHEMA_FILE);
    for (const mof::Class& cls : schema.classes) {
        EXPECT_NE(mof::FindQualifier(cls.qualifiers, "Description"), nullptr) << cls.name;
    }
}

TEST(MofFiles, Registrations_HoldEveryClassOfTheModule_AndElevenAssociations) {
    std::istringstream lines(mof::Registrations(mof::ReadFile(SCHEMA_FILE)));
    std::vector<std::string> classes;
    std::vector<std::string> associations;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("[QUVSG_BMCI2C_")) {
            classes.push_back(line.substr(14, line.size() - 15));
        }
        if (line == "   type: instance method association") {
            associations.push_back(classes.back());
        }
    }
    EXPECT_THAT(
        classes,
        testing::ElementsAre(
            "AffectedJobElement", "AvailableDiagnosticService", "ConcreteJob",
            "CorrespondingSettingsRecord", "DiagnosticCompletionRecord", "DiagnosticService",
            "DiagnosticServiceCapabilities", "DiagnosticServiceRecord", "DiagnosticSetting",
            "DiagnosticSettingRecord", "DiagnosticsLog", "ElementCapabilities", "ElementSetting",
            "ElementSoftwareIdentity", "HelpService", "JobSettingData", "LogManagesRecord",
            "ManagedSystemElement", "OwningJobElement", "RecordAppliesToElement",
            "ServiceAvailableToElement", "SoftwareIdentity", "UseOfLog"));
    EXPECT_THAT(
        associations,
        testing::ElementsAre("AffectedJobElement", "AvailableDiagnosticService",
                             "CorrespondingSettingsRecord", "ElementCapabilities", "ElementSetting",
                             "ElementSoftwareIdentity", "LogManagesRecord", "OwningJobElement",
                             "RecordAppliesToElement", "ServiceAvailableToElement", "UseOfLog"));
}

}  // namespace
