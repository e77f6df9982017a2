#include <cimxml/operations/CimStatus.h>
#include <cimxml/operations/EnumerationSessions.h>
#include <host/Status.h>
#include <mof/Names.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <random>
#include <utility>

namespace cimxml {

namespace {

constexpr int kWordsOfContext = 4;  // of 32 bits
constexpr int kHexadecimal = 16;

std::string NewContext() {
    std::random_device random;  // the kernel's generator
    std::string context;
    for (int word = 0; word < kWordsOfContext; ++word) {
        std::array<char, 8> digits;
        const auto end = std::to_chars(digits.begin(), digits.end(), random(), kHexadecimal).ptr;
        context.append(static_cast<std::size_t>(digits.end() - end), '0');
        context.append(digits.begin(), end);
    }
    return context;
}

std::vector<std::string> TakeFirst(std::deque<std::string>& objects, std::size_t count) {
    const auto end = objects.begin() + static_cast<std::ptrdiff_t>(std::min(count, objects.size()));
    std::vector<std::string> taken(std::make_move_iterator(objects.begin()),
                                   std::make_move_iterator(end));
    objects.erase(objects.begin(), end);
    return taken;
}

[[noreturn]] void FailUnknown(const std::string& context) {
    throw host::Failure(kInvalidEnumerationContext, "No enumeration is open under the context '" +
                                                        context +
                                                        "'. It may have ended, or timed out.");
}

}  // namespace

EnumerationSessions::Piece EnumerationSessions::Open(Content content, std::size_t count) {
    Piece piece{TakeFirst(content.objects, count), {}};
    if (content.objects.empty()) return piece;
    const std::lock_guard lock(mutex);
    RemoveAbandoned();
    if (sessions.size() >= kMaxSessions)
        throw host::Failure(kServerLimitsExceeded,
                            "This server keeps " + std::to_string(kMaxSessions) +
                                " enumerations open at most. Try again later, or ask for more "
                                "objects at once.");
    piece.context = NewContext();
    const auto end = now() + content.timeout;
    sessions.insert_or_assign(piece.context, Session{std::move(content), end});
    return piece;
}

EnumerationSessions::Piece EnumerationSessions::Pull(const std::string& context, Kind kind,
                                                     const std::string& nameSpace,
                                                     std::size_t count) {
    const std::lock_guard lock(mutex);
    const auto found = Find(context, nameSpace);
    Session& session = found->second;
    if (session.content.kind != kind)
        throw host::Failure(kInvalidEnumerationContext,
                            "The enumeration delivers other objects than this operation pulls.");
    Piece piece{TakeFirst(session.content.objects, count), context};
    session.end = now() + session.content.timeout;
    if (session.content.objects.empty()) {
        sessions.erase(found);
        piece.context.clear();
    }
    return piece;
}

void EnumerationSessions::Close(const std::string& context, const std::string& nameSpace) {
    const std::lock_guard lock(mutex);
    sessions.erase(Find(context, nameSpace));
}

EnumerationSessions::Sessions::iterator EnumerationSessions::Find(const std::string& context,
                                                                  const std::string& nameSpace) {
    RemoveAbandoned();
    const auto found = sessions.find(context);
    if (found == sessions.end() || !mof::SameName(found->second.content.nameSpace, nameSpace))
        FailUnknown(context);
    return found;
}

void EnumerationSessions::RemoveAbandoned() {
    std::erase_if(sessions, [time = now()](const auto& one) { return one.second.end <= time; });
}

}  // namespace cimxml
