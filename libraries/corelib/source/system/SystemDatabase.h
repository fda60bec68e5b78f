/// Asks the databases of the system for hosts, users and groups.
#pragma once

#include <cerrno>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace TarvikCorelib {

/// Reads a text file line by line, as far as `search` finds nothing in it, and returns what it
/// found: a blank text if that is nothing, or if the file cannot be read. `search` gets whole
/// lines, several at a time. One open, one read and one close for a short file, where the C
/// library's own search makes many more calls.
std::string searchFile(const char* path,
                       const std::function<std::string_view(std::string_view)>& search);

/// One record of such a database, and the texts that it points to.
template <class Record>
class DatabaseRecord {
public:
    /// Fills the record by one of the C library's re-entrant functions: the call gets the record, a
    /// buffer, its size, and where to put the result. False if there is no such record.
    template <class Call>
    bool read(const Call& call) {
        for (;;) {
            Record* found = nullptr;
            const int error = call(&record, texts.data(), texts.size(), &found);
            if (error != ERANGE || texts.size() >= Limit) return error == 0 && found != nullptr;
            texts.resize(2 * texts.size());
        }
    }

    const Record& operator*() const { return record; }
    const Record* operator->() const { return &record; }

private:
    // A service that always asks for more has an end here.
    static constexpr std::size_t Limit = std::size_t{1} << 24U;

    Record record{};
    std::vector<char> texts = std::vector<char>(1024);
};

}  // namespace TarvikCorelib
