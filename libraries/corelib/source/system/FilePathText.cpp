#include "libraries/corelib/source/system/FilePathText.h"

#include "libraries/corelib/source/text/StringToolsEdit.h"

#include <algorithm>
#include <utility>

namespace TarvikCorelib {

namespace {

using StringTools::npos;

// What the two kinds of text differ in.
template <class Char>
struct PathForm;

template <>
struct PathForm<char> {
    static constexpr std::string_view Separator = "/";
    static constexpr std::string_view Illegal = R"(<>:"\/|?*)";
};

template <>
struct PathForm<wchar_t> {
    static constexpr std::wstring_view Separator = L"/";
    static constexpr std::wstring_view Illegal = LR"(<>:"\/|?*%)";
};

template <class Char>
std::size_t driveSize(StringTools::View<Char> path) {
    return path.size() > 1 && path[1] == ':' ? 2 : 0;
}

// The drive and the separators behind it: "/", "//" or "c:/".
template <class Char>
std::size_t rootSize(StringTools::View<Char> path) {
    const std::size_t drive = driveSize(path);
    const std::size_t first = path.substr(drive).find_first_not_of(Char('/'));
    const std::size_t separators = std::min(first, path.size() - drive);
    return drive + std::min<std::size_t>(separators, drive == 0 ? 2 : 1);
}

// Takes `part` out of the path, up to `end`.
template <class Char>
StringTools::Text<Char> cut(StringTools::Text<Char>& path, StringTools::Text<Char> part,
                            std::size_t start, std::size_t end) {
    if (start != npos) path.erase(start, end - start);
    return part;
}

template <class Char>
StringTools::View<Char> between(StringTools::View<Char> path, std::size_t start, std::size_t end) {
    return start == npos ? StringTools::View<Char>() : path.substr(start, end - start);
}

template <class Char>
bool cutOff(StringTools::Text<Char>& path, std::size_t size) {
    const bool isLonger = path.size() > size;
    if (isLonger) path.resize(size);
    return isLonger;
}

template <class Char>
bool assignIfChanged(StringTools::Text<Char>& path, StringTools::Text<Char>&& changed) {
    if (path == changed) return false;
    path = std::move(changed);
    return true;
}

// False if ".." leads out of the elements. What stays moves to the front, up to `kept`, and each
// ".." takes the last one back.
template <class Char>
bool contractElements(std::vector<StringTools::Text<Char>>& elements) {
    auto kept = elements.begin();
    for (auto& element : elements) {
        if (element.empty() || (element.size() == 1 && element[0] == '.')) continue;
        const bool isUp = element.size() == 2 && element[0] == '.' && element[1] == '.';
        if (isUp && kept == elements.begin()) return false;
        if (isUp) {
            --kept;
        } else {
            std::swap(*kept++, element);
        }
    }
    elements.erase(kept, elements.end());
    return true;
}

}  // namespace

template <class Char>
bool FilePathText<Char>::isComplete(View path) {
    return driveSize(path) > 0 || (!path.empty() && path.front() == '/');
}

template <class Char>
std::size_t FilePathText<Char>::findDriveStart(View path) {
    return driveSize(path) > 0 ? 0 : npos;
}

template <class Char>
std::size_t FilePathText<Char>::findDriveEnd(View path) {
    return driveSize(path) > 0 ? driveSize(path) : npos;
}

template <class Char>
std::size_t FilePathText<Char>::findDirStart(View path) {
    return path.rfind(Char('/')) == npos ? npos : driveSize(path);
}

template <class Char>
std::size_t FilePathText<Char>::findDirEnd(View path) {
    const std::size_t end = path.rfind(Char('/'));
    return end == npos || end > driveSize(path) ? end : end + 1;
}

template <class Char>
std::size_t FilePathText<Char>::findBaseStart(View path) {
    if (path.empty() || path.back() == '/') return npos;
    return path.rfind(Char('/')) + 1;  // All ones and one are 0.
}

template <class Char>
std::size_t FilePathText<Char>::findBaseEnd(View path) {
    return findBaseStart(path) == npos ? npos : path.size();
}

