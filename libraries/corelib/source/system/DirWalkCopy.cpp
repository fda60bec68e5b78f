#include "libraries/corelib/source/system/DirWalk.h"
#include "libraries/corelib/source/system/FileTarget.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <string_view>
#include <utility>

namespace TarvikCorelib {

namespace {

bool isTemporary(std::string_view name) {
    return name.ends_with(FileReplacement::TemporarySuffix);
}

// "a.txt" leads to "a-0001.txt".
int findNumbered(int dir, const std::string& name, std::string& written) {
    const std::size_t dot = std::min(name.rfind('.'), name.size());
    int error = 0;
    const auto isTaken = [&](const std::string& numbered) {
        EntryKind kind = EntryKind::Other;
        error = kindOf(dir, numbered.c_str(), kind);
        return error == 0;
    };
    written = freeNumberedName(name.substr(0, dot), name.substr(dot), isTaken);
    if (written.empty()) return EEXIST;
    return error == ENOENT ? 0 : error;
}

// What has become no plain file since its directory was read is not waited for.
int openPlain(int dir, const char* name, Descriptor& file) {
    file = Descriptor(openat(dir, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!file.isOpen() || fstat(file.get(), &status) != 0) return errno;
    return S_ISREG(status.st_mode) ? 0 : ENOTSUP;
}

bool isSame(int dir, const char* name, const FileIdentity& other) {
    struct stat status {};
    return fstatat(dir, name, &status, AT_SYMLINK_NOFOLLOW) == 0 && FileIdentity(status) == other;
}

int makeFile(int dir, const char* name, Descriptor& target) {
    target = Descriptor(openat(dir, name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                               FileReplacement::PlainMode));
    return target.isOpen() ? 0 : errno;
}

}  // namespace

int TreeCopy::settleName(int dir, EntryKind kind, const std::string& name, std::string& written) {
    written = name;
    EntryKind existing = EntryKind::Other;
    if (const int error = kindOf(dir, name.c_str(), existing); error != 0)
        return error == ENOENT ? 0 : error;
    const bool bothDirectories = kind == EntryKind::Directory && existing == EntryKind::Directory;
    if (bothDirectories && (flags & CopyMerge) != 0) return 0;
    switch (flags & existingMask) {
    case CopySkipExisting: written.clear(); return 0;
    case CopyOverwrite:
        // A directory is never put in the place of anything.
        if (kind == EntryKind::Directory) return EEXIST;
        written = temporaryName(name);
        return 0;
    case CopyEnumerate: return findNumbered(dir, name, written);
    default: return EEXIST;
    }
}

int TreeCopy::copyData(int source, int target) {
    while (true) {
        const ssize_t got = read(source, block.data(), block.size());
        if (got == 0) return 0;
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        const std::string_view bytes(block.data(), static_cast<std::size_t>(got));
        if (const int error = writeAll(target, bytes); error != 0) return error;
        blockDone();
    }
}

int TreeCopy::finish(int dir, const std::string& written, const std::string& name) {
    return renameat(dir, written.c_str(), dir, name.c_str()) == 0 ? 0 : errno;
}

int TreeCopy::makeAndFinish(int dir, EntryKind kind, const char* name,
                            const std::function<int(const char* written)>& make) {
    std::string written;
    if (const int error = settleName(dir, kind, name, written); error != 0 || written.empty())
        return error;
    if (isTemporary(written)) unlinkat(dir, written.c_str(), 0);
    if (const int error = make(written.c_str()); error != 0) return error;
    if (!isTemporary(written)) return 0;
    const int error = finish(dir, written, name);
    if (error != 0) unlinkat(dir, written.c_str(), 0);
    return error;
}

int TreeCopy::copyFile(int from, const char* name, int toDir) {
    Descriptor source;
    if (const int error = openPlain(from, name, source); error != 0) return error;
    return makeAndFinish(toDir, EntryKind::File, name, [&](const char* written) {
        Descriptor target;
        if (const int error = makeFile(toDir, written, target); error != 0) return error;
        const int copied = copyData(source.get(), target.get());
        const int closed = target.close();
        if (copied != 0 || closed != 0) unlinkat(toDir, written, 0);
        return copied != 0 ? copied : closed;
    });
}

int TreeCopy::copyLink(int from, const char* name) {
    std::array<char, PATH_MAX> text{};
    const ssize_t size = readlinkat(from, name, text.data(), text.size() - 1);
    if (size < 0) return errno;
    return makeAndFinish(to->get(), EntryKind::Link, name, [&](const char* written) {
        return symlinkat(text.data(), to->get(), written) == 0 ? 0 : errno;
    });
}

// The walk leads through the source, and `to` follows it through the target, level by level. For
// each level `entered` keeps the name under which the directory was made, and how many failures
// there were before. So when the walk leaves a directory, it is known whether all of it was copied.
// If so, a temporary name gives way to the real one; if not, the copy under it is removed.
int TreeCopy::enter(TreeWalk& walk) {
    std::string written;
    if (const int error = settleName(to->get(), EntryKind::Directory, walk.name(), written);
        error != 0 || written.empty())
        return error;
    if (isTemporary(written)) removeTree(to->get(), written.c_str(), false);
    const bool made = mkdirat(to->get(), written.c_str(), S_IRWXU | S_IRWXG | S_IRWXO) == 0;
    if (!made && errno != EEXIST) return errno;
    if (const int error = to->enter(written.c_str()); error != 0) return error;
    const int error = walk.enter();
    if (error == 0) {
        entered.push_back({written, failures.count});
        return 0;
    }
    if (to->leave() == 0 && made) unlinkat(to->get(), written.c_str(), AT_REMOVEDIR);
    return error;
}

int TreeCopy::leave(const TreeWalk& walk) {
    const Entered left = std::move(entered.back());
    entered.pop_back();
    if (const int error = to->leave(); error != 0) return error;
    if (!isTemporary(left.written)) return 0;
    // Half a copy must not take the place of what is there.
    int error = 0;
    if (failures.count == left.failuresBefore) error = finish(to->get(), left.written, walk.name());
    if (failures.count != left.failuresBefore || error != 0)
        removeTree(to->get(), left.written.c_str(), false);
    return error;
}

int TreeCopy::copyEntry(TreeWalk& walk) {
    if (walk.isLeaving()) return leave(walk);
    if (walk.kind() == EntryKind::Directory && isSame(walk.dir(), walk.name(), top)) return 0;
    if (isTemporary(walk.name())) return ENOTSUP;
    switch (walk.kind()) {
    case EntryKind::File: return copyFile(walk.dir(), walk.name(), to->get());
    case EntryKind::Link: return copyLink(walk.dir(), walk.name());
    case EntryKind::Directory: return enter(walk);
    default: return ENOTSUP;
    }
}

void TreeCopy::copyAll(TreeWalk& walk) {
    while (walk.next()) {
        const std::size_t depth = entered.size();
        const int error = copyEntry(walk);
        failures.add(error);
        if (entered.size() <= depth) done(walk, error);
    }
    failures.add(walk.error());
}

WalkFailures TreeCopy::copy(Descriptor source, Descriptor target) {
    TreeWalk walk(std::move(source));
    DirChain chain(std::move(target));
    to = &chain;
    top = chain.getIdentity();
    failures = {};
    entered.clear();
    try {
        copyAll(walk);
    } catch (...) {
        giveUp(walk);
        throw;
    }
    if (!entered.empty()) giveUp(walk);
    return failures;
}

// Directories under temporary names go, as after any failure in them.
void TreeCopy::giveUp(const TreeWalk& walk) {
    failures.add(ECANCELED);
    while (!entered.empty())
        leave(walk);
}

}  // namespace TarvikCorelib
