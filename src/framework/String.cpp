#include <framework/String.h>

#include <cstring>
#include <new>

namespace cimple {

namespace {

String_Rep* make_rep(std::string_view text) {
    if (text.empty()) return &String::_empty;
    void* memory = ::operator new(sizeof(String_Rep) + text.size());
    auto* rep = new (memory) String_Rep{{1}, text.size(), {}};
    std::memcpy(rep->text, text.data(), text.size());
    rep->text[text.size()] = '\0';
    return rep;
}

void take(String_Rep* rep) noexcept {
    if (rep != &String::_empty) rep->count.fetch_add(1, std::memory_order_relaxed);
}

void drop(String_Rep* rep) noexcept {
    if (rep == &String::_empty) return;
    if (rep->count.fetch_sub(1, std::memory_order_acq_rel) == 1) ::operator delete(rep);
}

}  // namespace

constinit String_Rep String::_empty = {{1}, 0, {}};

String::String(const char* text) : rep(make_rep(text == nullptr ? "" : text)) {}

String::String(const std::string& text) : rep(make_rep(text)) {}

String::String(const String& other) noexcept : rep(other.rep) { take(rep); }

String& String::operator=(const String& other) noexcept {
    take(other.rep);
    drop(rep);
    rep = other.rep;
    return *this;
}

String::~String() { drop(rep); }

}  // namespace cimple
