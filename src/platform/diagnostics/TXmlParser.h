// Event-driven XML reading on Expat: a derived class overrides the callbacks it needs.
//
// Start tags come with their attributes as a map, end tags by name, and every run of text between
// two tags exactly once, just before the second tag: joined over comments, processing instructions
// and CDATA sections, with entities decoded, white space included. After an end tag the run is
// reported even when it is empty. Nothing is reported after the end tag of the root element, and a
// run that a syntax error cuts short is not reported.
//
// Texts come as UTF-8, whatever the document is written in: UTF-8, UTF-16, ISO-8859-1 or US-ASCII.
// Neither external entities nor an external document type are read.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>

namespace NQUVZDX20 {

class TXmlParser {
public:
    TXmlParser();
    TXmlParser(const TXmlParser&) = delete;
    TXmlParser& operator=(const TXmlParser&) = delete;

    virtual ~TXmlParser();
    virtual void StartElement(const char* name, std::map<std::string, std::string>& attributes) = 0;
    virtual void EndElement(const char* name) = 0;
    virtual void processingInstruction(const char* target, const char* data) = 0;
    // `text` ends with a NUL; `length` is its length in bytes.
    virtual void characters(const char* text, unsigned int length) = 0;
    // `publicId` and `systemId` are null where the declaration leaves them out.
    virtual void notationDecl(const char* name, const char* publicId, const char* systemId) = 0;
    // A syntax error, which ends the parse: the column and what Expat says of it. Or an entity that
    // is left out of the text because it is external or not declared here; the parse goes on.
    virtual void FatalError(const char* message) = 0;
    virtual void ParseJSSP();           // runs the tokeniser over the text
    virtual void ParseCharData();       // reports the run of text gathered so far
    virtual void GetAttributeNValue();  // makes the attribute map of the current start tag
    virtual void FatalError(std::string message) = 0;

    // Parses a whole document and calls the callbacks. An exception that leaves a callback ends the
    // parse and reaches the caller; a syntax error is reported once through FatalError. May be
    // called again for another document, but not by a callback.
    void Parse(char* text);  // NUL-terminated
    void Parse(char* text, std::size_t length);

    // The line that the parser has reached, from 1: during a parse that of the tag or error being
    // reported, afterwards the last one; 0 before the first parse.
    int GetCurLine() const;

    // The column of the same place, from 1.
    int GetCurColumn() const;

    // What ended the last parse before the document's end; empty when nothing did.
    const std::string& SyntaxError() const;

private:
    struct Run;
    std::unique_ptr<Run> run;
};

}  // namespace NQUVZDX20
