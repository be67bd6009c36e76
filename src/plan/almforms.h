// The two record forms: the internal form stored in the file (V1 or V2) and
// the external form callers see (V2 layout, dates as GMT day epochs).
#pragma once

#include <cstdint>

#include "plan/almrecs.h"

namespace alm {

// File to caller. Returns 0 after a conversion, 1 after an unknown type code
// (the caller's buffer is then left untouched).
std::int16_t alm_i_2_e(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
// Caller to file. Returns 0 in every case.
std::int16_t alm_e_2_i(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);

}  // namespace alm
