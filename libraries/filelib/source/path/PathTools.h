/// Paths as texts: their parts, their clean and legal forms, variables and links in them.
#pragma once

#include "libraries/corelib/source/diagnostics/NamedException.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace TarvikFilelib {

/// Elements are separated by "/". Only `linkTrace` and completion against the current directory ask
/// the system for more than environment variables; all else is text alone, in linear time.
///
/// Most operations have two forms: `get...` returns a new text, the other one changes the path and
/// returns whether it is another text now. A path that cannot be changed is left as it was when the
/// exception comes. The arguments of a call may be views into the path that it changes.
///
///     PathTools::getContracted("/srv/./data/../log");         // "/srv/log"
///     PathTools::getRelative("/srv/log/a.txt", "/srv/data");  // "../log/a.txt"
///     PathTools::getReplaceSuffix("a/b.txt", "gz");           // "a/b.gz"
///     std::string path = "a//b/";
///     PathTools::makeClean(path);  // true: "a/b/"
///     PathTools::chopFirst(path);  // "a"
class PathTools {
public:
    using Contract_InvalidPath = TarvikCorelib::NamedException<PathTools, "Contract_InvalidPath">;
    using MakeRelative_InvalidRoot =
        TarvikCorelib::NamedException<PathTools, "MakeRelative_InvalidRoot">;

    /// Characters that no legal name has. Those below the space are illegal, too.
    static const std::string IllegalChars;

    /// The steps of `getValid`, in the order in which they are taken.
    enum ValidFlags : std::uint32_t { Clean = 1, Contract = 2, Expand = 4, Trace = 8, Legal = 32 };

    // --- forms of paths

    /// Not empty, and without backslash and "~".
    static bool isValid(std::string_view path);
    /// Not empty, and without "/".
    static bool isWindowsPath(std::string_view path);
    /// With each "/" as a backslash.
    static std::string getWindowsPath(std::string_view path);
    static bool makeWindowsPath(std::string& path);
    /// The path as it is: "/" is the delimiter of this platform.
    static std::string getStandard(std::string_view path);
    static bool makeStandard(std::string& path);
    static std::string getPlatformPath(std::string_view path);

    // --- root, parent, base and suffix

    /// Starts with "/", or has ":" as its second character.
    static bool haveRoot(std::string_view path);
    /// "/", "x:", "x:/", or "//server" without a further "/"; the server may be empty.
    static bool isRoot(std::string_view path);
    /// The front of the path for which `isRoot` is true, the longest one; empty without a root.
    static std::string getRoot(std::string_view path);
    /// All behind the root.
    static std::string getRootRemoved(std::string_view path);
    static bool removeRoot(std::string& path);

    /// All before the last "/"; empty if there is none.
    /// Quirk: the parent of "/a" is empty, not "/".
    static std::string getParent(std::string_view path);
    /// Leaves the base.
    static bool removeParent(std::string& path);

    /// Not empty, and not ending in "/".
    static bool haveBase(std::string_view path);
    /// All behind the last "/"; without one, the whole path.
    static std::string getBase(std::string_view path);
    /// All up to the last "/", which stays.
    static std::string getBaseRemoved(std::string_view path);
    static bool removeBase(std::string& path);

    /// A "." in the base. ".profile" is all suffix, and "a." has an empty one.
    static bool haveSuffix(std::string_view path);
    /// All behind the last "." of the base; empty without one.
    static std::string getSuffix(std::string_view path);
    /// The path without suffix and its ".".
    static std::string getSuffixRemoved(std::string_view path);
    static bool removeSuffix(std::string& path);
    static std::string getBaseWithoutSuffix(std::string_view path);
    /// Puts "." and `suffix` in place of the suffix, or behind a path that has none.
    static std::string getReplaceSuffix(std::string_view path, std::string_view suffix);
    static bool replaceSuffix(std::string& path, std::string_view suffix);

    // --- elements

    using Elements = std::vector<std::string>;

    /// Every "/" ends an element, so "/a" has an empty first one, and "a/" an empty last one. An
    /// empty path has none.
    static Elements split(std::string_view path);
    /// The elements with "/" between them: `join(split(path))` is the path.
    static std::string join(const Elements& elements);

