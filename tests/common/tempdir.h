// A fresh private directory for a test, removed with everything below it
// when the object goes.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace alm::test {

class TempDir {
public:
    // Throws std::runtime_error when no directory can be made.
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return path_; }
    std::string file(const std::string& rel) const { return path_ + "/" + rel; }
    // Writes a file below the directory, making the directories it needs;
    // returns its path. Throws std::runtime_error when it cannot.
    std::string write(const std::string& rel, std::string_view bytes) const;
    std::string write(const std::string& rel, const std::vector<unsigned char>& bytes) const;
    // Names in the directory, sorted, without "." and "..".
    std::vector<std::string> entries() const;

private:
    std::string path_;
    pid_t owner_;  // a forked child that leaves must not remove its parent's directory
};

}  // namespace alm::test
