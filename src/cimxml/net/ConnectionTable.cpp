#include <cimxml/net/ConnectionTable.h>

#include <algorithm>

namespace cimxml {

namespace {

constexpr std::size_t kMostRefused = 4;  // get 503; further ones are closed immediately

}  // namespace

std::size_t ConnectionTable::CountOf(const std::string& machine) const {
    return static_cast<std::size_t>(
        std::count_if(guests.begin(), guests.end(),
                      [&](const Guest* guest) { return guest->machine == machine; }));
}

// Closes the guest (of that machine, unless null) that has been idle longest; false if none is
// idle.
bool ConnectionTable::MakeRoom(const std::string* machine) {
    auto oldest = guests.end();
    for (auto at = guests.begin(); at != guests.end(); ++at) {
        const Guest& guest = **at;
        if (!guest.isWaiting || (machine && guest.machine != *machine)) continue;
        const bool isOldest =
            oldest == guests.end() || guest.waitingSince < (*oldest)->waitingSince;
        if (isOldest && !guest.HasUnread()) oldest = at;
    }
    if (oldest == guests.end()) return false;
    Guest* const gone = *oldest;
    guests.erase(oldest);
    ++displaced;
    gone->CloseNow();
    return true;
}

ConnectionTable::Admission ConnectionTable::Admit(Guest& guest) {
    bool hasRoom = CountOf(guest.machine) < limits.maxConnectionsPerAddress;
    if (!hasRoom) hasRoom = MakeRoom(&guest.machine);
    if (hasRoom && guests.size() >= limits.maxConnections) hasRoom = MakeRoom(nullptr);
    if (!hasRoom && refused.size() >= kMostRefused) return Admission::Dropped;
    (hasRoom ? guests : refused).push_back(&guest);
    return hasRoom ? Admission::Served : Admission::Refused;
}

void ConnectionTable::Remove(Guest& guest) {
    guests.remove(&guest);
    refused.remove(&guest);
}

void ConnectionTable::Check(Clock::time_point now) {
    for (const auto* list : {&guests, &refused})
        for (Guest* guest : std::list(*list))
            if (now >= guest->deadline || (guest->waitsForRun && guest->HasDisconnected()))
                guest->Interrupt();
}

void ConnectionTable::Stop() {
    for (Guest* guest : std::list(guests)) {
        if (guest->isPausing)
            guest->Interrupt();
        else if (guest->isWaiting && !guest->hasBegun)
            guest->CloseNow();
    }
}

}  // namespace cimxml
