#include <cli/report/CatalogTrouble.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

namespace cli {
namespace {

namespace fs = std::filesystem;

class CatalogTroubleTest : public testing::Test {
protected:
    CatalogTroubleTest() { std::ofstream(catalog) << "text"; }
    ~CatalogTroubleTest() override { fs::remove_all(catalog); }

    const fs::path catalog =
        fs::path(testing::TempDir()) / ("catalog-" + std::to_string(::getpid()) + ".xml");
    const std::string name = catalog.string();
};

TEST_F(CatalogTroubleTest, ReadableFileWithoutASyntaxError_IsNone) {
    EXPECT_EQ(CatalogTrouble(catalog, {}), "");
    EXPECT_EQ(CatalogTrouble(catalog,
                             {{0, "BMCI2C Parser Line 2:Unrecognized identifier: colour"},
                              {3, "BMCI2C: Not well-formed XML at column 1: no line of the parser"},
                              {3, "BMCI2C Parser Line without a colon"}}),
              "");
}

TEST_F(CatalogTroubleTest, MissingFile_IsNamed) {
    fs::remove(catalog);
    EXPECT_EQ(CatalogTrouble(catalog, {}), "There is no message catalog " + name + ".");
}

TEST_F(CatalogTroubleTest, Folder_IsNoFile) {
    fs::remove(catalog);
    fs::create_directory(catalog);
    EXPECT_EQ(CatalogTrouble(catalog, {{0, "BMCI2C Parser Line 1:Not well-formed XML at ..."}}),
              "The message catalog " + name + " is not a file.");
}

// Root may read every file, but no one opens a link that leads to itself.
TEST_F(CatalogTroubleTest, FileThatCannotBeOpened_IsNamedWithItsReason) {
    fs::remove(catalog);
    fs::create_symlink(catalog, catalog);
    EXPECT_EQ(CatalogTrouble(catalog, {}), "The message catalog " + name +
                                               " cannot be read: Too many levels of symbolic "
                                               "links.");
}

TEST_F(CatalogTroubleTest, SyntaxErrorInTheLog_IsToldWithItsLine) {
    EXPECT_EQ(CatalogTrouble(catalog, {{4, "BMCI2C Parser Line 58:++ ELEMENT: machine"},
                                       {0,
                                        "BMCI2C Parser Line 59:Not well-formed XML at column 28: "
                                        "unclosed token. Nothing from here on is read."},
                                       {2, "BMCI2C: something else"}}),
              "The message catalog " + name +
                  " is wrong in line 59: Not well-formed XML at column 28: unclosed token. Nothing "
                  "from here on is read.");
}

TEST_F(CatalogTroubleTest, PlaceOfAnErrorInTheParser_IsTheLineOfItsLastText) {
    EXPECT_EQ(CatalogPlace("/c.xml", {{4, "BMCI2C Parser Line 6:++ ELEMENT: value"},
                                      {3, "BMCI2C Parser Line 7:Added text: and more"}}),
              "The error came up in line 7 of the message catalog /c.xml. If it is a bad cast, the "
              "index of the property there is no decimal number.");
}

TEST_F(CatalogTroubleTest, PlaceOfAnErrorElsewhere_IsNotToldOf) {
    EXPECT_EQ(CatalogPlace("/c.xml", {}), "");
    EXPECT_EQ(CatalogPlace("/c.xml", {{3, "BMCI2C Parser Line 7:value"}, {3, "getMachineType()"}}),
              "");
}

}  // namespace
}  // namespace cli
