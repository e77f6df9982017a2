#include <mof/Place.h>
#include <mof/Reader.h>

namespace mof {

std::string ToText(const Place& place) {
    return *place.file + ":" + std::to_string(place.line) + ":" + std::to_string(place.column);
}

void Fail(const Place& place, const std::string& message) {
    throw Error(ToText(place) + ": " + message);
}

}  // namespace mof
