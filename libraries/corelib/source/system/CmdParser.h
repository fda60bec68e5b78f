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

/// Specify what there may be, then `parse`, then ask. A rejected command line leaves behind what
/// stood before the bad argument.
class CmdParser {
public:
    /// What an argument looks like on the command line.
    enum ArgumentType : std::int32_t {
        ValueArg = 0,                       ///< A plain word.
        OptionOnly = 1,                     ///< `-x` or `--name`.
        OptionWithValue = 2,                ///< `-x value` or `--name value`.
        RequiredOptionWithFixedValues = 3,  ///< The same; the value is one of a few.
        OptionEqualsValue = 4,              ///< `name=value`, without a dash.
        Remainder = 5,                      ///< `--name` and all words behind it.
    };

    struct ArgumentSpec {
        std::uint32_t order = 0;  ///< How many options were specified before it.
        ArgumentType type = ValueArg;
        char shortOpt = 0;    ///< 0 for none.
        std::string longOpt;  ///< May be empty.
        std::set<std::string> fixedValues;
        std::string doc;

        /// Negative, 0 or positive: by type, then by letter, then by name, those without one last.
        [[nodiscard]] int compare(const ArgumentSpec& other) const;
        bool operator<(const ArgumentSpec& other) const { return compare(other) < 0; }
    };

    /// An argument that was given.
    struct ArgumentDef {
        ArgumentSpec option;
        std::string value;

        bool operator<(const ArgumentDef& other) const;
    };

    static constexpr std::uint32_t LineWidth = 60;

    CmdParser() = default;
    /// With `init(name, standardOptions, false, false)`.
    CmdParser(const std::string& name, bool standardOptions);
    CmdParser(const CmdParser&) = delete;
    CmdParser& operator=(const CmdParser&) = delete;
    virtual ~CmdParser() = default;

    /// Works once. With a `name` the first word of a command line is the executable. With
    /// `allowUnknown` what is not specified counts as a plain word. `confOptions` adds to the
    /// standard options, so without these it has no effect.
    void init(const std::string& name, bool standardOptions, bool allowUnknown, bool confOptions);

    // Each answers false, and specifies nothing, for an argument that needs a name or values and
    // has none, and for an option that equals another in type, letter and name.
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

    /// Adds a line to the end of the usage text. One that is too long is wrapped at blanks, dashes
    /// and backslashes, and goes on under its own indent.
    void addDocLine(const std::string& line);
    [[nodiscard]] std::string getUsageText() const;

    /// Reads a command line. `output` gets the error, with the answer false, or what the user asked
    /// to see: usage, version or revision. Words of `ignoreWords`, a list with commas, are skipped.
    bool parse(const std::vector<std::string>& words, std::string& output,
               const std::string& ignoreWords);
    /// Undoes the escapes in the words first.
    bool parse(int argc, const char* const* argv, std::string& output,
               const std::string& ignoreWords);
    /// Splits the text into words first.
    bool parse(const std::string& words, std::string& output, const std::string& ignoreWords);

    // An option answers to its letter and to its name, whichever was typed.
    [[nodiscard]] bool haveOption(char shortOpt) const;
    [[nodiscard]] bool haveOption(const std::string& longOpt) const;
    // True, with the value, for an option that was given and carries one. Of several values it is
    // the one that sorts first, on purpose. The forms with a map answer the number that stands
    // there for the value; false, with the number unchanged, if it is not there.
    bool getOptionValue(char shortOpt, std::string& value) const;
    bool getOptionValue(const std::string& longOpt, std::string& value) const;
    bool getOptionValue(char shortOpt, int& result, const std::map<std::string, int>& values) const;
    bool getOptionValue(const std::string& longOpt, int& result,
                        const std::map<std::string, int>& values) const;

    /// The plain words, one a call, in their order. False at the end, and after a rejected command
    /// line.
    bool getNextValueArg(std::string& value);

private:
    // The state of one parse.
    struct ParserArgs {
        const std::vector<std::string>& words;
        std::size_t next;  // The first word that is not read.
        bool optionsActive;
        std::string optionsToken;  // The letters not yet read of a word such as "-abc".
        std::list<ArgumentSpec>::iterator valueSpec;
        std::string& error;
    };

    bool specify(const std::string& doc, ArgumentType type, char shortOpt,
                 const std::string& longOpt, const std::set<std::string>& fixedValues);
    void specifyBuiltInOptions(bool confOptions);

    static std::vector<std::string> convert(int argc, const char* const* argv);
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
    void answerStandardOptions(std::string& output) const;

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
    std::size_t maxOptionWidth = 4;  ///< Of the longest name, with its indent.
    std::list<ArgumentSpec> valueSpecs;
    bool allowUnknown = false;
    std::string appName;
    std::set<ArgumentDef> parsedOptions;
    std::list<ArgumentDef> parsedValues;
    std::list<ArgumentDef>::const_iterator nextValue = parsedValues.end();
    std::string exeName;
    std::string version{REL_VERSION};
    std::string revision{REL_REVISION};
    bool initialised = false;
    std::list<std::string> docLines;
};

}  // namespace TarvikCorelib
