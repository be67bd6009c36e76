// Transcript tests: files of shell commands with the output each must give,
// run against the programs built in this tree.
//
// A transcript (NAME.t) is read the way a terminal session reads:
//   text at the left margin        a comment
//     $ command                    a command, run by /bin/sh
//     > more                       the command continued on the next line
//     expected line                what it writes, standard error merged
//     [N]                          its exit status, when not 0
// Every transcript runs in a fresh scheduler home (bin/ holding the built
// programs, catalog/C the built catalogs) that is also the working
// directory; the commands of one transcript share it. The environment:
// PATH starts with HOME/bin, TZ is a fixed zone with daylight saving, LANG=C,
// $SRC is the source tree and $DATA the transcript's own folder. The home's
// path in the output reads as $HOME.
//
// ALM_TRANSCRIPT_UPDATE=1 writes what the commands gave back into the
// transcript instead of comparing: review the diff before committing it.
// A test folder runs its transcripts with ALM_TRANSCRIPTS(Suite, "folder").
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace alm::test {

class Transcript : public testing::TestWithParam<std::string> {};

// The paths of the NAME.t files in folder, sorted.
std::vector<std::string> transcripts_in(const std::string& folder);

// NAME of PATH/NAME.t, as a test name.
std::string transcript_name(const testing::TestParamInfo<std::string>& info);

}  // namespace alm::test

#define ALM_TRANSCRIPTS(suite, folder)                                                                     \
    using alm::test::Transcript;                                                                          \
    INSTANTIATE_TEST_SUITE_P(suite, Transcript,                                                            \
                             testing::ValuesIn(alm::test::transcripts_in(ALM_SOURCE_DIR "/tests/" folder)), \
                             alm::test::transcript_name)
