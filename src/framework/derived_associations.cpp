#include <framework/derived_associations.h>

#include <atomic>

namespace cimple {

namespace {

constinit std::atomic<bool (*)()> isWanted = nullptr;

}  // namespace

void derive_associations_if(bool (*wanted)()) { isWanted = wanted; }

bool associations_are_derived() {
    bool (*const wanted)() = isWanted;
    return wanted != nullptr && wanted();
}

}  // namespace cimple
