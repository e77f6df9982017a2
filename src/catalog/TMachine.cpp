#include <catalog/TMachine.h>

#include <utility>

TMachine::TMachine(std::string machineType) { AddMachineType(std::move(machineType)); }

void TMachine::AddMachineType(std::string machineType) {
    machineTypes.push_back(std::move(machineType));
}

void TMachine::SetMessege(TXMessage newMessage) { message = newMessage; }
