// The node that a thread's log lines are about.
#pragma once

#include <optional>

namespace NQUVZDX20 {

// While it lives, what its thread logs is about this node, counted from 0. Scopes may be nested:
// the outer node is restored afterwards. Must end on the thread that made it.
class LogNode {
public:
    explicit LogNode(int node);
    LogNode(const LogNode&) = delete;
    LogNode& operator=(const LogNode&) = delete;
    ~LogNode();

    // The node of the calling thread; nothing outside of all scopes.
    static std::optional<int> Current();

private:
    std::optional<int> outer;
};

}  // namespace NQUVZDX20
