// The connections of a server: their limit, which idle one is closed for a new one, and timeouts.
// Used by one thread.
#pragma once

#include <cimxml/net/Limits.h>

#include <chrono>
#include <cstddef>
#include <list>
#include <string>

namespace cimxml {

using Clock = std::chrono::steady_clock;
using Deadline = Clock::time_point;

// A connection, as the table sees it.
class Guest {
public:
    virtual ~Guest() = default;

    // Cancels what the connection waits for; CloseNow() also closes the connection.
    virtual void Interrupt() = 0;
    virtual void CloseNow() = 0;
    // True when bytes have come that have not been read.
    virtual bool HasUnread() const = 0;
    // True when the client has closed its side.
    virtual bool HasDisconnected() const = 0;

    std::string machine;                  // the client's address without the port
    Deadline deadline = Deadline::max();  // when Interrupt() is called
    Clock::time_point waitingSince = {};  // for a request that may be answered
    bool isWaiting = true;                // false while such a request is read and answered
    bool hasBegun = false;                // bytes of that request have come
    bool isPausing = false;               // waits for nothing that the client would send
    bool waitsForRun = false;             // and gives up when its client leaves
};

class ConnectionTable {
public:
    explicit ConnectionTable(const Limits& theLimits) : limits(theLimits) {}

    enum class Admission {
        Served,   // the guest is in the table
        Refused,  // it is in the table, to be told to come back later
        Dropped,  // it is not
    };
    // Admits a guest. If there are too many, in total or of its machine, the longest idle one is
    // closed; if none is idle, the new one is refused.
    Admission Admit(Guest& guest);
    void Remove(Guest& guest);

    // Interrupts the guests whose deadline has passed, and those that disconnected while waiting
    // for a run.
    void Check(Clock::time_point now);

    // Closes all idle guests, and interrupts those that pause.
    void Stop();

    std::size_t Count() const { return guests.size(); }
    bool IsEmpty() const { return guests.empty() && refused.empty(); }
    std::size_t Displaced() const { return displaced; }

private:
    std::size_t CountOf(const std::string& machine) const;
    bool MakeRoom(const std::string* machine);

    const Limits& limits;
    std::list<Guest*> guests;  // that are served, in the order in which they came
    std::list<Guest*> refused;
    std::size_t displaced = 0;
};

}  // namespace cimxml
