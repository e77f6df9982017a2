// TLS for connections.
#pragma once

#include <cimxml/SetupError.h>

#include <memory>
#include <string>

namespace boost::asio::ssl {
class context;
}

namespace cimxml {

using TlsContext = std::shared_ptr<boost::asio::ssl::context>;

// Reads the files, in PEM form; the certificate may be followed by those of its issuers. Throws
// SetupError, also when every user of the machine could read the key.
TlsContext ReadTlsFiles(const std::string& certificate, const std::string& key);

}  // namespace cimxml
