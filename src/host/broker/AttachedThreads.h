// Threads of their own that providers attach to the broker: each has an arena for its objects.
#pragma once

#include <cmpi/cmpi.h>
#include <host/objects/Arena.h>
#include <host/requests/ProviderCall.h>

#include <map>
#include <memory>
#include <mutex>

namespace host {

class AttachedThreads {
public:
    explicit AttachedThreads(const ClassRepository& repository) : classes(repository) {}

    // Makes a context for a thread that is to be attached. It stays valid until the thread is
    // detached, at the longest until the host ends.
    CMPIContext* Prepare(const ContextEntries& entries);

    // Makes the calling thread able to make objects and up-calls. Throws Failure when the context
    // was not prepared, or a request runs on the thread already.
    void Attach(const CMPIContext* context);

    // Frees everything that the calling thread made. Throws Failure when it was not attached with
    // that context.
    void Detach(const CMPIContext* context);

private:
    struct Attachment {
        std::unique_ptr<Arena> arena;
        std::unique_ptr<Arena::Scope> scope;  // while the thread is attached
    };

    Attachment& Find(const CMPIContext* context);

    const ClassRepository& classes;
    std::mutex mutex;  // guards the map; an attachment belongs to its thread
    std::map<const CMPIContext*, Attachment> attachments;
};

}  // namespace host
