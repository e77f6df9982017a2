// A table of a TOML file, read key by key; with exact error messages.
//
//     platform::TomlTable file = platform::TomlTable::Read("/etc/bmci2c/platform.toml");
//     if (std::optional<platform::TomlTable> machine = file.Table("machine")) {
//         std::optional<std::string> type = machine->Text("type");
//         machine->RejectOtherKeys();
//     }
//     file.RejectOtherKeys();
//
// The keys that are asked for are the keys that are allowed, so they are written down once. A key
// that is not in the table gives no value. Every operation throws SettingsError, whose text reads
// "file:line:column: key 'machine.type': found ..., allowed ....".
#pragma once

#include <platform/settings/KeyPlaces.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

class TomlTable {
public:
    // Reads a file; a file that cannot be read is an error.
    static TomlTable Read(const std::string& path);

    std::optional<bool> Boolean(std::string_view key);
    // The same where something else may stand there, too, which `allowed` names in an error.
    std::optional<bool> BooleanAmong(std::string_view key, const std::string& allowed);
    std::optional<std::string> Text(std::string_view key);
    std::optional<std::string> NonEmptyText(std::string_view key);

    // One of the names, or an array of some of them.
    std::optional<std::string> Choice(std::string_view key, const std::vector<std::string>& names);
    std::optional<std::vector<std::string>> Choices(std::string_view key,
                                                    const std::vector<std::string>& names);

    // A number from `least` to `most`, or an array of such.
    template <class Number>
    std::optional<Number> Integer(std::string_view key, Number least, Number most);
    template <class Number>
    std::optional<std::vector<Number>> Integers(std::string_view key, Number least, Number most);

    bool HoldsArray(std::string_view key) const;
    std::optional<TomlTable> Table(std::string_view key);
    std::optional<std::vector<TomlTable>> Tables(std::string_view key);

    KeyPlaces Places() const;

    // "FILE:LINE" of a key's value; empty when it is not there.
    std::string Place(std::string_view key) const;

    // Throws when the table holds a key that was not asked for; names the first of them.
    void RejectOtherKeys() const;

    // Throws: the key's value, or its absence, is wrong.
    [[noreturn]] void Reject(std::string_view key, const std::string& found,
                             const std::string& allowed) const;

    // The value of a key that must be given; throws when it is not.
    template <class T>
    T Required(std::string_view key, std::optional<T> value, const std::string& allowed) const;

private:
    struct Content;

    explicit TomlTable(std::shared_ptr<Content> tableContent);
    std::optional<std::int64_t> WideInteger(std::string_view key, std::int64_t least,
                                            std::int64_t most);
    std::optional<std::vector<std::int64_t>> WideIntegers(std::string_view key, std::int64_t least,
                                                          std::int64_t most);

    std::shared_ptr<Content> content;
};

template <class Number>
std::optional<Number> TomlTable::Integer(std::string_view key, Number least, Number most) {
    const std::optional<std::int64_t> wide = WideInteger(key, least, most);
    return wide ? std::optional(static_cast<Number>(*wide)) : std::nullopt;
}

template <class Number>
std::optional<std::vector<Number>> TomlTable::Integers(std::string_view key, Number least,
                                                       Number most) {
    const std::optional<std::vector<std::int64_t>> wide = WideIntegers(key, least, most);
    if (!wide) return std::nullopt;
    std::vector<Number> numbers;
    for (const std::int64_t number : *wide) numbers.push_back(static_cast<Number>(number));
    return numbers;
}

template <class T>
T TomlTable::Required(std::string_view key, std::optional<T> value,
                      const std::string& allowed) const {
    if (!value) Reject(key, "nothing", allowed + "; add this key");
    return *std::move(value);
}

}  // namespace platform
