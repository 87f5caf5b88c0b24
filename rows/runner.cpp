#include "rows/runner.h"

#include <algorithm>

#include "rows/call.h"
#include "rows/setup.h"

namespace vx::rows {
namespace {

using catalog::Argument;
using catalog::Entry;
using catalog::Kind;

const Row* running = nullptr;

std::size_t indexOf(const Entry& entry) { return static_cast<std::size_t>(&entry - catalog::allEntries().data()); }

const Entry* lengthFormOf(const Entry& entry) {
    for (const Entry& other : catalog::allEntries()) {
        if (other.pointerForm == static_cast<int>(indexOf(entry))) return &other;
    }
    return nullptr;
}

const Argument* destinationOf(const Entry& entry) {
    auto found = std::find_if(entry.arguments.begin(), entry.arguments.end(),
                              [](const Argument& a) { return a.kind == Kind::kDest; });
    return found == entry.arguments.end() ? nullptr : &*found;
}

// The text that the result is made from: the one called so, else the first; -1 if there is none.
int textOf(const Entry& entry) {
    int first = -1;
    for (int i = static_cast<int>(entry.arguments.size()); i-- > 0;) {
        const Argument& argument = entry.arguments[static_cast<std::size_t>(i)];
        if (argument.kind != Kind::kStr) continue;
        if (argument.name == std::string("text")) return i;
        first = i;
    }
    return first;
}

class Runner {
 public:
    explicit Runner(const Host& host) : host_(host) {}

    void runBlock(const Block& block) {
        if (!Surroundings::isFor(block, host_)) {
            ++report_.left;
            return;
        }
        variables_.clear();
        std::optional<Surroundings> surroundings;
        try {
            surroundings.emplace(block, host_, variables_);
        } catch (const ScriptError& error) {
            report_.failures.emplace_back(error.what());
            return;
        }
        for (const Row& row : block.rows) runRow(row, surroundings->isPlace());
    }

    Report report_;

 private:
    void fail(const Row& row, const std::string& label, const std::string& what) {
        report_.failures.push_back(row.file + ":" + std::to_string(row.line) + ": " + row.source +
                                   (label.empty() ? "" : "\n  " + label) + "\n  " + what);
    }

    // A call in a form of its own; null if it could not be made. The number or text that it gave.
    std::unique_ptr<Call> make(const Row& row, const Form& form) {
        try {
            auto call = std::make_unique<Call>(row, form, variables_);
            makeBy(host_, *call, form);
            ++report_.calls;
            return call;
        } catch (const std::string& what) {
            fail(row, form.label, what);
            return nullptr;
        }
    }

    std::unique_ptr<Call> check(const Row& row, const Form& form) {
        auto call = make(row, form);
        if (!call) return nullptr;
        for (const std::string& difference : call->differences(row, variables_)) fail(row, form.label, difference);
        return call;
    }

    void runRow(const Row& row, bool once) {
        ++report_.rows;
        running = &row;
        runForms(row, once);
        running = nullptr;
    }

    void runForms(const Row& row, bool once) {
        const Entry* entry = catalog::find(row.name);
        if (!entry) return fail(row, "", "there is no function " + row.name);
        if (host_.machine) host_.machine->beginCall();
        auto call = check(row, {.label = "", .entry = entry, .name = row.name});
        if (!call) return;
        checkMachine(row, *call);
        if (once || entry->remembers || host_.onlyRows) return;
        const char* other = entry->names[static_cast<std::size_t>(report_.rows) % entry->names.size()];
        check(row, {.label = std::string("as ") + other + ", in buffers behind inaccessible pages",
                    .entry = entry,
                    .name = other,
                    .atFront = true});
        runInPlace(row, *entry, *call);
        runWithoutOutputs(row, *entry, *call);
        if (const Entry* length = lengthFormOf(*entry)) runLength(row, *length, false);
        if (entry->zeroTwin >= 0) runZeroBased(row, *entry);
    }

