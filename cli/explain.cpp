#include "cli/explain.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "cli/arguments.h"
#include "cli/errors.h"
#include "cli/json.h"
#include "cli/text.h"

namespace vx::cli {
namespace {

using catalog::Argument;
using catalog::Entry;
using catalog::Family;
using catalog::lowerCase;

// A function's other forms: by what each entry's index says about another one.
struct Relatives {
    const Entry* pointerForm = nullptr;
    const Entry* zeroTwin = nullptr;
    const Entry* oneTwin = nullptr;
    const Entry* lengthForm = nullptr;
};

Relatives relativesOf(const Entry& entry) {
    auto entries = catalog::allEntries();
    int self = static_cast<int>(&entry - entries.data());
    auto at = [&](int index) { return index >= 0 ? &entries[index] : nullptr; };
    auto referring = [&](int Entry::*reference) -> const Entry* {
        auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.*reference == self; });
        return found == entries.end() ? nullptr : &*found;
    };
    return {at(entry.pointerForm), at(entry.zeroTwin), referring(&Entry::zeroTwin), referring(&Entry::pointerForm)};
}

const Family& familyOf(const Entry& entry) {
    auto families = catalog::allFamilies();
    return *std::find_if(families.begin(), families.end(),
                         [&](const Family& f) { return std::string_view(f.stem) == entry.family; });
}

std::string joined(std::span<const char* const> names) {
    std::string text;
    for (const char* name : names) text += (text.empty() ? "" : ", ") + std::string(name);
    return text;
}

Json argumentJson(const Entry& entry, const Argument& argument) {
    Json object = {{"name", argument.name},
                   {"kind", nameOf(argument.kind)},
                   {"meaning", argument.meaning},
                   {"supplied", isSupplied(argument.kind)}};
    if (argument.inPlace >= 0) object["inPlaceOf"] = entry.arguments[argument.inPlace].name;
    return object;
}

Json entryJson(const Entry& entry) {
    Json object = {{"name", entry.main()}, {"family", entry.family}};
    object["names"] = std::vector<std::string>(entry.names.begin(), entry.names.end());
    object["does"] = entry.does;
    object["declaration"] = entry.declaration;
    object["synopsis"] = synopsis(entry, entry.main());
    object["arguments"] = Json::array();
    for (const Argument& argument : entry.arguments) object["arguments"].push_back(argumentJson(entry, argument));
    object["result"] = {{"kind", nameOf(entry.result)}, {"meaning", entry.returns}};
    object["notes"] = entry.notes;
    object["examples"] = entry.examples;
    object["base"] = entry.base >= 0 ? Json(entry.base) : Json(nullptr);
    Relatives r = relativesOf(entry);
    for (auto [key, relative] : {std::pair{"lengthForm", r.lengthForm},
                                 {"pointerForm", r.pointerForm},
                                 {"zeroBasedTwin", r.zeroTwin},
                                 {"oneBasedTwin", r.oneTwin}}) {
        object[key] = relative ? Json(relative->main()) : Json(nullptr);
    }
    return object;
}

bool contains(std::string_view text, const std::string& lowerWanted) {
    return lowerCase(text).find(lowerWanted) != std::string::npos;
}

std::vector<const Entry*> matching(const std::string& wanted) {
    std::string lower = lowerCase(wanted);
    auto families = catalog::allFamilies();
    bool isFamily = std::any_of(families.begin(), families.end(), [&](const Family& f) { return f.stem == lower; });
    std::vector<const Entry*> found;
    for (const Entry& entry : catalog::allEntries()) {
        bool named =
            std::any_of(entry.names.begin(), entry.names.end(), [&](const char* n) { return contains(n, lower); });
        if (isFamily ? entry.family == lower : named || contains(entry.does, lower)) found.push_back(&entry);
    }
    return found;
}

Json listJson(const std::vector<const Entry*>& entries) {
    Json families = Json::array();
    for (const Family& family : catalog::allFamilies()) {
        Json functions = Json::array();
        for (const Entry* entry : entries) {
            if (std::string_view(entry->family) == family.stem) functions.push_back(entryJson(*entry));
        }
        if (!functions.empty())
            families.push_back({{"family", family.stem}, {"title", family.title}, {"functions", functions}});
    }
    return {{"families", families}};
}

std::string listText(const std::vector<const Entry*>& entries) {
    std::size_t width = 0;
    for (const Entry* entry : entries) width = std::max(width, std::string_view(entry->main()).size());
    std::string text;
    for (const Family& family : catalog::allFamilies()) {
        bool isFirst = true;
        for (const Entry* entry : entries) {
            if (std::string_view(entry->family) != family.stem) continue;
            if (isFirst) text += (text.empty() ? "" : "\n") + std::string(family.title) + " (" + family.stem + ")\n";
            isFirst = false;
            std::string name = entry->main();
            name.resize(width, ' ');
            text += "  " + name + "  " + entry->does + "\n";
        }
    }
    return text;
}

std::string indented(std::string_view lines) {
    std::string text;
    while (!lines.empty()) {
        std::size_t end = lines.find('\n');
        text += "  " + std::string(lines.substr(0, end)) + "\n";
        lines.remove_prefix(end == lines.npos ? lines.size() : end + 1);
    }
    return text;
}

std::string explainText(const Entry& entry) {
    std::string text = std::string(entry.main()) + ": " + entry.does + "\n\n  " + entry.declaration + "\n  " +
                       synopsis(entry, entry.main()) + "\n";
    if (!entry.arguments.empty()) text += "\nArguments\n" + argumentHelp(entry, false);
    text += "\nResult\n  " + std::string(entry.returns) + "\n";
    if (*entry.notes) text += "\nNotes\n  " + std::string(entry.notes) + "\n";
    if (*entry.examples) text += "\nExamples\n" + indented(entry.examples);
    text += "\nNames\n  " + joined(entry.names) + "\n";
    Relatives r = relativesOf(entry);
    std::string related;
    for (auto [label, relative] : {std::pair{"length form:   ", r.lengthForm},
                                   {"pointer form:  ", r.pointerForm},
                                   {"0-based twin:  ", r.zeroTwin},
                                   {"1-based twin:  ", r.oneTwin}}) {
        if (relative) related += "  " + std::string(label) + joined(relative->names) + "\n";
    }
    if (!related.empty()) text += "\nRelated\n" + related;
    const Family& family = familyOf(entry);
    return text + "\nFamily\n  " + family.title + " (" + family.stem + ")\n";
}

}  // namespace

std::string list(const std::string& wanted, bool asJson) {
    std::vector<const Entry*> entries = matching(wanted);
    if (entries.empty()) throw UsageError("no family, name or description matches " + inQuotes(wanted));
    return asJson ? listJson(entries).dump() + "\n" : listText(entries);
}

std::string explain(const Entry& entry, bool asJson) {
    return asJson ? entryJson(entry).dump() + "\n" : explainText(entry);
}

const Entry& entryOf(const std::string& name) {
    if (const Entry* entry = catalog::find(name)) return *entry;
    std::string message = "there is no function " + inQuotes(name);
    const char* gap = "; did you mean ";
    for (const std::string& likely : catalog::suggestions(name)) {
        message += gap + likely;
        gap = ", ";
    }
    throw UsageError(message + (*gap == ',' ? "?" : " (vexlor --list shows all)"));
}

}  // namespace vx::cli
