// The arguments of a query request and the width of names in records.
#include "queries/queryargs.h"

#include "plan/openplans.h"

namespace alm {

bool queryArgs(const Request& req, const char** args, std::size_t n) {
    if (req.numData != n || !req.dataList) return false;
    sllIterator it;
    sllStartIterator(req.dataList, it);
    for (std::size_t i = 0; i < n; ++i) {
        if (!sllNextIterator(it)) return false;
        args[i] = static_cast<const char*>(sllGetIteratorValue(it));
        if (!args[i]) return false;
    }
    return true;
}

short queryNameWidth() { return alm_version != 0 ? 16 : 8; }

}  // namespace alm
