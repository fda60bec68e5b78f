#include "libraries/filelib/source/directory/CopyParams.h"

#include "libraries/corelib/source/diagnostics/SourceText.h"
#include "libraries/corelib/source/text/StringTools.h"
#include "libraries/filelib/source/directory/DirectoryMessages.h"
#include "libraries/filelib/source/directory/FileTools.h"
#include "libraries/filelib/source/path/PathTools.h"

#include <string_view>

namespace TarvikFilelib {

namespace {

std::string refuse(std::string_view reason, std::string& error) {
    error = reason;
    return {};
}

std::string skip(std::string& error) {
    return refuse({}, error);
}

std::string replace(const std::string& target, std::string& error) {
    std::string suffix = PathTools::getSuffix(target);
    if (TarvikCorelib::StringTools::lower(suffix) == CopyParams::TemporarySuffix)
        return refuse(messages::cannotReplaceTemporary, error);
    return target + "." + CopyParams::TemporarySuffix;
}

std::string enumerate(const std::string& target, std::string& error) {
    try {
        return FileTools::getNextEnumeration(target, TarvikCorelib::enumerationDigits);
    } catch (const FileTools::TooManyEnumeratedFiles&) {
        return refuse(messages::tooMuchEnumeration, error);
    }
}

}  // namespace

CopyParams::CopyParams(int flags, unsigned int blockSize) : blockSize(blockSize), flags(flags) {}

CopyParams::CopyParams(ProgressReporter* reporter, int flags, unsigned int blockSize)
    : blockSize(blockSize), reporter(reporter), flags(flags) {}

void CopyParams::init() {
    *this = CopyParams(0);
}

void CopyParams::reportOperationStart(const std::string& name, unsigned long long total) const {
    if (reporter != nullptr) reporter->reportOperationStart(name, total);
}

void CopyParams::reportOperationUpdate(const std::string& name, unsigned long long amount) const {
    if (reporter != nullptr) reporter->reportOperationUpdate(name, amount);
}

void CopyParams::reportOperationEnd(const std::string& name, OperationStatus status,
                                    const std::string& text) const {
    if (reporter != nullptr) reporter->reportOperationEnd(name, status, text);
}

std::string CopyParams::getTarget(TargetType type, const std::string& /*source*/,
                                  const std::string& target, std::string& error) {
    error.clear();
    if (aborted || !FileTools::exists(target)) return target;

    if (type == TargetDirectory && (flags & CopyMerge) != 0) return target;
    if ((flags & CopyAsk) != 0) return getTargetFromReporter(type, target, error);
    switch (flags & TarvikCorelib::existingMask) {
    case CopyEnumerate: return enumerate(target, error);
    case CopyOverwrite: return replace(target, error);
    case CopySkipExisting: return skip(error);
    default: return refuse(messages::targetExistsReason, error);
    }
}

std::string CopyParams::getTargetFromReporter(TargetType type, const std::string& target,
                                              std::string& error) {
    if (reporter == nullptr) return refuse(messages::targetExistsReason, error);
    const bool isDirectory = type == TargetDirectory;
    const std::string answer = reporter->askQuestion(
        std::string(messages::copyFileWord), std::string(messages::overwriteQuestion),
        std::string(isDirectory ? messages::directoryAnswers : messages::fileAnswers));

    if (answer == "No") return skip(error);
    if (answer == "Yes") return replace(target, error);
    if (answer == "Enumerate") return enumerate(target, error);
    if (answer == "Merge" && isDirectory) return target;
    if (answer != "Abort") return refuse(messages::unknownError, error);
    aborted = true;
    throw TarvikCorelib::made<OperationAborted>(messages::operationAborted, TarvikCorelib::here(),
                                                messages::abortedOperation,
                                                messages::abortedBecause);
}

}  // namespace TarvikFilelib
