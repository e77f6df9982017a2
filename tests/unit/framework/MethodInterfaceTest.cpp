#include "Adapter_Fixture.h"

using cimple::Property;
using testing::ElementsAre;

namespace {

class MethodInterface : public Adapter_Fixture {
protected:
    // The output arguments as "Name=value".
    std::vector<std::string> outputs() const {
        std::vector<std::string> list;
        for (const auto& [name, data] : out->arguments) {
            list.push_back(name + "=" + fake::to_text(data));
        }
        return list;
    }
    // Lets Swap look at what it is given.
    void on_swap(const std::function<void(const ACME_Fan_Swap_method&)>& check) {
        fanScript.swap = [check](const ACME_Fan*, ACME_Fan_Swap_method& parameters) {
            check(parameters);
            return 0;
        };
    }
    fake::Args* args() { return broker.arena.args(); }
};

void expect_all_null(const ACME_Fan_Swap_method& parameters) {
    EXPECT_EQ(parameters.Neighbour, nullptr);
    EXPECT_EQ(parameters.Count.null, 1);
    EXPECT_EQ(parameters.Notes.null, 1);
}

}  // namespace

TEST_F(MethodInterface, Invoke_PassesTheTargetAndReturnsTheValue) {
    fanScript.reset = [](const ACME_Fan* self, Property<std::uint32_t>& returnValue) {
        EXPECT_TRUE(self->Id.value.equal("a"));
        EXPECT_EQ(self->Slot.value, 3);
        EXPECT_TRUE(self->name_space.equal("root/acme"));
        returnValue = 1;
        return 0;
    };
    EXPECT_EQ(to_text(invoke("Reset")), "0");
    EXPECT_THAT(result.answers, ElementsAre("1"));
    EXPECT_EQ(result.ends, 1);
    EXPECT_TRUE(outputs().empty());
}

TEST_F(MethodInterface, MethodNameInAnyLetterCase_IsFound) {
    fanScript.reset = [](const ACME_Fan*, Property<std::uint32_t>&) { return 0; };
    EXPECT_EQ(to_text(invoke("rESET")), "0");
}

TEST_F(MethodInterface, MissingReturnValue_IsLeftOut) {
    fanScript.reset = [](const ACME_Fan*, Property<std::uint32_t>&) { return 0; };
    EXPECT_EQ(to_text(invoke("Reset")), "0");
    EXPECT_TRUE(result.answers.empty());
    EXPECT_EQ(result.ends, 1);
}

TEST_F(MethodInterface, Arguments_AreTakenInAnyLetterCase) {
    on_swap([](const ACME_Fan_Swap_method& parameters) {
        ASSERT_NE(parameters.Neighbour, nullptr);
        EXPECT_EQ(parameters.Neighbour->meta_class, &ACME_Fan::static_meta_class);
        EXPECT_TRUE(parameters.Neighbour->Id.value.equal("a"));
        EXPECT_TRUE(parameters.Neighbour->name_space.equal("root/acme"));
        EXPECT_EQ(parameters.Count.value, 5);
        EXPECT_EQ(parameters.Notes.value, cimple::Array<cimple::String>({"x"}));
    });
    auto* const in = args();
    in->with("neighbour", broker.arena.ref_data(fan_path()));
    in->with("COUNT", fake::integer_data(CMPI_sint64, 5));
    in->with("Notes", broker.arena.array_data(CMPI_string, {broker.arena.string_data("x")}));
    EXPECT_EQ(to_text(invoke("Swap", in)), "0");
}

TEST_F(MethodInterface, NoArguments_AreAllNull) {
    on_swap(expect_all_null);
    EXPECT_EQ(to_text(invoke("Swap", nullptr)), "0");
    EXPECT_EQ(to_text(invoke("Swap", args())), "0");
}

TEST_F(MethodInterface, NullArguments_StayNull) {
    on_swap(expect_all_null);
    auto* const in = args();
    in->with("Neighbour", {CMPI_ref, CMPI_goodValue, {}});
    in->with("Count", fake::null_data(CMPI_uint8));
    in->with("Notes", fake::null_data(CMPI_ARRAY | CMPI_string));
    EXPECT_EQ(to_text(invoke("Swap", in)), "0");
}

TEST_F(MethodInterface, OutputArgumentInTheInput_IsPassedOver) {
    on_swap([](const ACME_Fan_Swap_method& parameters) { EXPECT_EQ(parameters.Report.null, 1); });
    EXPECT_EQ(to_text(invoke("Swap", args()->with("Report", broker.arena.string_data("x")))), "0");
}

TEST_F(MethodInterface, UnknownArgument_IsAnInvalidParameterThatIsNamed) {
    EXPECT_EQ(to_text(invoke("Swap", args()->with("Colour", fake::boolean_data(true)))),
              "4: ACME_Fan_Provider: invokeMethod Swap failed: the method Swap has no parameter "
              "\"Colour\".");
}

TEST_F(MethodInterface, ArgumentThatDoesNotFit_IsAnInvalidParameterThatIsNamed) {
    EXPECT_EQ(to_text(invoke("Swap", args()->with("Count", fake::integer_data(CMPI_uint16, 256)))),
              "4: ACME_Fan_Provider: invokeMethod Swap failed: the value of \"Count\" of Swap does "
              "not fit its type uint8.");
    EXPECT_EQ(to_text(invoke("Swap", args()->with("Neighbour", fake::boolean_data(true)))),
              "4: ACME_Fan_Provider: invokeMethod Swap failed: the value of \"Neighbour\" of Swap "
              "is not a reference.");
}

