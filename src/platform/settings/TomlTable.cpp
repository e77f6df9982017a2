#include <platform/settings/FileText.h>
#include <platform/settings/NameList.h>
#include <platform/settings/SettingsError.h>
#include <platform/settings/TomlTable.h>
#include <toml++/toml.h>

#include <functional>
#include <set>
#include <system_error>
#include <utility>

namespace platform {

namespace {

struct Document {
    std::string path;
    toml::table root;
};

std::string LineText(const Document& document, const toml::source_region& source) {
    return document.path + ":" + std::to_string(source.begin.line);
}

std::string PlaceText(const Document& document, const toml::source_region& source) {
    return LineText(document, source) + ":" + std::to_string(source.begin.column) + ": ";
}

std::string Where(const Document& document, const toml::source_region& source,
                  const std::string& key) {
    return PlaceText(document, source) + "key '" + key + "'";
}

// A value, its full key, and the document it stands in.
struct Found {
    const Document* document;
    const toml::node* node;
    std::string key;

    [[noreturn]] void Reject(const std::string& found, const std::string& allowed) const {
        throw SettingsError(Where(*document, node->source(), key), found, allowed);
    }
};

std::string KindText(toml::node_type type) {
    switch (type) {
        case toml::node_type::table:
            return "a table";
        case toml::node_type::array:
            return "an array";
        case toml::node_type::string:
            return "a string";
        case toml::node_type::integer:
            return "an integer";
        case toml::node_type::floating_point:
            return "a floating-point number";
        case toml::node_type::boolean:
            return "a boolean";
        case toml::node_type::date:
            return "a date";
        case toml::node_type::time:
            return "a time";
        default:
            return "a date-time";
    }
}

template <class T>
const T& ValueOf(const Found& found, const std::string& allowed) {
    const toml::value<T>* value = found.node->as<T>();
    if (value == nullptr) found.Reject(KindText(found.node->type()), allowed);
    return value->get();
}

std::string TextOf(const Found& found) { return ValueOf<std::string>(found, "is a string"); }

std::string NameOf(const Found& found, const std::vector<std::string>& names) {
    const std::string allowed = QuotedNames(names);
    const std::string& name = ValueOf<std::string>(found, allowed);
    if (std::find(names.begin(), names.end(), name) == names.end())
        found.Reject('"' + name + '"', allowed);
    return name;
}

std::int64_t IntegerOf(const Found& found, std::int64_t least, std::int64_t most) {
    const std::string allowed =
        "is an integer from " + std::to_string(least) + " to " + std::to_string(most);
    const std::int64_t number = ValueOf<std::int64_t>(found, allowed);
    if (number < least || number > most) found.Reject(std::to_string(number), allowed);
    return number;
}

// The elements of an array, each turned into a value by `read`.
template <class Read>
auto ArrayOf(const Found& found, const Read& read) {
    const toml::array* array = found.node->as_array();
    if (array == nullptr) found.Reject(KindText(found.node->type()), "is an array");
    std::vector<decltype(read(found))> values;
    for (const toml::node& element : *array) {
        const std::string index = "[" + std::to_string(values.size()) + "]";
        values.push_back(read(Found{found.document, &element, found.key + index}));
    }
    return values;
}

}  // namespace

struct TomlTable::Content {
    std::shared_ptr<const Document> document;
    const toml::table* table;
    std::string name;  // "" of the whole file, "controller[0]" of a table in it
    std::set<std::string, std::less<>> allowed;

    std::string FullKey(std::string_view key) const {
        return name.empty() ? std::string(key) : name + "." + std::string(key);
    }

    std::optional<Found> Find(std::string_view key) {
        allowed.emplace(key);
        const toml::node* node = table->get(key);
        if (node == nullptr) return std::nullopt;
        return Found{document.get(), node, FullKey(key)};
    }

    // The value of a key as `read` understands it.
    template <class Read>
    auto Value(std::string_view key, const Read& read)
        -> std::optional<decltype(read(std::declval<Found>()))> {
        const std::optional<Found> found = Find(key);
        if (!found) return std::nullopt;
        return read(*found);
    }

