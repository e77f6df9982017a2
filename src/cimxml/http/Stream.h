// The bytes of one connection, in clear or through TLS. Every call has a deadline.
#pragma once

#include <cimxml/http/Descriptor.h>
#include <cimxml/http/Waiting.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace cimxml {

// The connection can no longer be used.
class ConnectionLost : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The deadline has passed.
class TimedOut : public std::runtime_error {
public:
    TimedOut() : std::runtime_error("The time is over.") {}
};

class Stream {
public:
    virtual ~Stream() = default;
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    // Reads at least one byte and at most `size`; 0 when the client has closed its side. Throws
    // ConnectionLost or TimedOut, as Write does.
    virtual std::size_t Read(char* buffer, std::size_t size, Deadline deadline) = 0;
    virtual void Write(std::string_view text, Deadline deadline) = 0;

    // True when bytes can be had that the descriptor does not show.
    virtual bool HasBytes() const { return false; }

    // Says goodbye, and reads what the client still sends until it closes or the deadline has
    // passed: a connection closed with unread bytes is reset, and the client would lose the answer.
    void Finish(Deadline deadline);

    int Socket() const { return socket.Get(); }

protected:
    explicit Stream(Descriptor connected) : socket(std::move(connected)) {}

    // What goes before the end of the connection.
    virtual void SayGoodbye() {}

private:
    Descriptor socket;
};

// In clear. The socket does not block.
std::unique_ptr<Stream> ClearStream(Descriptor socket);

}  // namespace cimxml
