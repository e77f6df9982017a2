#include <platform/diagnostics/TZDXException.h>

namespace NQUVZDX20 {

TZDXException::TZDXException(int statusCode) : code(statusCode), text(code.TranslateStatusCode()) {}

}  // namespace NQUVZDX20
