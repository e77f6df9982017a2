// The catalog's texts for a result on one machine: its own entry takes precedence over the generic
// one.
#pragma once

#include <catalog/TMachine.h>
#include <test/RunResult.h>

#include <cstdint>
#include <string>
#include <vector>

class CatalogTexts {
public:
    enum class Source { Machine, Generic, Fallback };

    CatalogTexts(const TMachine& machine, const TMachine& generic)
        : own(machine.GetMessege()), general(generic.GetMessege()) {}

    // The message of the number about a controller (from 1), as the test says it; a pass comes
    // without recommendations. `kind` is one of MessageNumbers.h.
    ResultMessage Message(int kind, unsigned short number, std::int32_t controller) const;

    // Where the text of a number, and where its recommendations come from.
    Source SourceOfText(unsigned short number) const;
    Source SourceOfRecommendations(unsigned short number) const;

private:
    std::string Text(unsigned short number) const;
    std::vector<std::string> Recommendations(unsigned short number) const;

    TXMessage own;
    TXMessage general;
};
