// Copies, moves and renames of directories.

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/filelib/source/directory/DirFailures.h"
#include "libraries/filelib/source/directory/DirTools.h"
#include "libraries/filelib/source/directory/DirToolsMessages.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"
#include "libraries/filelib/source/directory/FileFailures.h"
#include "libraries/filelib/source/directory/FileTools.h"
#include "libraries/filelib/source/path/PathTools.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string_view>
#include <utility>

namespace TarvikFilelib {

using TarvikCorelib::Descriptor;
using TarvikCorelib::DirPlace;
using TarvikCorelib::EntryKind;
using TarvikCorelib::enumerationDigits;
using TarvikCorelib::Exception;
using TarvikCorelib::existingMask;
using TarvikCorelib::FileIdentity;
using TarvikCorelib::here;
using TarvikCorelib::made;
using TarvikCorelib::TreeCopy;
using TarvikCorelib::TreeWalk;
using TarvikCorelib::WalkFailures;

namespace {

constexpr mode_t allPermissions = S_IRWXU | S_IRWXG | S_IRWXO;

// Reports the start of an operation, and its end in every case.
class Report {
public:
    Report(const CopyParams& params, const char* word, const std::string& base,
           unsigned long long total, const char* reason)
        : params(params), name(std::string(word) + "(" + base + ")"), reason(reason) {
        params.reportOperationStart(name, total);
    }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;
    ~Report() {
        if (isEnded) return;
        try {
            end(params.isAborted() ? OperationStatus::Aborted : OperationStatus::Failed, reason);
        } catch (...) {
            // The exception that is under way counts.
            isEnded = true;
        }
    }

    void update(unsigned long long amount) const { params.reportOperationUpdate(name, amount); }
    void end(OperationStatus status, const std::string& text = {}) {
        isEnded = true;
        params.reportOperationEnd(name, status, text);
    }

private:
    const CopyParams& params;
    std::string name;
    std::string reason;
    bool isEnded = false;
};

// What a copy has to know of itself.
struct Task {
    const std::string& source;
    std::string target;  // Without slashes at its end: a suffix may be added.
    CopyParams& params;
};

bool isTemporary(const Task& task, const std::string& written) {
    return written == task.target + "." + CopyParams::TemporarySuffix;
}

DirTools::Copy_Failed copyFailure(const Task& task, const std::string& reason) {
    return made<DirTools::Copy_Failed>(messages::copyFailed, here(), task.source, task.target,
                                       reason);
}

DirTools::Copy_Failed copyFailure(const Task& task, const std::string& reason,
                                  const Exception& cause) {
    return {messages::copyFailed.view(), here(),
            valuesFor(messages::copyFailed, task.source, task.target, reason), cause};
}

bool getIdentity(int dir, const char* name, int flags, FileIdentity& identity) {
    struct stat status {};
    if (fstatat(dir, name, &status, flags) != 0) return false;
    identity = FileIdentity(status);
    return true;
}

// Whether the directory is the one of that name, or anywhere in it.
bool liesIn(const std::string& path, const DirPlace& place) {
    FileIdentity above;
    if (!getIdentity(place.dir.get(), place.name.c_str(), AT_SYMLINK_NOFOLLOW, above)) return false;
    FileIdentity last;
    Descriptor dir = openTop(path);
    FileIdentity current;
    while (dir.isOpen() && getIdentity(dir.get(), "", AT_EMPTY_PATH, current) && current != last) {
        if (current == above) return true;
        last = current;  // The root is its own parent.
        dir = TarvikCorelib::openDir(dir.get(), "..");
    }
    return false;
}

// Copies from directory to directory with the policy and the reports of the parameters.
class RunCopyTree : public TreeCopy {
public:
    RunCopyTree(const Task& task, const Report& report)
        : TreeCopy(task.params.getFlags(), blockSizeOf(task.params)),
          task(task),
          params(task.params),
          report(report) {}

    // Of the first entry that failed.
    std::optional<DirTools::Copy_Failed> cause;

protected:
    int settleName(int dir, EntryKind kind, const std::string& name,
                   std::string& written) override {
        const bool asks = (params.getFlags() & CopyAsk) != 0;
        const int error =
            asks ? ask(dir, kind, name, written) : TreeCopy::settleName(dir, kind, name, written);
        isSkipped = error == 0 && written.empty();
        return error;
    }

