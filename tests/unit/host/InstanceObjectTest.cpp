#include "HostFixture.h"

namespace host {
namespace {

class InstanceObjectTest : public HostTest {
protected:
    static CMPIData Get(const CMPIInstance* instance, const char* name) {
        CMPIStatus status{};
        const CMPIData data = instance->ft->getProperty(instance, name, &status);
        EXPECT_THAT(status, IsError(CMPI_RC_OK, ""));
        return data;
    }

    static std::string PathOfObject(const CMPIInstance* instance) {
        const CMPIObjectPath* const path = instance->ft->getObjectPath(instance, nullptr);
        return TextOf(path->ft->toString(path, nullptr));
    }
};

TEST_F(InstanceObjectTest, NewInstance_HasThePropertiesOfItsClass) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        const CMPIInstance* const thing = provider.NewInstance("t_thing");
        EXPECT_EQ(thing->ft->getPropertyCount(thing, &status), 19U);
        CMPIString* name = nullptr;
        thing->ft->getPropertyAt(thing, 2, &name, &status);
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        EXPECT_EQ(TextOf(name), "Flag");
        EXPECT_EQ(PathOfObject(thing), "root/test:T_Thing");
    });
}

TEST_F(InstanceObjectTest, NewInstance_HasTheDefaultsOfItsClass) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        const CMPIInstance* const thing = provider.NewInstance("T_Thing");
        EXPECT_TRUE(Get(thing, "Flag").value.boolean);
        EXPECT_EQ(Get(thing, "U16").value.uint16, 7);
        EXPECT_EQ(Get(thing, "S32").value.sint32, -5);
        EXPECT_EQ(Get(thing, "R64").value.real64, 2.5);
        EXPECT_EQ(TextOf(Get(thing, "caption").value.string), "no caption");
        const CMPIArray* const codes = Get(thing, "Codes").value.array;
        EXPECT_EQ(codes->ft->getElementAt(codes, 1, &status).value.uint16, 2);
        EXPECT_EQ(Get(thing, "U8").state, CMPI_nullValue);
        EXPECT_EQ(Get(thing, "U8").type, CMPI_uint8);
        EXPECT_EQ(Get(thing, "Name").state, CMPI_keyValue | CMPI_nullValue);
        EXPECT_EQ(Get(thing, "Names").type, CMPI_ARRAY | CMPI_string);
    });
}

TEST_F(InstanceObjectTest, NewInstanceFromAPath_HasItsKeys) {
    InProvider([](const ProviderSide& provider) {
        CMPIObjectPath* const path = provider.NewPath("T_Thing");
        path->ft->addKey(path, "name", Chars("x"), CMPI_chars);
        const CMPIInstance* const thing =
            provider.broker->eft->newInstance(provider.broker, path, nullptr);
        EXPECT_EQ(TextOf(Get(thing, "Name").value.string), "x");
        EXPECT_EQ(PathOfObject(thing), "root/test:T_Thing.Name=\"x\"");
    });
}

TEST_F(InstanceObjectTest, NewInstanceOfAnUnknownClass_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        EXPECT_FALSE(provider.broker->eft->newInstance(provider.broker,
                                                       provider.NewPath("T_Nothing"), &status));
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_CLASS, "There is no class 'T_Nothing'."));
        EXPECT_FALSE(provider.broker->eft->newInstance(provider.broker, nullptr, &status));
        EXPECT_EQ(status.rc, CMPI_RC_ERR_INVALID_HANDLE);
    });
}

TEST_F(InstanceObjectTest, NewInstanceWithAKeyThatIsNone_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIObjectPath* const path = provider.NewPath("T_Thing");
        path->ft->addKey(path, "Colour", Chars("x"), CMPI_chars);
        EXPECT_FALSE(provider.broker->eft->newInstance(provider.broker, path, &status));
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_NO_SUCH_PROPERTY,
                                    "The class 'T_Thing' has no property 'Colour'."));
    });
}

