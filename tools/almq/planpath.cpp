#include "planpath.h"

namespace alm {

std::string tidy_path(const std::string& path) {
    if (path.empty()) return path;
    std::string out = path[0] == '/' ? "/" : "";
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = path.find('/', start);
        if (end == std::string::npos) end = path.size();
        const std::string part = path.substr(start, end - start);
        if (!part.empty() && part != ".") {
            if (!out.empty() && out.back() != '/') out += '/';
            out += part;
        }
        start = end + 1;
    }
    return out.empty() ? "." : out;
}

std::string server_home(const std::string& serverPath) {
    std::string home = serverPath;
    for (int cut = 0; cut < 2; ++cut) {
        const auto slash = home.rfind('/');
        if (slash == std::string::npos) return home;
        home.resize(slash);
    }
    return home;
}

namespace {

bool white(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

}  // namespace

std::string plan_file(const std::string& plan, const std::string& serverPath) {
    // The server cuts trailing white space off the name before it looks.
    std::string name = plan;
    while (!name.empty() && white(name.back())) name.pop_back();
    if (!name.empty() && name[0] == '/') return name;
    return server_home(serverPath) + "/" + name;
}

}  // namespace alm
