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

TEST_F(CatalogTroubleTest, ReadableFile_HasNone) { EXPECT_EQ(CatalogTrouble(catalog), ""); }

TEST_F(CatalogTroubleTest, MissingFile_IsNamed) {
    fs::remove(catalog);
    EXPECT_EQ(CatalogTrouble(catalog), "There is no message catalog " + name + ".");
}

TEST_F(CatalogTroubleTest, Folder_IsNoFile) {
    fs::remove(catalog);
    fs::create_directory(catalog);
    EXPECT_EQ(CatalogTrouble(catalog), "The message catalog " + name + " is not a file.");
}

// Root may read every file, but no one opens a link that leads to itself.
TEST_F(CatalogTroubleTest, FileThatCannotBeOpened_IsNamedWithItsReason) {
    fs::remove(catalog);
    fs::create_symlink(catalog, catalog);
    EXPECT_EQ(CatalogTrouble(catalog), "The message catalog " + name +
                                           " cannot be read: Too many levels of symbolic "
                                           "links.");
}

}  // namespace
}  // namespace cli
