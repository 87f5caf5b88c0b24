#include "cli/print.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "cli/text.h"

namespace vx::cli {
namespace {

std::string character(std::int64_t code) {
    char c = static_cast<char>(code);
    std::string shown = inQuotes({&c, 1});
    return std::to_string(code) + "  " + (c == '"' ? "'\"'" : "'" + shown.substr(1, shown.size() - 2) + "'");
}

std::string human(const Item& item) {
    switch (item.form) {
        case Form::kNothing:
            return "done";
        case Form::kNull:
            return "NULL";
        case Form::kText:
            return inQuotes(item.bytes);
        case Form::kNumber:
            return std::to_string(item.number);
        case Form::kCharacter:
            return character(item.number);
        case Form::kBlock:
            return hexDump(item.bytes);
    }
    return {};
}

void appendRaw(std::string& to, const Item& item) {
    switch (item.form) {
        case Form::kNothing:
        case Form::kNull:
            break;
        case Form::kText:
            to += item.bytes;
            break;
        case Form::kNumber:
        case Form::kCharacter:
            to += std::to_string(item.number);
            break;
        case Form::kBlock:
            to += hex(item.bytes);
            break;
    }
    to += '\n';
}

// Lines after an item's first one stand below it, not below its label.
void appendIndented(std::string& to, std::string_view text, std::size_t indent) {
    for (char c : text) {
        to += c;
        if (c == '\n') to.append(indent, ' ');
    }
    to += '\n';
}

void appendHuman(std::string& to, const Outcome& outcome) {
    std::vector<std::pair<std::string_view, std::string>> shown;
    // What the result says is not said twice when it is one of the outputs, or nothing beside them.
    if (outcome.outputs.empty() || !(outcome.resultIsOutput || outcome.result.form == Form::kNothing)) {
        std::string text = human(outcome.result);
        if (outcome.within) text += "  at " + std::string(outcome.within) + " + " + std::to_string(outcome.offset);
        shown.emplace_back(outcome.result.label, text);
    }
    for (const Item& item : outcome.outputs) shown.emplace_back(item.label, human(item));
    if (shown.size() == 1) {
        appendIndented(to, shown[0].second, 0);
        return;
    }
    std::size_t width = 0;
    for (const auto& [label, text] : shown) width = std::max(width, label.size());
    for (const auto& [label, text] : shown) {
        to.append(label).append(width - label.size() + 2, ' ');
        appendIndented(to, text, width + 2);
    }
}

Json bytesAsJson(std::string_view bytes) { return {{"text", latin1ToUtf8(bytes)}, {"hex", hex(bytes)}}; }

Json json(const Item& item) {
    switch (item.form) {
        case Form::kNothing:
        case Form::kNull:
            return nullptr;
        case Form::kText:
            return textAsJson(item.bytes);
        case Form::kNumber:
        case Form::kCharacter:
            return item.number;
        case Form::kBlock:
            return bytesAsJson(item.bytes);
    }
    return nullptr;
}

Json json(const std::string& name, const Outcome& outcome) {
    Json object = {{"name", name}, {"result", json(outcome.result)}};
    if (outcome.within && !outcome.resultIsOutput)
        object["within"] = {{"argument", outcome.within}, {"offset", outcome.offset}};
    Json outputs = Json::object();
    for (const Item& item : outcome.outputs) outputs[std::string(item.label)] = json(item);
    object["outputs"] = std::move(outputs);
    return object;
}

}  // namespace

Json textAsJson(std::string_view bytes) { return isUtf8(bytes) ? Json(std::string(bytes)) : bytesAsJson(bytes); }

void append(std::string& to, Style style, const std::string& name, const Outcome& outcome) {
    switch (style) {
        case Style::kHuman:
            return appendHuman(to, outcome);
        case Style::kRaw:
            return appendRaw(to, outcome.main);
        case Style::kJson:
            to += json(name, outcome).dump() + '\n';
    }
}

}  // namespace vx::cli
