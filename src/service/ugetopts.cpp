// The keyword command-line parser.
#include "service/ugetopts.h"

#include <cstdlib>
#include <cstring>
#include <string>

namespace alm {

namespace {

constexpr int DEBUG_INDEX = 0;
constexpr int VERSION_FIRST = 1;  // "V", "VERSION"
constexpr int USAGE_FIRST = 3;    // "U", "USAGE"
constexpr int TABLE_SIZE = UOPT_BUILTINS + UOPT_MAX_CALLER;
constexpr char BLANK_ENTRY[] = " ";

std::size_t nameLength(const char* keyword) {
    const char* eq = std::strchr(keyword, '=');
    return eq ? static_cast<std::size_t>(eq - keyword) : std::strlen(keyword);
}

bool takesValue(const char* keyword) { return std::strchr(keyword, '=') != nullptr; }

}  // namespace

short c_valid_keyword(const char* text, const char* const* keywords, int count) {
    std::string upper(text);
    for (char& ch : upper)  // ASCII only: bytes of 128 and above stay as they are
        if (ch >= 'a' && ch <= 'z') ch = static_cast<char>(ch - 'a' + 'A');
    short found = UOPT_UNKNOWN;
    for (int i = 0; i < count; ++i) {
        const char* keyword = keywords[i];
        if (!keyword || std::strcmp(keyword, BLANK_ENTRY) == 0) continue;
        const std::size_t len = nameLength(keyword);
        if (len == upper.size() && upper.compare(0, len, keyword, len) == 0)
            return static_cast<short>(i);
        if (len > upper.size() && std::strncmp(keyword, upper.c_str(), upper.size()) == 0) {
            if (found != UOPT_UNKNOWN) return UOPT_AMBIGUOUS;
            found = static_cast<short>(i);
        }
    }
    return found;
}

namespace {

// One parse: the keyword table, what has been seen and where results go.
struct OptionParse {
    int argc;
    const char* const* argv;
    short* parm;
    short* flags;
    short* kwstatus;
    const char** kwvalue;
    const char* table[TABLE_SIZE] = {"DEBUG", "V", "VERSION", "U", "USAGE"};
    int count = UOPT_BUILTINS;
    bool seen[TABLE_SIZE] = {};

    // Adds the caller's keywords; false when they are not terminated in time.
    bool addKeywords(const char* const* keywords) {
        int callerCount = 0;
        if (keywords) {
            while (callerCount < UOPT_MAX_CALLER && keywords[callerCount]) ++callerCount;
            if (callerCount == UOPT_MAX_CALLER) return false;
            for (int i = 0; i < callerCount; ++i) table[UOPT_BUILTINS + i] = keywords[i];
        }
        // Version and usage only as the sole argument.
        if (argc > 2)
            for (int i = VERSION_FIRST; i < UOPT_BUILTINS; ++i) table[i] = BLANK_ENTRY;
        count = UOPT_BUILTINS + callerCount;
        for (int i = 0; i < callerCount; ++i) {
            if (kwstatus) kwstatus[i] = 0;
            if (kwvalue) kwvalue[i] = nullptr;
        }
        return true;
    }

    short fail(int index, short code) {
        *parm = static_cast<short>(index);
        return code;
    }

    // The option at argv[index], an argument starting with "-"; index moves
    // past a value given as the next argument. 0 to go on, or the negative
    // code that ends the parse.
    short option(int& index) {
        const char* text = argv[index] + 1;
        const char* eq = std::strchr(text, '=');
        const std::size_t textLength = eq ? static_cast<std::size_t>(eq - text) : std::strlen(text);
        if (textLength > static_cast<std::size_t>(UOPT_MAX_KEYWORD)) return fail(index, UOPT_TOO_LONG);

        const std::string keywordText(text, textLength);
        const short match = c_valid_keyword(keywordText.c_str(), table, count);
        if (match < 0) return fail(index, match);
        if (seen[match]) return fail(index, UOPT_REPEATED);
        seen[match] = true;

        const bool hasValueSlot = match >= UOPT_BUILTINS && takesValue(table[match]);
        if (eq && !hasValueSlot) return fail(index, UOPT_UNEXPECTED_VALUE);
        if (match == DEBUG_INDEX) {
            *flags = static_cast<short>(*flags | UOPT_FLAG_DEBUG);
            return 0;
        }
        if (match < USAGE_FIRST) return fail(index, UOPT_VERSION);
        if (match < UOPT_BUILTINS) return fail(index, UOPT_USAGE);

        const char* value = nullptr;
        if (hasValueSlot) {
            if (eq) {
                value = eq + 1;
            } else {
                if (index + 1 >= argc || !argv[index + 1] || std::strcmp(argv[index + 1], "--") == 0)
                    return fail(index, UOPT_NEEDS_VALUE);
                value = argv[++index];
            }
        }
        const int slot = match - UOPT_BUILTINS;
        if (kwstatus) kwstatus[slot] = 1;
        if (kwvalue) kwvalue[slot] = value;
        if (value && nameLength(table[match]) == 4 && std::strncmp(table[match], "PARM", 4) == 0)
            *parm = static_cast<short>(std::atoi(value));
        return 0;
    }
};

}  // namespace

short u_getopts(int argc, const char* const* argv, const char* const* keywords, short* parm,
                short* flags, short* kwstatus, const char** kwvalue) {
    short ignoredParm = 0;
    short ignoredFlags = 0;
    OptionParse parse{argc, argv, parm ? parm : &ignoredParm, flags ? flags : &ignoredFlags, kwstatus, kwvalue};
    *parse.parm = 0;
    if (!parse.addKeywords(keywords)) return UOPT_NO_TERMINATOR;

    for (int index = 1; index < argc; ++index) {
        const char* arg = argv[index];
        if (!arg) break;
        if (std::strcmp(arg, "--") == 0) return static_cast<short>(index + 1 < argc ? index + 1 : argc + 1);
        if (arg[0] != '-') return static_cast<short>(index);
        if (const short code = parse.option(index); code != 0) return code;
    }
    return static_cast<short>(argc + 1);
}

}  // namespace alm
