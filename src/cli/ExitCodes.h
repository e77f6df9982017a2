// How the command ends. Scripts rely on these numbers.
#pragma once

namespace cli {

inline constexpr int kSuccess = 0;
inline constexpr int kTestFailed = 1;        // run: a bus has failed
inline constexpr int kSomethingWrong = 1;    // doctor: a check has failed
inline constexpr int kTestNotCompleted = 2;  // run: not every bus could be judged
inline constexpr int kCatalogWarnings = 1;   // catalog check
inline constexpr int kCatalogErrors = 2;     // catalog check
inline constexpr int kCatalogsDiffer = 1;    // catalog diff
inline constexpr int kCallFailed = 3;        // the module could not be loaded, or a call failed
inline constexpr int kWrongUsage = 64;       // wrong usage or settings
inline constexpr int kInterrupted = 128;     // run: plus the signal that ended it early

}  // namespace cli
