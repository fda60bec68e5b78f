/// Values in a directory that all processes share.
#pragma once

#include "libraries/corelib/source/diagnostics/NoDestructor.h"
#include "libraries/corelib/source/messaging/Logger.h"
#include "libraries/corelib/source/messaging/ThreadLock.h"

#include <cstdint>
#include <list>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Each key is a directory below the root, "a/b" a sub-key of "a", and each value a file in it,
/// named after its type. So a shell can read and repair the registry, and a key may have a value of
/// each type:
///
///     echo /srv/tarvik/conf > /var/opt/tarvik/etc/freg/ConfigurationDir/string
///
/// All operations may be called from any thread and answer a `Status`. They throw nothing but
/// `std::bad_alloc`, and a file that is too large for the memory is `Failed`. A value is replaced
/// as a whole, so who reads without a lock gets the old or the new one; only where its file is a
/// link or has a second name is it written in place. Locks are files in /tmp, see `ProcessLock`,
/// named after the key's directory; who needs one waits for it up to ten seconds. Directory names
/// beyond 250 bytes have no lock: that costs the ten seconds and is `NotLocked`.
///
/// A key is made valid by `PathTools::getValid`: a backslash is a "/", illegal characters are left
/// out, variables are put in. What is empty then, or has an element "." or "..", is no key, and
/// neither is a text with a NUL: it has no values, and cannot be given one.
/// Quirk: "/a" has the directory of "a", but a lock of its own.
///
/// Reading and writing follow links in the registry; removing follows none.
///
///     FileRegistry::set("tool/runs", 1);     // 0
///     FileRegistry::modify("tool/runs", 1);  // 0
///     FileRegistry::get("tool/runs", runs);  // 0: `Done`, and runs is 2
///     FileRegistry::get("tool/runs", text);  // 6: `NoSuchValue`, since it is a number
class FileRegistry {
public:
    /// The types of values, by the numbers for `getRaw` and `setRaw`.
    enum Type : std::int32_t {
        String = 0,
        Int32 = 1,
        UInt32 = 2,
        Int64 = 3,
        UInt64 = 4,
        Double = 5,
        List = 6,
        UnknownType = -1,
    };
    /// What operations answer. They refuse in the order type, key, directory, file, lock.
    enum Status : std::int32_t {
        Done = 0,
        InvalidType = 1,
        InvalidKey = 2,   ///< An empty key. Writing: no key, or its directory cannot be made.
        NotLocked = 3,    ///< Somebody else had the lock for ten seconds, or it cannot be made.
        Failed = 4,       ///< Files could not be read, written or removed.
        NoSuchKey = 5,    ///< Writing makes the key instead.
        NoSuchValue = 6,  ///< The key has none of this type. Others are not converted.
    };

    /// The name of a value's file; "[undef]" for a number that is no type.
    static std::string mapType(int type);
    /// The number of a name, case included, or `UnknownType`.
    static int mapType(const std::string& name);

    // --- the root

    static constexpr std::string_view DefaultRootDir = "/var/opt/tarvik/etc/freg";

    /// An empty one makes each key a directory of the whole file system.
    static void setRootDir(const std::string& dir);
    /// The environment variable `TARVIK_FREG_DIR`, unless it is empty, else what `setRootDir` has
    /// set, else `DefaultRootDir`. The variable is read once, by the first call.
    static std::string getRootDir();

    // --- values as the text of their files, without the line feed at the end. The value of a key
    // that is read stays as it is unless the answer is `Done`.

    static int getRaw(const std::string& key, int type, std::string& value, bool lock);
    /// Makes the key if it is missing.
    static int setRaw(const std::string& key, int type, const std::string& value, bool lock);

    // --- values. Numbers are written and read by `StringTools::toString` and its reverse, with all
    // their quirks: what is no number is 0, a double of 1e20 is read as 100, and doubles have the
    // decimal point of the process locale.

    static int get(const std::string& key, int& value, bool lock = false);
    static int get(const std::string& key, unsigned int& value, bool lock = false);
    static int get(const std::string& key, long long& value, bool lock = false);
    static int get(const std::string& key, unsigned long long& value, bool lock = false);
    static int get(const std::string& key, double& value, bool lock = false);
    static int get(const std::string& key, std::string& value, bool lock = false);
    /// Replaces what is in the list. Takes no lock.
    static int get(const std::string& key, std::list<std::string>& value);

    static int set(const std::string& key, int value);
    static int set(const std::string& key, unsigned int value);
    static int set(const std::string& key, long long value);
    static int set(const std::string& key, unsigned long long value);
    static int set(const std::string& key, double value);
    static int set(const std::string& key, const std::string& value);
    /// Quirk: an empty element at the end of the list is lost.
    static int set(const std::string& key, const std::list<std::string>& value);

    /// Adds to a number, in one step for all who take the lock. Integers wrap around. What is not
    /// there is not made: `NoSuchKey` or `NoSuchValue`.
    static int modify(const std::string& key, int delta);
    static int modify(const std::string& key, unsigned int delta);
    static int modify(const std::string& key, long long delta);
    static int modify(const std::string& key, unsigned long long delta);
    static int modify(const std::string& key, double delta);

    // --- keys

    /// The names of the keys right below this one, which replace what is in the set.
    static int getSubKeys(const std::string& key, std::set<std::string>& subKeys);
    /// Removes the key with its values and sub-keys, under the lock of the key alone. `Failed` if
    /// it is reached by a link.
    static int removeKey(const std::string& key);
    /// Remove a directory, wherever it is, with all or only what is in it. An empty path is
    /// `InvalidKey`, what is no directory `NoSuchKey`. A link is removed itself by the first, and
    /// is no directory to the second.
    static int removeDir(const std::string& path);
    static int removeDirContents(const std::string& path);

    /// Process-wide. What `setRootDir` has set, if it was called; `LocalLock` guards it.
    static NoDestructor<std::optional<std::string>> RootDir;
    /// Process-wide. Guards `RootDir`, and is held for all that is done under a lock between
    /// processes, since that parts no threads. Nobody sleeps with it.
    static NoDestructor<ThreadLock> LocalLock;
    /// Process-wide. What stands behind a `Failed` or an `InvalidKey` goes here, at level debug.
    /// Made by the first such record.
    static Logger& log();
};

}  // namespace TarvikCorelib
