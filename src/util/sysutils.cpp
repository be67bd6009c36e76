// The file finder: a child process lists a directory's files that match a pattern.
#include "util/sysutils.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <new>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "util/fdio.h"
#include "util/patmatch.h"

namespace alm {

int compare_filenames(const char* a, const char* b) {
    int c = std::strcmp(a, b);
    return (c > 0) - (c < 0);
}

int compare_filenames_reverse(const char* a, const char* b) { return compare_filenames(b, a); }

namespace {

bool set_cloexec(int fd) {
    int fl = fcntl(fd, F_GETFD);
    return fl != -1 && fcntl(fd, F_SETFD, fl | FD_CLOEXEC) != -1;
}

// Body of the listing child: collect, sort, write one path per line.
void list_directory(int wfd, const char* directory, const char* pattern, bool descending) {
    std::vector<std::string> kept;
    if (DIR* d = opendir(directory)) {
        std::string prefix(directory);
        if (prefix.empty() || prefix.back() != '/') prefix += '/';
        const int patlen = static_cast<int>(std::strlen(pattern));
        while (kept.size() < static_cast<std::size_t>(FIND_MAX_MATCHES)) {
            const dirent* e = readdir(d);
            if (e == nullptr) break;
            std::string path = prefix + e->d_name;
            if (c_patternmatch(path.c_str(), pattern, static_cast<int>(path.size()), patlen))
                kept.push_back(std::move(path));
        }
        closedir(d);
    }
    auto cmp = descending ? compare_filenames_reverse : compare_filenames;
    std::sort(kept.begin(), kept.end(), [cmp](const std::string& a, const std::string& b) {
        return cmp(a.c_str(), b.c_str()) < 0;
    });
    std::string out;
    for (const auto& k : kept) {
        out += k;
        out += '\n';
        if (out.size() >= 8192) {
            if (write_full(wfd, out.data(), out.size()) != 0) return;
            out.clear();
        }
    }
    write_full(wfd, out.data(), out.size());
}

[[noreturn]] void run_child(int wfd, const char* directory, const char* pattern, bool drop_ids,
                            bool descending) {
    if (drop_ids) {
        if (setuid(getuid()) != 0) _exit(-errno);
        if (setgid(getgid()) != 0) _exit(-errno);
    }
    // A reader that went away must end the child quietly, not by signal.
    std::signal(SIGPIPE, SIG_IGN);
    int status = 0;
    try {
        list_directory(wfd, directory, pattern, descending);
    } catch (const std::bad_alloc&) {
        status = 1;
    }
    close(wfd);
    _exit(status);
}

// Reads one line of at most FIND_LINE_MAX - 1 characters into buf, dropping
// the line end and whatever of an overlong line does not fit.
bool read_line(FILE* f, char* buf) {
    if (std::fgets(buf, FIND_LINE_MAX, f) == nullptr) return false;
    std::size_t n = std::strlen(buf);
    if (n > 0 && buf[n - 1] == '\n') {
        buf[n - 1] = '\0';
    } else {
        int c;
        while ((c = std::fgetc(f)) != EOF && c != '\n') {
        }
    }
    return true;
}

}  // namespace

int xeq_lscmd_caught_setuid(FindPipe& out, const char* directory, const char* pattern,
                            bool drop_ids, bool descending) {
    out = FindPipe{};
    int fds[2];
    if (pipe(fds) != 0) return errno;
    FILE* stream = fdopen(fds[0], "r");
    if (stream == nullptr) {
        int err = errno;
        close(fds[0]);
        close(fds[1]);
        return err;
    }
    if (!set_cloexec(fds[0]) || !set_cloexec(fds[1])) {
        int err = errno;
        std::fclose(stream);
        close(fds[1]);
        return err;
    }
    std::fflush(stdout);
    pid_t pid = fork();
    if (pid < 0) {
        int err = errno;
        std::fclose(stream);
        close(fds[1]);
        return err;
    }
    if (pid == 0) {
        close(fds[0]);
        run_child(fds[1], directory, pattern, drop_ids, descending);
    }
    close(fds[1]);
    out.stream = stream;
    out.pid = pid;
    return 0;
}

int xeq_closepipe(FindPipe& p) {
    if (p.stream != nullptr) std::fclose(p.stream);
    int status = -1;
    if (p.pid > 0) {
        while (waitpid(p.pid, &status, 0) < 0) {
            if (errno != EINTR) {
                status = -1;
                break;
            }
        }
    }
    p = FindPipe{};
    return status;
}

int uni_find_files(const char* fileset, int* filecount, short flags, void* userdata,
                   find_callback qualify, find_callback process) {
    if (filecount != nullptr) *filecount = 0;
    if (fileset == nullptr || process == nullptr) return EINVAL;

    std::string directory;
    const char* slash = std::strrchr(fileset, '/');
    if (slash == nullptr)
        directory = fileset;
    else if (slash == fileset)
        directory = "/";
    else
        directory.assign(fileset, static_cast<std::size_t>(slash - fileset));

    FindPipe child;
    int err = xeq_lscmd_caught_setuid(child, directory.c_str(), fileset,
                                      (flags & FIND_KEEP_IDS) == 0, (flags & FIND_DESCENDING) != 0);
    if (err != 0) return err;

    enum class Stop { end, error, normal } stop = Stop::end;
    char line[FIND_LINE_MAX];
    while (read_line(child.stream, line)) {
        if (qualify != nullptr) {
            short q = qualify(line, userdata);
            if (q == -1) {
                stop = Stop::error;
                break;
            }
            if (q != 0) continue;
        }
        short r = process(line, userdata);
        if (r == -1) {
            stop = Stop::error;
            break;
        }
        if (r != 0) {
            stop = Stop::normal;
            break;
        }
    }

    int result = err;
    if (stop == Stop::error)
        result = std::feof(child.stream) ? 0 : err;
    else if (stop == Stop::normal)
        result = err != 0 ? err : -1;
    xeq_closepipe(child);
    return result;
}

}  // namespace alm
