// The usage text.

#include "libraries/corelib/source/system/CmdParser.h"
#include "libraries/corelib/source/system/CmdParserMessages.h"
#include "libraries/corelib/source/text/StringSearchers.h"
#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <algorithm>

namespace TarvikCorelib {

namespace {

constexpr std::size_t rowMargin = 9;     // From the widest name to the colon of a row.
constexpr std::size_t valueMargin = 11;  // From the widest name to what follows the colon.

// Where a line is cut, and where its rest begins.
struct LineBreak {
    std::size_t end;
    std::size_t next;
};

// The last place in the right half of the row that may be cut. `from` is where the row's text
// begins in the line, behind the indent of the row. False if there is none.
bool findBreak(const std::string& line, std::size_t indent, std::size_t from, LineBreak& place) {
    constexpr std::size_t width = CmdParser::LineWidth;
    for (std::size_t column = width; column > width / 2 && column >= indent; --column) {
        const std::size_t index = from + column - indent;
        switch (line[index]) {
        case ' ':
        case '\n':
        case '\t':
            place = {index, std::min(line.find_first_not_of(StringTools::whitespace(), index),
                                     line.size())};
            return true;
        case '-':
        case '\\': place = {index + 1, index + 1}; return true;
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

// What stands before the colon. An option with both names takes two lines.
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

void CmdParser::addDocLine(const std::string& line) {
    const std::string indent = line.substr(0, line.find_first_not_of(" \t\n"));
    std::size_t from = indent.size();
    LineBreak place{};
    while (indent.size() + line.size() - from > LineWidth &&
           findBreak(line, indent.size(), from, place)) {
        docLines.push_back(indent + line.substr(from, place.end - from));
        from = place.next;
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

// In the order in which they were specified.
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
        // Names that leave no room for values: these stay in one line.
        if (!searcher(start, length, text, pos, text.size())) start = text.size();
        lines += "\n" + std::string(maxOptionWidth + valueMargin, ' ');
        lines += text.substr(pos, start - pos);
    }
    return lines;
}

}  // namespace TarvikCorelib
