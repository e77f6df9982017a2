#include <cimxml/load/Turns.h>

namespace cimxml {

bool Turns::Ask(Ticket& ticket) {
    ticket.hasTurn = free > 0;
    if (ticket.hasTurn)
        --free;
    else
        queue.push_back(&ticket);
    return ticket.hasTurn;
}

void Turns::Leave(const Ticket& ticket) { std::erase(queue, &ticket); }

void Turns::End() {
    if (queue.empty()) {
        ++free;
        return;
    }
    Ticket* const next = queue.front();
    queue.pop_front();
    next->hasTurn = true;
    next->wake();
}

}  // namespace cimxml
