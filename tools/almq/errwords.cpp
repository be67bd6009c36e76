#include "errwords.h"

#include <cctype>
#include <cstdlib>
#include <cstring>

namespace alm {
namespace {

// A message code such as "QFR20720035": capital letters, then digits.
std::size_t code_length(const std::string& text) {
    std::size_t i = 0;
    while (i < text.size() && std::isupper(static_cast<unsigned char>(text[i]))) ++i;
    const std::size_t letters = i;
    while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) ++i;
    const bool code = letters >= 2 && i - letters >= 4 && (i == text.size() || text[i] == ' ');
    return code ? i : 0;
}

// "(system error N)" becomes "(the system's text for N)"; N of 0 (or
// none) means the library had no system error to give, so it goes.
void system_errors_in_words(std::string& text) {
    static constexpr char kLead[] = "(system error ";
    std::size_t at = 0;
    while ((at = text.find(kLead, at)) != std::string::npos) {
        const std::size_t digits = at + sizeof kLead - 1;
        const std::size_t close = text.find(')', digits);
        if (close == std::string::npos) return;
        const std::string number = text.substr(digits, close - digits);
        char* end = nullptr;
        const long n = std::strtol(number.c_str(), &end, 10);
        const bool plain = !number.empty() && *end == '\0';
        if (plain && n > 0 && n < 4096) {
            const std::string words = std::string("(") + std::strerror(static_cast<int>(n)) + ")";
            text.replace(at, close + 1 - at, words);
            at += words.size();
        } else if (number.empty() || (plain && n == 0)) {
            const std::size_t from = at > 0 && text[at - 1] == ' ' ? at - 1 : at;
            text.erase(from, close + 1 - from);
            at = from;
        } else {
            at = close + 1;
        }
    }
}

void tidy_paths(std::string& text) {
    std::size_t at = 0;
    while ((at = text.find("/./", at)) != std::string::npos) text.erase(at, 2);
}

}  // namespace

std::string message_code(const std::string& serverText) { return serverText.substr(0, code_length(serverText)); }

std::string in_words(const std::string& serverText) {
    std::string text = serverText;
    while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
    const std::size_t codeLength = code_length(text);
    const std::string code = text.substr(0, codeLength);
    text.erase(0, codeLength);
    while (!text.empty() && text.front() == ' ') text.erase(0, 1);
    system_errors_in_words(text);
    tidy_paths(text);
    return code.empty() ? text : text + " [" + code + "]";
}

}  // namespace alm
