#include <cli/report/BusMap.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

namespace cli {

namespace {

using Outcome = ControllerStatus::Outcome;

constexpr std::size_t kBussesPerRow = 16;
constexpr std::string_view kHeading = "bus";

std::string Right(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string Left(const std::string& text, std::size_t width) {
    return text + std::string(width - std::min(width, text.size()), ' ');
}

std::string NodeName(std::size_t node) { return "node " + std::to_string(node); }

// Renders the controllers' busses in blocks of kBussesPerRow columns.
class Map {
public:
    Map(const std::vector<ControllerStatus>& statuses, const Terminal& output)
        : controllers(statuses), terminal(output) {
        for (const ControllerStatus& controller : controllers)
            busses = std::max(busses, controller.busses.size());
        if (!controllers.empty()) nameWidth = NodeName(controllers.size() - 1).size();
        cellWidth = std::max<std::size_t>(3, std::to_string(busses).size() + 1);
    }

    std::string Text() const {
        std::string text = Block(0);
        for (std::size_t first = kBussesPerRow; first < busses; first += kBussesPerRow)
            text += "\n" + Block(first);
        return text;
    }

private:
    std::string Block(std::size_t first) const {
        const std::size_t end = std::min(first + kBussesPerRow, busses);
        std::string text = busses == 0 ? "" : Numbers(first, end);
        for (std::size_t node = 0; node < controllers.size(); ++node)
            if (first == 0 || controllers[node].busses.size() > first)
                text += Row(node, first, end) + "\n";
        return text;
    }

    std::string Numbers(std::size_t first, std::size_t end) const {
        std::string text = "  " + Left(std::string(kHeading), nameWidth) + " ";
        for (std::size_t bus = first; bus < end; ++bus)
            text += Right(std::to_string(bus), cellWidth);
        return text + "\n";
    }

    std::string Row(std::size_t node, std::size_t first, std::size_t end) const {
        const ControllerStatus& controller = controllers[node];
        std::string row = "  " + Left(NodeName(node), nameWidth) + " ";
        if (controller.outcome != Outcome::Examined)
            return row + " " + terminal.Yellow(ReasonText(controller));
        for (std::size_t bus = first; bus < std::min(end, controller.busses.size()); ++bus)
            row += Cell(controller.busses[bus]);
        return row + (controller.busses.empty() ? " no bus reported" : "");
    }

    std::string Cell(Bus bus) const {
        const std::string blanks(cellWidth - 1, ' ');
        if (bus == Bus::Failed) return blanks + terminal.Red("X");
        return blanks + (bus == Bus::Good ? "." : "-");
    }

    const std::vector<ControllerStatus>& controllers;
    const Terminal& terminal;
    std::size_t busses = 0;
    std::size_t nameWidth = kHeading.size();
    std::size_t cellWidth;
};

bool HasGap(const std::vector<ControllerStatus>& controllers) {
    return std::ranges::any_of(controllers, [](const ControllerStatus& controller) {
        return std::ranges::find(controller.busses, Bus::None) != controller.busses.end();
    });
}

}  // namespace

std::string BusMapText(const std::vector<ControllerStatus>& controllers, const Terminal& terminal) {
    std::string text = Map(controllers, terminal).Text();
    text += "\n  .  good     " + terminal.Red("X") + "  failed" +
            (HasGap(controllers) ? "     -  no such bus\n" : "\n");
    for (std::size_t node = 0; node < controllers.size(); ++node)
        if (controllers[node].hasBytesWithoutBusses)
            text += "  The second status byte of " + NodeName(node) +
                    " stands for no bus and was not examined.\n";
    return text;
}

std::string ReasonText(const ControllerStatus& controller) {
    switch (controller.outcome) {
        case Outcome::NotAsked:
            return "not asked";
        case Outcome::NotDelivered:
            return "not reached: its busses were not examined";
        case Outcome::BadLength:
            return "answer too short (length " + std::to_string(controller.length) +
                   "): its busses were not examined";
        case Outcome::Refused: {
            std::array<char, 8> code{};
            std::snprintf(code.data(), code.size(), "0x%02x", controller.completionCode & 0xFFU);
            return "refused (completion code " + std::string(code.data()) +
                   "): its busses were not examined";
        }
        default:
            return "";
    }
}

}  // namespace cli
