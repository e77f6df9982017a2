// The registry that all providers share: the diagnostic tests of this module and the identifier of
// the latest run.
#pragma once

#include <base/NoDestructor.h>
#include <framework/Datetime.h>
#include <framework/String.h>
#include <test/DiagService.h>

#include <mutex>
#include <vector>

class Globals_BMCI2C_Test {
public:
    // The one registry of this process; made at the first call and never freed. When making it
    // fails, the exception reaches the caller and the next call tries again.
    static Globals_BMCI2C_Test* Instance();

    Globals_BMCI2C_Test(const Globals_BMCI2C_Test&) = delete;
    Globals_BMCI2C_Test& operator=(const Globals_BMCI2C_Test&) = delete;

    // Draws a new identifier, "BMCI2C_Record:" and a number from 0 to 999, which may repeat.
    void GenerateInstanceID();

    // The current identifier; draws the first one when no run has done so.
    cimple::String GetInstanceID();

    std::vector<DiagService*> tests;  // in the order of registration
    cimple::Datetime installDate;     // when the registry was made
    cimple::String systemName;        // stays empty

private:
    friend class base::NoDestructor<Globals_BMCI2C_Test>;
    Globals_BMCI2C_Test();
    ~Globals_BMCI2C_Test() = default;

    void DrawInstanceID();

    std::mutex instanceIDLock;  // guards instanceID, and with it the calls of rand()
    cimple::String instanceID;  // empty until the first one is drawn
};
