/// Whole files as texts and as containers of lines.
#pragma once

#include "libraries/corelib/source/system/FileTarget.h"
#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <list>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace TarvikCorelib {

/// The part of `FileTools` on the content of files, for one kind of character.
///
/// Narrow texts are the bytes of the file; wide ones are converted by the process locale. Reading
/// opens plain files only, and replaces what the argument held; on failure it returns false and
/// leaves that alone. Writing takes a `CopyFlag` and replaces as `replaceContent` does: a failure
/// leaves the old content, and so does a process that dies. A text that the locale has no bytes for
/// is a failure.
template <class Char>
class FileTexts {
    using Text = StringTools::Text<Char>;
    using View = StringTools::View<Char>;

public:
    static bool fileToText(const Text& path, Text& text);
    static bool textToFile(const Text& path, const Text& text, int flags);

    /// One item a line. Each ends in a line feed, which the last line may lack; carriage returns
    /// are part of the item.
    static bool fileToList(const Text& path, std::list<Text>& items);
    static bool fileToVector(const Text& path, std::vector<Text>& items);
    static bool fileToSet(const Text& path, std::set<Text>& items);
    static bool listToFile(const Text& path, const std::list<Text>& items, int flags);
    static bool vectorToFile(const Text& path, const std::vector<Text>& items, int flags);
    static bool setToFile(const Text& path, const std::set<Text>& items, int flags);
    /// One pair a line, cut at the first delimiter; without one the value is empty. Of equal keys
    /// the first one stays.
    static bool fileToMap(const Text& path, std::map<Text, Text>& pairs, View delimiter);
    static bool mapToFile(const Text& path, const std::map<Text, Text>& pairs, View delimiter,
                          int flags);
};

extern template class FileTexts<char>;
extern template class FileTexts<wchar_t>;

}  // namespace TarvikCorelib
