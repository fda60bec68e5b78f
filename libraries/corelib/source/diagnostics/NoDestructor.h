/// An object that is never destroyed.
#pragma once

#include <memory>
#include <utility>

namespace TarvikCorelib {

/// For statics that code may still use while the process ends, after the destructors of other
/// statics have begun to run. The value is in place, without an allocation; its memory goes with
/// the process. It is ready before any constructor runs if the constructor of the value is
/// `constexpr`.
template <class Value>
class NoDestructor {
public:
    template <class... Arguments>
    constexpr explicit NoDestructor(Arguments&&... arguments)
        : value(std::forward<Arguments>(arguments)...) {}
    NoDestructor(const NoDestructor&) = delete;
    NoDestructor& operator=(const NoDestructor&) = delete;
    // Leaves the member of the union alone, which is the point.
    ~NoDestructor() {}  // NOLINT(modernize-use-equals-default)

    [[nodiscard]] Value& operator*() { return value; }
    [[nodiscard]] Value* operator->() { return std::addressof(value); }

private:
    union {
        Value value;
    };
};

}  // namespace TarvikCorelib
