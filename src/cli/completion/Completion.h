// Completions of a command line that is being typed.
#pragma once

#include <cli/completion/SchemaWords.h>

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace cli {

struct Candidate {
    std::string word;
    std::string description;
};

struct Completion {
    enum class Kind { Words, Files, Folders };

    Kind kind = Kind::Words;
    std::vector<Candidate> candidates;  // of the kind Words, whatever the last word begins with
};

// `words` follow the program's name; the last one, which may be empty, is being typed. Does nothing
// but read the schema's files.
Completion Complete(const CLI::App& program, const std::vector<std::string>& words,
                    const SchemaWords& schema);

// For the shells: a line for each candidate, its description after a tab; or the line ":files" or
// ":folders".
std::string CompletionText(const Completion& completion);

}  // namespace cli
