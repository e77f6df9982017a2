#include <cimxml/net/HttpMessage.h>
#include <mof/Names.h>

#include <algorithm>
#include <boost/beast/http/status.hpp>
#include <ctime>
#include <ostream>  // which Beast lacks

namespace cimxml {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string ReasonOf(int status) {
    const auto text =
        boost::beast::http::obsolete_reason(static_cast<boost::beast::http::status>(status));
    return {text.data(), text.size()};
}

std::string DateText() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    ::gmtime_r(&now, &parts);
    char text[40];
    return {text, std::strftime(text, sizeof text, "%a, %d %b %Y %H:%M:%S GMT", &parts)};
}

void AddHeader(std::string& bytes, std::string_view name, std::string_view value) {
    bytes += name;
    bytes += ": ";
    bytes += value;
    bytes += kLineEnd;
}

}  // namespace

const std::string* HttpRequest::Header(std::string_view name) const {
    const auto found = std::find_if(headers.begin(), headers.end(), [&](const auto& header) {
        return mof::SameName(header.first, name);
    });
    return found == headers.end() ? nullptr : &found->second;
}

HttpResponse TextResponse(int status, const std::string& text) {
    return {status, {{"Content-Type", "text/plain; charset=utf-8"}}, text + "\n"};
}

std::string HeadOf(const HttpResponse& response, bool isLast) {
    std::string bytes = "HTTP/1.1 " + std::to_string(response.status) + " ";
    bytes += ReasonOf(response.status);
    bytes += kLineEnd;
    AddHeader(bytes, "Date", DateText());
    for (const auto& [name, value] : response.headers) AddHeader(bytes, name, value);
    AddHeader(bytes, "Content-Length", std::to_string(response.body.size()));
    if (isLast) AddHeader(bytes, "Connection", "close");
    bytes += kLineEnd;
    return bytes;
}

}  // namespace cimxml
