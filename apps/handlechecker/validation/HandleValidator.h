/// Reads one handle file and lists every fault in it.
#pragma once

#include "apps/handlechecker/validation/HandleData.h"
#include "apps/handlechecker/validation/NameSet.h"
#include "apps/handlechecker/validation/RuleExpression.h"
#include "shared/library/common/BasicFile.h"
#include "shared/library/tables/MessageText.h"

#include <cstdint>
#include <list>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarvik {

/// Checks handle files one after another: `loadHandle`, then `validate` (or `nameScanner`), then
/// the results. Faults of a handle are data; nothing here throws for one, and a line that is
/// rejected never stops the reading, so that one pass tells all that can be told.
///
/// On the way it gathers what the handle says, as a program that acts on handles does; such a
/// program derives from it and reads the fields at the end.
class HandleValidator : protected HandleData {
public:
    using HandleData::AvailableReq;
    using HandleData::Error;
    using HandleData::ExePatternDef;
    using HandleData::GlobalCaseSensitive;
    using HandleData::GlobalLinkTimeout;
    using HandleData::GlobalUseLinkTimeout;
    using HandleData::LicenseServerDef;

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

    /// The parameters of a rule, in byte order of their names; equal ones in the order of writing.
    using RuleParameters = std::multimap<std::string, std::string>;

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

    /// Turns off, for all files to come, the checks whether the files exist that a handle names.
    /// The name misleads. A rule that asks for the fingerprint of a license file reads it all the
    /// same.
    void setFilechecking() { skipFileChecks = true; }

    // --- results

    /// In the order of discovery, which is not always that of the lines.
    [[nodiscard]] std::vector<Error> getErrorList() const { return errors; }
    /// Moves the errors out of the validator, which then has none.
    [[nodiscard]] std::vector<Error> takeErrors() { return std::exchange(errors, {}); }
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
    /// Brings all results to the values that a file starts with. Kept are the open file,
    /// `skipFileChecks`, `lastError` and `hadLineError`.
    void clear();

    // --- the sections' parsers: true to accept the line; false needs no error of its own

    bool parseExecutables(std::string& line);
    bool parseLicenses(std::string& line);
    bool parseIdleDetection(std::string& line);
    bool parseOptimization(std::string& line);
    bool parseCPUOveruse(std::string& line);
    bool parseFilter(std::string& line);
    bool parsePriorities(std::string& line);

    // --- rules: each reports what it finds at the current line, and false means that it did

    /// Takes a rule's expression, such as `[type=include,exe="a, b"]`, apart. A blank one has no
    /// parameters and is no fault. A text that has neither bracket is read all the same, for its
    /// parameters and further faults, and is false in the end; with one bracket alone nothing is.
    ///
    /// A name in quotes is false without a word, and a quote that is never closed makes its
    /// parameter vanish without a word. On purpose.
    bool parseValue(std::string value, RuleParameters& out);
    /// The first parameter of that name. Without one `out` is left alone, which is a fault only of
    /// a required parameter.
    bool getValueElement(const RuleParameters& params, const std::string& name, std::string& out,
                         bool required);
    /// Whether each name is in the list, whose words stand between commas.
    bool validateRuleParameters(RuleParameters& params, std::string& allowed);
    /// Whether each name stands once. With `multiAllowed` those may repeat of which a filter takes
    /// a list; `allowed` has no influence.
    bool checkDoubleDeclaration(RuleParameters& params, std::string& allowed, bool multiAllowed);
    /// A rule's key must not be blank and must not hold a full stop or a space.
    bool checkInvalidRule(std::string& key);
    /// Whether a rule of that key stands in the section already is only reported: the rule is read
    /// all the same. A section that is left for another with rules starts afresh.
    void checkSimilarRules(std::string section, std::string& key);
    /// The same for the plain keys, of which the section keeps those that it has `seen`.
    void checkMultipleSectionItems(std::vector<std::string>& seen, std::string& key);

    // --- values: the same. A blank one is no fault; it leaves the default, but as a duration it is
    // 0.

    /// Exactly "true", "yes", "false" or "no".
    bool trueOrFalse(std::string value, bool& out);
    /// Digits only, so no sign. A number beyond a long counts as the largest long; what does not
    /// fit into T is cut to its low bytes. T is short, int or unsigned int.
    template <typename T>
    bool strToIntValidator(std::string value, T& out);
    /// Digits and at most one full stop, which may stand alone. T is double.
    template <typename T>
    bool strToFloatValidator(std::string value, T& out);
    /// Reads a duration such as "1:30" and returns it in seconds.
    ///
    /// The fields are days, hours, minutes and seconds, the last being seconds; none is limited to
    /// its clock range, so "90:00" is 5400. A field with anything but digits, or one ahead of the
    /// days, is reported and makes the whole result 0: a caller cannot tell it from a zero.
    long getHMS(const std::string& value);
    /// Two durations, "start-end". An end before the start is on the next day. False for a missing
    /// dash and for equal ends, without a report of its own; a bad side counts as 0.
    bool getTimeRange(const std::string& value, RangeDef& out);
    /// Two moments, "start-end", of which the start has a "T" and no zone west of Greenwich. False,
    /// without a report, for a missing "T" or dash, a moment that throws, and an end that is not
    /// behind the start. What else cannot be read counts as a moment of its own.
    bool getDateRange(const std::string& value, RangeDef& out);
    /// One moment. False, without a report, if it throws; what else cannot be read counts as one.
    bool strToDate(const std::string& value, long& out);

