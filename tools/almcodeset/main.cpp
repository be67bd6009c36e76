// almcodeset: writes code-set conversion tables and alias files from the C
// library's iconv, into OUTDIR/codeset/ where ILSDIR=OUTDIR finds them.
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "probe.h"
#include "tablebuild.h"

namespace alm {
namespace {

const char kUsage[] =
    "Usage: almcodeset [--as TABLE] CODESET TYPE OUTDIR\n"
    "       almcodeset --alias OUTDIR NAME TABLE\n"
    "       almcodeset --aliases OUTDIR [NAME=TABLE ...]\n"
    "       almcodeset --help | --version\n"
    "\n"
    "The first form asks iconv about every character of CODESET (an iconv\n"
    "name) and writes its conversion table to OUTDIR/codeset/TABLE (TABLE is\n"
    "CODESET unless --as gives it). TYPE is one of:\n"
    "  sbcs         single-byte, ASCII-based (ISO-8859-1, CP1252, IBM850)\n"
    "  ebcdic       single-byte EBCDIC (IBM037, IBM1047)\n"
    "  dbcs         double-byte, ASCII-based (SJIS, CP932, GBK, BIG5)\n"
    "  mbcs         multi-byte, ASCII-based, up to 4 bytes (EUC-JP, EUC-KR)\n"
    "  ebcdic-dbcs  double-byte EBCDIC with shift-out/shift-in (IBM930, IBM939)\n"
    "Characters beyond 16-bit code points convert as \"?\".\n"
    "\n"
    "--alias writes OUTDIR/codeset/NAME as an alias file naming TABLE.\n"
    "--aliases writes the alias list OUTDIR/codeset/aliases, one line\n"
    "\"NAME TABLE\" per pair; it maps the normalised system code-set name\n"
    "(letters and digits in upper case, a leading IBM removed) to a table.\n"
    "\n"
    "Exit status: 0 written, 1 failed (unknown code set, unwritable OUTDIR),\n"
    "2 bad usage.\n";

constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;

int usage() {
    std::fputs(kUsage, stderr);
    return kExitUsage;
}

bool make_dir(const std::string& dir) {
    if (::mkdir(dir.c_str(), 0755) == 0 || errno == EEXIST) return true;
    std::fprintf(stderr, "almcodeset: cannot create %s: %s\n", dir.c_str(), std::strerror(errno));
    return false;
}

// OUTDIR/codeset, created when missing; empty on failure.
std::string codeset_dir(const std::string& outdir) {
    if (!make_dir(outdir) || !make_dir(outdir + "/codeset")) return {};
    return outdir + "/codeset";
}

bool valid_name(const std::string& name) {
    return !name.empty() && name.find('/') == std::string::npos && name != "." && name != "..";
}

// Writes a file whole: to a temporary name first, then renamed over.
bool write_file(const std::string& path, const void* data, std::size_t size) {
    const std::string tmp = path + ".tmp";
    std::FILE* f = std::fopen(tmp.c_str(), "wb");
    if (f == nullptr) {
        std::fprintf(stderr, "almcodeset: cannot write %s: %s\n", tmp.c_str(), std::strerror(errno));
        return false;
    }
    const bool ok = std::fwrite(data, 1, size, f) == size;
    if (std::fclose(f) != 0 || !ok || std::rename(tmp.c_str(), path.c_str()) != 0) {
        std::fprintf(stderr, "almcodeset: cannot write %s: %s\n", path.c_str(), std::strerror(errno));
        std::remove(tmp.c_str());
        return false;
    }
    return true;
}

bool parse_kind(const std::string& s, TableKind* kind) {
    static const struct {
        const char* name;
        TableKind kind;
    } kinds[] = {{"sbcs", TableKind::Sbcs},
                 {"ebcdic", TableKind::Ebcdic},
                 {"dbcs", TableKind::Dbcs},
                 {"mbcs", TableKind::Mbcs},
                 {"ebcdic-dbcs", TableKind::EbcdicDbcs}};
    for (const auto& k : kinds)
        if (s == k.name) {
            *kind = k.kind;
            return true;
        }
    return false;
}

int make_table(const std::string& codeset, const std::string& type, const std::string& outdir,
               const std::string& table) {
    TableKind kind;
    if (!parse_kind(type, &kind)) {
        std::fprintf(stderr, "almcodeset: unknown type %s\n", type.c_str());
        return usage();
    }
    if (!valid_name(table)) {
        std::fprintf(stderr, "almcodeset: bad table name %s\n", table.c_str());
        return kExitUsage;
    }
    Probe probe(codeset.c_str());
    if (!probe.ok()) {
        std::fprintf(stderr, "almcodeset: iconv does not know %s\n", codeset.c_str());
        return kExitFailed;
    }
    TableParts parts;
    std::string error;
    std::vector<std::string> warnings;
    if (!build_table(probe, kind, parts, error, warnings)) {
        std::fprintf(stderr, "almcodeset: %s: %s\n", codeset.c_str(), error.c_str());
        return kExitFailed;
    }
    for (const auto& w : warnings) std::fprintf(stderr, "almcodeset: %s: %s\n", codeset.c_str(), w.c_str());
    const std::string dir = codeset_dir(outdir);
    if (dir.empty()) return kExitFailed;
    const std::vector<unsigned char> image = table_image(parts);
    return write_file(dir + "/" + table, image.data(), image.size()) ? 0 : kExitFailed;
}

int make_alias(const std::string& outdir, const std::string& name, const std::string& table) {
    if (!valid_name(name) || table.empty()) return usage();
    const std::string dir = codeset_dir(outdir);
    if (dir.empty()) return kExitFailed;
    const std::string text = table + "\n";
    return write_file(dir + "/" + name, text.data(), text.size()) ? 0 : kExitFailed;
}

int make_alias_list(const std::string& outdir, const std::vector<std::string>& pairs) {
    std::string text = "# code-set name, then the table it stands for\n";
    for (const auto& p : pairs) {
        const auto eq = p.find('=');
        if (eq == std::string::npos || eq == 0 || eq + 1 == p.size() ||
            p.find_first_of(" \t\n") != std::string::npos) {
            std::fprintf(stderr, "almcodeset: bad pair %s (NAME=TABLE)\n", p.c_str());
            return kExitUsage;
        }
        text += p.substr(0, eq) + " " + p.substr(eq + 1) + "\n";
    }
    const std::string dir = codeset_dir(outdir);
    if (dir.empty()) return kExitFailed;
    return write_file(dir + "/aliases", text.data(), text.size()) ? 0 : kExitFailed;
}

int run(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) return usage();
    if (args[0] == "--help" || args[0] == "-h") {
        std::fputs(kUsage, stdout);
        return 0;
    }
    if (args[0] == "--version" || args[0] == "-V") {
        std::fputs("almcodeset " ALM_TOOLS_VERSION "\n", stdout);
        return 0;
    }
    if (args[0] == "--alias") return args.size() == 4 ? make_alias(args[1], args[2], args[3]) : usage();
    if (args[0] == "--aliases") {
        if (args.size() < 2) return usage();
        return make_alias_list(args[1], std::vector<std::string>(args.begin() + 2, args.end()));
    }
    std::string table;
    if (args[0] == "--as") {
        if (args.size() < 2) return usage();
        table = args[1];
        args.erase(args.begin(), args.begin() + 2);
    }
    if (args.size() != 3) return usage();
    if (table.empty()) table = args[0];
    return make_table(args[0], args[1], args[2], table);
}

}  // namespace
}  // namespace alm

int main(int argc, char** argv) { return alm::run(argc, argv); }