TEST_F(InstanceObjectTest, EveryScalarType_ComesBack) {
    InProvider([](const ProviderSide& provider) {
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        const auto set = [&](const char* name, const CMPIValue& value, CMPIType type) {
            EXPECT_THAT(thing->ft->setProperty(thing, name, &value, type), IsError(CMPI_RC_OK, ""))
                << name;
            EXPECT_EQ(Get(thing, name).type, type);
            EXPECT_EQ(Get(thing, name).state, CMPI_goodValue);
            return Get(thing, name).value;
        };
        EXPECT_FALSE(set("Flag", {.boolean = 0}, CMPI_boolean).boolean);
        EXPECT_EQ(set("U8", {.uint8 = 0xff}, CMPI_uint8).uint8, 0xff);
        EXPECT_EQ(set("U16", {.uint16 = 0xffff}, CMPI_uint16).uint16, 0xffff);
        EXPECT_EQ(set("U32", {.uint32 = ~0U}, CMPI_uint32).uint32, ~0U);
        EXPECT_EQ(set("U64", {.uint64 = ~0UL}, CMPI_uint64).uint64, ~0UL);
        EXPECT_EQ(set("S8", {.sint8 = -128}, CMPI_sint8).sint8, -128);
        EXPECT_EQ(set("S16", {.sint16 = -2}, CMPI_sint16).sint16, -2);
        EXPECT_EQ(set("S32", {.sint32 = -3}, CMPI_sint32).sint32, -3);
        EXPECT_EQ(set("S64", {.sint64 = -4}, CMPI_sint64).sint64, -4);
        EXPECT_EQ(set("R32", {.real32 = 1.5F}, CMPI_real32).real32, 1.5F);
        EXPECT_EQ(set("R64", {.real64 = -2.5}, CMPI_real64).real64, -2.5);
        EXPECT_EQ(set("C16", {.char16 = 'x'}, CMPI_char16).char16, 'x');
    });
}

TEST_F(InstanceObjectTest, Objects_AreCopied) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        CMPIValue value{};
        value.dateTime = provider.broker->eft->newDateTimeFromChars(
            provider.broker, "00000001000000.000000:000", &status);
        EXPECT_EQ(thing->ft->setProperty(thing, "When", &value, CMPI_dateTime).rc, CMPI_RC_OK);
        const CMPIDateTime* const when = Get(thing, "When").value.dateTime;
        EXPECT_EQ(TextOf(when->ft->getStringFormat(when, &status)), "00000001000000.000000:000");

        value.ref = provider.NewPath("T_Widget");
        EXPECT_EQ(thing->ft->setProperty(thing, "Friend", &value, CMPI_ref).rc, CMPI_RC_OK);
        const CMPIObjectPath* const other = Get(thing, "Friend").value.ref;
        EXPECT_EQ(TextOf(other->ft->toString(other, &status)), "root/test:T_Widget");

        CMPIInstance* const inner = provider.NewInstance("T_Widget");
        inner->ft->setProperty(inner, "Caption", Chars("inside"), CMPI_chars);
        value.inst = inner;
        EXPECT_EQ(thing->ft->setProperty(thing, "Inner", &value, CMPI_instance).rc, CMPI_RC_OK);
        inner->ft->setProperty(inner, "Caption", Chars("later"), CMPI_chars);
        EXPECT_EQ(Get(thing, "Inner").type, CMPI_instance);
        EXPECT_EQ(TextOf(Get(Get(thing, "Inner").value.inst, "Caption").value.string), "inside");

        value.array = provider.broker->eft->newArray(provider.broker, 1, CMPI_string, &status);
        EXPECT_EQ(thing->ft->setProperty(thing, "Names", &value, CMPI_ARRAY | CMPI_string).rc,
                  CMPI_RC_OK);
        value.array->ft->setElementAt(value.array, 0, Chars("x"), CMPI_chars);
        const CMPIArray* const names = Get(thing, "Names").value.array;
        EXPECT_EQ(names->ft->getElementAt(names, 0, &status).state, CMPI_nullValue);
    });
}