    // The table that a value is; `form` says how it is written.
    TomlTable Inner(const Found& found, const std::string& form) const {
        const toml::table* inner = found.node->as_table();
        if (inner == nullptr) found.Reject(KindText(found.node->type()), "is " + form);
        return TomlTable(std::make_shared<Content>(Content{document, inner, found.key, {}}));
    }
};

TomlTable::TomlTable(std::shared_ptr<Content> tableContent) : content(std::move(tableContent)) {}

TomlTable TomlTable::Read(const std::string& path) {
    auto document = std::make_shared<Document>();
    document->path = path;
    try {
        document->root = toml::parse(ReadFileText(path), path);
    } catch (const std::system_error& error) {
        throw SettingsError(
            path + ": The file cannot be read: " + ReasonText(error.code().value()) + ".",
            "Give an existing, readable file.");
    } catch (const toml::parse_error& error) {
        throw SettingsError(
            PlaceText(*document, error.source()) +
                "The file is not valid TOML: " + std::string(error.description()) + ".",
            "Fix the file at this line and column; texts stand between quotation marks.");
    }
    const toml::table* root = &document->root;
    return TomlTable(std::make_shared<Content>(Content{std::move(document), root, "", {}}));
}

std::optional<bool> TomlTable::Boolean(std::string_view key) {
    return BooleanAmong(key, "is true or false");
}

std::optional<bool> TomlTable::BooleanAmong(std::string_view key, const std::string& allowed) {
    return content->Value(key, [&](const Found& found) { return ValueOf<bool>(found, allowed); });
}

std::optional<std::string> TomlTable::Text(std::string_view key) {
    return content->Value(key, TextOf);
}

std::optional<std::string> TomlTable::NonEmptyText(std::string_view key) {
    return content->Value(key, [](const Found& found) {
        std::string text = TextOf(found);
        if (text.empty())
            found.Reject("an empty string", "is a string with at least one character");
        return text;
    });
}

std::optional<std::string> TomlTable::Choice(std::string_view key,
                                             const std::vector<std::string>& names) {
    return content->Value(key, [&](const Found& found) { return NameOf(found, names); });
}

std::optional<std::vector<std::string>> TomlTable::Choices(std::string_view key,
                                                           const std::vector<std::string>& names) {
    return content->Value(key, [&](const Found& found) {
        return ArrayOf(found, [&](const Found& element) { return NameOf(element, names); });
    });
}

std::optional<std::int64_t> TomlTable::WideInteger(std::string_view key, std::int64_t least,
                                                   std::int64_t most) {
    return content->Value(key, [&](const Found& found) { return IntegerOf(found, least, most); });
}

std::optional<std::vector<std::int64_t>> TomlTable::WideIntegers(std::string_view key,
                                                                 std::int64_t least,
                                                                 std::int64_t most) {
    return content->Value(key, [&](const Found& found) {
        return ArrayOf(found,
                       [&](const Found& element) { return IntegerOf(element, least, most); });
    });
}

bool TomlTable::HoldsArray(std::string_view key) const {
    return content->table->get_as<toml::array>(key) != nullptr;
}

std::optional<TomlTable> TomlTable::Table(std::string_view key) {
    return content->Value(key, [&](const Found& found) {
        return content->Inner(found, "a table, written [" + found.key + "]");
    });
}

std::optional<std::vector<TomlTable>> TomlTable::Tables(std::string_view key) {
    return content->Value(key, [&](const Found& found) {
        const std::string form = "an array of tables, each written [[" + found.key + "]]";
        if (!found.node->is_array()) found.Reject(KindText(found.node->type()), "is " + form);
        return ArrayOf(found,
                       [&](const Found& element) { return content->Inner(element, "a table"); });
    });
}

KeyPlaces TomlTable::Places() const {
    KeyPlaces places;
    for (auto&& [key, value] : *content->table)
        places.emplace(key.str(), LineText(*content->document, value.source()));
    return places;
}

std::string TomlTable::Place(std::string_view key) const {
    const toml::node* const node = content->table->get(key);
    return node == nullptr ? "" : LineText(*content->document, node->source());
}

void TomlTable::RejectOtherKeys() const {
    const toml::key* first = nullptr;
    for (auto&& [key, value] : *content->table) {
        if (content->allowed.contains(key.str())) continue;
        if (first == nullptr || key.source().begin < first->source().begin) first = &key;
    }
    if (first == nullptr) return;
    throw SettingsError(Where(*content->document, first->source(), content->FullKey(first->str())),
                        "an unknown key",
                        PlainNames({content->allowed.begin(), content->allowed.end()}));
}

void TomlTable::Reject(std::string_view key, const std::string& found,
                       const std::string& allowed) const {
    const toml::node* node = content->table->get(key);
    const toml::source_region& place = (node != nullptr ? *node : *content->table).source();
    throw SettingsError(Where(*content->document, place, content->FullKey(key)), found, allowed);
}

}  // namespace platform
