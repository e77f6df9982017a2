#include "HostFixture.h"

namespace host {
namespace {

class StringObjectTest : public HostTest {};
class DateTimeObjectTest : public HostTest {};

TEST_F(StringObjectTest, Text_ComesBack) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{CMPI_RC_ERR_FAILED, nullptr};
        CMPIString* const text = provider.broker->eft->newString(provider.broker, "abc", &status);
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        ASSERT_TRUE(text);
        EXPECT_EQ(text->ft->ftVersion, CMPIVersion200);
        EXPECT_STREQ(text->ft->getCharPtr(text, &status), "abc");
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        EXPECT_STREQ(TextOf(provider.NewString(nullptr)).c_str(), "");
    });
}

TEST_F(StringObjectTest, InvalidHandle_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIString* const text = provider.NewString("abc");
        const CMPIStringFT& table = *text->ft;
        const auto invalid = IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIString.");
        CMPIStatus status{};
        EXPECT_EQ(table.getCharPtr(nullptr, &status), nullptr);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.clone(nullptr, &status), nullptr);
        EXPECT_THAT(status, invalid);
        EXPECT_THAT(table.release(nullptr), invalid);
        EXPECT_EQ(table.getCharPtr(nullptr, nullptr), nullptr);
        // An object of another type behind the same kind of handle.
        const auto* const path = reinterpret_cast<const CMPIString*>(provider.NewPath("T_Thing"));
        EXPECT_EQ(table.getCharPtr(path, &status), nullptr);
        EXPECT_THAT(status, invalid);
    });
}

TEST_F(StringObjectTest, ReleasedObject_IsKnownToBeInvalid) {
    InProvider([](const ProviderSide& provider) {
        CMPIString* const text = provider.NewString("abc");
        EXPECT_THAT(text->ft->release(text), IsError(CMPI_RC_OK, ""));
        CMPIStatus status{};
        EXPECT_EQ(text->ft->getCharPtr(text, &status), nullptr);
        EXPECT_EQ(status.rc, CMPI_RC_ERR_INVALID_HANDLE);
        EXPECT_EQ(text->ft->release(text).rc, CMPI_RC_ERR_INVALID_HANDLE);
    });
}

TEST_F(StringObjectTest, Clone_DoesNotDependOnItsSource) {
    InProvider([](const ProviderSide& provider) {
        CMPIString* const text = provider.NewString("abc");
        CMPIStatus status{CMPI_RC_ERR_FAILED, nullptr};
        CMPIString* const clone = text->ft->clone(text, &status);
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        text->ft->release(text);
        EXPECT_EQ(TextOf(clone), "abc");
        EXPECT_EQ(clone->ft->release(clone).rc, CMPI_RC_OK);
    });
}

TEST_F(DateTimeObjectTest, Text_BecomesABinaryTime) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIDateTime* const time = provider.broker->eft->newDateTimeFromChars(
            provider.broker, "19700102000000.000005+000", &status);
        ASSERT_TRUE(time);
        EXPECT_EQ(time->ft->getBinaryFormat(time, &status), 86'400'000'005U);
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        EXPECT_EQ(TextOf(time->ft->getStringFormat(time, &status)), "19700102000000.000005+000");
        EXPECT_FALSE(time->ft->isInterval(time, &status));
    });
}

TEST_F(DateTimeObjectTest, Interval_IsKnownAsOne) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIDateTime* const time = provider.broker->eft->newDateTimeFromChars(
            provider.broker, "00000000000000.000000:000", &status);
        ASSERT_TRUE(time);
        EXPECT_TRUE(time->ft->isInterval(time, &status));
        CMPIDateTime* const clone = time->ft->clone(time, &status);
        EXPECT_EQ(clone->ft->getBinaryFormat(clone, &status), 0U);
        EXPECT_EQ(clone->ft->release(clone).rc, CMPI_RC_OK);
    });
}

TEST_F(DateTimeObjectTest, WhatIsNoTime_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBrokerEncFT& make = *provider.broker->eft;
        CMPIStatus status{};
        EXPECT_FALSE(make.newDateTimeFromChars(provider.broker, "noon", &status));
        EXPECT_THAT(status,
                    IsError(CMPI_RC_ERR_INVALID_PARAMETER, "'noon' is not a CIM date-time."));
        EXPECT_FALSE(make.newDateTimeFromChars(provider.broker, nullptr, &status));
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The date-time is NULL."));
    });
}

TEST_F(DateTimeObjectTest, InvalidHandle_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIDateTime* const time = provider.broker->eft->newDateTimeFromChars(
            provider.broker, "00000000000000.000000:000", &status);
        const CMPIDateTimeFT& table = *time->ft;
        const auto invalid =
            IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIDateTime.");
        EXPECT_EQ(table.getBinaryFormat(nullptr, &status), 0U);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getStringFormat(nullptr, &status), nullptr);
        EXPECT_THAT(status, invalid);
        EXPECT_FALSE(table.isInterval(nullptr, &status));
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.clone(nullptr, &status), nullptr);
        EXPECT_THAT(table.release(nullptr), invalid);
    });
}

}  // namespace
}  // namespace host
