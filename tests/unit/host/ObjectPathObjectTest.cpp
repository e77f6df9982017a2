#include "HostFixture.h"

namespace host {
namespace {

class ObjectPathObjectTest : public HostTest {};

TEST_F(ObjectPathObjectTest, Parts_AreSetAndRead) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIObjectPath* const path = provider.NewPath("T_Thing");
        EXPECT_EQ(TextOf(path->ft->getNameSpace(path, &status)), "root/test");
        EXPECT_EQ(TextOf(path->ft->getClassName(path, &status)), "T_Thing");
        EXPECT_EQ(TextOf(path->ft->getHostname(path, &status)), "");
        EXPECT_EQ(path->ft->setNameSpace(path, "root/a").rc, CMPI_RC_OK);
        EXPECT_EQ(path->ft->setClassName(path, "A").rc, CMPI_RC_OK);
        EXPECT_EQ(path->ft->setHostname(path, "h").rc, CMPI_RC_OK);
        EXPECT_EQ(TextOf(path->ft->toString(path, &status)), "root/a:A");
        EXPECT_EQ(TextOf(path->ft->getHostname(path, &status)), "h");
    });
}

TEST_F(ObjectPathObjectTest, NewObjectPath_TakesNullAsEmpty) {
    InProvider([](const ProviderSide& provider) {
        const CMPIObjectPath* const path =
            provider.broker->eft->newObjectPath(provider.broker, nullptr, nullptr, nullptr);
        EXPECT_EQ(TextOf(path->ft->toString(path, nullptr)), "");
    });
}

TEST_F(ObjectPathObjectTest, NullTexts_AreRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIObjectPath* const path = provider.NewPath("T_Thing");
        EXPECT_THAT(path->ft->setNameSpace(path, nullptr),
                    IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The namespace is NULL."));
        EXPECT_THAT(path->ft->setClassName(path, nullptr),
                    IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The class name is NULL."));
        EXPECT_THAT(path->ft->setHostname(path, nullptr),
                    IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The host name is NULL."));
        EXPECT_THAT(path->ft->addKey(path, nullptr, Chars("x"), CMPI_chars),
                    IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The key's name is NULL."));
        CMPIStatus status{};
        path->ft->getKey(path, nullptr, &status);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The name is NULL."));
    });
}

TEST_F(ObjectPathObjectTest, Keys_AreReadByNameAndIndex) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIObjectPath* const path = provider.NewPath("T_Thing");
        CMPIValue number{};
        number.uint64 = 7;
        path->ft->addKey(path, "Name", Chars("one"), CMPI_chars);
        path->ft->addKey(path, "Id", &number, CMPI_uint64);
        path->ft->addKey(path, "Empty", nullptr, CMPI_string);
        EXPECT_EQ(path->ft->getKeyCount(path, &status), 3U);
        const CMPIData name = path->ft->getKey(path, "NAME", &status);
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        EXPECT_EQ(name.type, CMPI_string);
        EXPECT_EQ(name.state, CMPI_keyValue);
        EXPECT_EQ(TextOf(name.value.string), "one");
        CMPIString* second = nullptr;
        EXPECT_EQ(path->ft->getKeyAt(path, 1, &second, &status).value.uint64, 7U);
        EXPECT_EQ(TextOf(second), "Id");
        EXPECT_EQ(path->ft->getKeyAt(path, 2, nullptr, &status).state,
                  CMPI_keyValue | CMPI_nullValue);
        EXPECT_EQ(TextOf(path->ft->toString(path, &status)),
                  "root/test:T_Thing.Name=\"one\",Id=7,Empty=\"\"");
    });
}

TEST_F(ObjectPathObjectTest, KeySetTwice_HasItsLastValue) {
    InProvider([](const ProviderSide& provider) {
        CMPIObjectPath* const path = provider.NewPath("T_Thing");
        path->ft->addKey(path, "Name", Chars("one"), CMPI_chars);
        path->ft->addKey(path, "name", Chars("two"), CMPI_chars);
        EXPECT_EQ(TextOf(path->ft->toString(path, nullptr)), "root/test:T_Thing.Name=\"two\"");
    });
}

TEST_F(ObjectPathObjectTest, MissingKey_IsNotFound) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        const CMPIObjectPath* const path = provider.NewPath("T_Thing");
        EXPECT_EQ(path->ft->getKey(path, "Id", &status).state, CMPI_notFound);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_NOT_FOUND, "There is no key 'Id'."));
        EXPECT_EQ(path->ft->getKeyAt(path, 0, nullptr, &status).state, CMPI_notFound);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_NOT_FOUND, "There is no key at index 0."));
    });
}

TEST_F(ObjectPathObjectTest, KeyThatCannotBeOne_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIObjectPath* const path = provider.NewPath("T_Thing");
        CMPIValue value{};
        value.array = provider.broker->eft->newArray(provider.broker, 1, CMPI_uint8, nullptr);
        const auto mismatch =
            IsError(CMPI_RC_ERR_TYPE_MISMATCH, "A key is neither an array nor an instance.");
        EXPECT_THAT(path->ft->addKey(path, "A", &value, CMPI_ARRAY | CMPI_uint8), mismatch);
        value.inst = provider.NewInstance("T_Thing");
        EXPECT_THAT(path->ft->addKey(path, "A", &value, CMPI_instance), mismatch);
        EXPECT_EQ(path->ft->getKeyCount(path, nullptr), 0U);
    });
}

