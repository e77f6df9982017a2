#include <gtest/gtest.h>
#include <host/Status.h>
#include <host/schema/ClassRepository.h>
#include <host/schema/Qualifiers.h>
#include <mof/Reader.h>

namespace host {
namespace {

class ClassRepositoryTest : public testing::Test {
protected:
    const ClassRepository classes{mof::ReadFile(std::string(HOST_TEST_DATA) + "/test.mof")};

    Status FailureOf(const std::string& className, const QualifierPlace& place,
                     const std::string& qualifier) const {
        try {
            QualifierValue(classes, className, place, qualifier);
        } catch (const Failure& failure) {
            return failure.status;
        }
        return {};
    }
};

TEST_F(ClassRepositoryTest, Class_IsFoundInAnyCase) {
    ASSERT_TRUE(classes.Find("t_WIDGET"));
    EXPECT_EQ(classes.Find("t_WIDGET")->Name(), "T_Widget");
    EXPECT_FALSE(classes.Find("T_Nothing"));
    EXPECT_EQ(classes.Schema().classes.front().name, "T_Element");
}

TEST_F(ClassRepositoryTest, Properties_StandInClassOrder) {
    const ClassInfo& thing = *classes.Find("T_Widget");
    ASSERT_GE(thing.properties.size(), 4U);
    EXPECT_EQ(thing.properties[0].name, "Name");
    EXPECT_TRUE(thing.properties[0].isKey);
    EXPECT_EQ(thing.properties[1].name, "Caption");
    EXPECT_FALSE(thing.properties[1].isKey);
    EXPECT_EQ(thing.properties[2].name, "Flag");
    EXPECT_EQ(thing.FindProperty("FRIEND")->referenceClass, "T_Element");
    EXPECT_EQ(thing.FindProperty("codes")->type, CMPI_ARRAY | CMPI_uint16);
    EXPECT_FALSE(thing.FindProperty("Code"));
}

TEST_F(ClassRepositoryTest, Properties_KnowTheClassThatIntroducedThem) {
    const ClassInfo& widget = *classes.Find("T_Widget");
    EXPECT_EQ(widget.FindProperty("Name")->origin, "T_Element");
    EXPECT_EQ(widget.FindProperty("U16")->origin, "T_Thing");
}

TEST_F(ClassRepositoryTest, DefaultValues_AreTypedByTheProperty) {
    const ClassInfo& thing = *classes.Find("T_Thing");
    EXPECT_EQ(thing.FindProperty("S32")->defaultValue.type, CMPI_sint32);
    EXPECT_EQ(std::get<std::int64_t>(thing.FindProperty("S32")->defaultValue.data), -5);
    EXPECT_TRUE(thing.FindProperty("U8")->defaultValue.IsNull());
    EXPECT_EQ(thing.FindProperty("U8")->defaultValue.type, CMPI_uint8);
}

TEST_F(ClassRepositoryTest, EmbeddedObject_AcceptsTextsAndInstances) {
    const ClassInfo& thing = *classes.Find("T_Thing");
    EXPECT_TRUE(thing.FindProperty("Inner")->Accepts(CMPI_instance));
    EXPECT_TRUE(thing.FindProperty("Inner")->Accepts(CMPI_string));
    EXPECT_FALSE(thing.FindProperty("Inner")->Accepts(CMPI_ARRAY | CMPI_instance));
    EXPECT_FALSE(thing.FindProperty("Caption")->Accepts(CMPI_instance));
}

TEST_F(ClassRepositoryTest, IsA_KnowsAncestorsInAnyCase) {
    const ClassInfo& widget = *classes.Find("T_Widget");
    EXPECT_TRUE(widget.IsA("t_widget"));
    EXPECT_TRUE(widget.IsA("T_ELEMENT"));
    EXPECT_FALSE(widget.IsA("T_Link"));
    EXPECT_FALSE(classes.Find("T_Element")->IsA("T_Widget"));
}

TEST_F(ClassRepositoryTest, Association_IsInherited) {
    EXPECT_TRUE(classes.Find("T_Link")->isAssociation);
    EXPECT_TRUE(classes.Find("T_Refused")->isAssociation);
    EXPECT_FALSE(classes.Find("T_Thing")->isAssociation);
}

TEST_F(ClassRepositoryTest, Method_IsFoundInTheAncestors) {
    const ClassInfo& widget = *classes.Find("T_Widget");
    ASSERT_TRUE(widget.FindMethod("ECHO"));
    EXPECT_EQ(widget.FindMethod("ECHO")->name, "Echo");
    EXPECT_FALSE(widget.FindMethod("Ech"));
}

TEST_F(ClassRepositoryTest, Qualifier_IsFoundAtItsPlace) {
    const auto text = [&](const QualifierPlace& place) {
        return std::get<std::string>(QualifierValue(classes, "T_Thing", place, "DESCRIPTION").data);
    };
    EXPECT_EQ(text({}), "What the module stores.");
    EXPECT_EQ(text({.method = "echo"}), "Gives back what it gets.");
    EXPECT_EQ(text({.method = "echo", .parameter = "text"}), "A text.");
}

TEST_F(ClassRepositoryTest, InheritedQualifier_IsTypedByItsDeclaration) {
    const Value length = QualifierValue(classes, "T_Widget", {.property = "Name"}, "MaxLen");
    EXPECT_EQ(length.type, CMPI_uint32);
    EXPECT_EQ(std::get<std::uint64_t>(length.data), 64U);
}

TEST_F(ClassRepositoryTest, QualifierWithoutAValue_IsSet) {
    const Value key = QualifierValue(classes, "T_Thing", {.property = "name"}, "KEY");
    EXPECT_EQ(key.type, CMPI_boolean);
    EXPECT_TRUE(std::get<bool>(key.data));
    const Value heard =
        QualifierValue(classes, "T_Thing", {.method = "Echo", .parameter = "Heard"}, "In");
    EXPECT_FALSE(std::get<bool>(heard.data));
}

TEST_F(ClassRepositoryTest, RestrictedQualifier_IsNotInherited) {
    EXPECT_EQ(FailureOf("T_Element", {}, "Experimental").code, CMPI_RC_OK);
    EXPECT_EQ(FailureOf("T_Thing", {}, "Experimental").code, CMPI_RC_ERR_NOT_FOUND);
}

TEST_F(ClassRepositoryTest, MissingQualifier_IsNotFound) {
    const std::string text = "The class 'T_Thing' has no qualifier 'MaxLen' there.";
    for (const QualifierPlace& place : {QualifierPlace{},
                                        {.property = "Flag"},
                                        {.property = "None"},
                                        {.method = "None"},
                                        {.method = "Echo"},
                                        {.method = "Echo", .parameter = "None"}}) {
        const Status failure = FailureOf("t_thing", place, "MaxLen");
        EXPECT_EQ(failure.code, CMPI_RC_ERR_NOT_FOUND);
        EXPECT_EQ(failure.text, text);
    }
}

TEST_F(ClassRepositoryTest, QualifierOfAnUnknownClass_IsAnInvalidClass) {
    const Status failure = FailureOf("T_Nothing", {}, "Key");
    EXPECT_EQ(failure.code, CMPI_RC_ERR_INVALID_CLASS);
    EXPECT_EQ(failure.text, "There is no class 'T_Nothing'.");
}

}  // namespace
}  // namespace host
