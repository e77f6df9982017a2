// A property of the catalog whose index is not a decimal number.
#pragma once

#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <string>
#include <utility>

// what() is that of the base class, which CIM clients know; line and index help to fix the catalog.
class IndexError : public boost::bad_lexical_cast {
public:
    IndexError(int catalogLine, std::string indexText)
        : line(catalogLine), index(std::move(indexText)) {}

    int Line() const { return line; }  // of the value that the index belongs to
    const std::string& Index() const { return index; }

private:
    int line;
    std::string index;
};
