// What a log of JSON lines says.
#pragma once

#include <string>
#include <vector>

// Each line without what tells when and where it was logged: {"severity":2,"text":"text"}. A line
// that does not begin with a time, this process and this host, in this order, comes as it is.
std::vector<std::string> JsonLinesOf(const std::string& path);
