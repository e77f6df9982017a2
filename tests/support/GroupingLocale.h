// A global locale that groups digits ("1.109") while an object lives, as a server may have one.
#pragma once

#include <locale>
#include <string>

class GroupingLocale {
public:
    GroupingLocale()
        : before(std::locale::global(std::locale(std::locale::classic(), new Grouping))) {}
    GroupingLocale(const GroupingLocale&) = delete;
    GroupingLocale& operator=(const GroupingLocale&) = delete;
    ~GroupingLocale() { std::locale::global(before); }

private:
    struct Grouping : std::numpunct<char> {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale before;
};
