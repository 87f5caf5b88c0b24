#include "cli/table.h"

#include <algorithm>
#include <string_view>

#include "cli/errors.h"
#include "cli/json.h"
#include "cli/print.h"
#include "cli/text.h"

namespace vx::cli {
namespace {

constexpr std::int32_t kReadAndShare = 0x40;
constexpr std::size_t kLongestMemo = 65536;
constexpr std::size_t kWidest = 40;  // columns for people are cut here
constexpr std::size_t kRecordWidth = 7;

bool isNumber(const TableField& field) { return field.type == 'N' || field.type == 'F'; }

std::size_t widthOf(const TableField& field) {
    std::size_t width = field.type == 'M' || field.type == 'B' ? kWidest : static_cast<std::size_t>(field.length);
    return std::clamp(width, field.name.size(), std::max(kWidest, field.name.size()));
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    return text;
}

// What a terminal can show in one line: control characters as blanks, bytes that are no UTF-8 as Latin-1.
std::string printable(std::string_view bytes) {
    std::string text = isUtf8(bytes) ? std::string(bytes) : latin1ToUtf8(bytes);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; }, ' ');
    return text;
}

bool startsCharacter(char c) { return (c & 0xC0) != 0x80; }

// Fills or cuts to a width in characters.
std::string inColumn(const std::string& text, std::size_t width, bool toTheRight) {
    auto count = static_cast<std::size_t>(std::count_if(text.begin(), text.end(), startsCharacter));
    if (count <= width) {
        std::string fill(width - count, ' ');
        return toTheRight ? fill + text : text + fill;
    }
    std::size_t end = 0;
    for (std::size_t shown = 0; end < text.size(); ++end) {
        if (startsCharacter(text[end]) && shown++ == width - 2) break;
    }
    return text.substr(0, end) + "..";
}

std::string withoutEndBlanks(std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    return line + '\n';
}

}  // namespace

Table::Table(const Library& library, const std::string& file)
    : library_(library),
      handle_(find<std::uint32_t(const char*, std::int32_t)>("DbfOpen")(file.c_str(), kReadAndShare)),
      fieldSize_(find<FieldQuery>("DbfFieldSize")),
      fieldGet_(find<FieldText>("strdbfFieldGet")) {
    if (handle_ == 0) {
        std::uint32_t code = find<std::uint32_t()>("FError")();
        throw SystemError("cannot open " + file + " as a table (error " + std::to_string(code) + ")");
    }
    readFields();
}

Table::~Table() { find<Query>("DbfClose")(handle_); }

void Table::readFields() {
    auto* name = find<FieldText>("strdbfFieldName");
    auto* type = find<FieldText>("strdbfFieldType");
    auto* length = find<FieldQuery>("DbfFieldLen");
    auto* decimals = find<FieldQuery>("DbfFieldDec");
    for (std::int32_t i = 1; i <= find<Query>("DbfFieldCount")(handle_); ++i) {
        char text[16] = "";
        name(handle_, i, text);
        TableField field{text, '?', length(handle_, i), 0};
        if (type(handle_, i, text) == 1) field.type = text[0];
        if (isNumber(field)) field.decimals = decimals(handle_, i);
        fields_.push_back(field);
    }
}

std::int32_t Table::recordSize() const { return find<Query>("DbfRecordSize")(handle_); }
std::int32_t Table::recordCount() const { return find<Query>("DbfLastrec")(handle_); }
void Table::go(std::int32_t record) { find<FieldQuery>("DbfGoto")(handle_, record); }
bool Table::isDeleted() const { return find<Query>("DbfIsDeleted")(handle_) != 0; }

std::string Table::value(std::size_t field) {
    auto number = static_cast<std::int32_t>(field + 1);
    std::int32_t size = std::max(fieldSize_(handle_, number), fields_[field].length);
    // A damaged table may tell sizes that nothing fills: what is not filled is not touched.
    std::size_t room = std::max(kLongestMemo, static_cast<std::size_t>(std::max(size, 0))) + 1;
    if (room > room_) {
        buffer_ = std::make_unique_for_overwrite<char[]>(room);
        room_ = room;
    }
    std::int32_t placed = fieldGet_(handle_, number, buffer_.get());
    return std::string(trimmed({buffer_.get(), static_cast<std::size_t>(std::max(placed, 0))}));
}

std::string tableHeading(const Table& table, const std::string& file) {
    std::string text = file + ": " + std::to_string(table.recordCount()) + " records of " +
                       std::to_string(table.recordSize()) + " bytes\n";
    std::string line(kRecordWidth, ' ');
    for (const TableField& field : table.fields()) {
        std::string length = std::to_string(field.length);
        if (field.decimals) length += "," + std::to_string(field.decimals);
        text += "  " + inColumn(field.name, 10, false) + "  " + field.type + "  " + length + "\n";
        line += "  " + inColumn(field.name, widthOf(field), isNumber(field));
    }
    return text + "\n" + withoutEndBlanks(line);
}

std::string tableRow(Table& table, std::int32_t record) {
    std::string line = inColumn(std::to_string(record), kRecordWidth - 1, true) + (table.isDeleted() ? "*" : " ");
    for (std::size_t i = 0; i < table.fields().size(); ++i) {
        const TableField& field = table.fields()[i];
        line += "  " + inColumn(printable(table.value(i)), widthOf(field), isNumber(field));
    }
    return withoutEndBlanks(line);
}

std::string tableJson(Table& table, std::int32_t record) {
    Json values = Json::object();
    for (std::size_t i = 0; i < table.fields().size(); ++i) values[table.fields()[i].name] = textAsJson(table.value(i));
    return Json{{"record", record}, {"deleted", table.isDeleted()}, {"fields", std::move(values)}}.dump() + '\n';
}

}  // namespace vx::cli
