#include "libraries/corelib/source/system/FileOps.h"

#include "libraries/corelib/source/system/FileNames.h"
#include "libraries/corelib/source/text/StringToolsCharacters.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace TarvikCorelib {

namespace {

using StringTools::Text;

constexpr const char* notMarked = "Failed to set FD_CLOEXEC\n";

// --- opening

// Modes have an "e", so that no program that another thread starts gets the descriptor before it
// is marked. The system has no file of an empty name.
template <class Char>
std::FILE* opened(const Text<Char>& path, const char* mode) {
    std::FILE* const stream = fopen64(systemName(path).c_str(), mode);
    FileOps::markHandle(stream);
    return stream;
}

const char* updateMode(bool truncate, bool append) {
    if (truncate) return "w+be";
    return append ? "a+be" : "r+be";
}

// --- characters as bytes

// How many bytes a character has in a file.
template <class Char>
constexpr std::size_t width = 1;
template <>
constexpr std::size_t width<wchar_t> = 2;

template <class Char>
Char charAt(const char* bytes) {
    if constexpr (width<Char> == 1)
        return *bytes;
    else
        return static_cast<unsigned char>(bytes[0]) | static_cast<unsigned char>(bytes[1]) << 8;
}

constexpr wchar_t firstOfPair = 0xD800;
constexpr wchar_t secondOfPair = 0xDC00;
constexpr wchar_t firstPaired = 0x10000;
constexpr int halfBits = 10;
constexpr wchar_t halfMask = (1 << halfBits) - 1;

bool isHalf(wchar_t c, wchar_t which) {
    return (c & ~halfMask) == which;
}

void addUnit(wchar_t unit, std::string& bytes) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
}

void addBytes(wchar_t c, std::string& bytes) {
    if (static_cast<std::uint32_t>(c) > 0x10FFFF) return addUnit(0xFFFD, bytes);
    if (c < firstPaired) return addUnit(c, bytes);
    addUnit(firstOfPair + ((c - firstPaired) >> halfBits), bytes);
    addUnit(secondOfPair + (c & halfMask), bytes);
}

// --- reading

// Gives the operation its stream alone, in a position to read.
class ReadTurn {
public:
    explicit ReadTurn(std::FILE* stream) : stream(stream) {
        flockfile(stream);
        // Between a write and a read C asks for a seek. A pipe cannot and need not do it. A stream
        // without a descriptor counts as marked.
        constexpr int lowBits = 3;
        if ((fcntl(fileno(stream), F_GETFD) & lowBits) != 0)
            static_cast<void>(fseeko64(stream, 0, SEEK_CUR));
    }
    ReadTurn(const ReadTurn&) = delete;
    ReadTurn& operator=(const ReadTurn&) = delete;
    ~ReadTurn() { funlockfile(stream); }

    template <class Char>
    bool next(Char& c, bool ignoreCR) {
        std::array<char, width<Char>> bytes{};
        Char found{};
        do {
            for (char& byte : bytes) {
                const int read = getc_unlocked(stream);
                if (read == EOF) return false;
                byte = static_cast<char>(read);
            }
            found = charAt<Char>(bytes.data());
        } while (ignoreCR && found == Char('\r'));
        c = found;
        return true;
    }

private:
    std::FILE* stream;
};

template <class Char>
bool readCharacter(std::FILE* stream, Char& c, bool ignoreCR) {
    return stream != nullptr && ReadTurn(stream).next(c, ignoreCR);
}

// Room is made for what is there, never for all of `count`, which may be far more.
template <class Char>
bool readText(std::FILE* stream, Text<Char>& out, std::size_t count, bool ignoreCR) {
    out.clear();
    if (stream == nullptr) return false;
    const ReadTurn turn(stream);
    constexpr std::size_t most = 4096;
    std::array<char, most * width<Char>> block;  // NOLINT(*-member-init): it is filled by reading.
    std::size_t wanted = 0;
    std::size_t found = 0;
    do {
        wanted = std::min(count - out.size(), most);
        found = std::fread(block.data(), width<Char>, wanted, stream);
        const std::size_t start = out.size();
        out.resize(start + found);
        for (std::size_t i = 0; i < found; ++i)
            out[start + i] = charAt<Char>(block.data() + i * width<Char>);
        if (ignoreCR)
            out.erase(std::remove(out.begin() + static_cast<std::ptrdiff_t>(start), out.end(),
                                  Char('\r')),
                      out.end());
    } while (found == wanted && out.size() < count);
    return !out.empty();
}

