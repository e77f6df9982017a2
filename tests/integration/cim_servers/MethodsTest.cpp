// Methods: arguments in the forms in which servers pass them, and what is refused.
#include "ServerTest.h"

namespace {

using testing::ElementsAre;

class Methods : public ServerTest {
protected:
    CMPIData Integer(long long value) const {
        return fake::integer_data(GetParam().integerType, value);
    }
};

std::vector<std::string> MethodsOf(const host::ClassRepository& classes, const std::string& name) {
    std::vector<std::string> methods;
    const mof::Schema& schema = classes.Schema();
    for (const auto& method : mof::AllMethods(schema, *schema.Find(name)))
        methods.push_back(method.member->name);
    return methods;
}

}  // namespace

FOR_EVERY_SERVER(Methods);

TEST_P(Methods, NullArguments_GivenOrLeftOut_AreTheSame) {
    const Server::FillArguments forms[] = {
        {},
        [](fake::Args&, fake::Arena&) {},
        [](fake::Args& in, fake::Arena&) {
            in.with("ManagedElement", fake::null_data(CMPI_ref));
            in.with("DiagSetting", fake::null_data(CMPI_null));
            in.with("JobSetting", {CMPI_ref, CMPI_goodValue, {}});
        },
        [](fake::Args& in, fake::Arena&) { in.with("Job", fake::null_data(CMPI_ref)); },
    };
    for (const auto& fill : forms) {
        const Reply run = server.InvokeMethod(kServicePath, "RunDiagnostic", fill);
        EXPECT_TRUE(run.IsOk()) << run;
        EXPECT_THAT(run.values, ElementsAre("1"));
    }
}

TEST_P(Methods, ReferenceArguments_AreTaken) {
    const Reply run =
        server.InvokeMethod(kServicePath, "RunDiagnostic", [](fake::Args& in, fake::Arena& arena) {
            in.with("MANAGEDELEMENT",
                    arena.ref_data(
                        arena.path(GetParam().nameSpace, "QUVSG_BMCI2C_ManagedSystemElement")
                            ->with_key("DeviceID", arena.string_data("I2C Bus"))
                            ->with_key("SystemName", arena.string_data(""))));
            in.with("DiagSetting",
                    arena.ref_data(arena.path(GetParam().nameSpace, "Other_Setting")));
        });
    EXPECT_TRUE(run.IsOk()) << run;
}

TEST_P(Methods, IntegerArgumentOfTheServersWidth_IsTaken) {
    const Reply reply =
        server.InvokeMethod({kJob, {}}, "RequestStateChange", [this](fake::Args& in, fake::Arena&) {
            CMPIData state = Integer(4);
            state.state = GetParam().keyState;
            in.with("RequestedState", state);
        });
    EXPECT_EQ(ToText(reply),
              "7: QUVSG_BMCI2C_ConcreteJob_Provider: invokeMethod RequestStateChange failed: the "
              "provider does not support it (status 131).");
}

TEST_P(Methods, EveryMethodButRunDiagnostic_IsNotSupported) {
    for (const std::string& className : server.ModuleClasses()) {
        for (const std::string& method : MethodsOf(server.Classes(), className)) {
            if (method == "RunDiagnostic") continue;
            EXPECT_EQ(ToText(server.InvokeMethod({className, {}}, method)),
                      "7: " + className + "_Provider: invokeMethod " + method +
                          " failed: the provider does not support it (status 131).");
        }
    }
}

TEST_P(Methods, RunDiagnosticOfAnotherClass_IsNotFound) {
    for (const std::string& className : server.ModuleClasses()) {
        if (className == kService) continue;
        EXPECT_EQ(ToText(server.InvokeMethod({className, {}}, "RunDiagnostic")),
                  "17: " + className + "_Provider: invokeMethod RunDiagnostic failed: the class " +
                      className + " has no method \"RunDiagnostic\".");
    }
}
