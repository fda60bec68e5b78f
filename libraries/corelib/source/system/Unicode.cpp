#include "libraries/corelib/source/system/Unicode.h"

#include "libraries/corelib/source/diagnostics/NoDestructor.h"
#include "libraries/corelib/source/text/StringTools.h"

#include <utility>

namespace TarvikCorelib {

namespace {

// Process-wide.
Unicode::Boms& boms() {
    static NoDestructor<Unicode::Boms> table;
    return *table;
}

}  // namespace

Unicode::Unicode(std::vector<unsigned int> codePoints) : codes(std::move(codePoints)) {}

unsigned int& Unicode::operator[](std::size_t index) {
    return at(index);
}

const unsigned int& Unicode::operator[](std::size_t index) const {
    return at(index);
}

unsigned int& Unicode::at(std::size_t index) {
    if (index >= codes.size()) throw IndexOutOfBounds();
    return codes[index];
}

const unsigned int& Unicode::at(std::size_t index) const {
    if (index >= codes.size()) throw IndexOutOfBounds();
    return codes[index];
}

void Unicode::push_back(unsigned int c) {
    codes.push_back(c);
}

void Unicode::push_back(const Unicode& other) {
    insert(codes.size(), other);
}

void Unicode::push_front(unsigned int c) {
    insert(0, c);
}

void Unicode::push_front(const Unicode& other) {
    insert(0, other);
}

void Unicode::insert(std::size_t pos, unsigned int c) {
    insert(pos, Unicode({c}));
}

void Unicode::insert(std::size_t pos, const Unicode& other) {
    if (pos > codes.size()) throw IndexOutOfBounds();
    const std::vector<unsigned int> copied = other.codes;  // `other` may be the object itself.
    codes.insert(codes.begin() + static_cast<std::ptrdiff_t>(pos), copied.begin(), copied.end());
}

int Unicode::compare(const Unicode& other) const {
    if (codes == other.codes) return 0;
    return codes < other.codes ? -1 : 1;
}

Unicode Unicode::getSub(std::size_t /*pos*/, std::size_t /*n*/) const {
    return {};
}

const Unicode::Boms& Unicode::BomValues() {
    return boms();
}

void Unicode::initBom() {
    if (!boms().empty()) return;
    boms() = {{"\xEF\xBB\xBF", Utf8Encoding},
              {"\xFF\xFE", Utf16LeEncoding},
              {"\xFE\xFF", Utf16BeEncoding}};
}

std::string Unicode::getBom(UnicodeEncoding encoding) {
    initBom();
    for (const auto& [mark, markEncoding] : boms()) {
        if (markEncoding == encoding) return mark;
    }
    return {};
}

Unicode::Boms Unicode::getPotentialEncodings(const std::string& prefix) {
    initBom();
    Boms potential;
    for (const auto& entry : boms()) {
        if (StringTools::subCompare(entry.first, 0, prefix) == 0) potential.insert(entry);
    }
    return potential;
}

}  // namespace TarvikCorelib
