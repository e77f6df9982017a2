#include <expat.h>
#include <platform/diagnostics/TXmlParser.h>

#include <cstring>
#include <exception>
#include <locale>
#include <new>
#include <sstream>
#include <string_view>
#include <type_traits>
#include <utility>

namespace NQUVZDX20 {

namespace {

struct FreeTokeniser {
    void operator()(XML_Parser tokeniser) const { XML_ParserFree(tokeniser); }
};
using Tokeniser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeTokeniser>;

// Expat takes lengths as int, so a long text is handed over in pieces.
constexpr std::size_t kMostBytesAtOnce = std::size_t{1} << 20;

// False when an error or a callback ended the pass early.
bool Tokenise(XML_Parser tokeniser, std::string_view document) {
    while (true) {
        const std::string_view piece = document.substr(0, kMostBytesAtOnce);
        document.remove_prefix(piece.size());
        const bool isLast = document.empty();
        if (XML_Parse(tokeniser, piece.data(), static_cast<int>(piece.size()), isLast ? 1 : 0) !=
            XML_STATUS_OK) {
            return false;
        }
        if (isLast) {
            return true;
        }
    }
}

// Explains why a byte that begins no token is wrong, for people who look at the file.
std::string InvalidToken(unsigned char byte) {
    constexpr unsigned char kFirstBeyondAscii = 0x80;
    if (byte < kFirstBeyondAscii) return XML_ErrorString(XML_ERROR_INVALID_TOKEN);
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << "the byte 0x" << std::hex << std::uppercase << static_cast<unsigned int>(byte)
         << " does not fit the encoding (UTF-8, if the first line names no other)";
    return text.str();
}

std::string Reason(XML_Error error, unsigned char byte, const std::string& unknownEncoding) {
    switch (error) {
        case XML_ERROR_NO_ELEMENTS:
            return "the text is empty or ends too early";
        case XML_ERROR_INVALID_TOKEN:
            return InvalidToken(byte);
        case XML_ERROR_UNKNOWN_ENCODING:
            return "the encoding " + unknownEncoding +
                   " is not supported (use UTF-8, UTF-16, ISO-8859-1 or US-ASCII)";
        default:
            return XML_ErrorString(error);
    }
}

}  // namespace

// One pass over one document.
struct TXmlParser::Run {
    std::string_view document;
    Tokeniser tokeniser;         // only while the pass is under way
    std::exception_ptr failure;  // left a callback, and waits until the tokeniser has come back
    int line = 0;
    int column = 0;

    std::string text;  // gathered since the last tag
    bool afterEndTag = false;
    const char** attributePairs = nullptr;  // of the current start tag: name, value, ..., null
    std::map<std::string, std::string> attributes;
    std::string unknownEncoding;
    std::string syntaxError;

    void CreateTokeniser(TXmlParser& parser);
    void KeepPlace();
    std::string SyntaxErrorText(std::string_view parsed) const;

    // Calls `callback` with the parser and its run. Exceptions cannot pass through Expat's C
    // functions, so one that comes stops the tokeniser, which may still report an event or two.
    template <class Callback>
    static void Deliver(void* userData, Callback callback) noexcept;

