// Standard output for long listings: written as it is produced, in large
// pieces, with a write failure remembered for the exit status.
#pragma once

#include <cstdio>
#include <string_view>

namespace alm {

class OutputSink {
public:
    explicit OutputSink(std::FILE* file) : file_(file) {}
    void write(std::string_view text);
    bool flush();
    bool failed() const { return failed_; }

private:
    std::FILE* file_;
    bool failed_ = false;
};

}  // namespace alm
