#include "libraries/corelib/source/services/FileRegistry.h"

#include "libraries/corelib/source/process/CoreSleep.h"
#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/process/ProcessLock.h"
#include "libraries/corelib/source/text/StringSplitter.h"
#include "libraries/corelib/source/text/StringToolsEscape.h"
#include "libraries/corelib/source/text/StringToolsNumbers.h"
#include "libraries/filelib/source/directory/DirTools.h"
#include "libraries/filelib/source/directory/FileTools.h"
#include "libraries/filelib/source/path/PathTools.h"
#include "shared/library/tables/Keywords.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <tuple>
#include <type_traits>

namespace TarvikCorelib {

using TarvikFilelib::DirTools;
using TarvikFilelib::PathTools;

namespace {

// Not the class of that name here.
using ContentTools = TarvikFilelib::FileTools;

constexpr auto typeNames = std::to_array<TarvikTables::Keyword>({
    {"string", FileRegistry::String},
    {"int32", FileRegistry::Int32},
    {"uint32", FileRegistry::UInt32},
    {"int64", FileRegistry::Int64},
    {"uint64", FileRegistry::UInt64},
    {"double", FileRegistry::Double},
    {"list", FileRegistry::List},
});

// --- failures and locks

void record(const Exception& failure) {
    // The limit of all loggers first: below it the logger is not even made.
    if (Logger::Debug <= Logger::MainLevel) FileRegistry::log().debug(failure);
}

// What the step answers, or `failure` for whatever it throws. It must take its locks itself:
// records are written when these are free again, since a subscriber may do anything.
template <class Step>
int attempt(FileRegistry::Status failure, Step step) {
    try {
        return step();
    } catch (const Exception& thrown) {
        record(thrown);
    } catch (const std::exception&) {
        // Memory is missing, or a file is larger than any text: there is no record to write.
    }
    return failure;
}

// Tries at once and then at each pause. `LocalLock` is held for each try alone, so whoever waits
// for one key is in nobody's way at the others. Within it the file is closed, too: that would free
// the lock of another thread.
template <class Step>
int underLock(const std::string& directory, Step step) {
    constexpr int tries = 1001;
    constexpr std::uint32_t pauseMilliseconds = 10;
    for (int count = 0; count < tries; ++count) {
        {
            const ThreadLockGuard threads(*FileRegistry::LocalLock);
            ProcessLock processes(directory);
            if (processes.lock(false)) return step();
        }
        core_sleep(pauseMilliseconds);
    }
    return FileRegistry::NotLocked;
}

// --- keys

struct Place {
    std::string directory;     // Of the key.
    std::size_t rootSize = 0;  // Of the front of it that is the root.
    std::string file;          // Of the value.
};

// Whether the path names something below the directory that it starts from.
bool staysBelow(std::string_view path) {
    bool hasName = false;
    while (!path.empty()) {
        const std::string_view element = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(element.size() + 1, path.size()));
        if (element == "." || element == "..") return false;
        hasName = hasName || !element.empty();
    }
    return hasName;
}

// Empty for what is no key.
std::string validKey(const std::string& key) {
    constexpr unsigned int validSteps = 55;
    if (key.find('\0') != std::string::npos) return {};
    try {
        std::string path = PathTools::getValid(key, validSteps);
        if (staysBelow(path)) return path;
    } catch (const Exception&) {
        // A ".." that leads out.
    }
    return {};
}

int findKey(const std::string& key, Place& place) {
    if (key.empty()) return FileRegistry::InvalidKey;
    const std::string path = validKey(key);
    if (path.empty()) return FileRegistry::NoSuchKey;
    place.directory = FileRegistry::getRootDir();
    place.rootSize = place.directory.size();
    place.directory.append("/").append(path);
    return FileRegistry::Done;
}

int findValue(const std::string& key, int type, Place& place) {
    if (type < 0 || static_cast<std::size_t>(type) >= typeNames.size())
        return FileRegistry::InvalidType;
    const int status = findKey(key, place);
    if (status == FileRegistry::Done)
        place.file.append(place.directory).append("/").append(FileRegistry::mapType(type));
    return status;
}

// Whether an element between the root and the last one is a link.
bool isReachedByLink(const Place& place) {
    const std::string& path = place.directory;
    for (auto end = path.find('/', place.rootSize + 1); end != std::string::npos;
         end = path.find('/', end + 1))
        if (ContentTools::isLink(path.substr(0, end))) return true;
    return false;
}

// The pauses let somebody win who makes the same directories, or removes them. Behind the last one
// the value is tried regardless.
int makeDirectory(const std::string& directory) {
    for (const std::uint32_t milliseconds : {5U, 10U, 15U}) {
        const int status = attempt(FileRegistry::InvalidKey, [&directory] {
            try {
                DirTools::ensureParentExists(directory + "/");
                return FileRegistry::Done;
            } catch (const DirTools::CreateDir_Failed& failure) {
                record(failure);
                return FileRegistry::Failed;
            }
        });
        if (status != FileRegistry::Failed) return status;
        core_sleep(milliseconds);
    }
    return FileRegistry::Done;
}

// --- files

// The file is asked for first: there is none without its directory.
int missing(const Place& place) {
    if (ContentTools::isFile(place.file)) return FileRegistry::Done;
    return DirTools::exists(place.directory) ? FileRegistry::NoSuchValue : FileRegistry::NoSuchKey;
}

std::string readFile(const std::string& path) {
    std::string text = ContentTools::fileToString(path);
    if (text.ends_with('\n')) text.pop_back();
    return text;
}

// A device or a FIFO would take the text and keep nothing.
FileRegistry::Status writeFile(const std::string& path, const std::string& text) {
    if (!ContentTools::isFile(path) && ContentTools::exists(path)) return FileRegistry::Failed;
    ContentTools::stringToFile(path, text + "\n", TarvikFilelib::CopyOverwrite);
    return FileRegistry::Done;
}

template <class Remove>
int removal(const std::string& path, Remove remove) {
    if (path.empty()) return FileRegistry::InvalidKey;
    if (!ContentTools::exists(path)) return FileRegistry::NoSuchKey;
    return attempt(FileRegistry::Failed, [&] {
        return underLock(path, [&] {
            try {
                remove();
                return FileRegistry::Done;
            } catch (const DirTools::NoSuchDir&) {
                return FileRegistry::NoSuchKey;
            }
        });
    });
}

// --- the texts of values

// The tenth code has no character: a "\0" is read as these two. So the pair of lists stands in
// front, where it shifts no other.
constexpr std::string_view listChars = ";\n\t\v\b\r\f\a\"'";
constexpr std::string_view listCodes = ":ntvbrfa\"'0";
constexpr std::string_view textChars = listChars.substr(1);
constexpr std::string_view textCodes = listCodes.substr(1);
constexpr char escapeChar = '\\';
constexpr char elementEnd = ';';

std::string readText(std::string_view text) {
    return StringTools::unescape(text, textCodes, textChars, escapeChar);
}

std::string textOf(const std::string& value) {
    return StringTools::escape(value, textChars, textCodes, escapeChar);
}

std::list<std::string> readList(std::string_view text) {
    std::list<std::string> elements = StringSplitter::toList(text, elementEnd);
    for (std::string& element : elements)
        element = StringTools::unescape(element, listCodes, listChars, escapeChar);
    return elements;
}

std::string textOf(const std::list<std::string>& value) {
    std::string text;
    for (const std::string& element : value) {
        if (&element != &value.front()) text += elementEnd;
        text += StringTools::escape(element, listChars, listCodes, escapeChar);
    }
    return text;
}

template <class Number>
std::string textOf(const Number& value) {
    return StringTools::toString(value);
}

// --- the types

template <class Value>
struct Form {
    FileRegistry::Type type;
    Value (*read)(std::string_view text);
};

constexpr std::tuple forms = {
    Form<std::string>{FileRegistry::String, readText},
    Form<int>{FileRegistry::Int32, StringTools::toInt32},
    Form<unsigned int>{FileRegistry::UInt32, StringTools::toUInt32},
    Form<long long>{FileRegistry::Int64, StringTools::toInt64},
    Form<unsigned long long>{FileRegistry::UInt64, StringTools::toUInt64},
    Form<double>{FileRegistry::Double, StringTools::toDouble},
    Form<std::list<std::string>>{FileRegistry::List, readList},
};

template <class Value>
constexpr Form<Value> formOf = std::get<Form<Value>>(forms);

template <class Value>
int getValue(const std::string& key, Value& value, bool lock) {
    std::string text;
    const int status = FileRegistry::getRaw(key, formOf<Value>.type, text, lock);
    if (status == FileRegistry::Done) value = formOf<Value>.read(text);
    return status;
}

template <class Value>
int setValue(const std::string& key, const Value& value) {
    return FileRegistry::setRaw(key, formOf<Value>.type, textOf(value), true);
}

template <class Number>
Number sum(Number value, Number delta) {
    if constexpr (std::is_integral_v<Number>) {
        using Bits = std::make_unsigned_t<Number>;
        return static_cast<Number>(static_cast<Bits>(value) + static_cast<Bits>(delta));
    } else {
        return value + delta;
    }
}

template <class Number>
int modifyValue(const std::string& key, Number delta) {
    Place place;
    int status = findValue(key, formOf<Number>.type, place);
    if (status == FileRegistry::Done) status = missing(place);
    if (status != FileRegistry::Done) return status;

    return attempt(FileRegistry::Failed, [&] {
        return underLock(place.directory, [&] {
            // Somebody may have removed it before the lock was free.
            if (const int now = missing(place); now != FileRegistry::Done) return now;
            const Number value = formOf<Number>.read(readFile(place.file));
            return static_cast<int>(writeFile(place.file, textOf(sum(value, delta))));
        });
    });
}

}  // namespace

