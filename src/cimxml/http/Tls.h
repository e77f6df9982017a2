// TLS for connections.
#pragma once

#include <cimxml/SetupError.h>
#include <cimxml/http/Stream.h>

#include <memory>
#include <string>

namespace cimxml {

class TlsContext {
public:
    // Files in PEM form; the certificate may be followed by those of its issuers. Throws
    // SetupError.
    TlsContext(const std::string& certificate, const std::string& key);
    ~TlsContext();
    TlsContext(const TlsContext&) = delete;
    TlsContext& operator=(const TlsContext&) = delete;

    // Agrees with the client. Throws ConnectionLost or TimedOut.
    std::unique_ptr<Stream> Accept(Descriptor socket, Deadline deadline) const;

private:
    struct State;
    const std::unique_ptr<State> state;
};

}  // namespace cimxml
