#include "fuzz/texts.h"

#include <algorithm>

namespace vx::fuzz {
namespace {

constexpr std::string_view kAlphabets[] = {
    "",  // all characters
    "",
    "a ",
    "ab \t",
    " \t",
    "ab \r\n\x8A\x8D",
    "\r\n\x8D",
    "AaBb\x81\x9A\x82\x45\x8E\x84",
    "0123456789",
    "0123456789+-.,eE ",
    "0123456789ABCDEFabcdef",
    "01",
    "MDCLXVI",
    "ab,;|/",
    "a,b\"' ",
    "ab()[]{}<>",
    "*?ab.",
    "ab.*+?[]-^$\\(){}|",
    "C:\\/ab.*",
    "ab.;",
    "%-+ #.0123456789dfsgx",
    "0123456789/-.: ",
    "YMDHSNymdhsn/-: ",
    "+-*/^()0123456789. ",
    "CNLDMF0123456789, ",
    "<>=&\"#!@;",
};

constexpr std::string_view kWellFormed[] = {
    "19960814",
    "08/14/1996",
    "8/14/96",
    "14.08.1996",
    "1996-08-14",
    "August 14, 1996",
    "00000000",
    "19000229",
    "14:28:06",
    "2:28 pm",
    "23:59:59",
    "MM/DD/YYYY",
    "WWWW, MMMM DD, YYYY",
    "C:\\",
    "C:\\dir\\name.ext",
    "C:\\DATA\\LETTER.TXT",
    "C:\\DATA\\LONG.TXT",
    "C:\\DATA\\*.*",
    "C:\\DATA",
    "\\data\\new.txt",
    "C:/dir/sub/",
    "..\\name",
    "\\\\server\\share\\name",
    "A:name.ext",
    "*.*",
    "*.txt;*.doc",
    "a*b?c",
    "[a-z]+[0-9]*",
    "^(ab|cd)*$",
    "[^ ]*\\.",
    "-123456.789",
    "1.5e300",
    "0x1F",
    "-32768",
    "2147483648",
    "MCMXCVI",
    "(1+2)*3/4",
    "%10.2f",
    "999,999.99",
    "NAME,C,10,0;AMOUNT,N,12,2",
    "name=value",
    "comspec",
    "SystemDrive",
    "PATH",
    "V1",
    "The quick brown fox jumps over the lazy dog.",
};

// Around these sizes lie the ends of customary buffers.
constexpr std::int32_t kBufferSizes[] = {16, 80, 128, 255, 256, 260, 512, 1024, 4096};

std::size_t drawLength(Random& random) {
    switch (random.below(40)) {
        case 0:
            return static_cast<std::size_t>(random.between(100, 6000));
        case 1: {
            std::int32_t size = random.of(kBufferSizes);
            size += random.between(-2, 2);
            return static_cast<std::size_t>(size);
        }
        case 2:
        case 3:
            return 0;
        default:
            return static_cast<std::size_t>(random.between(0, random.oneIn(2) ? 8 : 80));
    }
}

}  // namespace

std::string_view drawAlphabet(Random& random) { return random.of(kAlphabets); }

char drawCharacter(Random& random, std::string_view alphabet) {
    return alphabet.empty() ? static_cast<char>(random.between(1, 255)) : random.of(alphabet);
}

std::string drawText(Random& random, std::string_view alphabet) {
    std::string text(drawLength(random), '\0');
    bool oneCharacterOnly = random.oneIn(16);
    char c = drawCharacter(random, alphabet);
    for (char& place : text) place = oneCharacterOnly ? c : drawCharacter(random, alphabet);
    if (!random.oneIn(4) || oneCharacterOnly) return text;
    // Blanks at the ends matter to more functions than any other characters do.
    std::size_t before = random.below(4);
    std::size_t behind = random.below(4);
    return std::string(before, ' ') + text + std::string(behind, ' ');
}

std::string drawWellFormed(Random& random) { return std::string(random.of(kWellFormed)); }

std::string drawPiece(Random& random, std::string_view of, std::string_view alphabet) {
    if (of.empty()) return {};
    auto size = static_cast<std::uint32_t>(of.size());
    std::uint32_t start = random.below(size);
    std::uint32_t longest = std::min(size - start, random.oneIn(4) ? size : 5u);
    std::string piece(of.substr(start, random.below(longest) + 1));
    if (random.oneIn(4)) {
        std::size_t changed = random.below(static_cast<std::uint32_t>(piece.size()));
        piece[changed] = drawCharacter(random, alphabet);
    }
    return piece;
}

}  // namespace vx::fuzz
