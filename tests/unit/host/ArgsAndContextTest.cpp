#include <host/objects/Objects.h>

#include "HostFixture.h"

namespace host {
namespace {

class ArgsObjectTest : public HostTest {};
class ContextObjectTest : public HostTest {};

TEST_F(ArgsObjectTest, Arguments_AreReadByNameAndIndex) {
    InProvider([](const ProviderSide&) {
        CMPIStatus status{};
        CMPIArgs* const args = Make<CMPIArgs>({});
        EXPECT_EQ(args->ft->getArgCount(args, &status), 0U);
        CMPIValue number{};
        number.uint32 = 5;
        EXPECT_EQ(args->ft->addArg(args, "A", &number, CMPI_uint32).rc, CMPI_RC_OK);
        EXPECT_EQ(args->ft->addArg(args, "B", nullptr, CMPI_string).rc, CMPI_RC_OK);
        EXPECT_EQ(args->ft->addArg(args, "a", Chars("x"), CMPI_chars).rc, CMPI_RC_OK);
        EXPECT_EQ(args->ft->getArgCount(args, &status), 2U);
        EXPECT_EQ(TextOf(args->ft->getArg(args, "A", &status).value.string), "x");
        CMPIString* name = nullptr;
        const CMPIData second = args->ft->getArgAt(args, 1, &name, &status);
        EXPECT_EQ(TextOf(name), "B");
        EXPECT_EQ(second.state, CMPI_nullValue);
        CMPIArgs* const clone = args->ft->clone(args, &status);
        args->ft->release(args);
        EXPECT_EQ(clone->ft->getArgCount(clone, &status), 2U);
        EXPECT_EQ(clone->ft->release(clone).rc, CMPI_RC_OK);
    });
}

TEST_F(ArgsObjectTest, MissingArgument_IsNotFound) {
    InProvider([](const ProviderSide&) {
        CMPIStatus status{};
        CMPIArgs* const args = Make<CMPIArgs>({});
        EXPECT_EQ(args->ft->getArg(args, "A", &status).state, CMPI_notFound);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_NOT_FOUND, "There is no argument 'A'."));
        args->ft->getArgAt(args, 0, nullptr, &status);
        EXPECT_THAT(status, IsError(CMPI_RC_ERR_NOT_FOUND, "There is no argument at index 0."));
    });
}

TEST_F(ArgsObjectTest, Misuse_IsRefused) {
    InProvider([](const ProviderSide&) {
        CMPIStatus status{};
        CMPIArgs* const args = Make<CMPIArgs>({});
        const CMPIArgsFT& table = *args->ft;
        EXPECT_THAT(table.addArg(args, nullptr, Chars("x"), CMPI_chars),
                    IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The argument's name is NULL."));
        CMPIValue value{};
        EXPECT_EQ(table.addArg(args, "A", &value, CMPI_filter).rc, CMPI_RC_ERR_INVALID_DATA_TYPE);
        const auto invalid = IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIArgs.");
        EXPECT_THAT(table.addArg(nullptr, "A", &value, CMPI_uint8), invalid);
        table.getArg(nullptr, "A", &status);
        EXPECT_THAT(status, invalid);
        table.getArgAt(nullptr, 0, nullptr, &status);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getArgCount(nullptr, &status), 0U);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.clone(nullptr, &status), nullptr);
        EXPECT_THAT(table.release(nullptr), invalid);
    });
}

TEST_F(ContextObjectTest, RequestContext_HoldsFlagsAndNameSpace) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        const CMPIContext* const context = provider.context;
        EXPECT_EQ(context->ft->getEntryCount(context, &status), 2U);
        const CMPIData flags = context->ft->getEntry(context, CMPIInvocationFlags, &status);
        EXPECT_EQ(flags.type, CMPI_uint32);
        EXPECT_EQ(flags.value.uint32, 0U);
        CMPIString* name = nullptr;
        EXPECT_EQ(TextOf(context->ft->getEntryAt(context, 1, &name, &status).value.string),
                  "root/test");
        EXPECT_EQ(TextOf(name), CMPIInitNameSpace);
    });
}

TEST_F(ContextObjectTest, Entries_AreAdded) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        CMPIContext* const clone = provider.context->ft->clone(provider.context, &status);
        EXPECT_EQ(clone->ft->addEntry(clone, CMPIPrincipal, Chars("me"), CMPI_chars).rc,
                  CMPI_RC_OK);
        EXPECT_EQ(TextOf(clone->ft->getEntry(clone, CMPIPrincipal, &status).value.string), "me");
        EXPECT_EQ(clone->ft->release(clone).rc, CMPI_RC_OK);
        provider.context->ft->getEntry(provider.context, CMPIPrincipal, &status);
        EXPECT_THAT(status,
                    IsError(CMPI_RC_ERR_NOT_FOUND, "There is no context entry 'CMPIPrincipal'."));
    });
}

TEST_F(ContextObjectTest, Misuse_IsRefused) {
    InProvider([](const ProviderSide& provider) {
        CMPIStatus status{};
        const CMPIContextFT& table = *provider.context->ft;
        const auto invalid =
            IsError(CMPI_RC_ERR_INVALID_HANDLE, "This is not a valid CMPIContext.");
        table.getEntry(nullptr, "A", &status);
        EXPECT_THAT(status, invalid);
        table.getEntryAt(nullptr, 0, nullptr, &status);
        EXPECT_THAT(status, invalid);
        EXPECT_EQ(table.getEntryCount(nullptr, &status), 0U);
        EXPECT_THAT(status, invalid);
        EXPECT_THAT(table.addEntry(nullptr, "A", nullptr, CMPI_string), invalid);
        EXPECT_EQ(table.clone(nullptr, &status), nullptr);
        EXPECT_THAT(table.release(nullptr), invalid);
        EXPECT_THAT(table.addEntry(provider.context, nullptr, nullptr, CMPI_string),
                    IsError(CMPI_RC_ERR_INVALID_PARAMETER, "The entry's name is NULL."));
        table.getEntryAt(provider.context, 9, nullptr, &status);
        EXPECT_THAT(status,
                    IsError(CMPI_RC_ERR_NOT_FOUND, "There is no context entry at index 9."));
    });
}

}  // namespace
}  // namespace host