constinit NoDestructor<std::optional<std::string>> FileRegistry::RootDir;
constinit NoDestructor<ThreadLock> FileRegistry::LocalLock;

Logger& FileRegistry::log() {
    static NoDestructor<Logger> logger("file-registry", nullptr);
    return *logger;
}

std::string FileRegistry::mapType(int type) {
    for (const auto& [word, code] : typeNames)
        if (code == type) return std::string(word);
    return "[undef]";
}

int FileRegistry::mapType(const std::string& name) {
    return TarvikTables::codeOf(name, typeNames, UnknownType);
}

// --- the root

void FileRegistry::setRootDir(const std::string& dir) {
    const ThreadLockGuard guard(*LocalLock);
    *RootDir = dir;
}

std::string FileRegistry::getRootDir() {
    static NoDestructor<std::string> fixed([] {
        std::string dir;
        EnvTools::get("TARVIK_FREG_DIR", dir);
        return dir;
    }());
    if (!fixed->empty()) return *fixed;
    const ThreadLockGuard guard(*LocalLock);
    return RootDir->has_value() ? **RootDir : std::string(DefaultRootDir);
}

// --- values as texts

int FileRegistry::getRaw(const std::string& key, int type, std::string& value, bool lock) {
    Place place;
    int status = findValue(key, type, place);
    if (status == Done) status = missing(place);
    if (status != Done) return status;

    const auto read = [&] {
        value = readFile(place.file);
        return Done;
    };
    return attempt(Failed, [&] { return lock ? underLock(place.directory, read) : read(); });
}

