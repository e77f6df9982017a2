// A connection whose client has sent all that it will send.
#pragma once

#include <cimxml/http/Stream.h>

#include <algorithm>
#include <string>
#include <utility>

namespace cimxml {

// Gives what it was filled with, a few bytes at a time.
class ScriptedStream : public Stream {
public:
    ScriptedStream(std::string bytes, std::size_t bytesAtATime, Descriptor connected = {})
        : Stream(std::move(connected)), rest(std::move(bytes)), step(bytesAtATime) {}

    std::size_t Read(char* buffer, std::size_t size, Deadline) override {
        const std::size_t count = std::min({size, step, rest.size()});
        rest.copy(buffer, count);
        rest.erase(0, count);
        return count;
    }

    void Write(std::string_view text, Deadline) override { written += text; }

    bool HasBytes() const override { return !rest.empty(); }

    std::string written;

private:
    std::string rest;
    const std::size_t step;
};

}  // namespace cimxml
