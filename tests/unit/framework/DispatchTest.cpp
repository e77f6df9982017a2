#include <framework/Instance_Ptr.h>
#include <framework/dispatch.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "Providers.h"

using namespace cimple;
using testing::ElementsAre;

namespace {

using Arguments = std::vector<void*>;

int call(const Registration& registration, int operation, Arguments args = {}) {
    args.resize(8);
    return registration.proc(&registration, operation, args[0], args[1], args[2], args[3], args[4],
                             args[5], args[6], args[7]);
}

// The calls that an enumeration's callback got: class name or "end" and the status.
using Callbacks = std::vector<std::string>;

void record(Instance* instance, int status, void* callbacks) {
    const Instance_Ptr owned(instance);
    static_cast<Callbacks*>(callbacks)->push_back(
        std::string(instance == nullptr ? "end" : instance->meta_class->name) + " " +
        std::to_string(status));
}

void* callback() { return reinterpret_cast<void*>(&record); }

// A provider object of a registration.
class Provider_Object {
public:
    explicit Provider_Object(const Registration& owner) : registration(owner) {
        call(registration, OPERATION_CREATE_PROVIDER, {&object});
    }
    Provider_Object(const Provider_Object&) = delete;
    Provider_Object& operator=(const Provider_Object&) = delete;
    ~Provider_Object() { call(registration, OPERATION_DESTROY_PROVIDER, {object}); }

    int operator()(int operation, const Arguments& arguments = {}) const {
        Arguments all = {object};
        all.insert(all.end(), arguments.begin(), arguments.end());
        return call(registration, operation, all);
    }

private:
    const Registration& registration;
    void* object = nullptr;
};

class DispatchTest : public testing::Test {
protected:
    DispatchTest() {
        fanScript = {};
        coolsScript = {};
    }
    ~DispatchTest() override {
        fanScript = {};
        EXPECT_EQ(instance_count(), before);
    }

    std::uint64_t before = instance_count();
    Callbacks callbacks;
};

}  // namespace

TEST_F(DispatchTest, MetaClassAndRepository_AreStoredIntoTheSlot) {
    const Meta_Class* metaClass = nullptr;
    EXPECT_EQ(call(fanRegistration, 0, {&metaClass}), 0);
    EXPECT_EQ(metaClass, &ACME_Fan::static_meta_class);
    const Meta_Repository* repository = nullptr;
    EXPECT_EQ(call(fanRegistration, 13, {&repository}), 0);
    EXPECT_EQ(repository, ACME_Fan::static_meta_class.repository);
}

TEST_F(DispatchTest, ThrowingConstructor_LetsTheExceptionPassAndLeavesTheSlot) {
    fanScript.construct = [] { throw std::runtime_error("no fan"); };
    void* object = nullptr;
    EXPECT_THROW(call(fanRegistration, 1, {&object}), std::runtime_error);
    EXPECT_EQ(object, nullptr);
}

TEST_F(DispatchTest, Destroy_OfNull_DoesNothing) {
    int destroyed = 0;
    fanScript.destruct = [&] { ++destroyed; };
    EXPECT_EQ(call(fanRegistration, 2, {nullptr}), 0);
    EXPECT_EQ(destroyed, 0);
    { const Provider_Object fan(fanRegistration); }
    EXPECT_EQ(destroyed, 1);
}

TEST_F(DispatchTest, LoadAndUnload_GiveTheProvidersStatus) {
    fanScript.load = [] { return 7; };
    fanScript.unload = [] { return 8; };
    const Provider_Object fan(fanRegistration);
    EXPECT_EQ(fan(3), 7);
    EXPECT_EQ(fan(4), 8);
}

TEST_F(DispatchTest, DefaultOperations_GiveTheirUnsupportedCodes) {
    const Provider_Object device(deviceRegistration);
    ACME_Device* instance = nullptr;
    EXPECT_EQ(device(3), 0);
    EXPECT_EQ(device(4), 0);
    EXPECT_EQ(device(5, {nullptr, &instance}), 61);
    EXPECT_EQ(instance, nullptr);
    EXPECT_EQ(device(7), 81);
    EXPECT_EQ(device(8), 91);
    EXPECT_EQ(device(9), 101);
}

