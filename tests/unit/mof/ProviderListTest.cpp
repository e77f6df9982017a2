#include <gtest/gtest.h>
#include <mof/Reader.h>
#include <mof/generator/ProviderList.h>

namespace {

constexpr const char* kModuleText =
    "Qualifier Association : boolean = false, Scope(association);\n"
    "class CIM_Base { };\n"
    "class QUVSG_BMCI2C_Thing : CIM_Base { };\n"
    "[Association] class QUVSG_BMCI2C_Link { CIM_Base REF One; };\n";

TEST(ProviderList, HoldsTheModulesClassesByName) {
    EXPECT_EQ(mof::ProviderList(mof::ReadText(kModuleText, "a.mof")),
              "// Generated from MOF: changes belong there.\n"
              "#pragma once\n\n"
              "#define BMCI2C_PROVIDERS(PLAIN, ASSOCIATION) \\\n"
              "    ASSOCIATION(Link) \\\n"
              "    PLAIN(Thing)\n");
}

TEST(ProviderList, HeadersOfAllProvidersAreIncluded) {
    EXPECT_EQ(mof::ProviderHeaders(mof::ReadText(kModuleText, "a.mof")),
              "// Generated from MOF: changes belong there.\n"
              "#pragma once\n\n"
              "#include <providers/QUVSG_BMCI2C_Link_Provider.h>\n"
              "#include <providers/QUVSG_BMCI2C_Thing_Provider.h>\n");
}

}  // namespace
