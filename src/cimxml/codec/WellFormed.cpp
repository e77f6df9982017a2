#include <cimxml/codec/ProtocolError.h>
#include <cimxml/codec/Utf8.h>
#include <cimxml/codec/WellFormed.h>
#include <expat.h>
#include <mof/Names.h>

#include <memory>
#include <optional>
#include <type_traits>

namespace cimxml {

namespace {

constexpr int kBadRequest = 400;
constexpr const char* kEncoding = "UTF-8";

struct Free {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

// Reads a document from begin to end and keeps nothing of it but what is wrong.
class Check {
public:
    explicit Check(std::size_t most) : maxDepth(most) {
        if (!parser) throw std::bad_alloc();
        XML_SetUserData(parser.get(), this);
        XML_SetXmlDeclHandler(parser.get(), OnDeclaration);
        XML_SetStartDoctypeDeclHandler(parser.get(), OnDocumentType);
        XML_SetElementHandler(parser.get(), OnStart, OnEnd);
    }

    void Read(const std::string& text) {
        const auto status =
            XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE);
        if (refusal) throw *refusal;
        if (status != XML_STATUS_OK) throw SyntaxError();
    }

private:
    ProtocolError SyntaxError() const {
        return {kBadRequest, kNotWellFormed,
                "The request is no XML: " +
                    std::string(XML_ErrorString(XML_GetErrorCode(parser.get()))) + ", at byte " +
                    std::to_string(XML_GetCurrentByteIndex(parser.get())) + "."};
    }

    void Refuse(const char* cimError, const std::string& text) {
        refusal.emplace(kBadRequest, cimError, text);
        XML_StopParser(parser.get(), XML_FALSE);
    }

    static void OnDeclaration(void* check, const char* /*version*/, const char* encoding,
                              int /*standalone*/) {
        if (encoding && !mof::SameName(encoding, kEncoding))
            static_cast<Check*>(check)->Refuse(kNotWellFormed,
                                               "The request is not encoded in UTF-8.");
    }

    static void OnDocumentType(void* check, const char* /*name*/, const char* /*systemId*/,
                               const char* /*publicId*/, int hasDeclarations) {
        if (hasDeclarations)
            static_cast<Check*>(check)->Refuse(kNotLooselyValid,
                                               "The request declares document types of its own.");
    }

    static void OnStart(void* check, const char* /*name*/, const char** /*attributes*/) {
        auto& self = *static_cast<Check*>(check);
        if (++self.depth > self.maxDepth)
            self.Refuse(kNotLooselyValid, "Elements of the request are nested deeper than " +
                                              std::to_string(self.maxDepth) + " levels.");
    }

    static void OnEnd(void* check, const char* /*name*/) { --static_cast<Check*>(check)->depth; }

    const std::size_t maxDepth;
    std::size_t depth = 0;
    std::optional<ProtocolError> refusal;
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> parser{
        XML_ParserCreate(kEncoding)};
};

}  // namespace

void CheckWellFormed(const std::string& text, std::size_t maxDepth) {
    if (!IsXmlText(text))
        throw ProtocolError(kBadRequest, kNotWellFormed,
                            "The request holds bytes that are no characters of XML in UTF-8.");
    Check(maxDepth).Read(text);
}

}  // namespace cimxml
