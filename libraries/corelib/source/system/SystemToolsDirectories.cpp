// The directories that the words name.

#include "libraries/corelib/source/process/EnvTools.h"
#include "libraries/corelib/source/system/SystemTools.h"
#include "libraries/corelib/source/text/StringToolsEdit.h"

#include <sys/stat.h>

#include <array>
#include <string_view>

namespace TarvikCorelib {

namespace {

enum class Place { Home, Temporary, Fixed };

struct Directory {
    std::string_view word;
    SystemTools::DirCode code;
    Place place;
    const char* path = "";
};

constexpr auto directories = std::to_array<Directory>({
    {"cur_personal", SystemTools::DirCurPersonal, Place::Home},
    {"cur_desktop", SystemTools::DirCurDesktop, Place::Temporary},
    {"cur_appdata", SystemTools::DirCurAppData, Place::Temporary},
    {"cur_startmenu", SystemTools::DirCurStartMenu, Place::Temporary},
    {"cur_startmenu_programs", SystemTools::DirCurStartMenuPrograms, Place::Temporary},
    {"cur_startmenu_startup", SystemTools::DirCurStartMenuStartup, Place::Temporary},
    {"cur_temp", SystemTools::DirCurTemp, Place::Temporary},
    {"all_documents", SystemTools::DirAllDocuments, Place::Home},
    {"all_startmenu", SystemTools::DirAllStartMenu, Place::Home},
    {"all_startmenu_programs", SystemTools::DirAllStartMenuPrograms, Place::Home},
    {"all_startmenu_startup", SystemTools::DirAllStartMenuStartup, Place::Home},
    {"all_desktop", SystemTools::DirAllDesktop, Place::Home},
    {"all_appdata", SystemTools::DirAllAppData, Place::Home},
    {"sys_fonts", SystemTools::DirSysFonts, Place::Fixed, "/"},
    {"sys_windows", SystemTools::DirSysWindows, Place::Fixed, "/"},
    {"sys_system", SystemTools::DirSysSystem, Place::Fixed, "/"},
    {"sys_programs", SystemTools::DirSysPrograms, Place::Fixed, "/sbin"},
    {"sys_programs_common", SystemTools::DirSysProgramsCommon, Place::Fixed, "/bin"},
    {"sys_temp", SystemTools::DirSysTemp, Place::Fixed, "/tmp"},
});

bool isDirectory(const std::string& path) {
    struct stat properties {};
    return stat(path.c_str(), &properties) == 0 && S_ISDIR(properties.st_mode);
}

std::string homeDir() {
    std::string home;
    EnvTools::get("HOME", home);
    return home;
}

// One of the user's own, if there is one.
std::string temporaryDir() {
    const std::string own = homeDir() + "/tmp";
    return isDirectory(own) ? own : "/tmp";
}

}  // namespace

SystemTools::DirCode SystemTools::mapDirCode(const std::string& word) {
    std::string wanted = word;
    StringTools::lower(wanted);
    for (const Directory& row : directories) {
        if (row.word == wanted) return row.code;
    }
    return DirUnknown;
}

std::string SystemTools::obtainDir(DirCode code) {
    for (const Directory& row : directories) {
        if (row.code != code) continue;
        if (row.place == Place::Fixed) return row.path;
        return row.place == Place::Home ? homeDir() : temporaryDir();
    }
    return {};
}

}  // namespace TarvikCorelib
