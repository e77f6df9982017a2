#include <platform/service_processor/ControllerNode.h>
#include <platform/service_processor/NodeList.h>
#include <platform/service_processor/OxcMachine.h>
#include <platform/service_processor/TransportFactory.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace platform {

namespace {

// Who was found behind which way. The settings can change while a broken file is mended.
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

// Never destroyed: a test object that outlives static objects may still ask.
KnownControllers& Known() {
    static KnownControllers& known = *new KnownControllers;
    return known;
}

std::optional<DeviceId> Identify(const ControllerSettings& controller,
                                 std::chrono::milliseconds timeLimit) {
    auto transport = MakeTransport(controller, 0);
    const std::string way = transport->Describe();
    if (auto known = Known().Find(way)) return known;
    ControllerNode node({.node = 0, .nodeCount = 1, .isOxc = nullptr, .timeLimit = timeLimit},
                        std::move(transport));
    std::optional<DeviceId> id = node.Identify();
    if (id) Known().Add(way, *id);
    return id;
}

}  // namespace

bool IsInOxcList(const std::vector<ControllerProduct>& list, const DeviceId& id) {
    return std::ranges::find(list, ControllerProduct{.manufacturer = id.manufacturer,
                                                     .product = id.product}) != list.end();
}

bool IsOxcMachine(const OxcFamily& family, const ControllerSettings& firstController,
                  std::chrono::milliseconds timeLimit) {
    if (const bool* const all = std::get_if<bool>(&family)) return *all;
    if (IsAbsent(firstController)) return false;
    const std::optional<DeviceId> id = Identify(firstController, timeLimit);
    return id && IsInOxcList(std::get<std::vector<ControllerProduct>>(family), *id);
}

}  // namespace platform
