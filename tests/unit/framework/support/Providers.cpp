#include "Providers.h"

#include <framework/dispatch.h>

Fan_Script fanScript;
Cools_Script coolsScript;

namespace {

template <class Provider, class Class, bool isAssociation>
constexpr cimple::Registration register_as(const char* name) {
    return {"ACME_Module", name, &cimple::dispatch<Provider, Class, isAssociation>,
            &Class::static_meta_class, nullptr};
}

}  // namespace

const cimple::Registration fanRegistration =
    register_as<ACME_Fan_Provider, ACME_Fan, false>("ACME_Fan_Provider");
const cimple::Registration coolsRegistration =
    register_as<ACME_Cools_Provider, ACME_Cools, true>("ACME_Cools_Provider");
const cimple::Registration deviceRegistration =
    register_as<ACME_Device_Provider, ACME_Device, false>("ACME_Device_Provider");

ACME_Fan_Provider::ACME_Fan_Provider() {
    if (fanScript.construct) fanScript.construct();
}

ACME_Fan_Provider::~ACME_Fan_Provider() {
    if (fanScript.destruct) fanScript.destruct();
}

int ACME_Fan_Provider::load() { return fanScript.load ? fanScript.load() : cimple::STATUS_OK; }

int ACME_Fan_Provider::unload() {
    return fanScript.unload ? fanScript.unload() : cimple::STATUS_OK;
}

int ACME_Fan_Provider::get_instance(const ACME_Fan* model, ACME_Fan*& instance) {
    if (fanScript.getInstance) return fanScript.getInstance(model, instance);
    return Default_Instance_Operations::get_instance(model, instance);
}

int ACME_Fan_Provider::enum_instances(const ACME_Fan* model,
                                      cimple::Enum_Instances_Handler<ACME_Fan>* handler) {
    ++requests;
    return fanScript.enumInstances ? fanScript.enumInstances(model, handler) : cimple::STATUS_OK;
}

int ACME_Fan_Provider::create_instance(ACME_Fan* instance) {
    if (fanScript.createInstance) return fanScript.createInstance(instance);
    return Default_Instance_Operations::create_instance(instance);
}

int ACME_Fan_Provider::delete_instance(const ACME_Fan* instance) {
    if (fanScript.deleteInstance) return fanScript.deleteInstance(instance);
    return Default_Instance_Operations::delete_instance(instance);
}

int ACME_Fan_Provider::modify_instance(const ACME_Fan* model, const ACME_Fan* instance) {
    if (fanScript.modifyInstance) return fanScript.modifyInstance(model, instance);
    return Default_Instance_Operations::modify_instance(model, instance);
}

int ACME_Fan_Provider::Reset(const ACME_Fan* self, cimple::Property<std::uint32_t>& return_value) {
    ++requests;
    return fanScript.reset(self, return_value);
}

int ACME_Fan_Provider::Swap(const ACME_Fan* self, const ACME_Device* Neighbour,
                            const cimple::Property<std::uint8_t>& Count,
                            const cimple::Property<cimple::Array<cimple::String>>& Notes,
                            ACME_Device*& Former, cimple::Property<cimple::String>& Report,
                            cimple::Property<std::uint32_t>& return_value) {
    ACME_Fan_Swap_method parameters;
    parameters.Neighbour = const_cast<ACME_Device*>(Neighbour);
    parameters.Count = Count;
    parameters.Notes = Notes;
    const int status = fanScript.swap(self, parameters);
    Former = parameters.Former;
    Report = parameters.Report;
    return_value = parameters.return_value;
    return status;
}

int ACME_Cools_Provider::enum_instances(const ACME_Cools* model,
                                        cimple::Enum_Instances_Handler<ACME_Cools>* handler) {
    return coolsScript.enumInstances ? coolsScript.enumInstances(model, handler)
                                     : cimple::STATUS_OK;
}

int ACME_Cools_Provider::enum_associator_names(
    const cimple::Instance* instance, const cimple::String& result_class,
    const cimple::String& role, const cimple::String& result_role,
    cimple::Enum_Associator_Names_Handler<cimple::Instance>* handler) {
    if (!coolsScript.associators) {
        return Default_Association_Operations::enum_associator_names(instance, result_class, role,
                                                                     result_role, handler);
    }
    return coolsScript.associators(instance, result_class, role, result_role,
                                   [&](cimple::Instance* found) { handler->handle(found); });
}

int ACME_Cools_Provider::enum_associators(
    const cimple::Instance* instance, const cimple::String& result_class,
    const cimple::String& role, const cimple::String& result_role,
    cimple::Enum_Associators_Handler<cimple::Instance>* handler) {
    if (!coolsScript.associators) {
        return Default_Association_Operations::enum_associators(instance, result_class, role,
                                                                result_role, handler);
    }
    return coolsScript.associators(instance, result_class, role, result_role,
                                   [&](cimple::Instance* found) { handler->handle(found); });
}

int ACME_Cools_Provider::enum_references(const cimple::Instance* instance, const ACME_Cools* model,
                                         const cimple::String& role,
                                         cimple::Enum_References_Handler<ACME_Cools>* handler) {
    if (!coolsScript.references) {
        return Default_Association_Operations::enum_references(instance, model, role, handler);
    }
    return coolsScript.references(instance, model, role, handler);
}