    void checkMachine(const Row& row, const Call& call) {
        for (const auto& [name, wanted] : row.outputs) {
            if (name == "in-place" || call.knows(name)) continue;
            const Value* seen = host_.machine ? host_.machine->observed(name) : nullptr;
            if (!seen) {
                fail(row, "", "there is no output `" + name + "`");
            } else if (shown(*seen) != shown(wanted)) {
                fail(row, "", name + ": wanted " + shown(wanted) + ", got " + shown(*seen));
            }
        }
    }

    // NULL for the destination, and the text itself.
    void runInPlace(const Row& row, const Entry& entry, const Call& plain) {
        const Argument* dest = destinationOf(entry);
        if (!dest || !row.given.empty()) return;
        std::size_t at = static_cast<std::size_t>(dest - entry.arguments.data());
        if (plain.hasNull(at)) return;
        bool differs =
            std::any_of(row.outputs.begin(), row.outputs.end(), [](auto& o) { return o.first == "in-place"; });
        if (dest->inPlace >= 0 && !plain.hasNull(static_cast<std::size_t>(dest->inPlace))) {
            Form form{.label = "in place", .entry = &entry, .name = entry.main(), .inPlace = true};
            check(row, form);
            if (const Entry* length = lengthFormOf(entry)) runLength(row, *length, true);
        }
        int text = textOf(entry);
        if (differs || dest->apart || text < 0 || plain.hasNull(static_cast<std::size_t>(text))) return;
        check(row, {.label = "with its text as destination", .entry = &entry, .name = entry.main(), .onto = text});
    }

    void runWithoutOutputs(const Row& row, const Entry& entry, const Call& plain) {
        for (std::size_t i = 0; i < entry.arguments.size(); ++i) {
            if (entry.arguments[i].kind != Kind::kOut || plain.hasNull(i)) continue;
            check(row, {.label = std::string("without ") + entry.arguments[i].name,
                        .entry = &entry,
                        .name = entry.main(),
                        .without = static_cast<int>(i)});
        }
    }

    // The length form writes what the pointer form writes, and gives the length of its text.
    void runLength(const Row& row, const Entry& length, bool inPlace) {
        Form form{.label = std::string("as ") + length.main() + (inPlace ? " in place" : ""),
                  .entry = &length,
                  .name = length.main(),
                  .inPlace = inPlace};
        auto call = make(row, form);
        if (!call) return;
        Form pointerForm = form;
        pointerForm.entry = &catalog::allEntries()[static_cast<std::size_t>(length.pointerForm)];
        std::int64_t number = call->number();
        std::optional<std::string> left = call->written();
        pointerForm.name = pointerForm.entry->main();
        auto pointer = make(row, pointerForm);
        if (!pointer) return;
        std::string text = pointer->text().value_or("");
        if (number != static_cast<std::int64_t>(text.size()))
            fail(row, form.label, "gave " + std::to_string(number) + " for " + inQuotes(text));
        if (left != pointer->written()) fail(row, form.label, "left " + inQuotes(left.value_or("")) + " behind");
    }

    void runZeroBased(const Row& row, const Entry& entry) {
        const Entry& zero = catalog::allEntries()[static_cast<std::size_t>(entry.zeroTwin)];
        Form form{.label = std::string("as ") + zero.main() + ", 0-based",
                  .entry = &zero,
                  .name = zero.main(),
                  .zeroBased = true};
        check(row, form);
    }

    const Host& host_;
    Variables variables_;
};

}  // namespace

const Row* current() { return running; }

void makeBy(const Host& host, Call& call, const Form& form) {
    if (host.remote) return call.make(*host.remote);
    catalog::Function function = host.find(form.name.c_str());
    if (!function) throw "the library has no " + form.name;
    call.make(function);
}

Report run(const std::vector<Block>& blocks, const Host& host) {
    Runner runner(host);
    for (const Block& block : blocks) runner.runBlock(block);
    return std::move(runner.report_);
}

}  // namespace vx::rows
