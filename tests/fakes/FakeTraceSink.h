// A trace sink that keeps what it is given.
#pragma once

#include <string>
#include <vector>

struct FakeTraceSink {
    static std::vector<std::string> lines;  // in the order of LogMessage's calls
};
