// The library object that is handed out for one controller.
#pragma once

#include <platform/service_processor/DeviceId.h>
#include <platform/service_processor/ExchangeLog.h>
#include <platform/service_processor/OxcMachine.h>
#include <platform/service_processor/SPLibrary.h>
#include <platform/service_processor/Transport.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace platform {

// What the library object knows of its controller and of the machine.
struct NodeFacts {
    int node = 0;       // from 0
    int nodeCount = 0;  // of the machine
    std::function<OxcAnswer()> askFamily;
    std::chrono::milliseconds timeLimit{0};
};

class ControllerNode final : public SPLibrary {
public:
    ControllerNode(NodeFacts nodeFacts, std::unique_ptr<Transport> wayToController);
    ControllerNode(const ControllerNode&) = delete;
    ControllerNode& operator=(const ControllerNode&) = delete;
    ~ControllerNode() override;

    int GetNumberBMCNode() override { return facts.nodeCount; }
    bool IsOxcControllerMachine() override;
    std::optional<Trouble> FamilyTrouble() const override { return familyTrouble; }

    // Troubles are logged; only std::bad_alloc is thrown. The command begins only within the
    // controller's share.
    bool sendIPMICommand(unsigned char* buffer, int* length, int bufferSize,
                         bool waitForCompletion) override;

    const SPExchange& LastExchange() const override { return lastExchange; }
    void Use(const SPShare& shareOfRun) override { share = shareOfRun; }

    // The controller's Device ID; nothing, and a log line, if it does not answer.
    std::optional<DeviceId> Identify();

private:
    using MakeRequest = std::function<IpmiRequest()>;
    using UseAnswer = std::function<void(const IpmiAnswer&)>;

    bool Deliver(const MakeRequest& makeRequest, const UseAnswer& useAnswer);
    void Report(const ExchangeFacts& exchange, const TransportError& error);
    IpmiAnswer Exchange(const IpmiRequest& request);

    NodeFacts facts;
    std::unique_ptr<Transport> transport;
    std::optional<Trouble> familyTrouble;
    SPExchange lastExchange;
    std::optional<SPShare> share;
};

}  // namespace platform
