// Text from a code set to UTF-8 and back.
#include "messages/codeset.h"
#include "messages/codeset_tables.h"
#include "messages/conv.h"

namespace alm {

int ils_to_utf8(CodeSet* cs, const char* src, int srclen, char* dst, int dstsize) {
    if (cs == nullptr) cs = ils_get_def_cs();
    switch (cs->type) {
    case CS_SBCS:
        return cs->ebcdic ? ebcdic_sbcs_to_utf8(*cs, src, srclen, dst, dstsize)
                          : ascii_sbcs_to_utf8(*cs, src, srclen, dst, dstsize);
    case CS_DBCS:
        return ascii_dbcs_to_utf8(*cs, src, srclen, dst, dstsize);
    case CS_MBCS:
        return ascii_mbcs_to_utf8(*cs, src, srclen, dst, dstsize);
    case CS_EBCDIC_DBCS:
        return ebcdic_dbcs_to_utf8(*cs, src, srclen, dst, dstsize);
    default:
        return copy_conv(src, srclen, dst, dstsize);
    }
}

int ils_from_utf8(CodeSet* cs, const char* src, int srclen, char* dst, int dstsize) {
    if (cs == nullptr) cs = ils_get_def_cs();
    switch (cs->type) {
    case CS_SBCS:
        return cs->ebcdic ? ebcdic_sbcs_from_utf8(*cs, src, srclen, dst, dstsize)
                          : ascii_sbcs_from_utf8(*cs, src, srclen, dst, dstsize);
    case CS_DBCS:
        return ascii_dbcs_from_utf8(*cs, src, srclen, dst, dstsize);
    case CS_MBCS:
        return ascii_mbcs_from_utf8(*cs, src, srclen, dst, dstsize);
    case CS_EBCDIC_DBCS:
        return ebcdic_dbcs_from_utf8(*cs, src, srclen, dst, dstsize);
    default:
        return copy_conv(src, srclen, dst, dstsize);
    }
}

}  // namespace alm
