// An incremental parser of one HTTP request.
#pragma once

#include <cimxml/net/HttpMessage.h>
#include <cimxml/net/Limits.h>

#include <cstddef>
#include <memory>
#include <string>

namespace cimxml {

class RequestParser {
public:
    explicit RequestParser(const Limits& theLimits);
    ~RequestParser();
    RequestParser(const RequestParser&) = delete;
    RequestParser& operator=(const RequestParser&) = delete;

    // Each removes the bytes that it uses, and returns true when the line and headers (then the
    // body) are complete; to be called again with more bytes until then. Both throw HttpError.
    // Refuses what proxies and clients interpret differently: two lengths, folded headers, bare
    // line feeds.
    bool TakeHead(std::string& bytes);
    bool TakeBody(std::string& bytes);

    // The request, as far as it is complete.
    HttpRequest& Request() { return request; }

private:
    struct State;

    void ParseHead(const std::string& head);
    void CheckLength() const;
    void RequireHeaderSize(std::size_t size, const char* what) const;

    const Limits& limits;
    HttpRequest request;
    std::size_t emptyLines = 0;  // bytes of empty lines before the request
    std::size_t searched = 0;    // bytes in which the end of the head is not
    bool isLastChunk = false;    // only the trailers are missing
    std::unique_ptr<State> state;
};

}  // namespace cimxml