template <class Char>
std::size_t FilePathText<Char>::findSuffixStart(View path) {
    const std::size_t base = findBaseStart(path);
    const std::size_t dot = path.rfind(Char('.'));
    return base == npos || dot == npos || dot < base ? npos : dot + 1;
}

template <class Char>
std::size_t FilePathText<Char>::findSuffixEnd(View path) {
    return findSuffixStart(path) == npos ? npos : path.size();
}

template <class Char>
auto FilePathText<Char>::getDrive(View path) -> Text {
    return Text(path.substr(0, driveSize(path)));
}

template <class Char>
auto FilePathText<Char>::getDir(View path) -> Text {
    return Text(between(path, findDirStart(path), findDirEnd(path)));
}

template <class Char>
auto FilePathText<Char>::getParent(View path) -> Text {
    const std::size_t end = findDirEnd(path);
    return Text(end == npos ? View() : path.substr(0, end));
}

template <class Char>
auto FilePathText<Char>::getBase(View path) -> Text {
    return Text(between(path, findBaseStart(path), findBaseEnd(path)));
}

template <class Char>
auto FilePathText<Char>::getSuffix(View path) -> Text {
    return Text(between(path, findSuffixStart(path), findSuffixEnd(path)));
}

template <class Char>
auto FilePathText<Char>::splitDrive(Text& path) -> Text {
    return cut<Char>(path, getDrive(path), findDriveStart(path), findDriveEnd(path));
}

template <class Char>
auto FilePathText<Char>::splitDir(Text& path) -> Text {
    return cut<Char>(path, getDir(path), findDirStart(path), path.rfind(Char('/')) + 1);
}

template <class Char>
auto FilePathText<Char>::splitBase(Text& path) -> Text {
    const std::size_t parentEnd = findDirEnd(path);
    const std::size_t base = findBaseStart(path);
    return cut<Char>(path, getBase(path), std::min(base, base == npos ? npos : parentEnd), npos);
}

template <class Char>
auto FilePathText<Char>::splitSuffix(Text& path) -> Text {
    const std::size_t start = findSuffixStart(path);
    return cut<Char>(path, getSuffix(path), start == npos ? npos : start - 1, npos);
}

template <class Char>
bool FilePathText<Char>::removeBase(Text& path) {
    return cutOff(path, findBaseStart(path));
}

template <class Char>
bool FilePathText<Char>::removeSuffix(Text& path) {
    const std::size_t start = findSuffixStart(path);
    return start != npos && cutOff(path, start - 1);
}

template <class Char>
bool FilePathText<Char>::correctSeparation(Text& path) {
    const bool isChanged = path.find(Char('\\')) != npos;
    std::replace(path.begin(), path.end(), Char('\\'), Char('/'));
    return isChanged;
}

template <class Char>
bool FilePathText<Char>::trimDir(Text& path) {
    const std::size_t last = path.find_last_not_of(Char('/'));
    return cutOff(path, std::max(last + 1, rootSize<Char>(path)));
}

template <class Char>
bool FilePathText<Char>::completeDir(Text& path) {
    const bool isMissing = !path.empty() && path.back() != '/';
    if (isMissing) path += Char('/');
    return isMissing;
}

template <class Char>
bool FilePathText<Char>::prepDir(Text& path) {
    const bool isCorrected = correctSeparation(path);
    const bool isCleaned = cleanPath(path);
    return completeDir(path) || isCorrected || isCleaned;
}

template <class Char>
bool FilePathText<Char>::cleanPath(Text& path) {
    const auto isDoubled = [](Char a, Char b) { return a == '/' && b == '/'; };
    const auto start = path.begin() + (path.empty() ? 0 : 1);
    const auto end = std::unique(start, path.end(), isDoubled);
    return cutOff(path, static_cast<std::size_t>(end - path.begin()));
}

template <class Char>
bool FilePathText<Char>::contractPath(Text& path) {
    const std::size_t root = rootSize<Char>(path);
    std::vector<Text> elements = split(View(path).substr(root));
    if (elements.size() + root < 2 || !contractElements<Char>(elements)) return false;
    return assignIfChanged<Char>(path, path.substr(0, root) + join(elements));
}

