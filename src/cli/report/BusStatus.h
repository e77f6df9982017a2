// What a run learned of each controller's busses.
#pragma once

#include <cli/LogCapture.h>
#include <host/Value.h>

#include <cstddef>
#include <string>
#include <vector>

namespace cli {

enum class Bus {
    Good,
    Failed,
    None,  // the controller has no bus of this number
};

struct ControllerStatus {
    enum class Outcome {
        NotAsked,      // the run ended before
        NotDelivered,  // no request could be delivered
        BadLength,     // the answer was too short
        Refused,       // the answer had a completion code
        Examined,
    };

    Outcome outcome = Outcome::NotAsked;
    int length = 0;                      // of a BadLength
    unsigned int completionCode = 0;     // of a Refused
    std::vector<Bus> busses = {};        // of an Examined, by bus number
    bool hasBytesWithoutBusses = false;  // some of its status bytes stand for no bus at all
};

// By node, from the log lines of one run: the dumps hold every status bit. Empty when the log tells
// of no controller. At least `count` elements otherwise.
std::vector<ControllerStatus> StatusFromLog(const std::vector<LogLine>& lines, std::size_t count);

// The same from the records' texts, which tell only of failed busses: those below the highest
// failed one of a controller are taken as good, and how many there are is not known.
std::vector<ControllerStatus> StatusFromRecords(const std::vector<host::Instance>& records,
                                                std::size_t count);

}  // namespace cli
