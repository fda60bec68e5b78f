/// What can be told from the text of a path alone, for narrow and wide texts.
#pragma once

#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <cstddef>
#include <string>
#include <vector>

namespace TarvikCorelib {

/// The half of `FileTools` that looks at no file, for one kind of character.
///
/// A path is an optional drive ("c:"), an optional directory and an optional base, the name behind
/// the last "/". A base may have a suffix, which is what follows its last "."; so the suffix of
/// ".conf" is "conf". The operations that take the path by reference change it in place; the ones
/// that return a `bool` say whether they changed it; other arguments must not point into it. All
/// are linear in their input.
///
///     std::string path = "c:/a/b.tar.gz";
///     FileTools::getDir(path);     // "/a"
///     FileTools::getParent(path);  // "c:/a"
///     FileTools::getBase(path);    // "b.tar.gz"
///     FileTools::getSuffix(path);  // "gz"
///     FileTools::splitBase(path);  // "b.tar.gz", and the path is "c:/a"
template <class Char>
class FilePathText {
protected:
    using Text = StringTools::Text<Char>;
    using View = StringTools::View<Char>;

public:
    /// Whether the path has a root: it starts with "/", or its second character is ":".
    static bool isComplete(View path);

    /// Where a part starts and where it ends, one past its last character; all ones if the path has
    /// no such part. The base and the suffix reach to the end of the path. The directory ends
    /// before the last "/", but the root is one character, "/".
    static std::size_t findDriveStart(View path);
    static std::size_t findDriveEnd(View path);
    static std::size_t findDirStart(View path);
    static std::size_t findDirEnd(View path);
    static std::size_t findBaseStart(View path);
    static std::size_t findBaseEnd(View path);
    static std::size_t findSuffixStart(View path);
    static std::size_t findSuffixEnd(View path);

    /// The part; empty if there is none. The parent is drive and directory, so that of "/a" is "/".
    static Text getDrive(View path);
    static Text getDir(View path);
    static Text getParent(View path);
    static Text getBase(View path);
    static Text getSuffix(View path);

    /// Return the part and take it out of the path, with the "/" or the "." that sets it off. A
    /// directory that is the root stays a root: "/a" becomes "/" and "a".
    static Text splitDrive(Text& path);
    static Text splitDir(Text& path);
    static Text splitBase(Text& path);
    static Text splitSuffix(Text& path);

    /// Cut off the base, leaving the "/" before it, or the suffix with its ".".
    static bool removeBase(Text& path);
    static bool removeSuffix(Text& path);

    /// Turns each "\" into "/".
    static bool correctSeparation(Text& path);
    /// Removes each "/" at the end, up to a root.
    static bool trimDir(Text& path);
    /// Adds a "/" to the end of a path that is not empty and has none there.
    static bool completeDir(Text& path);
    /// Makes the path ready for a name to be added: separators corrected, none of them doubled
    /// behind the first two characters, one at the end.
    static bool prepDir(Text& path);
    /// Removes each "/" that follows another one, except the second of a leading "//".
    static bool cleanPath(Text& path);
    /// Resolves "." and "..", by the text alone, and removes empty elements; the root stays. A ".."
    /// that would lead out of the path leaves it as it is.
    static bool contractPath(Text& path);
    /// Puts `base` and "/" before a path that is not empty and has no root.
    static bool makeComplete(Text& path, View base);
    /// Turns a path into one that leads there from the directory `root`. Both must begin with the
    /// same element, and `root` must not end in "/"; else the path stays as it is.
    static bool makeRelative(Text& path, View root);

    /// The name with the replacement in place of each character below 32 and each of <>:"\/|?*, in
    /// wide names of "%" as well.
    static Text getValidName(View name, View replacement);

    /// Less than 0, 0 or more than 0, as in `Text::compare`, with "\" equal to "/". `iCompare`
    /// ignores case, by the process locale.
    static int compare(View a, View b);
    static int iCompare(View a, View b);

    /// The elements between the separators, with empty ones: "/a/" has three. An empty path has
    /// none. `join` is the reverse. The twins take a separator of the caller's; an empty one
    /// separates nothing.
    static std::vector<Text> split(View path);
    static std::vector<Text> splitDelim(View path, View delimiter);
    static Text join(const std::vector<Text>& elements);
    static Text joinDelim(const std::vector<Text>& elements, View delimiter);
    /// Adds an element, with exactly one separator between; to an empty path as it is.
    static Text& append(Text& path, View element);
    static Text& appendDelim(Text& path, View element, View delimiter);
    /// Returns the last element and cuts it off with its separator, also where it is the only thing
    /// below the root: "/a" becomes "".
    static Text detach(Text& path);
    static Text detachDelim(Text& path, View delimiter);
};

extern template class FilePathText<char>;
extern template class FilePathText<wchar_t>;

}  // namespace TarvikCorelib