TEST_F(ObjectPathObjectTest, ReferenceKey_IsAPathOfItsOwn) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIObjectPath* const end = provider.NewPath("T_Thing");
        CMPIObjectPath* const link = provider.NewPath("T_Link");
        CMPIValue value{};
        value.ref = end;
        EXPECT_EQ(link->ft->addKey(link, "From", &value, CMPI_ref).rc, CMPI_RC_OK);
        end->ft->setClassName(end, "Changed");
        const CMPIData from = link->ft->getKey(link, "From", &status);
        EXPECT_EQ(from.type, CMPI_ref);
        EXPECT_EQ(TextOf(from.value.ref->ft->getClassName(from.value.ref, &status)), "T_Thing");
    });
}

TEST_F(ObjectPathObjectTest, NameSpaceAndHost_AreCopiedFromAnotherPath) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIObjectPath* const source = provider.NewPath("A");
        source->ft->setNameSpace(source, "root/b");
        source->ft->setHostname(source, "h");
        CMPIObjectPath* const path = provider.NewPath("C");
        EXPECT_EQ(path->ft->setNameSpaceFromObjectPath(path, source).rc, CMPI_RC_OK);
        EXPECT_EQ(TextOf(path->ft->getNameSpace(path, &status)), "root/b");
        EXPECT_EQ(TextOf(path->ft->getHostname(path, &status)), "");
        EXPECT_EQ(path->ft->setHostAndNameSpaceFromObjectPath(path, source).rc, CMPI_RC_OK);
        EXPECT_EQ(TextOf(path->ft->getHostname(path, &status)), "h");
        EXPECT_EQ(path->ft->setNameSpaceFromObjectPath(path, nullptr).rc,
                  CMPI_RC_ERR_INVALID_HANDLE);
        EXPECT_EQ(path->ft->setHostAndNameSpaceFromObjectPath(path, nullptr).rc,
                  CMPI_RC_ERR_INVALID_HANDLE);
    });
}

TEST_F(ObjectPathObjectTest, Qualifiers_ComeFromTheSchema) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        const CMPIObjectPath* const path = provider.NewPath("T_Widget");
        const CMPIObjectPathFT& table = *path->ft;
        EXPECT_EQ(TextOf(table.getClassQualifier(path, "Description", &status).value.string),
                  "What the module stores.");
        EXPECT_TRUE(table.getPropertyQualifier(path, "Name", "Key", &status).value.boolean);
        EXPECT_EQ(
            TextOf(table.getMethodQualifier(path, "Echo", "Description", &status).value.string),
            "Gives back what it gets.");
        EXPECT_TRUE(
            table.getParameterQualifier(path, "Echo", "Heard", "Out", &status).value.boolean);
        EXPECT_EQ(status.rc, CMPI_RC_OK);
        table.getClassQualifier(path, "Association", &status);
        EXPECT_EQ(status.rc, CMPI_RC_ERR_NOT_FOUND);
    });
}

TEST_F(ObjectPathObjectTest, QualifierWithoutAName_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        const CMPIObjectPath* const path = provider.NewPath("T_Widget");
        const CMPIObjectPathFT& table = *path->ft;
        table.getClassQualifier(path, nullptr, &status);
        EXPECT_THAT(status,
                    IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The qualifier's name is NULL."));
        table.getPropertyQualifier(path, nullptr, "Key", &status);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The property's name is NULL."));
        table.getMethodQualifier(path, nullptr, "Key", &status);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The method's name is NULL."));
        table.getParameterQualifier(path, "Echo", nullptr, "Key", &status);
        EXPECT_THAT(status,
                    IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The parameter's name is NULL."));
    });
}

TEST_F(ObjectPathObjectTest, Clone_IsACopy) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIObjectPath* const path = provider.NewPath("T_Thing");
        CMPIObjectPath* const clone = path->ft->clone(path, &status);
        path->ft->addKey(path, "Name", Chars("x"), CMPI_chars);
        EXPECT_EQ(TextOf(clone->ft->toString(clone, &status)), "root/test:T_Thing");
        EXPECT_EQ(clone->ft->release(clone).rc, CMPI_RC_OK);
    });
}

TEST_F(ObjectPathObjectTest, InvalidHandle_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        const CMPIObjectPathFT& table = *provider.NewPath("T_Thing")->ft;
        const auto invalid =
            IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIObjectPath.");
        CMPIStatus status{};
        for (const auto get :
             {table.getNameSpace, table.getHostname, table.getClassName, table.toString}) {
            EXPECT_EQ(get(nullptr, &status), nullptr);
            EXPECT_THAT(status, invalid);
        }
        for (const auto set : {table.setNameSpace, table.setHostname, table.setClassName})
            EXPECT_THAT(set(nullptr, "x"), invalid);
        EXPECT_EQ(table.getKeyCount(nullptr, &status), 0U);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getKey(nullptr, "x", &status).state, CMPI_badValue);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getKeyAt(nullptr, 0, nullptr, &status).state, CMPI_badValue);
        EXPECT_THAT(status, invalid);
        EXPECT_THAT(table.addKey(nullptr, "x", Chars("x"), CMPI_chars), invalid);
        EXPECT_EQ(table.getClassQualifier(nullptr, "x", &status).state, CMPI_badValue);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.clone(nullptr, &status), nullptr);
        EXPECT_THAT(table.release(nullptr), invalid);
    });
}

}  // namespace
}  // namespace host
