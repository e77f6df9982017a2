// Every type of property on its way to the provider.
#include <cfloat>
#include <cmath>

#include "Adapter_Fixture.h"

using fake::integer_data;

namespace {

class ValueReader : public Adapter_Fixture {
protected:
    // Creates a fan with one property; check looks at what the provider is given.
    std::string create_with(const char* name, const CMPIData& data,
                            const std::function<void(const ACME_Fan&)>& check) {
        fanScript.createInstance = [&](ACME_Fan* fan) {
            check(*fan);
            return 0;
        };
        auto* const source = broker.arena.instance(class_path("ACME_Fan"))->with(name, data);
        return to_text(fans.instances->ft->createInstance(fans.instances, &context, &result,
                                                          class_path("ACME_Fan"), source));
    }
    // The same for a value that must be refused; the text is that of the whole status.
    void expect_refusal(const char* name, const CMPIData& data, const std::string& type) {
        EXPECT_EQ(create_with(name, data, [](const ACME_Fan&) { ADD_FAILURE(); }),
                  "4: ACME_Fan_Provider: createInstance failed: the value of \"" +
                      std::string(name) + "\" of ACME_Fan does not fit its type " + type + ".");
    }
};

}  // namespace

TEST_F(ValueReader, IntegersAtTheirLimits_AreTaken) {
    EXPECT_EQ(create_with("Tilt", integer_data(CMPI_sint64, -128),
                          [](const ACME_Fan& fan) { EXPECT_EQ(fan.Tilt.value, -128); }),
              "0");
    EXPECT_EQ(create_with("Speed", integer_data(CMPI_uint64, 65535),
                          [](const ACME_Fan& fan) { EXPECT_EQ(fan.Speed.value, 65535); }),
              "0");
    EXPECT_EQ(create_with("Turns", integer_data(CMPI_uint64, -1),
                          [](const ACME_Fan& fan) { EXPECT_EQ(fan.Turns.value, UINT64_MAX); }),
              "0");
    EXPECT_EQ(create_with("Balance", integer_data(CMPI_sint64, INT64_MIN),
                          [](const ACME_Fan& fan) { EXPECT_EQ(fan.Balance.value, INT64_MIN); }),
              "0");
    EXPECT_EQ(create_with("Balance", integer_data(CMPI_sint8, -5),
                          [](const ACME_Fan& fan) { EXPECT_EQ(fan.Balance.value, -5); }),
              "0");
}

TEST_F(ValueReader, IntegersBeyondTheirLimits_AreRefused) {
    expect_refusal("Tilt", integer_data(CMPI_sint16, -129), "sint8");
    expect_refusal("Slot", integer_data(CMPI_uint16, 256), "uint8");
    expect_refusal("Offset", integer_data(CMPI_uint16, 32768), "sint16");
    expect_refusal("Speed", integer_data(CMPI_sint32, 65536), "uint16");
    expect_refusal("Drift", integer_data(CMPI_uint32, 2147483648LL), "sint32");
    expect_refusal("Hours", integer_data(CMPI_sint8, -1), "uint32");
    expect_refusal("Balance", integer_data(CMPI_uint64, -1), "sint64");
    expect_refusal("Turns", integer_data(CMPI_sint64, -1), "uint64");
}

TEST_F(ValueReader, ValuesOfAnotherKind_AreRefused) {
    expect_refusal("Speed", fake::boolean_data(true), "uint16");
    expect_refusal("Speed", broker.arena.string_data("5"), "uint16");
    expect_refusal("Started", integer_data(CMPI_uint8, 1), "boolean");
    expect_refusal("Load", integer_data(CMPI_uint8, 1), "real32");
    expect_refusal("Grade", integer_data(CMPI_uint16, 65), "char16");
    expect_refusal("Caption", integer_data(CMPI_uint16, 65), "string");
    expect_refusal("Since", integer_data(CMPI_uint64, 0), "datetime");
    expect_refusal("Levels", integer_data(CMPI_uint16, 1), "uint16[]");
    expect_refusal("Caption", broker.arena.array_data(CMPI_string, {}), "string");
}

TEST_F(ValueReader, BooleansAndCharacters_AreTaken) {
    EXPECT_EQ(create_with("Started", fake::boolean_data(false),
                          [](const ACME_Fan& fan) {
                              EXPECT_FALSE(fan.Started.value);
                              EXPECT_EQ(fan.Started.null, 0);
                          }),
              "0");
    EXPECT_EQ(create_with("Grade", fake::char16_data(u'Z'),
                          [](const ACME_Fan& fan) { EXPECT_EQ(fan.Grade.value, u'Z'); }),
              "0");
}

