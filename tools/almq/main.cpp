// almq: a command-line client of the almread query server.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "commands.h"
#include "options.h"

int main(int argc, char* argv[]) {
    // With TZ unset every local-time conversion looks at the zone file
    // again; naming that same file once keeps long listings cheap.
    if (std::getenv("TZ") == nullptr) ::setenv("TZ", ":/etc/localtime", 0);
    alm::Options options;
    std::string problem;
    if (!alm::parse_options(argc, argv, options, problem)) {
        std::fprintf(stderr, "almq: %s (see almq --help)\n", problem.c_str());
        return alm::EXIT_USAGE;
    }
    if (options.help || options.version) {
        std::fputs(options.help ? alm::ALMQ_HELP : alm::ALMQ_VERSION, stdout);
        return alm::EXIT_OK;
    }
    alm::OutputSink out(stdout);
    std::string err;
    const int status = alm::run_command(options, out, err);
    if (!out.flush()) {
        std::fprintf(stderr, "almq: cannot write the output\n");
        return alm::EXIT_SERVER;
    }
    if (!err.empty()) std::fprintf(stderr, "%s\n", err.c_str());
    return status;
}
