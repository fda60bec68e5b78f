#include "libraries/corelib/source/system/FileTools.h"

namespace TarvikCorelib {

const std::string& FileTools::fileDelimiter() {
    static const std::string delimiter(1, DirSep);
    return delimiter;
}

const std::wstring& FileTools::fileDelimiterW() {
    static const std::wstring delimiter(1, DirSep);
    return delimiter;
}

const std::string& FileTools::BOM() {
    static const std::string mark = "\xEF\xBB\xBF";
    return mark;
}

const std::wstring& FileTools::BOMW() {
    static const std::wstring mark = L"\uFEFF";
    return mark;
}

}  // namespace TarvikCorelib
