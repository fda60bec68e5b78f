#include "test/support/FileFaults.h"

#include <zlib.h>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <stdio_ext.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <type_traits>
#include <utility>

namespace tarvik_test {

namespace {

constinit thread_local FileFaults* active = nullptr;

}  // namespace

FileFaults::FileFaults() {
    active = this;
}

FileFaults::~FileFaults() {
    active = nullptr;
}

void FileFaults::failAt(std::size_t number, int error, std::string_view name) {
    plan = {number, number, Outcome::Fail, error, std::string(name), {}};
}

void FileFaults::failFrom(std::size_t number, int error, std::string_view name) {
    failAt(number, error, name);
    plan.last = std::numeric_limits<std::size_t>::max();
}

void FileFaults::shortAt(std::size_t number, int error, std::string_view name) {
    failAt(number, error, name);
    plan.outcome = Outcome::Shorten;
}

void FileFaults::runAt(std::size_t number, std::function<void()> action, std::string_view name) {
    plan = {number, number, Outcome::Pass, 0, std::string(name), std::move(action)};
}

std::size_t FileFaults::count(std::string_view name) const {
    const auto found = counts.find(name);
    return found == counts.end() ? 0 : found->second;
}

FileFaults::Outcome FileFaults::next(const char* name) {
    return active == nullptr ? Outcome::Pass : active->seen(name);
}

FileFaults::Outcome FileFaults::seen(const char* name) {
    const std::size_t ofAll = ++counts[""];
    const std::size_t ofName = ++counts[name];
    const std::size_t number = plan.name.empty() ? ofAll : ofName;
    if (!plan.name.empty() && plan.name != name) return Outcome::Pass;
    if (number < plan.first || number > plan.last) return Outcome::Pass;

    hitCall = name;
    if (plan.action) {
        FileFaults* const interrupted = std::exchange(active, nullptr);
        plan.action();
        active = interrupted;
    }
    if (plan.outcome != Outcome::Pass) errno = plan.error;
    return plan.outcome;
}

}  // namespace tarvik_test

namespace {

using tarvik_test::FileFaults;
using enum FileFaults::Outcome;

/// The call that the wrapper stands for. The names without "64" have the same types here.
template <auto wrapper>
decltype(wrapper) real(const char* name) {
    static const auto found = std::bit_cast<decltype(wrapper)>(dlsym(RTLD_NEXT, name));
    return found;
}

/// What a call answers that fails: null or -1, which is `EOF` and `Z_ERRNO` too.
template <class Result>
Result failed() {
    if constexpr (std::is_pointer_v<Result>)
        return nullptr;
    else
        return -1;
}

/// A call that moves no bytes.
template <auto wrapper, class... Args>
auto pass(const char* name, Args... args) -> decltype(wrapper(args...)) {
    if (FileFaults::next(name) != Pass) return failed<decltype(wrapper(args...))>();
    return real<wrapper>(name)(args...);
}

/// A call after which nothing is open, whatever it answers.
template <auto wrapper, class Handle>
int closing(const char* name, FileFaults::Outcome outcome, Handle handle) {
    const int error = errno;
    const int result = real<wrapper>(name)(handle);
    if (outcome == Pass) return result;
    errno = error;
    return failed<int>();
}

/// A call that moves `size` bytes and answers their number.
template <auto wrapper, class Handle, class Bytes, class Size, class... More>
auto moving(const char* name, Handle handle, Bytes bytes, Size size, More... more)
    -> decltype(wrapper(handle, bytes, size, more...)) {
    const FileFaults::Outcome outcome = FileFaults::next(name);
    if (outcome == Fail) return failed<decltype(wrapper(handle, bytes, size, more...))>();
    const Size part = outcome == Pass ? size : std::max(size / 2, Size{1});
    return real<wrapper>(name)(handle, bytes, part, more...);
}

FileFaults::Outcome nextOf(const char* name, FILE* stream) {
    if (stream == nullptr || stream == stdout || stream == stderr) return Pass;
    const FileFaults::Outcome outcome = FileFaults::next(name);
    if (outcome != Pass) stream->_flags |= _IO_ERR_SEEN;
    return outcome;
}

/// A call on a stream, which comes last.
template <auto wrapper, class... Args>
auto passStream(const char* name, FILE* stream, Args... args) {
    return nextOf(name, stream) == Pass ? real<wrapper>(name)(args..., stream) : EOF;
}

/// One that moves items. The failure must not look like one that the call had itself.
template <auto wrapper, class Bytes>
std::size_t movingItems(const char* name, Bytes bytes, std::size_t size, std::size_t count,
                        FILE* stream) {
    const FileFaults::Outcome outcome = nextOf(name, stream);
    if (outcome == Pass) return real<wrapper>(name)(bytes, size, count, stream);
    const int error = errno;
    const std::size_t part = outcome == Shorten ? count / 2 : 0;
    const std::size_t moved = part == 0 ? 0 : real<wrapper>(name)(bytes, size, part, stream);
    errno = error;
    return moved;
}

using Path = const char*;
using Stat = struct stat;
using std::size_t;

}  // namespace

