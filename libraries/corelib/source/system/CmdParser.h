/// The command line of a program: what it may hold, what it holds, and the text that explains it.
#pragma once

#include "libraries/corelib/source/system/Release.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace TarvikCorelib {

/// First `specify...` what is allowed, then `parse`, then ask what was given.
///
/// A parse is one pass over the words, left to right, without looking ahead:
///
///     line    = [ executable ] { word }               executable: if the program has a name
///     word    = "" | "-" | ignored                    has no effect
///             | "--"                                  all words after it are plain
///             | "--" name [ value ]
///             | "-" letter { letter } [ value ]       a token of several letters
///             | name "=" value                        `OptionEqualsValue` only
///             | plain
///     value   = any word, also one that looks like an option
///
/// In a token only the last letter may take a value. Options have no effect until the whole line
/// has been read; what was given is kept in a set, so the order of options is lost, and the order
/// of plain words is not.
///
/// Nothing throws for a bad command line: `parse` returns false with a text for the user, and what
/// came before the bad word stays as if it had been accepted. Not for use by several threads.
///
///     CmdParser line("tool", true);
///     line.specifyOptionWithValueArg("Tries before it fails", 't', "tries", {});
///     line.specifyValueArg("file");
///     if (!line.parse(argc, argv, output, "")) return fail(output);  // tool -t 3 a.txt
///     line.getOptionValue("tries", tries);                           // true, and "3"
///     line.getNextValueArg(file);                                    // true, and "a.txt"
class CmdParser {
public:
    /// The form of an argument on the command line.
    enum ArgumentType : std::int32_t {
        ValueArg = 0,                       ///< A plain word, such as a path.
        OptionOnly = 1,                     ///< `-x` or `--name`.
        OptionWithValue = 2,                ///< `-x value` or `--name value`.
        RequiredOptionWithFixedValues = 3,  ///< The same; other values are rejected.
        OptionEqualsValue = 4,              ///< `name=value`, without a dash.
        Remainder = 5,                      ///< `--name`, and all words after it as its value.
    };

    /// An argument that is allowed.
    struct ArgumentSpec {
        std::uint32_t order = 0;  ///< How many options were specified before it.
        ArgumentType type = ValueArg;
        char shortOpt = 0;    ///< 0 for none.
        std::string longOpt;  ///< May be empty.
        /// Quirk: enforced for `RequiredOptionWithFixedValues` only; else they are just shown.
        std::set<std::string> fixedValues;
        std::string doc;  ///< Its explanation; for a `ValueArg` its name in the first usage line.

        /// Negative, 0 or positive: by type, then by letter, then by name; options that lack the
        /// letter or the name come last. The other fields do not count.
        [[nodiscard]] int compare(const ArgumentSpec& other) const;
        bool operator<(const ArgumentSpec& other) const { return compare(other) < 0; }
    };

    /// An argument that was given, with a copy of what allowed it.
    struct ArgumentDef {
        ArgumentSpec option;
        std::string value;  ///< Blank for `OptionOnly`.

        /// By option, then by value, so a repeated option is kept once a value.
        bool operator<(const ArgumentDef& other) const;
    };

    static constexpr std::uint32_t LineWidth = 60;  ///< Of the usage text, in characters.

    CmdParser() = default;
    /// The same as `init(name, standardOptions, false, false)`.
    CmdParser(const std::string& name, bool standardOptions);
    CmdParser(const CmdParser&) = delete;
    CmdParser& operator=(const CmdParser&) = delete;
    virtual ~CmdParser() = default;

    /// The first call counts, all later ones are ignored. With a `name`, the first word of each
    /// command line is the executable. `standardOptions` allows the options that every program
    /// has: help, version, revision and debug level. `confOptions` adds those for configuration
    /// files to them, and has no effect without them. With `allowUnknown`, an unknown option and a
    /// surplus word count as plain words.
    /// Quirk: an unknown `name=value` is rejected even then.
    void init(const std::string& name, bool standardOptions, bool allowUnknown, bool confOptions);

    // Allow an argument. False, with nothing allowed, for an option without letter and name, one
    // that requires fixed values and has none, and one that equals another in type, letter and
    // name. Letter 0 and a blank name stand for none. `doc` goes into the usage text.
    bool specifyValueArg(const std::string& doc);
    bool specifyOptionOnlyArg(const std::string& doc, char shortOpt, const std::string& longOpt);
    bool specifyOptionWithValueArg(const std::string& doc, char shortOpt,
                                   const std::string& longOpt,
                                   const std::set<std::string>& fixedValues);
    bool specifyRequiredOptionWithFixedValuesArg(const std::string& doc, char shortOpt,
                                                 const std::string& longOpt,
                                                 const std::set<std::string>& fixedValues);
    bool specifyOptionEqualsValue(const std::string& doc, const std::string& longOpt);
    bool specifyRemainder(const std::string& doc, const std::string& longOpt);

    /// Adds a line to the end of the usage text. A line over `LineWidth` is broken in its right
    /// half, at a blank or after a dash or a backslash, and goes on under its own indent; if there
    /// is no such place it stays whole.
    void addDocLine(const std::string& line);
    /// Made anew at each call: the first line, a row for each option, the added lines.
    [[nodiscard]] std::string getUsageText() const;

