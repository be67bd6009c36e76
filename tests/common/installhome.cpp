#include "common/installhome.h"

#include <filesystem>

#include "common/runprogram.h"

namespace alm::test {

namespace fs = std::filesystem;

bool install_home(const std::string& home, const std::vector<std::string>& programs) {
    std::error_code ec;
    fs::create_directories(home + "/bin", ec);
    if (ec) return false;
    fs::create_directories(home + "/catalog/C", ec);
    if (ec) return false;
    for (const std::string& prog : programs) {
        fs::copy_file(built_program(prog), home + "/bin/" + prog, ec);
        if (ec) return false;
    }
    for (const auto& e : fs::directory_iterator(ALM_BUILD_DIR "/catalog/C", ec)) {
        fs::copy_file(e.path(), home + "/catalog/C/" + e.path().filename().string(), ec);
        if (ec) return false;
    }
    return !ec;
}

}  // namespace alm::test
