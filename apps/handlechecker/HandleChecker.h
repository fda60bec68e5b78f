/// The tool itself: what is checked, in which order, and how it is reported.
#pragma once

#include "apps/handlechecker/validation/HandleValidator.h"
#include "libraries/appframe/source/AppFrame.h"
#include "libraries/corelib/source/diagnostics/NamedException.h"

#include <list>
#include <map>
#include <string>
#include <vector>

namespace Tarvik {

/// One run over a handle file, or over those of a directory. Faults of handles are data and are
/// reported; what makes the run itself impossible leaves `run` as an exception, and then nothing of
/// the run is reported but the files that were written by then.
class HandleChecker : public TarvikCorelib::AppFrame {
public:
    /// A path that cannot be used: a handle, a directory of handles, or a file to write.
    using Source_BadDir = TarvikCorelib::NamedException<HandleChecker, "Source_BadDir">;
    /// Something unforeseen left the validation of a handle.
    using Source_ValidationErr =
        TarvikCorelib::NamedException<HandleChecker, "Source_ValidationErr">;

    /// What one handle came to. No errors: the handle is valid.
    struct ValidationResult {
        std::string path;
        std::vector<HandleValidator::Error> errors;
    };

    /// Ends with a parsed command line. A rejected one has been told to the user and is no failure:
    /// the run goes on with what stood before the bad argument. On purpose.
    HandleChecker(int argc, char** argv);
    HandleChecker(const HandleChecker&) = delete;
    HandleChecker& operator=(const HandleChecker&) = delete;
    ~HandleChecker() override;

    bool construct() override;
    bool destruct() override;
    /// 0 whatever the handles hold.
    int run() override;

    /// Validates `currentFile` and adds its result to the others; answers if the validator was
    /// content. Throws `Source_BadDir` for a path at which nothing stands, and
    /// `Source_ValidationErr`.
    bool validateFile();
    /// Every "*.conf" of the directory, in byte order. Throws `Source_BadDir` if there is none, and
    /// what `validateFile` throws.
    void validateHandleDir(std::string& dir);

    /// Files the name of every "*.conf" of a directory, which need not exist.
    void scanHandleNames(std::string dir);
    /// Adds an error to those of `currentFile` for each other file that was filed under its name.
    void validateName();

    /// Turns the results into JSON, and counts the errors.
    void parseResultsToJsonFormat();
    /// Prints the JSON texts in path order, with nothing between them.
    void showResultInConsole();
    /// Writes the JSON text of each faulty handle beside it. Throws `Source_BadDir` if there is no
    /// file afterwards, and `std::out_of_range` for a path without ".conf".
    void createJsonFiles();
    /// Prints the three lists: valid handles, invalid ones, files written.
    void showSummary();

private:
    /// The directory stays as it was written, so a slash at its end is doubled.
    static std::string pathIn(const std::string& dir, const std::string& file);
    void validateChosen();
    [[nodiscard]] std::string renderErrors(const ValidationResult& result) const;

    /// Handle name to file path; equal names in the order of the file names. A file without a name
    /// is filed under a blank one.
    std::multimap<std::string, std::string> handleNames;
    std::map<std::string, long> errorCounts;         ///< By file path.
    std::map<std::string, std::string> jsonResults;  ///< By file path.
    bool directoryRun = false;
    bool saveOutput = false;
    std::string currentFile;
    HandleValidator validator;
    std::list<ValidationResult> results;
    std::vector<std::string> createdFiles;
};

}  // namespace Tarvik