    /// Reads a command line and forgets the one before. False, with the error in `output`, for a
    /// bad one. If the user asked for help, version or revision, `output` gets the first of these,
    /// else it stays unchanged. A debug level that was given is set for all loggers at once. Words
    /// of `ignoreWords`, a list with commas, are skipped, but may be values.
    bool parse(const std::vector<std::string>& words, std::string& output,
               const std::string& ignoreWords);
    /// Undoes the escapes in the words first. Stops early at a null pointer; null for `argv` reads
    /// as no words at all.
    bool parse(int argc, const char* const* argv, std::string& output,
               const std::string& ignoreWords);
    /// Splits the text into words first; quotes keep the blanks between them.
    bool parse(const std::string& words, std::string& output, const std::string& ignoreWords);

    // Whether an option was given. It is found by its letter and by its name, whichever was typed.
    [[nodiscard]] bool haveOption(char shortOpt) const;
    [[nodiscard]] bool haveOption(const std::string& longOpt) const;
    // True, with the value copied, for an option that was given and carries one. An `OptionOnly`
    // that was given returns false and blanks `value`; an absent option leaves it unchanged. The
    // forms with a map return the number for the value, or false, with `result` unchanged, if the
    // map lacks the value.
    // Quirk: of several values it is the lowest in byte order, not the first or the last given.
    bool getOptionValue(char shortOpt, std::string& value) const;
    bool getOptionValue(const std::string& longOpt, std::string& value) const;
    bool getOptionValue(char shortOpt, int& result, const std::map<std::string, int>& values) const;
    bool getOptionValue(const std::string& longOpt, int& result,
                        const std::map<std::string, int>& values) const;

    /// The plain words in their order, one a call. False, with `value` unchanged, at their end and
    /// after a bad command line.
    bool getNextValueArg(std::string& value);

private:
    // The state of one parse.
    struct ParserArgs {
        const std::vector<std::string>& words;
        std::size_t next;          // The first word that is not yet read.
        bool optionsActive;        // "--" has not come yet.
        std::string optionsToken;  // The letters not yet read of a token such as "-abc".
        std::list<ArgumentSpec>::iterator valueSpec;  // What the next plain word will be.
        std::string& error;
    };

    bool specify(const std::string& doc, ArgumentType type, char shortOpt,
                 const std::string& longOpt, const std::set<std::string>& fixedValues);
    void specifyBuiltInOptions(bool confOptions);

    static std::vector<std::string> convert(int argc, const char* const* argv);
    // Each of these reads from where `state` is. False, with the error set, ends the parse.
    bool getExeDef(ParserArgs& state);
    bool parseWords(ParserArgs& state, const std::string& ignoreWords);
    bool parseWordArg(ParserArgs& state, const std::string& word);
    bool parseOption(ParserArgs& state, std::string word);
    const ArgumentSpec* parseLongOrShortOption(ParserArgs& state, const std::string& word,
                                               std::string& name) const;
    bool parseUnknownOption(ParserArgs& state, const std::string& word, const std::string& name);
    bool parseOptionEquals(ParserArgs& state, const std::string& word);
    bool parsePlainArg(ParserArgs& state, const std::string& word);
    bool registerArgument(ParserArgs& state, const ArgumentSpec& option, const std::string& name);
    static bool readValue(ParserArgs& state, const ArgumentSpec& option, const std::string& name,
                          std::string& value);
    void applyStandardOptions(std::string& output) const;

    // Among what is allowed, and among what was given; null if it is not there. The pointers hold
    // until the next option is specified, and until the next parse.
    [[nodiscard]] const ArgumentSpec* findOpt(char shortOpt) const;
    [[nodiscard]] const ArgumentSpec* findOpt(const std::string& longOpt) const;
    [[nodiscard]] const ArgumentDef* findGiven(char shortOpt) const;
    [[nodiscard]] const ArgumentDef* findGiven(const std::string& longOpt) const;
    static bool isOptionEquals(std::string_view word);

    [[nodiscard]] std::string optionRows() const;
    [[nodiscard]] std::string optionRow(const ArgumentSpec& option) const;
    [[nodiscard]] std::string fixedValueLines(const ArgumentSpec& option) const;

    std::vector<std::string> args;
    std::set<ArgumentSpec> options;
    std::size_t maxOptionWidth = 4;  ///< Of the longest name, with its indent, in characters.
    /// A list, since `ParserArgs` points into it while it grows.
    std::list<ArgumentSpec> valueSpecs;
    bool allowUnknown = false;
    std::string appName;
    std::set<ArgumentDef> parsedOptions;
    std::list<ArgumentDef> parsedValues;
    std::list<ArgumentDef>::const_iterator nextValue = parsedValues.end();
    std::string exeName;  ///< As it was typed.
    std::string version{REL_VERSION};
    std::string revision{REL_REVISION};
    bool initialised = false;
    std::list<std::string> docLines;  ///< Broken to their width already.
};

}  // namespace TarvikCorelib