TEST_F(MethodInterface, ReferenceToAClassUnknownHere_BecomesTheDeclaredClass) {
    on_swap([](const ACME_Fan_Swap_method& parameters) {
        ASSERT_NE(parameters.Neighbour, nullptr);
        EXPECT_EQ(parameters.Neighbour->meta_class, &ACME_Device::static_meta_class);
        EXPECT_TRUE(parameters.Neighbour->Id.value.equal("p"));
    });
    auto* const pump = class_path("ACME_Pump")
                           ->with_key("Id", broker.arena.string_data("p"))
                           ->with_key("Pressure", fake::integer_data(CMPI_uint8, 1));
    EXPECT_EQ(to_text(invoke("Swap", args()->with("Neighbour", broker.arena.ref_data(pump)))), "0");
}

TEST_F(MethodInterface, ReferenceToAnotherClass_IsAnInvalidParameter) {
    const CMPIData reference = broker.arena.ref_data(class_path("ACME_Cools"));
    EXPECT_EQ(to_text(invoke("Swap", args()->with("Neighbour", reference))),
              "4: ACME_Fan_Provider: invokeMethod Swap failed: the class ACME_Cools does not "
              "derive from ACME_Device.");
}

TEST_F(MethodInterface, EmbeddedInstance_IsTakenForAReference) {
    on_swap([](const ACME_Fan_Swap_method& parameters) {
        ASSERT_NE(parameters.Neighbour, nullptr);
        EXPECT_TRUE(parameters.Neighbour->Caption.value.equal("left"));
        EXPECT_TRUE(parameters.Neighbour->Id.value.equal("a"));
    });
    auto* const instance = broker.arena.instance(fan_path());
    instance->with("Caption", broker.arena.string_data("left"));
    EXPECT_EQ(
        to_text(invoke("Swap", args()->with("Neighbour", broker.arena.instance_data(instance)))),
        "0");
}

TEST_F(MethodInterface, Outputs_AreArgumentsAndReferencesCompletePaths) {
    fanScript.swap = [](const ACME_Fan*, ACME_Fan_Swap_method& parameters) {
        parameters.Former = make_fan("old", 2);
        parameters.Report = "swapped";
        parameters.return_value = 4096;
        return 0;
    };
    EXPECT_EQ(to_text(invoke("Swap")), "0");
    EXPECT_THAT(outputs(), ElementsAre("Former=\"root/acme:ACME_Fan.Id=\"old\",Slot=2\"",
                                       "Report=\"swapped\""));
    EXPECT_EQ(out->arguments.at(0).second.type, CMPI_ref);
    EXPECT_THAT(result.answers, ElementsAre("4096"));
}

TEST_F(MethodInterface, OutputReference_KeepsItsOwnNameSpace) {
    fanScript.swap = [](const ACME_Fan*, ACME_Fan_Swap_method& parameters) {
        parameters.Former = make_fan("old", 2);
        parameters.Former->name_space = "root/other";
        return 0;
    };
    EXPECT_EQ(to_text(invoke("Swap")), "0");
    EXPECT_THAT(outputs(), ElementsAre("Former=\"root/other:ACME_Fan.Id=\"old\",Slot=2\""));
}

TEST_F(MethodInterface, OutputsWithoutAValue_AreLeftOut) {
    on_swap(expect_all_null);
    EXPECT_EQ(to_text(invoke("Swap")), "0");
    EXPECT_TRUE(outputs().empty());
}

TEST_F(MethodInterface, FailedMethod_IsFailedAndReturnsNothing) {
    fanScript.swap = [](const ACME_Fan*, ACME_Fan_Swap_method& parameters) {
        parameters.Former = make_fan("old", 2);
        parameters.return_value = 1;
        return 130;
    };
    EXPECT_EQ(to_text(invoke("Swap")),
              "1: ACME_Fan_Provider: invokeMethod Swap failed: the provider reports a failure "
              "(status 130).");
    EXPECT_TRUE(outputs().empty());
    EXPECT_TRUE(result.answers.empty());
    EXPECT_EQ(result.ends, 0);
}

TEST_F(MethodInterface, UnsupportedMethod_IsNotSupported) {
    EXPECT_EQ(to_text(invoke("Stop")),
              "7: ACME_Fan_Provider: invokeMethod Stop failed: the provider does not support it "
              "(status 131).");
}

TEST_F(MethodInterface, UnknownMethod_IsNotFound) {
    EXPECT_EQ(
        to_text(invoke("Explode")),
        "17: ACME_Fan_Provider: invokeMethod Explode failed: the class ACME_Fan has no method "
        "\"Explode\".");
}

TEST_F(MethodInterface, MethodThatTheProviderDoesNotKnow_IsNotFound) {
    fanScript.reset = [](const ACME_Fan*, Property<std::uint32_t>&) { return -1; };
    EXPECT_EQ(invoke("Reset").rc, CMPI_RC_ERR_METHOD_NOT_FOUND);
}

TEST_F(MethodInterface, MethodOfAClassWithoutMethods_IsNotFound) {
    const CMPIStatus status = cools.methods->ft->invokeMethod(
        cools.methods, &context, &result, class_path("ACME_Cools"), "Reset", nullptr, out);
    EXPECT_EQ(to_text(status),
              "17: ACME_Cools_Provider: invokeMethod Reset failed: the class ACME_Cools has no "
              "method \"Reset\".");
}
