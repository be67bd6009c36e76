// Field-by-field moves between the 256-byte V1 records and the 512-byte V2
// layout, drawn from each kind's table of fields (V1 offset, V2 offset,
// widths and the kind of move); V1 bytes are read and written with the
// little-endian helpers only.
#pragma once

#include <cstdint>
#include <span>

#include "plan/fieldrow.h"

namespace alm {

enum class V1Move : std::uint8_t {
    Bytes,         // copied as they stand: i16/i32 fields, fillers, names cut or padded
    ZeroExtend16,  // u16 <-> u32, record numbers above all; writing keeps the low 16 bits
    SignExtend16,  // i16 <-> i32 counts; writing keeps the low 16 bits
    Yymmdd,        // i32 yymmdd <-> i32 day epoch
    CalDay,        // u16 cal form <-> i32 day epoch
};

struct V1FieldMove {
    const char* name;
    std::uint16_t v1_off;
    std::uint16_t v2_off;
    std::uint16_t v1_width;  // bytes in the V1 record
    std::uint16_t v2_width;  // bytes of the V2 field
    V1Move kind;
};

enum class V1Kind : std::uint8_t { Hdr, Cpu, Sched, Job, Msg, File, Rsrc, Cal, Str, Dep, Pj, UserDefn };

struct V1Layout {
    std::span<const V1FieldMove> moves;
    std::span<const FieldSpec> fields;  // for the V2-only fields that widening sets
};

// UserDefn has no layout of its own: its 256 bytes are carried as they are.
const V1Layout& v1_layout(V1Kind kind);

// Job unions: which member of sj_fname_jname and of subdep is in use.
enum class JclForm : std::uint8_t { JclString, Alias, JclFile };
enum class SubdepForm : std::uint8_t { Submit, Deps, Xkes };
JclForm job_jcl_form(std::uint16_t sj_flags2);
SubdepForm job_subdep_form(std::int16_t sj_num_depends, std::uint16_t sj_re_flags);
std::span<const V1FieldMove> job_jcl_moves(JclForm form);
std::span<const V1FieldMove> job_subdep_moves(SubdepForm form);

// v1 points at the 256-byte V1 record, v2 at a 512-byte V2 record; they must
// not overlap. Widening blank-fills all of v2 first; narrowing blank-fills
// the 256 bytes of v1 first.
void v1_widen(V1Kind kind, const unsigned char* v1, unsigned char* v2);
void v1_narrow(V1Kind kind, const unsigned char* v2, unsigned char* v1);

}  // namespace alm