TEST_F(InstanceObjectTest, NullValue_ClearsAProperty) {
    InProvider([](const ProviderSide& provider) {
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        CMPIValue noText{};
        EXPECT_EQ(thing->ft->setProperty(thing, "Flag", nullptr, CMPI_boolean).rc, CMPI_RC_OK);
        EXPECT_EQ(Get(thing, "Flag").state, CMPI_nullValue);
        EXPECT_EQ(thing->ft->setProperty(thing, "U16", nullptr, CMPI_null).rc, CMPI_RC_OK);
        EXPECT_EQ(Get(thing, "U16").state, CMPI_nullValue);
        EXPECT_EQ(Get(thing, "U16").type, CMPI_uint16);
        EXPECT_EQ(thing->ft->setProperty(thing, "Caption", &noText, CMPI_string).rc, CMPI_RC_OK);
        EXPECT_EQ(Get(thing, "Caption").state, CMPI_nullValue);
    });
}

TEST_F(InstanceObjectTest, ValueOfAnotherType_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        CMPIValue value{};
        EXPECT_THAT(thing->ft->setProperty(thing, "u16", &value, CMPI_uint32),
                    IsError(CMPI_RC_ERR_TYPE_MISMATCH,
                            "The property 'U16' of 'T_Thing' is of another type than the value."));
        EXPECT_EQ(thing->ft->setProperty(thing, "Caption", nullptr, CMPI_uint16).rc,
                  CMPI_RC_ERR_TYPE_MISMATCH);
        value.inst = thing;
        EXPECT_EQ(thing->ft->setProperty(thing, "Caption", &value, CMPI_instance).rc,
                  CMPI_RC_ERR_TYPE_MISMATCH);
        value.array = provider.broker->eft->newArray(provider.broker, 1, CMPI_uint8, nullptr);
        EXPECT_THAT(thing->ft->setProperty(thing, "Codes", &value, CMPI_ARRAY | CMPI_uint16),
                    IsError(CMPI_RC_ERR_TYPE_MISMATCH,
                            "The array's elements are of another type than the value says."));
        EXPECT_EQ(Get(thing, "U16").value.uint16, 7);
    });
}

TEST_F(InstanceObjectTest, MissingProperty_IsNoSuchProperty) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        const auto missing = IsError(CMPI_RC_ERR_NO_SUCH_PROPERTY,
                                     "The instance of 'T_Thing' has no property 'Colour'.");
        EXPECT_EQ(thing->ft->getProperty(thing, "Colour", &status).state, CMPI_notFound);
        EXPECT_THAT(status, missing);
        EXPECT_THAT(thing->ft->setProperty(thing, "Colour", Chars("x"), CMPI_chars), missing);
        EXPECT_EQ(thing->ft->getPropertyAt(thing, 19, nullptr, &status).state, CMPI_notFound);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_NO_SUCH_PROPERTY,
                                    "The instance of 'T_Thing' has no property at index 19."));
        thing->ft->getProperty(thing, nullptr, &status);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The property's name is NULL."));
    });
}

TEST_F(InstanceObjectTest, Filter_HidesAllButItsPropertiesAndTheKeys) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        const char* properties[] = {"caption", "Unknown", nullptr};
        const char* keys[] = {"U8", nullptr};
        EXPECT_EQ(thing->ft->setPropertyFilter(thing, properties, keys).rc, CMPI_RC_OK);
        EXPECT_EQ(thing->ft->getPropertyCount(thing, &status), 3U);
        CMPIString* name = nullptr;
        thing->ft->getPropertyAt(thing, 2, &name, &status);
        EXPECT_EQ(TextOf(name), "U8");
        EXPECT_EQ(thing->ft->setProperty(thing, "Name", Chars("x"), CMPI_chars).rc, CMPI_RC_OK);
        EXPECT_EQ(PathOfObject(thing), "root/test:T_Thing.Name=\"x\"");
        // A hidden property is set without an effect, and without an error.
        EXPECT_EQ(thing->ft->setProperty(thing, "Flag", nullptr, CMPI_boolean).rc, CMPI_RC_OK);
        thing->ft->getProperty(thing, "Flag", &status);
        EXPECT_EQ(status.rc, CMPI_RC_ERR_NO_SUCH_PROPERTY);

        EXPECT_EQ(thing->ft->setPropertyFilter(thing, nullptr, nullptr).rc, CMPI_RC_OK);
        EXPECT_EQ(thing->ft->getPropertyCount(thing, &status), 19U);
        EXPECT_TRUE(Get(thing, "Flag").value.boolean);
    });
}

