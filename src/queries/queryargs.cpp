// The arguments of a query request and the width of names in records.
#include "queries/queryargs.h"

#include "plan/openplans.h"

namespace alm {

bool queryArgs(const Request& req, const char** args, std::size_t n) {
    if (req.numData != n || !req.dataList) return false;
    sllIterator it;
    sllStartIterator(req.dataList, it);
    // Only the declared count decides: an argument the scan did not find (an
    // empty fourth one) is null, and a null pattern matches every name.
    bool more = true;
    for (std::size_t i = 0; i < n; ++i) {
        more = more && sllNextIterator(it);
        args[i] = more ? static_cast<const char*>(sllGetIteratorValue(it)) : nullptr;
    }
    return args[0] != nullptr;
}

short queryNameWidth() { return alm_version != 0 ? 16 : 8; }

}  // namespace alm
