// Object paths in both directions.
#include "Adapter_Fixture.h"

using testing::ElementsAre;

namespace {

class ObjectPath : public Adapter_Fixture {
protected:
    // Deletes the fan of a path; `target` describes what the provider was given.
    CMPIStatus remove(fake::Path* path) {
        fanScript.deleteInstance = [this](const ACME_Fan* fan) {
            target = (fan->Id.null ? "null" : fan->Id.value.c_str()) + std::string(" ") +
                     (fan->Slot.null ? "null" : std::to_string(fan->Slot.value));
            return 0;
        };
        return fans.instances->ft->deleteInstance(fans.instances, &context, &result, path);
    }
    std::string names_of(const std::function<void(ACME_Fan&)>& set) {
        fanScript.enumInstances = [&](const ACME_Fan*, auto* handler) {
            auto* const fan = cimple::create<ACME_Fan>();
            set(*fan);
            handler->handle(fan);
            return 0;
        };
        fans.instances->ft->enumerateInstanceNames(fans.instances, &context, &result,
                                                   class_path("ACME_Fan"));
        return result.answers.at(0);
    }

    std::string target;
};

}  // namespace

TEST_F(ObjectPath, UnassignedKey_IsLeftOut) {
    EXPECT_EQ(names_of([](ACME_Fan& fan) { fan.Slot = 0; }), "root/acme:ACME_Fan.Slot=0");
}

TEST_F(ObjectPath, NoKey_IsAPathWithoutKeys) {
    EXPECT_EQ(names_of([](ACME_Fan&) {}), "root/acme:ACME_Fan");
}

TEST_F(ObjectPath, NameSpaceOfTheInstance_GoesBeforeThatOfTheRequest) {
    EXPECT_EQ(names_of([](ACME_Fan& fan) { fan.name_space = "root/other"; }),
              "root/other:ACME_Fan");
}

TEST_F(ObjectPath, KeysInAnyLetterCaseAndOrder_AreTaken) {
    EXPECT_EQ(to_text(remove(class_path("ACME_Fan")
                                 ->with_key("sLOT", fake::integer_data(CMPI_uint8, 3))
                                 ->with_key("ID", broker.arena.string_data("a")))),
              "0");
    EXPECT_EQ(target, "a 3");
}

TEST_F(ObjectPath, MissingAndNullKeys_StayNull) {
    EXPECT_EQ(to_text(remove(class_path("ACME_Fan"))), "0");
    EXPECT_EQ(target, "null null");
    EXPECT_EQ(to_text(remove(class_path("ACME_Fan")
                                 ->with_key("Id", fake::null_data(CMPI_string))
                                 ->with_key("Slot", fake::integer_data(CMPI_uint8, 3)))),
              "0");
    EXPECT_EQ(target, "null 3");
}

TEST_F(ObjectPath, IntegerKeyOfAnyWidth_IsTakenByValue) {
    for (const CMPIType type : {CMPI_uint8, CMPI_sint8, CMPI_uint16, CMPI_sint16, CMPI_uint32,
                                CMPI_sint32, CMPI_uint64, CMPI_sint64}) {
        EXPECT_EQ(to_text(remove(
                      class_path("ACME_Fan")->with_key("Slot", fake::integer_data(type, 100)))),
                  "0");
        EXPECT_EQ(target, "null 100") << type;
    }
}

TEST_F(ObjectPath, KeyFlag_MakesNoDifference) {
    CMPIData slot = fake::integer_data(CMPI_sint64, 7);
    slot.state = CMPI_keyValue;
    EXPECT_EQ(to_text(remove(class_path("ACME_Fan")->with_key("Slot", slot))), "0");
    EXPECT_EQ(target, "null 7");
}

TEST_F(ObjectPath, IntegerKeyOutOfRange_IsAnInvalidParameterThatIsNamed) {
    for (const long long value : {256LL, -1LL}) {
        const CMPIData slot = fake::integer_data(CMPI_sint64, value);
        EXPECT_EQ(to_text(remove(class_path("ACME_Fan")->with_key("Slot", slot))),
                  "4: ACME_Fan_Provider: deleteInstance failed: the value of \"Slot\" of ACME_Fan "
                  "does not fit its type uint8.");
    }
    EXPECT_EQ(target, "");
}

TEST_F(ObjectPath, KeyOfAnotherType_IsAnInvalidParameterThatIsNamed) {
    EXPECT_EQ(to_text(remove(class_path("ACME_Fan")->with_key("Id", fake::boolean_data(true)))),
              "4: ACME_Fan_Provider: deleteInstance failed: the value of \"Id\" of ACME_Fan does "
              "not fit its type string.");
}

TEST_F(ObjectPath, UnknownKey_IsAnInvalidParameterThatIsNamed) {
    EXPECT_EQ(
        to_text(remove(fan_path()->with_key("Colour", broker.arena.string_data("blue")))),
        "4: ACME_Fan_Provider: deleteInstance failed: the class ACME_Fan has no key \"Colour\".");
}

TEST_F(ObjectPath, UnknownKeyWithoutAValue_IsPassedOver) {
    EXPECT_EQ(to_text(remove(fan_path()
                                 ->with_key("Colour", broker.arena.string_data(""))
                                 ->with_key("Weight", fake::null_data(CMPI_uint16)))),
              "0");
    EXPECT_EQ(target, "a 3");
}
