// Messages of a controller that came, but did not answer the request.
#pragma once

#include <map>
#include <string>

namespace platform {

// Why a message does not answer the request.
enum class Flaw {
    Late,  // it answers an earlier request of the session
    Unreadable,
    TooShort,
    Checksum,
    Session,
    Authentication,
    Encryption,
    Sequence,
    Responder,
    NetworkFunction,
    Command,
};

class UnusableAnswers {
public:
    void Add(Flaw flaw) { ++counts[flaw]; }

    bool IsEmpty() const { return counts.empty(); }

    // "2 answers with a wrong checksum, 1 answer of another session"
    std::string InWords() const;

private:
    std::map<Flaw, int> counts;
};

}  // namespace platform
