#include <cimxml/codec/InstanceWriter.h>
#include <cimxml/codec/ValueWriter.h>
#include <cimxml/operations/InstanceOperations.h>
#include <cimxml/operations/ObjectDetail.h>

namespace cimxml {

namespace {

host::ObjectPath ClassPath(const Call& call) {
    return Located(call.nameSpace, {{}, call.parameters.RequiredClass("ClassName"), {}});
}

}  // namespace

void EnumerateInstances(const Call& call) {
    const host::ObjectPath classPath = ClassPath(call);
    const ObjectDetail detail(call.parameters);
    const host::ClassRepository& classes = call.nameSpace.Classes();
    const host::ClassInfo* const exposed =
        call.parameters.Flag("DeepInheritance", true) ? nullptr : classes.Find(classPath.className);
    const auto answer =
        Checked(call.nameSpace.EnumerateInstances(classPath, detail.Get().properties));
    for (const host::Instance& instance : answer.instances) {
        const auto element = call.xml.Open("VALUE.NAMEDINSTANCE");
        WriteInstanceName(call.xml, instance.path);
        WriteInstance(call.xml, classes, instance, detail.Get(), exposed);
    }
}

void EnumerateInstanceNames(const Call& call) {
    const auto answer = Checked(call.nameSpace.EnumerateInstanceNames(ClassPath(call)));
    for (const host::ObjectPath& name : answer.names) WriteInstanceName(call.xml, name);
}

void GetInstance(const Call& call) {
    const host::ObjectPath path =
        Located(call.nameSpace, call.parameters.RequiredInstance("InstanceName"));
    const ObjectDetail detail(call.parameters);
    const auto answer = Checked(call.nameSpace.GetInstance(path, detail.Get().properties));
    WriteInstance(call.xml, call.nameSpace.Classes(), answer.instances.front(), detail.Get());
}

}  // namespace cimxml
