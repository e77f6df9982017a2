#include "Reply.h"

std::string Object::operator[](const std::string& property) const {
    const auto found = properties.find(property);
    return found == properties.end() ? "absent" : found->second;
}

Object ToObject(const fake::Instance& instance) {
    Object object{to_text(instance.path), {}};
    for (const auto& [name, value] : instance.properties)
        object.properties.emplace(name, fake::to_text(value));
    return object;
}

std::string ToText(const Reply& reply) {
    const std::string code = std::to_string(reply.status.rc);
    return reply.text.empty() ? code : code + ": " + reply.text;
}

std::ostream& operator<<(std::ostream& out, const Reply& reply) {
    return out << ToText(reply) << ", ended " << reply.ends << " times";
}
