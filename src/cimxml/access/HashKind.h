// Which hashes of crypt(3) this server takes.
#pragma once

#include <string>

namespace cimxml {

// Method and cost, as "$y$j9T": hashes of one kind take equally long. Empty for a hash that this
// server does not take: of a method that cuts passwords or has no salt, or one whose memory is not
// bounded to 32 MB. At most two hashes are computed at a time.
std::string KindOf(const std::string& hash);

}  // namespace cimxml
