#include <gtest/gtest.h>
#include <host/loading/RegistrationsFile.h>

#include <sstream>

namespace host {
namespace {

std::vector<Registration> Read(const std::string& text) {
    std::istringstream stream(text);
    return ReadRegistrations(stream, "a.reg");
}

std::string ErrorOf(const std::string& text) {
    try {
        Read(text);
    } catch (const LoadError& error) {
        return error.what();
    }
    return "no error";
}

constexpr const char* kWhole =
    "[A]\nprovider: P\nlocation: x.cmpi\ntype: instance\nnamespace: root/a\n";

TEST(RegistrationsFile, Stanzas_AreReadInOrder) {
    const auto all = Read(
        "# The providers.\n\n"
        "[ A ]  # the first\r\n"
        "   provider: PA\r\n   location:x.cmpi\n\ttype: instance  association method\n"
        "   namespace: root/a root/b\n   unload: never\n"
        "[B]\n provider: PB\n location: x.cmpi\n type: method\n namespace: root/a\n");
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].className, "A");
    EXPECT_EQ(all[0].provider, "PA");
    EXPECT_EQ(all[0].location, "x.cmpi");
    EXPECT_EQ(all[0].types, (std::vector<std::string>{"instance", "association", "method"}));
    EXPECT_EQ(all[0].nameSpaces, (std::vector<std::string>{"root/a", "root/b"}));
    EXPECT_EQ(all[1].className, "B");
    EXPECT_EQ(all[1].types, (std::vector<std::string>{"method"}));
}

TEST(Registration, TypeAndNameSpace_AreAskedFor) {
    const auto one = Read(kWhole).front();
    EXPECT_TRUE(one.HasType("instance"));
    EXPECT_FALSE(one.HasType("method"));
    EXPECT_TRUE(one.IsIn("ROOT/a"));
    EXPECT_FALSE(one.IsIn("root/b"));
}

TEST(RegistrationsFile, EmptyFile_IsAnError) {
    EXPECT_EQ(ErrorOf("# nothing\n"), "a.reg: No class is registered here.");
}

TEST(RegistrationsFile, BrokenStanzaLine_IsAnError) {
    EXPECT_EQ(ErrorOf("\n[A\n"), "a.reg:2: The stanza's class name lacks its closing bracket.");
    EXPECT_EQ(ErrorOf("[ ]\n"), "a.reg:1: The stanza names no class.");
}

TEST(RegistrationsFile, SameClassTwice_IsAnError) {
    EXPECT_EQ(ErrorOf(std::string(kWhole) + "[a]\n"),
              "a.reg:6: The class 'a' is registered twice.");
}

TEST(RegistrationsFile, LineWithoutColon_IsAnError) {
    EXPECT_EQ(ErrorOf("[A]\nprovider\n"), "a.reg:2: Expected 'key: value' or '[class]'.");
}

TEST(RegistrationsFile, KeyOutsideAStanza_IsAnError) {
    EXPECT_EQ(ErrorOf("provider: P\n"),
              "a.reg:1: The key 'provider' stands before the first '[class]'.");
}

TEST(RegistrationsFile, KeyWithoutValue_IsAnError) {
    EXPECT_EQ(ErrorOf("[A]\nprovider: # none\n"), "a.reg:2: The key 'provider' has no value.");
}

TEST(RegistrationsFile, SameKeyTwice_IsAnError) {
    EXPECT_EQ(ErrorOf("[A]\nprovider: P\nprovider: Q\n"),
              "a.reg:3: The key 'provider' is given twice.");
}

TEST(RegistrationsFile, UnknownKey_IsAnError) {
    EXPECT_EQ(ErrorOf("[A]\ngroup: x\n"),
              "a.reg:2: The key 'group' is unknown; the keys are provider, location, type, "
              "namespace and unload.");
}

TEST(RegistrationsFile, UnknownType_IsAnError) {
    EXPECT_EQ(ErrorOf("[A]\ntype: instance indication\n"),
              "a.reg:2: The type 'indication' is unknown; the types are instance, method and "
              "association.");
}

TEST(RegistrationsFile, OtherUnloadThanNever_IsAnError) {
    EXPECT_EQ(ErrorOf("[A]\nunload: idle\n"),
              "a.reg:2: The key 'unload' can only be 'never', not 'idle'.");
}

TEST(RegistrationsFile, MissingKey_IsAnErrorAtTheStanza) {
    EXPECT_EQ(ErrorOf("\n[A]\nprovider: P\nlocation: x\ntype: method\n"),
              "a.reg:2: The class 'A' has no key 'namespace'.");
    EXPECT_EQ(ErrorOf("[A]\n[B]\n"), "a.reg:1: The class 'A' has no key 'provider'.");
}

TEST(RegistrationsFile, MissingFile_IsAnError) {
    try {
        ReadRegistrations("/nowhere/a.reg");
        FAIL();
    } catch (const LoadError& error) {
        EXPECT_STREQ(error.what(),
                     "The registrations '/nowhere/a.reg' cannot be read: No such file or "
                     "directory.");
    }
}

}  // namespace
}  // namespace host
