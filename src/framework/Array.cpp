#include <framework/Array.h>

#include <atomic>
#include <memory>
#include <new>
#include <type_traits>

namespace cimple {

// The elements follow, in memory for `capacity` of them.
struct alignas(std::max_align_t) Array_Rep {
    const Array_Traits* traits;
    std::size_t size;
    std::size_t capacity;
    std::atomic<std::uint32_t> count;
};

namespace {

template <class T>
void copy_element(void* target, const void* source) noexcept {
    static_assert(std::is_nothrow_copy_constructible_v<T>);
    static_assert(alignof(T) <= alignof(Array_Rep));
    new (target) T(*static_cast<const T*>(source));
}

template <class T>
void destruct_element(void* element) noexcept {
    std::destroy_at(static_cast<T*>(element));
}

// Its count begins with one that nobody drops.
template <class T>
constinit Array_Rep empty_rep = {
    &__cim_array_traits[static_cast<std::size_t>(type_of<T>)], 0, 0, {1}};

template <class T>
constexpr Array_Traits traits_of = {&empty_rep<T>, sizeof(T), &copy_element<T>,
                                    &destruct_element<T>};

char* element_at(Array_Rep* rep, std::size_t index) {
    return reinterpret_cast<char*>(rep + 1) + index * rep->traits->size;
}

Array_Rep* make_rep(const Array_Traits& traits, std::size_t capacity) {
    void* memory = ::operator new(sizeof(Array_Rep) + capacity * traits.size);
    return new (memory) Array_Rep{&traits, 0, capacity, {1}};
}

// Copies elements behind those that the array has; there must be room.
void copy_behind(Array_Rep* rep, const void* elements, std::size_t count) noexcept {
    const auto* source = static_cast<const char*>(elements);
    for (std::size_t i = 0; i < count; ++i) {
        rep->traits->copy(element_at(rep, rep->size++), source + i * rep->traits->size);
    }
}

bool has_room(const Array_Rep* rep, std::size_t added) {
    return rep->count.load(std::memory_order_acquire) == 1 && rep->capacity - rep->size >= added;
}

}  // namespace

constinit const Array_Traits __cim_array_traits[kTypeCount] = {
    traits_of<bool>,          traits_of<std::uint8_t>,  traits_of<std::int8_t>,
    traits_of<std::uint16_t>, traits_of<std::int16_t>,  traits_of<std::uint32_t>,
    traits_of<std::int32_t>,  traits_of<std::uint64_t>, traits_of<std::int64_t>,
    traits_of<float>,         traits_of<double>,        traits_of<char16_t>,
    traits_of<String>,        traits_of<Datetime>,
};

void __construct(Array_Rep*& rep, const Array_Traits& traits) noexcept {
    __construct(rep, traits.empty);
}

void __construct(Array_Rep*& rep, Array_Rep* source) noexcept {
    source->count.fetch_add(1, std::memory_order_relaxed);
    rep = source;
}

void __assign(Array_Rep*& target, Array_Rep* source) noexcept {
    Array_Rep* former = target;
    __construct(target, source);
    __destruct(former);
}

void __append(Array_Rep*& rep, const void* elements, std::size_t count) {
    if (has_room(rep, count)) {
        copy_behind(rep, elements, count);
        return;
    }
    // The former representation is dropped last: the new elements may be its own.
    Array_Rep* former = rep;
    rep = make_rep(*former->traits, 2 * (former->size + count));
    copy_behind(rep, element_at(former, 0), former->size);
    copy_behind(rep, elements, count);
    __destruct(former);
}

void __destruct(Array_Rep* rep) noexcept {
    if (rep->count.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
    for (std::size_t i = 0; i < rep->size; ++i) rep->traits->destruct(element_at(rep, i));
    ::operator delete(rep);
}

std::size_t array_size(const Array_Rep* rep) noexcept { return rep->size; }

const void* array_elements(const Array_Rep* rep) noexcept { return rep + 1; }

}  // namespace cimple
