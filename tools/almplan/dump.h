// `almplan dump ...`: argv[0] is "dump". Returns the exit status.
#pragma once

namespace alm {

int almplan_dump(int argc, char** argv);

}  // namespace alm
