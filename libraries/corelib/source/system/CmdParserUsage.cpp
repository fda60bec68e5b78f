// The usage text of a command line, and how its lines are broken. The width of the widest option
// decides where the explanations begin:
//
//     Usage: tool [options] <SOURCE>
//     Options:
//       -m <arg>
//         --mode <arg>      : How it works      maxOptionWidth + rowMargin up to the colon
//                             (One of: a, b)    maxOptionWidth + valueMargin up to the bracket
//
//     A line that was added.
//
// All rows share their columns, so the text is made from the finished set of options, never option
// by option.

#include "libraries/corelib/source/system/CmdParser.h"
#include "libraries/corelib/source/system/CmdParserMessages.h"
#include "libraries/corelib/source/text/StringSearchers.h"
#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <algorithm>

namespace TarvikCorelib {

namespace {

constexpr std::size_t rowMargin = 9;
constexpr std::size_t valueMargin = 11;

// The part of a line between `end` and `next` is dropped.
struct LineBreak {
    std::size_t end;   ///< Where the row ends.
    std::size_t next;  ///< Where the next row begins.
};

// Finds the last place to break in the right half of a row; false if there is none. The row shows
// `indent` blanks and then the line from `from` on.
bool findBreak(const std::string& line, std::size_t indent, std::size_t from, LineBreak& found) {
    constexpr std::size_t width = CmdParser::LineWidth;
    for (std::size_t column = width; column > width / 2 && column >= indent; --column) {
        const std::size_t index = from + column - indent;
        switch (line[index]) {
        case ' ':
        case '\n':
        case '\t':
            found = {index, std::min(line.find_first_not_of(StringTools::whitespace(), index),
                                     line.size())};
            return true;
        case '-':
        case '\\': found = {index + 1, index + 1}; return true;
        default: break;
        }
    }
    return false;
}

std::string joinFixedValues(const std::set<std::string>& values) {
    std::string text;
    for (const std::string& value : values)
        text += (text.empty() ? "" : ", ") + value;
    return messages::fill(messages::fixedValues, {text});
}

bool carriesValue(const CmdParser::ArgumentSpec& option) {
    return option.type != CmdParser::OptionOnly;
}

// The part before the colon. An option with both a letter and a name takes two lines.
std::string optionNames(const CmdParser::ArgumentSpec& option) {
    const std::string argument = carriesValue(option) ? " <arg>" : "";
    if (option.shortOpt == 0) {
        if (option.type == CmdParser::OptionEqualsValue) return "  " + option.longOpt + "=<value>";
        return "  --" + option.longOpt + argument;
    }
    std::string row = std::string("  -") + option.shortOpt + argument;
    if (!option.longOpt.empty()) row += "\n    --" + option.longOpt + argument;
    return row;
}

}  // namespace

// Each turn of the loop takes one row off the line, for as long as what is left is too long.
void CmdParser::addDocLine(const std::string& line) {
    const std::string indent = line.substr(0, line.find_first_not_of(" \t\n"));
    std::size_t from = indent.size();
    LineBreak found{};
    while (indent.size() + line.size() - from > LineWidth &&
           findBreak(line, indent.size(), from, found)) {
        docLines.push_back(indent + line.substr(from, found.end - from));
        from = found.next;
    }
    docLines.push_back(indent + line.substr(from));
}

std::string CmdParser::getUsageText() const {
    std::string text = "Usage:";
    if (!appName.empty()) text += " " + appName;
    if (!options.empty()) text += " [options]";
    for (const ArgumentSpec& option : valueSpecs)
        text += " <" + option.doc + ">";
    if (!options.empty()) text += "\nOptions:\n" + optionRows();
    if (!docLines.empty()) text += "\n";
    for (const std::string& line : docLines)
        text += "\n" + line;
    if (!text.ends_with('\n')) text += "\n";
    return text;
}

// In the order in which they were specified; the set has them by type.
std::string CmdParser::optionRows() const {
    std::vector<const ArgumentSpec*> ordered(options.size());
    for (const ArgumentSpec& option : options)
        ordered[option.order] = &option;
    std::string text;
    for (const ArgumentSpec* option : ordered)
        text += (text.empty() ? "" : "\n") + optionRow(*option);
    return text;
}

std::string CmdParser::optionRow(const ArgumentSpec& option) const {
    std::string row = optionNames(option);
    const std::size_t lastLine = row.rfind('\n') + 1;
    row.resize(std::max(row.size(), lastLine + maxOptionWidth + rowMargin), ' ');
    return row + ": " + option.doc + fixedValueLines(option);
}

// Each turn of the loop adds one row, cut where a row is full.
std::string CmdParser::fixedValueLines(const ArgumentSpec& option) const {
    if (option.fixedValues.empty()) return {};
    const std::size_t available = LineWidth + rowMargin;
    const std::size_t width = available - std::min(available, maxOptionWidth);
    const StringTools::LineSizeSearcher searcher(static_cast<std::uint32_t>(width),
                                                 StringTools::whitespace() + "-/.,:;&+*%");
    const std::string text = joinFixedValues(option.fixedValues);
    std::string lines;
    std::size_t start = 0;
    std::size_t length = 0;
    for (std::size_t pos = 0; pos < text.size(); pos = start + length) {
        // A name may be so long that it leaves no room: then the values stay in one row.
        if (!searcher(start, length, text, pos, text.size())) start = text.size();
        lines += "\n" + std::string(maxOptionWidth + valueMargin, ' ');
        lines += text.substr(pos, start - pos);
    }
    return lines;
}

}  // namespace TarvikCorelib
