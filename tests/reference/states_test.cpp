// Every ZIP prefix, every state code and every name.
#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

struct StateRow {
    std::string code;
    int lowest;
    int highest;
    std::string name;
};

// By prefix: where two overlap, the later one has it. -1: no prefix.
constexpr char kStates[] =
    "PR 6 9 Puerto Rico|VI 8 8 Virgin Islands|MA 10 27 Massachusetts|RI 28 29 Rhode Island|NH 30 38 New Hampshire|"
    "ME 39 49 Maine|VT 50 59 Vermont|CT 60 69 Connecticut|NJ 70 89 New Jersey|NY 90 149 New York|"
    "PA 150 196 Pennsylvania|DE 197 199 Delaware|DC 200 205 District of Columbia|MD 206 219 Maryland|"
    "VA 220 246 Virginia|WV 247 268 West Virginia|NC 270 289 North Carolina|SC 290 299 South Carolina|"
    "GA 300 319 Georgia|FL 320 342 Florida|AL 350 369 Alabama|TN 370 385 Tennessee|MS 386 397 Mississippi|"
    "KY 400 427 Kentucky|OH 430 458 Ohio|IN 460 479 Indiana|MI 480 499 Michigan|IA 500 526 Iowa|WI 530 549 Wisconsin|"
    "MN 550 567 Minnesota|SD 570 577 South Dakota|ND 580 588 North Dakota|MT 590 599 Montana|IL 600 629 Illinois|"
    "MO 630 658 Missouri|KS 660 679 Kansas|NE 680 693 Nebraska|LA 700 714 Louisiana|AR 715 728 Arkansas|"
    "OK 730 749 Oklahoma|TX 750 799 Texas|CO 800 816 Colorado|WY 820 831 Wyoming|ID 832 838 Idaho|UT 840 847 Utah|"
    "AZ 850 865 Arizona|NM 870 884 New Mexico|NV 889 898 Nevada|CA 900 966 California|HI 967 968 Hawaii|"
    "GU 969 969 Guam|OR 970 979 Oregon|WA 980 994 Washington|AK 995 999 Alaska|AS -1 -1 American Samoa|";

std::vector<StateRow> readRows() {
    std::vector<StateRow> rows;
    std::istringstream text(kStates);
    for (StateRow row; text >> row.code >> row.lowest >> row.highest >> std::ws;) {
        std::getline(text, row.name, '|');
        rows.push_back(row);
    }
    return rows;
}

std::string mapped(std::string text, std::int32_t(VX_CALL* table)(std::int32_t)) {
    for (char& c : text) c = static_cast<char>(table(c));
    return text;
}

std::string stateOf(const std::string& zip) {
    Dest dest(3);
    std::memcpy(dest, "??", 3);
    EXPECT_EQ(lib().State(zip.c_str(), dest), dest.get());
    std::string code = dest.text();
    EXPECT_EQ(lib().strstate(zip.c_str(), dest), 2u);
    return code;
}

std::string stateCode(const char* text) {
    Dest dest(21);
    EXPECT_EQ(lib().StateCode(text, dest), dest.get());
    std::string code = dest.text();
    EXPECT_EQ(lib().strstatecode(text, dest), code.size());
    return code;
}

TEST(Zip, EveryPrefix) {
    const std::vector<StateRow> rows = readRows();
    ASSERT_EQ(rows.size(), 55u);
    for (int prefix = 0; prefix <= 999; ++prefix) {
        std::string zip = std::to_string(1000 + prefix).substr(1) + "99";
        std::string state = "??";  // what stays where there is no state
        for (const StateRow& row : rows) {
            bool inside = row.lowest <= prefix && prefix <= row.highest;
            if (inside) state = row.code;
            bool belongs = inside || (prefix == 213 && row.code == "PA");
            EXPECT_EQ(lib().IsZip(row.code.c_str(), zip.c_str()), belongs) << row.code << " " << zip;
        }
        if (prefix == 213) state = "PA";
        EXPECT_EQ(stateOf(zip), state) << zip;
    }
}

