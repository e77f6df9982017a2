#include <cli/Printable.h>
#include <cli/Text.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <sstream>
#include <variant>

namespace cli {

namespace {

constexpr std::size_t kLongestReal = 32;  // characters of a double's shortest exact text

struct TextOfValue {
    std::string operator()(std::monostate) const { return "(none)"; }
    std::string operator()(bool flag) const { return flag ? "true" : "false"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(std::uint64_t number) const { return std::to_string(number); }
    std::string operator()(double real) const {
        char buffer[kLongestReal];
        return {buffer, std::to_chars(std::begin(buffer), std::end(buffer), real).ptr};
    }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const std::shared_ptr<const host::ObjectPath>& path) const {
        return path->ToString();
    }
    std::string operator()(const std::shared_ptr<const host::Instance>& instance) const {
        return instance->path.ToString();
    }
    std::string operator()(const std::vector<host::Value>& elements) const {
        if (elements.empty()) return "{ }";
        std::string text;
        for (const host::Value& element : elements)
            text += (text.empty() ? "{ " : ", ") + ValueText(element);
        return text + " }";
    }
};

// Of UTF-8, in which every byte but the first of a character is marked.
std::size_t Columns(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char letter) { return (letter & 0xC0) != 0x80; }));
}

// Appends one line of a text, broken at blanks.
void WrapLine(const std::string& line, std::size_t width, std::size_t indent, std::size_t hanging,
              std::string& wrapped) {
    constexpr const char* kBlanks = " \t\r";
    std::string row(indent, ' ');
    std::string gap;  // before the next word; none at the beginning of a row
    std::size_t start = line.find_first_not_of(kBlanks);
    if (start == std::string::npos) row.clear();
    while (start != std::string::npos) {
        const std::size_t end = std::min(line.find_first_of(kBlanks, start), line.size());
        const std::string word = line.substr(start, end - start);
        const std::size_t column = Columns(row) + Columns(gap);  // of the word
        const bool gainsRoom = column > indent + hanging;
        if (!gap.empty() && gainsRoom && column + Columns(word) > width) {
            wrapped += row + '\n';
            row.assign(indent + hanging, ' ');
            gap.clear();
        }
        row.append(gap).append(word);
        start = line.find_first_not_of(kBlanks, end);
        if (start != std::string::npos) gap = line.substr(end, start - end);
    }
    wrapped += row + '\n';
}

// A text of several lines as one value: its later lines below the first.
std::string Indented(const std::string& text, std::size_t indent) {
    std::string indented;
    for (const char letter : text) {
        indented += letter;
        if (letter == '\n') indented.append(indent, ' ');
    }
    return indented;
}

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

}  // namespace

std::string ValueText(const host::Value& value) { return std::visit(TextOfValue{}, value.data); }

std::string InstanceText(const host::Instance& instance) {
    return PrintableLine(instance.path.ToString()) + "\n" + ValuesText(instance.properties);
}

std::string ValuesText(const std::vector<host::NamedValue>& values) {
    std::string text;
    for (const auto& [name, value] : values)
        text += "  " + name + " = " + Indented(Printable(ValueText(value)), name.size() + 5) + "\n";
    return text;
}

std::string Table(const std::vector<std::pair<std::string, std::string>>& rows, std::size_t width) {
    constexpr std::size_t kIndent = 2;
    constexpr std::size_t kGap = 2;
    constexpr std::size_t kNarrowestTexts = 20;
    std::size_t longest = 0;
    for (const auto& [name, text] : rows) longest = std::max(longest, Columns(name));
    const std::size_t texts = kIndent + longest + kGap;  // the column where they begin
    const bool hasColumns = width >= texts + kNarrowestTexts;
    std::string table;
    for (const auto& [name, text] : rows) {
        const std::size_t gap = hasColumns ? longest - Columns(name) + kGap : kGap;
        std::string row = name;
        row.append(gap, ' ').append(text);
        table += Wrap(row, width, kIndent, hasColumns ? texts - kIndent : kGap);
    }
    return table;
}

std::string Wrap(const std::string& text, std::size_t width, std::size_t indent,
                 std::size_t hanging) {
    std::string wrapped;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        WrapLine(line, width, indent, hanging, wrapped);
    return wrapped;
}

std::string TimeText(const std::string& dateTime) {
    // yyyymmddhhmmss.mmmmmmsutc, where s is "+" or "-" and utc the offset in minutes.
    constexpr std::size_t kLength = 25;
    constexpr std::size_t kSign = 21;
    if (dateTime.size() != kLength || (dateTime[kSign] != '+' && dateTime[kSign] != '-'))
        return dateTime;
    const auto part = [&](std::size_t from, std::size_t count) {
        return dateTime.substr(from, count);
    };
    const int offset = std::atoi(part(kSign + 1, 3).c_str());
    return part(0, 4) + "-" + part(4, 2) + "-" + part(6, 2) + " " + part(8, 2) + ":" + part(10, 2) +
           ":" + part(12, 2) + " " + dateTime[kSign] + TwoDigits(offset / 60) + ":" +
           TwoDigits(offset % 60);
}

std::string Counted(std::size_t count, const std::string& one, const std::string& many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string Listed(const std::vector<std::string>& items) {
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i != 0) text += i + 1 == items.size() ? " and " : ", ";
        text += items[i];
    }
    return text;
}

}  // namespace cli
