/// A counted pointer that throws instead of following nothing.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"

#include <memory>
#include <utility>

namespace TarvikFilelib {

/// Shares one object between all its copies; the last one deletes it. The count may be used from
/// any thread, one pointer by one thread at a time. The exceptions carry no text.
///
///     auto first = SmartPointer<std::string>::make("text");
///     const auto second = first;
///     second->size();                       // 4
///     first.getCount();                     // 2
///     SmartPointer<std::string>()->size();  // Throws `NullPointer`.
template <class Object>
class SmartPointer {
public:
    /// `remove` was asked for an object that others share.
    using DeleteFailed = TarvikCorelib::NamedException<SmartPointer, "DeleteFailed">;
    /// What was to be taken over is no object.
    using InvalidPointer = TarvikCorelib::NamedException<SmartPointer, "InvalidPointer">;
    /// A null pointer was followed.
    using NullPointer = TarvikCorelib::NamedException<SmartPointer, "NullPointer">;

    SmartPointer() = default;
    /// Takes the object over, which must not be null.
    explicit SmartPointer(std::unique_ptr<Object> object) : shared(std::move(object)) {
        if (!shared) throw InvalidPointer();
    }
    /// With a new object made of these arguments.
    template <class... Arguments>
    static SmartPointer make(Arguments&&... arguments) {
        SmartPointer pointer;
        pointer.shared = std::make_shared<Object>(std::forward<Arguments>(arguments)...);
        return pointer;
    }

    [[nodiscard]] Object& operator*() const {
        if (!shared) throw NullPointer();
        return *shared;
    }
    [[nodiscard]] Object* operator->() const { return &**this; }
    /// Owned here; may be null.
    [[nodiscard]] Object* get() const { return shared.get(); }
    [[nodiscard]] bool isNull() const { return !shared; }
    /// Of all pointers to the object, this one included; 0 for a null pointer.
    [[nodiscard]] long getCount() const { return shared.use_count(); }
    /// Whether both point to the same object.
    bool operator==(const SmartPointer&) const = default;

    /// Deletes the object, so that this is null. Throws `NullPointer` or `DeleteFailed`.
    void remove() {
        if (!shared) throw NullPointer();
        if (getCount() > 1) throw DeleteFailed();
        shared.reset();
    }

private:
    std::shared_ptr<Object> shared;
};

}  // namespace TarvikFilelib