TEST(Zip, PrefixesAsTheyAreWritten) {
    struct Row {
        const char* zip;
        const char* state;        // "??" where there is none
        const char* afterBlanks;  // IsZip skips them, State counts them among the three characters
    };
    const Row rows[] = {{"90210", "CA", "CA"}, {"00801", "VI", "VI"},  {"00901", "PR", "PR"},   {"21301", "PA", "PA"},
                        {"00001", "??", "??"}, {"9021", "CA", "CA"},   {"902-10", "CA", "CA"},  {"60", "CT", "CT"},
                        {"8", "VI", "VI"},     {"", "??", "??"},       {"abc", "??", "??"},     {"6x4", "PR", "PR"},
                        {"x60", "??", "??"},   {"+60", "CT", "CT"},    {"-60", "??", "??"},     {"-1", "??", "??"},
                        {"\t60", "CT", "CT"},  {"\n\v8", "VI", "VI"},  {"\f\r7", "PR", "PR"},   {"- 8", "??", "??"},
                        {" 902", "NY", "CA"},  {"   902", "??", "CA"}, {" \t 902", "??", "PR"}, {"  -1", "??", "??"},
                        {"9\x80", "PR", "PR"}};
    for (const Row& row : rows) {
        EXPECT_EQ(stateOf(row.zip), row.state) << row.zip;
        EXPECT_EQ(lib().IsZip(row.afterBlanks, row.zip), row.afterBlanks != std::string("??")) << row.zip;
        EXPECT_EQ(lib().IsZip("AS", row.zip), 0) << "kept: no range, " << row.zip;
    }
    EXPECT_EQ(stateOf(std::string(5000, '9')), "AK");
    Dest dest(3);
    std::memcpy(dest, "??", 3);
    EXPECT_EQ(lib().State(nullptr, dest), dest.get());
    EXPECT_EQ(dest.text(), "??");
    EXPECT_EQ(lib().State("90210", nullptr), nullptr);
    EXPECT_EQ(lib().strstate("90210", nullptr), 0u);
    char mail[] = "??ail";
    EXPECT_STREQ(lib().State("00001", mail), "??ail") << "kept: not emptied";
}

TEST(Zip, StateArgument) {
    const std::string blanks(254, ' ');
    struct Row {
        std::string state;
        std::int32_t result;
    };
    for (const Row& row : {Row{"ny", 1}, Row{" Ny  ", 1}, Row{"NJ", 0}, Row{"N", 0}, Row{"NYC", 0}, Row{"N Y", 0},
                           Row{"", 0}, Row{"XX", 0}, Row{"\tNY", 0}, Row{blanks + "NY", 1}, Row{blanks + "NY ", 0}})
        EXPECT_EQ(lib().IsZip(row.state.c_str(), "10001"), row.result) << "[" << row.state << "]";
    EXPECT_EQ(lib().IsZip(" pa ", "21399"), 1);
    EXPECT_EQ(lib().IsZip("MD", "21399"), 1) << "within its range all the same";
    EXPECT_EQ(lib().IsZip(nullptr, "10001"), 0);
    EXPECT_EQ(lib().IsZip("NY", nullptr), 0);
}

TEST(States, EveryCodeAndName) {
    for (const auto& [code, lowest, highest, name] : readRows()) {
        const std::string small = mapped(code, lib().ChrLower);
        for (const std::string& text : {code, small, "  " + code, code + "   ", " " + small + " "}) {
            EXPECT_EQ(stateCode(text.c_str()), name) << text;
        }
        for (const std::string& text :
             {name, mapped(name, lib().ChrLower), mapped(name, lib().ChrUpper), "  " + name + " "}) {
            EXPECT_EQ(stateCode(text.c_str()), code) << text;
        }
        EXPECT_EQ(stateCode((name + "s").c_str()), "") << name;
        EXPECT_EQ(stateCode(name.substr(0, name.size() - 1).c_str()), "") << name;
        for (const std::string& text : {code, " " + code, code + " 90210", "   " + code + " "}) {
            EXPECT_EQ(lib().IsState(text.c_str()), 1) << text;
        }
        for (const std::string& text : {small, code + "L", code + "\t", code.substr(0, 1), "\t" + code, name}) {
            EXPECT_EQ(lib().IsState(text.c_str()), 0) << text;
        }
    }
}

TEST(States, TextsThatNameNone) {
    const std::string blanks(255, ' ');
    EXPECT_EQ(stateCode((blanks + "CA").c_str()), "California") << "257 characters";
    EXPECT_EQ(stateCode((blanks + "CA ").c_str()), "") << "258 characters";
    for (const char* text : {"X", "", " ", "XX", "New  York", "??", "\tCA", "C A", static_cast<const char*>(nullptr)})
        EXPECT_EQ(stateCode(text), "") << (text ? text : "NULL");
    for (const char* text : {"", "  ", "XX", "C", "C A", static_cast<const char*>(nullptr)})
        EXPECT_EQ(lib().IsState(text), 0) << (text ? text : "NULL");
    EXPECT_EQ(lib().StateCode("CA", nullptr), nullptr);
    EXPECT_EQ(lib().strstatecode("CA", nullptr), 0u);
}

}  // namespace
}  // namespace vx::test
