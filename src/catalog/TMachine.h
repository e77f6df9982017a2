// A machine entry of the catalog: the machine types that it is for, and its message.
#pragma once

#include <catalog/TXMessage.h>

#include <string>
#include <vector>

class TMachine {
public:
    explicit TMachine(std::string machineType);

    // Appends, even if it is already in the list.
    void AddMachineType(std::string machineType);
    // In the order in which they were added.
    std::vector<std::string> GetMachineTypes() const { return machineTypes; }

    // Assigns, so recommendations accumulate (see TXMessage). The spelling is the interface's name.
    void SetMessege(TXMessage newMessage);
    TXMessage GetMessege() const { return message; }

private:
    std::vector<std::string> machineTypes;
    TXMessage message;
};
