// A program that loads the module as a CIM server does, and knows nothing of its settings: runs the
// diagnostic and prints the records' texts. Names on the standard error stream what of the process
// the module has changed.
//
// Usage: PROGRAM MODULE SCHEMA-FOLDER
#include <host/Host.h>

#include <exception>
#include <iostream>
#include <string>

#include "ProcessState.h"

namespace {

constexpr const char* kNameSpace = "root/QUVSD";

void Require(const host::Status& status) {
    if (!status.IsOk()) throw host::Failure(status);
}

void RunAndPrint(host::Host& host) {
    const auto services =
        host.EnumerateInstances({kNameSpace, "QUVSG_BMCI2C_DiagnosticService", {}});
    Require(services.status);
    Require(host.InvokeMethod(services.instances.at(0).path, "RunDiagnostic", {}).status);
    const auto records =
        host.EnumerateInstances({kNameSpace, "QUVSG_BMCI2C_DiagnosticCompletionRecord", {}});
    Require(records.status);
    for (const host::Instance& record : records.instances)
        std::cout << std::get<std::string>(host::FindValue(record.properties, "RecordData")->data)
                  << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 64;
    const std::string schema = argv[2];
    const auto before = ProcessState();
    try {
        host::Host host({.module = argv[1],
                         .schema = schema + "/bmci2c.mof",
                         .registrations = schema + "/bmci2c.reg"});
        RunAndPrint(host);
        for (const auto& [name, value] : ProcessState())
            if (value != before.at(name)) std::cerr << name << " is now " << value << '\n';
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
