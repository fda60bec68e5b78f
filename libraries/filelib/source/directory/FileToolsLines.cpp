// Files of lines, and of lines "key=value".

#include "libraries/corelib/source/text/StringSplitter.h"
#include "libraries/filelib/source/directory/FileTools.h"

#include <utility>

namespace TarvikFilelib {

using TarvikCorelib::StringSplitter;

namespace {

constexpr char lineEnd = '\n';
constexpr char keyValueDelimiter = '=';

void appendLine(std::string& text, const std::string& item) {
    text += item;
    text += lineEnd;
}

void appendLine(std::string& text, const std::pair<const std::string, std::string>& item) {
    text += item.first;
    text += keyValueDelimiter;
    appendLine(text, item.second);
}

// Each item ends its line, the last one too: an empty item is an empty line, and none is no line.
template <class Container>
void itemsToFile(const std::string& path, const Container& items, int flags) {
    std::string text;
    for (const auto& item : items)
        appendLine(text, item);
    FileTools::stringToFile(path, text, flags);
}

}  // namespace

FileTools::List FileTools::fileToList(const std::string& path, int splitFlags) {
    return StringSplitter::toList(fileToString(path), lineEnd, splitFlags);
}

FileTools::Vector FileTools::fileToVector(const std::string& path, int splitFlags) {
    return StringSplitter::toVector(fileToString(path), lineEnd, splitFlags);
}

FileTools::Set FileTools::fileToSet(const std::string& path, int splitFlags) {
    return StringSplitter::toSet(fileToString(path), lineEnd, splitFlags);
}

FileTools::MultiSet FileTools::fileToMultiSet(const std::string& path, int splitFlags) {
    return StringSplitter::toMultiSet(fileToString(path), lineEnd, splitFlags);
}

FileTools::Map FileTools::fileToMap(const std::string& path, int splitFlags) {
    return StringSplitter::toMap(fileToString(path), lineEnd, keyValueDelimiter, splitFlags);
}

FileTools::MultiMap FileTools::fileToMultiMap(const std::string& path, int splitFlags) {
    return StringSplitter::toMultiMap(fileToString(path), lineEnd, keyValueDelimiter, splitFlags);
}

void FileTools::listToFile(const std::string& path, const List& items, int flags) {
    itemsToFile(path, items, flags);
}

void FileTools::vectorToFile(const std::string& path, const Vector& items, int flags) {
    itemsToFile(path, items, flags);
}

void FileTools::setToFile(const std::string& path, const Set& items, int flags) {
    itemsToFile(path, items, flags);
}

void FileTools::multiSetToFile(const std::string& path, const MultiSet& items, int flags) {
    itemsToFile(path, items, flags);
}

void FileTools::mapToFile(const std::string& path, const Map& items, int flags) {
    itemsToFile(path, items, flags);
}

void FileTools::multiMapToFile(const std::string& path, const MultiMap& items, int flags) {
    itemsToFile(path, items, flags);
}

}  // namespace TarvikFilelib
