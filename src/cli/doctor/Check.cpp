#include <cli/doctor/Check.h>

#include <algorithm>

namespace cli {

namespace {

// A check is one line, whatever a file's name or a library's text holds.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char letter) { return letter == '\n' || letter == '\r'; },
        ' ');
    return text;
}

bool IsCapital(char letter) { return letter >= 'A' && letter <= 'Z'; }

// Where the first sentence ends: behind a full stop that a blank and a capital letter follow.
std::size_t EndOfFirstSentence(const std::string& text) {
    for (std::size_t dot = text.find(". "); dot != std::string::npos;
         dot = text.find(". ", dot + 1))
        if (dot + 2 < text.size() && IsCapital(text[dot + 2])) return dot + 1;
    return text.size();
}

}  // namespace

Check Good(const std::string& name, const std::string& text) {
    return {name, true, OneLine(text), ""};
}

Check Bad(const std::string& name, const std::string& text, const std::string& advice) {
    return {name, false, OneLine(text), OneLine(advice)};
}

Check BadFrom(const std::string& name, const std::string& trouble, const std::string& advice) {
    const std::size_t end = EndOfFirstSentence(trouble);
    if (end == trouble.size()) return Bad(name, trouble, advice);
    return Bad(name, trouble.substr(0, end), trouble.substr(end + 1));
}

}  // namespace cli
