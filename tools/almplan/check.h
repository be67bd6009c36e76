// `almplan check PLAN`: argv[0] is "check". Returns the exit status.
#pragma once

namespace alm {

int almplan_check(int argc, char** argv);

// Checks the plan quietly; when it is damaged, says so on stderr with its
// first problem and answers true.
bool report_damage(const char* path);

}  // namespace alm
