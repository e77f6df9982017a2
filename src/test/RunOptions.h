// Options and observer of a run, beyond what a CIM client can ask for.
#pragma once

#include <atomic>
#include <chrono>
#include <string>

// Observes the progress of a run, on the run's thread. Must not start or read a run.
class RunObserver {
public:
    virtual ~RunObserver() = default;

    // Controller `node` of `count` is asked next.
    virtual void OnController(int node, int count, const std::string& address) = 0;
    // Controller `node` is busy; the retry follows after the pause.
    virtual void OnBusyPause(int node, std::chrono::seconds pause) = 0;
};

struct RunOptions {
    // Continues with the later controllers where a CIM client's run ends early. The record stays
    // that of the CIM client's run.
    bool askAll = false;
    RunObserver* observer = nullptr;
    // Ends the run at the next step once it is true; a signal handler may set it.
    const std::atomic<bool>* stop = nullptr;
};
