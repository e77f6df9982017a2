// Every type of property on its way to the client.
#include "Adapter_Fixture.h"

using cimple::Datetime;
using testing::ElementsAre;

namespace {

class ValueWriter : public Adapter_Fixture {
protected:
    std::string instance_of(const std::function<void(ACME_Fan&)>& set) {
        fanScript.enumInstances = [&](const ACME_Fan*, auto* handler) {
            auto* const fan = cimple::create<ACME_Fan>();
            set(*fan);
            handler->handle(fan);
            return 0;
        };
        EXPECT_EQ(to_text(enumerate_fans()), "0");
        return result.answers.at(0);
    }
};

}  // namespace

TEST_F(ValueWriter, UnassignedProperties_AreSetToNull) {
    EXPECT_EQ(instance_of([](ACME_Fan&) {}),
              "root/acme:ACME_Fan {Id=null, Slot=null, Caption=null, Started=null, Tilt=null, "
              "Speed=null, Offset=null, Hours=null, Drift=null, Turns=null, Balance=null, "
              "Load=null, Power=null, Grade=null, Since=null, Levels=null, Labels=null}");
}

TEST_F(ValueWriter, EveryType_KeepsItsValueAndType) {
    EXPECT_EQ(instance_of([](ACME_Fan& fan) {
                  fan.Id = "a";
                  fan.Slot = 255;
                  fan.Caption = "";
                  fan.Started = true;
                  fan.Tilt = -128;
                  fan.Speed = 65535;
                  fan.Offset = -32768;
                  fan.Hours = 4294967295;
                  fan.Drift = -2147483647 - 1;
                  fan.Turns = UINT64_MAX;
                  fan.Balance = INT64_MIN;
                  fan.Load = 0.5F;
                  fan.Power = -2.25;
                  fan.Grade = u'A';
                  fan.Since = Datetime(0);
                  fan.Levels = {1, 65535};
                  fan.Labels = {"x", ""};
              }),
              "root/acme:ACME_Fan.Id=\"a\",Slot=255 {Id=\"a\", Slot=255, Caption=\"\", "
              "Started=true, Tilt=-128, Speed=65535, Offset=-32768, Hours=4294967295, "
              "Drift=-2147483648, Turns=18446744073709551615, Balance=-9223372036854775808, "
              "Load=0.500000, Power=-2.250000, Grade=U+65, Since=00000000000000.000000:000, "
              "Levels=[1,65535], Labels=[\"x\",\"\"]}");
}

TEST_F(ValueWriter, EmptyArray_IsNotNull) {
    EXPECT_THAT(instance_of([](ACME_Fan& fan) { fan.Levels = cimple::Array<std::uint16_t>(); }),
                testing::HasSubstr("Levels=[], Labels=null"));
}

TEST_F(ValueWriter, ServerWithoutFilters_GetsTheWantedPropertiesOnly) {
    fanScript.enumInstances = [](const ACME_Fan*, auto* handler) {
        handler->handle(make_fan("a", 1));
        return 0;
    };
    static CMPIInstanceFT table = *broker.arena.instance(nullptr)->ft;
    table.setPropertyFilter = nullptr;
    broker.factories.newInstance = [](const CMPIBroker* server, const CMPIObjectPath* path,
                                      CMPIStatus*) -> CMPIInstance* {
        auto& arena = const_cast<fake::Broker*>(static_cast<const fake::Broker*>(server))->arena;
        auto* const itsPath = const_cast<CMPIObjectPath*>(path);
        fake::Instance* const instance = arena.instance(static_cast<fake::Path*>(itsPath));
        instance->ft = &table;
        return instance;
    };
    const char* wanted[] = {"Speed", nullptr};
    EXPECT_EQ(to_text(enumerate_fans(wanted)), "0");
    EXPECT_THAT(result.answers, ElementsAre("root/acme:ACME_Fan.Id=\"a\",Slot=1 {Id=\"a\", Slot=1, "
                                            "Speed=null}"));
}
