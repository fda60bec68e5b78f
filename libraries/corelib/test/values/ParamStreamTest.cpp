#include "libraries/corelib/source/values/ParamStream.h"

#include "libraries/corelib/source/text/StringToolsConvert.h"
#include "libraries/corelib/source/time/DateTime.h"
#include "libraries/corelib/source/values/SharedString.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <utility>

namespace TarvikCorelib {
namespace {

using StringTools::widen;
using ElementDef = ParamStream::ElementDef;

TEST(ParamStreamTest, ElementsFillTheFormat) {
    ParamStream params = ParamStream() << 1 << "a";
    using Row = std::array<const char*, 3>;
    for (const auto& [name, text, shown] :
         {Row{"values in order, a missing one gives nothing", "x=%, y=%, z=%", "x=1, y=a, z="},
          {"one beside the other", "%%", "1a"},
          {"a shielded one takes no value", R"(100\%, %)", R"(100\%, 1)"},
          {"a shielded backslash shields nothing", R"(\\%\\\%)", R"(\\1\\\%)"},
          {"a backslash after a value", R"(%\%%\)", R"(1\%a\)"}}) {
        EXPECT_EQ(params.format(text), shown) << name;
        EXPECT_EQ(params.format(widen(text)), widen(shown)) << name;
    }
    EXPECT_EQ(ParamStream().format(R"(%\%)"), R"(%\%)");
    EXPECT_EQ((ParamStream() << "" << 2).format("<%%>"), "<2>");
}

// A name, an element, its type, and how it is stored and shown, narrow and wide.
using ElementCase =
    std::tuple<const char*, ElementDef, int, std::string, std::string, std::wstring>;

// The bytes of a euro sign and of a shielded line feed.
const std::string wideBytes("\xac\x20\0\0\\\0\0\0n\0\0\0", 12);

const auto elements = std::to_array<ElementCase>({
    {"flag", ElementDef(true), 0, "1", "true", L"true"},
    {"no flag", ElementDef(false), 0, "0", "false", L"false"},
    {"double", ElementDef(-0.5), 7, "-0.5", "-0.5", L"-0.5"},
    {"time", ElementDef(DateTime(3471476645006)), 8, "3471476645006", "2010-01-02T03:04:05.006Z",
     L"2010-01-02T03:04:05.006Z"},
    {"char beyond 7 bits", ElementDef('\xe9'), 12, "-23", "\xe9", L"\u00e9"},
    {"wide char", ElementDef(L'\u20ac'), 13, "8364", "\xac", L"\u20ac"},
    {"text", ElementDef("a\n\\\xe9"), 9, "a\\n\\\\\xe9", "a\n\\\xe9", L"a\n\\\u00e9"},
    {"wide", ElementDef(L"\u20ac\n"), 10, wideBytes, "\xac\n", L"\u20ac\n"},
    {"shared", ElementDef(SharedString(std::string("\n"))), 9, "\\n", "\n", L"\n"},
    {"shared wide", ElementDef(SharedString(std::wstring(L"a"))), 10, {"a\0\0\0", 4}, "a", L"a"},
    {"null pointer", ElementDef(static_cast<const char*>(nullptr)), 9, "", "", L""},
    {"undefined", ElementDef(), 14, "", "", L""},
});

TEST(ParamStreamTest, AnElementIsStoredAsTextAndShownAsMeant) {
    for (const auto& [name, element, type, stored, shown, shownW] : elements) {
        EXPECT_EQ(element.type, type) << name;
        EXPECT_EQ(element.value, stored) << name;
        EXPECT_EQ(element.getAsString(), shown) << name;
        EXPECT_EQ(element.getAsWString(), shownW) << name;
    }
}

TEST(ParamStreamTest, SizesAndViewsAreWrittenAsTheWidestTypeOfTheirKind) {
    ParamStream stream = ParamStream() << sizeof 'c' << std::int64_t{-1} << std::string_view("\n")
                                       << std::wstring_view(L"\n");
    EXPECT_TRUE(stream.push(sizeof 'c') && stream.push(long{-3}));
    std::string types;
    for (ElementDef element; stream.read(element);)
        types += ParamStream::mapElementType(element.type) + " ";
    EXPECT_EQ(types, "uint64 int64 string wstring uint64 int64 ");
    EXPECT_EQ(stream.format("%,%,%,%,%,%"), "1,-1,\n,\n,1,-3");
}

TEST(ParamStreamTest, EachTypeIsReadAsItWasWritten) {
    std::tuple written(true, '\xe9', L'\U0001f600', -2147483647 - 1, 4294967295U,
                       -9223372036854775807LL - 1, 18446744073709551615ULL, -0.25,
                       std::string("a\n\\n\0\xe9", 6), std::wstring(L"\n\\n\U0001f600"));
    decltype(written) read;
    ParamStream stream;
    std::apply([&](const auto&... values) { (stream.push(values), ...); }, written);
    std::apply([&](auto&... targets) { (stream >> ... >> targets); }, read);
    EXPECT_EQ(read, written);
}

TEST(ParamStreamTest, ATimeIsReadAsAnInstantWithoutItsZone) {
    ParamStream stream;
    EXPECT_TRUE(stream.push(DateTime(3471476645006, TimeZone("+01:00"))));
    stream << 5ULL;
    DateTime target(1, TimeZone("+02:00"));
    EXPECT_TRUE(stream.pull(target));
    EXPECT_FALSE(target.getTimeZone().isSet());
    EXPECT_FALSE(stream.pull(target));
    EXPECT_EQ(target.time(), 3471476645006U);
}

TEST(ParamStreamTest, AnElementOfAnotherTypeIsTakenOffAndChangesNothing) {
    ParamStream stream = ParamStream() << 5;
    char c = 'c';
    int number = 7;
    SharedString text(std::string("text"));
    (stream << 6) >> c >> text >> number;
    EXPECT_EQ(c, 'c');
    EXPECT_EQ(text.get(), "text");
    EXPECT_EQ(number, 7);
}

TEST(ParamStreamTest, ASharedStringTakesANarrowTextAsItIsStored) {
    SharedString narrow;
    SharedString wide;
    ParamStream() << "a\n" << L"a\n" >> narrow >> wide;
    EXPECT_EQ(narrow.get(), "a\\n");
    EXPECT_EQ(wide.getW(), L"a\n");
}

class MarkingStream : public ParamStream {
public:
    void escape(std::string& text) override { text += "!"; }
    void escape(std::wstring& text) override { text += L"!"; }
};

TEST(ParamStreamTest, OnlyPushCallsTheHookThatEncodesTexts) {
    MarkingStream stream;
    EXPECT_TRUE(stream.push("a") && stream.push(SharedString(std::wstring(L"b"))));
    stream << "c";
    EXPECT_EQ(stream.format("%%%"), "a!b!c");
}

TEST(ParamStreamTest, BytesThatMakeNoWholeWideCharacterAreDropped) {
    ElementDef element(L"a");
    element.value += "b";
    EXPECT_EQ(element.getAsWString(), L"a");
}

TEST(ParamStreamTest, OnlyTextsMayBeEmpty) {
    ParamStream stream;
    for (const int type : {0, 3, 7, 13, 14, 15, 9, 10}) {
        ElementDef element;
        element.type = static_cast<ParamStream::ElementType>(type);
        EXPECT_EQ(stream.write(element), type == 9 || type == 10) << type;
        element.value = "1";
        EXPECT_EQ(stream.write(element), type < 14) << type;
    }
}

TEST(ParamStreamTest, ACursorAtTheEndStaysThere) {
    ParamStream stream = ParamStream() << 1;
    EXPECT_EQ(stream.getNext() + stream.getNext(), "1");
    stream << 2;
    EXPECT_EQ(stream.getNext(), "");
    ParamStream collected;
    collected.concatenate(stream);
    collected.concatenate(collected);
    EXPECT_EQ(collected.getNextW(), L"");
    EXPECT_EQ(collected.format("%%%%%"), "1212");
}

TEST(ParamStreamTest, CopiesAndMovedStreamsAreReadFromTheirFirstElementOn) {
    ParamStream stream = ParamStream() << 1 << 2;
    EXPECT_EQ(stream.getNext(), "1");
    ParamStream copy(stream);
    EXPECT_EQ(copy.getNext(), "1");
    copy = stream;
    EXPECT_EQ(copy.getNext(), "1");
    ParamStream moved(std::move(stream));
    EXPECT_EQ(moved.getNext(), "1");
    copy = std::move(moved);
    EXPECT_EQ(copy.getNext(), "1");
    ParamStream& self = copy;
    copy = std::move(self);
    EXPECT_EQ(copy.getNext(), "2");
    EXPECT_EQ(moved.getNext(), "");  // NOLINT: it is empty and can be used, as promised.
    EXPECT_EQ((moved << 4).getNext(), "4");
}

TEST(ParamStreamTest, OnlyTheExactNameGivesItsType) {
    std::string names;
    for (int type = 0; type < ParamStream::UndefinedElement; ++type)
        names += ParamStream::mapElementType(static_cast<ParamStream::ElementType>(type)) + " ";
    EXPECT_EQ(names, "bool   int32 uint32 int64 uint64 double time string wstring  char wchar ");
    EXPECT_EQ(ParamStream::mapElementType("uint64"), ParamStream::UInt64Element);
    EXPECT_EQ(ParamStream::mapElementType(L"wchar"), ParamStream::WCharElement);
    for (const char* const name : {"nonsense", "BOOL", "int", ""})
        EXPECT_EQ(ParamStream::mapElementType(name), ParamStream::UndefinedElement) << name;
    EXPECT_EQ(ParamStream::mapElementTypeW(ParamStream::TimeElement), L"time");
}

}  // namespace
}  // namespace TarvikCorelib
