// A syslog that keeps what it is sent, in the place of the one that runs on this machine.
#pragma once

#include <optional>
#include <string>

class SyslogServer {
public:
    // Listens at a path. Throws std::system_error.
    explicit SyslogServer(const std::string& path);
    SyslogServer(const SyslogServer&) = delete;
    SyslogServer& operator=(const SyslogServer&) = delete;
    ~SyslogServer();

    // The next message, as it came; nothing when there is none.
    std::optional<std::string> Next() const;

    // The text of the next message, without priority, date and sender; nothing when there is none.
    std::optional<std::string> NextText() const;

private:
    std::string path;
    int connection;
};

// Where the syslog sinks of this process send to.
inline std::string replacedSyslogSocket = "/nonexistent/log";
