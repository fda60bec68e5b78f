// Random calls of the registry against a model of its directories and files.

#include "libraries/corelib/source/services/FileRegistry.h"
#include "libraries/corelib/source/text/StringTools.h"
#include "libraries/filelib/source/path/PathTools.h"
#include "test/support/ScopedEnv.h"
#include "test/support/TempDir.h"

#include <array>
#include <filesystem>
#include <list>
#include <map>
#include <set>
#include <string>

#include "fuzz/Feed.h"

namespace {

namespace fs = std::filesystem;
namespace Texts = TarvikCorelib::StringTools;
using fuzz::check;
using fuzz::Feed;
using Registry = TarvikCorelib::FileRegistry;
using TarvikFilelib::PathTools;

// The contents of files. Directories end in "/" and have none.
using Model = std::map<std::string, std::string>;

Model found(const std::string& directory) {
    Model model;
    for (const auto& entry : fs::recursive_directory_iterator(directory)) {
        const std::string path = entry.path().string().substr(directory.size() + 1);
        const bool isDir = entry.is_directory();
        model[path + (isDir ? "/" : "")] = isDir ? "" : tarvik_test::readFile(entry.path());
    }
    return model;
}

// Where its directory must be; empty if it is no key.
std::string pathOf(const std::string& key) {
    std::string path = "root";
    try {
        for (const std::string& element : PathTools::split(PathTools::getValid(key, 55))) {
            if (element == "." || element == "..") return {};
            if (!element.empty()) path += "/" + element;
        }
    } catch (const PathTools::Contract_InvalidPath&) {
        return {};
    }
    return path == "root" ? "" : path;
}

// One key, and what the calls have to answer.
struct Key {
    std::string name;
    Model& model;
    std::string path = pathOf(name);

    [[nodiscard]] std::string file(int type) const { return path + "/" + Registry::mapType(type); }
    [[nodiscard]] int find() const { return name.empty() ? 2 : model.contains(path + "/") ? 0 : 5; }
    [[nodiscard]] int read(int type) const {
        if (type > 6 || find() != 0) return type > 6 ? 1 : find();
        return model.contains(file(type)) ? 0 : 6;
    }
    [[nodiscard]] int write(int type, const std::string& text) const {
        if (type > 6 || path.empty()) return type > 6 ? 1 : 2;
        for (std::size_t end = 0; end != std::string::npos;) {
            end = path.find('/', end + 1);
            if (model.contains(path.substr(0, end))) return 2;
            model[path.substr(0, end) + "/"];
        }
        if (model.contains(file(type) + "/")) return 4;
        model[file(type)] = text + "\n";
        return 0;
    }
};

void callRaw(const Key& key, int type, std::string text, Feed& feed) {
    const bool locks = feed.byte() % 2 != 0;
    if (feed.byte() % 2 == 0)
        check(Registry::setRaw(key.name, type, text, locks) == key.write(type, text));
    const std::string expected = key.read(type) == 0 ? key.model[key.file(type)] : text + "\n";
    check(Registry::getRaw(key.name, type, text, locks) == key.read(type));
    check(text + "\n" == expected);
}

template <class Number>
void callNumber(const Key& key, int type, Feed& feed, Number (*fromText)(std::string_view)) {
    const auto operand = static_cast<Number>(feed.number());
    const std::string text = Texts::toString(operand);
    if (feed.byte() % 2 == 0)
        return check(Registry::set(key.name, operand) == key.write(type, text));
    Number value = operand;
    check(Registry::get(key.name, value) == key.read(type));
    check(Registry::modify(key.name, operand) == key.read(type));
    if (key.read(type) != 0) return check(value == operand);
    check(value == fromText(key.model[key.file(type)]));
    __builtin_add_overflow(value, operand, &value);
    check(key.write(type, Texts::toString(value)) == 0);
}

// What comes back is what was set, and the file has one line.
template <class Value>
void callText(const Key& key, int type, const Value& value) {
    const int status = Registry::set(key.name, value);
    check(status == key.write(type, {}));
    if (status != 0) return;
    Value got;
    std::string raw;
    check(Registry::get(key.name, got) == 0 && got == value);
    check(Registry::getRaw(key.name, type, raw, false) == 0);
    check(raw.find('\n') == std::string::npos && key.write(type, raw) == 0);
}

void listSubKeys(const Key& key) {
    std::set<std::string> names;
    check(Registry::getSubKeys(key.name, names) == key.find());
    const std::string front = key.path + "/";
    for (const auto& [path, content] : key.model)
        if (path.starts_with(front) && path.find('/', front.size()) == path.size() - 1)
            check(names.erase(path.substr(front.size(), path.size() - 1 - front.size())) == 1);
    check(names.empty());
}

void removeKey(const Key& key) {
    check(Registry::removeKey(key.name) == key.find());
    if (!key.path.empty())
        std::erase_if(key.model,
                      [&](auto& file) { return file.first.starts_with(key.path + "/"); });
}

void callAny(const Key& key, int what, Feed& feed) {
    const std::string text = feed.text();
    switch (what) {
    case 1: return callNumber<int>(key, 1, feed, Texts::toInt32);
    case 2: return callNumber<unsigned int>(key, 2, feed, Texts::toUInt32);
    case 3: return callNumber<long long>(key, 3, feed, Texts::toInt64);
    case 4: return callNumber<unsigned long long>(key, 4, feed, Texts::toUInt64);
    case 5: return callText(key, 0, text);
    case 6: return callText(key, 6, std::list<std::string>{text, feed.text() + "."});
    case 7: return callText(key, 5, static_cast<double>(feed.byte()) / 2);
    case 8: return listSubKeys(key);
    case 9: return removeKey(key);
    default: return callRaw(key, feed.byte() % 8, text, feed);
    }
}

// The registry leaves one for each key.
void removeLock(std::string directory) {
    for (char& c : directory)
        if (c == '/' || c == ':') c = '_';
    fs::remove("/tmp/lock_" + directory);
}

}  // namespace

// For each call a key, one of a few or any other, and what the call needs.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::array usual{"a", "a/b", "a/int32", "a/int32.cpytmp"};
    constexpr std::size_t longest = 150;  // A longer name may be too long for a lock.
    // In memory, if there is such a place: the registry waits for the disk.
    static const tarvik_test::ScopedEnv memory("TMPDIR",
                                               fs::is_directory("/dev/shm") ? "/dev/shm" : "/tmp");
    static const tarvik_test::TempDir place;
    static const std::string root = place.path() + "/root";
    fs::remove_all(root);
    fs::create_directory(root);
    Registry::setRootDir(root);

    Model model{{"root/", ""}};
    Feed feed(data, size);
    for (int calls = 0; calls < 16 && !feed.isEmpty(); ++calls) {
        const std::size_t which = feed.byte() % 8;
        const Key key{which < usual.size() ? usual.at(which) : feed.text(), model};
        if (key.path.size() > longest) continue;
        callAny(key, feed.byte() % 10, feed);
        if (!key.path.empty()) removeLock(root + "/" + PathTools::getValid(key.name, 55));
    }
    check(found(place.path()) == model);
    return 0;
}
