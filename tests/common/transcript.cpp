#include "common/transcript.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "common/files.h"
#include "common/installhome.h"
#include "common/runprogram.h"
#include "common/tempdir.h"

namespace alm::test {

namespace fs = std::filesystem;

namespace {

constexpr const char* kZone = "EST5EDT,M3.2.0,M11.1.0";
constexpr const char* kNoEol = " (no-eol)";

// One command of a transcript with what it must give; comment lines are
// kept as blocks of their own so that an update can write the file back.
struct Block {
    bool command = false;
    std::vector<std::string> lines;  // comment lines, or the command's lines
    std::string expected;            // output, lines ending in '\n'
    int status = 0;
};

bool starts(const std::string& s, const char* prefix) { return s.rfind(prefix, 0) == 0; }

std::vector<Block> parse(const std::string& text) {
    std::vector<Block> blocks;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        if (starts(line, "  $ ")) {
            blocks.push_back(Block{true, {line.substr(4)}, "", 0});
        } else if (starts(line, "  > ") && !blocks.empty() && blocks.back().command &&
                   blocks.back().expected.empty()) {
            blocks.back().lines.push_back(line.substr(4));
        } else if (starts(line, "  ") && !blocks.empty() && blocks.back().command) {
            std::string out = line.substr(2);
            if (out.size() > 2 && out.front() == '[' && out.back() == ']' &&
                out.find_first_not_of("0123456789", 1) == out.size() - 1) {
                blocks.back().status = std::atoi(out.c_str() + 1);
            } else if (out.size() >= 9 && out.compare(out.size() - 9, 9, kNoEol) == 0) {
                blocks.back().expected += out.substr(0, out.size() - 9);
            } else {
                blocks.back().expected += out + "\n";
            }
        } else {
            if (blocks.empty() || blocks.back().command) blocks.push_back(Block{});
            blocks.back().lines.push_back(line);
        }
    }
    return blocks;
}

std::string script_of(const Block& b) {
    std::string s;
    for (const std::string& l : b.lines) s += (s.empty() ? "" : "\n") + l;
    return s;
}

std::string replace_all(std::string s, const std::string& from, const std::string& to) {
    for (std::size_t at = s.find(from); !from.empty() && at != std::string::npos; at = s.find(from, at + to.size()))
        s.replace(at, from.size(), to);
    return s;
}

RunResult run_shell(const std::string& script, const std::string& home, const std::string& data) {
    return run_child([&] {
        if (::chdir(home.c_str()) != 0 || ::dup2(1, 2) < 0) ::_exit(126);
        for (const char* v : {"LC_ALL", "LC_MESSAGES", "NLSPATH", "COBALTHOME", "UNIDATESTRIP",
                              "ALM_TRANSCRIPT_UPDATE", "COLUMNS"})
            ::unsetenv(v);
        const std::string path = home + "/bin:/usr/local/bin:/usr/bin:/bin";
        ::setenv("PATH", path.c_str(), 1);
        ::setenv("HOME", home.c_str(), 1);
        ::setenv("TZ", kZone, 1);
        ::setenv("LANG", "C", 1);
        ::setenv("SRC", ALM_SOURCE_DIR, 1);
        ::setenv("DATA", data.c_str(), 1);
        ::execl("/bin/sh", "sh", "-c", script.c_str(), static_cast<char*>(nullptr));
        ::_exit(127);
    });
}

void write_back(const std::string& path, const std::vector<Block>& blocks) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    for (const Block& b : blocks) {
        if (!b.command) {
            for (const std::string& l : b.lines) out << l << "\n";
            continue;
        }
        for (std::size_t i = 0; i < b.lines.size(); ++i) out << (i == 0 ? "  $ " : "  > ") << b.lines[i] << "\n";
        std::istringstream lines(b.expected);
        std::string l;
        while (std::getline(lines, l)) out << "  " << l << (lines.eof() ? kNoEol : "") << "\n";
        if (b.status != 0) out << "  [" << b.status << "]\n";
    }
}

}  // namespace

std::vector<std::string> transcripts_in(const std::string& folder) {
    std::vector<std::string> paths;
    for (const auto& e : fs::directory_iterator(folder))
        if (e.path().extension() == ".t") paths.push_back(e.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::string transcript_name(const testing::TestParamInfo<std::string>& info) {
    std::string name = fs::path(info.param).stem().string();
    std::replace_if(name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

TEST_P(Transcript, GivesWhatItSays) {
    const std::string path = GetParam();
    std::vector<Block> blocks = parse(read_file(path));
    const TempDir dir;
    ASSERT_TRUE(install_home(dir.path(), {"almread", "almq", "almplan", "almcat", "almcodeset"}));
    const std::string data = fs::path(path).parent_path().string();
    const bool update = std::getenv("ALM_TRANSCRIPT_UPDATE") != nullptr;
    for (Block& b : blocks) {
        if (!b.command) continue;
        const RunResult r = run_shell(script_of(b), dir.path(), data);
        const std::string out = replace_all(r.out, dir.path(), "$HOME");
        if (update) {
            b.expected = out;
            b.status = r.status;
            continue;
        }
        EXPECT_EQ(b.expected, out) << "$ " << script_of(b);
        EXPECT_EQ(b.status, r.status) << "$ " << script_of(b);
    }
    if (update) write_back(path, blocks);
}

}  // namespace alm::test
