// Catalog sources used by the message tests, installed as the catalogs of a
// private home.
#pragma once

#include <memory>
#include <string>

#include "messages/msg_helpers.h"

namespace alm::msgtest {

inline const std::string LONG_TEXT(300, 'x');

inline const std::string TEST_KESTREL =
    "$ test catalog of product 2\n"
    "$set 1\n"
    "1 kestrel test catalog\n"
    "5 Fifth of set one\n"
    "$set 5\n"
    "1 [!1]#\n"
    "2 [!1][!2][!3][!4][!5][!6]#\n"
    "3 Plain text\n"
    "4 Trailing hash#\n"
    "5 a~!b !1 c!xd !\n"
    "6 " + LONG_TEXT + "\n"
    "7 #\n"
    "$set 9\n"
    "1 Message one of set nine\n"
    "5 Set nine message five: !1\n";

inline const std::string TEST_COBALT =
    "$set 1\n"
    "1 cobalt test catalog\n"
    "$set 50\n"
    "35 1\n"
    "$set 129\n"
    "2 Internal error %d.\n"
    "3 CPU %.2f seconds.\n"
    "4 The end.\n";

// A home whose catalog/C holds the test catalogs.
inline std::unique_ptr<TempDir> make_test_home(const std::string& kestrel = TEST_KESTREL,
                                                const std::string& cobalt = TEST_COBALT) {
    auto home = std::make_unique<TempDir>();
    compile_catalog(kestrel, home->file("catalog/C/kestrel.cat"));
    compile_catalog(cobalt, home->file("catalog/C/cobalt.cat"));
    return home;
}

}  // namespace alm::msgtest
