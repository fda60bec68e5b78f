/// An open file descriptor with an owner.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace TarvikCorelib {

/// Closes its descriptor when it goes. Moved, not copied: one object owns it at a time.
class Descriptor {
public:
    /// Takes over what `open` and its kin gave; a negative number is none.
    explicit Descriptor(int descriptor = -1) : descriptor(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : descriptor(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        Descriptor taken(std::move(other));
        std::swap(descriptor, taken.descriptor);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    bool isOpen() const { return descriptor >= 0; }
    int get() const { return descriptor; }
    /// Hands the descriptor to the caller, who closes it.
    int release() { return std::exchange(descriptor, -1); }
    /// 0, or the number of the error with which the system reports what it could not write. Closed
    /// in either case. The destructor has nobody to tell, so whoever wrote must call this.
    int close() {
        if (!isOpen()) return 0;
        return ::close(release()) == 0 ? 0 : errno;
    }

private:
    int descriptor;
};

}  // namespace TarvikCorelib
