// A forked process that does something to a plan (open it, lock it), reports
// an integer back and keeps what it holds until it is released.
#pragma once

#include <sys/types.h>

#include <functional>

namespace alm::test {

class HoldingChild {
public:
    // fn runs in the child; its result is what report() returns.
    explicit HoldingChild(const std::function<int()>& fn);
    ~HoldingChild();
    HoldingChild(const HoldingChild&) = delete;
    HoldingChild& operator=(const HoldingChild&) = delete;

    int report() const { return report_; }
    // Lets the child exit and reaps it; returns its exit status.
    int release();
    // Lets the child exit after ms milliseconds, without waiting here.
    void release_after(int ms);

private:
    pid_t pid_ = -1;
    int to_child_ = -1;
    int report_ = -1;
    pid_t timer_ = -1;
};

}  // namespace alm::test
