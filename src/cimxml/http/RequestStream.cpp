#include <cimxml/http/RequestStream.h>
#include <host/NumberText.h>
#include <mof/Names.h>

#include <algorithm>

namespace cimxml {

namespace {

constexpr std::size_t kBlock = std::size_t{16} << 10;
constexpr std::size_t kMostLine = 1024;  // bytes of the line that begins a chunk
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHeadEnd = "\r\n\r\n";

[[noreturn]] void FailCutShort() { throw ConnectionLost("The request was cut short."); }

}  // namespace

// Reads more bytes; false at the end of the connection.
bool RequestStream::Fill(Deadline deadline) {
    // A client that sends without a pause never has to be waited for.
    if (Clock::now() >= deadline) throw TimedOut();
    const std::size_t used = buffer.size();
    buffer.resize(used + kBlock);
    std::size_t count = 0;
    try {
        count = stream.Read(buffer.data() + used, kBlock, deadline);
    } catch (...) {
        buffer.resize(used);
        throw;
    }
    buffer.resize(used + count);
    return count > 0;
}

void RequestStream::FillTo(std::size_t size, Deadline deadline) {
    while (buffer.size() < size)
        if (!Fill(deadline)) FailCutShort();
}

std::optional<HttpRequest> RequestStream::ReadHead(Deadline deadline) {
    std::size_t searched = 0;
    for (;;) {
        // A client may send an empty line behind a request.
        while (buffer.starts_with(kLineEnd)) buffer.erase(0, kLineEnd.size());
        const auto end = buffer.find(kHeadEnd, searched);
        const bool isComplete = end != std::string::npos;
        if ((isComplete ? end : buffer.size()) > limits.maxHeaderSize)
            throw HttpError(431, "The request's headers are larger than " +
                                     std::to_string(limits.maxHeaderSize) + " bytes.");
        if (isComplete) {
            HttpRequest request = ParseHead(std::string_view(buffer).substr(0, end));
            buffer.erase(0, end + kHeadEnd.size());
            return request;
        }
        searched = buffer.size() - std::min(buffer.size(), kHeadEnd.size() - 1);
        if (Fill(deadline)) continue;
        if (buffer.empty()) return std::nullopt;
        FailCutShort();
    }
}

void RequestStream::RequireSize(std::size_t size) const {
    if (size > limits.maxRequestSize)
        throw HttpError(
            413, "The request is larger than " + std::to_string(limits.maxRequestSize) + " bytes.");
}

void RequestStream::ReadBody(HttpRequest& request, Deadline deadline) {
    const std::string* const length = request.Header("Content-Length");
    const std::string* const coding = request.Header("Transfer-Encoding");
    if (length && coding) throw HttpError(400, "The request says its length in two ways.");
    if (length) return ReadCounted(request, *length, deadline);
    if (!coding) throw HttpError(411, "The request does not say its length.");
    if (!mof::SameName(*coding, "chunked"))
        throw HttpError(501, "This server does not know the transfer coding '" + *coding + "'.");
    ReadChunks(request, deadline);
}

void RequestStream::ReadCounted(HttpRequest& request, const std::string& length,
                                Deadline deadline) {
    const bool isNumber =
        !length.empty() && length.find_first_not_of("0123456789") == std::string::npos;
    if (!isNumber) throw HttpError(400, "The header 'Content-Length' holds no number.");
    // What is no number of this machine's is too large in any case.
    const std::size_t size =
        host::NumberIn<std::size_t>(length).value_or(limits.maxRequestSize + 1);
    RequireSize(size);
    FillTo(size, deadline);
    request.body = buffer.substr(0, size);
    buffer.erase(0, size);
}

std::string RequestStream::TakeLine(Deadline deadline) {
    for (;;) {
        const auto end = buffer.find(kLineEnd);
        if (std::min(end, buffer.size()) > kMostLine)
            throw HttpError(400, "A line between the request's chunks is too long.");
        if (end != std::string::npos) {
            std::string line = buffer.substr(0, end);
            buffer.erase(0, end + kLineEnd.size());
            return line;
        }
        if (!Fill(deadline)) FailCutShort();
    }
}

void RequestStream::ReadChunks(HttpRequest& request, Deadline deadline) {
    for (;;) {
        const std::string line = TakeLine(deadline);
        const auto size =
            host::NumberIn<std::size_t>(line.substr(0, line.find_first_of("; \t")), 16);
        if (!size) throw HttpError(400, "A chunk of the request does not say its size.");
        if (*size == 0) break;
        RequireSize(*size);
        RequireSize(request.body.size() + *size);
        FillTo(*size + kLineEnd.size(), deadline);
        request.body += std::string_view(buffer).substr(0, *size);
        buffer.erase(0, *size);
        if (!buffer.starts_with(kLineEnd))
            throw HttpError(400, "A chunk of the request is longer than it says.");
        buffer.erase(0, kLineEnd.size());
    }
    std::size_t trailers = 0;
    for (std::string line = TakeLine(deadline); !line.empty(); line = TakeLine(deadline)) {
        trailers += line.size();
        if (trailers > limits.maxHeaderSize)
            throw HttpError(431, "The headers behind the request are too large.");
    }
}

}  // namespace cimxml
