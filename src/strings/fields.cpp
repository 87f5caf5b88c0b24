// The fields between single delimiters, and the sections between an opening and a closing mark.
#include "strings/fields.h"

#include "entries/search.h"
#include "frame/text.h"
#include "strings/characters.h"
#include "strings/find.h"

namespace vx {
namespace {

Field fieldBetween(std::string_view text, char delimiter, std::int32_t n) {
    std::size_t start = 0;
    std::size_t end = text.find(delimiter);
    for (; n > 1 && end != kNotFound; --n) {
        start = end + 1;
        end = text.find(delimiter, start);
    }
    if (n > 1) return {text.size(), 0, text.size()};
    if (end == kNotFound) return {start, text.size() - start, text.size()};
    return {start, end - start, end + 1};
}

// A section that is not closed is none.
Field nextSection(std::string_view text, std::string_view marks, std::size_t from) {
    std::size_t open = text.find(marks[0], from);
    std::size_t close = open == kNotFound ? kNotFound : text.find(marks[1], open + 1);
    if (close == kNotFound) return {text.size(), 0, text.size()};
    return {open + 1, close - open - 1, close + 1};
}

}  // namespace

Field findField(std::string_view text, std::string_view delimiters, std::int32_t n) {
    if (delimiters.empty()) return n > 1 ? Field{text.size(), 0, text.size()} : Field{0, text.size(), text.size()};
    if (delimiters.size() == 1) return fieldBetween(text, delimiters.front(), n);
    Field section = nextSection(text, delimiters, 0);
    for (; n > 1 && section.start < text.size(); --n) section = nextSection(text, delimiters, section.next);
    return section;
}

}  // namespace vx

using namespace vx;

uint32_t VX_CALL vx_DelimCount(const char* text, const char* delimiters) noexcept {
    std::string_view all = view(text);
    std::string_view marks = delimiterMarks(delimiters);
    if (all.empty()) return 0;
    if (marks.empty()) return 1;
    if (marks.size() == 1) return static_cast<std::uint32_t>(1 + countCharacter(marks.front(), all));
    std::uint32_t sections = 0;
    for (Field section = nextSection(all, marks, 0); section.start < all.size(); ++sections) {
        section = nextSection(all, marks, section.next);
    }
    return sections;
}

char* VX_CALL vx_StrExtract(const char* text, const char* delimiters, int32_t n, char* dest) noexcept {
    if (!dest) return const_cast<char*>(emptyText);
    std::string_view all = view(text);
    Field field = findField(all, delimiterMarks(delimiters), n);
    return store(dest, all.substr(field.start, field.length));
}
