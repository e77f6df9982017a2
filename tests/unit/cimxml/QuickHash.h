#pragma once

namespace cimxml {

// SHA-512 with few rounds: quick, for tests.
inline constexpr const char* kQuickHash = "$6$rounds=1000$saltsaltsalt$";

}  // namespace cimxml
