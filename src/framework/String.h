// A reference-counted, immutable text. Copies share it; all empty texts share one representation.
//
//     cimple::String name = "I2C Bus";
//     name = std::string("other text");
//     if (name.equal("other text")) std::puts(name.c_str());
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace cimple {

// A text's shared representation. The characters follow, with a NUL behind the last.
struct String_Rep {
    std::atomic<std::uint32_t> count;
    std::size_t size;
    char text[1];
};

class String {
public:
    String() noexcept : rep(&_empty) {}
    String(const char* text);  // null is the empty text
    String(const std::string& text);
    String(const String& other) noexcept;
    String& operator=(const String& other) noexcept;
    String& operator=(const char* text) { return *this = String(text); }
    String& operator=(const std::string& text) { return *this = String(text); }
    ~String();

    const char* c_str() const { return rep->text; }
    std::size_t size() const { return rep->size; }
    bool empty() const { return rep->size == 0; }

    // Whether the texts are the same, in the same letter case.
    bool equal(const String& other) const { return view() == other.view(); }
    friend bool operator==(const String& left, const String& right) { return left.equal(right); }

    // The representation of every empty text; it is not counted.
    static String_Rep _empty;

private:
    std::string_view view() const { return {rep->text, rep->size}; }

    String_Rep* rep;
};

}  // namespace cimple
