#include <base/NoDestructor.h>
#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/Nodes.h>
#include <platform/service_processor/OxcMachine.h>
#include <platform/service_processor/TransportError.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace platform {

namespace {

// The device IDs read so far, by address. The settings can change while a broken file is fixed.
class KnownControllers {
public:
    std::optional<DeviceId> Find(const std::string& way) {
        const std::lock_guard guard(lock);
        const auto known = controllers.find(way);
        return known == controllers.end() ? std::nullopt : std::optional(known->second);
    }

    void Add(const std::string& way, const DeviceId& id) {
        const std::lock_guard guard(lock);
        controllers.insert_or_assign(way, id);
    }

private:
    std::mutex lock;  // guards controllers; never held while one is asked
    std::map<std::string, DeviceId> controllers;
};

KnownControllers& Known() {
    static base::NoDestructor<KnownControllers> known;
    return *known;
}

OxcAnswer AskProduct(const std::vector<ControllerProduct>& family,
                     const ControllerSettings& controller, std::chrono::milliseconds timeLimit) {
    auto transport = MakeTransport(controller, 0);
    const std::string address = transport->Describe();
    std::optional<DeviceId> id = Known().Find(address);
    if (!id) {
        ControllerNode node(
            {.node = 0, .nodeCount = 1, .askFamily = nullptr, .timeLimit = timeLimit},
            std::move(transport));
        id = node.Identify();
        if (!id) return {.isOxc = false, .trouble = node.LastExchange().trouble};
        Known().Add(address, *id);
    }
    return {.isOxc = IsInOxcList(family, *id), .trouble = std::nullopt};
}

Trouble FirstControllerAbsent() {
    return TransportError(TroubleCode::NotPresent,
                          "The profile says that the first controller is not present.", "")
        .AsTrouble();
}

}  // namespace

bool IsInOxcList(const std::vector<ControllerProduct>& list, const DeviceId& id) {
    return std::ranges::find(list, ControllerProduct{.manufacturer = id.manufacturer,
                                                     .product = id.product}) != list.end();
}

OxcAnswer AskOxcFamily(const OxcFamily& family, const ControllerSettings& firstController,
                       std::chrono::milliseconds timeLimit) {
    if (const bool* const all = std::get_if<bool>(&family)) return {.isOxc = *all, .trouble = {}};
    if (IsAbsent(firstController)) return {.isOxc = false, .trouble = FirstControllerAbsent()};
    return AskProduct(std::get<std::vector<ControllerProduct>>(family), firstController, timeLimit);
}

}  // namespace platform
