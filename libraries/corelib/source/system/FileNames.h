/// File names and texts of files between narrow and wide.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <set>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Narrow a text by the process locale. False if the locale has no bytes for one of its characters.
bool narrowText(const std::wstring& text, std::string& bytes);
inline bool narrowText(const std::string& text, std::string& bytes) {
    bytes = text;
    return true;
}

/// The name as the system takes it. What the system would take for another name becomes empty,
/// which is no file's name: one with a NUL, and one that the locale has no bytes for.
std::string systemName(const std::wstring& name);
std::string systemName(const std::string& name);

/// Widens by the process locale. A byte that begins no character there becomes the character of
/// its number, so any name can be shown.
std::wstring wideText(std::string_view bytes);

/// The bytes as a text of the caller's kind.
template <class Char>
StringTools::Text<Char> textAs(std::string&& bytes) {
    if constexpr (std::is_same_v<Char, wchar_t>)
        return wideText(bytes);
    else
        return std::move(bytes);
}

template <class Char>
std::set<StringTools::Text<Char>> textsAs(std::set<std::string>&& names) {
    if constexpr (std::is_same_v<Char, wchar_t>) {
        std::set<std::wstring> result;
        for (const std::string& name : names)
            result.insert(wideText(name));
        return result;
    } else {
        return std::move(names);
    }
}

}  // namespace TarvikCorelib
