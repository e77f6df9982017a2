#include <host/Status.h>
#include <host/objects/Arena.h>

#include <utility>

namespace host {

namespace {

thread_local Arena* current = nullptr;

}  // namespace

Arena& Arena::Current() {
    if (!current)
        throw Failure(
            CMPI_RC_ERR_FAILED,
            "No request runs on this thread; objects are made on a request's own thread.");
    return *current;
}

bool Arena::IsPresent() noexcept { return current != nullptr; }

Arena::Scope::Scope(Arena& arena) : outer(std::exchange(current, &arena)) {}

Arena::Scope::~Scope() { current = outer; }

}  // namespace host
