#include <platform/diagnostics/LogNode.h>

#include <utility>

namespace NQUVZDX20 {

namespace {

constinit thread_local std::optional<int> currentNode;

}  // namespace

LogNode::LogNode(int node) : outer(std::exchange(currentNode, node)) {}

LogNode::~LogNode() { currentNode = outer; }

std::optional<int> LogNode::Current() { return currentNode; }

}  // namespace NQUVZDX20
