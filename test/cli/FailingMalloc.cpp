// A library to preload, in which allocations fail: from number FAILING_MALLOC_FIRST, counted from
// 1, to number FAILING_MALLOC_LAST. The first to fail writes to standard error, so that a caller
// can see whether the program came that far.

#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>

namespace {

long numberIn(const char* variable) {
    const char* const text = std::getenv(variable);
    return text != nullptr ? std::strtol(text, nullptr, 10) : 0;
}

bool isToFail() {
    static const long first = numberIn("FAILING_MALLOC_FIRST");
    static const long last = numberIn("FAILING_MALLOC_LAST");
    static long count = 0;
    if (++count < first || count > last) return false;
    if (count == first && write(STDERR_FILENO, "!", 1) != 1) std::abort();
    errno = ENOMEM;
    return true;
}

// The C library's own function of that name.
template <class Function>
Function nextOf(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" void* malloc(std::size_t size) noexcept {
    static const auto allocate = nextOf<void* (*)(std::size_t)>("malloc");
    return isToFail() ? nullptr : allocate(size);
}

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the others are reserved.
extern "C" void* realloc(void* block, std::size_t size) noexcept {
    static const auto reallocate = nextOf<void* (*)(void*, std::size_t)>("realloc");
    return isToFail() ? nullptr : reallocate(block, size);
}
