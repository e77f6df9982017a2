#include <platform/settings/NameList.h>

namespace platform {

std::string PlainNames(const std::vector<std::string>& names) {
    std::string text = names.size() == 1 ? "is " : "are ";
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i != 0) text += i + 1 == names.size() ? " and " : ", ";
        text += names[i];
    }
    return text;
}

std::string QuotedNames(std::vector<std::string> names) {
    for (std::string& name : names) name.insert(0, 1, '"').push_back('"');
    return PlainNames(names);
}

}  // namespace platform
