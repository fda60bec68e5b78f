// Any bytes as a handle. Whatever they are, the result is a list of faults with lines of the file,
// and the same list when the file is read again behind another one.

#include "apps/handlechecker/validation/HandleValidator.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// A file in memory, under a path that can be opened.
class MemoryFile {
public:
    MemoryFile() : descriptor(memfd_create("handle", MFD_CLOEXEC)) {}
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(descriptor); }

    [[nodiscard]] bool hold(const std::uint8_t* data, std::size_t size) const {
        return ftruncate(descriptor, 0) == 0 &&
               pwrite(descriptor, data, size, 0) == static_cast<ssize_t>(size);
    }
    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor); }

private:
    int descriptor;
};

std::vector<Tarvik::HandleValidator::Error> faultsIn(Tarvik::HandleValidator& validator,
                                                     std::string path) {
    if (!validator.loadHandle(path)) std::abort();
    const bool valid = validator.validate();
    auto faults = validator.getErrorList();
    // A line may be rejected in silence, so no faults do not mean that the handle is valid.
    if (valid && !faults.empty()) std::abort();
    if (faults.empty() != validator.getErrors().empty()) std::abort();
    return faults;
}

// Devices react to being opened in their own ways, and some files of the system call themselves
// endless: handles that name one are ignored. All other files are only read, no further than their
// size.
bool namesSystemFile(std::string_view handle) {
    constexpr auto places = std::to_array<std::string_view>({"/dev", "/proc", "/sys"});
    return std::any_of(places.begin(), places.end(), [handle](std::string_view place) {
        return handle.find(place) != std::string_view::npos;
    });
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const MemoryFile file;
    if (namesSystemFile(std::string(data, data + size))) return 0;

    Tarvik::HandleValidator validator;
    if (!file.hold(data, size)) std::abort();
    const auto first = faultsIn(validator, file.path());
    // Half of it in between: no data may be left over. An empty file would stay open.
    if (size > 1 && file.hold(data, size / 2)) faultsIn(validator, file.path());
    if (!file.hold(data, size)) std::abort();
    const auto second = faultsIn(validator, file.path());
    if (first != second) std::abort();
    const long lines = std::count(data, data + size, '\n') + 1;
    for (const auto& fault : first) {
        if (fault.message.empty() || std::stol(fault.line) > lines) std::abort();
    }

    validator.setFilechecking();
    faultsIn(validator, file.path());
    std::string name;
    std::string path = file.path();
    validator.loadHandle(path);
    validator.nameScanner(name);
    return 0;
}
