// Reads HTTP requests from a connection, one after the other.
#pragma once

#include <cimxml/http/HttpMessage.h>
#include <cimxml/http/Limits.h>
#include <cimxml/http/Stream.h>

#include <optional>
#include <string>

namespace cimxml {

class RequestStream {
public:
    RequestStream(Stream& connection, const Limits& theLimits)
        : stream(connection), limits(theLimits) {}

    // True when bytes of the next request have been read already.
    bool HasBytes() const { return !buffer.empty(); }

    // The line and headers of the next request; nothing when the client has closed the connection.
    // Throws HttpError, ConnectionLost or TimedOut, as ReadBody does.
    std::optional<HttpRequest> ReadHead(Deadline deadline);

    // The body of the request whose head was read last.
    void ReadBody(HttpRequest& request, Deadline deadline);

private:
    bool Fill(Deadline deadline);
    void FillTo(std::size_t size, Deadline deadline);
    std::string TakeLine(Deadline deadline);
    void ReadCounted(HttpRequest& request, const std::string& length, Deadline deadline);
    void ReadChunks(HttpRequest& request, Deadline deadline);
    void RequireSize(std::size_t size) const;

    Stream& stream;
    const Limits& limits;
    std::string buffer;  // read, not yet used
};

}  // namespace cimxml
