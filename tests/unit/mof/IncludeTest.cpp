#include <gtest/gtest.h>
#include <mof/Reader.h>

#include "ErrorText.h"
#include "TemporaryFolder.h"

namespace {

std::string FileError(const std::string& path) {
    return ErrorText([&] { mof::ReadFile(path); });
}

TEST(Include, FilesInOtherFolders_AreFoundFromTheIncludingFile) {
    const TemporaryFolder folder;
    folder.Write("base/more/c.mof", "class C : B { };");
    folder.Write("base/b.mof", "class B { };\n#pragma include (\"more/c.mof\")\n");
    const auto path = folder.Write("a.mof", "#PRAGMA Include (\"base/b.mof\")\nclass A : C { };");
    const auto schema = mof::ReadFile(path);
    ASSERT_EQ(schema.classes.size(), 3U);
    EXPECT_EQ(schema.classes[0].name, "B");
    EXPECT_EQ(schema.classes[1].name, "C");
    EXPECT_EQ(schema.classes[2].name, "A");
}

TEST(Include, ErrorInAnIncludedFile_NamesThatFile) {
    const TemporaryFolder folder;
    const auto included = folder.Write("b.mof", "\nclass B : Missing { };");
    const auto path = folder.Write("a.mof", "#pragma include (\"b.mof\")");
    EXPECT_EQ(FileError(path), included +
                                   ":2:11: Class 'B' derives from 'Missing', which is not declared "
                                   "before it.");
}

TEST(Include, ClassDeclaredInTwoFiles_NamesBothPlaces) {
    const TemporaryFolder folder;
    const auto included = folder.Write("b.mof", "class B { };");
    const auto path = folder.Write("a.mof", "#pragma include (\"b.mof\")\nclass B { };");
    EXPECT_EQ(FileError(path),
              path + ":2:7: Class 'B' is already declared at " + included + ":1:7.");
}

TEST(Include, MissingFile_IsReportedWhereItIsIncluded) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.mof", "class A { };\n#pragma include (\"b.mof\")");
    EXPECT_EQ(FileError(path), path + ":2:18: The file '" + folder.File("b.mof") +
                                   "' cannot be read: No such file or directory.");
}

TEST(Include, MissingFirstFile_IsReportedAtItsBeginning) {
    EXPECT_EQ(FileError("/nonexistent/a.mof"),
              "/nonexistent/a.mof:1:1: The file '/nonexistent/a.mof' cannot be read: No such file "
              "or directory.");
}

TEST(Include, Directory_IsAnError) {
    const TemporaryFolder folder;
    const auto path = folder.Path();
    EXPECT_EQ(FileError(path),
              path + ":1:1: The file '" + path + "' cannot be read: it is a directory.");
}

TEST(Include, EndlessFile_IsAnError) {
    EXPECT_EQ(FileError("/dev/zero"),
              "/dev/zero:1:1: The file '/dev/zero' is larger than 4194304 bytes.");
}

TEST(Include, FileThatIncludesItself_IsAnError) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.mof", "#pragma include (\"a.mof\")");
    EXPECT_EQ(FileError(path),
              path + ":1:18: More than 100 files are included; one of them may include itself.");
}

}  // namespace
