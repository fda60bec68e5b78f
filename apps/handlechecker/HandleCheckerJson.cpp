// The library would make a tree of nodes first, some 400 bytes a fault, and then print it. For many
// faults that took three quarters of the run and more memory than all the rest. The layout is
// always the same, so it is written out here, and the library only quotes special characters.

#include "apps/handlechecker/HandleCheckerJson.h"

#include <json/value.h>
#include <json/writer.h>

#include <cstddef>
#include <string_view>

namespace Tarvik {

namespace {

// What stands around the quoted texts.
struct Layout {
    std::string_view beforeFirstError;
    std::string_view beforeMessage;
    std::string_view betweenErrors;
    std::string_view behindLastError;
};

constexpr Layout flatLayout{
    .beforeFirstError = "{\n   \"Error\" : [\n      {\n         \"line\" : ",
    .beforeMessage = ",\n         \"message\" : ",
    .betweenErrors = "\n      },\n      {\n         \"line\" : ",
    .behindLastError = "\n      }\n   ]\n}\n",
};

// The path and its own ending follow.
constexpr Layout nestedLayout{
    .beforeFirstError =
        "{\n   \"Data\" : {\n      \"Error\" : [\n         {\n            \"line\" : ",
    .beforeMessage = ",\n            \"message\" : ",
    .betweenErrors = "\n         },\n         {\n            \"line\" : ",
    .behindLastError = "\n         }\n      ],\n      \"Path\" : ",
};
constexpr std::string_view behindPath = "\n   }\n}\n";

// The library has deprecated this writer, but its successor lays texts out differently.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
std::string styledText(const std::string& text) {
    std::string line = Json::StyledWriter().write(Json::Value(text));
    line.pop_back();  // Its line end.
    return line;
}
#pragma GCC diagnostic pop

std::string quotedByLibrary(const std::string& text) {
    // The short way ends at a zero byte.
    const bool hasZero = text.find('\0') != std::string::npos;
    return hasZero ? styledText(text) : Json::valueToQuotedString(text.c_str());
}

// Most texts need nothing but a backslash before each quote, which takes half the time here. All
// else is left to the library.
void appendQuoted(std::string& out, const std::string& text) {
    const std::size_t start = out.size();
    out += '"';
    for (const char c : text) {
        if (c < ' ' || c == '\\' || c > '~') {
            out.resize(start);
            out += quotedByLibrary(text);
            return;
        }
        if (c == '"') out += '\\';
        out += c;
    }
    out += '"';
}

// About the size of the text. Only a guess, as special characters take more room.
std::size_t expectedSize(const std::vector<HandleValidator::Error>& errors, const Layout& layout) {
    constexpr std::size_t quotesAndBackslashes = 12;
    const std::size_t around =
        layout.betweenErrors.size() + layout.beforeMessage.size() + quotesAndBackslashes;
    std::size_t size = errors.size() * around;
    for (const HandleValidator::Error& error : errors)
        size += error.line.size() + error.message.size();
    return size;
}

void appendErrors(std::string& out, const std::vector<HandleValidator::Error>& errors,
                  const Layout& layout) {
    // A text that grows is copied, and is there twice while it is.
    out.reserve(expectedSize(errors, layout));
    std::string_view before = layout.beforeFirstError;
    for (const HandleValidator::Error& error : errors) {
        out += before;
        appendQuoted(out, error.line);
        out += layout.beforeMessage;
        appendQuoted(out, error.message);
        before = layout.betweenErrors;
    }
    out += layout.behindLastError;
}

}  // namespace

std::string jsonText(const std::vector<HandleValidator::Error>& errors) {
    std::string text;
    appendErrors(text, errors, flatLayout);
    return text;
}

std::string jsonText(const std::vector<HandleValidator::Error>& errors, const std::string& path) {
    std::string text;
    appendErrors(text, errors, nestedLayout);
    appendQuoted(text, path);
    text += behindPath;
    return text;
}

}  // namespace Tarvik
