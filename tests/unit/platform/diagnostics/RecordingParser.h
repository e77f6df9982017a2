// A parser that writes down what it is told, one text per callback.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <platform/diagnostics/TXmlParser.h>

#include <map>
#include <string>
#include <vector>

class RecordingParser : public NQUVZDX20::TXmlParser {
public:
    void StartElement(const char* name, std::map<std::string, std::string>& attributes) override {
        std::string event = std::string("start ") + name;
        for (const auto& [attribute, value] : attributes) {
            event += " " + attribute + "=" + value;
        }
        Add(event);
    }
    void EndElement(const char* name) override { Add(std::string("end ") + name); }
    void processingInstruction(const char* target, const char* data) override {
        Add(std::string("instruction ") + target + " " + data);
    }
    void characters(const char* text, unsigned int length) override {
        EXPECT_EQ(std::string(text).size(), length);
        Add(std::string("text [") + text + "]");
    }
    void notationDecl(const char* name, const char* publicId, const char* systemId) override {
        Add(std::string("notation ") + name + " " + (publicId == nullptr ? "-" : publicId) + " " +
            (systemId == nullptr ? "-" : systemId));
    }
    void FatalError(const char* message) override { Add(std::string("error ") + message); }
    void FatalError(std::string message) override { FatalError(message.c_str()); }

    // The events of one document; those of earlier ones are forgotten.
    std::vector<std::string> Read(std::string document) {
        events.clear();
        lines.clear();
        Parse(document.data(), document.size());
        return events;
    }

    std::vector<std::string> events;
    std::vector<int> lines;  // GetCurLine at each event

private:
    void Add(std::string event) {
        events.push_back(std::move(event));
        lines.push_back(GetCurLine());
    }
};
