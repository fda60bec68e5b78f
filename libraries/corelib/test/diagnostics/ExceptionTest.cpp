#include "libraries/corelib/source/diagnostics/Exception.h"

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/diagnostics/SourceText.h"

#include <gtest/gtest.h>

#include <array>

namespace TarvikCorelib {
namespace {

struct TemplateCase {
    const char* name;
    const char* text;
    const char* shown;
};

constexpr auto templates = std::to_array<TemplateCase>({
    {"a plain text", "no file: 50%", "no file: 50%"},
    {"a tag shows its text", "@a.b{some text};", "some text"},
    {"behind a tag its brace comes back", "@a{x}; y", "x} y"},
    {"a second tag keeps its key", "@a{x}; @b{y};", "x} b{y"},
    {"a brace comes back before text", "a}b}}c", "a}b}}c"},
    {"at the end it does not", "a}", "a"},
    {"an at sign falls away", "a@b", "ab"},
    {"two of them open a key", "a@@b{c", "ac"},
    {"a key that never ends hides all", "@abc", ""},
    {"a backslash before a letter stays", R"(a\b)", R"(a\b)"},
    {"two are one", R"(a\\b)", R"(a\b)"},
    {"one before a brace goes and keeps the brace", R"(a\}b)", "a}b"},
    {"one at the end is lost", R"(a\)", "a"},
    {"one before an at sign waits for the next but one", R"(a\@bc)", R"(ab\c)"},
    {"one in front is a character", R"(\a)", R"(\a)"},
    {"a semicolon in front is lost", ";a;b", "a;b"},
});

TEST(ExceptionTest, EveryTextPassesThroughTheTemplateReader) {
    for (const TemplateCase& row : templates)
        EXPECT_EQ(Exception(row.text).getFullMessage(false), row.shown) << row.name;
}

constexpr auto formats = std::to_array<TemplateCase>({
    {"values in order, a missing one gives nothing", "x=%, y=%, z=%", "x=1, y=a, z="},
    {"a shielded one takes no value", R"(100\%, %)", R"(100\%, 1)"},
    {"a backslash at the end", R"(%\)", R"(1\)"},
    {"surplus values are ignored", "-", "-"},
});

TEST(ExceptionTest, ValuesFillTheFormat) {
    const ParamStream params = ParamStream() << 1 << "a";
    for (const TemplateCase& row : formats)
        EXPECT_EQ(params.format(row.text), row.shown) << row.name;
    EXPECT_EQ(ParamStream().format(R"(%\%)"), R"(%\%)");
}

TEST(ExceptionTest, ATemplateIsReadBeforeItsValuesGoIn) {
    const Exception exception(
        "@appframe.already-running{Another instance of the \"%@%\" is already running - cannot "
        "start another};",
        ParamStream() << "a@"
                      << "b}");
    EXPECT_EQ(exception.getFullMessage(true),
              "Exception: Another instance of the \"a@b}\" is already running - cannot start "
              "another");
}

class Store {
public:
    using Open_Failure = NamedException<Store, "Open_Failure">;
    using Read_Failure = NamedException<Store, "Read_Failure">;
};

TEST(ExceptionTest, AContainerShowsItsCausesBelowWithTheirNames) {
    const Store::Open_Failure cause("@open{cannot open %};", " here", ParamStream() << "x");
    const Store::Read_Failure middle(" there", cause);
    const Exception outer("", middle);
    EXPECT_EQ(middle.getFullMessage(true), "Read_Failure:\nOpen_Failure: cannot open x");
    EXPECT_EQ(outer.getFullMessage(false), "\nRead_Failure:\nOpen_Failure: cannot open x");
    EXPECT_EQ(cause.getMessage(), "@open{cannot open %};");
    EXPECT_EQ(middle.getLocations(), " there");
    EXPECT_EQ(Exception().getFullMessage(false), "");
}

TEST(ExceptionTest, ALocationNamesTheFileAndARevisionOtherThanZero) {
    EXPECT_EQ(sourceText("a/b/c", 7, 0), " @logsrc{file=\"c\" line=7};");
    EXPECT_EQ(sourceText("c", 7, 12), " @logsrc{file=\"c\" line=7 rev=12};");
}

}  // namespace
}  // namespace TarvikCorelib
