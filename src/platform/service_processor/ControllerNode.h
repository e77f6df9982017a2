// The library object that is handed out for one controller.
#pragma once

#include <platform/service_processor/SPLibrary.h>
#include <platform/service_processor/Transport.h>

#include <chrono>
#include <memory>

namespace platform {

// What the library object answers without asking the controller.
struct NodeFacts {
    int node = 0;       // from 0
    int nodeCount = 0;  // of the machine
    bool isOxc = false;
    std::chrono::milliseconds timeLimit{0};
};

class ControllerNode final : public SPLibrary {
public:
    ControllerNode(NodeFacts nodeFacts, std::unique_ptr<Transport> wayToController);
    ControllerNode(const ControllerNode&) = delete;
    ControllerNode& operator=(const ControllerNode&) = delete;
    ~ControllerNode() override;

    int GetNumberBMCNode() override { return facts.nodeCount; }
    bool IsOxcControllerMachine() override { return facts.isOxc; }

    // Every trouble becomes a log line; only std::bad_alloc leaves.
    bool sendIPMICommand(unsigned char* buffer, int* length, int bufferSize,
                         bool waitForCompletion) override;

private:
    NodeFacts facts;
    std::unique_ptr<Transport> transport;
};

}  // namespace platform