TEST_F(InstanceObjectTest, SetObjectPath_SetsKeysAndNameSpace) {
    InProvider([](const ProviderSide& provider) {
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        CMPIObjectPath* const path = provider.NewPath("T_THING");
        path->ft->setNameSpace(path, "root/other");
        path->ft->addKey(path, "Name", Chars("x"), CMPI_chars);
        thing->ft->setProperty(thing, "U16", nullptr, CMPI_null);
        EXPECT_EQ(thing->ft->setObjectPath(thing, path).rc, CMPI_RC_OK);
        EXPECT_EQ(PathOfObject(thing), "root/other:T_Thing.Name=\"x\"");
        EXPECT_EQ(TextOf(Get(thing, "Name").value.string), "x");
        EXPECT_EQ(Get(thing, "U16").state, CMPI_nullValue);
        EXPECT_THAT(thing->ft->setObjectPath(thing, provider.NewPath("T_Widget")),
                    IsError(CMPI_RC_ERR_INVALID_PARAMETER,
                            "The path of an instance of 'T_Thing' cannot name the class "
                            "'T_Widget'."));
        EXPECT_EQ(thing->ft->setObjectPath(thing, nullptr).rc, CMPI_RC_ERR_INVALID_HANDLE);
    });
}

TEST_F(InstanceObjectTest, SetPropertyWithOrigin_SetsIt) {
    InProvider([](const ProviderSide& provider) {
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        EXPECT_EQ(
            thing->ft->setPropertyWithOrigin(thing, "Caption", Chars("x"), CMPI_chars, "T_Element")
                .rc,
            CMPI_RC_OK);
        EXPECT_EQ(TextOf(Get(thing, "Caption").value.string), "x");
    });
}

TEST_F(InstanceObjectTest, Clone_IsACopy) {
    InProvider([](const ProviderSide& provider) {
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        CMPIInstance* const clone = thing->ft->clone(thing, nullptr);
        thing->ft->setProperty(thing, "Caption", Chars("x"), CMPI_chars);
        EXPECT_EQ(TextOf(Get(clone, "Caption").value.string), "no caption");
        EXPECT_EQ(clone->ft->release(clone).rc, CMPI_RC_OK);
    });
}

TEST_F(InstanceObjectTest, InvalidHandle_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIInstance* const thing = provider.NewInstance("T_Thing");
        const CMPIInstanceFT& table = *thing->ft;
        const auto invalid =
            IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIInstance.");
        CMPIStatus status{};
        EXPECT_EQ(table.getProperty(nullptr, "Name", &status).state, CMPI_badValue);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getPropertyAt(nullptr, 0, nullptr, &status).state, CMPI_badValue);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getPropertyCount(nullptr, &status), 0U);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getObjectPath(nullptr, &status), nullptr);
        EXPECT_THAT(status, invalid);
        EXPECT_THAT(table.setProperty(nullptr, "Name", Chars("x"), CMPI_chars), invalid);
        EXPECT_THAT(table.setPropertyWithOrigin(nullptr, "Name", Chars("x"), CMPI_chars, nullptr),
                    invalid);
        EXPECT_THAT(table.setPropertyFilter(nullptr, nullptr, nullptr), invalid);
        EXPECT_THAT(table.setObjectPath(nullptr, provider.NewPath("T_Thing")), invalid);
        EXPECT_EQ(table.clone(nullptr, &status), nullptr);
        EXPECT_THAT(table.release(nullptr), invalid);
        // A value that is a released object.
        CMPIString* const text = provider.NewString("x");
        text->ft->release(text);
        CMPIValue value{};
        value.string = text;
        EXPECT_THAT(table.setProperty(thing, "Caption", &value, CMPI_string),
                    IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIString."));
    });
}

}  // namespace
}  // namespace host
