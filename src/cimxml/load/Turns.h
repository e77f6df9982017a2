// A semaphore for costly work: up to a number of tickets run at once, the others queue in order of
// arrival. Used by one thread.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>

namespace cimxml {

class Turns {
public:
    explicit Turns(std::size_t most) : free(most) {}

    // A place in the queue.
    struct Ticket {
        std::function<void()> wake;  // called when the turn has come
        bool hasTurn = false;
    };

    // True if it is the ticket's turn immediately. Otherwise the ticket waits until `wake` is
    // called, or Leave() takes it out.
    bool Ask(Ticket& ticket);
    void Leave(const Ticket& ticket);

    bool IsFree() const { return free > 0; }

    // Ends a turn; the next one begins.
    void End();

    // Ends a turn that has come when the object goes.
    class Holder {
    public:
        explicit Holder(Turns& itsTurns) : turns(itsTurns) {}
        ~Holder() { turns.End(); }
        Holder(const Holder&) = delete;
        Holder& operator=(const Holder&) = delete;

    private:
        Turns& turns;
    };

private:
    std::size_t free;
    std::deque<Ticket*> queue;
};

}  // namespace cimxml
