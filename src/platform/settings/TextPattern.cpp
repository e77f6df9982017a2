#include <locale.h>
#include <platform/settings/TextPattern.h>
#include <regex.h>

#include <array>
#include <string_view>

namespace platform {

namespace {

constexpr std::size_t kGroups = 10;  // \0 to \9

// The thread's locale is "C" while an object lives.
class PlainLocale {
public:
    PlainLocale() : plain(::newlocale(LC_ALL_MASK, "C", nullptr)), before(::uselocale(plain)) {}
    ~PlainLocale() {
        ::uselocale(before);
        ::freelocale(plain);
    }
    PlainLocale(const PlainLocale&) = delete;
    PlainLocale& operator=(const PlainLocale&) = delete;

private:
    const locale_t plain;
    const locale_t before;
};

std::string ReasonText(int error, const regex_t& expression) {
    std::array<char, 256> text{};
    ::regerror(error, &expression, text.data(), text.size());
    return text.data();
}

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

// Walks through a replacement: `onText` gets a letter that stands for itself, `onGroup` the number
// of a group. Throws PatternError.
template <class OnText, class OnGroup>
void Walk(std::string_view form, const OnText& onText, const OnGroup& onGroup) {
    for (std::size_t i = 0; i < form.size(); ++i) {
        if (form[i] != '\\') {
            onText(form[i]);
            continue;
        }
        const char next = ++i < form.size() ? form[i] : '\0';
        if (IsDigit(next)) {
            onGroup(static_cast<std::size_t>(next - '0'));
        } else if (next == '\\') {
            onText(next);
        } else {
            throw PatternError("a backslash without a digit behind it");
        }
    }
}

}  // namespace

struct TextPattern::Expression {
    explicit Expression(const std::string& pattern) {
        if (pattern.find('\0') != std::string::npos) throw PatternError("a NUL character");
        const PlainLocale locale;
        const int error = ::regcomp(&compiled, pattern.c_str(), REG_EXTENDED);
        if (error != 0) throw PatternError(ReasonText(error, compiled));
    }
    ~Expression() { ::regfree(&compiled); }
    Expression(const Expression&) = delete;
    Expression& operator=(const Expression&) = delete;

    regex_t compiled{};
};

TextPattern::TextPattern(const std::string& pattern, const std::optional<std::string>& replacement)
    : expression(std::make_shared<const Expression>(pattern)) {
    const std::size_t groups = expression->compiled.re_nsub;
    form = replacement.value_or(groups == 0 ? R"(\0)" : R"(\1)");
    Walk(
        form, [](char) {},
        [&](std::size_t group) {
            if (group > groups)
                throw PatternError("the pattern has no group " + std::to_string(group));
        });
}

std::optional<std::string> TextPattern::Cut(const std::string& text) const {
    std::array<regmatch_t, kGroups> found{};
    found[0] = {.rm_so = 0, .rm_eo = static_cast<regoff_t>(text.size())};
    const PlainLocale locale;
    if (::regexec(&expression->compiled, text.c_str(), kGroups, found.data(), REG_STARTEND) != 0)
        return std::nullopt;
    std::string cut;
    Walk(
        form, [&](char letter) { cut += letter; },
        [&](std::size_t group) {
            const auto [begin, end] = found.at(group);
            if (begin < 0) return;  // a group that took no part
            cut.append(text, static_cast<std::size_t>(begin),
                       static_cast<std::size_t>(end - begin));
        });
    return cut;
}

}  // namespace platform
