/// Reads one handle file and lists every fault in it.
#pragma once

#include "apps/handlechecker/validation/HandleData.h"
#include "apps/handlechecker/validation/NameSet.h"
#include "apps/handlechecker/validation/RuleExpression.h"
#include "shared/library/common/BasicFile.h"
#include "shared/library/tables/MessageText.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarvik {

/// Checks handle files one after another: `loadHandle`, then `validate` (or `nameScanner`), then
/// the results. Faults of a handle are data: nothing here throws for one, and a rejected line never
/// stops the reading, so one pass reports all faults.
///
/// Each line takes one step of a line machine, which knows the braces; the lines of a section are
/// read by the section's row in a table. The values go into the fields of `HandleData`. A program
/// that acts on handles derives from this class and reads those fields after `validate`.
///
/// Not thread-safe, not even with one validator a thread: two pieces of state are process-wide.
class HandleValidator : protected HandleData {
public:
    using HandleData::AvailableReq;
    using HandleData::Error;
    using HandleData::ExePatternDef;
    using HandleData::GlobalCaseSensitive;
    using HandleData::GlobalLinkTimeout;
    using HandleData::GlobalUseLinkTimeout;
    using HandleData::LicenseServerDef;

    using HandleData::LineState;
    using HandleData::ParseObject;
    using enum LineState;
    using enum ParseObject;

    /// The results of `parseLine`.
    enum LineResult : std::int32_t { LineRejected = 0, HandleClosed = 1, LineAccepted = 2 };

    /// The parameters of a rule, in byte order of their names; equal names in the order of the
    /// text.
    using RuleParameters = std::multimap<std::string, std::string>;

    HandleValidator() = default;
    HandleValidator(const HandleValidator&) = delete;
    HandleValidator& operator=(const HandleValidator&) = delete;
    virtual ~HandleValidator() = default;

    // --- one file

    /// False if the path does not exist. A file that exists but cannot be opened gives true and
    /// then reads as empty. While an earlier file is still open the new one is silently not opened.
    bool loadHandle(std::string& path);
    /// The same for the path of another file; `other` itself is not read.
    bool loadHandle(BasicFile& other);
    /// Clears the earlier results, then reads the loaded file to its end and closes it. True if it
    /// has no fault.
    ///
    /// Quirk: an empty file stays open, so each later `loadHandle` of this validator reads that
    /// same empty file again.
    bool validate();
    /// Reads the loaded file for a name only: the value of its last line with the key "name", even
    /// inside a section, including any comment after the value. Leaves `name` unchanged if there is
    /// none. Adds no error, and closes the file.
    void nameScanner(std::string& name);

    /// Turns off, for all later files, the checks that the files named in a handle exist.
    ///
    /// Quirk: the name suggests the opposite. A rule that asks for the fingerprint of a license
    /// file still reads that file.
    void setFilechecking() { skipFileChecks = true; }

    // --- results

    /// A copy of the errors in the order of discovery, which is not always that of the lines.
    [[nodiscard]] std::vector<Error> getErrorList() const { return errors; }
    /// The same without a copy: the validator is left without errors.
    [[nodiscard]] std::vector<Error> takeErrors() { return std::exchange(errors, {}); }
    /// All that was read, without a copy: the validator is left as if cleared.
    [[nodiscard]] HandleData takeData() { return std::exchange<HandleData, HandleData>(*this, {}); }
    /// All errors as one text, one line each; empty without errors.
    [[nodiscard]] std::string getErrors() const;
    /// The name of the handle; empty if it has no acceptable one.
    [[nodiscard]] const std::string& getName() const { return name; }
    /// The line of the name, from 1; 0 without a name.
    [[nodiscard]] unsigned long getNameLine() const { return nameLine; }
    /// The name that `nameScanner` finds in the file that was validated, so that one reading gives
    /// both. Empty if there is none, and for a file that was not read at all.
    [[nodiscard]] const std::string& getScannedName() const { return scannedName; }

    // --- steps of the reading

    /// Adds an error with that line number and makes it `lastError`. All faults go through here.
    void addToErrorList(std::string message, unsigned long line);
    /// Takes one line, without its line end, through the line machine. Returns a `LineResult`.
    int parseLine(std::string line);
    /// Splits a line at its first "=": stores the key in `currentKey`, leaves the value in `line`
    /// and returns a copy of it. A line without "=" is all key; its value is empty.
    std::string keyLineDivider(std::string& line);
    /// The section that the word opens, or `NoObject`. Records the section as seen, reports it if
    /// it is repeated, and stores the line of its head.
    ParseObject getParseObject(std::string& word);
    /// Passes a line to the section's parser and returns its result; false for `NoObject`.
    bool parseObjectChecker(ParseObject& object, std::string& line);
    /// Resets `HandleData` to its first values and sets `loadTime` to the present. Keeps the open
    /// file, `skipFileChecks`, `lastError` and `hadLineError`.
    void clear();

