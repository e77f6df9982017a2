#include <cli/Text.h>
#include <cli/report/BusMap.h>
#include <cli/report/Names.h>
#include <cli/report/Reasons.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

namespace cli {

namespace {

constexpr std::size_t kMapIndent = 2;
constexpr std::size_t kLeastCellWidth = 3;
constexpr std::string_view kHeading = "bus";

std::string Right(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string Left(const std::string& text, std::size_t width) {
    return text + std::string(width - std::min(width, text.size()), ' ');
}

// A number without a bus has no mark.
using Mark = std::optional<BusState>;

struct Meaning {
    Mark mark;
    char character;
    const char* text;
};

constexpr Meaning kLegend[] = {{BusState::Good, '.', "good"},
                               {BusState::Failed, 'X', "failed"},
                               {BusState::Unjudged, '?', "not judged"},
                               {std::nullopt, '-', "no such bus"}};

std::string CharacterOf(const Meaning& meaning, const Terminal& terminal) {
    const std::string character(1, meaning.character);
    if (meaning.mark == BusState::Failed) return terminal.Red(character);
    return meaning.mark == BusState::Unjudged ? terminal.Yellow(character) : character;
}

// By bus number; empty when the controller was not examined.
using Marks = std::vector<Mark>;

Marks MarksOf(const ControllerResult& controller) {
    Marks marks;
    if (controller.outcome != Outcome::Examined) return marks;
    for (const Bus& bus : controller.busses) {
        marks.resize(std::max<std::size_t>(marks.size(), bus.number + 1));
        marks[bus.number] = bus.state;
    }
    return marks;
}

// Sixteen columns where there is room, else eight, and fewer on the narrowest terminals.
std::size_t ColumnsWithin(std::size_t room) {
    for (const std::size_t columns : {std::size_t{16}, std::size_t{8}, std::size_t{4}})
        if (columns * kLeastCellWidth <= room) return columns;
    return 1;
}

class Map {
public:
    Map(const std::vector<ControllerResult>& results, const Terminal& output)
        : controllers(results), terminal(output) {
        for (const ControllerResult& controller : controllers) {
            marks.push_back(MarksOf(controller));
            busses = std::max(busses, marks.back().size());
            nameWidth = std::max(nameWidth, NodeName(controller.node).size());
        }
        cellWidth = std::max(kLeastCellWidth, std::to_string(busses).size() + 1);
        const std::size_t taken = kMapIndent + nameWidth + 1;
        columns = ColumnsWithin((terminal.width - std::min(terminal.width, taken)) *
                                kLeastCellWidth / cellWidth);
    }

    std::string Text() const {
        std::string text = Block(0);
        for (std::size_t first = columns; first < busses; first += columns)
            text += "\n" + Block(first);
        return text;
    }

    // The marks that occur, each with its meaning; in lines that fit.
    std::string Legend() const {
        std::string legend;
        std::size_t width = 0;  // of the line so far
        for (const Meaning& meaning : kLegend) {
            if (!Occurs(meaning.mark)) continue;
            const std::size_t length = 3 + std::string_view(meaning.text).size();
            if (width != 0 && width + kGap + length > terminal.width) {
                legend += "\n";
                width = 0;
            }
            const std::size_t gap = width == 0 ? kMapIndent : kGap;
            legend += std::string(gap, ' ') + CharacterOf(meaning, terminal) + "  " + meaning.text;
            width += gap + length;
        }
        return legend.empty() ? "" : "\n" + legend + "\n";
    }

private:
    static constexpr std::size_t kGap = 5;

    bool Occurs(const Mark& mark) const {
        return std::ranges::any_of(marks, [&](const Marks& ofOne) {
            return std::ranges::find(ofOne, mark) != ofOne.end();
        });
    }

    std::string Block(std::size_t first) const {
        const std::size_t end = std::min(first + columns, busses);
        std::string text = busses == 0 ? "" : Numbers(first, end);
        for (std::size_t row = 0; row < controllers.size(); ++row)
            if (first == 0 || marks[row].size() > first) text += Row(row, first, end) + "\n";
        return text;
    }

    std::string Numbers(std::size_t first, std::size_t end) const {
        std::string text =
            std::string(kMapIndent, ' ') + Left(std::string(kHeading), nameWidth) + " ";
        for (std::size_t bus = first; bus < end; ++bus)
            text += Right(std::to_string(bus), cellWidth);
        return text + "\n";
    }

    std::string Row(std::size_t row, std::size_t first, std::size_t end) const {
        const ControllerResult& controller = controllers[row];
        std::string text =
            std::string(kMapIndent, ' ') + Left(NodeName(controller.node), nameWidth) + " ";
        if (controller.outcome != Outcome::Examined)
            return text + " " + terminal.Yellow(ShortReason(controller));
        for (std::size_t bus = first; bus < std::min(end, marks[row].size()); ++bus)
            text += Cell(marks[row][bus]);
        return text + (marks[row].empty() ? " no bus reported" : "");
    }

    std::string Cell(const Mark& mark) const {
        const auto* meaning = std::ranges::find(kLegend, mark, &Meaning::mark);
        return std::string(cellWidth - 1, ' ') + CharacterOf(*meaning, terminal);
    }

    const std::vector<ControllerResult>& controllers;
    const Terminal& terminal;
    std::vector<Marks> marks;  // by row
    std::size_t busses = 0;
    std::size_t nameWidth = kHeading.size();
    std::size_t cellWidth = kLeastCellWidth;
    std::size_t columns = 0;
};

}  // namespace

std::string BusMapText(const std::vector<ControllerResult>& controllers, const Terminal& terminal) {
    const Map map(controllers, terminal);
    return map.Text() + map.Legend();
}

}  // namespace cli