TEST_F(DispatchTest, EmptyEnumeration_EndsOnceWithSuccess) {
    const Provider_Object device(deviceRegistration);
    EXPECT_EQ(device(6, {nullptr, callback(), &callbacks}), 0);
    EXPECT_THAT(callbacks, ElementsAre("end 0"));
}

TEST_F(DispatchTest, Enumeration_DeliversInstancesThenTheStatus) {
    fanScript.enumInstances = [](const ACME_Fan*, Enum_Instances_Handler<ACME_Fan>* handler) {
        handler->handle(create<ACME_Fan>());
        handler->handle(create<ACME_Fan>());
        return 70;
    };
    const Provider_Object fan(fanRegistration);
    EXPECT_EQ(fan(6, {nullptr, callback(), &callbacks}), 70);
    EXPECT_THAT(callbacks, ElementsAre("ACME_Fan 0", "ACME_Fan 0", "end 70"));
}

TEST_F(DispatchTest, Get_StoresTheInstanceIntoTheSlot) {
    fanScript.getInstance = [](const ACME_Fan* model, ACME_Fan*& instance) {
        instance = static_cast<ACME_Fan*>(clone(model));
        return 0;
    };
    const Provider_Object fan(fanRegistration);
    const Instance_Ptr model(create<ACME_Fan>());
    ACME_Fan* instance = nullptr;
    EXPECT_EQ(fan(5, {model.get(), &instance}), 0);
    ASSERT_NE(instance, nullptr);
    destroy(instance);
}

TEST_F(DispatchTest, CreateDeleteAndModify_PassTheirInstances) {
    const Instance_Ptr first(create<ACME_Fan>());
    const Instance_Ptr second(create<ACME_Fan>());
    fanScript.createInstance = [&](ACME_Fan* instance) { return instance == first.get() ? 1 : 0; };
    fanScript.deleteInstance = [&](const ACME_Fan* instance) {
        return instance == first.get() ? 2 : 0;
    };
    fanScript.modifyInstance = [&](const ACME_Fan* model, const ACME_Fan* instance) {
        return model == first.get() && instance == second.get() ? 3 : 0;
    };
    const Provider_Object fan(fanRegistration);
    EXPECT_EQ(fan(7, {first.get()}), 1);
    EXPECT_EQ(fan(8, {first.get()}), 2);
    EXPECT_EQ(fan(9, {first.get(), second.get()}), 3);
}

TEST_F(DispatchTest, Method_IsCalledWithTheMembersOfItsRecord) {
    const Instance_Ptr self(create<ACME_Fan>());
    const Instance_Ptr record(create<ACME_Fan_Swap_method>());
    auto* parameters = static_cast<ACME_Fan_Swap_method*>(record.get());
    parameters->Neighbour = create<ACME_Device>();
    parameters->Count = 5;
    fanScript.swap = [&](const ACME_Fan* target, ACME_Fan_Swap_method& given) {
        EXPECT_EQ(target, self.get());
        EXPECT_EQ(given.Neighbour, parameters->Neighbour);
        EXPECT_EQ(given.Count.value, 5);
        given.Former = create<ACME_Device>();
        given.Report = "swapped";
        given.return_value = 9;
        return 0;
    };
    const Provider_Object fan(fanRegistration);
    EXPECT_EQ(fan(10, {self.get(), record.get()}), 0);
    EXPECT_NE(parameters->Former, nullptr);
    EXPECT_TRUE(parameters->Report.value.equal("swapped"));
    EXPECT_EQ(parameters->return_value.value, 9u);
}

TEST_F(DispatchTest, MethodNameInAnyLetterCase_IsFound) {
    fanScript.reset = [](const ACME_Fan*, Property<std::uint32_t>&) { return 130; };
    Meta_Class shouting = ACME_Fan_Reset_method::static_meta_class;
    shouting.name = "RESET";
    const Instance_Ptr record(create(&shouting, false));
    const Provider_Object fan(fanRegistration);
    EXPECT_EQ(fan(10, {nullptr, record.get()}), 130);
}

