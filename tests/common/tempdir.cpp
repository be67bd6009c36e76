#include "common/tempdir.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "common/files.h"

namespace alm::test {

namespace fs = std::filesystem;

TempDir::TempDir() : owner_(::getpid()) {
    std::string tmpl = (fs::temp_directory_path() / "almtest-XXXXXX").string();
    if (::mkdtemp(tmpl.data()) == nullptr) throw std::runtime_error("cannot make a directory like " + tmpl);
    path_ = tmpl;
}

TempDir::~TempDir() {
    if (::getpid() != owner_) return;
    std::error_code ec;
    // A test may have taken away the owner's rights on the directory itself.
    fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ec);
    fs::remove_all(path_, ec);
}

std::string TempDir::write(const std::string& rel, std::string_view bytes) const {
    const fs::path p = file(rel);
    fs::create_directories(p.parent_path());
    write_file(p.string(), bytes);
    return p.string();
}

std::string TempDir::write(const std::string& rel, const std::vector<unsigned char>& bytes) const {
    return write(rel, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

std::vector<std::string> TempDir::entries() const {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(path_)) names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace alm::test
