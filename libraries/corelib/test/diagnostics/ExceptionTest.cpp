#include "libraries/corelib/source/diagnostics/Exception.h"

#include "libraries/corelib/source/diagnostics/NamedException.h"
#include "libraries/corelib/source/diagnostics/ToString.h"
#include "libraries/corelib/source/text/StringToolsConvert.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace TarvikCorelib {
namespace {

using StringTools::widen;

// A name, a template, and what is shown.
using TemplateCase = std::array<const char*, 3>;

constexpr auto templates = std::to_array<TemplateCase>({
    {"a plain text", "no file: 50%", "no file: 50%"},
    {"after a tag its brace reappears", "@a{x}; y", "x} y"},
    {"a second tag keeps its key", "@a{x}; @b{y};", "x} b{y"},
    {"right after a closed tag it loses it", "@a{x};@b{y};", "xy"},
    {"a key in front of a plain text hides it", "@home", ""},
    {"a brace comes back before text", "a}b}}c", "a}b}}c"},
    {"at the end it does not", "a}", "a"},
    {"an at sign falls away", "a@b", "ab"},
    {"two of them open a key", "a@@b{c", "ac"},
    {"a key that never ends hides all", "@abc", ""},
    {"a backslash before a letter stays", R"(a\bc)", R"(a\bc)"},
    {"two are one", R"(a\\b)", R"(a\b)"},
    {"one before a brace goes and keeps the brace", R"(a\}b)", "a}b"},
    {"one at the end is lost", R"(a\)", "a"},
    {"one before an at sign waits for the next but one", R"(a\@bc)", R"(ab\c)"},
    {"one in front is a character", R"(\a)", R"(\a)"},
    {"a closed tag without more", "@a.b{x y};;", "x y"},
    {"a semicolon in front is lost", ";a;b", "a;b"},
});

TEST(ExceptionTest, EveryTextPassesThroughTheTemplateReader) {
    for (const auto& [name, text, shown] : templates) {
        EXPECT_EQ(Exception(text).getFullMessage(false), shown) << name;
        EXPECT_EQ(Exception(widen(text)).getFullMessageW(false), widen(shown)) << name;
    }
}

TEST(ExceptionTest, ATemplateIsReadBeforeItsValuesGoIn) {
    const Exception exception("@a{\"%@%\"};", ParamStream() << "a@"
                                                            << "b}");
    EXPECT_EQ(exception.getFullMessage(true), "Exception: \"a@b}\"");
}

class Store {
public:
    using Open_Failure = NamedException<Store, "Open_Failure">;
    using Read_Failure = NamedException<Store, "Read_Failure">;
};

TEST(ExceptionTest, TextsAndLocationsMayBeAnyKindOfString) {
    using Failure = Store::Open_Failure;
    const std::string text = "a%";
    const std::wstring wide = L"a%";
    for (const Failure& made :
         {Failure("a%", std::string(" here")), Failure(text, std::string_view(" here")),
          Failure(std::string_view(text), " here"), Failure(L"a%", " here"), Failure(wide, " here"),
          Failure(std::wstring_view(wide), " here", ParamStream())})
        EXPECT_EQ(made.getMessageWithLocation(), "a% here");
}

TEST(ExceptionTest, AContainerShowsItsCausesBelowWithTheirNames) {
    const Store::Open_Failure cause("@open{cannot open %};", " here", ParamStream() << "x");
    const Store::Read_Failure middle(" there", cause);
    const Exception outer("", middle);
    EXPECT_EQ(middle.getFullMessage(true), "Read_Failure:\nOpen_Failure: cannot open x");
    EXPECT_EQ(outer.getFullMessage(false), "\nRead_Failure:\nOpen_Failure: cannot open x");
    EXPECT_EQ(middle.getFullMessageW(false), L"\nOpen_Failure: cannot open x");
    EXPECT_EQ(Exception().getFullMessage(false), "");
}

TEST(ExceptionTest, OnlyTheFirstLevelOfCausesIsSearched) {
    const Exception outer("", Store::Read_Failure("", Store::Open_Failure("@open{no};")));
    ASSERT_TRUE(outer.haveContainedException("Read_Failure"));
    EXPECT_FALSE(outer.haveContainedException("Open_Failure"));
    EXPECT_EQ(outer.getContained("Open_Failure"), nullptr);
    EXPECT_EQ(outer.getContained("Read_Failure")->getContained("Open_Failure")->getMessage(),
              "@open{no};");
}

TEST(ExceptionTest, AMessageOfTheOtherWidthComesWithItsName) {
    const Exception wide(L"a\u20ac%", " here", ParamStream() << "\xe9");
    EXPECT_EQ(wide.getFullMessage(false), "Exception: a\xac\xe9");
    EXPECT_EQ(wide.getFullMessageW(false), L"a\u20ac\u00e9");
    EXPECT_EQ(wide.getMessageWithLocation(), "a\xac% here");
    EXPECT_EQ(wide.getMessageWWithLocation(), L"a\u20ac% here");
    const Exception narrow("\xe9");
    EXPECT_EQ(narrow.getFullMessageW(false), L"Exception: \u00e9");
    EXPECT_EQ(narrow.getMessageW(), L"\u00e9");
    EXPECT_EQ(Exception(" here", wide).getFullMessageW(true),
              L"Exception:\nException: a\u20ac\u00e9");
}

TEST(ExceptionTest, AddedWordsFollowASpaceAndTheirValuesFollowTheOthers) {
    Exception exception("@a{x %};", ParamStream() << 1);
    exception.addToMessage("y");
    exception.addToMessage("%", ParamStream() << 2);
    EXPECT_EQ(exception.getMessage(), "@a{x %}; y %");
    EXPECT_EQ(exception.getFullMessage(false), "x 1} y 2");
    exception.addToMessage(L"wide %%%", ParamStream() << 3);
    EXPECT_EQ(exception.getMessageW(), L" wide %%%");
    EXPECT_EQ(exception.getFullMessageW(false), L" wide 123");
}

TEST(ExceptionTest, ALogShowsTheInnermostCauseFirst) {
    std::string logged;
    const auto take = [&logged](const std::string& text, const ParamStream& params) {
        logged += ParamStream(params).format(text) + "\n";
    };
    const Store::Open_Failure cause(L"@open{no %};", " here", ParamStream() << "x");
    Exception(" there", Store::Read_Failure(" middle", cause)).forEachLogRecord(take);
    Exception("", "").forEachLogRecord(take);
    EXPECT_EQ(logged,
              "Open_Failure: @open{no x}; here\n"
              "Read_Failure: Container for above exceptions\n"
              "Exception: Container for above exceptions\n"
              "Exception: <NO MESSAGE>\n");
}

TEST(ExceptionTest, AnErrorNumberComesWithTheTextOfTheSystem) {
    EXPECT_EQ(ToString::fromErrno(2), "errno=2: No such file or directory");
    EXPECT_EQ(ToString::fromErrno(99999), "errno=99999: Unknown error 99999");
    EXPECT_EQ(ToString::fromInt(std::numeric_limits<long long>::min()), "-9223372036854775808");
}

}  // namespace
}  // namespace TarvikCorelib
