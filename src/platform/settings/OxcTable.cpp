#include <platform/settings/Keys.h>
#include <platform/settings/OxcTable.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace platform {

namespace {

template <class Number>
Number RequiredNumber(TomlTable& table, std::string_view key, Number most) {
    return table.Required(key, table.Integer<Number>(key, 0, most),
                          "is an integer from 0 to " + std::to_string(most));
}

ControllerProduct ReadProduct(TomlTable& table) {
    const ControllerProduct product{
        .manufacturer = RequiredNumber(table, keys::kManufacturer, kLastManufacturer),
        .product =
            RequiredNumber(table, keys::kProduct, std::numeric_limits<std::uint16_t>::max())};
    table.RejectOtherKeys();
    return product;
}

}  // namespace

std::optional<OxcFamily> ReadOxcFamily(TomlTable& table, std::string_view key) {
    if (!table.HoldsArray(key))
        return table.BooleanAmong(
            key, "is true, false, or an array of tables { manufacturer = N, product = N }");
    auto tables = table.Tables(key).value_or(std::vector<TomlTable>{});
    std::vector<ControllerProduct> products;
    products.reserve(tables.size());
    for (TomlTable& product : tables) products.push_back(ReadProduct(product));
    return products;
}

}  // namespace platform