    // --- words and their codes; the code of any other word differs from table to table, on purpose

    /// Case does not count: "resume" 1, "terminate" 2.
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

    enum CpuAction : std::int32_t { NoAction = 0, Terminate = 1, NotifyAndTerminate = 2 };

    /// Process-wide. The keys of the rules seen in the section that is being read.
    static NameSet RuleNums;

    // Rows of the table of sections, and the table.
    struct PlainKey;
    struct Section;
    struct SectionTable;

    /// What the rules of one section have in common.
    struct RuleForm {
        TarvikTables::MessageText<1>
            failure;  ///< What is said of an expression that cannot be read.
        std::span<const std::string_view> allowed;  ///< The names of the parameters.
        bool lists = false;                         ///< Parameters that fill a list may repeat.
    };

    /// What the reading of all lines found out for the closing checks.
    struct ReadingResult {
        bool nameMissing = true;
        bool closed = false;
    };
    ReadingResult readLines();
    void checkLicenseSources();
    void checkEnd(const ReadingResult& reading);

    static bool takeContent(std::string_view raw, std::string& line);
    int takeLine(std::string& line);
    bool takeKey(std::string& line);

    // One step of the line machine a state; each answers a `LineResult`.
    int inOutsideHandle(const std::string& line);
    int expectBrace(const std::string& line, LineState next);
    int inHandle(std::string& line, ParseObject& parseobject);
    int openSection();
    int keyLineInHandle(const std::string& line);
    int inSection(std::string& line, ParseObject& parseobject);
    int inSubsection(std::string& line, ParseObject& parseobject);
    int moveTo(LineState next);
    int rejectLine(std::string message);

    // What the sections share.
    bool report(std::string message);
    bool readSectionLine(ParseObject object, std::string& line);
    const PlainKey* findKey(const Section& section) const;
    bool readPlainKey(const PlainKey& key, std::string& value);
    bool startRule(const Section& section);
    bool reportUnknownKey(std::string_view section);
    bool readParameters(const RuleForm& form, std::string_view value);
    bool readExpression(std::string_view text);
    template <typename Params>
    bool holdOnly(const Params& params, std::span<const std::string_view> allowed);
    template <typename Params>
    bool holdOnce(const Params& params, bool listsAllowed);
    template <typename Text>
    bool takeParameter(std::string_view name, Text& out, bool required);
    bool reportIfRequired(std::string_view name, bool required);

    // Values of plain keys.
    bool readNumber(const std::string& value, double& out);
    /// The parts between the commas, trimmed; one of blanks only stays, as a blank part.
    static void splitAtCommas(const std::string& value, std::vector<std::string>& out);
    /// The same without blank parts.
    static std::vector<std::string> namesIn(const std::string& value);

    // Rules and keys of single sections.
    bool executablesRule(std::string& value);
    bool storeExecutablesRule(ExePatternDef rule);
    bool licensesRule(std::string& value);
    bool hashLicenseFile(const std::string& value, LicenseDef& rule);
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
    bool filterRule(std::string& value);
    bool prioritiesRule(std::string& value);
    bool readFilterParameter(std::string_view name, std::string_view value, FilterDef& rule);
    bool readFilterType(std::string_view value, FilterDef& rule);
    template <auto List>
    bool addText(std::string_view value, FilterDef& rule);
    template <auto List>
    bool addWeekDay(std::string_view value, FilterDef& rule);
    template <auto List, auto Reader>
    bool addRange(std::string_view value, FilterDef& rule);
    template <auto Limit>
    bool readLimit(std::string_view value, FilterDef& rule);
    bool counterRule(std::string& value);
    bool readSuspendTimeoutAction(std::string& value);
    bool readMethod(std::string& value);
    bool readAdditionalOption(std::string& value);
    [[nodiscard]] bool isCpuNotified() const;
    bool readCpuAction(std::string& value);

    BasicFile file;

    /// The expression of the rule that is being read; its line must still be there.
    RuleExpression expression;

protected:
    // These survive from one file to the next.
    Error lastError;
    std::int32_t hadLineError = 0;
    bool skipFileChecks = false;
};

extern template bool HandleValidator::strToIntValidator(std::string value, short& out);
extern template bool HandleValidator::strToIntValidator(std::string value, int& out);
extern template bool HandleValidator::strToIntValidator(std::string value, unsigned int& out);
extern template bool HandleValidator::strToFloatValidator(std::string value, double& out);

}  // namespace Tarvik