    // --- the sections' parsers: false rejects the line, with or without an error. Each takes a
    // line without comment and outer blanks, and leaves the value in it.

    bool parseExecutables(std::string& line);
    bool parseLicenses(std::string& line);
    bool parseIdleDetection(std::string& line);
    bool parseOptimization(std::string& line);
    bool parseCPUOveruse(std::string& line);
    bool parseFilter(std::string& line);
    bool parsePriorities(std::string& line);

    // --- rules: faults are reported at the current line; false means that there was one

    /// Parses a rule's expression, such as `[type=include,exe="a, b"]`. An empty one has no
    /// parameters and no fault. Without both brackets the parameters are still read, but the result
    /// is false; with only one bracket nothing is read.
    ///
    /// Quirk: a name in quotes gives false without a report.
    /// Quirk: a quote that is never closed drops its parameter without a report, and is no fault.
    bool parseValue(std::string value, RuleParameters& out);
    /// Copies the first parameter of that name to `out`. Leaves `out` unchanged if there is none,
    /// which is a fault only if `required`.
    bool getValueElement(const RuleParameters& params, const std::string& name, std::string& out,
                         bool required);
    /// Reports each parameter whose name is not in `allowed`, a list separated by commas.
    bool validateRuleParameters(RuleParameters& params, std::string& allowed);
    /// Reports each repeated name once. With `multiAllowed` the names that fill a list of a filter
    /// may repeat. `allowed` has no effect.
    bool checkDoubleDeclaration(RuleParameters& params, std::string& allowed, bool multiAllowed);
    /// A rule's key must not be empty and must not contain a full stop or a space.
    bool checkInvalidRule(std::string& key);
    /// Reports a rule key that the section already has; the caller reads the rule in any case. The
    /// keys are forgotten when the section changes.
    void checkSimilarRules(std::string section, std::string& key);
    /// The same for plain keys: adds a new one to `seen` and reports a repeated one.
    void checkMultipleSectionItems(std::vector<std::string>& seen, std::string& key);

    // --- values: as above. An empty value is no fault and leaves `out` unchanged.

    /// Reads exactly "true", "yes", "false" or "no".
    bool trueOrFalse(std::string value, bool& out);
    /// Reads digits; a sign is a fault. A number beyond a long counts as the largest long. What
    /// does not fit into T is cut to its low bytes. T is short, int or unsigned int.
    template <typename T>
    bool strToIntValidator(std::string value, T& out);
    /// Reads digits with at most one full stop; a single full stop is 0. T is double.
    template <typename T>
    bool strToFloatValidator(std::string value, T& out);
    /// Reads a duration such as "1:30" and returns it in seconds; an empty one is 0.
    ///
    /// The fields are days, hours, minutes and seconds, the last being seconds. None is limited to
    /// its clock range: "90:00" is 5400. A field with anything but digits, or a fifth one, is
    /// reported and makes the result 0, which a caller cannot tell from a good 0.
    long getHMS(const std::string& value);
    /// Reads two durations, "start-end". An end before the start is on the next day. False, without
    /// a report, for a missing dash and for equal sides. A bad side is reported and counts as 0.
    bool getTimeRange(const std::string& value, RangeDef& out);
    /// Reads two date-times, "start-end". The start needs a "T" and cannot have a negative zone, as
    /// the first dash after the "T" ends it. False, without a report, for a missing "T" or dash, a
    /// side that `DateTime` throws for, and an end that is not after the start. Other malformed
    /// texts give whatever `DateTime` makes of them.
    bool getDateRange(const std::string& value, RangeDef& out);
    /// Reads one date-time as seconds since 1970. False, without a report, if `DateTime` throws.
    bool strToDate(const std::string& value, long& out);

    // --- words and their codes
    // Quirk: the code of an unknown word is 0 in some tables and after the last code in others.

    /// "resume" 1, "terminate" 2, in any case.
    static int mapSuspendAction(std::string word);
    static constexpr int UnknownSuspendAction = 0;
    /// From "mon", 0, to "sun", 6.
    static int mapWeekDay(const std::string& word);
    static constexpr int UnknownWeekDay = 7;
    /// From "low", 0, to "total", 3.
    static int mapPriority(const std::string& word);
    static constexpr int UnknownPriority = 4;
    /// From "none", 1, to "rlm", 6.
    static int mapLicenseType(const std::string& word);
    static constexpr int UnknownLicenseType = 7;

private:
    static constexpr std::string_view NameKey = "name";
    static constexpr std::string_view CountersWord = "counters";

