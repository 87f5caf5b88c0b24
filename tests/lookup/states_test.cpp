// Every ZIP prefix, state code and name.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

struct StateRow {
    std::string code;
    int lowest, highest;
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
    for (StateRow row; text >> row.code >> row.lowest >> row.highest >> std::ws; rows.push_back(row))
        std::getline(text, row.name, '|');
    return rows;
}

std::string stateCode(const std::string& text) {
    Dest dest(21);
    return lib().StateCode(text.c_str(), dest);
}

TEST(States, EveryPrefix) {
    for (int prefix = 0; prefix <= 999; ++prefix) {
        std::string zip = std::to_string(1000 + prefix).substr(1) + "99", state = "??";
        for (const StateRow& row : readRows()) {
            bool inside = row.lowest <= prefix && prefix <= row.highest;
            if (inside) state = row.code;
            bool belongs = inside || (prefix == 213 && row.code == "PA");
            EXPECT_EQ(lib().IsZip(row.code.c_str(), zip.c_str()), belongs) << row.code << " " << zip;
        }
        Edit dest("??");
        lib().State(zip.c_str(), dest);
        EXPECT_EQ(dest.text(), prefix == 213 ? "PA" : state) << zip;
    }
}

TEST(States, EveryCodeAndName) {
    for (const auto& [code, lowest, highest, name] : readRows()) {
        std::string small = code, largeName = name;
        for (char& c : small) c = static_cast<char>(lib().ChrLower(c));
        for (char& c : largeName) c = static_cast<char>(lib().ChrUpper(c));
        for (const std::string& text : {code, small, "  " + code + " "}) EXPECT_EQ(stateCode(text), name);
        for (const std::string& text : {name, largeName, "  " + name + " "}) EXPECT_EQ(stateCode(text), code);
        EXPECT_EQ(stateCode(name + "s") + stateCode(name.substr(0, name.size() - 1)), "") << name;
        for (const std::string& text : {code, " " + code, code + " 90210"}) EXPECT_EQ(lib().IsState(text.c_str()), 1);
        for (const std::string& text : {small, code + "L", name}) EXPECT_EQ(lib().IsState(text.c_str()), 0) << text;
    }
}

}  // namespace
}  // namespace vx::test
