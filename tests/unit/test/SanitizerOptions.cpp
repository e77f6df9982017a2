// One test asks for more memory than there is; without this, sanitizers end the program instead of
// giving back null. They look these functions up by name.
extern "C" {
const char* __asan_default_options();
const char* __tsan_default_options();

__attribute__((visibility("default"))) const char* __asan_default_options() {
    return "allocator_may_return_null=1";
}
__attribute__((visibility("default"))) const char* __tsan_default_options() {
    return "allocator_may_return_null=1";
}
}
