// Soundex codes and MetaFone keys.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

TEST(Phonetic, Soundex) {
    struct Row {
        const char* text;
        const char* pad;
        std::int32_t length;
        const char* code;
    };
    // The first letter does not hide the second's digit; a line feed is a first character like any; the third of a run
    // writes again; whatever has no digit separates.
    const Row rows[] = {{"Robert", nullptr, 4, "R163"},
                        {"Tymczak", nullptr, 4, "T522"},
                        {"Ashcraft", nullptr, 4, "A226"},
                        {"Pfister", nullptr, 4, "P123"},
                        {"  lee", nullptr, 4, "L000"},
                        {"\t \nlee", nullptr, 4, "\n400"},
                        {"", nullptr, 4, "0000"},
                        {nullptr, "", 4, "0000"},
                        {" \t ", "-", 2, "--"},
                        {"Lee", "*+", 4, "L***"},
                        {"Robert", nullptr, 0, ""},
                        {"Robert", nullptr, -5, ""},
                        {"Robert", nullptr, 1, "R"},
                        {"bpppx", nullptr, 6, "B11200"},
                        {"bpppp", nullptr, 4, "B110"},
                        {"ap1p-p p", nullptr, 6, "A11110"},
                        {"aphpwpypapp", nullptr, 8, "A1111100"},
                        {"\xE4k", nullptr, 1, "\xE4"}};
    for (auto [text, pad, length, code] : rows) {
        const std::size_t room = static_cast<std::size_t>(std::max(length, 0)) + 1;
        Dest dest(room);
        EXPECT_EQ(lib().Soundex(text, pad, length, dest), dest.get());
        EXPECT_EQ(dest.text(), code) << text;
        EXPECT_EQ(lib().StrSoundex(text, pad, length, dest), std::strlen(code)) << text;
        if (!text) continue;
        Edit edit(text, room);
        EXPECT_EQ(lib().Soundex(edit, pad, length, nullptr), edit.get());
        EXPECT_EQ(edit.text(), code) << text << " in place";
    }
    EXPECT_EQ(lib().Soundex(nullptr, nullptr, 4, nullptr), nullptr);
    EXPECT_EQ(lib().StrSoundex(nullptr, nullptr, 4, nullptr), 0u);
}

TEST(Phonetic, SoundexDigitOfEveryCharacter) {
    const char* const groups[] = {"BFPVbfpv", "CGJKQSXZcgjkqsxz", "DTdt", "Ll", "MNmn", "Rr"};
    for (int c = 1; c < 256; ++c) {
        char digit = '0';
        for (int g = 0; g < 6; ++g) {
            if (std::strchr(groups[g], c)) digit = static_cast<char>('1' + g);
        }
        const char text[] = {'A', static_cast<char>(c), '\0'};
        Dest dest(3);
        EXPECT_STREQ(lib().Soundex(text, nullptr, 2, dest), (std::string("A") + digit).c_str()) << c;
    }
}

TEST(Phonetic, SoundexLengthIsOnlyKept) {
    const std::int32_t settings[] = {-1, 6, -1, 0, 4}, before[] = {4, 4, 6, 6, 0};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(lib().SoundexLen(settings[i]), before[i]) << i;
        EXPECT_STREQ(lib().Soundex("Robert", nullptr, 4, Dest(5)), "R163");
    }
}

TEST(Phonetic, MetaFone) {
    // word=key
    std::istringstream rows(R"(
        KNIGHT=NT THOMAS=0MS PHONE=FN XAVIER=SFR WHITE=WT SCHOOL=SKL CHARLES=KRLS CHRIS=XRS AERIC=ERKK ZOO=Z
        PNEUMA=NM GNAT=NT WRITE=RT KN=N WH= WHC=KK AEC=EKK WHIC=WKK knife=NF SKN=SKN
        A=A OBOE=OB UAU=U ADDER=ATR AACC=AKK 12-= B1B=BB
        DUMB=TM DUMBO=TMB B=B MB=M SCENE=SN SCY=S CIA=X SCIA=S CITY=ST CYAN=SYN C=K SC=SK ACHE=AX CHE=K CH=X SCH=SK
        CAT=KT CI=S DGE=J EDGY=EJ EDGAR=ETKR DG=TK FJLMNR=FJLMNR
        GHT=T GHOST=KST AUGH=A SIGN=SN SIGNED=SNT SIGNAL=SKNL SIGNEDX=SKNTKS AGN=AKN GEM=JM GYM=JM BUGGY=BK GO=K BIG=BK
        EDGED=EJT BUDGIE=BJ H= HA=H HT=T OHIO=OH AH=A SHE=X RHO=RH BACK=BK KEY=K PAPH=PF P=P QQ=K
        ASIO=AX ASIA=AX SIO=S ASIT=AST SI=S ASH=AX ATIO=AX ATIA=AX TIO=T ATI=AT ATH=A0 MATTHEW=MT MATCH=MX MATC=MTK
        VAN=FN W= WE=W AWN=AN YES=YS TRY=TR AX=AKS XX=SKS AZ=AZ)");
    for (std::string row; rows >> row;) {
        const std::size_t size = row.find('=');
        const std::string word = row.substr(0, size);
        const std::string key = row.substr(size + 1);
        Dest dest(2 * size + 1);
        EXPECT_EQ(lib().MetaFone(word.c_str(), dest), dest.get());
        EXPECT_EQ(dest.text(), key) << word;
        EXPECT_EQ(lib().StrMetaFone(word.c_str(), dest), key.size()) << word;
    }
    Dest dest(1);
    for (const char* nothing : {"", static_cast<const char*>(nullptr)}) {
        EXPECT_STREQ(lib().MetaFone(nothing, dest), "");
    }
    EXPECT_EQ(lib().MetaFone("WORD", nullptr), nullptr);
}

TEST(Phonetic, MetaFoneUppersByTheTableAndEndsAt1024) {
    const int previous = lib().SetUpperTable('@', 'B');
    Dest dest(3);
    EXPECT_STREQ(lib().MetaFone("@", dest), "B");
    lib().SetUpperTable('@', previous);
    std::string word;
    for (int i = 0; i < 1024; ++i) word += i % 2 ? 'x' : 'y';
    Dest key(2 * 1024 + 1);
    EXPECT_EQ(lib().StrMetaFone((word + "MMMM").c_str(), key), 1024u);
    std::string most(1100, 'x');
    for (std::size_t i = 0; i < most.size(); i += 2) most[i] = 'c';
    EXPECT_EQ(lib().StrMetaFone(most.c_str(), key), 512u * 3);
}

}  // namespace
}  // namespace vx::test
