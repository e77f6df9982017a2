#include <host/requests/PathMatch.h>
#include <mof/Names.h>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace host {

namespace {

using Reference = std::shared_ptr<const ObjectPath>;

bool IsEmpty(const Value* value) {
    if (!value || value->IsNull()) return true;
    const auto* text = std::get_if<std::string>(&value->data);
    return text && text->empty();
}

struct SameKeyValue {
    template <class A, class B>
    bool operator()(const A& a, const B& b) const {
        if constexpr (std::is_same_v<A, Reference> && std::is_same_v<B, Reference>)
            return SameObject(*a, *b);
        else if constexpr (IsInteger<A>() && IsInteger<B>())
            return std::cmp_equal(a, b);
        else if constexpr (std::is_same_v<A, B> && IsComparable<A>())
            return a == b;
        else
            return false;
    }

private:
    template <class Data>
    static constexpr bool IsInteger() {
        return std::is_same_v<Data, std::int64_t> || std::is_same_v<Data, std::uint64_t>;
    }

    template <class Data>
    static constexpr bool IsComparable() {
        return std::is_same_v<Data, bool> || std::is_same_v<Data, std::string>;
    }
};

bool SameKey(const Value* a, const Value* b) {
    if (IsEmpty(a) || IsEmpty(b)) return IsEmpty(a) && IsEmpty(b);
    return std::visit(SameKeyValue{}, a->data, b->data);
}

// True when the other path has each of the keys.
bool HasKeys(const ObjectPath& path, const std::vector<NamedValue>& keys) {
    return std::all_of(keys.begin(), keys.end(), [&](const NamedValue& key) {
        return SameKey(&key.value, FindValue(path.keys, key.name));
    });
}

}  // namespace

bool SameObject(const ObjectPath& a, const ObjectPath& b) {
    if (!a.nameSpace.empty() && !b.nameSpace.empty() && !mof::SameName(a.nameSpace, b.nameSpace))
        return false;
    return mof::SameName(a.className, b.className) && HasKeys(a, b.keys) && HasKeys(b, a.keys);
}

}  // namespace host
