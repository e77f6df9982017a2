#include <gtest/gtest.h>
#include <platform/diagnostics/TZDXException.h>

namespace {

using NQUVZDX20::TZDXException;
using NQUVZDX20::TZDXStatusCode;

TEST(TZDXStatusCode, KnownCodes_HaveTheirTexts) {
    EXPECT_EQ(TZDXStatusCode(0).TranslateStatusCode(), "Success");
    EXPECT_EQ(TZDXStatusCode(1).TranslateStatusCode(), "Failure");
    EXPECT_EQ(TZDXStatusCode(2).TranslateStatusCode(), "Invalid argument");
    EXPECT_EQ(TZDXStatusCode(3).TranslateStatusCode(), "Not supported");
    EXPECT_EQ(TZDXStatusCode(4).TranslateStatusCode(), "Out of memory");
}

TEST(TZDXStatusCode, UnknownCodes_AreNamedByNumber) {
    EXPECT_EQ(TZDXStatusCode(5).TranslateStatusCode(), "Unknown status code 5");
    EXPECT_EQ(TZDXStatusCode(-1).TranslateStatusCode(), "Unknown status code -1");
}

TEST(TZDXException, What_IsTheTextOfItsCode) {
    const TZDXException exception(TZDXStatusCode::kOutOfMemory);
    EXPECT_EQ(exception.GetCode(), 4);
    EXPECT_STREQ(exception.what(), "Out of memory");
    EXPECT_STREQ(TZDXException(99).what(), "Unknown status code 99");
}

TEST(TZDXException, Copy_KeepsItsText) {
    const TZDXException exception(4);
    const TZDXException copy(exception);
    EXPECT_STREQ(copy.what(), "Out of memory");
    EXPECT_NE(copy.what(), exception.what());
}

TEST(TZDXException, IsCaughtAsAStandardException) {
    try {
        throw TZDXException(4);
    } catch (const std::exception& exception) {
        EXPECT_STREQ(exception.what(), "Out of memory");
    }
}

}  // namespace
