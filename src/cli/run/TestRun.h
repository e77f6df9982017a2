// One run of the I2C bus test in this process, and what a CIM client reads after it.
#pragma once

#include <cli/Json.h>
#include <test/RunOptions.h>
#include <test/RunResult.h>

namespace cli {

struct TestRun {
    RunResult result;
    Json job;      // the instance that the client's call gives back
    Json records;  // those that the test keeps, an array
};

// Runs the test as the module's service does, with the settings of this process
// (platform::UseSettings). Lets exceptions of platform and catalog through.
TestRun RunTest(const RunOptions& options);

}  // namespace cli
