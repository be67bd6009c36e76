// Turns a parsed description into a plan file: assigns record numbers,
// resolves references, links the chains, fills the counts and writes.
#pragma once

#include <string>

#include "plandesc.h"

namespace alm {

// Fields given in the description keep their values; the builder fills only
// the rest. On failure nothing is written and `err` reads "PATH:LINE: problem"
// (or "PATH: problem" when no single line is at fault).
bool build_plan(PlanDesc& desc, const std::string& out, std::string& err);

}  // namespace alm