int FileRegistry::setRaw(const std::string& key, int type, const std::string& value, bool lock) {
    Place place;
    int status = findValue(key, type, place);
    if (status == NoSuchKey) return InvalidKey;
    if (status == Done) status = makeDirectory(place.directory);
    if (status != Done) return status;

    const auto write = [&] { return writeFile(place.file, value); };
    return attempt(Failed, [&] { return lock ? underLock(place.directory, write) : write(); });
}

// --- values

int FileRegistry::get(const std::string& key, int& value, bool lock) {
    return getValue(key, value, lock);
}

int FileRegistry::get(const std::string& key, unsigned int& value, bool lock) {
    return getValue(key, value, lock);
}

int FileRegistry::get(const std::string& key, long long& value, bool lock) {
    return getValue(key, value, lock);
}

int FileRegistry::get(const std::string& key, unsigned long long& value, bool lock) {
    return getValue(key, value, lock);
}

int FileRegistry::get(const std::string& key, double& value, bool lock) {
    return getValue(key, value, lock);
}

int FileRegistry::get(const std::string& key, std::string& value, bool lock) {
    return getValue(key, value, lock);
}

int FileRegistry::get(const std::string& key, std::list<std::string>& value) {
    return getValue(key, value, false);
}

int FileRegistry::set(const std::string& key, int value) {
    return setValue(key, value);
}

int FileRegistry::set(const std::string& key, unsigned int value) {
    return setValue(key, value);
}

int FileRegistry::set(const std::string& key, long long value) {
    return setValue(key, value);
}

int FileRegistry::set(const std::string& key, unsigned long long value) {
    return setValue(key, value);
}

int FileRegistry::set(const std::string& key, double value) {
    return setValue(key, value);
}

int FileRegistry::set(const std::string& key, const std::string& value) {
    return setValue(key, value);
}

int FileRegistry::set(const std::string& key, const std::list<std::string>& value) {
    return setValue(key, value);
}

int FileRegistry::modify(const std::string& key, int delta) {
    return modifyValue(key, delta);
}

int FileRegistry::modify(const std::string& key, unsigned int delta) {
    return modifyValue(key, delta);
}

int FileRegistry::modify(const std::string& key, long long delta) {
    return modifyValue(key, delta);
}

int FileRegistry::modify(const std::string& key, unsigned long long delta) {
    return modifyValue(key, delta);
}

int FileRegistry::modify(const std::string& key, double delta) {
    return modifyValue(key, delta);
}

// --- keys

int FileRegistry::getSubKeys(const std::string& key, std::set<std::string>& subKeys) {
    Place place;
    if (const int status = findKey(key, place); status != Done) return status;
    if (!DirTools::exists(place.directory)) return NoSuchKey;
    return attempt(Failed, [&] {
        subKeys = DirTools::getSubDirs(place.directory);
        return Done;
    });
}

int FileRegistry::removeKey(const std::string& key) {
    Place place;
    if (const int status = findKey(key, place); status != Done) return status;
    if (isReachedByLink(place)) return Failed;
    // Not the ten seconds once more.
    if (removeDirContents(place.directory) == NotLocked) return NotLocked;
    return removeDir(place.directory);
}

int FileRegistry::removeDir(const std::string& path) {
    return removal(path, [&path] { DirTools::remove(path, DirTools::RemoveRecursive); });
}

int FileRegistry::removeDirContents(const std::string& path) {
    return removal(path, [&path] { DirTools::clear(path); });
}

}  // namespace TarvikCorelib
