// The two record forms: the internal form stored in the file (V1 or V2) and
// the external form callers see (V2 layout, dates as GMT day epochs).
#pragma once

#include <cstdint>

#include "plan/almrecs.h"

namespace alm {

// File to caller. Returns 0 after a conversion, 1 after an unknown type code
// (the caller's buffer is then left untouched).
std::int16_t alm_i_2_e(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
// The same from the bytes of a whole 512-byte record (a V1 record padded to
// that size); for the reads that convert straight from where a record lies.
std::int16_t alm_i_2_e_bytes(const unsigned char* src, unsigned char* dst, std::int16_t alm_version);
// Caller to file. Returns 0 in every case.
std::int16_t alm_e_2_i(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);

// One conversion per record kind; alm_version is the header's sh_alm_version:
// 1 for V2 files, 0 for V1 files, and any other value leaves the target as it
// was. Each returns 0. The source and target may be the same buffer.
std::int16_t alm_i_2_e_HDR(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_CPU(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_SCHED(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_JOB(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_FILE(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_MSG(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_RSRC(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_CAL(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_USER_DEFN(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_ST(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_DEP(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);
std::int16_t alm_i_2_e_PJ(const ALMRECTYPE_INT* int_buff, ALMRECTYPE* ext_buff, std::int16_t alm_version);

std::int16_t alm_e_2_i_HDR(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_CPU(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_SCHED(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_JOB(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_FILE(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_MSG(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_RSRC(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_CAL(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_USER_DEFN(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_ST(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_DEP(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);
std::int16_t alm_e_2_i_PJ(const ALMRECTYPE* ext_buff, ALMRECTYPE_INT* int_buff, std::int16_t alm_version);

}  // namespace alm
