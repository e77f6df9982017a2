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
//
// A script that another one replaces while the simulator runs is read at the next request, for the
// commands of the first script; those that have no line any more are unknown to the controller.
extern "C" {
#include <OpenIPMI/mcserv.h>
}

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
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

struct Script {
    std::string path;
    std::string text;
    std::map<unsigned char, Command> commands;
};

// Never freed: the simulator calls the handlers until it ends.
Script& TheScript() {
    static auto* script = new Script;
    return *script;
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

std::string ReadText(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::invalid_argument("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Keeps the commands where they are: the simulator's handlers refer to them.
void Use(Script& script, const std::string& text) {
    script.text = text;
    for (auto& [code, command] : script.commands) command = {};
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream words(line);
        std::string command;
        std::getline(words, command, ':');
        script.commands[ReadByte(command)].answers.push_back(ReadAnswer(words));
    }
}

// Reads the script if it is new. False, with a line of output, when it is wrong.
bool Refresh(Script& script) {
    try {
        const std::string text = ReadText(script.path);
        if (text != script.text) Use(script, text);
        return true;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The script of the OEM module is wrong: %s\n", error.what());
        return false;
    }
}

// The simulator asks before it sends a response: a request marked silent gets none.
int SwallowSilentResponse(channel_t*, msg_t* request, rsp_msg_t*) {
    return request->oem_data == kNoAnswer;
}

void Answer(lmc_data_t* controller, msg_t* request, unsigned char* response, unsigned int* length,
            void* data) {
    if (!Refresh(TheScript())) std::exit(EXIT_FAILURE);
    Command& command = *static_cast<Command*>(data);
    if (command.answers.empty()) {
        handle_invalid_cmd(controller, response, length);
        return;
    }
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
    Script& script = TheScript();
    script.path = options;
    if (!Refresh(script)) return kNotLoaded;
    for (auto& [code, command] : script.commands) {
        if (ipmi_emu_register_cmd_handler(kOemNetFn, code, Answer, &command) != 0)
            return kNotLoaded;
    }
    return kLoaded;
}
