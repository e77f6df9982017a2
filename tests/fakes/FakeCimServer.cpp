#include <fakes/FakeCimServer.h>
#include <framework/cimom.h>

#include <map>

std::vector<std::string> FakeCimServer::calls;

namespace {

std::map<std::string, std::function<std::vector<cimple::Instance*>()>> scripts;

}  // namespace

void FakeCimServer::Reset() {
    calls.clear();
    scripts.clear();
}

void FakeCimServer::Script(const std::string& className,
                           std::function<std::vector<cimple::Instance*>()> instances) {
    scripts[className] = std::move(instances);
}

int cimple::cimom::enum_instances(const String& nameSpace, const Instance* model,
                                  Instance_Enumerator& enumerator) {
    const std::string className = model->meta_class->name;
    FakeCimServer::calls.push_back(std::string(nameSpace.c_str()) + ":" + className);
    const auto script = scripts.find(className);
    if (script == scripts.end()) return 1;
    std::vector<Instance_Ptr> answer;
    for (Instance* instance : script->second()) answer.emplace_back(instance);
    enumerator.assign(std::move(answer));
    return 0;
}
