// The order in which catalogs are looked for: language fallbacks, the search path, the home's catalogs.
#include "messages/msgord.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "messages/codeset.h"
#include "messages/msgstream.h"
#include "util/stdfuncs.h"

namespace alm {

namespace {

constexpr int LANG_MAX = 32;

constexpr const char* STEMS[NUM_PRODUCTS] = {"",       "cobalt", "kestrel", "reelwright", "spindle",
                                             "lumen",  "parcel", "vinyl",   "sentry",     "bastion",
                                             "ledger", "rampart", "lattice"};

std::string app_path;

bool is_regular_file(const char* path) {
    struct stat st {};
    if (::stat(path, &st) != 0) return false;
    if (!S_ISREG(st.st_mode)) {
        errno = ENOENT;
        return false;
    }
    return true;
}

bool failed(nim_catd h) { return h == 0 || h == NIM_CATD_ERR; }

void canonical_os_lang(char* lang) {
    char raw[LANG_MAX + 1];
    ils_os_lang_name(raw, sizeof raw);
    ils_canonical_lang(raw, lang, LANG_MAX + 1);
    lang[LANG_MAX] = '\0';
}

}  // namespace

const char* product_stem(int product) {
    if (product < 0 || product >= NUM_PRODUCTS) return "";
    return STEMS[product];
}

void nim_set_app_path(const char* path) { app_path = path != nullptr ? path : ""; }

std::string nls_expand(const char* elem, const char* name, const char* lang) {
    // lang is language[_territory][.codeset]
    std::string l(lang), language, territory, codeset;
    std::size_t us = l.find('_');
    std::size_t dot = l.find('.');
    language = l.substr(0, std::min(us, dot));
    if (us != std::string::npos && (dot == std::string::npos || us < dot))
        territory = l.substr(us + 1, dot == std::string::npos ? std::string::npos : dot - us - 1);
    if (dot != std::string::npos) codeset = l.substr(dot + 1);

    std::string out;
    for (const char* p = elem; *p != '\0'; ++p) {
        if (*p != '%') {
            out += *p;
            continue;
        }
        switch (p[1]) {
            case 'L': out += l; break;
            case 'N': out += name; break;
            case 'l': out += language; break;
            case 't': out += territory; break;
            case 'c': out += codeset; break;
            default: out += '%'; continue;
        }
        ++p;
    }
    return out;
}

nim_catd catopen2(const char* name, int flags, const char* tmpl, const char* lang) {
    if (name == nullptr || *name == '\0') return NIM_CATD_ERR;
    if (std::strchr(name, '/') != nullptr) {
        if (!is_regular_file(name)) return NIM_CATD_ERR;
        return loadCat(name, flags);
    }
    std::string t = tmpl != nullptr ? tmpl : "";
    if (!app_path.empty()) t += ":" + app_path;

    std::size_t start = 0;
    while (start <= t.size()) {
        std::size_t end = start;
        // A ":" as an element's second character belongs to a drive letter.
        while (end < t.size() && t[end] != ';' && !(t[end] == ':' && end != start + 1)) ++end;
        std::string path = nls_expand(t.substr(start, end - start).c_str(), name, lang);
        if (!path.empty() && (lookupCat(path.c_str()) != nullptr || is_regular_file(path.c_str())))
            return loadCat(path.c_str(), flags);
        start = end + 1;
    }
    errno = ENOENT;
    return NIM_CATD_ERR;
}

nim_catd nim_catopen(const char* name, int flags) {
    char raw[LANG_MAX + 1];
    if (flags == 0) {
        ils_os_lang_name(raw, sizeof raw);
    } else if ((flags & NIM_CAT_LOCALE) == 0) {
        return NIM_CATD_ERR;
    } else {
        const char* env = std::getenv("LC_ALL");
        if (env == nullptr || *env == '\0') env = std::getenv("LC_MESSAGES");
        if (env == nullptr || *env == '\0') {
            ils_os_lang_name(raw, sizeof raw);
        } else {
            std::strncpy(raw, env, LANG_MAX);
            raw[LANG_MAX] = '\0';
        }
    }
    char lang[LANG_MAX + 1];
    ils_canonical_lang(raw, lang, sizeof lang);
    lang[LANG_MAX] = '\0';

    const char* tmpl = std::getenv("NLSPATH");
    if (tmpl == nullptr || *tmpl == '\0') tmpl = NLS_DEFAULT_PATH;

    nim_catd h = catopen2(name, flags, tmpl, lang);
    if (failed(h) && std::strlen(lang) > 2) {
        lang[2] = '\0';
        h = catopen2(name, flags, tmpl, lang);
    }
    if (failed(h)) h = catopen2(name, flags, tmpl, "C");
    return failed(h) ? NIM_CATD_ERR : h;
}

bool home_catalog_path(char* path, const char* lang, const char* stem) {
    std::string p;
    if (QUAL_HOMEDIR[0] != '\0') {
        p = QUAL_HOMEDIR;
        if (p.back() != '/') p += '/';
    }
    p += "catalog/";
    p += lang;
    p += '/';
    p += stem;
    p += ".cat";
    if (p.size() > static_cast<std::size_t>(QUAL_PATH_MAX)) {
        path[0] = '\0';
        errno = ENAMETOOLONG;
        return false;
    }
    std::memcpy(path, p.c_str(), p.size() + 1);
    return true;
}

nim_catd open_catalog(int product) {
    if (product < 0 || product >= NUM_PRODUCTS) {
        std::fprintf(msg_stderr(), "no catalog available for product %d\n", product);
        return NIM_CATD_ERR;
    }
    const char* stem = product_stem(product);

    nim_catd h = nim_catopen(stem, 0);
    if (!failed(h)) {
        const char* first = nim_catgets(h, 1, 1, nullptr);
        if (first != nullptr && std::strncmp(first, stem, std::strlen(stem)) == 0) return h;
        nim_catclose(h);
    }

    char lang[LANG_MAX + 1];
    canonical_os_lang(lang);
    char path[QUAL_PATH_MAX + 1] = "";
    auto try_home = [&](const char* l) {
        if (!home_catalog_path(path, l, stem)) return NIM_CATD_ERR;
        nim_catd r = catopen2(path, 0, nullptr, l);
        return failed(r) ? NIM_CATD_ERR : r;
    };
    if (std::strcmp(lang, "C") != 0) {
        h = try_home(lang);
        if (!failed(h)) return h;
        lang[2] = '\0';
        h = try_home(lang);
        if (!failed(h)) return h;
        std::fprintf(msg_stderr(), "catopen on %s error: %s\n", path, std::strerror(errno));
    }
    h = try_home("C");
    if (!failed(h)) return h;
    int err = errno;
    std::fprintf(msg_stderr(), "catopen on %s error: %s\n", path, std::strerror(err));
    errno = err;
    return NIM_CATD_ERR;
}

}  // namespace alm
