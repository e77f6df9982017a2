#include <cimxml/codec/InstanceWriter.h>
#include <cimxml/codec/ValueWriter.h>
#include <cimxml/operations/Answers.h>
#include <cimxml/operations/InstanceOperations.h>
#include <cimxml/operations/ObjectDetail.h>

namespace cimxml {

void EnumerateInstances(const Call& call) {
    ForEachInstance(call, [&](const host::Instance& instance, const Detail& detail,
                              const host::ClassInfo* exposed) {
        const auto element = call.xml.Open("VALUE.NAMEDINSTANCE");
        WriteInstanceName(call.xml, instance.path);
        WriteInstance(call.xml, call.nameSpace.Classes(), instance, detail, exposed);
    });
}

void EnumerateInstanceNames(const Call& call) {
    ForEachInstanceName(call,
                        [&](const host::ObjectPath& name) { WriteInstanceName(call.xml, name); });
}

void GetInstance(const Call& call) {
    const host::ObjectPath path =
        Located(call.nameSpace, call.parameters.RequiredInstance("InstanceName"));
    const ObjectDetail detail(call.parameters);
    const auto answer = Checked(call.nameSpace.GetInstance(path, detail.Get().properties));
    WriteInstance(call.xml, call.nameSpace.Classes(), answer.instances.front(), detail.Get());
}

}  // namespace cimxml
