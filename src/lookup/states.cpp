// US states and territories by ZIP prefix, code and name.
#include "entries/states.h"

#include <algorithm>
#include <iterator>

#include "frame/text.h"
#include "strings/trim.h"

namespace vx {

namespace {

struct StateRow {
    std::string_view code;
    std::string_view name;
    int lowest;  // three-digit ZIP prefixes
    int highest;
};

constexpr int kNone = -1;

constexpr StateRow kStates[] = {
    {"AK", "Alaska", 995, 999},
    {"AL", "Alabama", 350, 369},
    {"AR", "Arkansas", 715, 728},
    {"AZ", "Arizona", 850, 865},
    {"AS", "American Samoa", kNone, kNone},
    {"CA", "California", 900, 966},
    {"CO", "Colorado", 800, 816},
    {"CT", "Connecticut", 60, 69},
    {"DC", "District of Columbia", 200, 205},
    {"DE", "Delaware", 197, 199},
    {"FL", "Florida", 320, 342},
    {"GA", "Georgia", 300, 319},
    {"GU", "Guam", 969, 969},
    {"HI", "Hawaii", 967, 968},
    {"IA", "Iowa", 500, 526},
    {"ID", "Idaho", 832, 838},
    {"IL", "Illinois", 600, 629},
    {"IN", "Indiana", 460, 479},
    {"KS", "Kansas", 660, 679},
    {"KY", "Kentucky", 400, 427},
    {"LA", "Louisiana", 700, 714},
    {"MA", "Massachusetts", 10, 27},
    {"MD", "Maryland", 206, 219},
    {"ME", "Maine", 39, 49},
    {"MI", "Michigan", 480, 499},
    {"MN", "Minnesota", 550, 567},
    {"MO", "Missouri", 630, 658},
    {"MS", "Mississippi", 386, 397},
    {"MT", "Montana", 590, 599},
    {"NE", "Nebraska", 680, 693},
    {"NC", "North Carolina", 270, 289},
    {"ND", "North Dakota", 580, 588},
    {"NH", "New Hampshire", 30, 38},
    {"NJ", "New Jersey", 70, 89},
    {"NM", "New Mexico", 870, 884},
    {"NV", "Nevada", 889, 898},
    {"NY", "New York", 90, 149},
    {"OH", "Ohio", 430, 458},
    {"OK", "Oklahoma", 730, 749},
    {"OR", "Oregon", 970, 979},
    {"PA", "Pennsylvania", 150, 196},
    {"PR", "Puerto Rico", 6, 9},
    {"RI", "Rhode Island", 28, 29},
    {"SC", "South Carolina", 290, 299},
    {"SD", "South Dakota", 570, 577},
    {"TN", "Tennessee", 370, 385},
    {"TX", "Texas", 750, 799},
    {"UT", "Utah", 840, 847},
    {"VA", "Virginia", 220, 246},
    {"VI", "Virgin Islands", 8, 8},
    {"VT", "Vermont", 50, 59},
    {"WV", "West Virginia", 247, 268},
    {"WA", "Washington", 980, 994},
    {"WI", "Wisconsin", 530, 549},
    {"WY", "Wyoming", 820, 831},
};

// One prefix in Maryland's range has Pennsylvania's post offices.
constexpr int kStrayPrefix = 213;
constexpr std::string_view kStrayCode = "PA";

constexpr std::size_t kCodeSize = 2;
constexpr std::size_t kMostInStateCode = 257;
constexpr std::size_t kMostInIsZip = 256;

// The last row that passes: of ranges that overlap the later one counts.
template <class Test>
const StateRow* findState(Test test) {
    auto row = std::find_if(std::rbegin(kStates), std::rend(kStates), test);
    return row == std::rend(kStates) ? nullptr : &*row;
}

const StateRow* findCode(std::string_view code) {
    return findState([code](const StateRow& row) { return row.code == code; });
}

bool holds(const StateRow& row, int prefix) {
    return row.lowest != kNone && prefix >= row.lowest && prefix <= row.highest;
}

// The first three characters as a number, as far as they are one: white space, a sign, digits.
int zipPrefix(std::string_view zip) {
    zip = zip.substr(0, 3);
    std::size_t i = 0;
    while (i < zip.size() && (zip[i] == ' ' || (zip[i] >= '\t' && zip[i] <= '\r'))) ++i;
    bool negative = i < zip.size() && zip[i] == '-';
    if (negative || (i < zip.size() && zip[i] == '+')) ++i;
    int number = 0;
    for (; i < zip.size() && zip[i] >= '0' && zip[i] <= '9'; ++i) number = 10 * number + (zip[i] - '0');
    return negative ? -number : number;
}

// A caller's text without blanks around it and in upper case, in place here.
class Raised {
 public:
    // A text of more than `longest` characters counts as empty.
    Raised(const char* text, std::size_t longest) {
        std::size_t size = text ? strnlen(text, longest + 1) : 0;
        if (size > longest) return;
        std::string_view kept = withoutBlanks({text, size});
        size_ = kept.size();
        std::transform(kept.begin(), kept.end(), text_, upper);
    }

    std::string_view view() const { return {text_, size_}; }

 private:
    std::size_t size_ = 0;
    char text_[kMostInStateCode];
};

// Case-blind by the library's tables, for a text that is in upper case already.
bool isNameOf(const StateRow& row, std::string_view raised) {
    return std::equal(raised.begin(), raised.end(), row.name.begin(), row.name.end(),
                      [](char a, char b) { return upper(a) == upper(b); });
}

std::string_view stateCode(std::string_view raised) {
    if (raised.size() < kCodeSize) return {};
    if (raised.size() == kCodeSize) {
        const StateRow* row = findCode(raised);
        return row ? row->name : std::string_view();
    }
    const StateRow* row = findState([raised](const StateRow& r) { return isNameOf(r, raised); });
    return row ? row->code : std::string_view();
}

std::string_view stateOfZip(int prefix) {
    if (prefix == kStrayPrefix) return kStrayCode;
    const StateRow* row = findState([prefix](const StateRow& r) { return holds(r, prefix); });
    return row ? row->code : std::string_view();
}

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_State(const char* zip, char* dest) noexcept {
    std::string_view code = stateOfZip(zipPrefix(view(zip)));
    // kept: without a state the destination stays as it was.
    return dest && !code.empty() ? store(dest, code) : dest;
}

char* VX_CALL vx_StateCode(const char* text, char* dest) noexcept {
    return dest ? store(dest, stateCode(Raised(text, kMostInStateCode).view())) : nullptr;
}

int32_t VX_CALL vx_IsState(const char* text) noexcept {
    // kept: letter case counts here, unlike in StateCode and IsZip.
    std::string_view code = withoutLeadingBlanks(view(text));
    if (code.size() > kCodeSize && code[kCodeSize] != ' ') return 0;
    return findCode(code.substr(0, kCodeSize)) != nullptr;
}

int32_t VX_CALL vx_IsZip(const char* state, const char* zip) noexcept {
    int prefix = zipPrefix(withoutLeadingBlanks(view(zip)));
    Raised code(state, kMostInIsZip);
    if (prefix == kStrayPrefix && code.view() == kStrayCode) return 1;
    const StateRow* row = findCode(code.view());
    return row && holds(*row, prefix);
}
