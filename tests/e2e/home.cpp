#include "e2e/home.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "common/files.h"
#include "common/installhome.h"
#include "common/runprogram.h"

namespace alm::filestest {

namespace fs = std::filesystem;

TempHome::TempHome() {
    std::error_code ec;
    ok_ = test::install_home(path(), {"almread"}) && fs::create_directories(file("plans"), ec) &&
          fs::create_directories(file("schedlog"), ec);
}

bool TempHome::touch(const std::string& rel) const {
    const int fd = ::open(file(rel).c_str(), O_CREAT | O_WRONLY, 0644);
    if (fd < 0) return false;
    ::close(fd);
    return true;
}

std::string catalogText(const std::string& source, int set, int number,
                        const std::vector<std::string>& args) {
    std::ifstream in(source);
    std::string line;
    int current = 0;
    while (std::getline(in, line)) {
        if (line.rfind("$set ", 0) == 0) {
            current = std::atoi(line.c_str() + 5);
            continue;
        }
        if (current != set || line.empty() || line[0] == '$') continue;
        std::istringstream words(line);
        int n = -1;
        if (!(words >> n) || n != number) continue;
        std::string text = line.substr(line.find(' ') + 1);
        std::string out;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '!' && i + 1 < text.size() && text[i + 1] >= '1' && text[i + 1] <= '9') {
                const auto k = static_cast<std::size_t>(text[i + 1] - '1');
                if (k < args.size()) out += args[k];
                ++i;
            } else {
                out += text[i];
            }
        }
        return out;
    }
    return {};
}

LockInfo probeLock(const std::string& path, off_t start, off_t length) {
    int answer[2];
    LockInfo info;
    if (pipe(answer) != 0) return info;
    const pid_t pid = fork();
    if (pid == 0) {
        close(answer[0]);
        LockInfo found;
        const int fd = ::open(path.c_str(), O_RDWR);
        struct flock fl {};
        fl.l_type = F_WRLCK;
        fl.l_whence = SEEK_SET;
        fl.l_start = start;
        fl.l_len = length;
        if (fd >= 0 && fcntl(fd, F_GETLK, &fl) == 0) {
            found.type = fl.l_type;
            found.pid = fl.l_type == F_UNLCK ? 0 : fl.l_pid;
        }
        const bool sent = write(answer[1], &found, sizeof found) == sizeof found;
        _exit(sent ? 0 : 1);
    }
    close(answer[1]);
    if (pid > 0 && read(answer[0], &info, sizeof info) != sizeof info) info = LockInfo{};
    close(answer[0]);
    if (pid > 0) {
        while (waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    return info;
}

bool startServer(AlmClient& client, const TempHome& home, const SpawnOptions& options) {
    SpawnOptions opts = options;
    // Messages from the home's C catalogs, whatever the caller's locale.
    opts.extraEnv.push_back("LANG=C");
    for (const std::string name : {"LC_ALL", "LC_MESSAGES", "NLSPATH", "COBALTHOME", "UNIDATESTRIP"}) {
        bool given = false;
        for (const auto& e : opts.extraEnv) given = given || e.rfind(name + "=", 0) == 0;
        if (!given) opts.unsetEnv.push_back(name);
    }
    return client.start(home.server(), {}, opts) == ClientStatus::Ok &&
           client.readGreeting(kWaitMs) == ClientStatus::Ok;
}

}  // namespace alm::filestest
