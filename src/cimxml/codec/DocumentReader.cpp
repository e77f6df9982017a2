#include <cimxml/codec/DocumentReader.h>
#include <cimxml/codec/Utf8.h>
#include <expat.h>
#include <mof/Names.h>

#include <exception>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace cimxml {

namespace {

constexpr int kBadRequest = 400;
constexpr const char* kEncoding = "UTF-8";

struct Free {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

// True when the text refers to an entity that XML itself does not define.
bool HasForeignEntity(std::string_view text) {
    for (auto at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1)) {
        const std::string_view name = text.substr(at + 1, text.find(';', at) - at - 1);
        if (!name.starts_with('#') && name != "amp" && name != "lt" && name != "gt" &&
            name != "quot" && name != "apos")
            return true;
    }
    return false;
}

// Makes a tree of the parser's events.
class Reader {
public:
    Reader(const std::string& document, std::size_t mostLevels)
        : text(document), maxDepth(mostLevels) {
        if (!parser) throw std::bad_alloc();
        XML_SetUserData(parser.get(), this);
        XML_SetXmlDeclHandler(parser.get(), OnDeclaration);
        XML_SetStartDoctypeDeclHandler(parser.get(), OnDocumentType);
        XML_SetElementHandler(parser.get(), OnStart, OnEnd);
        XML_SetCharacterDataHandler(parser.get(), OnText);
    }

    Element Read() {
        const auto status =
            XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE);
        if (failure) std::rethrow_exception(failure);
        if (status != XML_STATUS_OK) throw SyntaxError();
        return std::move(top.children.front());
    }

private:
    ProtocolError SyntaxError() const {
        if (!IsXmlText(text))
            return {kBadRequest, kNotWellFormed,
                    "The request holds bytes that are not characters of XML in UTF-8."};
        return {kBadRequest, kNotWellFormed,
                "The request is not XML: " +
                    std::string(XML_ErrorString(XML_GetErrorCode(parser.get()))) + ", at byte " +
                    std::to_string(XML_GetCurrentByteIndex(parser.get())) + "."};
    }

    // Exceptions must not pass through the parser. It reports a few more events after it was
    // stopped.
    template <class Handle>
    static void Guarded(void* reader, const Handle& handle) {
        auto& self = *static_cast<Reader*>(reader);
        if (self.failure) return;
        try {
            handle(self);
        } catch (...) {
            self.failure = std::current_exception();
            XML_StopParser(self.parser.get(), XML_FALSE);
        }
    }

    static void OnDeclaration(void* reader, const char* /*version*/, const char* encoding,
                              int /*standalone*/) {
        Guarded(reader, [&](Reader&) {
            if (encoding && !mof::SameName(encoding, kEncoding))
                throw ProtocolError(kBadRequest, kNotWellFormed,
                                    "The request is not encoded in UTF-8.");
        });
    }

    // The parser skips entities that a document type of another document may declare.
    static void OnDocumentType(void* reader, const char* /*name*/, const char* /*systemId*/,
                               const char* /*publicId*/, int hasDeclarations) {
        Guarded(reader, [&](Reader& self) {
            if (hasDeclarations)
                FailLooselyValid("The request declares document types of its own.");
            if (HasForeignEntity(self.text))
                FailLooselyValid("The request refers to entities of another document.");
        });
    }

    static void OnStart(void* reader, const char* name, const char** attributes) {
        Guarded(reader, [&](Reader& self) {
            if (self.open.size() > self.maxDepth)
                FailLooselyValid("Elements of the request are nested deeper than " +
                                 std::to_string(self.maxDepth) + " levels.");
            Element& element = self.open.back()->children.emplace_back(Element{name});
            for (; *attributes; attributes += 2)
                element.attributes.emplace_back(attributes[0], attributes[1]);
            self.open.push_back(&element);
        });
    }

    static void OnEnd(void* reader, const char* /*name*/) {
        Guarded(reader, [](Reader& self) { self.open.pop_back(); });
    }

    static void OnText(void* reader, const char* text, int length) {
        Guarded(reader, [&](Reader& self) {
            self.open.back()->text.append(text, static_cast<std::size_t>(length));
        });
    }

    const std::string& text;
    const std::size_t maxDepth;
    Element top{""};                   // holds the root
    std::vector<Element*> open{&top};  // from `top` to the innermost element
    std::exception_ptr failure;
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> parser{
        XML_ParserCreate(kEncoding)};
};

}  // namespace

Element ReadDocument(const std::string& text, std::size_t maxDepth) {
    return Reader(text, maxDepth).Read();
}

}  // namespace cimxml
