#include <host/loading/Registration.h>
#include <mof/Names.h>

#include <algorithm>

namespace host {

bool Registration::HasType(const std::string& type) const {
    return std::find(types.begin(), types.end(), type) != types.end();
}

bool Registration::IsIn(const std::string& nameSpace) const {
    return std::any_of(nameSpaces.begin(), nameSpaces.end(), [&](const std::string& candidate) {
        return mof::SameName(candidate, nameSpace);
    });
}

}  // namespace host
