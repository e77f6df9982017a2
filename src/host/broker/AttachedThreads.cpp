#include <host/broker/AttachedThreads.h>
#include <host/objects/Objects.h>

namespace host {

CMPIContext* AttachedThreads::Prepare(const ContextEntries& entries) {
    Attachment attachment{std::make_unique<Arena>(classes), nullptr};
    auto object = std::make_unique<Object<CMPIContext>>(ContextData{entries});
    CMPIContext* const context = attachment.arena->Keep(std::move(object)).Get();
    const std::lock_guard lock(mutex);
    attachments.emplace(context, std::move(attachment));
    return context;
}

AttachedThreads::Attachment& AttachedThreads::Find(const CMPIContext* context) {
    const std::lock_guard lock(mutex);
    const auto found = attachments.find(context);
    if (found == attachments.end())
        throw Failure(CMPI_RC_ERR_INVALID_HANDLE, "The context was not prepared for a thread.");
    return found->second;
}

void AttachedThreads::Attach(const CMPIContext* context) {
    Attachment& attachment = Find(context);
    if (Arena::IsPresent() || attachment.scope)
        throw Failure(CMPI_RC_ERR_FAILED, "The thread, or the context, is attached already.");
    attachment.scope = std::make_unique<Arena::Scope>(*attachment.arena);
}

void AttachedThreads::Detach(const CMPIContext* context) {
    Attachment& attachment = Find(context);
    if (!attachment.scope || &Arena::Current() != attachment.arena.get())
        throw Failure(CMPI_RC_ERR_FAILED, "The thread was not attached with this context.");
    attachment.scope.reset();
    const std::lock_guard lock(mutex);
    attachments.erase(context);
}

}  // namespace host
