/// The message system of a process.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/messaging/ImsMessage.h"
#include "libraries/corelib/source/messaging/ThreadLock.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace TarvikCorelib {

/// A switchboard: agents set hooks, patterns of messages that they want to see, and whoever sends a
/// message calls the agents whose hooks match, on its own stack. So a message is answered when
/// `send` returns. Only queued messages wait, until somebody calls `update`.
///
/// Hooks are kept in one register for each `HookType`. A register is never changed once it is
/// there: setting and removing hooks put a changed copy in its place. So a dispatch takes the
/// register under the lock, which costs the copy of a pointer, and calls handlers without the lock;
/// handlers, and other threads, may set and remove hooks meanwhile. A hook that was removed is
/// marked, so that a dispatch that still has it in its register skips it.
///
/// An agent must remove its hooks before it dies, while no other thread sends: a handler that
/// another thread has just called may still run when its hook is removed. All operations are safe
/// to call from any thread; handlers run on the thread that sends.
///
///     DiskParameter disk;
///     disk.path = "/var";
///     const ImsMessage full("disk", "full", "", &disk);
///     Ims::sendDefault(full);  // true if a hook handled it: the answer is in `disk` now
///
///     Ims::queueDefault(ImsMessage("disk", "check", ""), DateTime::getCurrentTime() + 5000);
///     while (isRunning()) Ims::updateDefault();
class Ims {
public:
    using Hook_Duplicate = NamedException<Ims, "Hook_Duplicate">;
    using Ims_OutOfMemory = NamedException<Ims, "Ims_OutOfMemory">;

    struct MessageHook {
        unsigned long long id = 0;
        ImsAgent* receiver = nullptr;
        ImsMessage pattern;
        bool onlyOnce = false;
        bool withGlobs = false;  ///< A word of the pattern has a "*" or "?".
        std::atomic<bool> removed{false};
    };

    Ims();
    Ims(const Ims&) = delete;
    Ims& operator=(const Ims&) = delete;
    virtual ~Ims();

    // --- sending

    /// Calls the hooks that match, those of `HookTypeFirst` first, within a type by pattern and
    /// then by id, until one consumes the message. Returns whether any handled or consumed it. What
    /// a handler throws passes to the sender at once, and hooks that were due for removal stay.
    ///
    /// A hook that is set only once is removed behind the dispatch if it or one before it has
    /// handled the message.
    /// Quirk: so it is spent even if it ignored the message itself. Until then it still gets the
    /// messages that its own handler sends.
    bool send(const ImsMessage& message);
    /// Whether any hook would get a message of these words from that sender.
    [[nodiscard]] bool hasHookFor(std::string_view generalType, std::string_view groupType,
                                  std::string_view messageType, const ImsAgent* source);

    /// Keep a message until `update` is called at that time or later, in milliseconds as
    /// `DateTime::getCurrentTime` counts: for the hooks that match then, or for one agent. Messages
    /// of one time keep their order. The parameter leaves the message together with its ownership;
    /// it must live until it is delivered. Always true.
    bool queue(const ImsMessage& message, unsigned long long time);
    bool queue(ImsAgent& target, const ImsMessage& message, unsigned long long time);
    /// Delivers the queued messages whose time has come, also those that are queued for a time that
    /// has come meanwhile. What the handler of a target throws is dropped; what a hook throws
    /// passes to the caller, and the message is gone. Called from a handler it does nothing.
    ///
    /// The lock of the queue is held meanwhile: a handler that waits for another thread which
    /// queues a message hangs.
    void update();

    // --- hooks

    /// Sets a hook and returns its id, which is above the ids of all hooks that there are. An empty
    /// glob matches any word; `source` may be null for any sender. Throws `Hook_Duplicate` if the
    /// receiver has a hook with the same three globs, whatever its type and source. An agent
    /// that died with a hook blocks the next one at its address.
    unsigned long long setMessageHook(ImsAgent& receiver, bool onlyOnce,
                                      const std::string& generalGlob, const std::string& groupGlob,
                                      const std::string& messageGlob, ImsAgent* source,
                                      HookType type);
    /// Returns false if there is no such hook.
    bool removeMessageHook(unsigned long long id);
    [[nodiscard]] static bool messageMatchesHook(const ImsMessage& message,
                                                 const ImsMessage& pattern);
    /// Whether a hook of this receiver has the same globs.
    [[nodiscard]] bool haveIdenticalHook(const MessageHook& hook);

    // --- the default system

    /// Made at the first call and never destroyed. Throws `Ims_OutOfMemory`.
    static Ims& getDefaultMessageSystem();
    static void updateDefault();
    static bool sendDefault(const ImsMessage& message);
    static bool queueDefault(const ImsMessage& message, unsigned long long time);
    static bool queueDefault(ImsAgent& target, const ImsMessage& message, unsigned long long time);

    /// Process-wide. Null until the default system is made.
    static std::atomic<Ims*> DefaultMessageSystem;

private:
    // Sorted by the words of the patterns, then by id.
    using Register = std::vector<std::shared_ptr<MessageHook>>;
    using Snapshot = std::shared_ptr<const Register>;

    struct TimeDelayMsg {
        ImsAgent* target = nullptr;  ///< Null for the hooks.
        ImsMessage message;
    };

    using Delayed = std::map<unsigned long long, std::list<TimeDelayMsg>>;

    [[nodiscard]] Snapshot registerOf(std::size_t type);
    void sendToHooks(const ImsMessage& message, const Register& hooksOfType, Register& spent,
                     int& status);
    Snapshot* findHooksReg(const MessageHook& hook);
    bool removeHook(MessageHook& hook);
    // For those who hold the lock.
    [[nodiscard]] bool isDuplicate(const MessageHook& hook) const;
    bool enqueue(ImsAgent* target, const ImsMessage& message, unsigned long long time);
    void deliverFirst();
    void deliver(const TimeDelayMsg& entry);
    void erase(Delayed::iterator due);

    std::map<unsigned long long, std::shared_ptr<MessageHook>> hooks;  ///< By id.
    std::array<Snapshot, 3> registers;                                 ///< By `HookType`.
    ThreadLock hooksLock;                                              ///< For the two above.
    Delayed delayed;                                                   ///< By time.
    ThreadLock delayedLock;
    std::atomic<std::size_t> delayedCount{
        0};                 ///< The size of `delayed`, for a look without a lock.
    bool updating = false;  ///< Under `delayedLock`.
};

}  // namespace TarvikCorelib
