// Threads that carry out jobs; one is made when no other is idle.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace cimxml {

class Workers {
public:
    explicit Workers(std::size_t most) : maxThreads(most) {}

    // Waits until all jobs are done.
    ~Workers();

    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    // Carries the job out soon. False when every thread is busy and none can be made. A job may not
    // throw.
    bool Start(std::function<void()> job);

private:
    void Work();
    bool MakeThread();

    const std::size_t maxThreads;
    std::mutex mutex;  // guards what follows
    std::condition_variable jobOrEnd;
    std::deque<std::function<void()>> jobs;
    std::size_t idle = 0;  // threads that wait and that no job is meant for
    bool isEnding = false;
    std::vector<std::thread> threads;
};

}  // namespace cimxml
