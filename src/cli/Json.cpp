#include <cli/Json.h>

#include <memory>
#include <variant>

namespace cli {

namespace {

struct Conversion {
    Json operator()(std::monostate) const { return nullptr; }
    Json operator()(const std::shared_ptr<const host::ObjectPath>& path) const {
        return path->ToString();
    }
    Json operator()(const std::shared_ptr<const host::Instance>& instance) const {
        return ToJson(*instance);
    }
    Json operator()(const std::vector<host::Value>& elements) const {
        Json array = Json::array();
        for (const host::Value& element : elements) array.push_back(ToJson(element));
        return array;
    }
    template <class Plain>
    Json operator()(const Plain& plain) const {
        return plain;
    }
};

}  // namespace

Json ToJson(const host::Value& value) { return std::visit(Conversion{}, value.data); }

Json ToJson(const std::vector<host::NamedValue>& values) {
    Json object = Json::object();
    for (const auto& [name, value] : values) object[name] = ToJson(value);
    return object;
}

Json ToJson(const host::Instance& instance) {
    return {{"class", instance.path.className},
            {"path", instance.path.ToString()},
            {"properties", ToJson(instance.properties)}};
}

std::string JsonText(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace cli
