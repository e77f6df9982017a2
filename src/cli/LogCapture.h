// What the core logger wrote while the module worked.
#pragma once

#include <string>
#include <vector>

namespace cli {

struct LogLine {
    int severity;
    std::string text;
};

// Lets the module, which is loaded after this object is made, write every line of its log into
// memory as well. Where BMCI2C_LOG_CAPTURE is set already, that file gets them instead.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    // The lines so far, in order; none when they could not be captured.
    std::vector<LogLine> Lines() const;

private:
    int file = -1;
};

// The lines of a log with one JSON object per line; what is none is passed over.
std::vector<LogLine> ReadLogLines(const std::string& text);

// The lines that tell why a controller, SMBIOS or the settings could not be used, without their
// repetitions.
std::vector<std::string> Troubles(const std::vector<LogLine>& lines);

}  // namespace cli
