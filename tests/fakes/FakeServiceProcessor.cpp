#include <fakes/FakeServiceProcessor.h>
#include <platform/service_processor/SPLibrary.h>

#include <algorithm>
#include <cstring>
#include <deque>
#include <map>
#include <mutex>
#include <utility>

namespace {

// Where the transport puts the response.
constexpr std::size_t kCommandIndex = 4;
constexpr std::size_t kCompletionCodeIndex = 8;
constexpr std::size_t kFirstDataIndex = 9;

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
    const auto scripted = script.find({request.node, request.buffer[kCommandIndex]});
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

int LengthOf(const ScriptedAnswer& answer) {
    const int trueLength = 1 + static_cast<int>(answer.data.size());
    return answer.length.value_or(answer.completionCode == 0 ? trueLength
                                                             : std::max(2, trueLength));
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
        if (!answer.delivered) {
            return false;
        }
        *length = LengthOf(answer);
        const std::size_t room = request.buffer.size() - kFirstDataIndex;
        std::fill_n(buffer + kFirstDataIndex, room, std::uint8_t{0});
        buffer[kCompletionCodeIndex] = answer.completionCode;
        std::copy_n(answer.data.begin(), std::min(answer.data.size(), room),
                    buffer + kFirstDataIndex);
        return true;
    }

private:
    int node;
};

}  // namespace

void FakeServiceProcessor::Reset() {
    nodeCount = 1;
    isOxc = false;
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
