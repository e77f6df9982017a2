// Enumerations that clients pull piece by piece.
//
// A session exists only while objects are left to be pulled. It ends when all are delivered, when
// its client closes it, or at the timeout that its client chose. Its context, which the client
// sends with each pull, cannot be guessed.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace cimxml {

inline constexpr std::size_t kMaxSessions = 64;
inline constexpr std::chrono::seconds kDefaultOperationTimeout{60};
inline constexpr std::chrono::seconds kLongestOperationTimeout{300};

class EnumerationSessions {
public:
    using Clock = std::chrono::steady_clock;
    using Now = std::function<Clock::time_point()>;

    // What a session delivers; each kind has a pull operation of its own.
    enum class Kind { Instances, Paths };

    struct Content {
        Kind kind;
        std::string nameSpace;
        std::deque<std::string> objects;  // each an XML element
        std::chrono::seconds timeout;     // from one operation to the next
    };

    struct Piece {
        std::vector<std::string> objects;
        std::string context;  // of the session that goes on; empty when nothing is left
    };

    explicit EnumerationSessions(Now currentTime = Clock::now) : now(std::move(currentTime)) {}

    EnumerationSessions(const EnumerationSessions&) = delete;
    EnumerationSessions& operator=(const EnumerationSessions&) = delete;

    // All of them may be called from several threads concurrently, and throw host::Failure: for too
    // many sessions, or for a context that is not that of a session of this kind and namespace.

    // The first objects, `count` at most; opens a session for the others.
    Piece Open(Content content, std::size_t count);

    // The next objects. A count of 0 only restarts the timeout.
    Piece Pull(const std::string& context, Kind kind, const std::string& nameSpace,
               std::size_t count);

    void Close(const std::string& context, const std::string& nameSpace);

private:
    struct Session {
        Content content;
        Clock::time_point end;  // unless a client pulls
    };
    using Sessions = std::map<std::string, Session>;  // by context

    Sessions::iterator Find(const std::string& context, const std::string& nameSpace);
    void RemoveAbandoned();

    const Now now;
    std::mutex mutex;  // guards the sessions
    Sessions sessions;
};

}  // namespace cimxml
