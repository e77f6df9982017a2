#include <host/NumberText.h>
#include <host/Value.h>

#include <optional>
#include <string_view>

namespace host {

namespace {

// Reads the text of an object path from left to right.
class PathReader {
public:
    explicit PathReader(std::string_view text) : rest(text) {}

    std::optional<ObjectPath> Read() {
        ObjectPath path;
        const auto beforeKeys = rest.substr(0, rest.find_first_of(".\""));
        if (const auto colon = beforeKeys.rfind(':'); colon != std::string_view::npos) {
            path.nameSpace = Take(colon);
            rest.remove_prefix(1);
        }
        path.className = Take(rest.find('.'));
        if (path.className.empty()) return std::nullopt;
        while (!rest.empty()) {
            rest.remove_prefix(1);  // the point or comma before a key
            auto key = ReadKey();
            if (!key) return std::nullopt;
            path.keys.push_back(std::move(*key));
        }
        return path;
    }

private:
    std::string Take(std::size_t count) {
        std::string taken(rest.substr(0, count));
        rest.remove_prefix(taken.size());
        return taken;
    }

    std::optional<NamedValue> ReadKey() {
        const auto equals = rest.find('=');
        if (equals == 0 || equals == std::string_view::npos) return std::nullopt;
        NamedValue key{Take(equals), {}};
        rest.remove_prefix(1);
        const bool quoted = !rest.empty() && rest.front() == '"';
        auto value = quoted ? ReadQuoted() : ReadPlain();
        if (!value || (!rest.empty() && rest.front() != ',')) return std::nullopt;
        key.value = std::move(*value);
        return key;
    }

    std::optional<Value> ReadQuoted() {
        std::string text;
        for (std::size_t at = 1; at < rest.size(); ++at) {
            if (rest[at] == '"') {
                rest.remove_prefix(at + 1);
                return Value{CMPI_string, text};
            }
            if (rest[at] == '\\' && ++at == rest.size()) break;
            text += rest[at];
        }
        return std::nullopt;
    }

    std::optional<Value> ReadPlain() {
        const std::string text = Take(rest.find(','));
        if (text == "true" || text == "TRUE") return Value{CMPI_boolean, true};
        if (text == "false" || text == "FALSE") return Value{CMPI_boolean, false};
        if (const auto number = NumberIn<std::uint64_t>(text)) return Value{CMPI_uint64, *number};
        if (const auto number = NumberIn<std::int64_t>(text)) return Value{CMPI_sint64, *number};
        return std::nullopt;
    }

    std::string_view rest;
};

}  // namespace

std::optional<ObjectPath> ParseObjectPath(const std::string& text) {
    return PathReader(text).Read();
}

}  // namespace host
