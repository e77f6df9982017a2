#include <cli/ShellWord.h>

namespace cli {

std::string ShellWord(const std::string& word) {
    if (!word.empty() && word.find_first_not_of("abcdefghijklmnopqrstuvwxyz"
                                                "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                                "0123456789/._-+=:,@%") == std::string::npos)
        return word;
    std::string quoted = "'";
    for (const char letter : word) quoted += letter == '\'' ? R"('\'')" : std::string(1, letter);
    return quoted + "'";
}

}  // namespace cli
