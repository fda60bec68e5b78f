// The line machine: what each line of a handle is, and which state it leads to.
//
// handle  = "handle" "{" { name | section } "}"
// section = word "{" { line of the section | "counters" "{" { line } "}" } "}"
//
// A line is one token: a brace, a word or a key line. So the machine needs no look-ahead, and after
// a fault it stays where it is, or moves to where the line makes most sense, and reads on.

#include "apps/handlechecker/validation/HandleMessages.h"
#include "apps/handlechecker/validation/HandleValidator.h"
#include "shared/library/common/StringTools.h"

#include <utility>

namespace Tarvik {

namespace {

// The last "#" starts the comment, and there is no quoting: a "#" in a value always cuts.
std::string_view withoutComment(std::string_view line) {
    // Forwards first: most lines have none, and looking for it backwards is slow.
    if (line.find('#') == std::string_view::npos) return line;
    return StringTools::trimmedRight(line.substr(0, line.rfind('#')));
}

}  // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): a settled signature.
int HandleValidator::parseLine(std::string line) {
    const std::string_view content = contentOf(line);
    return content.empty() ? LineAccepted : takeLine(content);
}

// The line without its outer blanks; empty for a comment.
std::string_view HandleValidator::contentOf(std::string_view raw) {
    const std::string_view line = StringTools::trimmed(raw);
    return line.starts_with('#') ? std::string_view() : line;
}

int HandleValidator::takeLine(std::string_view line) {
    // Process-wide. It is set on entering each section, so a stale one is never used.
    static ParseObject parseobject = NoObject;

    line = withoutComment(line);
    switch (state) {
    case OutsideHandle: return inOutsideHandle(line);
    case ExpectHandleBrace: return expectBrace(line, InHandle);
    case InHandle: return inHandle(line, parseobject);
    case ExpectSectionBrace: return expectBrace(line, InSection);
    case InSection: return inSection(line, parseobject);
    case ExpectSubsectionBrace: return expectBrace(line, InSubsection);
    case InSubsection: return inSubsection(line, parseobject);
    default: return rejectLine(messages::fill(messages::internalError));
    }
}

// "handle" -> ExpectHandleBrace, accepted | "{" -> InHandle, rejected | else stays, rejected
int HandleValidator::inOutsideHandle(std::string_view line) {
    if (line == "handle") return moveTo(ExpectHandleBrace);
    if (line == "{") {
        state = InHandle;
        return rejectLine(messages::fill(messages::handleMissing));
    }
    return rejectLine(messages::fill(messages::outsideOfHandle, {line}));
}

// "{" -> next, accepted | else stays, rejected
// Quirk: all lines up to the next "{" are rejected, each with a report.
int HandleValidator::expectBrace(std::string_view line, LineState next) {
    if (line == "{") return moveTo(next);
    return rejectLine(messages::fill(messages::expectingBrace, {line}));
}

// "}" -> OutsideHandle, closed | with "=" a key line | a section word -> ExpectSectionBrace
// "{" -> InSection, rejected | else stays, rejected
int HandleValidator::inHandle(std::string_view line, ParseObject& parseobject) {
    if (line == "}") {
        // Quirk: a second handle may follow, and continues with the data of the first.
        state = OutsideHandle;
        return HandleClosed;
    }
    if (line.find('=') != std::string_view::npos) return keyLineInHandle(line);
    parseobject = findSection(line);
    if (parseobject != NoObject) return openSection();
    if (line == "{") {
        // A section without a word: its lines are rejected without a report, up to its "}".
        state = InSection;
        return rejectLine(messages::fill(messages::sectionMissing));
    }
    return rejectLine(messages::fill(messages::invalidElement, {line}));
}

// The section opens even if the name is missing so far. Only the first section reports that, once
// more if it is repeated.
int HandleValidator::openSection() {
    state = ExpectSectionBrace;
    if (sectionsSeen.size() == 1 && name.empty()) {
        return rejectLine(messages::fill(messages::nameNotFirst));
    }
    return LineAccepted;
}

int HandleValidator::keyLineInHandle(std::string_view line) {
    std::string_view value = line;
    takeKey(value);
    if (currentKey != NameKey) return rejectLine(messages::fill(messages::invalidElement, {line}));
    if (!name.empty()) return rejectLine(messages::fill(messages::duplicateName));
    if (value.empty()) return rejectLine(messages::fill(messages::blankName));
    name = value;
    nameLine = lineNumber;
    return LineAccepted;
}

// "}" -> InHandle, accepted | a section word -> ExpectSectionBrace, rejected | else the section's
int HandleValidator::inSection(std::string_view line, ParseObject& parseobject) {
    if (line == "}") {
        parseobject = NoObject;
        return moveTo(InHandle);
    }
    const ParseObject next = findSection(line);
    if (next != NoObject) {
        // Treated as a forgotten "}": the new section opens at once.
        parseobject = next;
        state = ExpectSectionBrace;
        return rejectLine(messages::fill(messages::braceMissingBeforeSection, {line}));
    }
    return readSectionLine(parseobject, line) ? LineAccepted : LineRejected;
}

// "}" -> InSection, accepted | else the section's
int HandleValidator::inSubsection(std::string_view line, ParseObject& parseobject) {
    if (line == "}") return moveTo(InSection);
    return readSectionLine(parseobject, line) ? LineAccepted : LineRejected;
}

int HandleValidator::moveTo(LineState next) {
    state = next;
    return LineAccepted;
}

int HandleValidator::rejectLine(std::string message) {
    report(std::move(message));
    return LineRejected;
}

}  // namespace Tarvik
