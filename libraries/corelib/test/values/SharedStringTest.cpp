#include "libraries/corelib/source/values/SharedString.h"

#include <gtest/gtest.h>

namespace TarvikCorelib {
namespace {

template <class Char>
SharedString shared(const Char* text) {
    return SharedString(std::basic_string<Char>(text));
}

TEST(SharedStringTest, EqualTextsOfAKindShareOneCopy) {
    const SharedString a = shared("a");
    const SharedString b = shared("a");
    const SharedString wide = shared(L"a");
    EXPECT_EQ(&a.get(), &b.get());
    EXPECT_EQ(wide.getW(), L"a");
    EXPECT_EQ(&wide.get(), &SharedString::nstring());
    EXPECT_EQ(&a.getW(), &SharedString::nwstring());
}

template <class Char, class Bank>
void expectReuse(const Bank& bank, const Char* text, const Char* other) {
    SharedString::clearAll();
    SharedString a = shared(text);
    SharedString b = shared(other);
    SharedString last(b);
    a.clear();
    b.clear();
    EXPECT_EQ(*bank[1].text, other);
    last.set(std::basic_string<Char>(text));
    EXPECT_EQ(bank.size(), 2U);
    EXPECT_EQ(*bank[1].text, text);
    EXPECT_TRUE(b.isEmpty());
}

TEST(SharedStringTest, ANewTextTakesTheIndexFreedLast) {
    expectReuse(SharedString::StringBank(), "a", "b");
    expectReuse(SharedString::StringBankW(), L"a", L"b");
}

TEST(SharedStringTest, ValuesAreOrderedByKindAndThenByText) {
    EXPECT_EQ(SharedString().compare(SharedString()), 0);
    EXPECT_EQ(SharedString().compare(shared("")), -1);
    EXPECT_EQ(shared(L"a").compare(shared("b")), 1);
    EXPECT_EQ(shared("abc").compare(shared("a")), 2);
    EXPECT_EQ(shared(L"a").compare(shared(L"abcd")), -3);
    EXPECT_GT(shared("\x80").compare(shared("az")), 0);
    EXPECT_LT(shared(L"ab").compare(shared(L"b")), 0);
}

TEST(SharedStringTest, AValueMayBeSetToItsOwnText) {
    SharedString value = shared("a text too long to be kept in place");
    value.set(value.get());
    EXPECT_EQ(value.get(), "a text too long to be kept in place");
    const SharedString& self = value;
    value = self;
    EXPECT_EQ(value.get(), "a text too long to be kept in place");
}

TEST(SharedStringTest, ATextLivesAsLongAsAnyValueWithIt) {
    SharedString::clearAll();
    SharedString first = shared("a");
    SharedString second = shared("a");
    first.clear();
    EXPECT_EQ(second.get(), "a");
    SharedString wide = shared(L"abc");
    first = wide;
    wide = second;
    second.clear();
    EXPECT_EQ(first.getW(), L"abc");
    EXPECT_EQ(first.getLength(), 3U);
    EXPECT_EQ(wide.get(), "a");
    wide = first;
    EXPECT_TRUE(SharedString::StringMap().empty());
    SharedString::clearAll();
    EXPECT_TRUE(first.isEmpty() && SharedString::StringMapW().empty());
}

TEST(SharedStringTest, ValuesFromBeforeClearAllStayApartFromLaterTexts) {
    SharedString old = shared("old");
    SharedString::clearAll();
    const SharedString late = shared("late");
    EXPECT_EQ(old.compare(SharedString()), 0);
    old.set(std::string("new"));
    EXPECT_EQ(old.get() + late.get(), "newlate");
}

}  // namespace
}  // namespace TarvikCorelib
