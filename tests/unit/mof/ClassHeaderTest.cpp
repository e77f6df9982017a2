#include <gtest/gtest.h>
#include <mof/Reader.h>
#include <mof/generator/ClassHeader.h>

namespace {

constexpr const char* kClassText = R"(
class Job { [Key] string InstanceID; datetime Started; };
class Service : Job {
    [Override("InstanceID")] string InstanceID;
    Job REF Current;
    uint16 States[];
    uint32 Run(Job REF Before, [In(false), Out] Job REF After, [Out] boolean Done);
};
class Special : SERVICE { };
)";

TEST(ClassHeader, RootClass_DerivesFromInstance) {
    const auto schema = mof::ReadText(kClassText, "a.mof");
    EXPECT_EQ(mof::ClassHeader(schema, schema.classes[0]),
              R"(// Generated from MOF: changes belong there.
#pragma once

#include <framework/Datetime.h>
#include <framework/Instance.h>
#include <framework/Property.h>
#include <framework/String.h>

#include <cstdint>

class Job : public cimple::Instance {
public:
    cimple::Property<cimple::String> InstanceID;
    cimple::Property<cimple::Datetime> Started;

    using Methods = cimple::Method_List<>;

    static const cimple::Meta_Class static_meta_class;
};
)");
}

TEST(ClassHeader, ClassWithAMethod_DeclaresItsRecordFirst) {
    const auto schema = mof::ReadText(kClassText, "a.mof");
    EXPECT_EQ(mof::ClassHeader(schema, schema.classes[1]),
              R"(// Generated from MOF: changes belong there.
#pragma once

#include <framework/Array.h>
#include <framework/Instance.h>
#include <framework/Property.h>
#include <schema/Job.h>

#include <cstdint>

class Job;

class Service_Run_method : public cimple::Instance {
public:
    Job* Before = nullptr;
    Job* After = nullptr;
    cimple::Property<bool> Done;
    cimple::Property<std::uint32_t> return_value;

    // Calls the provider's method with the members of this record.
    template <class Provider, class Self>
    int invoke(Provider& provider, const Self* self) {
        return provider.Run(self, static_cast<const Job*>(Before), After, Done, return_value);
    }

    static const cimple::Meta_Class static_meta_class;
};

class Service : public Job {
public:
    Job* Current = nullptr;
    cimple::Property<cimple::Array<std::uint16_t>> States;

    using Methods = cimple::Method_List<
        Service_Run_method>;

    static const cimple::Meta_Class static_meta_class;
};
)");
}

TEST(ClassHeader, SubclassThatAddsNothing_ListsTheInheritedMethods) {
    const auto schema = mof::ReadText(kClassText, "a.mof");
    EXPECT_EQ(mof::ClassHeader(schema, schema.classes[2]),
              R"(// Generated from MOF: changes belong there.
#pragma once

#include <framework/Instance.h>
#include <framework/Property.h>
#include <schema/Service.h>

#include <cstdint>

class Special : public Service {
public:
    using Methods = cimple::Method_List<
        Service_Run_method>;

    static const cimple::Meta_Class static_meta_class;
};
)");
}

}  // namespace
