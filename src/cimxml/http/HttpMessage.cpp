#include <cimxml/http/HttpMessage.h>
#include <mof/Names.h>

#include <algorithm>
#include <ctime>

namespace cimxml {

namespace {

constexpr int kBadRequest = 400;
constexpr int kVersionNotSupported = 505;
constexpr std::string_view kLineEnd = "\r\n";

std::string_view ReasonOf(int status) {
    switch (status) {
        case 200:
            return "OK";
        case 400:
            return "Bad Request";
        case 401:
            return "Unauthorized";
        case 403:
            return "Forbidden";
        case 404:
            return "Not Found";
        case 405:
            return "Method Not Allowed";
        case 408:
            return "Request Timeout";
        case 411:
            return "Length Required";
        case 413:
            return "Content Too Large";
        case 415:
            return "Unsupported Media Type";
        case 417:
            return "Expectation Failed";
        case 431:
            return "Request Header Fields Too Large";
        case 501:
            return "Not Implemented";
        case 503:
            return "Service Unavailable";
        case 505:
            return "HTTP Version Not Supported";
        case 510:
            return "Not Extended";
        default:
            return "Internal Server Error";
    }
}

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

bool IsTokenLetter(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           IsDigit(letter) ||
           std::string_view("!#$%&'*+-.^_`|~").find(letter) != std::string_view::npos;
}

bool IsToken(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsTokenLetter);
}

bool IsControl(char letter) {
    return (static_cast<unsigned char>(letter) < ' ' && letter != '\t') || letter == '\x7F';
}

// "HTTP/1.1" and the like.
bool IsVersion(std::string_view text) {
    constexpr std::string_view kForm = "HTTP/0.0";
    return text.size() == kForm.size() && text.starts_with("HTTP/") && IsDigit(text[5]) &&
           text[6] == '.' && IsDigit(text[7]);
}

// Takes the first line away.
std::string_view TakeLine(std::string_view& text) {
    const auto end = std::min(text.find(kLineEnd), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + kLineEnd.size(), text.size()));
    return line;
}

void ParseRequestLine(std::string_view line, HttpRequest& request) {
    const auto first = line.find(' ');
    const auto last = line.rfind(' ');
    if (first == std::string_view::npos || first == last || !IsToken(line.substr(0, first)))
        throw HttpError(kBadRequest, "The request line has not the form of HTTP.");
    request.method = line.substr(0, first);
    request.target = line.substr(first + 1, last - first - 1);
    const std::string_view version = line.substr(last + 1);
    if (!IsVersion(version) || std::any_of(line.begin(), line.end(), IsControl))
        throw HttpError(kBadRequest, "The request line has not the form of HTTP.");
    if (!version.starts_with("HTTP/1."))
        throw HttpError(kVersionNotSupported, "This server speaks HTTP/1.1.");
    request.isVersion10 = version == "HTTP/1.0";
}

void ParseHeader(std::string_view line, HttpRequest& request) {
    const auto colon = line.find(':');
    if (colon == std::string_view::npos || !IsToken(line.substr(0, colon)) ||
        std::any_of(line.begin(), line.end(), IsControl))
        throw HttpError(kBadRequest, "A header has not the form of HTTP.");
    request.headers.emplace_back(line.substr(0, colon), Trimmed(line.substr(colon + 1)));
}

// Of two such headers, a proxy in front of this server might heed the other one.
void CheckHeaders(const HttpRequest& request) {
    for (const char* name : {"Host", "Content-Length", "Transfer-Encoding", "Authorization"})
        if (std::count_if(request.headers.begin(), request.headers.end(), [&](const auto& header) {
                return mof::SameName(header.first, name);
            }) > 1)
            throw HttpError(kBadRequest, "The header '" + std::string(name) + "' stands twice.");
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

HttpRequest ParseHead(std::string_view head) {
    HttpRequest request;
    ParseRequestLine(TakeLine(head), request);
    while (!head.empty()) ParseHeader(TakeLine(head), request);
    CheckHeaders(request);
    return request;
}

std::string ToBytes(const HttpResponse& response, bool isLast) {
    std::string bytes = "HTTP/1.1 " + std::to_string(response.status) + " ";
    bytes += ReasonOf(response.status);
    bytes += kLineEnd;
    AddHeader(bytes, "Date", DateText());
    for (const auto& [name, value] : response.headers) AddHeader(bytes, name, value);
    AddHeader(bytes, "Content-Length", std::to_string(response.body.size()));
    if (isLast) AddHeader(bytes, "Connection", "close");
    bytes += kLineEnd;
    bytes += response.body;
    return bytes;
}

}  // namespace cimxml
