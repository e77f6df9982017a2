// The parameters of an intrinsic method, checked.
#pragma once

#include <cimxml/codec/Request.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cimxml {

using ParameterNames = std::vector<std::string_view>;

// All members throw host::Failure (CMPI_RC_ERR_INVALID_PARAMETER). A NULL parameter counts as
// absent.
class Parameters {
public:
    // Each name must be one of those and appear once. The request must outlive this.
    Parameters(const Request& callingRequest, const ParameterNames& known);

    bool Flag(std::string_view name, bool whenAbsent) const;
    std::string Text(std::string_view name) const;  // required
    std::optional<std::uint32_t> Number(std::string_view name) const;

    // The name of a class; empty when absent.
    std::string Class(std::string_view name) const;
    std::string RequiredClass(std::string_view name) const;

    // A path without namespace.
    host::ObjectPath RequiredInstance(std::string_view name) const;

    // The path of an instance or class.
    struct Object {
        host::ObjectPath path;
        bool isClass;
    };
    Object RequiredObject(std::string_view name) const;

    std::optional<std::vector<std::string>> Texts(std::string_view name) const;

    // A text that restricts; empty when absent.
    std::string Filter(std::string_view name) const;

private:
    // The value, or null for NULL and absent ones.
    template <class Kind>
    const Kind* Find(std::string_view name, const char* kind) const;
    const Parameter* FindParameter(std::string_view name) const;

    const Request& request;
};

}  // namespace cimxml