template <class Char>
bool FilePathText<Char>::makeComplete(Text& path, View base) {
    if (path.empty() || base.empty() || isComplete(path)) return false;
    path = Text(base).append(PathForm<Char>::Separator).append(path);
    return true;
}

template <class Char>
bool FilePathText<Char>::makeRelative(Text& path, View root) {
    if (path.empty() || root.empty() || root.back() == '/') return false;
    const std::vector<Text> to = split(path);
    const std::vector<Text> from = split(root);
    const auto [toRest, fromRest] = std::mismatch(to.begin(), to.end(), from.begin(), from.end());
    if (toRest == to.begin()) return false;
    Text relative;
    for (auto up = fromRest; up != from.end(); ++up)
        relative.append(2, Char('.')).append(PathForm<Char>::Separator);
    relative += join(std::vector<Text>(toRest, to.end()));
    return assignIfChanged<Char>(path, std::move(relative));
}

template <class Char>
auto FilePathText<Char>::getValidName(View name, View replacement) -> Text {
    Text valid;
    for (const Char c : name) {
        const bool isControl = c >= 0 && c < 32;  // Bytes from 0x80 up are not.
        if (isControl || PathForm<Char>::Illegal.find(c) != npos) {
            valid += replacement;
        } else {
            valid += c;
        }
    }
    return valid;
}

template <class Char>
int FilePathText<Char>::compare(View a, View b) {
    Text first(a);
    Text second(b);
    correctSeparation(first);
    correctSeparation(second);
    return first.compare(second);
}

template <class Char>
int FilePathText<Char>::iCompare(View a, View b) {
    Text first(a);
    Text second(b);
    return compare(StringTools::lower(first), StringTools::lower(second));
}

template <class Char>
auto FilePathText<Char>::split(View path) -> std::vector<Text> {
    return splitDelim(path, PathForm<Char>::Separator);
}

template <class Char>
auto FilePathText<Char>::splitDelim(View path, View delimiter) -> std::vector<Text> {
    std::vector<Text> elements;
    if (path.empty()) return elements;
    std::size_t start = 0;
    while (!delimiter.empty()) {
        const std::size_t end = path.find(delimiter, start);
        if (end == npos) break;
        elements.emplace_back(path.substr(start, end - start));
        start = end + delimiter.size();
    }
    elements.emplace_back(path.substr(start));
    return elements;
}

template <class Char>
auto FilePathText<Char>::join(const std::vector<Text>& elements) -> Text {
    return joinDelim(elements, PathForm<Char>::Separator);
}

// Unlike `StringTools::join`, which drops the delimiter behind a leading empty element: that one is
// the root.
template <class Char>
auto FilePathText<Char>::joinDelim(const std::vector<Text>& elements, View delimiter) -> Text {
    Text path;
    for (const Text& element : elements) {
        if (&element != &elements.front()) path += delimiter;
        path += element;
    }
    return path;
}

template <class Char>
auto FilePathText<Char>::append(Text& path, View element) -> Text& {
    return appendDelim(path, element, PathForm<Char>::Separator);
}

template <class Char>
auto FilePathText<Char>::appendDelim(Text& path, View element, View delimiter) -> Text& {
    if (path.empty()) return path = element;
    if (element.substr(0, delimiter.size()) == delimiter) element.remove_prefix(delimiter.size());
    const std::size_t size = std::min(delimiter.size(), path.size());
    if (View(path).substr(path.size() - size) != delimiter) path += delimiter;
    return path += element;
}

template <class Char>
auto FilePathText<Char>::detach(Text& path) -> Text {
    return detachDelim(path, PathForm<Char>::Separator);
}

template <class Char>
auto FilePathText<Char>::detachDelim(Text& path, View delimiter) -> Text {
    const std::size_t at = delimiter.empty() ? npos : path.rfind(delimiter);
    if (at == npos) return std::exchange(path, Text());
    Text element = path.substr(at + delimiter.size());
    path.resize(at);
    return element;
}

template class FilePathText<char>;
template class FilePathText<wchar_t>;

}  // namespace TarvikCorelib
