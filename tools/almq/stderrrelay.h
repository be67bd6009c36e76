// Passes on what the server writes to its standard error, line by line,
// each prefixed "almread: " so that the user can tell whose it is. A
// thread reads the pipe while the session runs; stop() passes on what is
// left and ends it.
#pragma once

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>

namespace alm {

class StderrRelay {
public:
    StderrRelay() = default;
    ~StderrRelay() { stop(); }
    StderrRelay(const StderrRelay&) = delete;
    StderrRelay& operator=(const StderrRelay&) = delete;

    // Starts relaying from fd (not owned, open until stop() returns) to out.
    void start(int fd, std::FILE* out);
    // Relays what can still be read without waiting, then ends the thread.
    void stop();

private:
    void run();
    bool pump();  // false at the end of the pipe or on an error
    void emit(bool all);

    int fd_ = -1;
    std::FILE* out_ = nullptr;
    std::string pending_;
    std::atomic<bool> stopping_{false};
    std::thread thread_;
};

}  // namespace alm
