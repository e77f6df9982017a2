// A module for ipmi_sim that answers the OEM commands of network function 0x3A from a script.
//
// The module's option is the script's path. A line is "COMMAND: ANSWER", the command in
// hexadecimal; the answer is "silent" or bytes in hexadecimal, the completion code first. A
// command's lines are used in their order, one a request; the last one is used for ever. An empty
// line, or one that begins with '#', says nothing.
//
//     09: ff                 the first I2C status request finds the controller busy
//     09: 00 01 00 00        each later one reports the first bus as failed
//     c1: silent             the generation query is never answered
extern "C" {
#include <OpenIPMI/mcserv.h>
}

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr unsigned char kOemNetFn = 0x3A;
constexpr long kNoAnswer = 1;
constexpr int kLoaded = 0;
constexpr int kNotLoaded = 1;

using Bytes = std::vector<unsigned char>;

struct Command {
    std::vector<std::optional<Bytes>> answers;  // without bytes: silent
    std::size_t next = 0;
};

// Never freed: the simulator calls the handlers until it ends.
std::map<unsigned char, Command>& Commands() {
    static auto* commands = new std::map<unsigned char, Command>;
    return *commands;
}

unsigned char ReadByte(const std::string& text) {
    const unsigned long value = std::stoul(text, nullptr, 16);
    if (value > 0xFF) throw std::out_of_range(text + " is more than a byte");
    return static_cast<unsigned char>(value);
}

std::optional<Bytes> ReadAnswer(std::istream& words) {
    Bytes bytes;
    for (std::string word; words >> word;) {
        if (word == "silent") return std::nullopt;
        bytes.push_back(ReadByte(word));
    }
    if (bytes.empty()) throw std::invalid_argument("an answer needs a completion code");
    return bytes;
}

void ReadScript(const std::string& path) {
    std::ifstream script(path);
    if (!script) throw std::invalid_argument("cannot read " + path);
    for (std::string line; std::getline(script, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream words(line);
        std::string command;
        std::getline(words, command, ':');
        Commands()[ReadByte(command)].answers.push_back(ReadAnswer(words));
    }
}

// The simulator asks before it sends a response: a request marked silent gets none.
int SwallowSilentResponse(channel_t*, msg_t* request, rsp_msg_t*) {
    return request->oem_data == kNoAnswer;
}

void Answer(lmc_data_t*, msg_t* request, unsigned char* response, unsigned int* length,
            void* data) {
    Command& command = *static_cast<Command*>(data);
    const std::optional<Bytes>& answer = command.answers[command.next];
    if (command.next + 1 < command.answers.size()) ++command.next;

    if (!answer) {
        request->oem_data = kNoAnswer;
        request->orig_channel->oem.oem_handle_rsp = SwallowSilentResponse;
        response[0] = 0;
        *length = 1;
        return;
    }
    std::copy(answer->begin(), answer->end(), response);
    *length = static_cast<unsigned int>(answer->size());
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int ipmi_sim_module_print_version(sys_data_t*,
                                                                                    char*) {
    std::puts("OEM commands of the I2C bus test");
    return kLoaded;
}

extern "C" __attribute__((visibility("default"))) int ipmi_sim_module_init(sys_data_t*,
                                                                           const char* options) {
    try {
        ReadScript(options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The script of the OEM module is wrong: %s\n", error.what());
        return kNotLoaded;
    }
    for (auto& [code, command] : Commands()) {
        if (ipmi_emu_register_cmd_handler(kOemNetFn, code, Answer, &command) != 0)
            return kNotLoaded;
    }
    return kLoaded;
}
