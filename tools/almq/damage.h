// almq's look at a plan before it lists: the structural check of the plan
// library, without the counts and the partial last record that a plan
// being written may show for a moment.
#pragma once

#include <string>

namespace alm {

// Answers true, with the first problem in problem, when the plan at path
// is damaged; a file that almq cannot read itself is left to the server.
// withJobs also walks every schedule's job chain.
bool plan_damaged(const std::string& path, bool withJobs, std::string& problem);

}  // namespace alm
