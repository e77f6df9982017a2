// Scripted controllers in the place of the service-processor library.
//
//     FakeServiceProcessor::Reset();
//     FakeServiceProcessor::nodeCount = 2;
//     FakeServiceProcessor::Script(1, 0x09, {.data = {0x01}});
//     ...
//     EXPECT_EQ(FakeServiceProcessor::Requests().size(), 2u);
#pragma once

#include <platform/diagnostics/Trouble.h>
#include <platform/service_processor/SPLibrary.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <vector>

struct ScriptedAnswer {
    bool delivered = true;
    std::uint8_t completionCode = 0;
    std::vector<std::uint8_t> data = {};
    // Returned instead of the true length (1 + data bytes, at least 2 with a completion code).
    std::optional<int> length = std::nullopt;
};

struct SentRequest {
    int node = 0;
    std::array<unsigned char, 256> buffer{};  // as it was handed over
    int announcedLength = 0;
    int bufferSize = 0;
    bool waitForCompletion = false;
};

class FakeServiceProcessor {
public:
    // One controller, not of the OXC family, that answers nothing; nothing recorded.
    static void Reset();

    // Appends an answer of `node` to `command`. Answers are given in order, the last one again and
    // again until another is appended; a command without one is not delivered.
    static void Script(int node, std::uint8_t command, ScriptedAnswer answer);

    // Every request so far, the nodes that library objects were asked for, and how many objects
    // nobody has deleted. Requests may come from several threads.
    static std::vector<SentRequest> Requests();
    static std::vector<int> ObjectsAskedFor();
    static std::size_t ObjectsAlive();

    static inline int nodeCount = 1;
    static inline bool isOxc = false;
    static inline bool isSimulated = false;
    static inline std::optional<platform::Trouble> familyTrouble;
    static inline std::vector<SPShare> shares;                // handed to the objects, in order
    static inline std::set<int> absent;                       // nodes without a library object
    static inline std::function<void(int)> onObjectAskedFor;  // called with the node, first of all
    static inline std::function<void()> onRequest;            // called before the answer is given
};