    int copyFile(int from, const char* name, int toDir) override {
        if (params.getReporter() == nullptr) return TreeCopy::copyFile(from, name, toDir);
        struct stat status {};
        if (fstatat(from, name, &status, AT_SYMLINK_NOFOLLOW) != 0) return errno;
        const auto size = static_cast<unsigned long long>(status.st_size);
        Report ofFile(params, "copyfile", name, size / params.getBlockSize() + 1, "");
        fileReport = &ofFile;
        isSkipped = false;
        const int error = TreeCopy::copyFile(from, name, toDir);
        if (error != 0)
            ofFile.end(OperationStatus::Failed, reasonOf(error));
        else
            ofFile.end(isSkipped ? OperationStatus::Skipped : OperationStatus::Done);
        return error;
    }

    void blockDone() override {
        if (fileReport != nullptr) fileReport->update(1);
    }

    int finish(int dir, const std::string& written, const std::string& name) override {
        EntryKind kind = EntryKind::Other;
        const int error = TarvikCorelib::kindOf(dir, written.c_str(), kind);
        if (error != 0 || kind != EntryKind::Directory) return TreeCopy::finish(dir, written, name);
        std::string left;
        DirPlace from{Descriptor(fcntl(dir, F_DUPFD_CLOEXEC, 0)), written};
        DirPlace to{Descriptor(fcntl(dir, F_DUPFD_CLOEXEC, 0)), name};
        if (!from.dir.isOpen() || !to.dir.isOpen()) return errno;
        if (liesIn(task.source, to)) return EINVAL;
        return TarvikCorelib::takePlace(from, to, left);
    }

    void done(const TreeWalk& walk, int error) override {
        report.update(1);
        if (error == 0 || cause) return;
        const std::string path = "/" + walk.path();
        cause = made<DirTools::Copy_Failed>(messages::copyFailed, here(), task.source + path,
                                            task.target + path, reasonOf(error));
    }

private:
    // What nobody watches need not go in small blocks.
    static std::size_t blockSizeOf(const CopyParams& params) {
        return params.getReporter() == nullptr ? UsualBlockSize : params.getBlockSize();
    }

    static std::string reasonOf(int error) {
        return error == EEXIST ? std::string(messages::targetExistsReason) : errorText(error);
    }

    // The parameters know paths only; this one leads to the open directory, at any depth.
    int ask(int dir, EntryKind kind, const std::string& name, std::string& written) {
        written = name;
        EntryKind existing = EntryKind::Other;
        if (TarvikCorelib::kindOf(dir, name.c_str(), existing) == ENOENT) return 0;
        const std::string path = "/proc/self/fd/" + std::to_string(dir) + "/" + name;
        const auto type =
            kind == EntryKind::Directory ? CopyParams::TargetDirectory : CopyParams::TargetFile;
        std::string reason;
        written = PathTools::getBase(params.getTarget(type, path, path, reason));
        return reason.empty() ? 0 : EEXIST;
    }

