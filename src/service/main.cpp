// almread: answers binary requests on standard input until it ends.
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "protocol/frame.h"
#include "protocol/write.h"
#include "protocol/write.h"
#include "service/files.h"
#include "service/read.h"
#include "service/ugetopts.h"
#include "service/version.h"
#include "util/stdfuncs.h"

int main(int argc, char* argv[]) {
    using namespace alm;

    short parm = 0;
    short flags = 0;
    // Every code but the version request is ignored: a bad command line
    // starts the service as usual.
    const short rc = u_getopts(argc, argv, nullptr, &parm, &flags, nullptr, nullptr);
    if (rc == UOPT_VERSION) {
        int bannerFlags = 0;
        const char* revision = version(&bannerFlags);
        printBanner(stdout, ALMREAD_PROGNAME, revision);
        return 0;
    }

    // A vanished client shows up as end of input; replies to it are dropped.
    std::signal(SIGPIPE, SIG_IGN);
    readerInitOutput();

    qual_file(argc > 0 ? argv[0] : nullptr, QUAL_HOMEDIR, sizeof QUAL_HOMEDIR);
    setUseQualHome(1);

    std::fwrite(ALM_GREETING, 1, ALM_GREETING_BYTES, stdout);
    std::fflush(stdout);

    readerReadLoop();
    readerCloseAllAlmanack();
    return 0;
}
