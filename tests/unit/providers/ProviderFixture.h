// A scripted machine of type 7000 with one controller, and a catalog that knows it.
#pragma once

#include <fakes/FakeDiagnostics.h>
#include <fakes/FakeServiceProcessor.h>
#include <fakes/FakeTraceSink.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

class ProviderTest : public testing::Test {
protected:
    ProviderTest() {
        FakeDiagnostics::Reset();
        FakeDiagnostics::machineType = "7000";
        FakeDiagnostics::root = BMCI2C_TEST_ROOT;
        FakeServiceProcessor::Reset();
        FakeTraceSink::lines.clear();
    }

    // What controller 0 answers to the status command from now on.
    static void Answer(std::vector<std::uint8_t> data) {
        FakeServiceProcessor::Script(0, 0x09, {.data = std::move(data)});
    }

    // The trace lines, without those that print an instance.
    static std::vector<std::string> Trace() {
        std::vector<std::string> lines;
        for (const std::string& line : FakeTraceSink::lines) {
            if (line.starts_with("+++") || line.starts_with("---")) lines.push_back(line);
        }
        return lines;
    }
};