    /// The first or last element as `split` finds it, and the path without it and its "/".
    static std::string getFirstElement(std::string_view path);
    static std::string getFirstChopped(std::string_view path);
    static std::string getLastElement(std::string_view path);
    static std::string getLastChopped(std::string_view path);
    /// Remove that element from the path and return it. With a single element nothing is left.
    static std::string chopFirst(std::string& path);
    static std::string chopLast(std::string& path);

    // --- clean and legal paths

    /// No "~", and no doubled "/" but a leading one.
    static bool isClean(std::string_view path);
    /// With one "/" for several, and at most two at the front.
    /// Quirk: a "~" stays, so the result may be one that `isClean` refuses.
    static std::string getClean(std::string_view path);
    static bool makeClean(std::string& path);

    /// Not empty, and without control characters and `IllegalChars`. Bytes from 0x80 up are legal.
    static bool isLegalName(std::string_view name);
    /// Without its illegal characters; it may be empty then.
    static std::string getLegalName(std::string_view name);
    static bool makeLegalName(std::string& name);
    /// All elements are legal names.
    /// Quirk: an empty element is not, so a path that starts with "/" is illegal.
    static bool isLegal(std::string_view path);
    /// Of legal elements. What is empty, or becomes so, is left out, a leading "/" with it.
    static std::string getLegal(std::string_view path);
    static bool makeLegal(std::string& path);

    // --- dots and variables

    /// Drops "." and empty elements, and each ".." with the element before it, never the root. Text
    /// alone: where that element is a link the result is another directory. A path of one element
    /// stays, ".." too. Throws `Contract_InvalidPath` if a ".." has no element before it.
    static std::string getContracted(std::string_view path);
    static bool contract(std::string& path);

    /// Puts in the values of "%NAME%", and of "$NAME", which reaches to the next "/" or the end. A
    /// name is an environment variable, or one of the words for directories of `SystemTools`. "%%"
    /// and "$$" stand for the character. What is unknown stays, and values are not expanded again.
    /// A leading "/c:", in either case, becomes "C:".
    static std::string getExpanded(std::string_view path);
    static bool expand(std::string& path);

    // --- against another path

    /// `base`, "/" and the path; the path as it is if it has a root, or if either is empty.
    static std::string getComplete(std::string_view path, std::string_view base);
    static bool makeComplete(std::string& path, std::string_view base);
    /// The same against the current directory; where the system cannot name it the path stays.
    static std::string getComplete(std::string_view path);
    static bool makeComplete(std::string& path);

    /// The way from the directory `root` to the path, by "../" where it has to. A path whose first
    /// element is another stays, an empty one too. Throws `MakeRelative_InvalidRoot` if `root` ends
    /// in "/".
    static std::string getRelative(std::string_view path, std::string_view root);
    static bool makeRelative(std::string& path, std::string_view root);

    // --- links

    /// Puts the targets of symbolic links in their places, of dangling ones too, element by
    /// element. A relative target starts at the directory of its link, and may leave ".." in the
    /// path. A path with more than 40 links stays as it was: it may be a circle. So do links of
    /// which the system knows more than their text, such as /dev/stdin on a pipe.
    static std::string getLinkTrace(std::string_view path);
    static bool linkTrace(std::string& path);

    // --- all of it

    /// Turns each backslash into "/", and takes the steps of the flags, `ValidFlags`, on what the
    /// step before has left. `Legal` keeps a root ("/", "//", "x:" or "x:/"). Bit 16 has no effect.
    /// An empty path stays empty. Throws what the steps throw.
    ///
    /// Variables and links are put in after the contraction, so the result may have "..": nobody
    /// may rely on it to stay below some directory.
    static std::string getValid(std::string_view path, std::uint32_t flags);
    static bool makeValid(std::string& path, std::uint32_t flags);

private:
    /// Makes the path that text, and returns whether it was another one.
    static bool assign(std::string& path, std::string text);
    static std::size_t rootLength(std::string_view path);
    /// Of the part that no contraction and no legal form changes: the root, but of "//server" only
    /// the slashes, since the server is a directory here.
    static std::size_t fixedLength(std::string_view path);
    /// Removes the first element and its "/" from a path that is not empty, and returns it.
    static std::string_view takeElement(std::string_view& path);
};

}  // namespace TarvikFilelib