    /// Process-wide. The keys of the rules seen in the section that is being read.
    static NameSet RuleNums;

    // Rows of the table of sections, and the table.
    struct PlainKey;
    struct Section;
    struct SectionTable;
    struct FilterParameters;

    /// How the expressions of one kind of rule are checked.
    struct RuleForm {
        TarvikTables::MessageText<1> failure;  ///< For an expression that cannot be read.
        ParameterNames names;                  ///< Of the parameters.
        ParameterNames::Set mayRepeat = 0;     ///< Those that fill a list.
    };

    struct ReadingResult;
    ReadingResult readLines();
    void checkLicenseSources();
    void checkEnd(const ReadingResult& reading);

    static std::string_view contentOf(std::string_view raw);
    int takeLine(std::string_view line);
    bool takeKey(std::string_view& line);

    // The steps of the line machine, one a state; each returns a `LineResult`.
    int inOutsideHandle(std::string_view line);
    int expectBrace(std::string_view line, LineState next);
    int inHandle(std::string_view line, ParseObject& parseobject);
    int openSection();
    int keyLineInHandle(std::string_view line);
    int inSection(std::string_view line, ParseObject& parseobject);
    int inSubsection(std::string_view line, ParseObject& parseobject);
    int moveTo(LineState next);
    int rejectLine(std::string message);

    /// Adds an error at the current line. Always false, so that a reader can return it.
    bool report(std::string message);
    // What the sections share.
    ParseObject findSection(std::string_view word);
    bool parseSection(ParseObject object, std::string& line);
    bool readSectionLine(ParseObject object, std::string_view& line);
    const PlainKey* findKey(const Section& section) const;
    bool readPlainKey(const PlainKey& key, std::string& value);
    bool startRule(const Section& section);
    void noteRuleKey(std::string_view section, std::string_view key);
    bool reportUnknownKey(std::string_view section);
    bool readParameters(const RuleForm& form, std::string_view value);
    bool readExpression(std::string_view text);
    bool reportEach(const TarvikTables::MessageText<1>& message,
                    const std::vector<std::string_view>& names);
    bool reportRepeated(std::vector<std::string_view> names, bool listsAllowed);
    /// Whether a filter takes a list of that parameter.
    static bool isListParameter(std::string_view name);
    /// Copies a parameter of the expression, or a view of it that lives as long as the line.
    template <typename Text>
    bool takeParameter(const RuleForm& form, std::size_t number, Text& out, bool required);
    bool reportIfRequired(std::string_view name, bool required);

    // Values.
    bool readFlag(std::string_view value, bool& out);
    bool readNumber(const std::string& value, double& out);
    /// The trimmed parts between commas. Empty parts are dropped; one of blanks only is kept, as
    /// "".
    static void splitAtCommas(const std::string& value, std::vector<std::string>& out);
    /// The same, with those of blanks only dropped too.
    static std::vector<std::string> namesIn(const std::string& value);

    // Rules and keys of single sections.
    bool executablesRule(std::string_view value);
    bool noteExecutablesRule(const ExePatternDef& rule);
    bool licensesRule(std::string_view value);
    bool hashLicenseFile(std::string_view value, std::uint64_t& hash);
    std::optional<std::uint64_t> hashOf(const std::string& path);
    bool readLicenseType(std::string& value);
    bool readLicenseFile(std::string& value);
    bool readLicenseServer(std::string& value);
    bool readCentralizedLicenses(std::string& value);
    bool readPollerBin(std::string& value);
    bool storePath(const std::string& path, const TarvikTables::MessageText<1>& missing,
                   std::string& out);
    bool readRequired(std::string& value);
    bool readAssumeHidden(std::string& value);
    bool readAvailableReq(std::string& value);
    bool filterRule(std::string_view value);
    bool prioritiesRule(std::string_view value);
    bool counterRule(std::string_view value);
    bool readSuspendTimeoutAction(std::string& value);
    bool readMethod(std::string& value);
    bool readAdditionalOption(std::string& value);
    [[nodiscard]] bool isCpuNotified() const;
    bool readCpuAction(std::string& value);

    BasicFile file;
    std::string scannedName;

    /// The expression of the rule that is being read. Holds views into the line.
    RuleExpression expression;
    /// The value of a plain key, as its reader leaves it.
    std::string plainValue;

protected:
    // Kept from one file to the next.
    Error lastError;
    std::int32_t hadLineError = 0;
    bool skipFileChecks = false;
};

extern template bool HandleValidator::strToIntValidator(std::string value, short& out);
extern template bool HandleValidator::strToIntValidator(std::string value, int& out);
extern template bool HandleValidator::strToIntValidator(std::string value, unsigned int& out);
extern template bool HandleValidator::strToFloatValidator(std::string value, double& out);

}  // namespace Tarvik
