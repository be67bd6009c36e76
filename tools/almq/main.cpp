// almq: a command-line client of the almread query server.
#include <cstdio>
#include <string>

#include "commands.h"
#include "options.h"

int main(int argc, char* argv[]) {
    alm::Options options;
    std::string problem;
    if (!alm::parse_options(argc, argv, options, problem)) {
        std::fprintf(stderr, "almq: %s (see almq --help)\n", problem.c_str());
        return alm::EXIT_USAGE;
    }
    if (options.help) {
        std::fputs(alm::ALMQ_HELP, stdout);
        return alm::EXIT_OK;
    }
    std::string out;
    std::string err;
    const int status = alm::run_command(options, out, err);
    std::fwrite(out.data(), 1, out.size(), stdout);
    if (std::fflush(stdout) != 0) {
        std::fprintf(stderr, "almq: cannot write the output\n");
        return alm::EXIT_SERVER;
    }
    if (!err.empty()) std::fprintf(stderr, "%s\n", err.c_str());
    return status;
}
