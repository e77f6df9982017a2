#include <cimxml/operations/InteropInstances.h>
#include <cimxml/operations/InteropNameSpace.h>
#include <host/requests/InstanceRequests.h>
#include <host/requests/PathMatch.h>
#include <mof/Names.h>
#include <mof/Reader.h>

#include <algorithm>
#include <utility>

namespace cimxml {

namespace {

using host::Answered;
using host::AssociationQuery;
using host::ClassInfo;
using host::Failure;
using host::Instance;
using host::InstancesResult;
using host::NamesResult;
using host::ObjectPath;
using host::PropertyList;

constexpr const char* kDiagnosticService = "CIM_DiagnosticService";

mof::Schema ReadSchema(const std::string& path) {
    try {
        return mof::ReadFile(path);
    } catch (const mof::Error& error) {
        throw host::LoadError(std::string("The schema cannot be read: ") + error.what());
    }
}

std::vector<std::string> WithInterop(std::vector<std::string> names) {
    names.emplace_back(kInteropName);
    return names;
}

class Interop : public NameSpace {
public:
    Interop(const std::string& schema, const std::string& version,
            const std::vector<std::string>& names)
        : NameSpace(kInteropName),
          classes(ReadSchema(schema)),
          own(classes, version, WithInterop(names)) {}

    const host::ClassRepository& Classes() const override { return classes; }

    void Meet(const std::vector<const NameSpace*>& all) override { nameSpaces = all; }

    InstancesResult EnumerateInstances(const ObjectPath& classPath,
                                       PropertyList properties) const override {
        InstancesResult result;
        for (const Instance& instance : own.Objects())
            if (IsA(instance.path, classPath.className)) result.instances.push_back(instance);
        if (classes.Find(kConformance)->IsA(classPath.className))
            for (Instance& link : Links()) result.instances.push_back(std::move(link));
        host::KeepListed(result.instances, properties);
        return result;
    }

    NamesResult EnumerateInstanceNames(const ObjectPath& classPath) const override {
        NamesResult result;
        for (Instance& instance : EnumerateInstances(classPath, nullptr).instances)
            result.names.push_back(std::move(instance.path));
        return result;
    }

    InstancesResult GetInstance(const ObjectPath& path, PropertyList properties) const override {
        InstancesResult result = EnumerateInstances(path, properties);
        std::erase_if(result.instances, [&](const Instance& instance) {
            return !host::SameObject(instance.path, path);
        });
        if (result.instances.empty()) result.status = host::NoSuchInstance(path);
        return result;
    }

    InstancesResult Associators(const AssociationQuery& query,
                                PropertyList properties) const override {
        return Answered<InstancesResult>([&](InstancesResult& result) {
            for (const ObjectPath& end : OtherEnds(query))
                for (Instance& instance : Get(end, properties))
                    result.instances.push_back(std::move(instance));
        });
    }

    NamesResult AssociatorNames(const AssociationQuery& query) const override {
        return Answered<NamesResult>([&](NamesResult& result) { result.names = OtherEnds(query); });
    }

    InstancesResult References(const AssociationQuery& query,
                               PropertyList properties) const override {
        return Answered<InstancesResult>([&](InstancesResult& result) {
            result.instances = LinksOf(query);
            host::KeepListed(result.instances, properties);
        });
    }

    NamesResult ReferenceNames(const AssociationQuery& query) const override {
        return Answered<NamesResult>([&](NamesResult& result) {
            for (Instance& link : LinksOf(query)) result.names.push_back(std::move(link.path));
        });
    }

    host::MethodResult InvokeMethod(const ObjectPath& target, const std::string& method,
                                    const std::vector<host::NamedValue>&) const override {
        if (classes.Find(target.className)->FindMethod(method))
            return {{CMPI_RC_ERR_NOT_SUPPORTED,
                     "The method '" + method + "' of this server cannot be called."},
                    {},
                    {}};
        return {{CMPI_RC_ERR_METHOD_NOT_FOUND,
                 "The class '" + target.className + "' has no method '" + method + "'."},
                {},
                {}};
    }

private:
    // Of all namespaces that have diagnostic services; none if their enumeration fails.
    std::vector<ObjectPath> DiagnosticServices() const {
        std::vector<ObjectPath> services;
        for (const NameSpace* const other : nameSpaces) {
            if (other == this || !other->Classes().Find(kDiagnosticService)) continue;
            for (ObjectPath& path :
                 other->EnumerateInstanceNames({other->name, kDiagnosticService, {}}).names)
                services.push_back(std::move(path));
        }
        return services;
    }

    std::vector<Instance> Links() const { return own.Conformances(DiagnosticServices()); }

    // The object's namespace; this one if no other has it.
    const NameSpace& Home(const ObjectPath& path) const {
        const auto found =
            std::find_if(nameSpaces.begin(), nameSpaces.end(), [&](const NameSpace* candidate) {
                return mof::SameName(candidate->name, path.nameSpace);
            });
        return found == nameSpaces.end() ? *this : **found;
    }

    bool IsA(const ObjectPath& path, const std::string& className) const {
        const ClassInfo* const cls = Home(path).Classes().Find(path.className);
        return cls && cls->IsA(className);
    }

    std::vector<Instance> Get(const ObjectPath& path, PropertyList properties) const {
        return Home(path).GetInstance(path, properties).instances;
    }

    // The class of a filter may be one that only another namespace has.
    void RequireClass(const std::string& className) const {
        const auto knows = [&](const NameSpace* nameSpace) {
            return nameSpace->Classes().Find(className) != nullptr;
        };
        if (!className.empty() && !knows(this) &&
            std::none_of(nameSpaces.begin(), nameSpaces.end(), knows))
            throw Failure(CMPI_RC_ERR_INVALID_PARAMETER,
                          "The class '" + className + "' does not exist.");
    }

    std::vector<Instance> LinksOf(const AssociationQuery& query) const {
        RequireClass(query.associationClass);
        const ClassInfo& cls = *classes.Find(kConformance);
        if (!query.associationClass.empty() && !cls.IsA(query.associationClass)) return {};
        std::vector<Instance> links = Links();
        std::erase_if(links, [&](const Instance& link) { return !host::Holds(link, query); });
        return links;
    }

    std::vector<ObjectPath> OtherEnds(const AssociationQuery& query) const {
        RequireClass(query.resultClass);
        AssociationQuery ofAnyClass = query;
        ofAnyClass.resultClass.clear();
        std::vector<ObjectPath> ends;
        for (const Instance& link : LinksOf(query))
            for (ObjectPath& end : host::OtherEnds(classes, link, ofAnyClass))
                if (query.resultClass.empty() || IsA(end, query.resultClass))
                    host::AddNew(ends, std::move(end));
        return ends;
    }

    const host::ClassRepository classes;
    const InteropInstances own;
    std::vector<const NameSpace*> nameSpaces;
};

}  // namespace

std::unique_ptr<NameSpace> InteropNameSpace(const std::string& schema, const std::string& version,
                                            const std::vector<std::string>& names) {
    return std::make_unique<Interop>(schema, version, names);
}

}  // namespace cimxml
