#include "libraries/corelib/source/values/SharedString.h"

#include "libraries/corelib/source/diagnostics/NoDestructor.h"

#include <algorithm>
#include <limits>
#include <type_traits>
#include <utility>

namespace TarvikCorelib {

namespace {

// All texts of one kind.
//
// A value holds an index into `strings`; `indices` finds the index of a text. So setting a value
// costs a search in a sorted map, and reading or copying one costs an array access. The map points
// to the texts in the records, so that each is stored once; a text is owned by its record and keeps
// its address when the vector grows. A record whose last value is gone keeps its place, since other
// indices must not move: its index goes to the front of `free` and is the next to be used.
//
// `clear` cannot reach the values that exist. It moves `firstIndex` past all indices in use
// instead, so that a value from before it is recognised by its low index and counts as empty.
template <class Text>
struct Bank {
    using StringPointer = SharedString::StringPointer<Text>;

    // Null if the index is out of range, from before `clear`, or free.
    StringPointer* find(std::size_t index);
    // Returns the index of the text, stored now if it is new, and counts one more reference.
    std::size_t intern(const Text& text);
    // Both do nothing for an index without a text, so empty values need no test of their own.
    void retain(std::size_t index);
    void release(std::size_t index);
    void clear();

    std::vector<StringPointer> strings;
    SharedString::Index<Text> indices;
    std::list<std::size_t> free;  // Last in, first out, at the front.
    std::size_t firstIndex = 0;   // Of `strings[0]`. Lower indices are from before `clear`.
    const Text none;

private:
    std::size_t takeIndex();
};

// Never destroyed: static values of other files may be destroyed after any static of this one.
template <class Text>
Bank<Text>& bankOf() {
    static NoDestructor<Bank<Text>> bank;
    return *bank;
}

template <class Text>
auto Bank<Text>::find(std::size_t index) -> StringPointer* {
    const std::size_t position = index - firstIndex;  // A lower index wraps around, past the end.
    const bool isHeld = position < strings.size() && strings[position].text != nullptr;
    return isHeld ? &strings[position] : nullptr;
}

template <class Text>
std::size_t Bank<Text>::intern(const Text& text) {
    const auto place = indices.lower_bound(&text);
    if (place != indices.end() && *place->first == text) {
        retain(place->second);
        return place->second;
    }
    const std::size_t index = takeIndex();
    StringPointer& string = strings[index - firstIndex];
    string = {std::make_unique<const Text>(text), 1};
    indices.emplace_hint(place, string.text.get(), index);
    return index;
}

template <class Text>
std::size_t Bank<Text>::takeIndex() {
    if (free.empty()) {
        strings.emplace_back();
        return firstIndex + strings.size() - 1;
    }
    const std::size_t index = free.front();
    free.pop_front();
    return index;
}

template <class Text>
void Bank<Text>::retain(std::size_t index) {
    if (StringPointer* const string = find(index)) ++string->count;
}

template <class Text>
void Bank<Text>::release(std::size_t index) {
    StringPointer* const string = find(index);
    if (string == nullptr || --string->count > 0) return;
    indices.erase(string->text.get());
    string->text.reset();
    free.push_front(index);
}

template <class Text>
void Bank<Text>::clear() {
    firstIndex += strings.size();
    indices.clear();
    strings.clear();
    free.clear();
}

// The traits compare bytes as unsigned and wide characters by their code.
template <class Text>
int compareTexts(const Text& a, const Text& b) {
    using Limits = std::numeric_limits<int>;
    const auto common = std::min(a.size(), b.size());
    const int order = Text::traits_type::compare(a.data(), b.data(), common);
    if (order != 0) return order;
    const auto difference = std::ssize(a) - std::ssize(b);
    return static_cast<int>(
        std::clamp<decltype(difference)>(difference, Limits::min(), Limits::max()));
}

}  // namespace

SharedString::SharedString(const SharedString& other) {
    share(other);
}

SharedString& SharedString::operator=(const SharedString& other) {
    if (this == &other) return *this;
    clear();
    share(other);
    return *this;
}

SharedString& SharedString::operator=(const std::string& text) {
    set(text);
    return *this;
}

SharedString& SharedString::operator=(const std::wstring& text) {
    set(text);
    return *this;
}

SharedString::~SharedString() {
    clear();
}

void SharedString::set(const std::string& text) {
    assign(text);
}

void SharedString::set(const std::wstring& text) {
    assign(text);
}

void SharedString::clear() {
    if (wide) {
        bankOf<std::wstring>().release(index);
    } else {
        bankOf<std::string>().release(index);
    }
    wide = false;
    index = NoIndex;
    length = 0;
}

const std::string& SharedString::get() const {
    const auto* const text = stored<std::string>();
    return text != nullptr ? *text : nstring();
}

const std::wstring& SharedString::getW() const {
    const auto* const text = stored<std::wstring>();
    return text != nullptr ? *text : nwstring();
}

bool SharedString::isEmpty() const {
    return stored<std::string>() == nullptr && stored<std::wstring>() == nullptr;
}

int SharedString::compare(const SharedString& other) const {
    if (isEmpty() || other.isEmpty()) return int{other.isEmpty()} - int{isEmpty()};
    if (wide != other.wide) return wide ? 1 : -1;
    if (index == other.index) return 0;
    return wide ? compareTexts(getW(), other.getW()) : compareTexts(get(), other.get());
}

void SharedString::clearAll() {
    bankOf<std::string>().clear();
    bankOf<std::wstring>().clear();
}

const std::vector<SharedString::StringPointer<std::string>>& SharedString::StringBank() {
    return bankOf<std::string>().strings;
}

const std::vector<SharedString::StringPointer<std::wstring>>& SharedString::StringBankW() {
    return bankOf<std::wstring>().strings;
}

const SharedString::Index<std::string>& SharedString::StringMap() {
    return bankOf<std::string>().indices;
}

const SharedString::Index<std::wstring>& SharedString::StringMapW() {
    return bankOf<std::wstring>().indices;
}

const std::list<std::size_t>& SharedString::Free() {
    return bankOf<std::string>().free;
}

const std::list<std::size_t>& SharedString::FreeW() {
    return bankOf<std::wstring>().free;
}

const std::string& SharedString::nstring() {
    return bankOf<std::string>().none;
}

const std::wstring& SharedString::nwstring() {
    return bankOf<std::wstring>().none;
}

template <class Text>
const Text* SharedString::stored() const {
    if (wide != std::is_same_v<Text, std::wstring>) return nullptr;
    const auto* const string = bankOf<Text>().find(index);
    return string != nullptr ? string->text.get() : nullptr;
}

template <class Text>
void SharedString::assign(const Text& text) {
    if (stored<Text>() == &text) return;  // The last value with a text destroys it in `clear`.
    clear();
    wide = std::is_same_v<Text, std::wstring>;
    length = text.size();
    index = bankOf<Text>().intern(text);
}

void SharedString::share(const SharedString& other) {
    wide = other.wide;
    index = other.index;
    length = other.length;
    if (wide) {
        bankOf<std::wstring>().retain(index);
    } else {
        bankOf<std::string>().retain(index);
    }
}

}  // namespace TarvikCorelib
