/// Makes calls into the file system fail at a chosen moment.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tarvik_test {

/// Counts the file calls of the thread that made it, and makes one of them fail. The linker sends
/// the calls here (`--wrap`), in programs that link `test_file_faults` and from code in them and
/// their static libraries; calls that shared libraries make by themselves are not seen.
///
/// A name stands for all forms of a call: "fopen" for `fopen64`, "read" for what hardened code
/// makes of it. Only calls that the libraries make are here, so that the wrapped list stays short;
/// a new one needs a line in the source. The blank name stands for all calls. All numbers are from
/// 1 and count the calls since the object was made, those of that name only. Calls on standard
/// output and error are left alone.
///
/// What fails has no effect, except that a close, `fclose`, `closedir` or `gzclose` does close;
/// what `fclose` has not written yet is lost. Streams get their error flag. A thread has at most
/// one of these at a time; the destructor ends it all.
class FileFaults {
public:
    FileFaults();
    FileFaults(const FileFaults&) = delete;
    FileFaults& operator=(const FileFaults&) = delete;
    ~FileFaults();

    /// Each of these replaces what was asked for before; the counts go on.
    void failAt(std::size_t number, int error, std::string_view name = {});
    /// That call and all later ones of the name, as a full or a broken device does.
    void failFrom(std::size_t number, int error, std::string_view name = {});
    /// Only half of the bytes are moved, at least one. A stream sets `errno` and its error flag
    /// too; a call that moves no bytes fails.
    void shortAt(std::size_t number, int error, std::string_view name = {});
    /// Runs `action` ahead of that call, which is made then. Calls of the action do not count.
    void runAt(std::size_t number, std::function<void()> action, std::string_view name = {});

    [[nodiscard]] std::size_t count(std::string_view name = {}) const;
    /// What was asked for has happened, so that a loop over all calls ends when it is false.
    [[nodiscard]] bool hit() const { return !hitCall.empty(); }
    /// The name of the call that was hit last; blank if none was.
    [[nodiscard]] const std::string& hitName() const { return hitCall; }

    // --- for the calls
    enum class Outcome { Pass, Fail, Shorten };
    /// Counts a call of the current thread and says what is to become of it. Sets `errno` unless it
    /// is to pass.
    static Outcome next(const char* name);

private:
    struct Plan {
        std::size_t first = 0;  ///< 0: nothing is asked for.
        std::size_t last = 0;
        Outcome outcome = Outcome::Pass;
        int error = 0;
        std::string name;
        std::function<void()> action;
    };

    Outcome seen(const char* name);

    Plan plan;
    std::map<std::string, std::size_t, std::less<>> counts;  ///< The blank name counts them all.
    std::string hitCall;
};

}  // namespace tarvik_test
