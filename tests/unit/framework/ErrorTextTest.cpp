// Exceptions on their way to the client.
#include <new>
#include <stdexcept>

#include "Adapter_Fixture.h"

namespace {

class ErrorText : public Adapter_Fixture {
protected:
    template <class Exception>
    CMPIStatus enumerate_throwing(const Exception& exception) {
        fanScript.enumInstances = [&](const ACME_Fan*, auto*) -> int { throw exception; };
        return enumerate_fans();
    }
};

}  // namespace

TEST_F(ErrorText, Exception_IsFailedWithItsText) {
    EXPECT_EQ(to_text(enumerate_throwing(std::runtime_error("the fan is on fire."))),
              "1: ACME_Fan_Provider: enumerateInstances failed: the fan is on fire.");
    EXPECT_EQ(result.ends, 0);
}

TEST_F(ErrorText, LackOfMemory_IsFailedWithItsText) {
    EXPECT_EQ(to_text(enumerate_throwing(std::bad_alloc())),
              "1: ACME_Fan_Provider: enumerateInstances failed: std::bad_alloc");
}

TEST_F(ErrorText, ExceptionOfNoKnownType_IsFailed) {
    EXPECT_EQ(to_text(enumerate_throwing(42)),
              "1: ACME_Fan_Provider: enumerateInstances failed: an unknown exception was thrown.");
}

TEST_F(ErrorText, ExceptionFromAMethod_NamesTheMethod) {
    fanScript.reset = [](const ACME_Fan*, auto&) -> int { throw std::logic_error("stuck."); };
    EXPECT_EQ(to_text(invoke("Reset")), "1: ACME_Fan_Provider: invokeMethod Reset failed: stuck.");
}

TEST_F(ErrorText, RequestAfterAnException_IsHandled) {
    EXPECT_EQ(enumerate_throwing(std::runtime_error("once.")).rc, CMPI_RC_ERR_FAILED);
    fanScript.enumInstances = nullptr;
    EXPECT_EQ(to_text(enumerate_fans()), "0");
}

TEST_F(ErrorText, InstancesDeliveredBeforeAnException_AreFreed) {
    fanScript.enumInstances = [](const ACME_Fan*, auto* handler) -> int {
        handler->handle(make_fan("a", 1));
        throw std::runtime_error("then it stopped.");
    };
    EXPECT_EQ(enumerate_fans().rc, CMPI_RC_ERR_FAILED);
    EXPECT_EQ(result.answers.size(), 1u);
}

TEST_F(ErrorText, UnknownStatus_IsFailed) {
    fanScript.enumInstances = [](const ACME_Fan*, auto*) { return 12345; };
    EXPECT_EQ(to_text(enumerate_fans()),
              "1: ACME_Fan_Provider: enumerateInstances failed: the provider reports a failure "
              "(status 12345).");
}

TEST_F(ErrorText, ServerThatMakesNoStrings_StillGetsTheCode) {
    broker.factories.newString = nullptr;
    EXPECT_EQ(to_text(enumerate_throwing(std::runtime_error("x"))), "1");
    broker.eft = nullptr;
    EXPECT_EQ(to_text(enumerate_throwing(std::runtime_error("x"))), "1");
}
