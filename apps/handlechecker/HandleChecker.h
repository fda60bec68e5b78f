/// The tool itself: what is checked, in which order, and how it is reported.
#pragma once

#include "apps/handlechecker/validation/HandleValidator.h"
#include "libraries/appframe/source/AppFrame.h"
#include "libraries/corelib/source/diagnostics/NamedException.h"

#include <list>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Tarvik {

/// One run over a handle file, or over those of a directory. `run` works in this order, each step
/// on all files before the next begins:
///
///     scanHandleNames           the names of one directory, to find duplicates
///     validateFile ...          each file: validate, compare its name, keep its faults
///     parseResultsToJsonFormat  the report, a text a file
///     showResultInConsole       or createJsonFiles and showSummary
///
/// The first two are one reading of each file, `scanAndValidateDir`, if both mean the same
/// directory. Nothing is printed before the last file has been validated. Faults of handles are
/// data: they are reported, and never change the exit status. What makes the run itself impossible
/// leaves `run` as an exception, and then nothing is reported, apart from the files written by
/// then.
class HandleChecker : public TarvikCorelib::AppFrame {
public:
    /// A path that cannot be used: of a handle, a directory of handles, or a file to write.
    using Source_BadDir = TarvikCorelib::NamedException<HandleChecker, "Source_BadDir">;
    /// An exception of any type left the validation of a handle.
    using Source_ValidationErr =
        TarvikCorelib::NamedException<HandleChecker, "Source_ValidationErr">;

    /// The faults of one handle, in the order of the report. Without any the handle is valid.
    struct ValidationResult {
        std::string path;  ///< As it was given, or put together from a directory as it was given.
        std::vector<HandleValidator::Error> errors;
    };

    /// Reads the command line. The state is `AppStateDone` if that asked for a text only.
    /// Quirk: a bad command line is printed but is no failure: the run goes on with the arguments
    /// ahead of the bad one.
    HandleChecker(int argc, char** argv);
    HandleChecker(const HandleChecker&) = delete;
    HandleChecker& operator=(const HandleChecker&) = delete;
    ~HandleChecker() override;

    bool construct() override;
    bool destruct() override;
    /// Returns 0, whatever the handles hold.
    int run() override;
    /// For the end of the process: what the run has gathered stays as it is, reachable but never
    /// destroyed.
    void leaveRecords();

    /// Validates `currentFile` and adds its result to the others. True if the validator found no
    /// fault; a duplicate name does not count. Throws `Source_BadDir` if there is no such file, and
    /// `Source_ValidationErr`.
    bool validateFile();
    /// Validates every "*.conf" of the directory, in byte order. Throws `Source_BadDir` if there is
    /// none, and what `validateFile` throws.
    void validateHandleDir(std::string& dir);

    /// Notes the name in every "*.conf" of a directory. A directory that does not exist has none.
    void scanHandleNames(std::string dir);
    /// Adds a fault to those of `currentFile` for each other file that was noted with its name.
    void validateName();
    /// Does what `scanHandleNames` and then `validateHandleDir` do for one directory, but reads
    /// each file once: its faults and its name come from the same reading.
    void scanAndValidateDir(const std::string& dir);

    /// Turns each result into JSON text, and counts its errors.
    void parseResultsToJsonFormat();
    /// Prints the JSON texts in the byte order of the paths, with nothing between them.
    void showResultInConsole();
    /// Writes the JSON text of each faulty handle to a file beside it. Throws `Source_BadDir` if
    /// there is no file afterwards, and `std::out_of_range` for a path without ".conf".
    void createJsonFiles();
    /// Prints three lists: valid handles, invalid ones, files written.
    void showSummary();

private:
    /// Quirk: the directory stays as it was given, so a slash at its end is doubled.
    static std::string pathIn(const std::string& dir, const std::string& file);
    void validateChosen();
    std::set<std::string> handlesToValidate(const std::string& dir);
    bool validateOnly();
    void scanHandleName(HandleValidator& scanner, std::string path);
    [[nodiscard]] std::vector<std::string> duplicatesOf(const std::string& name,
                                                        const std::string& path) const;
    [[nodiscard]] std::string renderErrors(const ValidationResult& result) const;

    /// Handle name to file path; equal names in the byte order of the file names. A file without a
    /// name has a blank one.
    std::multimap<std::string, std::string> handleNames;
    std::map<std::string, long> errorCounts;         ///< By file path.
    std::map<std::string, std::string> jsonResults;  ///< By file path.
    bool directoryRun = false;                       ///< A directory is validated, not one file.
    bool saveOutput = false;                         ///< The report goes into files.
    std::string currentFile;
    HandleValidator validator;              ///< Used for one file after the other.
    std::list<ValidationResult> results;    ///< In the order of validation.
    std::vector<std::string> createdFiles;  ///< In the order of writing.
};

}  // namespace Tarvik
