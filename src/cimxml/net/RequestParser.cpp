#include <cimxml/net/RequestParser.h>
#include <mof/Names.h>

#include <algorithm>
#include <boost/asio/buffer.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <limits>
#include <optional>

namespace cimxml {

namespace {

namespace http = boost::beast::http;
using http::error;

constexpr int kBadRequest = 400;
constexpr int kLengthRequired = 411;
constexpr int kTooLarge = 413;
constexpr int kHeaderTooLarge = 431;
constexpr int kNotImplemented = 501;
constexpr int kVersionNotSupported = 505;
constexpr std::size_t kMostLine = 1024;  // bytes of the line that begins a chunk
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHeadEnd = "\r\n\r\n";

bool IsNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string Text(boost::beast::string_view text) { return {text.data(), text.size()}; }

// The value of a header that Beast has not let through, from the head's bytes.
std::optional<std::string> RawHeader(const std::string& head, const std::string& name) {
    const std::string mark = std::string(kLineEnd) + name + ":";
    const auto at = mof::FoldedName(head).find(mof::FoldedName(mark));
    if (at == std::string::npos) return std::nullopt;
    const auto begin = std::min(head.find_first_not_of(" \t", at + mark.size()), head.size());
    return head.substr(begin, head.find(kLineEnd, begin) - begin);
}

// "HTTP/2.0" and the like at the end of the request line.
bool NamesVersion(const std::string& head) {
    const std::string line = head.substr(0, head.find(kLineEnd));
    const std::string version = line.substr(std::min(line.rfind(' '), line.size() - 1) + 1);
    return version.size() == 8 && version.starts_with("HTTP/") && IsNumber(version.substr(5, 1)) &&
           version[6] == '.' && IsNumber(version.substr(7));
}

[[noreturn]] void FailTooLarge(const Limits& limits) {
    throw HttpError(kTooLarge, "The request is larger than " +
                                   std::to_string(limits.maxRequestSize) + " bytes.");
}

[[noreturn]] void FailNoNumber() {
    throw HttpError(kBadRequest, "The header 'Content-Length' holds no number.");
}

[[noreturn]] void FailTwice(const std::string& name) {
    throw HttpError(kBadRequest, "The header '" + name + "' appears twice.");
}

[[noreturn]] void FailLength(const std::string& head, const Limits& limits) {
    if (RawHeader(head, "Transfer-Encoding"))
        throw HttpError(kBadRequest, "The request says its length in two ways.");
    const std::string folded = mof::FoldedName(head);
    constexpr const char* kMark = "\r\ncontent-length:";
    if (folded.find(kMark) != folded.rfind(kMark)) FailTwice("Content-Length");
    // A number that overflows is too large in any case.
    if (IsNumber(RawHeader(head, "Content-Length").value_or(""))) FailTooLarge(limits);
    FailNoNumber();
}

[[noreturn]] void FailHead(error code, const std::string& head, const Limits& limits) {
    switch (code) {
        case error::bad_version:
            if (NamesVersion(head))
                throw HttpError(kVersionNotSupported, "This server speaks HTTP/1.1.");
            [[fallthrough]];
        case error::bad_method:
        case error::bad_target:
            throw HttpError(kBadRequest, "The request line is not valid HTTP.");
        case error::bad_content_length:
        case error::bad_transfer_encoding:
            FailLength(head, limits);
        default:
            throw HttpError(kBadRequest, "A header is not valid HTTP.");
    }
}

// If there were two, a proxy in front of this server might use the other one.
void CheckStandOnce(const HttpRequest& request) {
    for (const char* name : {"Host", "Content-Length", "Transfer-Encoding", "Authorization"})
        if (std::count_if(request.headers.begin(), request.headers.end(), [&](const auto& header) {
                return mof::SameName(header.first, name);
            }) > 1)
            FailTwice(name);
}

[[noreturn]] void FailChunk() {
    throw HttpError(kBadRequest, "A chunk of the request is not valid HTTP.");
}

std::size_t SizeOf(const http::fields& fields) {
    std::size_t size = 0;
    for (const auto& field : fields) size += field.name_string().size() + field.value().size() + 4;
    return size;
}

}  // namespace

struct RequestParser::State {
    http::request_parser<http::string_body> parser;
    std::size_t headSize = 0;  // of the headers, without the trailers
};

RequestParser::RequestParser(const Limits& theLimits)
    : limits(theLimits), state(std::make_unique<State>()) {
    // TakeHead() and TakeBody() check the sizes themselves, in the order of docs/serve.md.
    state->parser.header_limit(std::numeric_limits<std::uint32_t>::max());
    state->parser.body_limit(std::numeric_limits<std::uint64_t>::max());
}

RequestParser::~RequestParser() = default;

void RequestParser::RequireHeaderSize(std::size_t size, const char* what) const {
    if (size > limits.maxHeaderSize)
        throw HttpError(kHeaderTooLarge, std::string(what) + " are larger than " +
                                             std::to_string(limits.maxHeaderSize) + " bytes.");
}

bool RequestParser::TakeHead(std::string& bytes) {
    std::size_t empty = 0;
    while (bytes.compare(empty, kLineEnd.size(), kLineEnd) == 0) empty += kLineEnd.size();
    bytes.erase(0, empty);
    emptyLines += empty;
    const auto end = bytes.find(kHeadEnd, searched);
    const bool isComplete = end != std::string::npos;
    RequireHeaderSize(emptyLines + (isComplete ? end : bytes.size()), "The request's headers");
    if (!isComplete) {
        searched = bytes.size() - std::min(bytes.size(), kHeadEnd.size() - 1);
        return false;
    }
    ParseHead(bytes.substr(0, end + kHeadEnd.size()));
    bytes.erase(0, end + kHeadEnd.size());
    return true;
}

void RequestParser::ParseHead(const std::string& head) {
    // Beast joins folded headers, which other parsers treat as separate headers.
    if (head.find("\r\n ") != std::string::npos || head.find("\r\n\t") != std::string::npos)
        throw HttpError(kBadRequest, "A header is not valid HTTP.");
    auto& parser = state->parser;
    boost::beast::error_code failure;
    parser.put(boost::asio::buffer(head), failure);
    if (failure) FailHead(static_cast<error>(failure.value()), head, limits);
    const auto& message = parser.get();
    request.method = Text(message.method_string());
    request.target = Text(message.target());
    request.isVersion10 = message.version() == 10;
    request.isLast = request.isVersion10 || !parser.keep_alive();
    for (const auto& field : message)
        request.headers.emplace_back(Text(field.name_string()), Text(field.value()));
    CheckStandOnce(request);
    state->headSize = SizeOf(message);
}

void RequestParser::CheckLength() const {
    const std::string* const length = request.Header("Content-Length");
    const std::string* const coding = request.Header("Transfer-Encoding");
    if (!length && !coding)
        throw HttpError(kLengthRequired, "The request does not say its length.");
    if (length && !IsNumber(*length)) FailNoNumber();
    if (coding && !mof::SameName(*coding, "chunked"))
        throw HttpError(kNotImplemented,
                        "This server does not know the transfer coding '" + *coding + "'.");
    if (state->parser.content_length().value_or(0) > limits.maxRequestSize) FailTooLarge(limits);
}

bool RequestParser::TakeBody(std::string& bytes) {
    auto& parser = state->parser;
    if (!parser.eager()) {
        CheckLength();
        parser.eager(true);
        parser.body_limit(limits.maxRequestSize);
    }
    // Beast must not see a last chunk again before its end has come.
    const bool isReadable = !isLastChunk || bytes.find(kHeadEnd, 1) != std::string::npos;
    while (isReadable && !parser.is_done()) {
        boost::beast::error_code failure;
        bytes.erase(0, parser.put(boost::asio::buffer(bytes), failure));
        if (failure == error::body_limit) FailTooLarge(limits);
        if (failure == error::need_more) break;
        if (failure) FailChunk();
        if (bytes.empty()) break;
    }
    constexpr const char* kTrailers = "The headers after the request";
    RequireHeaderSize(SizeOf(parser.get()) - state->headSize, kTrailers);
    if (parser.is_done()) {
        request.body = std::move(parser.get().body());
        return true;
    }
    // The remaining bytes begin a chunk, or are trailers.
    const bool isBehindChunk = !parser.get().body().empty();
    if (isBehindChunk && bytes.size() >= kLineEnd.size() && !bytes.starts_with(kLineEnd))
        FailChunk();
    isLastChunk = bytes.find(kLineEnd, 1) != std::string::npos;
    if (isLastChunk)
        RequireHeaderSize(bytes.size(), kTrailers);
    else if (bytes.size() > kMostLine)
        throw HttpError(kBadRequest, "A line between the request's chunks is too long.");
    return false;
}

}  // namespace cimxml
