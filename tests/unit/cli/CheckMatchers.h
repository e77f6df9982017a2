// Checks of `bmci2c doctor`, word for word.
#pragma once

#include <cli/doctor/Check.h>
#include <gmock/gmock.h>

#include <ostream>

namespace cli {

inline bool operator==(const Check& left, const Check& right) {
    return left.name == right.name && left.grade == right.grade && left.text == right.text &&
           left.advice == right.advice;
}

inline std::ostream& operator<<(std::ostream& output, const Check& check) {
    return output << "grade " << static_cast<int>(check.grade) << " " << check.name << ": "
                  << check.text << " | " << check.advice;
}

}  // namespace cli
