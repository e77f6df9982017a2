#include <platform/diagnostics/TZDXException.h>

namespace NQUVZDX20 {

namespace {

struct CodeText {
    int code;
    const char* text;
};

constexpr CodeText kCodeTexts[] = {
    {0, "Success"},
    {1, "Failure"},
    {2, "Invalid argument"},
    {3, "Not supported"},
    {TZDXStatusCode::kOutOfMemory, "Out of memory"},
};

}  // namespace

std::string TZDXStatusCode::TranslateStatusCode() const {
    for (const CodeText& known : kCodeTexts) {
        if (known.code == code) return known.text;
    }
    return "Unknown status code " + std::to_string(code);
}

}  // namespace NQUVZDX20