template <class Char>
bool readUntil(std::FILE* stream, Text<Char>& out, Char stop, bool ignoreCR) {
    out.clear();
    if (stream == nullptr) return false;
    ReadTurn turn(stream);
    for (Char c{}; turn.next(c, ignoreCR); out.push_back(c)) {
        if (c == stop) return true;
    }
    return !out.empty();
}

}  // namespace

// --- opening and closing

std::FILE* FileOps::openFIn(const std::string& path) {
    return opened(path, "rbe");
}

std::FILE* FileOps::openFIn(const std::wstring& path) {
    return opened(path, "rbe");
}

std::FILE* FileOps::openFOut(const std::string& path) {
    return opened(path, "wbe");
}

std::FILE* FileOps::openFOut(const std::wstring& path) {
    return opened(path, "wbe");
}

std::FILE* FileOps::openFAppend(const std::string& path) {
    return opened(path, "abe");
}

std::FILE* FileOps::openFAppend(const std::wstring& path) {
    return opened(path, "abe");
}

std::FILE* FileOps::openFIO(const std::string& path, bool truncate, bool append) {
    return opened(path, updateMode(truncate, append));
}

std::FILE* FileOps::openFIO(const std::wstring& path, bool truncate, bool append) {
    return opened(path, updateMode(truncate, append));
}

bool FileOps::closeF(std::FILE* stream) {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the caller was the owner.
    return stream != nullptr && std::fclose(stream) == 0;
}

void FileOps::markHandle(std::FILE* stream) {
    if (stream == nullptr) return;
    const int file = fileno(stream);
    const int flags = fcntl(file, F_GETFD);
    if (flags == -1 || fcntl(file, F_SETFD, flags | FD_CLOEXEC) == -1)
        static_cast<void>(std::fputs(notMarked, stderr));
}

// --- reading

bool FileOps::readFC(std::FILE* stream, char& c, bool ignoreCR) {
    return readCharacter(stream, c, ignoreCR);
}

bool FileOps::readFWC(std::FILE* stream, wchar_t& c, bool ignoreCR) {
    return readCharacter(stream, c, ignoreCR);
}

bool FileOps::readFStr(std::FILE* stream, std::string& out, std::size_t count, bool ignoreCR) {
    return readText(stream, out, count, ignoreCR);
}

bool FileOps::readFWStr(std::FILE* stream, std::wstring& out, std::size_t count, bool ignoreCR) {
    return readText(stream, out, count, ignoreCR);
}

bool FileOps::readFUntil(std::FILE* stream, std::string& out, char stop, bool ignoreCR) {
    return readUntil(stream, out, stop, ignoreCR);
}

bool FileOps::readFWUntil(std::FILE* stream, std::wstring& out, wchar_t stop, bool ignoreCR) {
    return readUntil(stream, out, stop, ignoreCR);
}

// --- writing

bool FileOps::writeFC(std::FILE* stream, char c) {
    return writeFStr(stream, {&c, 1});
}

bool FileOps::writeFWC(std::FILE* stream, wchar_t c) {
    return writeFWStr(stream, {&c, 1});
}

bool FileOps::writeFStr(std::FILE* stream, std::string_view text) {
    return stream != nullptr && std::fwrite(text.data(), 1, text.size(), stream) == text.size();
}

bool FileOps::writeFWStr(std::FILE* stream, std::wstring_view text) {
    return writeFStr(stream, toUTF16LE(text));
}

// --- wide texts as bytes

std::string FileOps::toUTF16LE(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size() * width<wchar_t>);
    for (const wchar_t c : text)
        addBytes(c, bytes);
    return bytes;
}

std::wstring FileOps::fromUTF16LE(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size() / width<wchar_t>);
    for (; bytes.size() >= width<wchar_t>; bytes.remove_prefix(width<wchar_t>)) {
        const auto c = charAt<wchar_t>(bytes.data());
        const bool isPair =
            !text.empty() && isHalf(text.back(), firstOfPair) && isHalf(c, secondOfPair);
        if (isPair)
            text.back() = firstPaired + ((text.back() & halfMask) << halfBits) + (c & halfMask);
        else
            text.push_back(c);
    }
    return text;
}

}  // namespace TarvikCorelib
