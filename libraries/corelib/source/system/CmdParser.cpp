#include "libraries/corelib/source/system/CmdParser.h"

#include "libraries/corelib/source/messaging/Logger.h"
#include "libraries/corelib/source/system/CmdParserMessages.h"
#include "libraries/corelib/source/text/StringSplitter.h"
#include "libraries/corelib/source/text/StringToolsCharacters.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"
#include "libraries/corelib/source/text/StringToolsEscape.h"
#include "libraries/corelib/source/text/StringToolsSplit.h"

#include <algorithm>
#include <iterator>

namespace TarvikCorelib {

using messages::fill;

namespace {

bool hasName(const CmdParser::ArgumentSpec& option, char shortOpt) {
    return shortOpt != 0 && option.shortOpt == shortOpt;
}

bool hasName(const CmdParser::ArgumentSpec& option, const std::string& longOpt) {
    return !longOpt.empty() && option.longOpt == longOpt;
}

template <class Name>
const CmdParser::ArgumentSpec* findIn(const std::set<CmdParser::ArgumentSpec>& options,
                                      const Name& name) {
    const auto found = std::find_if(options.begin(), options.end(),
                                    [&name](const auto& option) { return hasName(option, name); });
    return found != options.end() ? &*found : nullptr;
}

template <class Name>
const CmdParser::ArgumentDef* findIn(const std::set<CmdParser::ArgumentDef>& given,
                                     const Name& name) {
    const auto found = std::find_if(given.begin(), given.end(),
                                    [&name](const auto& def) { return hasName(def.option, name); });
    return found != given.end() ? &*found : nullptr;
}

// `value` is copied for an option without one, too: it gets blank.
bool copyValue(const CmdParser::ArgumentDef* given, std::string& value) {
    if (given == nullptr) return false;
    value = given->value;
    return given->option.type != CmdParser::OptionOnly;
}

bool copyNumber(const CmdParser::ArgumentDef* given, int& result,
                const std::map<std::string, int>& values) {
    std::string value;
    if (!copyValue(given, value)) return false;
    const auto found = values.find(value);
    if (found == values.end()) return false;
    result = found->second;
    return true;
}

bool isLetterOrUnderscore(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool fail(std::string& error, const std::string& text) {
    error = text;
    return false;
}

}  // namespace

int CmdParser::ArgumentSpec::compare(const ArgumentSpec& other) const {
    if (type != other.type) return type < other.type ? -1 : 1;
    if (shortOpt != other.shortOpt) {
        if (shortOpt == 0 || other.shortOpt == 0) return shortOpt != 0 ? -1 : 1;
        return shortOpt < other.shortOpt ? -1 : 1;
    }
    if (longOpt.empty() != other.longOpt.empty()) return longOpt.empty() ? 1 : -1;
    return longOpt.compare(other.longOpt);
}

bool CmdParser::ArgumentDef::operator<(const ArgumentDef& other) const {
    const int order = option.compare(other.option);
    return order != 0 ? order < 0 : value < other.value;
}

CmdParser::CmdParser(const std::string& name, bool standardOptions) {
    init(name, standardOptions, false, false);
}

void CmdParser::init(const std::string& name, bool standardOptions, bool allowUnknown,
                     bool confOptions) {
    if (initialised) return;
    appName = name;
    if (standardOptions) specifyBuiltInOptions(confOptions);
    this->allowUnknown = allowUnknown;
    initialised = true;
}

void CmdParser::specifyBuiltInOptions(bool confOptions) {
    specifyOptionOnlyArg(fill(messages::helpOption), '?', "help");
    if (!version.empty()) specifyOptionOnlyArg(fill(messages::versionOption), 0, "version");
    if (!revision.empty()) specifyOptionOnlyArg(fill(messages::revisionOption), 0, "revision");
    specifyOptionWithValueArg(fill(messages::debugOption), 0, "debug", {});
    if (!confOptions) return;
    specifyOptionWithValueArg(fill(messages::configurationOption), 'c', "", {});
    specifyOptionWithValueArg(fill(messages::registryOption), 0, "filereg", {});
}

bool CmdParser::specifyValueArg(const std::string& doc) {
    return specify(doc, ValueArg, 0, "", {});
}

bool CmdParser::specifyOptionOnlyArg(const std::string& doc, char shortOpt,
                                     const std::string& longOpt) {
    return specify(doc, OptionOnly, shortOpt, longOpt, {});
}

bool CmdParser::specifyOptionWithValueArg(const std::string& doc, char shortOpt,
                                          const std::string& longOpt,
                                          const std::set<std::string>& fixedValues) {
    return specify(doc, OptionWithValue, shortOpt, longOpt, fixedValues);
}

bool CmdParser::specifyRequiredOptionWithFixedValuesArg(const std::string& doc, char shortOpt,
                                                        const std::string& longOpt,
                                                        const std::set<std::string>& fixedValues) {
    return specify(doc, RequiredOptionWithFixedValues, shortOpt, longOpt, fixedValues);
}

bool CmdParser::specifyOptionEqualsValue(const std::string& doc, const std::string& longOpt) {
    return specify(doc, OptionEqualsValue, 0, longOpt, {});
}

bool CmdParser::specifyRemainder(const std::string& doc, const std::string& longOpt) {
    return specify(doc, Remainder, 0, longOpt, {});
}

bool CmdParser::specify(const std::string& doc, ArgumentType type, char shortOpt,
                        const std::string& longOpt, const std::set<std::string>& fixedValues) {
    const bool isNamed = shortOpt != 0 || !longOpt.empty();
    const auto order = static_cast<std::uint32_t>(options.size());
    const ArgumentSpec option{order, type, shortOpt, longOpt, fixedValues, doc};
    if (type == ValueArg) {
        if (isNamed || !fixedValues.empty()) return false;
        valueSpecs.push_back(option);
        return true;
    }
    if (type == RequiredOptionWithFixedValues && fixedValues.empty()) return false;
    if (!isNamed || !options.insert(option).second) return false;
    constexpr std::size_t indent = 4;
    maxOptionWidth = std::max(maxOptionWidth, longOpt.size() + indent);
    return true;
}

bool CmdParser::parse(int argc, const char* const* argv, std::string& output,
                      const std::string& ignoreWords) {
    return parse(convert(argc, argv), output, ignoreWords);
}

bool CmdParser::parse(const std::string& words, std::string& output,
                      const std::string& ignoreWords) {
    return parse(StringSplitter::splitArgString(words, false), output, ignoreWords);
}

bool CmdParser::parse(const std::vector<std::string>& words, std::string& output,
                      const std::string& ignoreWords) {
    args = words;
    parsedOptions.clear();
    parsedValues.clear();
    nextValue = parsedValues.end();
    ParserArgs state{args, 0, true, "", valueSpecs.begin(), output};
    if (!getExeDef(state) || !parseWords(state, ignoreWords)) return false;
    applyStandardOptions(output);
    nextValue = parsedValues.begin();
    return true;
}

// Quirk: a backslash before a single quote gives a backslash.
std::vector<std::string> CmdParser::convert(int argc, const char* const* argv) {
    std::vector<std::string> words;
    for (int index = 0; index < argc && argv != nullptr && argv[index] != nullptr; ++index)
        words.push_back(StringTools::unescape(argv[index], "\"'0", "\"\\0", '\\'));
    return words;
}

bool CmdParser::getExeDef(ParserArgs& state) {
    if (appName.empty()) return true;
    if (state.words.empty()) return fail(state.error, fill(messages::executableMissing));
    exeName = state.words[state.next++];
    return true;
}

bool CmdParser::parseWords(ParserArgs& state, const std::string& ignoreWords) {
    const auto ignored = StringSplitter::toList(ignoreWords, ',', 0, StringSplitter::NoLimit);
    while (state.next < state.words.size()) {
        const std::string& word = state.words[state.next++];
        if (std::find(ignored.begin(), ignored.end(), word) != ignored.end()) continue;
        if (!parseWordArg(state, word)) return false;
    }
    return true;
}

bool CmdParser::parseWordArg(ParserArgs& state, const std::string& word) {
    if (word.empty() || word == "-") return true;
    if (!state.optionsActive) return parsePlainArg(state, word);
    if (word == "--") {
        state.optionsActive = false;
        return true;
    }
    if (word.front() == '-') return parseOption(state, word);
    if (isOptionEquals(word)) return parseOptionEquals(state, word);
    return parsePlainArg(state, word);
}

// Reads a token letter by letter: "-abc" is read as "-a", "-bc" as "-b" and so on. A dash in a
// token begins a name.
bool CmdParser::parseOption(ParserArgs& state, std::string word) {
    while (true) {
        std::string name;
        const ArgumentSpec* option = parseLongOrShortOption(state, word, name);
        if (option == nullptr) return parseUnknownOption(state, word, name);
        if (!registerArgument(state, *option, name)) return false;
        if (state.optionsToken.empty()) return true;
        word = "-" + state.optionsToken;
        state.optionsToken.clear();
    }
}

// Null if there is no such option. `name` is what was looked up: the word without its dashes, or
// the first letter of a token.
const CmdParser::ArgumentSpec* CmdParser::parseLongOrShortOption(ParserArgs& state,
                                                                 const std::string& word,
                                                                 std::string& name) const {
    if (word.starts_with("--")) {
        name = word.substr(2);
        return findOpt(name);
    }
    name = word.substr(1, 1);
    state.optionsToken = word.substr(2);
    return findOpt(name.front());
}

bool CmdParser::parseUnknownOption(ParserArgs& state, const std::string& word,
                                   const std::string& name) {
    if (!allowUnknown) return fail(state.error, fill(messages::unknownOption, {name}));
    state.optionsToken.clear();
    return parsePlainArg(state, word);
}

// Quirk: an unknown name is rejected even with `allowUnknown`.
bool CmdParser::parseOptionEquals(ParserArgs& state, const std::string& word) {
    std::string value = word;
    const std::string name = StringTools::split(value, '=');
    const ArgumentSpec* option = findOpt(name);
    if (option == nullptr) return fail(state.error, fill(messages::unknownOption, {name}));
    if (option->type != OptionEqualsValue) {
        return fail(state.error, fill(messages::equalsSignMissing, {name}));
    }
    parsedOptions.insert({*option, value});
    return true;
}

bool CmdParser::parsePlainArg(ParserArgs& state, const std::string& word) {
    if (state.valueSpec == valueSpecs.end()) {
        if (!allowUnknown) return fail(state.error, fill(messages::tooManyArguments));
        ArgumentSpec blank;
        blank.order = static_cast<std::uint32_t>(valueSpecs.size());
        state.valueSpec = valueSpecs.insert(valueSpecs.end(), blank);
    }
    parsedValues.push_back({*state.valueSpec, word});
    ++state.valueSpec;
    return true;
}

bool CmdParser::registerArgument(ParserArgs& state, const ArgumentSpec& option,
                                 const std::string& name) {
    std::string value;
    if (option.type != OptionOnly) {
        if (!readValue(state, option, name, value)) return false;
        if (value.starts_with('"')) StringTools::unQuote(value);
    }
    parsedOptions.insert({option, value});
    return true;
}

bool CmdParser::readValue(ParserArgs& state, const ArgumentSpec& option, const std::string& name,
                          std::string& value) {
    if (!state.optionsToken.empty()) {
        return fail(state.error, fill(messages::valueInsideToken, {name}));
    }
    if (state.next == state.words.size()) {
        return fail(state.error, fill(messages::argumentMissing, {name}));
    }
    value = state.words[state.next++];
    if (option.type == Remainder) {
        while (state.next < state.words.size())
            value += " " + state.words[state.next++];
    }
    if (option.type == RequiredOptionWithFixedValues && !option.fixedValues.contains(value)) {
        return fail(state.error, fill(messages::invalidArgument, {name}));
    }
    return true;
}

// Quirk: an unknown level counts as 0, "none", so it silences all logs.
void CmdParser::applyStandardOptions(std::string& output) const {
    std::string levelName;
    if (haveOption('?')) {
        output = getUsageText();
    } else if (haveOption("version")) {
        output = version;
    } else if (haveOption("revision")) {
        output = revision;
    } else if (getOptionValue("debug", levelName)) {
        const int level = Logger::mapDebugLevel(levelName);
        if (level <= Logger::Flood) Logger::MainLevel = level;
    }
}

bool CmdParser::haveOption(char shortOpt) const {
    return findGiven(shortOpt) != nullptr;
}

bool CmdParser::haveOption(const std::string& longOpt) const {
    return findGiven(longOpt) != nullptr;
}

bool CmdParser::getOptionValue(char shortOpt, std::string& value) const {
    return copyValue(findGiven(shortOpt), value);
}

bool CmdParser::getOptionValue(const std::string& longOpt, std::string& value) const {
    return copyValue(findGiven(longOpt), value);
}

bool CmdParser::getOptionValue(char shortOpt, int& result,
                               const std::map<std::string, int>& values) const {
    return copyNumber(findGiven(shortOpt), result, values);
}

bool CmdParser::getOptionValue(const std::string& longOpt, int& result,
                               const std::map<std::string, int>& values) const {
    return copyNumber(findGiven(longOpt), result, values);
}

bool CmdParser::getNextValueArg(std::string& value) {
    if (nextValue == parsedValues.end()) return false;
    value = nextValue->value;
    ++nextValue;
    return true;
}

const CmdParser::ArgumentSpec* CmdParser::findOpt(char shortOpt) const {
    return findIn(options, shortOpt);
}

const CmdParser::ArgumentSpec* CmdParser::findOpt(const std::string& longOpt) const {
    return findIn(options, longOpt);
}

const CmdParser::ArgumentDef* CmdParser::findGiven(char shortOpt) const {
    return findIn(parsedOptions, shortOpt);
}

const CmdParser::ArgumentDef* CmdParser::findGiven(const std::string& longOpt) const {
    return findIn(parsedOptions, longOpt);
}

bool CmdParser::isOptionEquals(std::string_view word) {
    if (word.empty() || !isLetterOrUnderscore(word.front())) return false;
    const auto* const end = std::find_if_not(word.begin(), word.end(), [](char c) {
        return isLetterOrUnderscore(c) || StringTools::isDigit(c);
    });
    return end != word.end() && *end == '=';
}

}  // namespace TarvikCorelib