// The linker sends calls of `open` to `__wrap_open`, for each name that the build finds below at
// the front of a line. Those that the product calls stand here, in the forms that compilers make.
// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming)
// clang-format off
extern "C" {

// --- paths. A mode is passed on even where the caller gave none: nobody reads it then.

int __wrap_open(Path path, int flags, mode_t mode) {
    return pass<__wrap_open>("open", path, flags, mode);
}
int __wrap___open_2(Path path, int flags) { return __wrap_open(path, flags, 0); }
int __wrap_openat(int dir, Path path, int flags, mode_t mode) {
    return pass<__wrap_openat>("openat", dir, path, flags, mode);
}
DIR* __wrap_opendir(Path path) { return pass<__wrap_opendir>("opendir", path); }
int __wrap_stat(Path path, Stat* to) { return pass<__wrap_stat>("stat", path, to); }
int __wrap_lstat(Path path, Stat* to) { return pass<__wrap_lstat>("lstat", path, to); }
int __wrap_fstatat(int dir, Path name, Stat* to, int flags) {
    return pass<__wrap_fstatat>("fstatat", dir, name, to, flags);
}
int __wrap_fstatat64(int dir, Path name, Stat* to, int flags) {
    return __wrap_fstatat(dir, name, to, flags);
}
int __wrap_statx(int dir, Path name, int flags, unsigned mask, struct statx* to) {
    return pass<__wrap_statx>("statx", dir, name, flags, mask, to);
}
int __wrap_access(Path path, int mode) { return pass<__wrap_access>("access", path, mode); }
int __wrap_faccessat(int dir, Path name, int mode, int flags) {
    return pass<__wrap_faccessat>("faccessat", dir, name, mode, flags);
}
int __wrap_chmod(Path path, mode_t mode) { return pass<__wrap_chmod>("chmod", path, mode); }
int __wrap_fchmodat(int dir, Path name, mode_t mode, int flags) {
    return pass<__wrap_fchmodat>("fchmodat", dir, name, mode, flags);
}
int __wrap_utimensat(int dir, Path name, const timespec* times, int flags) {
    return pass<__wrap_utimensat>("utimensat", dir, name, times, flags);
}
int __wrap_mkdir(Path path, mode_t mode) { return pass<__wrap_mkdir>("mkdir", path, mode); }
int __wrap_mkdirat(int dir, Path name, mode_t mode) {
    return pass<__wrap_mkdirat>("mkdirat", dir, name, mode);
}
int __wrap_rename(Path from, Path to) { return pass<__wrap_rename>("rename", from, to); }
int __wrap_renameat(int from, Path name, int to, Path target) {
    return pass<__wrap_renameat>("renameat", from, name, to, target);
}
int __wrap_renameat2(int from, Path name, int to, Path target, unsigned flags) {
    return pass<__wrap_renameat2>("renameat2", from, name, to, target, flags);
}
int __wrap_unlink(Path path) { return pass<__wrap_unlink>("unlink", path); }
int __wrap_unlinkat(int dir, Path name, int flags) {
    return pass<__wrap_unlinkat>("unlinkat", dir, name, flags);
}
int __wrap_rmdir(Path path) { return pass<__wrap_rmdir>("rmdir", path); }
int __wrap_symlink(Path text, Path path) { return pass<__wrap_symlink>("symlink", text, path); }
int __wrap_symlinkat(Path text, int dir, Path name) {
    return pass<__wrap_symlinkat>("symlinkat", text, dir, name);
}
ssize_t __wrap_readlink(Path path, char* text, size_t size) {
    return pass<__wrap_readlink>("readlink", path, text, size);
}
ssize_t __wrap_readlinkat(int dir, Path name, char* text, size_t size) {
    return pass<__wrap_readlinkat>("readlinkat", dir, name, text, size);
}
char* __wrap_realpath(Path path, char* resolved) {
    return pass<__wrap_realpath>("realpath", path, resolved);
}

// --- descriptors and open directories

int __wrap_fstat(int file, Stat* to) { return pass<__wrap_fstat>("fstat", file, to); }
int __wrap_fchmod(int file, mode_t mode) { return pass<__wrap_fchmod>("fchmod", file, mode); }
int __wrap_fchown(int file, uid_t user, gid_t group) {
    return pass<__wrap_fchown>("fchown", file, user, group);
}
int __wrap_fsync(int file) { return pass<__wrap_fsync>("fsync", file); }
int __wrap_ftruncate(int file, off_t size) {
    return pass<__wrap_ftruncate>("ftruncate", file, size);
}
off_t __wrap_lseek(int file, off_t offset, int whence) {
    return pass<__wrap_lseek>("lseek", file, offset, whence);
}
ssize_t __wrap_read(int file, void* bytes, size_t size) {
    return moving<__wrap_read>("read", file, bytes, size);
}
ssize_t __wrap___read_chk(int file, void* bytes, size_t size, size_t /*room*/) {
    return __wrap_read(file, bytes, size);
}
ssize_t __wrap_pread(int file, void* bytes, size_t size, off_t offset) {
    return moving<__wrap_pread>("pread", file, bytes, size, offset);
}
ssize_t __wrap_write(int file, const void* bytes, size_t size) {
    return moving<__wrap_write>("write", file, bytes, size);
}
int __wrap_close(int file) {
    return closing<__wrap_close>("close", FileFaults::next("close"), file);
}
DIR* __wrap_fdopendir(int dir) { return pass<__wrap_fdopendir>("fdopendir", dir); }
dirent* __wrap_readdir(DIR* dir) { return pass<__wrap_readdir>("readdir", dir); }
dirent64* __wrap_readdir64(DIR* dir) { return pass<__wrap_readdir64>("readdir", dir); }
int __wrap_closedir(DIR* dir) {
    return closing<__wrap_closedir>("closedir", FileFaults::next("closedir"), dir);
}

// --- streams

FILE* __wrap_fopen64(Path path, Path mode) { return pass<__wrap_fopen64>("fopen", path, mode); }
FILE* __wrap_fdopen(int file, Path mode) { return pass<__wrap_fdopen>("fdopen", file, mode); }
int __wrap_fclose(FILE* stream) {
    const FileFaults::Outcome outcome = nextOf("fclose", stream);
    if (outcome != Pass) __fpurge(stream);
    return closing<__wrap_fclose>("fclose", outcome, stream);
}
int __wrap_fflush(FILE* stream) { return passStream<__wrap_fflush>("fflush", stream); }
int __wrap_getc(FILE* stream) { return passStream<__wrap_getc>("getc", stream); }
ssize_t __wrap_getdelim(char** line, size_t* room, int end, FILE* stream) {
    return passStream<__wrap_getdelim>("getdelim", stream, line, room, end);
}
int __wrap_fseeko64(FILE* stream, off_t offset, int whence) {
    return pass<__wrap_fseeko64>("fseek", stream, offset, whence);
}
size_t __wrap_fread(void* bytes, size_t size, size_t count, FILE* stream) {
    return movingItems<__wrap_fread>("fread", bytes, size, count, stream);
}
size_t __wrap_fwrite(const void* bytes, size_t size, size_t count, FILE* stream) {
    return movingItems<__wrap_fwrite>("fwrite", bytes, size, count, stream);
}

// --- compressed files

gzFile __wrap_gzopen(Path path, Path mode) { return pass<__wrap_gzopen>("gzopen", path, mode); }
gzFile __wrap_gzdopen(int file, Path mode) { return pass<__wrap_gzdopen>("gzdopen", file, mode); }
int __wrap_gzread(gzFile file, void* bytes, unsigned size) {
    return moving<__wrap_gzread>("gzread", file, bytes, size);
}
int __wrap_gzwrite(gzFile file, const void* bytes, unsigned size) {
    return std::max(0, moving<__wrap_gzwrite>("gzwrite", file, bytes, size));
}
int __wrap_gzgetc(gzFile file) { return pass<__wrap_gzgetc>("gzgetc", file); }
int __wrap_gzflush(gzFile file, int flush) { return pass<__wrap_gzflush>("gzflush", file, flush); }
off_t __wrap_gzseek64(gzFile file, off_t offset, int whence) {
    return pass<__wrap_gzseek64>("gzseek", file, offset, whence);
}
int __wrap_gzclose(gzFile file) {
    return closing<__wrap_gzclose>("gzclose", FileFaults::next("gzclose"), file);
}

}  // extern "C"
// clang-format on
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)
