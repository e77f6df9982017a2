#include <cli/Text.h>
#include <cli/report/Names.h>

#include <cctype>

namespace cli {

namespace {

template <class Number>
std::string Named(const std::vector<Number>& numbers, const char* one, const char* many) {
    std::vector<std::string> texts;
    for (const Number number : numbers) texts.push_back(std::to_string(number));
    return std::string(texts.size() == 1 ? one : many) + " " + Listed(texts);
}

}  // namespace

std::string NodeName(int node) { return "node " + std::to_string(node); }

std::string NodeNames(const std::vector<int>& nodes) { return Named(nodes, "node", "nodes"); }

std::string BusNames(const std::vector<unsigned int>& busses) {
    return Named(busses, "bus", "busses");
}

std::string ControllerName(const ControllerResult& controller) {
    return NodeName(controller.node) + " (" + controller.address + ")";
}

std::string Capitalized(std::string text) {
    if (!text.empty())
        text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    return text;
}

std::vector<unsigned int> BussesIn(const ControllerResult& controller, BusState state) {
    std::vector<unsigned int> numbers;
    for (const Bus& bus : controller.busses)
        if (bus.state == state) numbers.push_back(bus.number);
    return numbers;
}

}  // namespace cli
