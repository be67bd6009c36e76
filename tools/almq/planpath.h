// Where the server looks for a plan: an absolute path as it stands, any
// other under the server's home, two directories above the server program.
#pragma once

#include <string>

namespace alm {

// path with "." components and repeated slashes taken out; ".." is kept,
// since a link may stand before it.
std::string tidy_path(const std::string& path);
// The home of the server at serverPath (an absolute path), as the server
// finds it: the path cut at its last "/" twice.
std::string server_home(const std::string& serverPath);
// The file that the server opens for the plan argument plan.
std::string plan_file(const std::string& plan, const std::string& serverPath);

}  // namespace alm
