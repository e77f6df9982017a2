#include <catalog/MessageIndex.h>

#include <boost/lexical_cast.hpp>

std::optional<unsigned int> MessageNumber(const std::string& index) {
    unsigned int number = 0;
    // The conversion takes the separators of a locale that groups digits: "1.109" is not an index.
    const bool isPlain = index.find_first_not_of("+-0123456789") == std::string::npos;
    if (!isPlain || !boost::conversion::try_lexical_convert(index, number)) return std::nullopt;
    return number;
}
