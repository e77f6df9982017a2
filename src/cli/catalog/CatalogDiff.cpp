#include <cli/catalog/CatalogDiff.h>
#include <test/RunResult.h>

#include <map>
#include <set>

namespace cli {

namespace {

using Texts = std::map<unsigned short, std::string>;

std::map<std::string, Texts> TextsByMachine(const std::vector<MachineMessages>& machines) {
    std::map<std::string, Texts> all;
    for (const MachineMessages& machine : machines) {
        Texts& texts = all[machine.type];
        for (const CatalogMessage& message : machine.messages)
            texts[message.number] = RecordText(message);
    }
    return all;
}

template <class Map>
auto KeysOf(const Map& one, const Map& other) {
    std::set<typename Map::key_type> keys;
    for (const auto& [key, value] : one) keys.insert(key);
    for (const auto& [key, value] : other) keys.insert(key);
    return keys;
}

std::string TextIn(const Texts& texts, unsigned short number) {
    const auto found = texts.find(number);
    return found == texts.end() ? "" : found->second;
}

}  // namespace

std::vector<CatalogChange> CatalogDiff(const std::vector<MachineMessages>& before,
                                       const std::vector<MachineMessages>& after) {
    const auto old = TextsByMachine(before);
    const auto recent = TextsByMachine(after);
    std::vector<CatalogChange> changes;
    for (const std::string& machine : KeysOf(old, recent)) {
        if (!old.contains(machine) || !recent.contains(machine)) {
            changes.push_back({machine, recent.contains(machine) ? "added" : "removed", "", ""});
            continue;
        }
        const Texts& was = old.at(machine);
        const Texts& is = recent.at(machine);
        for (const unsigned short number : KeysOf(was, is))
            if (TextIn(was, number) != TextIn(is, number))
                changes.push_back({machine, "message " + std::to_string(number),
                                   TextIn(was, number), TextIn(is, number)});
    }
    return changes;
}

std::string RecordText(const CatalogMessage& message) {
    return ::TextOf(
        ResultMessage{.line = message.line, .recommendations = message.recommendations});
}

}  // namespace cli
