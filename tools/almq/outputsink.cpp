#include "outputsink.h"

namespace alm {

void OutputSink::write(std::string_view text) {
    if (failed_ || text.empty()) return;
    if (std::fwrite(text.data(), 1, text.size(), file_) != text.size()) failed_ = true;
}

bool OutputSink::flush() {
    if (!failed_ && std::fflush(file_) != 0) failed_ = true;
    return !failed_;
}

}  // namespace alm
