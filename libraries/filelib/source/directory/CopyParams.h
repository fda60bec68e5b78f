/// What a copy or a move does with a target that exists, and whom it tells about its progress.
#pragma once

#include "libraries/corelib/source/system/FileTarget.h"
#include "libraries/filelib/source/directory/FileExceptions.h"

#include <cstdint>
#include <string>

namespace TarvikFilelib {

/// How an operation ended.
enum class OperationStatus : std::int32_t { Done, Skipped, Failed, Aborted };

/// Is told how far an operation is, and answers its questions. Called by the thread that copies;
/// an exception ends the operation.
class ProgressReporter {
public:
    ProgressReporter() = default;
    ProgressReporter(const ProgressReporter&) = default;
    ProgressReporter& operator=(const ProgressReporter&) = default;
    virtual ~ProgressReporter() = default;

    /// The name is the one of `reportOperationEnd`; the total is a number of blocks.
    virtual void reportOperationStart(const std::string& name, unsigned long long total) = 0;
    /// So many blocks more.
    virtual void reportOperationUpdate(const std::string& name, unsigned long long amount) = 0;
    /// The text is the reason of a failure, else empty.
    virtual void reportOperationEnd(const std::string& name, OperationStatus status,
                                    const std::string& text) = 0;
    /// Returns one of the answers, which stand in one text with "|" between them, or "Abort" to end
    /// the operation. The operation is a word such as "copyfile".
    virtual std::string askQuestion(const std::string& operation, const std::string& question,
                                    const std::string& answers) = 0;
};

/// The bits 1 and 2 are one number, from 0 to 3; the others may be added. `CopyAsk` comes first.
enum CopyFlag : std::int32_t {
    /// Leave the target as it is. No failure.
    CopySkipExisting = TarvikCorelib::CopySkipExisting,
    /// Replace it, through a temporary file.
    CopyOverwrite = TarvikCorelib::CopyOverwrite,
    /// Write to a numbered name instead.
    CopyEnumerate = TarvikCorelib::CopyEnumerate,
    /// Ask the reporter; without one it is a failure.
    CopyAsk = 4,
    /// Copy into a directory that exists.
    CopyMerge = TarvikCorelib::CopyMerge,
};

/// The policy of one operation on one or many files. For one operation at a time: it keeps whether
/// the user has aborted.
///
///     CopyParams params(&reporter, CopyAsk, 65536);  // In blocks of 64 KiB.
///     FileTools::copy("a.txt", "b.txt", params);     // May ask: "No|Yes|Enumerate".
class CopyParams {
public:
    enum TargetType : std::int32_t { TargetFile = 0, TargetDirectory = 1 };

    static constexpr unsigned int DefaultBlockSize = 1024;
    /// The suffix of the temporary file that replaces a target.
    static constexpr const char* TemporarySuffix = "cpytmp";

    CopyParams() { init(); }
    // NOLINTNEXTLINE(google-explicit-constructor): flags alone do for most calls.
    CopyParams(int flags, unsigned int blockSize = DefaultBlockSize);
    /// The reporter is the caller's and must live as long. It may be null.
    CopyParams(ProgressReporter* reporter, int flags, unsigned int blockSize = DefaultBlockSize);

    /// The block size of 1024, no reporter, no flags, not aborted.
    void init();

    /// Bytes; a size of 0 is the default.
    unsigned int getBlockSize() const { return blockSize == 0 ? DefaultBlockSize : blockSize; }
    ProgressReporter* getReporter() const { return reporter; }
    int getFlags() const { return flags; }
    bool isAborted() const { return aborted; }

    void reportOperationStart(const std::string& name, unsigned long long total) const;
    void reportOperationUpdate(const std::string& name, unsigned long long amount) const;
    void reportOperationEnd(const std::string& name, OperationStatus status,
                            const std::string& text) const;

    /// The path to write to; the source makes no difference. It is the target itself if nothing is
    /// there (or the operation has been aborted), a numbered name, or the name of the temporary
    /// file: a path with the suffix "cpytmp" is to be renamed over the name without it. Empty with
    /// a reason in `error`, or, if this file is to be skipped, without one. Throws
    /// `OperationAborted` if the reporter's answer is to abort.
    std::string getTarget(TargetType type, const std::string& source, const std::string& target,
                          std::string& error);

private:
    std::string getTargetFromReporter(TargetType type, const std::string& target,
                                      std::string& error);

    unsigned int blockSize = DefaultBlockSize;
    ProgressReporter* reporter = nullptr;
    int flags = 0;
    bool aborted = false;
};

}  // namespace TarvikFilelib