    const Task& task;
    CopyParams& params;
    const Report& report;
    Report* fileReport = nullptr;  // Of the file that is being copied.
    bool isSkipped = false;
};

FileTreeNode::Pointer scanDir(const Task& task) {
    Report report(task.params, messages::scanDirWord, lastName(task.source), 1,
                  messages::scanFailedReason);
    try {
        FileTreeNode::Pointer tree = DirTools::getFileTree(task.source);
        report.end(OperationStatus::Done);
        return tree;
    } catch (const Exception& failure) {
        throw DirTools::Scan_Failed(messages::scanFailed.view(), here(),
                                    valuesFor(messages::scanFailed, task.source), failure);
    }
}

// What is to be replaced must be a directory, and not one that holds the source.
void requireReplaceable(const Task& task) {
    DirPlace place;
    EntryKind kind = EntryKind::Other;
    int error = TarvikCorelib::openPlace(task.target, place);
    if (error == 0) error = TarvikCorelib::kindOf(place.dir.get(), place.name.c_str(), kind);
    if (error == 0 && kind != EntryKind::Directory) error = ENOTDIR;
    if (error == 0 && liesIn(task.source, place)) error = EINVAL;
    if (error != 0) throw copyFailure(task, errorText(error));
}

// Makes the directory that is written to. One that exists may be the one to merge with.
Descriptor makeTarget(const Task& task, const DirPlace& place, bool mayMerge) {
    const bool isMade = mkdirat(place.dir.get(), place.name.c_str(), allPermissions) == 0;
    if (!isMade && !(errno == EEXIST && mayMerge)) throw copyFailure(task, errorText(errno));
    Descriptor dir = TarvikCorelib::openDir(place.dir.get(), place.name.c_str());
    if (dir.isOpen()) return dir;
    const int error = errno;
    if (isMade) unlinkat(place.dir.get(), place.name.c_str(), AT_REMOVEDIR);
    throw copyFailure(task, errorText(error));
}

// Copies what is in the source to a directory that has been made.
void runCopyTree(const Task& task, const FileTreeNode& tree, Descriptor target) {
    Report report(task.params, messages::copyTreeWord, tree.getName(), tree.getTreeSize(),
                  messages::copyDirFailedReason);
    Descriptor source = openTop(task.source);
    if (!source.isOpen()) throw copyFailure(task, errorText(errno));
    RunCopyTree run(task, report);
    const WalkFailures failures = run.copy(std::move(source), std::move(target));
    if (failures.count > 0) {
        const std::string reason =
            std::to_string(failures.count) + std::string(messages::filesFailed);
        throw copyFailure(task, reason,
                          run.cause ? *run.cause : Exception(errorText(failures.error)));
    }
    report.end(OperationStatus::Done);
}

void copyTree(const Task& task, const FileTreeNode& tree, const std::string& written) {
    DirPlace place;
    if (const int error = TarvikCorelib::openPlace(written, place); error != 0)
        throw copyFailure(task, errorText(error));
    if (!isTemporary(task, written)) {
        const bool mayMerge =
            written == task.target && (task.params.getFlags() & (CopyMerge | CopyAsk)) != 0;
        return runCopyTree(task, tree, makeTarget(task, place, mayMerge));
    }

    requireReplaceable(task);
    if (liesIn(task.source, place))
        throw copyFailure(task, std::string(messages::cannotReplaceTemporary));
    const auto removeTemporary = [&place] {
        TarvikCorelib::removeTree(place.dir.get(), place.name.c_str(), false);
    };
    removeTemporary();
    try {
        runCopyTree(task, tree, makeTarget(task, place, false));
        DirTools::rename(written, task.target, CopyOverwrite);
    } catch (...) {
        removeTemporary();
        throw;
    }
}

void copyTo(const Task& task, const std::string& written) {
    const FileTreeNode::Pointer tree = scanDir(task);
    copyTree(task, *tree, written);
}

// A copy or a move onto itself.
bool isOntoItself(const Task& task) {
    FileIdentity source;
    FileIdentity target;
    const int flags = task.params.getFlags();
    const int existing = flags & existingMask;
    return (existing == CopySkipExisting || existing == CopyOverwrite ||
            (flags & CopyMerge) != 0) &&
           getIdentity(AT_FDCWD, task.source.c_str(), 0, source) &&
           getIdentity(AT_FDCWD, TarvikCorelib::systemName(task.target).c_str(), 0, target) &&
           source == target;
}

// Runs the operation with the path to write to, unless it is to be skipped.
template <class Run>
void withTarget(Report& report, const Task& task, Run run) {
    if (task.params.isAborted())
        throw made<OperationAborted>(messages::operationAborted, here(), messages::abortedOperation,
                                     messages::abortedBecause);
    if (isOntoItself(task)) return report.end(OperationStatus::Done);
    std::string reason;
    const std::string written =
        task.params.getTarget(CopyParams::TargetDirectory, task.source, task.target, reason);
    if (!reason.empty()) throw copyFailure(task, reason);
    if (written.empty()) return report.end(OperationStatus::Skipped);
    run(written);
    report.end(OperationStatus::Done);
}

struct Names {
    const std::string& from;
    const std::string& to;
};

// Renames over what is there, as far as the flags say so.
int renameExisting(const DirPlace& from, const DirPlace& to, const Names& names, int flags) {
    const int existing = flags & existingMask;
    FileIdentity old;
    FileIdentity replaced;
    const bool isSame = getIdentity(from.dir.get(), from.name.c_str(), AT_SYMLINK_NOFOLLOW, old) &&
                        getIdentity(to.dir.get(), to.name.c_str(), AT_SYMLINK_NOFOLLOW, replaced) &&
                        old == replaced;
    if (isSame && (existing == CopySkipExisting || existing == CopyOverwrite)) return 0;
    if (existing == CopyEnumerate) {
        const std::string path = withoutSlashesAtEnd(names.to);
        DirTools::rename(names.from, FileTools::getNextEnumeration(path, enumerationDigits));
        return 0;
    }
    if (existing != CopyOverwrite)
        throw made<TargetExists>(messages::targetExists, here(), names.to, "rename");
    EntryKind kind = EntryKind::Other;
    int error = TarvikCorelib::kindOf(to.dir.get(), to.name.c_str(), kind);
    if (error == 0 && kind != EntryKind::Directory) error = ENOTDIR;
    if (error != 0) return error;
    std::string left;
    error = TarvikCorelib::takePlace(from, to, left);
    if (!left.empty())
        throw made<DirTools::Remove_Failed>(
            messages::removeFailed, here(),
            left == from.name ? names.from
                              : PathTools::getBaseRemoved(withoutSlashesAtEnd(names.to)) + left);
    return error;
}

Task taskOf(const std::string& source, const std::string& target, CopyParams& params,
            const char* operation) {
    requireParameter(source, "path", operation);
    requireParameter(target, "target_path", operation);
    checkAccess(DirTools::exists(source) ? 0 : ENOENT, source, operation);
    const std::string trimmed = withoutSlashesAtEnd(target);
    return {source, trimmed.empty() ? target : trimmed, params};
}

}  // namespace

void DirTools::copy(const std::string& source, const std::string& target, CopyParams& params) {
    const Task task = taskOf(source, target, params, "copy");
    Report report(params, messages::copyDirWord, lastName(source), 1,
                  messages::copyDirFailedReason);
    withTarget(report, task, [&task](const std::string& written) { copyTo(task, written); });
}

void DirTools::copy(const std::string& source, const std::string& target, int flags) {
    CopyParams params(flags);
    copy(source, target, params);
}

void DirTools::move(const std::string& source, const std::string& target, CopyParams& params) {
    const Task task = taskOf(source, target, params, "move");
    Report report(params, messages::moveDirWord, lastName(source), 1, messages::moveFailedReason);
    withTarget(report, task, [&task](const std::string& written) {
        const bool replaces = isTemporary(task, written);
        try {
            return rename(task.source, replaces ? task.target : written,
                          replaces ? CopyOverwrite : 0);
        } catch (const Remove_Failed&) {
            throw;  // It has been moved.
        } catch (const Exception&) {
            // As from one device to another: a copy takes over.
        }
        try {
            copyTo(task, written);
        } catch (const OperationAborted&) {
            throw;
        } catch (const Exception& failure) {
            throw copyFailure(task, messages::moveFailedReason, failure);
        }
    });
}

void DirTools::move(const std::string& source, const std::string& target, int flags) {
    CopyParams params(flags);
    move(source, target, params);
}

void DirTools::rename(const std::string& from, const std::string& to, int flags) {
    requireParameter(to, "target_path", "rename");
    EntryKind kind = EntryKind::Other;
    const DirPlace source = placeOf(from, "rename", kind);
    checkAccess(kind == EntryKind::Directory ? 0 : ENOTDIR, from, "rename");
    DirPlace target;
    int error = TarvikCorelib::openPlace(to, target);
    if (error == 0) error = TarvikCorelib::renameToNewPlace(source, target);
    if (error == EEXIST) error = renameExisting(source, target, {from, to}, flags);
    if (error != 0) throw made<Rename_Failed>(messages::renameFailed, here(), from, to, error);
}

}  // namespace TarvikFilelib
