#include <cimxml/http/Workers.h>

#include <system_error>
#include <utility>

namespace cimxml {

Workers::~Workers() {
    {
        const std::lock_guard lock(mutex);
        isEnding = true;
    }
    jobOrEnd.notify_all();
    for (std::thread& thread : threads) thread.join();
}

bool Workers::Start(std::function<void()> job) {
    const std::lock_guard lock(mutex);
    if (idle > 0)
        --idle;
    else if (!MakeThread())
        return false;
    jobs.push_back(std::move(job));
    jobOrEnd.notify_one();
    return true;
}

bool Workers::MakeThread() {
    if (threads.size() == maxThreads) return false;
    try {
        threads.emplace_back([this] { Work(); });
        return true;
    } catch (const std::system_error&) {
        return false;  // the system has no more threads to give
    }
}

void Workers::Work() {
    std::unique_lock lock(mutex);
    for (;;) {
        jobOrEnd.wait(lock, [this] { return !jobs.empty() || isEnding; });
        if (jobs.empty()) return;
        const std::function<void()> job = std::move(jobs.front());
        jobs.pop_front();
        lock.unlock();
        job();
        lock.lock();
        ++idle;
    }
}

}  // namespace cimxml
