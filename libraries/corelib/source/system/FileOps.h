/// Streams of the C library, opened, read and written in bytes or in wide characters.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace TarvikCorelib {

/// Static operations on a `FILE*`. The caller owns what an open answers and hands it to `closeF`
/// once; between the two any operation of the C library may be used on it too.
///
/// Narrow texts are bytes. A wide character is two bytes in the file, the low one first; wide
/// reads and writes know no mark at the front of a file. Each operation has its stream to itself,
/// so threads may share one. Failures are answered, with `errno` as the C library leaves it;
/// nothing throws but exhausted memory.
class FileOps {
public:
    FileOps() = delete;

    // --- opening and closing. Null on failure; a blank path is one, and so is a name that the
    // system cannot take. Wide paths are converted by the process locale. Streams are marked as by
    // `markHandle`.

    static std::FILE* openFIn(const std::string& path);  ///< As "rb".
    static std::FILE* openFIn(const std::wstring& path);
    static std::FILE* openFOut(const std::string& path);  ///< As "wb".
    static std::FILE* openFOut(const std::wstring& path);
    static std::FILE* openFAppend(const std::string& path);  ///< As "ab".
    static std::FILE* openFAppend(const std::wstring& path);
    /// For reading and writing: "w+b" if `truncate`, else "a+b" if `append`, else "r+b", which
    /// needs a file that exists.
    static std::FILE* openFIO(const std::string& path, bool truncate, bool append);
    static std::FILE* openFIO(const std::wstring& path, bool truncate, bool append);
    /// Closes in any case. False for null, and if what was still to be written could not be.
    static bool closeF(std::FILE* stream);
    /// Keeps the descriptor from programs that this process starts. On failure one line on standard
    /// error says so and the stream stays as it was. Does nothing to null.
    static void markHandle(std::FILE* stream);

    // --- reading. False if nothing was read: at the end, on failure (ask `std::ferror` which) and
    // from null. `ignoreCR` drops carriage returns.
    //
    // Quirk: on a stream that is marked, each read first seeks to where the stream stands. So it
    // may follow a write at once and sees what was added behind the end, and `ungetc` only steps
    // back to the file's own byte. Before a write that follows a read the caller seeks, as C asks.

    /// One character; `c` is left alone if there is none.
    static bool readFC(std::FILE* stream, char& c, bool ignoreCR = false);
    static bool readFWC(std::FILE* stream, wchar_t& c, bool ignoreCR = false);
    /// At most `count` characters, of which the dropped ones are none. Replaces `out`.
    static bool readFStr(std::FILE* stream, std::string& out, std::size_t count,
                         bool ignoreCR = false);
    static bool readFWStr(std::FILE* stream, std::wstring& out, std::size_t count,
                          bool ignoreCR = false);
    /// All up to `stop`, which is read but not kept, or up to the end. Replaces `out`. With `stop`
    /// at once the text is empty and the answer true.
    static bool readFUntil(std::FILE* stream, std::string& out, char stop, bool ignoreCR = false);
    static bool readFWUntil(std::FILE* stream, std::wstring& out, wchar_t stop,
                            bool ignoreCR = false);

    // --- writing. False for null, and if the stream did not take it all. What it took may still
    // fail on the way to the file, which the next operations or `closeF` tell.

    static bool writeFC(std::FILE* stream, char c);
    static bool writeFWC(std::FILE* stream, wchar_t c);
    static bool writeFStr(std::FILE* stream, std::string_view text);
    static bool writeFWStr(std::FILE* stream, std::wstring_view text);

    // --- wide texts as the bytes that are written and read. Characters above 0xFFFF are written as
    // a surrogate pair, and what is no character at all, above 0x10FFFF, as 0xFFFD. Half a
    // character at the end is dropped.

    static std::string toUTF16LE(std::wstring_view text);
    /// Joins pairs again. The wide reads take two bytes a character and leave them apart.
    static std::wstring fromUTF16LE(std::string_view bytes);
};

}  // namespace TarvikCorelib
