#include <host/loading/RegistrationsFile.h>
#include <mof/Names.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <set>
#include <sstream>
#include <utility>

namespace host {

namespace {

constexpr const char* kSpace = " \t\r";
constexpr const char* kNeverUnload = "never";

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(kSpace);
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

std::vector<std::string> Words(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

class RegistrationsReader {
public:
    RegistrationsReader(std::istream& stream, std::string fileName)
        : text(stream), name(std::move(fileName)) {}

    std::vector<Registration> Read() {
        for (std::string content; std::getline(text, content);) {
            ++line;
            const std::string statement = Trimmed(content.substr(0, content.find('#')));
            if (statement.empty()) continue;
            if (statement.front() == '[')
                BeginStanza(statement);
            else
                ReadEntry(statement);
        }
        FinishStanza();
        if (stanzas.empty()) throw LoadError(name + ": No class is registered here.");
        return std::move(stanzas);
    }

private:
    [[noreturn]] void Fail(const std::string& message) const { FailAt(line, message); }

    [[noreturn]] void FailAt(std::size_t at, const std::string& message) const {
        throw LoadError(name + ":" + std::to_string(at) + ": " + message);
    }

    void BeginStanza(const std::string& statement) {
        FinishStanza();
        if (statement.back() != ']') Fail("The stanza's class name lacks its closing bracket.");
        const std::string className = Trimmed(statement.substr(1, statement.size() - 2));
        if (className.empty()) Fail("The stanza names no class.");
        for (const Registration& earlier : stanzas)
            if (mof::SameName(earlier.className, className))
                Fail("The class '" + className + "' is registered twice.");
        stanzas.push_back({className, {}, {}, {}, {}});
        stanzaLine = line;
        seen.clear();
    }

    void ReadEntry(const std::string& statement) {
        const auto colon = statement.find(':');
        if (colon == std::string::npos) Fail("Expected 'key: value' or '[class]'.");
        const std::string key = Trimmed(statement.substr(0, colon));
        const std::string value = Trimmed(statement.substr(colon + 1));
        if (stanzas.empty()) Fail("The key '" + key + "' stands before the first '[class]'.");
        if (value.empty()) Fail("The key '" + key + "' has no value.");
        if (!seen.insert(key).second) Fail("The key '" + key + "' is given twice.");
        Store(key, value);
    }

    void Store(const std::string& key, const std::string& value) {
        Registration& stanza = stanzas.back();
        if (key == "provider")
            stanza.provider = value;
        else if (key == "location")
            stanza.location = value;
        else if (key == "namespace")
            stanza.nameSpaces = Words(value);
        else if (key == "type")
            stanza.types = Types(value);
        else if (key != "unload")
            Fail("The key '" + key +
                 "' is unknown; the keys are provider, location, type, namespace and unload.");
        else if (value != kNeverUnload)
            Fail("The key 'unload' can only be 'never', not '" + value + "'.");
    }

    std::vector<std::string> Types(const std::string& value) const {
        std::vector<std::string> types = Words(value);
        for (const std::string& type : types)
            if (type != kInstanceType && type != kMethodType && type != kAssociationType)
                Fail("The type '" + type +
                     "' is unknown; the types are instance, method and association.");
        return types;
    }

    void FinishStanza() const {
        if (stanzas.empty()) return;
        for (const char* const key : {"provider", "location", "type", "namespace"})
            if (!seen.contains(key))
                FailAt(stanzaLine,
                       "The class '" + stanzas.back().className + "' has no key '" + key + "'.");
    }

    std::istream& text;
    const std::string name;
    std::size_t line = 0;
    std::size_t stanzaLine = 0;
    std::set<std::string> seen;  // the keys of the stanza under way
    std::vector<Registration> stanzas;
};

}  // namespace

std::vector<Registration> ReadRegistrations(std::istream& text, const std::string& name) {
    return RegistrationsReader(text, name).Read();
}

std::vector<Registration> ReadRegistrations(const std::string& path) {
    std::ifstream file(path);
    if (!file)
        throw LoadError("The registrations '" + path + "' cannot be read: " + std::strerror(errno) +
                        ".");
    return ReadRegistrations(file, path);
}

}  // namespace host
