// Words that sound alike: Soundex codes and MetaFone keys.
//
// A Soundex code is the first letter and the digits of those that follow; letters without a digit (vowels, H, W, Y) are
// passed over, and so is one with the digit of its neighbour. A MetaFone key is worked out letter by letter: each rule
// looks at one letter, its neighbour before and up to three behind, and writes nothing, one letter or two. Both differ
// from the textbook where `kept:` says so, since keys are stored in tables and compared with new ones.
#include "entries/phonetic.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "frame/text.h"

namespace vx {
namespace {

struct PhoneticSettings {
    std::int32_t soundexLength = 4;  // kept for callers only
};
constinit PhoneticSettings settings;

// By letter, A to Z; a dot is no digit. Bytes that are no letters have none either.
constexpr char kSoundexDigits[] = ".123.12..22455.12623.1.2.2";

struct SoundexCodes {
    constexpr SoundexCodes() {
        for (int i = 0; i < 26; ++i) {
            char digit = kSoundexDigits[i] == '.' ? '\0' : kSoundexDigits[i];
            of['A' + i] = of['a' + i] = digit;
        }
    }
    char of[256] = {};
};
constexpr SoundexCodes kSoundex;

// Each character that is written has been read before, so that dest may be the text.
void soundex(const char* text, char pad, std::size_t length, char* dest) {
    char* const end = dest + length;
    while (*text == ' ' || *text == '\t') ++text;
    if (*text && dest < end)
        *dest++ = asciiUpper(*text++);  // not through the case tables: Soundex knows plain letters only
    char previous = '\0';               // kept: the first character does not hide the digit of the second
    for (; *text && dest < end; ++text) {
        char code = kSoundex.of[byteOf(*text)];
        if (code == previous) code = '\0';  // kept: so a third letter with the same digit writes it again
        if (code) *dest++ = code;
        previous = code;
    }
    while (dest < end) *dest++ = pad;
    *end = '\0';
}

constexpr std::size_t kLongestWord = 1024;

bool isVowel(char c) { return c == 'A' || c == 'E' || c == 'I' || c == 'O' || c == 'U'; }
bool isFront(char c) { return c == 'E' || c == 'I' || c == 'Y'; }
bool silencesH(char c) { return c == 'C' || c == 'S' || c == 'P' || c == 'T' || c == 'G'; }

// A word in upper case, and its key as it grows. Characters before and behind the word read as NUL, which no rule
// names.
class Metaphone {
 public:
    explicit Metaphone(std::string_view word) : size_(std::min(word.size(), kLongestWord)) {
        std::memset(letters_, '\0', kBefore);
        std::transform(word.begin(), word.begin() + static_cast<std::ptrdiff_t>(size_), letters_ + kBefore, upper);
        std::memset(letters_ + kBefore + size_, '\0', kBehind);
        changeBeginning();
    }

    char* writeKey(char* dest) {
        out_ = dest;
        for (letter_ = letters_ + kBefore; letter_ < letters_ + kBefore + size_; ++letter_) {
            const char c = *letter_;
            if (c == at(-1) && c != 'C') continue;
            if (isVowel(c)) {
                if (atStart()) put(c);
            } else {
                writeConsonant(c);
            }
        }
        *out_ = '\0';
        return dest;
    }

 private:
    void changeBeginning() {
        char* word = letters_ + kBefore;
        auto beginsWith = [word](const char* pair) { return word[0] == pair[0] && word[1] == pair[1]; };
        if (word[0] == 'X') {
            word[0] = 'S';
        } else if (beginsWith("PN") || beginsWith("AE") || beginsWith("KN") || beginsWith("GN") || beginsWith("WR")) {
            std::memmove(word, word + 1, size_ - 1);  // kept: the word keeps its length, so its last letter is doubled
        } else if (beginsWith("WH")) {
            std::memmove(word + 1, word + 2, size_ - 2);  // kept: here, too
        }
    }

    char at(int offset) const { return letter_[offset]; }
    bool atStart() const { return letter_ == letters_ + kBefore; }
    bool atEnd() const { return !at(1); }
    void put(char c) { *out_++ = c; }

    void writeConsonant(char c) {
        switch (c) {
            case 'B':
                if (!(atEnd() && at(-1) == 'M')) put('B');
                break;
            case 'C':
                writeC();
                break;
            case 'D':
                put(at(1) == 'G' && isFront(at(2)) ? 'J' : 'T');
                break;
            case 'F':
            case 'J':
            case 'L':
            case 'M':
            case 'N':
            case 'R':
            case 'Z':
                put(c);
                break;
            case 'G':
                if (!isSilentG()) put(isFront(at(1)) ? 'J' : 'K');
                break;
            case 'H':
                if (!silencesH(at(-1)) && isVowel(at(1))) put('H');
                break;
            case 'K':
                if (at(-1) != 'C') put('K');
                break;
            case 'P':
                put(at(1) == 'H' ? 'F' : 'P');
                break;
            case 'Q':
                put('K');
                break;
            case 'S':
                put(isHissing() || at(1) == 'H' ? 'X' : 'S');
                break;
            case 'T':
                writeT();
                break;
            case 'V':
                put('F');
                break;
            case 'W':
            case 'Y':
                if (isVowel(at(1))) put(c);
                break;
            case 'X':
                put('K');
                put('S');
                break;
            default:
                break;
        }
    }

    void writeC() {
        if (at(-1) == 'S' && isFront(at(1))) return;
        if (at(1) == 'I' && at(2) == 'A') {
            put('X');
        } else if (isFront(at(1))) {
            put('S');
        } else if (at(1) == 'H' && at(-1) != 'S' && !(atStart() && isVowel(at(2)))) {
            put('X');
        } else {
            put('K');
        }
    }

    bool isSilentG() const {
        if (at(1) == 'H' && !isVowel(at(2))) return true;
        if (at(-1) == 'I' && at(1) == 'N') {
            if (!at(2) || (at(2) == 'E' && at(3) == 'D' && !at(4))) return true;
        }
        return at(-1) == 'D' && isFront(at(1));
    }

    // SIO, SIA, TIO, TIA inside a word.
    bool isHissing() const { return !atStart() && at(1) == 'I' && (at(2) == 'O' || at(2) == 'A'); }

    void writeT() {
        if (isHissing()) {
            put('X');
        } else if (at(1) == 'H') {
            put('0');
        } else if (!(at(1) == 'C' && at(2) == 'H')) {
            put('T');
        }
    }

    static constexpr std::size_t kBefore = 1;
    static constexpr std::size_t kBehind = 4;

    std::size_t size_;
    const char* letter_ = nullptr;
    char* out_ = nullptr;
    char letters_[kBefore + kLongestWord + kBehind];
};

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_Soundex(const char* text, const char* pad, int32_t length, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    soundex(text ? text : emptyText, fillOr(pad, '0'), atLeastZero(length), to);
    return to;
}

int32_t VX_CALL vx_SoundexLen(int32_t length) noexcept {
    std::int32_t previous = settings.soundexLength;
    if (length >= 0) settings.soundexLength = length;
    return previous;
}

char* VX_CALL vx_MetaFone(const char* word, char* dest) noexcept {
    if (!dest) return nullptr;
    return Metaphone(view(word)).writeKey(dest);
}
