#include <test/BMCI2C_Test_Impl.h>
#include <test/Globals_BMCI2C_Test.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace {

constexpr int kInstanceIDs = 1000;

}  // namespace

Globals_BMCI2C_Test* Globals_BMCI2C_Test::Instance() {
    // The initialisation is thread-safe, and repeated at the next call if it throws.
    static base::NoDestructor<Globals_BMCI2C_Test> registry;
    return &*registry;
}

Globals_BMCI2C_Test::Globals_BMCI2C_Test() : installDate(cimple::Datetime::now()) {
    auto i2cBusTest = std::make_unique<BMCI2C_Test_Impl>();
    tests.push_back(i2cBusTest.get());
    static_cast<void>(i2cBusTest.release());
}

void Globals_BMCI2C_Test::GenerateInstanceID() {
    const std::lock_guard<std::mutex> changing(instanceIDLock);
    DrawInstanceID();
}

cimple::String Globals_BMCI2C_Test::GetInstanceID() {
    const std::lock_guard<std::mutex> reading(instanceIDLock);
    if (instanceID.empty()) {
        DrawInstanceID();
    }
    return instanceID;
}

// rand() is left unseeded: the sequence of identifiers is the same in every process.
void Globals_BMCI2C_Test::DrawInstanceID() {
    const std::string number = std::to_string(std::rand() % kInstanceIDs);
    instanceID = "BMCI2C_Record:" + number;
}
