// The numbers under which the catalog keeps its texts.
#pragma once

// Kinds of result message: they choose the heading, and a pass carries no recommendations.
inline constexpr int kPassMessage = 2;
inline constexpr int kBusFaultMessage = 5;
inline constexpr int kNotCompletedMessage = 6;

// Texts of the generic machine entry that every message uses.
inline constexpr unsigned short kFallbackText = 2;
inline constexpr unsigned short kPassHeading = 201;
inline constexpr unsigned short kBusFaultHeading = 206;
inline constexpr unsigned short kNotCompletedHeading = 207;

// Result messages. 825 to 900 are not looked up in the catalog: 899 stands in the fixed line about
// an unsupported machine, the others are free.
inline constexpr unsigned short kPassed = 0;
inline constexpr unsigned short kMachineTypeUnreadable = 101;
inline constexpr unsigned short kMachineTypeEmpty = 102;
inline constexpr unsigned short kBadResponseLength = 801;
inline constexpr unsigned short kSendFailed = 802;
inline constexpr unsigned short kUnknownCompletionCode = 802;  // shares its text with kSendFailed
inline constexpr unsigned short kFirstCompletionCode = 803;    // 0xC0; up to 824 for 0xD5
inline constexpr unsigned short kFirstBus = 901;               // bus 0; one number per bus