TEST_F(DispatchTest, UnsupportedMethod_Gives131) {
    const Instance_Ptr record(create<ACME_Fan_Stop_method>());
    const Provider_Object fan(fanRegistration);
    EXPECT_EQ(fan(10, {nullptr, record.get()}), 131);
}

TEST_F(DispatchTest, UnknownMethod_GivesNoSuchOperationAndLeavesTheRecord) {
    Meta_Class unknown = ACME_Fan_Reset_method::static_meta_class;
    unknown.name = "Explode";
    const Instance_Ptr record(create(&unknown, false));
    const Provider_Object fan(fanRegistration);
    EXPECT_EQ(fan(10, {nullptr, record.get()}), -1);
    EXPECT_EQ(static_cast<ACME_Fan_Reset_method*>(record.get())->return_value.null, 1);
}

TEST_F(DispatchTest, MethodOfAClassWithoutMethods_GivesNoSuchOperation) {
    const Instance_Ptr record(create<ACME_Fan_Reset_method>());
    const Provider_Object device(deviceRegistration);
    EXPECT_EQ(device(10, {nullptr, record.get()}), -1);
}

TEST_F(DispatchTest, UnknownOperation_GivesNoSuchOperation) {
    const Provider_Object fan(fanRegistration);
    const Provider_Object cools(coolsRegistration);
    for (const int operation : {-1, 11, 12, 17, 1000}) {
        EXPECT_EQ(fan(operation), -1) << operation;
        EXPECT_EQ(cools(operation), -1) << operation;
    }
}

TEST_F(DispatchTest, AssociationOperationOfAnotherClass_GivesNoSuchOperation) {
    const Provider_Object fan(fanRegistration);
    for (const int operation : {14, 15, 16}) EXPECT_EQ(fan(operation), -1) << operation;
}

TEST_F(DispatchTest, UnsupportedAssociationOperation_MakesNoEndCallback) {
    const Provider_Object cools(coolsRegistration);
    String text;
    EXPECT_EQ(cools(14, {nullptr, &text, &text, &text, callback(), &callbacks}), 111);
    EXPECT_EQ(cools(15, {nullptr, nullptr, &text, callback(), &callbacks}), 121);
    EXPECT_EQ(cools(16, {nullptr, &text, &text, &text, callback(), &callbacks}), 171);
    EXPECT_TRUE(callbacks.empty());
}

TEST_F(DispatchTest, AssociationOperations_DeliverAndEnd) {
    const Instance_Ptr source(create<ACME_Fan>());
    coolsScript.associators = [&](const Instance* given, const String& resultClass,
                                  const String& role, const String& resultRole,
                                  const std::function<void(Instance*)>& handle) {
        EXPECT_EQ(given, source.get());
        EXPECT_TRUE(resultClass.equal("class") && role.equal("role") && resultRole.equal("other"));
        handle(create<ACME_Device>());
        return 5;
    };
    coolsScript.references = [&](const Instance* given, const ACME_Cools* model, const String& role,
                                 Enum_References_Handler<ACME_Cools>* handler) {
        EXPECT_EQ(given, source.get());
        EXPECT_EQ(model, nullptr);
        EXPECT_TRUE(role.equal("role"));
        handler->handle(create<ACME_Cools>());
        return 0;
    };
    String resultClass = "class";
    String role = "role";
    String resultRole = "other";
    const Provider_Object cools(coolsRegistration);
    for (const int operation : {14, 16}) {
        EXPECT_EQ(cools(operation,
                        {source.get(), &resultClass, &role, &resultRole, callback(), &callbacks}),
                  5);
    }
    EXPECT_EQ(cools(15, {source.get(), nullptr, &role, callback(), &callbacks}), 0);
    EXPECT_THAT(callbacks, ElementsAre("ACME_Device 0", "end 5", "ACME_Device 0", "end 5",
                                       "ACME_Cools 0", "end 0"));
}

TEST_F(DispatchTest, DefaultOperations_AddNoVirtualFunctions) {
    EXPECT_FALSE(std::is_polymorphic_v<ACME_Device_Provider>);
    EXPECT_TRUE(std::is_empty_v<ACME_Device_Provider>);
}
