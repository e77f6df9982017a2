// CIM values and longer texts for people.
#pragma once

#include <host/Value.h>

#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace cli {

// NULL as "(none)", arrays as "{ a, b }", references as their object path.
std::string ValueText(const host::Value& value);

// The path, and a line "  Name = value" for each property. Control characters are escaped.
std::string InstanceText(const host::Instance& instance);

// A line "  Name = value" for each value. Control characters are escaped.
std::string ValuesText(const std::vector<host::NamedValue>& values);

// Rows of a name and a text, the texts below each other. What does not fit into `width` columns is
// broken at blanks.
std::string Table(const std::vector<std::pair<std::string, std::string>>& rows,
                  std::size_t width = std::numeric_limits<std::size_t>::max());

// Breaks a text's lines at blanks so that each, with `indent` blanks before it, fits into `width`
// columns; a word that is longer stands on a line of its own. Continued lines are indented by
// `hanging` blanks more. Ends in a line break.
std::string Wrap(const std::string& text, std::size_t width, std::size_t indent,
                 std::size_t hanging = 0);

// A CIM time stamp as "2024-05-31 12:00:00 +02:00"; any other text as it is.
std::string TimeText(const std::string& dateTime);

// "1 bus", "2 busses".
std::string Counted(std::size_t count, const std::string& one, const std::string& many);

// "a", "a and b", "a, b and c".
std::string Listed(const std::vector<std::string>& items);

}  // namespace cli
