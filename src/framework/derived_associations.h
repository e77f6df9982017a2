// Whether the adapter answers association requests that a provider does not support, from what that
// provider enumerates. CIM servers that do not do this themselves answer such requests with an
// error, or with an empty result that clients cannot tell from "none".
#pragma once

namespace cimple {

// `wanted` is asked at each such request, from several threads concurrently; null, as at first:
// never.
void derive_associations_if(bool (*wanted)());

bool associations_are_derived();

}  // namespace cimple
