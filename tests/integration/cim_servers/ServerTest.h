// Each test runs under a server of each personality, and leaves nothing that it complains about.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "Server.h"

inline constexpr char kService[] = "QUVSG_BMCI2C_DiagnosticService";
inline constexpr char kJob[] = "QUVSG_BMCI2C_ConcreteJob";
inline constexpr char kRecord[] = "QUVSG_BMCI2C_DiagnosticCompletionRecord";
inline const Path kServicePath = {kService, {{"Name", "BMC I2C Test"}}};

class ServerTest : public testing::TestWithParam<Personality> {
protected:
    ~ServerTest() override { EXPECT_THAT(server.Complaints(), testing::IsEmpty()); }

    // "root/quvsd:Class.Key=value,…", in the spelling of this server.
    static std::string PathText(const std::string& classAndKeys) {
        return std::string(GetParam().nameSpace) + ":" + classAndKeys;
    }

    Reply Run() { return server.InvokeMethod(kServicePath, "RunDiagnostic"); }

    Server server{GetParam()};
};

// Makes the tests of a fixture that derives from ServerTest run under every personality.
#define FOR_EVERY_SERVER(FIXTURE)                                                       \
    INSTANTIATE_TEST_SUITE_P(CimServers, FIXTURE, testing::Values(kSfcb, kOpenPegasus), \
                             [](const auto& server) { return std::string(server.param.name); })
