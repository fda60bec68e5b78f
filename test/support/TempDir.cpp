#include "test/support/TempDir.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace tarvik_test {

namespace fs = std::filesystem;

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TempDir::TempDir() {
    directory = (fs::temp_directory_path() / "tarvik-test-XXXXXX").string();
    if (mkdtemp(directory.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), directory);
    }
}

TempDir::~TempDir() {
    std::error_code ignored;
    fs::remove_all(directory, ignored);
}

std::string TempDir::write(const std::string& relativeName, const std::string& bytes) const {
    const fs::path target = fs::path(directory) / relativeName;
    fs::create_directories(target.parent_path());
    std::ofstream file(target, std::ios::binary);
    file << bytes;
    file.close();
    if (!file) throw std::runtime_error("cannot write " + target.string());
    return target.string();
}

}  // namespace tarvik_test
