// The files that a CIM server gets, against the tables that the module is built with.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mof/Reader.h>
#include <schema/Repository.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "MetaClassText.h"
#include "MofClassText.h"

namespace {

std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error(path + " cannot be read");
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

void Replace(std::string& text, const std::string& part, const std::string& replacement) {
    const auto place = text.find(part);
    if (place == std::string::npos || text.find(part, place + 1) != std::string::npos) {
        throw std::runtime_error("not there, or not once: " + part);
    }
    text.replace(place, part.size(), replacement);
}

// The base classes as they are published, where the module's form of them is another.
std::string PublishedBase() {
    std::string base = Content(SOURCE_FOLDER "/cim-base.mof");
    Replace(base, "class CIM_Setting : CIM_ManagedElement {\n",
            "class CIM_Setting : CIM_ManagedElement {\n    [Key] string SettingID;\n");
    Replace(base, "class CIM_DiagnosticSetting : CIM_Setting {\n    [Key] string InstanceID;\n",
            "class CIM_DiagnosticSetting : CIM_Setting {\n");
    Replace(base, "string LoopControlParameter;", "string LoopControlParameter[];");
    Replace(base,
            "class CIM_RecordAppliesToElement {\n"
            "    [Key] CIM_RecordForLog REF Record;\n"
            "    [Key] CIM_ManagedElement REF Element;\n",
            "class CIM_RecordAppliesToElement : CIM_Dependency {\n"
            "    [Override (\"Antecedent\")] CIM_RecordForLog REF Antecedent;\n"
            "    [Override (\"Dependent\")] CIM_ManagedElement REF Dependent;\n");
    return base;
}

mof::Schema OwnSchema() { return mof::ReadFile(SERVER_FOLDER "/bmci2c.mof"); }

mof::Schema SchemaOnPublishedBase() {
    return mof::ReadText(PublishedBase() + Content(SERVER_FOLDER "/bmci2c-published.mof"),
                         "published.mof");
}

std::vector<const cimple::Meta_Class*> ModuleTables() {
    std::vector<const cimple::Meta_Class*> tables;
    for (std::size_t i = 0; i < schemaRepository.class_count; ++i) {
        if (std::string(schemaRepository.classes[i]->name).starts_with("QUVSG_")) {
            tables.push_back(schemaRepository.classes[i]);
        }
    }
    return tables;
}

void ExpectAsInTable(const mof::Schema& schema, const cimple::Meta_Class& table) {
    const mof::Class* cls = schema.Find(table.name);
    ASSERT_NE(cls, nullptr) << table.name;
    EXPECT_EQ(FlagsText(schema, *cls), FlagsText(table)) << table.name;
    EXPECT_EQ(PropertyTexts(schema, *cls), PropertyTexts(table)) << table.name;
    EXPECT_EQ(MethodTexts(schema, *cls), MethodTexts(table)) << table.name;
}

TEST(ServerFiles, SchemaWithBaseClasses_IsThatOfTheTables) {
    const mof::Schema schema = OwnSchema();
    EXPECT_EQ(schema.classes.size(), schemaRepository.class_count);
    for (std::size_t i = 0; i < schemaRepository.class_count; ++i) {
        ExpectAsInTable(schema, *schemaRepository.classes[i]);
    }
}

TEST(ServerFiles, SchemaWithBaseClasses_IsOneFile) {
    EXPECT_EQ(Content(SERVER_FOLDER "/bmci2c.mof").find("#pragma"), std::string::npos);
}

TEST(ServerFiles, ClassesOnThePublishedBase_AreThoseOfTheTables) {
    const mof::Schema schema = SchemaOnPublishedBase();
    ASSERT_EQ(ModuleTables().size(), 23U);
    for (const cimple::Meta_Class* table : ModuleTables()) {
        ExpectAsInTable(schema, *table);
    }
}

TEST(ServerFiles, FileForThePublishedBase_DeclaresTheModulesClassesOnly) {
    const std::size_t published = mof::ReadText(PublishedBase(), "base.mof").classes.size();
    EXPECT_EQ(SchemaOnPublishedBase().classes.size(), published + 23);
    EXPECT_TRUE(SchemaOnPublishedBase().qualifiers.empty());
}

TEST(ServerFiles, ModulesPlainClassesOnThePublishedBase_WouldNotBeThoseOfTheTables) {
    const mof::Schema schema =
        mof::ReadText(PublishedBase() + Content(SOURCE_FOLDER "/bmci2c-classes.mof"), "plain.mof");
    std::vector<std::string> differing;
    for (const cimple::Meta_Class* table : ModuleTables()) {
        const mof::Class* cls = schema.Find(table->name);
        if (PropertyTexts(schema, *cls) != PropertyTexts(*table)) {
            differing.push_back(table->name);
        }
    }
    EXPECT_THAT(differing, testing::ElementsAre("QUVSG_BMCI2C_DiagnosticSetting",
                                                "QUVSG_BMCI2C_RecordAppliesToElement"));
}

bool HasKeys(const mof::Schema& schema, const mof::Class* cls) {
    return cls != nullptr && testing::Matches(testing::Contains(testing::EndsWith(" key")))(
                                 PropertyTexts(schema, *cls));
}

TEST(ServerFiles, ClassesOnThePublishedBase_AddNoKeyToInheritedOnes) {
    const mof::Schema schema = SchemaOnPublishedBase();
    for (const cimple::Meta_Class* table : ModuleTables()) {
        const mof::Class* cls = schema.Find(table->name);
        for (const mof::Property& property : cls->properties) {
            EXPECT_FALSE(mof::HasFlag(property.qualifiers, "Key") &&
                         HasKeys(schema, schema.Find(cls->superClass)))
                << table->name;
        }
    }
}

}  // namespace
