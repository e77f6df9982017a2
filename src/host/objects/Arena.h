// Where the CMPI objects of a request live: they are freed together at the request's end.
#pragma once

#include <host/schema/ClassRepository.h>

#include <memory>
#include <vector>

namespace host {

// The common base of the objects behind CMPI handles.
class ObjectBase {
public:
    ObjectBase() = default;
    virtual ~ObjectBase() = default;
    ObjectBase(const ObjectBase&) = delete;
    ObjectBase& operator=(const ObjectBase&) = delete;

    bool isInArena = false;  // false for a clone, which lives until it is released
};

// An arena belongs to one thread, so it needs no lock.
class Arena {
public:
    explicit Arena(const ClassRepository& repository) : classes(repository) {}

    // The arena of the request that runs on this thread. Throws Failure when there is none.
    static Arena& Current();

    // True when a request runs on this thread.
    static bool IsPresent() noexcept;

    const ClassRepository& Classes() const { return classes; }

    // Keeps an object until the arena goes.
    template <class Kept>
    Kept& Keep(std::unique_ptr<Kept> object) {
        Kept& kept = *object;
        kept.isInArena = true;
        objects.push_back(std::move(object));
        return kept;
    }

    // Makes an arena the thread's current one as long as it lives; scopes nest.
    class Scope {
    public:
        explicit Scope(Arena& arena);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        Arena* const outer;
    };

private:
    const ClassRepository& classes;
    std::vector<std::unique_ptr<ObjectBase>> objects;
};

}  // namespace host
