/// Reads one handle file and lists every fault in it.
#pragma once

#include "shared/library/common/BasicFile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik {

/// Checks handle files one after another: `loadHandle`, then `validate` (or `nameScanner`), then
/// the results. Faults of a handle are data; nothing here throws for one, and a line that is
/// rejected never stops the reading, so that one pass tells all that can be told.
class HandleValidator {
public:
    struct Error {
        std::string message;
        std::string line;  ///< In decimal, from 1; "0" for a fault of the file as a whole.
    };

    enum ParseObject : std::int32_t {
        NoObject = 0,
        Executables = 1,
        Licenses = 2,
        IdleDetection = 3,
        Optimization = 4,
        CpuOveruse = 5,
        Filter = 6,
        Priorities = 7,
    };

    /// What the line machine waits for. The machine's position is a number: the head of a block
    /// moves it from inside the outer block to the one behind.
    enum LineState : std::int32_t {
        OutsideHandle = 0,
        ExpectHandleBrace = 1,
        InHandle = 2,
        ExpectSectionBrace = 3,
        InSection = 4,
        ExpectSubsectionBrace = 5,
        InSubsection = 6,
    };

    /// What `parseLine` answers.
    enum LineResult : std::int32_t { LineRejected = 0, HandleClosed = 1, LineAccepted = 2 };

    HandleValidator() = default;
    HandleValidator(const HandleValidator&) = delete;
    HandleValidator& operator=(const HandleValidator&) = delete;
    virtual ~HandleValidator() = default;

    // --- one file

    /// False when nothing stands at the path. A file that is there and cannot be opened passes: it
    /// then reads as empty. While a file is still open the new one is not opened either, in the
    /// same silence.
    bool loadHandle(std::string& path);
    /// The same for the path of another file; that file is not read.
    bool loadHandle(BasicFile& other);
    /// Reads the loaded file to its end, and forgets the results of the file before. True when it
    /// is without fault.
    ///
    /// An empty file stays open, on purpose: every later `loadHandle` of this validator then finds
    /// that same empty file again.
    bool validate();
    /// Reads the loaded file for a name only: the value of its last line with the key "name",
    /// inside a section too, with any comment behind the value left in it. Leaves `name` alone if
    /// there is none, adds no error, and closes the file.
    void nameScanner(std::string& name);

    /// Turns the checks for the existence of files off, for all files to come. The name misleads.
    void setFilechecking() { skipFileChecks = true; }

    // --- results

    /// In the order of discovery, which is not always that of the lines.
    [[nodiscard]] std::vector<Error> getErrorList() const { return errors; }
    /// All errors as one text; blank without any.
    [[nodiscard]] std::string getErrors() const;
    /// Blank when the handle gave none that could be accepted.
    [[nodiscard]] const std::string& getName() const { return name; }
    /// The line that gave the name; 0 without one.
    [[nodiscard]] unsigned long getNameLine() const { return nameLine; }

    // --- steps of the reading

    /// The one way in which a fault is reported.
    void addToErrorList(std::string message, unsigned long line);
    /// Takes one line, without its line end, through the line machine. Answers a `LineResult`.
    int parseLine(std::string line);
    /// Cuts a key line at its first "=": the key goes to `currentKey`, the value comes back, and
    /// `line` is left with the value too.
    std::string keyLineDivider(std::string& line);
    /// The section that the word opens, entered as seen, or `NoObject`.
    ParseObject getParseObject(std::string& word);
    /// Hands a line to the section's parser: true if that accepts it. False for `NoObject`.
    bool parseObjectChecker(ParseObject& object, std::string& line);
    /// Brings all results to the values that a file starts with. `skipFileChecks` and the open file
    /// are kept.
    void clear();

    // --- the sections' parsers: true to accept the line; false needs no error of its own

    bool parseExecutables(std::string& line);
    bool parseLicenses(std::string& line);
    bool parseIdleDetection(std::string& line);
    bool parseOptimization(std::string& line);
    bool parseCPUOveruse(std::string& line);
    bool parseFilter(std::string& line);
    bool parsePriorities(std::string& line);

private:
    static constexpr std::string_view NameKey = "name";

    /// What the reading of all lines found out for the closing checks.
    struct ReadingResult {
        bool nameMissing = true;
        bool closed = false;
    };
    ReadingResult readLines();
    void checkExecutablesAndName(const ReadingResult& reading);

    // One step of the line machine a state; each answers a `LineResult`.
    int inOutsideHandle(const std::string& line);
    int expectBrace(const std::string& line, LineState next);
    int inHandle(std::string& line, ParseObject& parseobject);
    int openSection();
    int keyLineInHandle(const std::string& line);
    int inSection(std::string& line, ParseObject& parseobject);
    int inSubsection(std::string& line, ParseObject& parseobject);
    int moveTo(LineState next);
    int reject(std::string message);
    void checkMultipleSectionItems(std::vector<std::string>& seen, std::string& key);

    BasicFile file;
    /// Lines read so far.
    unsigned long lineNumber = 0;
    Error lastError;
    std::vector<Error> errors;
    std::string currentKey;
    std::int32_t state = OutsideHandle;
    std::int32_t hadLineError = 0;
    std::string name;
    std::vector<std::string> sectionsSeen;
    std::string currentLine;
    bool skipFileChecks = false;
    unsigned long nameLine = 0;
    /// Lines of the sections' heads; 0 means that the section is absent.
    std::uint32_t executablesLine = 0;
    std::uint32_t licensesLine = 0;
};

}  // namespace Tarvik
