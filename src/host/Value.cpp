#include <host/Value.h>
#include <host/schema/FindByName.h>

#include <charconv>

namespace host {

namespace {

constexpr std::size_t kLongestReal = 32;  // characters of a double's shortest exact text

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') quoted += '\\';
        quoted += letter;
    }
    return quoted + '"';
}

std::string RealText(double real) {
    char buffer[kLongestReal];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), real).ptr;
    return {std::begin(buffer), end};
}

// The text of a key's value in an object path. NULL becomes an empty text, as in other CIM servers.
struct KeyText {
    std::string operator()(std::monostate) const { return Quoted(""); }
    std::string operator()(bool flag) const { return flag ? "true" : "false"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(std::uint64_t number) const { return std::to_string(number); }
    std::string operator()(double real) const { return RealText(real); }
    std::string operator()(const std::string& text) const { return Quoted(text); }
    std::string operator()(const std::shared_ptr<const ObjectPath>& path) const {
        return Quoted(path->ToString());
    }
    std::string operator()(const std::shared_ptr<const Instance>& instance) const {
        return Quoted(instance->path.ToString());
    }
    std::string operator()(const std::vector<Value>& elements) const {
        std::string text;
        for (const Value& element : elements) {
            if (!text.empty()) text += ',';
            text += std::visit(*this, element.data);
        }
        return "{" + text + "}";
    }
};

}  // namespace

const Value* FindValue(const std::vector<NamedValue>& values, const std::string& name) {
    const NamedValue* const found = FindByName(values, name);
    return found ? &found->value : nullptr;
}

std::string ObjectPath::ToString() const {
    std::string text = nameSpace.empty() ? className : nameSpace + ":" + className;
    char separator = '.';
    for (const NamedValue& key : keys) {
        text += separator + key.name + "=" + std::visit(KeyText{}, key.value.data);
        separator = ',';
    }
    return text;
}

}  // namespace host
