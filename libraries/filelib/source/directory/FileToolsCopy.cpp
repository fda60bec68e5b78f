// Copies and moves of one file.

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/system/FileReplacement.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"
#include "libraries/filelib/source/directory/FileFailures.h"
#include "libraries/filelib/source/directory/FileTools.h"
#include "libraries/filelib/source/file/BinaryFile.h"
#include "libraries/filelib/source/file/FileMessages.h"
#include "libraries/filelib/source/path/PathTools.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

namespace TarvikFilelib {

using TarvikCorelib::Descriptor;
using TarvikCorelib::Exception;
using TarvikCorelib::FileReplacement;
using TarvikCorelib::here;
using TarvikCorelib::made;

namespace {

// How an operation ended, and why it failed.
struct Outcome {
    OperationStatus status = OperationStatus::Done;
    std::string reason;
    std::optional<Exception> cause;
};

Outcome failed(std::string_view reason) {
    return {OperationStatus::Failed, std::string(reason), {}};
}

Outcome failed(std::string_view reason, const Exception& cause) {
    return {OperationStatus::Failed, std::string(reason), cause};
}

// One copy or move: what all its steps need to know.
struct Task {
    const std::string& source;
    const std::string& target;
    CopyParams& params;
    std::string name;  // In the reports.
};

void requireSource(const std::string& source, const std::string& target, const char* operation) {
    requireName(source, "path", operation);
    requireName(target, "target_path", operation);
    if (!FileTools::exists(source)) throwRefusal(ENOENT, source, operation);
}

std::string reportName(std::string_view word, const std::string& source) {
    return std::string(word) + "(" + PathTools::getBase(source) + ")";
}

// Reports the end in every case, also that of an exception, which goes on.
template <class Operation>
Outcome report(const Task& task, Operation operation) {
    const auto size = static_cast<unsigned long long>(FileTools::getByteSize(task.source));
    task.params.reportOperationStart(task.name, size / task.params.getBlockSize() + 1);
    Outcome outcome;
    try {
        outcome = operation();
    } catch (...) {
        const bool isAborted = task.params.isAborted();
        task.params.reportOperationEnd(
            task.name, isAborted ? OperationStatus::Aborted : OperationStatus::Failed, "");
        throw;
    }
    task.params.reportOperationEnd(task.name, outcome.status, outcome.reason);
    return outcome;
}

void requireSuccess(const Task& task, const Outcome& outcome) {
    if (outcome.status != OperationStatus::Failed) return;
    if (!outcome.cause)
        throw made<FileTools::Copy_Failed>(messages::copyFailed, here(), task.source, task.target,
                                           outcome.reason);
    throw FileTools::Copy_Failed(
        messages::copyFailed.view(), here(),
        valuesFor(messages::copyFailed, task.source, task.target, outcome.reason), *outcome.cause);
}

// Of the path that `getTarget` gave. A numbered name is none, whatever it ends with.
bool isTemporary(const Task& task, const std::string& path) {
    const std::string suffix = CopyParams::TemporarySuffix;
    return PathTools::getSuffix(path) == suffix &&
           (path == task.target || path == task.target + "." + suffix);
}

// Where that path ends.
std::string finalName(const Task& task, const std::string& path) {
    return isTemporary(task, path) ? PathTools::getSuffixRemoved(path) : path;
}

// Whether it is the file itself that would be replaced.
bool replacesItself(const Task& task, const std::string& path) {
    return path != task.target && finalName(task, path) == task.target &&
           TarvikCorelib::isSameEntry(task.source, task.target);
}

// Until the size that the file had at the start is used up; false if there is less by now.
bool copyBlocks(const Task& task, BinaryFile& in, BinaryFile& out, off_t size) {
    auto left = static_cast<unsigned long long>(size);
    std::string block;
    while (left > 0) {
        block.clear();
        const auto wanted = std::min<unsigned long long>(left, task.params.getBlockSize());
        try {
            in.read(block, static_cast<std::size_t>(wanted));
        } catch (const BinaryFile::Read_EndOfFile&) {
            return false;
        } catch (const BinaryFile::Read_Failure&) {
            return false;
        }
        if (block.empty()) return false;
        out.write(block);
        left -= block.size();
        task.params.reportOperationUpdate(task.name, 1);
    }
    return true;
}

Outcome failedOn(int error) {
    return failed(messages::openReason("out", error));
}

// A new target is written as it is, and may be cut off if the process dies; what replaces one that
// exists is brought to the disk first, and takes its name then.
Outcome runCopy(const Task& task, const std::string& path) {
    Descriptor source;
    struct stat properties {};
    if (const int error = TarvikCorelib::openPlainFile(task.source, source, properties); error != 0)
        return failed(error == EINVAL || error == EISDIR ? std::string(messages::notPlainFile)
                                                         : messages::openReason("in", error));
    const std::string last = finalName(task, path);
    const bool replaces = isTemporary(task, path);
    // What lies under the name of the temporary file is removed.
    if (replaces && TarvikCorelib::isTemporaryOf(last, source.get()))
        return failed(messages::cannotReplaceTemporary);

    FileReplacement written;
    if (const int error = replaces ? written.open(last) : written.openNew(last); error != 0)
        return failedOn(error);
    Descriptor target;
    if (const int error = written.duplicate(target); error != 0) return failedOn(error);
    BinaryFile in(task.source);
    in.openIn(std::move(source));
    BinaryFile out(path);
    out.openOut(std::move(target));
    if (!copyBlocks(task, in, out, properties.st_size)) return failed(messages::fileReadError);
    out.close();
    in.close();
    if (const int error = replaces ? written.commit(true) : written.keep(); error != 0)
        return failedOn(error);
    return {};
}

Outcome copyTo(const Task& task, const std::string& path) {
    if (replacesItself(task, path)) return {};
    try {
        return runCopy(task, path);
    } catch (const BinaryFile::Read_Failure& failure) {
        return failed(messages::fileReadError, failure);
    } catch (const BinaryFile::Write_Failure& failure) {
        return failed(messages::fileWriteError, failure);
    } catch (const BinaryFile::Close_Failure& failure) {
        return failed(messages::fileWriteError, failure);
    } catch (const BinaryFile::Open_Failure& failure) {
        return failed(messages::fileWriteError, failure);
    }
}

// Asks where to write. Without a place there is an outcome already.
template <class Skip, class Run>
Outcome withTarget(const Task& task, Skip skip, Run run) {
    std::string reason;
    const std::string path =
        task.params.getTarget(CopyParams::TargetFile, task.source, task.target, reason);
    if (!path.empty()) return run(path);
    if (!reason.empty()) return failed(reason);
    skip();
    return {OperationStatus::Skipped, {}, {}};
}

}  // namespace

void FileTools::copy(const std::string& source, const std::string& target, CopyParams& params) {
    requireSource(source, target, "copy");
    const Task task{source, target, params, reportName(messages::copyFileWord, source)};
    const Outcome outcome = report(task, [&task] {
        return withTarget(
            task, [] {}, [&task](const std::string& path) { return copyTo(task, path); });
    });
    requireSuccess(task, outcome);
}

void FileTools::copy(const std::string& source, const std::string& target, int flags) {
    CopyParams params(flags);
    copy(source, target, params);
}

void FileTools::move(const std::string& source, const std::string& target, CopyParams& params) {
    requireSource(source, target, "move");
    const Task task{source, target, params, reportName(messages::moveFileWord, source)};

    const auto skip = [&task] {
        if (!TarvikCorelib::leadsThrough(task.target, task.source)) remove(task.source, true);
    };
    const auto copyInstead = [&task]() -> Outcome {
        try {
            copy(task.source, task.target, task.params);
        } catch (const OperationAborted&) {
            throw;
        } catch (const Exception& failure) {
            return failed(messages::copyFailedWhenMoving, failure);
        }
        return {};
    };
    const auto run = [&task, &copyInstead](const std::string& path) -> Outcome {
        if (replacesItself(task, path)) return {};
        try {
            rename(task.source, finalName(task, path), isTemporary(task, path) ? CopyOverwrite : 0);
        } catch (const Exception&) {
            return copyInstead();
        }
        return {};
    };

    requireSuccess(task, report(task, [&] { return withTarget(task, skip, run); }));
}

void FileTools::move(const std::string& source, const std::string& target, int flags) {
    CopyParams params(flags);
    move(source, target, params);
}

}  // namespace TarvikFilelib
