// Who keeps readers out of a plan: the process holding a lock on the byte
// that every reader locks for reading when it opens the plan.
#pragma once

#include <string>

namespace alm {

// The process id of the holder, 0 when nobody holds such a lock now, -1
// when the system cannot tell (the file cannot be opened, say).
long plan_lock_holder(const std::string& path);

}  // namespace alm
