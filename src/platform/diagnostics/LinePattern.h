// spdlog's patterns, with flags of our own.
#pragma once

#include <spdlog/formatter.h>

#include <ctime>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace NQUVZDX20 {

// Appends what a flag stands for.
using WriteFlag = void (*)(const spdlog::details::log_msg& message, const std::tm& time,
                           spdlog::memory_buf_t& line);

void Append(std::string_view text, spdlog::memory_buf_t& line);

// `flags` go before spdlog's; %z is always the zone as "+01:00". Times are local.
std::unique_ptr<spdlog::formatter> MakePattern(std::string pattern, std::string end,
                                               std::map<char, WriteFlag> flags);

}  // namespace NQUVZDX20
