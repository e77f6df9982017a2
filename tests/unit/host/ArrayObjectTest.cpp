#include "HostFixture.h"

namespace host {
namespace {

class ArrayObjectTest : public HostTest {
protected:
    static CMPIArray* NewArray(const ProviderSide& provider, CMPICount size, CMPIType type) {
        return provider.broker->eft->newArray(provider.broker, size, type, nullptr);
    }
};

TEST_F(ArrayObjectTest, NewArray_HoldsNulls) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIArray* const array = NewArray(provider, 2, CMPI_uint16);
        EXPECT_EQ(array->ft->getSize(array, &status), 2U);
        EXPECT_EQ(array->ft->getSimpleType(array, &status), CMPI_uint16);
        const CMPIData element = array->ft->getElementAt(array, 1, &status);
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        EXPECT_EQ(element.type, CMPI_uint16);
        EXPECT_EQ(element.state, CMPI_nullValue);
    });
}

TEST_F(ArrayObjectTest, Elements_AreSetAndCleared) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIArray* const array = NewArray(provider, 1, CMPI_sint8);
        CMPIValue value{};
        value.sint8 = -3;
        EXPECT_EQ(array->ft->setElementAt(array, 0, &value, CMPI_sint8).rc, CMPI_RC_OK);
        EXPECT_EQ(array->ft->getElementAt(array, 0, &status).value.sint8, -3);
        EXPECT_EQ(array->ft->getElementAt(array, 0, &status).state, CMPI_goodValue);
        EXPECT_EQ(array->ft->setElementAt(array, 0, nullptr, CMPI_null).rc, CMPI_RC_OK);
        EXPECT_EQ(array->ft->getElementAt(array, 0, &status).state, CMPI_nullValue);
        EXPECT_EQ(array->ft->getElementAt(array, 0, &status).type, CMPI_sint8);
    });
}

TEST_F(ArrayObjectTest, Characters_AreStrings) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIArray* const array = NewArray(provider, 2, CMPI_chars);
        EXPECT_EQ(array->ft->getSimpleType(array, &status), CMPI_string);
        EXPECT_EQ(array->ft->setElementAt(array, 0, Chars("a"), CMPI_chars).rc, CMPI_RC_OK);
        CMPIValue value{};
        value.string = provider.NewString("b");
        EXPECT_EQ(array->ft->setElementAt(array, 1, &value, CMPI_string).rc, CMPI_RC_OK);
        EXPECT_EQ(TextOf(array->ft->getElementAt(array, 0, &status).value.string), "a");
        EXPECT_EQ(TextOf(array->ft->getElementAt(array, 1, &status).value.string), "b");
    });
}

TEST_F(ArrayObjectTest, ElementOfAnotherType_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIArray* const array = NewArray(provider, 1, CMPI_uint16);
        CMPIValue value{};
        EXPECT_THAT(array->ft->setElementAt(array, 0, &value, CMPI_uint32),
                    IsError(CMPI_RC_ERR_TYPE_MISMATCH,
                            "The value is of another type than the array's elements."));
        EXPECT_THAT(array->ft->setElementAt(array, 0, &value, CMPI_ptr),
                    IsError(CMPI_RC_ERR_INVALID_DATA_TYPE, "CIM data cannot be of type 6400."));
    });
}

TEST_F(ArrayObjectTest, IndexPastTheEnd_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIArray* const array = NewArray(provider, 1, CMPI_uint16);
        const CMPIData none = array->ft->getElementAt(array, 1, &status);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_NO_SUCH_PROPERTY, "The array has no element 1."));
        EXPECT_EQ(none.state, CMPI_notFound);
        CMPIValue value{};
        EXPECT_EQ(array->ft->setElementAt(array, 1, &value, CMPI_uint16).rc,
                  CMPI_RC_ERR_NO_SUCH_PROPERTY);
    });
}

TEST_F(ArrayObjectTest, ArrayOfArrays_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        const CMPIBrokerEncFT& make = *provider.broker->eft;
        CMPIStatus status{};
        EXPECT_FALSE(make.newArray(provider.broker, 1, CMPI_ARRAY | CMPI_uint8, &status));
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_DATA_TYPE,
                                    "An array's elements cannot be of type 8320."));
        EXPECT_FALSE(make.newArray(provider.broker, 1, CMPI_null, &status));
        EXPECT_EQ(status.rc, CMPI_RC_ERR_INVALID_DATA_TYPE);
    });
}

TEST_F(ArrayObjectTest, Clone_IsACopy) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIArray* const array = NewArray(provider, 1, CMPI_string);
        array->ft->setElementAt(array, 0, Chars("old"), CMPI_chars);
        CMPIArray* const clone = array->ft->clone(array, &status);
        array->ft->setElementAt(array, 0, Chars("new"), CMPI_chars);
        EXPECT_EQ(TextOf(clone->ft->getElementAt(clone, 0, &status).value.string), "old");
        EXPECT_EQ(clone->ft->release(clone).rc, CMPI_RC_OK);
    });
}

TEST_F(ArrayObjectTest, InvalidHandle_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        const CMPIArrayFT& table = *NewArray(provider, 1, CMPI_uint8)->ft;
        const auto invalid = IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIArray.");
        CMPIStatus status{};
        EXPECT_EQ(table.getSize(nullptr, &status), 0U);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getSimpleType(nullptr, &status), CMPI_null);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getElementAt(nullptr, 0, &status).state, CMPI_badValue);
        EXPECT_THAT(status, invalid);
        EXPECT_THAT(table.setElementAt(nullptr, 0, nullptr, CMPI_uint8), invalid);
        EXPECT_EQ(table.clone(nullptr, &status), nullptr);
        EXPECT_THAT(table.release(nullptr), invalid);
    });
}

}  // namespace
}  // namespace host
