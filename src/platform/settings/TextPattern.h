// Cuts what counts out of a text.
//
//     platform::TextPattern pattern("^QUV-([0-9]+)");
//     pattern.Cut("QUV-7000 rev. 2");  // "7000"
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace platform {

// what() says in a few words what is wrong with a pattern or a replacement.
class PatternError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class TextPattern {
public:
    // `pattern` is an extended regular expression of POSIX: unlike others, its search takes neither
    // endless time nor endless stack. It is matched by bytes, whatever the process's locale.
    // `replacement` is made of what is found; in it \0 stands for the whole, \1 to \9 for the
    // groups, and \\ for a backslash. Without one, the first group is taken, or the whole when the
    // pattern has no group. Throws PatternError.
    explicit TextPattern(const std::string& pattern,
                         const std::optional<std::string>& replacement = std::nullopt);

    // Of the first place where the pattern is found; nothing when it is not found.
    std::optional<std::string> Cut(const std::string& text) const;

private:
    struct Expression;

    std::shared_ptr<const Expression> expression;
    std::string form;  // the replacement
};

}  // namespace platform
