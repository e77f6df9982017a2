// A controller: ipmi_sim on a free port of the loopback interface, with the project's OEM module.
//
//     const IpmiSimulator simulator("09: 00 01\n");
//     ... reach it at 127.0.0.1, simulator.Port(), as kUser with simulator.Password() ...
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

#include "TemporaryFolder.h"

class IpmiSimulator {
public:
    static constexpr char kUser[] = "tester";

    // `script` is what OemModule.cpp reads. Returns when the controller answers; throws
    // std::runtime_error, which shows the simulator's output, when it does not come up.
    explicit IpmiSimulator(const std::string& script);
    IpmiSimulator(const IpmiSimulator&) = delete;
    IpmiSimulator& operator=(const IpmiSimulator&) = delete;
    ~IpmiSimulator();

    std::uint16_t Port() const { return port; }

    // Of this simulator only, so that no other one is taken for it.
    const std::string& Password() const { return password; }

    // A UDP port of the loopback interface that nobody listens at.
    static std::uint16_t FreePort();

private:
    void WriteConfiguration() const;
    void Start();
    void Stop();
    bool ComesUp();
    std::string Output() const;

    TemporaryFolder folder;
    std::string password;
    std::uint16_t port = 0;
    pid_t process = -1;
};
