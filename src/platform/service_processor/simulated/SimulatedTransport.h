// A controller that is simulated in the process, as a profile describes it.
#pragma once

#include <platform/service_processor/Transport.h>
#include <platform/settings/SimulatedProfile.h>

#include <map>
#include <memory>
#include <mutex>

namespace platform {

// How many requests each simulated node has been sent.
class RequestCounts {
public:
    // Counts one more; returns how many there were before.
    int Next(int node);

private:
    std::mutex lock;  // guards counts
    std::map<int, int> counts;
};

// The counts of this process.
RequestCounts& ProcessRequestCounts();

class SimulatedTransport final : public Transport {
public:
    // `nodeNumber` tells the node's requests from those of other nodes in the counts.
    SimulatedTransport(std::shared_ptr<const SimulatedNode> simulatedNode, int controllerGeneration,
                       int nodeNumber, RequestCounts& counts = ProcessRequestCounts());

    // The first `busy` requests of any kind are answered with code 0xFF and no data. After them:
    // the I2C status with the profile's code and data; the generation query by any node with two
    // data bytes, bit 0 of the second set for generation 2; Get Device ID like a controller with
    // IPMI 2.0; all else with code 0xC1. The profile's length goes with every answer to the I2C
    // status. A node that does not answer throws TroubleCode::NoAnswer immediately.
    IpmiAnswer Send(const IpmiRequest& request, TimeAllowance allowance) override;

    std::string Describe() const override { return "simulated"; }

private:
    bool IsAnswered(const IpmiRequest& request) const;
    IpmiAnswer Answer(const IpmiRequest& request) const;

    std::shared_ptr<const SimulatedNode> node;
    int generation;
    int number;
    RequestCounts& requestCounts;
};

}  // namespace platform
