#include "HostFixture.h"

namespace host {
namespace {

class EnumerationObjectTest : public HostTest {
protected:
    static CMPIEnumeration* Things(const ProviderSide& provider) {
        return provider.broker->bft->enumerateInstances(
            provider.broker, provider.context, provider.NewPath("T_Thing"), nullptr, nullptr);
    }
};

class ResultObjectTest : public HostTest {};

TEST_F(EnumerationObjectTest, Elements_ComeInOrderUntilTheEnd) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIEnumeration* const things = Things(provider);
        ASSERT_TRUE(things);
        for (const char* const expected : {"one", "two", "three"}) {
            EXPECT_TRUE(things->ft->hasNext(things, &status));
            const CMPIData data = things->ft->getNext(things, &status);
            ASSERT_EQ(data.type, CMPI_instance);
            const CMPIInstance* const thing = data.value.inst;
            EXPECT_EQ(TextOf(thing->ft->getProperty(thing, "Name", &status).value.string),
                      expected);
        }
        EXPECT_FALSE(things->ft->hasNext(things, &status));
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        EXPECT_EQ(things->ft->getNext(things, &status).state, CMPI_notFound);
        EXPECT_THAT(status,
                    IsError(CMPI_RC_NO_MORE_ELEMENTS, "The enumeration has no more elements."));
    });
}

TEST_F(EnumerationObjectTest, ToArray_HoldsAllElements) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIEnumeration* const things = Things(provider);
        things->ft->getNext(things, &status);
        const CMPIArray* const array = things->ft->toArray(things, &status);
        ASSERT_TRUE(array);
        EXPECT_EQ(array->ft->getSize(array, &status), 3U);
        EXPECT_EQ(array->ft->getSimpleType(array, &status), CMPI_instance);
        EXPECT_EQ(array->ft->getElementAt(array, 0, &status).type, CMPI_instance);
    });
}

TEST_F(EnumerationObjectTest, Clone_GoesOnByItself) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIEnumeration* const things = Things(provider);
        CMPIEnumeration* const clone = things->ft->clone(things, &status);
        while (things->ft->hasNext(things, &status)) things->ft->getNext(things, &status);
        EXPECT_TRUE(clone->ft->hasNext(clone, &status));
        EXPECT_EQ(clone->ft->release(clone).rc, CMPI_RC_OK);
    });
}

TEST_F(EnumerationObjectTest, InvalidHandle_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        const CMPIEnumerationFT& table = *Things(provider)->ft;
        const auto invalid =
            IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIEnumeration.");
        CMPIStatus status{};
        EXPECT_FALSE(table.hasNext(nullptr, &status));
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getNext(nullptr, &status).state, CMPI_badValue);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.toArray(nullptr, &status), nullptr);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.clone(nullptr, &status), nullptr);
        EXPECT_THAT(table.release(nullptr), invalid);
    });
}

TEST_F(ResultObjectTest, Result_BelongsToTheRequest) {
    InProvider([](const ProviderSide& provider) {
        const auto refused =
            IsError(CMPI_RC_ERR_NOT_SUPPORTED, "A result belongs to the request that it answers.");
        CMPIStatus status{};
        EXPECT_EQ(provider.result->ft->clone(provider.result, &status), nullptr);
        EXPECT_THAT(status, refused);
        EXPECT_THAT(provider.result->ft->release(const_cast<CMPIResult*>(provider.result)),
                    refused);
    });
}

TEST_F(ResultObjectTest, MethodResult_TakesAnyData) {
    InProvider([](const ProviderSide& provider) {
        const CMPIResultFT& table = *provider.result->ft;
        EXPECT_EQ(table.returnObjectPath(provider.result, provider.NewPath("T_Thing")).rc,
                  CMPI_RC_OK);
        EXPECT_EQ(table.returnInstance(provider.result, provider.NewInstance("T_Thing")).rc,
                  CMPI_RC_OK);
        EXPECT_EQ(table.returnData(provider.result, Chars("x"), CMPI_chars).rc, CMPI_RC_OK);
        EXPECT_EQ(table.returnDone(provider.result).rc, CMPI_RC_OK);
        EXPECT_THAT(table.returnObjectPath(provider.result, provider.NewPath("T_Thing")),
                    IsError(CMPI_RC_ERR_FAILED, "The result was declared done already."));
    });
}

TEST_F(ResultObjectTest, Misuse_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        const CMPIResultFT& table = *provider.result->ft;
        const auto invalid = IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIResult.");
        EXPECT_THAT(table.returnData(nullptr, Chars("x"), CMPI_chars), invalid);
        EXPECT_THAT(table.returnInstance(nullptr, provider.NewInstance("T_Thing")), invalid);
        EXPECT_THAT(table.returnObjectPath(nullptr, provider.NewPath("T_Thing")), invalid);
        EXPECT_THAT(table.returnDone(nullptr), invalid);
        EXPECT_THAT(table.returnError(nullptr, nullptr), invalid);
        EXPECT_THAT(table.release(nullptr), invalid);
        CMPIStatus status{};
        EXPECT_EQ(table.clone(nullptr, &status), nullptr);
        EXPECT_THAT(status, invalid);
        EXPECT_THAT(table.returnInstance(provider.result, nullptr),
                    IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIInstance."));
        EXPECT_THAT(table.returnObjectPath(provider.result, nullptr),
                    IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIObjectPath."));
        EXPECT_THAT(table.returnError(provider.result, nullptr),
                    IsError(CMPI_RC_ERR_NOT_SUPPORTED, "This host has no CMPIError objects."));
    });
}

}  // namespace
}  // namespace host
