// Every text of a catalog as the test would say it.
#pragma once

#include <string>
#include <vector>

namespace cli {

struct CatalogMessage {
    unsigned short number = 0;
    std::string line;        // "166-NUMBER-001 HEADING TEXT": of the first controller
    std::string textSource;  // the entry that the text is from, or "fallback text"
    std::vector<std::string> recommendations;
    std::string recommendationSource;  // the entry; empty when there are none
};

struct MachineMessages {
    std::string type;
    std::vector<CatalogMessage> messages;  // by number
};

// Which build and which controller family the texts are for.
struct CatalogUse {
    bool isOem = false;
    bool isOxc = false;
};

// The machines that the catalog supports, by type, equates included. Throws std::system_error when
// the file cannot be read, CommandError when the catalog cannot be used.
std::vector<MachineMessages> CatalogMachines(const std::string& path, const CatalogUse& use);

}  // namespace cli
