/// The bytes of plain files.
#pragma once

#include <string>

namespace TarvikCorelib {

/// Appends all bytes of a plain file, or of the one that a link leads to. False if it could not be
/// read to its end.
bool readContent(const std::string& path, std::string& content);

/// Whether both could be read and are equal, byte by byte.
bool haveSameContent(const std::string& first, const std::string& second);

}  // namespace TarvikCorelib
