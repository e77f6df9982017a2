#include <fakes/FakeServiceProcessor.h>
#include <platform/service_processor/IpmiBuffer.h>
#include <platform/service_processor/SPLibrary.h>

#include <algorithm>
#include <cstring>
#include <deque>
#include <map>
#include <mutex>
#include <utility>

namespace {

struct AnswerQueue {
    std::deque<ScriptedAnswer> answers;
    bool firstWasGiven = false;
};

std::mutex lock;  // guards the variables below
std::map<std::pair<int, std::uint8_t>, AnswerQueue> script;
std::vector<SentRequest> requests;
std::vector<int> askedFor;
// Never destroyed: the objects in it that nobody deletes stay reachable for leak checkers.
std::set<const SPLibrary*>& alive = *new std::set<const SPLibrary*>;

ScriptedAnswer TakeAnswer(const SentRequest& request) {
    const std::lock_guard<std::mutex> changing(lock);
    requests.push_back(request);
    const auto scripted =
        script.find({request.node, platform::ReadRequest(request.buffer).command});
    if (scripted == script.end()) {
        return {.delivered = false};
    }
    AnswerQueue& queue = scripted->second;
    if (queue.firstWasGiven && queue.answers.size() > 1) {
        queue.answers.pop_front();
    }
    queue.firstWasGiven = true;
    return queue.answers.front();
}

platform::IpmiAnswer AsAnswer(const ScriptedAnswer& answer) {
    return {.completionCode = answer.completionCode, .data = answer.data, .length = answer.length};
}

platform::Trouble Sleeping() {
    return {.code = "no_answer", .text = "The controller sleeps.", .advice = "Wake it."};
}

class ScriptedController : public SPLibrary {
public:
    explicit ScriptedController(int ownNode) : node(ownNode) {}

    ~ScriptedController() override {
        const std::lock_guard<std::mutex> changing(lock);
        alive.erase(this);
    }

    int GetNumberBMCNode() override { return FakeServiceProcessor::nodeCount; }

    bool IsOxcControllerMachine() override { return FakeServiceProcessor::isOxc; }

    std::optional<platform::Trouble> FamilyTrouble() const override {
        return FakeServiceProcessor::familyTrouble;
    }

    bool sendIPMICommand(unsigned char* buffer, int* length, int bufferSize,
                         bool waitForCompletion) override {
        if (FakeServiceProcessor::onRequest) {
            FakeServiceProcessor::onRequest();
        }
        SentRequest request{.node = node,
                            .announcedLength = *length,
                            .bufferSize = bufferSize,
                            .waitForCompletion = waitForCompletion};
        std::memcpy(request.buffer.data(), buffer, request.buffer.size());
        const ScriptedAnswer answer = TakeAnswer(request);
        exchange = {.attempts = 1, .trouble = std::nullopt};
        if (!answer.delivered) {
            exchange.trouble = Sleeping();
            return false;
        }
        *length = platform::WriteAnswer(AsAnswer(answer), {buffer, request.buffer.size()});
        return true;
    }

    const SPExchange& LastExchange() const override { return exchange; }

    void Use(const SPShare& share) override { FakeServiceProcessor::shares.push_back(share); }

private:
    int node;
    SPExchange exchange;
};

}  // namespace

void FakeServiceProcessor::Reset() {
    nodeCount = 1;
    isOxc = false;
    isSimulated = false;
    familyTrouble.reset();
    shares.clear();
    absent.clear();
    onObjectAskedFor = nullptr;
    onRequest = nullptr;
    const std::lock_guard<std::mutex> changing(lock);
    script.clear();
    requests.clear();
    askedFor.clear();
}

void FakeServiceProcessor::Script(int node, std::uint8_t command, ScriptedAnswer answer) {
    const std::lock_guard<std::mutex> changing(lock);
    script[{node, command}].answers.push_back(std::move(answer));
}

std::vector<SentRequest> FakeServiceProcessor::Requests() {
    const std::lock_guard<std::mutex> reading(lock);
    return requests;
}

std::vector<int> FakeServiceProcessor::ObjectsAskedFor() {
    const std::lock_guard<std::mutex> reading(lock);
    return askedFor;
}

std::size_t FakeServiceProcessor::ObjectsAlive() {
    const std::lock_guard<std::mutex> reading(lock);
    return alive.size();
}

SPLibrary* SPLibrary::GetSplibraryInstance(int node) {
    if (FakeServiceProcessor::onObjectAskedFor) {
        FakeServiceProcessor::onObjectAskedFor(node);
    }
    const std::lock_guard<std::mutex> changing(lock);
    askedFor.push_back(node);
    if (FakeServiceProcessor::absent.contains(node)) {
        return nullptr;
    }
    auto* const controller = new ScriptedController(node);
    alive.insert(controller);
    return controller;
}

SPLibrary* SPLibrary::GetSplibraryInstance(int node, const SPMachine&) {
    return GetSplibraryInstance(node);
}

SPMachine SPLibrary::DescribeMachine() {
    SPMachine machine;
    for (int node = 0; node < FakeServiceProcessor::nodeCount; ++node) {
        machine.controllers.push_back({.address = "scripted " + std::to_string(node),
                                       .present = !FakeServiceProcessor::absent.contains(node)});
    }
    machine.simulated = FakeServiceProcessor::isSimulated;
    if (machine.controllers.empty()) {
        machine.trouble =
            platform::Trouble{.code = "no_device", .text = "No device.", .advice = ""};
    }
    return machine;
}
