// How a line of the core logger is written as JSON.
#pragma once

#include <spdlog/formatter.h>

#include <memory>

namespace NQUVZDX20 {

// {"time":"2026-11-22T01:19:38.123+01:00","pid":4711,"host":"server","severity":2,"node":0,
// "text":"text"} on one line, and a line break. "node" is that of LogNode, and only there when the
// thread has one, so the line must be formatted on the thread that logs. Bytes that are not UTF-8
// become U+FFFD.
std::unique_ptr<spdlog::formatter> MakeJsonFormat();

}  // namespace NQUVZDX20