    static void XMLCALL OnStartTag(void* userData, const char* name, const char** attributePairs);
    static void XMLCALL OnEndTag(void* userData, const char* name);
    static void XMLCALL OnText(void* userData, const char* piece, int length);
    static void XMLCALL OnInstruction(void* userData, const char* target, const char* data);
    static void XMLCALL OnNotation(void* userData, const char* name, const char* base,
                                   const char* systemId, const char* publicId);
    static void XMLCALL OnUnknownEntity(void* userData, const char* name, int isParameterEntity);
    static int XMLCALL OnExternalEntity(XML_Parser tokeniser, const char* context, const char* base,
                                        const char* systemId, const char* publicId);
    static int XMLCALL OnUnknownEncoding(void* userData, const char* name, XML_Encoding* encoding);
};

void TXmlParser::Run::CreateTokeniser(TXmlParser& parser) {
    tokeniser.reset(XML_ParserCreate(nullptr));
    if (tokeniser == nullptr) {
        throw std::bad_alloc();
    }
    XML_SetUserData(tokeniser.get(), &parser);
    XML_SetElementHandler(tokeniser.get(), OnStartTag, OnEndTag);
    XML_SetCharacterDataHandler(tokeniser.get(), OnText);
    XML_SetProcessingInstructionHandler(tokeniser.get(), OnInstruction);
    XML_SetNotationDeclHandler(tokeniser.get(), OnNotation);
    XML_SetSkippedEntityHandler(tokeniser.get(), OnUnknownEntity);
    XML_SetExternalEntityRefHandler(tokeniser.get(), OnExternalEntity);
    XML_SetUnknownEncodingHandler(tokeniser.get(), OnUnknownEncoding, &parser);
}

void TXmlParser::Run::KeepPlace() {
    line = static_cast<int>(XML_GetCurrentLineNumber(tokeniser.get()));
    column = static_cast<int>(XML_GetCurrentColumnNumber(tokeniser.get())) + 1;
}

std::string TXmlParser::Run::SyntaxErrorText(std::string_view parsed) const {
    const auto position = static_cast<std::size_t>(XML_GetCurrentByteIndex(tokeniser.get()));
    const char byte = position < parsed.size() ? parsed[position] : '\0';
    return "Not well-formed XML at column " + std::to_string(column) + ": " +
           Reason(XML_GetErrorCode(tokeniser.get()), static_cast<unsigned char>(byte),
                  unknownEncoding) +
           ". Nothing from here on is read.";
}

template <class Callback>
void TXmlParser::Run::Deliver(void* userData, Callback callback) noexcept {
    auto& parser = *static_cast<TXmlParser*>(userData);
    Run& current = *parser.run;
    if (current.failure != nullptr) {
        return;
    }
    try {
        current.KeepPlace();
        callback(parser, current);
    } catch (...) {
        current.failure = std::current_exception();
        XML_StopParser(current.tokeniser.get(), XML_FALSE);
    }
}

void TXmlParser::Run::OnStartTag(void* userData, const char* name, const char** attributePairs) {
    Deliver(userData, [=](TXmlParser& parser, Run& current) {
        parser.ParseCharData();
        current.attributePairs = attributePairs;
        parser.GetAttributeNValue();
        parser.StartElement(name, current.attributes);
    });
}

void TXmlParser::Run::OnEndTag(void* userData, const char* name) {
    Deliver(userData, [=](TXmlParser& parser, Run& current) {
        parser.ParseCharData();
        parser.EndElement(name);
        current.afterEndTag = true;
    });
}

void TXmlParser::Run::OnText(void* userData, const char* piece, int length) {
    Deliver(userData, [=](TXmlParser&, Run& current) {
        current.text.append(piece, static_cast<std::size_t>(length));
    });
}

void TXmlParser::Run::OnInstruction(void* userData, const char* target, const char* data) {
    Deliver(userData,
            [=](TXmlParser& parser, Run&) { parser.processingInstruction(target, data); });
}

void TXmlParser::Run::OnNotation(void* userData, const char* name, const char*,
                                 const char* systemId, const char* publicId) {
    Deliver(userData,
            [=](TXmlParser& parser, Run&) { parser.notationDecl(name, publicId, systemId); });
}

void TXmlParser::Run::OnUnknownEntity(void* userData, const char* name, int) {
    Deliver(userData, [=](TXmlParser& parser, Run&) {
        parser.FatalError("The entity " + std::string(name) +
                          " is not declared here and left out.");
    });
}

int TXmlParser::Run::OnExternalEntity(XML_Parser tokeniser, const char*, const char*,
                                      const char* systemId, const char*) {
    Deliver(XML_GetUserData(tokeniser), [=](TXmlParser& parser, Run&) {
        parser.FatalError("The external entity " + std::string(systemId) + " is left out.");
    });
    return XML_STATUS_OK;
}

int TXmlParser::Run::OnUnknownEncoding(void* userData, const char* name, XML_Encoding*) {
    Deliver(userData, [=](TXmlParser&, Run& current) { current.unknownEncoding = name; });
    return XML_STATUS_ERROR;
}

TXmlParser::TXmlParser() : run(std::make_unique<Run>()) {}

TXmlParser::~TXmlParser() = default;

void TXmlParser::Parse(char* text) { Parse(text, std::strlen(text)); }

void TXmlParser::Parse(char* text, std::size_t length) {
    *run = Run();
    run->document = {text, length};
    ParseJSSP();
}

void TXmlParser::ParseJSSP() {
    run->CreateTokeniser(*this);
    const std::string_view document = std::exchange(run->document, {});
    const bool complete = Tokenise(run->tokeniser.get(), document);
    run->KeepPlace();
    if (!complete && run->failure == nullptr) run->syntaxError = run->SyntaxErrorText(document);
    run->tokeniser.reset();
    if (run->failure != nullptr) {
        std::rethrow_exception(std::exchange(run->failure, nullptr));
    }
    if (!complete) {
        FatalError(run->syntaxError.c_str());
    }
}

void TXmlParser::ParseCharData() {
    const std::string reported = std::exchange(run->text, {});
    if (std::exchange(run->afterEndTag, false) || !reported.empty()) {
        characters(reported.c_str(), static_cast<unsigned int>(reported.size()));
    }
}

void TXmlParser::GetAttributeNValue() {
    run->attributes.clear();
    for (const char** pair = run->attributePairs; pair != nullptr && *pair != nullptr; pair += 2) {
        run->attributes.emplace(pair[0], pair[1]);
    }
}

int TXmlParser::GetCurLine() const { return run->line; }

int TXmlParser::GetCurColumn() const { return run->column; }

const std::string& TXmlParser::SyntaxError() const { return run->syntaxError; }

}  // namespace NQUVZDX20
