// Path qualification under the home directory and the small path functions around it.
#include "util/stdfuncs.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "util/strutil.h"

namespace alm {

char QUAL_HOMEDIR[QUAL_PATH_MAX + 1];
int UseQualHomedir = 0;
char euid_dir[QUAL_PATH_MAX + 1];

namespace {

constexpr int MAX_LINK_HOPS = 10;

bool isAsciiLetter(char ch) { return (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z'); }

bool isSeparator(char ch) { return ch == '/' || ch == '\\'; }

// Writes prefix "/" path over path, which has capacity bytes.
short prefixPath(char* path, std::size_t length, const char* prefix, std::size_t capacity) {
    const std::size_t plen = std::strlen(prefix);
    const std::size_t total = plen + 1 + length;
    if (total + 1 > capacity) return -1;
    std::memmove(path + plen + 1, path, length + 1);
    std::memcpy(path, prefix, plen);
    path[plen] = '/';
    return static_cast<short>(total);
}

bool currentDirectory(std::string& out) {
    char buffer[4096];
    if (!::getcwd(buffer, sizeof buffer)) return false;
    out = buffer;
    return true;
}

// The first executable regular file named name along PATH, made absolute.
bool searchPath(const char* name, std::string& found) {
    const char* path = std::getenv("PATH");
    if (!path) return false;
    std::string cwd;
    const bool haveCwd = currentDirectory(cwd);
    const char* start = path;
    for (;;) {
        const char* end = std::strchr(start, ':');
        std::string dir(start, end ? static_cast<std::size_t>(end - start) : std::strlen(start));
        while (dir.size() >= 2 && dir.compare(0, 2, "./") == 0) dir.erase(0, 2);
        bool usable = true;
        if (dir.empty() || dir == ".") {
            usable = haveCwd;
            dir = cwd;
        } else if (dir[0] != '/') {
            usable = haveCwd;
            dir = cwd + "/" + dir;
        }
        if (usable) {
            std::string candidate = dir + "/" + name;
            if (candidate.size() <= static_cast<std::size_t>(QUAL_PATH_MAX)) {
                char buffer[QUAL_PATH_MAX + 1];
                std::memcpy(buffer, candidate.c_str(), candidate.size() + 1);
                if (resolve_links(buffer, X_OK)) {
                    // A relative link target left a relative path.
                    found = buffer[0] == '/' || !haveCwd ? std::string(buffer) : cwd + "/" + buffer;
                    return true;
                }
            }
        }
        if (!end) return false;
        start = end + 1;
    }
}

}  // namespace

void setUseQualHome(int on) { UseQualHomedir = on; }

short qual_filename(char* path, short limit) {
    const std::size_t capacity = static_cast<std::size_t>(limit > 0 ? limit : 0) + 1;
    return qual_filename(path, limit, capacity);
}

short qual_filename(char* path, short limit, std::size_t capacity) {
    short length = strlento(path, limit);
    path[length] = '\0';
    length = striptrailing(path);

    if (isSeparator(path[0])) return length;
    if (isAsciiLetter(path[0]) && path[1] == ':' && isSeparator(path[2])) return length;

    const auto n = static_cast<std::size_t>(length);
    if (euid_dir[0] != '\0') {
        if (n + std::strlen(euid_dir) + 1 > static_cast<std::size_t>(limit)) return -1;
        return prefixPath(path, n, euid_dir, capacity);
    }
    if (!UseQualHomedir || QUAL_HOMEDIR[0] == '\0') return -2;
    return prefixPath(path, n, QUAL_HOMEDIR, capacity);
}

bool is_absolute_path(const char* path) { return path[0] == '/'; }

bool is_relative_path(const char* path) { return std::strchr(path, '/') != nullptr; }

bool resolve_links(char* path, int mode) {
    struct stat st;
    for (int hop = 0; hop < MAX_LINK_HOPS; ++hop) {
        if (::lstat(path, &st) != 0) return false;
        if (!S_ISLNK(st.st_mode)) break;
        char target[QUAL_PATH_MAX + 1];
        const ssize_t n = ::readlink(path, target, QUAL_PATH_MAX);
        if (n < 0 || n >= QUAL_PATH_MAX) return false;
        target[n] = '\0';
        // The target replaces the path as it is written: a relative target
        // is not joined to the link's directory, so it is then looked up from
        // the current directory, which may name another file or none.
        std::memcpy(path, target, static_cast<std::size_t>(n) + 1);
    }
    if (::lstat(path, &st) != 0 || !S_ISREG(st.st_mode)) return false;
    return ::access(path, mode) == 0;
}

void mkhomedir(char* path) {
    for (int cut = 0; cut < 2; ++cut) {
        char* slash = std::strrchr(path, '/');
        if (!slash) return;
        *slash = '\0';
    }
}

int qual_file(const char* progpath, char* home, std::size_t size) {
    if (size == 0) return -1;
    home[0] = '\0';
    if (!progpath || progpath[0] == '\0') return -1;

    std::string result;
    if (progpath[0] == '/') {
        result = progpath;
    } else if (const char* env = std::getenv("COBALTHOME")) {
        // Taken as it stands: it names the home itself, not the program.
        if (std::strlen(env) + 1 > size) return -1;
        std::memcpy(home, env, std::strlen(env) + 1);
        return static_cast<int>(std::strlen(home));
    } else if (std::strncmp(progpath, "./", 2) == 0) {
        if (!currentDirectory(result)) return -1;
        result += "/";
        result += progpath + 2;
    } else if (std::strchr(progpath, '/')) {
        if (!currentDirectory(result)) return -1;
        result += "/";
        result += progpath;
    } else if (!searchPath(progpath, result)) {
        return -1;
    }

    if (result.size() + 1 > size) return -1;
    std::memcpy(home, result.c_str(), result.size() + 1);
    mkhomedir(home);
    return static_cast<int>(std::strlen(home));
}

}  // namespace alm
