// What the tests of the catalog parser share.
#pragma once

#include <catalog/TBmcI2cXMLParser.h>
#include <fakes/FakeDiagnostics.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

class CatalogFixture : public testing::Test {
protected:
    enum class Build { Standard, Oem };

    CatalogFixture() { MakeParser(Build::Standard); }

    void MakeParser(Build build) {
        FakeDiagnostics::Reset();
        FakeDiagnostics::oemBuild = build == Build::Oem;
        parser = std::make_unique<TBmcI2cXMLParser>();
    }

    void Parse(std::string text) { parser->Parse(text.data(), text.size()); }
    // Reads a catalog that holds the given elements, all in the catalog's first line.
    void ParseCatalog(const std::string& elements) {
        Parse("<bmci2cmsg version='1.0'>" + elements + "</bmci2cmsg>");
    }

    std::size_t MachineCount() const { return parser->GetMachineList().size(); }
    // The entry at a position of the machine list.
    TMachine Machine(std::size_t position = 0) const {
        const auto machines = parser->GetMachineList();
        if (position >= machines.size()) {
            ADD_FAILURE() << "There is no machine " << position;
            return TMachine("missing");
        }
        return **std::next(machines.begin(), static_cast<std::ptrdiff_t>(position));
    }

    static std::vector<std::string> Errors() {
        return FakeDiagnostics::Texts(NQUVZDX20::kLogFatal);
    }

    std::unique_ptr<TBmcI2cXMLParser> parser;
};
