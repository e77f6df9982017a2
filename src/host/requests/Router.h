// Finds the providers that serve a request.
#pragma once

#include <host/Message.h>
#include <host/Value.h>
#include <host/loading/Registration.h>
#include <host/schema/ClassRepository.h>

#include <functional>
#include <string>
#include <vector>

namespace host {

// A registered class, and the path under which its provider is asked: the class's name as declared,
// keys in the types of the class.
struct Target {
    const Registration* registration = nullptr;
    const ClassInfo* cls = nullptr;
    ObjectPath path;
};

class Router {
public:
    // Every registered class must belong to the repository.
    Router(const ClassRepository& repository, const std::vector<Registration>& registered);

    const ClassRepository& Classes() const { return classes; }

    // The class that the path names. Throws Failure for an unknown namespace or class.
    const ClassInfo& ClassOf(const ObjectPath& path) const;

    // The path's own class, if its provider has an interface of that type. Throws Failure.
    Target One(const ObjectPath& path, const std::string& type) const;

    // The path's class and those that derive from it, as far as providers enumerate them.
    // Throws Failure when there are none.
    std::vector<Target> WithSubclasses(const ObjectPath& classPath) const;

    // The class in that namespace, or a target without registration.
    Target Registered(const ClassInfo& cls, const std::string& nameSpace) const;

    // Every class that is registered in that namespace.
    std::vector<Target> All(const std::string& nameSpace) const;

private:
    const ClassRepository& classes;
    const std::vector<Registration>& registrations;
};

// Asks one target after the other. Those that throw Failure are left out, with a line to the sink;
// when all of them do, so does this.
void AskEach(const std::vector<Target>& targets, const MessageSink& sink,
             const std::function<void(const Target&)>& ask);

}  // namespace host
