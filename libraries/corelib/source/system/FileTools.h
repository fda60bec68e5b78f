/// Files, directories and paths by name, without exceptions.
#pragma once

#include "libraries/corelib/source/system/FileDirectories.h"
#include "libraries/corelib/source/system/FilePathText.h"
#include "libraries/corelib/source/system/FileProperties.h"
#include "libraries/corelib/source/system/FileSearch.h"
#include "libraries/corelib/source/system/FileTexts.h"
#include "libraries/corelib/source/system/FileTransfer.h"

#include <set>
#include <string>

namespace TarvikCorelib {

/// The parts for one kind of character, each described in its own header.
template <class Char>
class BasicFileTools : public FilePathText<Char>,
                       public FileProperties<Char>,
                       public FileTexts<Char>,
                       public FileDirectories<Char>,
                       public FileTransfer<Char>,
                       public FileSearch<Char> {};

/// Joins the parts for narrow and for wide texts under one name, so that the argument chooses.
template <class... Forms>
class JoinedFileTools : public Forms... {
public:
    // --- of the text alone
    using Forms::isComplete...;
    using Forms::findDriveStart...;
    using Forms::findDriveEnd...;
    using Forms::findDirStart...;
    using Forms::findDirEnd...;
    using Forms::findBaseStart...;
    using Forms::findBaseEnd...;
    using Forms::findSuffixStart...;
    using Forms::findSuffixEnd...;
    using Forms::getDrive...;
    using Forms::getDir...;
    using Forms::getParent...;
    using Forms::getBase...;
    using Forms::getSuffix...;
    using Forms::splitDrive...;
    using Forms::splitDir...;
    using Forms::splitBase...;
    using Forms::splitSuffix...;
    using Forms::removeBase...;
    using Forms::removeSuffix...;
    using Forms::correctSeparation...;
    using Forms::trimDir...;
    using Forms::completeDir...;
    using Forms::prepDir...;
    using Forms::cleanPath...;
    using Forms::contractPath...;
    using Forms::makeComplete...;
    using Forms::makeRelative...;
    using Forms::getValidName...;
    using Forms::compare...;
    using Forms::iCompare...;
    using Forms::split...;
    using Forms::splitDelim...;
    using Forms::join...;
    using Forms::joinDelim...;
    using Forms::append...;
    using Forms::appendDelim...;
    using Forms::detach...;
    using Forms::detachDelim...;

    // --- properties
    using Forms::isLink...;
    using Forms::createLink...;
    using Forms::isFile...;
    using Forms::isDir...;
    using Forms::exists...;
    using Forms::size...;
    using Forms::isAllowed...;
    using Forms::setPermissions...;
    using Forms::checkStatus...;
    using Forms::setStatus...;
    using Forms::firstCreated...;
    using Forms::lastAccessed...;
    using Forms::lastModified...;
    using Forms::setFirstCreated...;
    using Forms::setLastAccessed...;
    using Forms::setLastModified...;
    using Forms::touch...;
    using Forms::createFile...;
    using Forms::freeSpace...;
    using Forms::setCurrentDir...;
    using Forms::expand...;
    using Forms::mapSymbolic...;
    using Forms::processPath...;

    // --- content
    using Forms::fileToText...;
    using Forms::textToFile...;
    using Forms::fileToList...;
    using Forms::fileToVector...;
    using Forms::fileToSet...;
    using Forms::listToFile...;
    using Forms::vectorToFile...;
    using Forms::setToFile...;
    using Forms::fileToMap...;
    using Forms::mapToFile...;

    // --- directories
    using Forms::readDir...;
    using Forms::getFiles...;
    using Forms::getSubDirs...;
    using Forms::count...;
    using Forms::getDirTree...;
    using Forms::compareDirs...;
    using Forms::makeDir...;
    using Forms::ensurePath...;
    using Forms::remove...;
    using Forms::removeDir...;
    using Forms::clearDir...;

    // --- to other places
    using Forms::copy...;
    using Forms::move...;
    using Forms::copyDir...;
    using Forms::moveDir...;

    // --- searches
    using Forms::find...;
    using Forms::findPath...;
    using Forms::findExe...;
    using Forms::findName...;
    using Forms::findNameGlob...;
    using Forms::findContents...;
    using Forms::findContentsGlob...;
};

/// Whatever the suite does with files by their names.
///
/// All operations exist for narrow and for wide texts. Wide names are converted by the process
/// locale; one that cannot be converted is no file's name, as is one with a NUL. The results
/// show failures: nothing throws but exhausted memory. No state; safe to use from several threads,
/// but for the current directory, which is one for the process.
///
///     FileTools::ensurePath("out/a");                              // true
///     FileTools::textToFile("out/a/b.txt", "1\n2\n", 0);           // true
///     FileTools::textToFile("out/a/b.txt", "3\n", 0);              // false: it exists
///     FileTools::textToFile("out/a/b.txt", "3\n", CopyEnumerate);  // true: "out/a/b-0001.txt"
///     FileTools::fileToVector("out/a/b.txt", lines);               // true: "1", "2"
///     FileTools::getFiles("out/a", "b*");                          // "b-0001.txt", "b.txt"
class FileTools : public JoinedFileTools<BasicFileTools<char>, BasicFileTools<wchar_t>> {
public:
    static constexpr char DirSep = '/';

    /// What has no argument to tell the texts apart has a W in its wide name.
    static std::string getCurrentDir() { return BasicFileTools<char>::getCurrentDir(); }
    static std::wstring getCurrentDirW() { return BasicFileTools<wchar_t>::getCurrentDir(); }
    static std::set<std::string> getFileSystems() { return BasicFileTools<char>::getFileSystems(); }
    static std::set<std::wstring> getFileSystemsW() {
        return BasicFileTools<wchar_t>::getFileSystems();
    }

    /// Process-wide. `DirSep` as a text, made on first use.
    static const std::string& fileDelimiter();
    static const std::wstring& fileDelimiterW();
    /// Process-wide. The mark ahead of a text in UTF-8, and the character that it stands for; made
    /// on first use.
    static const std::string& BOM();    // NOLINT(readability-identifier-naming): a fixed name.
    static const std::wstring& BOMW();  // NOLINT(readability-identifier-naming): a fixed name.
};

}  // namespace TarvikCorelib