TEST_F(ValueReader, RealsOfEitherWidth_AreTaken) {
    EXPECT_EQ(create_with("Load", fake::real64_data(0.25),
                          [](const ACME_Fan& fan) { EXPECT_EQ(fan.Load.value, 0.25F); }),
              "0");
    EXPECT_EQ(create_with("Power", fake::real32_data(0.25F),
                          [](const ACME_Fan& fan) { EXPECT_EQ(fan.Power.value, 0.25); }),
              "0");
    EXPECT_EQ(create_with("Load", fake::real64_data(INFINITY),
                          [](const ACME_Fan& fan) { EXPECT_TRUE(std::isinf(fan.Load.value)); }),
              "0");
}

TEST_F(ValueReader, RealTooLargeForItsProperty_IsRefused) {
    expect_refusal("Load", fake::real64_data(DBL_MAX), "real32");
}

TEST_F(ValueReader, TextsOfBothKinds_AreTaken) {
    const auto check = [](const ACME_Fan& fan) { EXPECT_TRUE(fan.Caption.value.equal("left")); };
    EXPECT_EQ(create_with("Caption", broker.arena.string_data("left"), check), "0");
    EXPECT_EQ(create_with("Caption", broker.arena.chars_data("left"), check), "0");
}

TEST_F(ValueReader, DatetimesAsObjectsAndAsText_AreTaken) {
    const char* const text = "20260203040506.000789+120";
    const auto check = [&](const ACME_Fan& fan) { EXPECT_EQ(fan.Since.value.to_string(), text); };
    EXPECT_EQ(create_with("Since", broker.arena.date_time_data(text), check), "0");
    EXPECT_EQ(create_with("Since", broker.arena.string_data(text), check), "0");
    EXPECT_EQ(create_with("Since", broker.arena.chars_data(text), check), "0");
}

TEST_F(ValueReader, MalformedDatetime_IsRefused) {
    expect_refusal("Since", broker.arena.date_time_data("soon"), "datetime");
    expect_refusal("Since", broker.arena.string_data("soon"), "datetime");
}

TEST_F(ValueReader, Arrays_AreTakenElementByElement) {
    const CMPIData levels = broker.arena.array_data(
        CMPI_uint32, {integer_data(CMPI_uint32, 1), integer_data(CMPI_uint32, 65535)});
    EXPECT_EQ(create_with("Levels", levels,
                          [](const ACME_Fan& fan) {
                              EXPECT_EQ(fan.Levels.value, cimple::Array<std::uint16_t>({1, 65535}));
                          }),
              "0");
}

TEST_F(ValueReader, NullElementOfAnArray_IsTheTypesZero) {
    const CMPIData labels = broker.arena.array_data(
        CMPI_string, {broker.arena.string_data("a"), fake::null_data(CMPI_string)});
    EXPECT_EQ(create_with("Labels", labels,
                          [](const ACME_Fan& fan) {
                              EXPECT_EQ(fan.Labels.value, cimple::Array<cimple::String>({"a", ""}));
                          }),
              "0");
}

TEST_F(ValueReader, EmptyArray_IsNotNull) {
    EXPECT_EQ(create_with("Labels", broker.arena.array_data(CMPI_string, {}),
                          [](const ACME_Fan& fan) {
                              EXPECT_EQ(fan.Labels.null, 0);
                              EXPECT_TRUE(fan.Labels.value.empty());
                          }),
              "0");
}

TEST_F(ValueReader, ElementThatDoesNotFit_RefusesTheArray) {
    expect_refusal("Levels",
                   broker.arena.array_data(CMPI_uint32, {integer_data(CMPI_uint32, 65536)}),
                   "uint16[]");
}

TEST_F(ValueReader, EveryFormOfNull_StaysNull) {
    const CMPIData nulls[] = {fake::null_data(CMPI_string),      {CMPI_null, CMPI_goodValue, {}},
                              {CMPI_string, CMPI_notFound, {}},  {CMPI_string, CMPI_badValue, {}},
                              {CMPI_string, CMPI_goodValue, {}}, {CMPI_chars, CMPI_goodValue, {}}};
    for (const CMPIData& data : nulls) {
        EXPECT_EQ(create_with("Caption", data,
                              [](const ACME_Fan& fan) { EXPECT_EQ(fan.Caption.null, 1); }),
                  "0")
            << data.type << " " << data.state;
    }
}

TEST_F(ValueReader, UnknownProperty_IsPassedOver) {
    EXPECT_EQ(create_with("Colour", broker.arena.string_data("blue"), [](const ACME_Fan&) {}), "0");
}
