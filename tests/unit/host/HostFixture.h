// A host with the test module, and a way to stand in a provider's shoes.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/Host.h>

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "provider/TestControl.h"

namespace host {

// What a provider has during a request.
struct ProviderSide {
    const CMPIBroker* broker;
    const CMPIContext* context;
    const CMPIResult* result;

    CMPIString* NewString(const char* text) const;
    CMPIObjectPath* NewPath(const char* className) const;  // in root/test
    CMPIInstance* NewInstance(const char* className) const;
};

std::string TextOf(const CMPIString* text);  // "" for null

// A path in root/test, with the key Name unless it is empty.
ObjectPath PathTo(const std::string& className, const std::string& name = "");

// Text as a provider hands it over with the type CMPI_chars.
const CMPIValue* Chars(const char* text);

HostFiles TestFiles();

// The module's own functions; it stays loaded as long as this lives.
class TestModule {
public:
    TestModule();
    ~TestModule();
    TestModule(const TestModule&) = delete;
    TestModule& operator=(const TestModule&) = delete;

    // True when a module is loaded that nobody but its host holds.
    static bool IsLoaded();

    void SetProbe(ProbeFunction function, void* data) const;
    void SetCleanupAnswer(CMPIrc code) const;
    InterfaceCounts TakeInterfaceCounts() const;
    int TakeLinkEnumerations() const;

private:
    void* const library;
};

class HostTest : public testing::Test {
protected:
    // Runs the body within a method call of a provider.
    void InProvider(const std::function<void(const ProviderSide&)>& body);

    std::vector<Message> Messages();

private:
    std::mutex mutex;  // guards what was received
    std::vector<Message> received;

protected:
    Host host{TestFiles(), [this](const Message& message) {
                  const std::lock_guard lock(mutex);
                  received.push_back(message);
              }};
};

MATCHER_P2(IsFailure, code, text, "") {
    return testing::ExplainMatchResult(code, arg.code, result_listener) &&
           testing::ExplainMatchResult(text, arg.text, result_listener);
}

// The same for a status that a provider gets.
MATCHER_P2(IsError, code, text, "") {
    return testing::ExplainMatchResult(code, arg.rc, result_listener) &&
           testing::ExplainMatchResult(text, TextOf(arg.msg), result_listener);
}

}  // namespace host
