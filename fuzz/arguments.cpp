#include "fuzz/arguments.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "fuzz/texts.h"

namespace vx::fuzz {

using catalog::Argument;
using catalog::Entry;
using catalog::Kind;
using catalog::Result;
using catalog::Value;

namespace {

constexpr std::int64_t kLeftAloneRoom = 12;

constexpr AskedRoom kAskedRooms[] = {
    {"DbfFieldGet", "", "DbfFieldSize", true},         {"strdbfFieldGet", "", "DbfFieldSize", true},
    {"DbfField", "DbfFieldPos", "DbfFieldSize", true}, {"strdbfField", "DbfFieldPos", "DbfFieldSize", true},
    {"DbfRecordGet", "", "DbfRecordSize", false},      {"strdbfRecordGet", "", "DbfRecordSize", false},
    {"DbfRecordPut", "", "DbfRecordSize", false},
};

}  // namespace

const AskedRoom* askedRoomOf(const Entry& entry) {
    auto found = std::find_if(std::begin(kAskedRooms), std::end(kAskedRooms),
                              [&](const AskedRoom& r) { return r.name == entry.main(); });
    return found == std::end(kAskedRooms) ? nullptr : found;
}

bool remembers(const Entry& entry) {
    // A length form does what its pointer form does.
    bool isOwn = entry.pointerForm < 0;
    return (isOwn ? entry : catalog::allEntries()[static_cast<std::size_t>(entry.pointerForm)]).remembers;
}

bool givesConstantWithoutDest(const Entry& entry) {
    return std::any_of(entry.arguments.begin(), entry.arguments.end(),
                       [](const catalog::Argument& a) { return a.nullGivesConstant; });
}

bool leftAlone(const Plan& plan) {
    auto leaves = [&](const catalog::Argument& a) {
        return (a.untouchedWithout >= 0 && plan.inputs[static_cast<std::size_t>(a.untouchedWithout)].null) ||
               (a.untouchedBelow >= 0 && plan.inputs[static_cast<std::size_t>(a.untouchedBelow)].number < a.limit);
    };
    const auto& arguments = plan.entry->arguments;
    return std::any_of(arguments.begin(), arguments.end(), leaves);
}

std::vector<Need> needsOf(const Plan& plan) {
    std::span<const Argument> arguments = plan.entry->arguments;
    // Room formulas look at numbers and at the lengths of texts.
    std::vector<Value> values(arguments.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i].number = isPointer(arguments[i].kind) ? 0 : plan.inputs[i].number;
        if (isText(arguments[i].kind) && !plan.inputs[i].null) values[i].constant = plan.inputs[i].bytes.c_str();
    }
    auto roomOf = [&](std::size_t i) {
        return arguments[i].room ? arguments[i].room(values.data()).value : std::int64_t{0};
    };
    std::vector<Need> needs(arguments.size());
    auto inPlaceOf = [&](std::size_t i) -> Need* {
        int place = arguments[i].inPlace;
        return place >= 0 && !plan.inputs[static_cast<std::size_t>(place)].null
                   ? &needs[static_cast<std::size_t>(place)]
                   : nullptr;
    };
    for (std::size_t i = 0; i < needs.size(); ++i) {
        Kind kind = arguments[i].kind;
        if (!isPointer(kind) || plan.inputs[i].null) continue;
        std::int64_t room = kind == Kind::kOut ? std::int64_t{sizeof(std::int32_t)} : roomOf(i);
        if (plan.room && (kind == Kind::kDest || kind == Kind::kBytes)) room = *plan.room;
        std::int64_t least = 1;
        if (isText(kind)) least += static_cast<std::int64_t>(plan.inputs[i].bytes.size());
        // Where nothing may be written, the room tells nothing; some bytes show whether they have been left alone.
        if (kind == Kind::kDest && leftAlone(plan)) room = kLeftAloneRoom;
        bool text = kind != Kind::kOut && kind != Kind::kBlock && !(kind == Kind::kDest && plan.unterminated);
        int before = arguments[i].before;
        std::int64_t front =
            before < 0 ? 0 : std::max<std::int64_t>(-plan.inputs[static_cast<std::size_t>(before)].number, 0);
        needs[i] = {std::max(least, room + front), front, kind != Kind::kStr && kind != Kind::kBytes, text};
    }
    for (std::size_t i = 0; i < needs.size(); ++i) {
        Need* text = plan.inputs[i].null ? inPlaceOf(i) : nullptr;
        if (text) *text = {std::max(text->bytes, roomOf(i)), 0, true, true};
    }
    return needs;
}

template <class What>
void Recall::keepOne(std::vector<What>& kept, What what) {
    if (kept.size() < kMost)
        kept.push_back(std::move(what));
    else
        kept[turn_++ % kMost] = std::move(what);
}

void Recall::keep(const Plan& plan, std::int64_t result, const std::vector<std::string>& after) {
    if (plan.entry->result == Result::kHandle) keepOne(handles_, result);
    if (plan.entry->result == Result::kTable) keepTable(result);
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (plan.entry->arguments[i].kind == Kind::kBlock && !plan.inputs[i].null) keepOne(blocks_, after[i]);
    }
}

// Those that are none need no calls of their own: others are made up.
void Recall::keepTable(std::int64_t table) {
    if (table != 0) keepOne(tables_, table);
}

std::string Recall::block(std::size_t size, Random& random) const {
    std::vector<const std::string*> fitting;
    for (const std::string& block : blocks_) {
        if (block.size() == size) fitting.push_back(&block);
    }
    return fitting.empty() ? std::string() : *random.of(fitting);
}

std::int64_t Recall::one(const std::vector<std::int64_t>& kept, Random& random) {
    std::int32_t madeUp = random.between(-1, 8);
    return kept.empty() ? madeUp : random.of(kept);
}

namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kExtremes[] = {kLeast, kLeast + 1, kMost, kMost - 1, -1,    0,    1,
                                      255,    256,        32767, 32768,     65535, 65536};
constexpr int kTries = 20;  // for arguments that need no more memory than there is

class Drawing {
 public:
    Drawing(const Entry& entry, const Turn& turn, const Recall& recall)
        : random_(turn.randomFor(entry.main())), recall_(recall) {
        plan_ = {&entry, &entry, turn, std::vector<Input>(entry.arguments.size())};
    }

    Plan make() {
        for (int i = 0; i <= kTries; ++i) {
            small_ = i == kTries;
            drawInputs();
            needs_ = needsOf(plan_);
            if (std::all_of(needs_.begin(), needs_.end(), [](const Need& n) { return n.bytes <= kMostRoom; })) break;
        }
        for (std::size_t i = 0; i < needs_.size(); ++i) {
            Kind kind = arguments()[i].kind;
            if (kind == Kind::kBytes || kind == Kind::kBlock) drawContents(i);
        }
        return std::move(plan_);
    }

 private:
    std::span<const Argument> arguments() const { return plan_.entry->arguments; }

    // Texts first: numbers lie around their lengths.
    void drawInputs() {
        alphabet_ = drawAlphabet(random_);
        texts_.clear();
        for (std::size_t i = 0; i < plan_.inputs.size(); ++i) {
            const Argument& argument = arguments()[i];
            Input& input = plan_.inputs[i] = {};
            if (!isPointer(argument.kind)) continue;
            input.null = random_.oneIn(argument.inPlace >= 0 ? 3 : 16);
            if (argument.kind == Kind::kOut) input.number = static_cast<std::int32_t>(random_.next());
            if (argument.kind != Kind::kStr && argument.kind != Kind::kEdit) continue;
            input.bytes = drawOneText();
            texts_.push_back(input.bytes);
        }
        for (std::size_t i = 0; i < plan_.inputs.size(); ++i) {
            if (!isPointer(arguments()[i].kind)) plan_.inputs[i].number = drawNumber(arguments()[i].kind);
        }
    }

    std::string drawOneText() {
        std::string_view alphabet = random_.oneIn(4) ? drawAlphabet(random_) : alphabet_;
        std::string text;
        std::uint32_t way = random_.below(texts_.empty() ? 6 : 12);
        if (way == 0) {
            text = drawWellFormed(random_);
        } else if (way >= 8) {
            const std::string& other = random_.of(texts_);
            text = drawPiece(random_, other, alphabet);
        } else {
            text = drawText(random_, alphabet);
        }
        if (small_) text.resize(std::min<std::size_t>(text.size(), 8));
        return text;
    }

    std::int64_t drawNumber(Kind kind) {
        switch (kind) {
            case Kind::kChar: {
                auto low = static_cast<std::uint8_t>(drawCharacter(random_, random_.oneIn(2) ? alphabet_ : ""));
                if (random_.oneIn(32)) low = 0;
                std::uint32_t garbage = random_.oneIn(4) ? static_cast<std::uint32_t>(random_.next()) << 8 : 0;
                return static_cast<std::int32_t>(garbage | low);
            }
            case Kind::kHandle:
                return random_.oneIn(4) ? drawInt() : recall_.handle(random_);
            case Kind::kTable:
                return static_cast<std::uint32_t>(random_.oneIn(4) ? drawInt() : recall_.table(random_));
            case Kind::kUint:
                return static_cast<std::uint32_t>(drawInt());
            default:
                return drawInt();
        }
    }

    std::int32_t drawInt() {
        switch (random_.below(small_ ? 2 : 10)) {
            case 0:
            case 1:
            case 2:
                return random_.between(-2, 10);
            case 3:
            case 4: {
                auto length = texts_.empty() ? 8 : static_cast<std::int32_t>(random_.of(texts_).size());
                return length + random_.between(-2, 2);
            }
            case 5:
                return random_.between(0, 400);
            case 6:
                return random_.between(1590, 2110);  // years
            case 7:
                return random_.of(kExtremes);
            case 8: {
                std::uint32_t power = 1u << random_.below(32);
                return static_cast<std::int32_t>(power + static_cast<std::uint32_t>(random_.between(-1, 1)));
            }
            default:
                return static_cast<std::int32_t>(random_.next());
        }
    }

    void drawContents(std::size_t i) {
        auto size = static_cast<std::size_t>(needs_[i].bytes);
        std::string& bytes = plan_.inputs[i].bytes;
        std::uint32_t way = random_.below(4);
        if (way < 2) bytes = recall_.block(size, random_);
        if (!bytes.empty() || size == 0) return;
        bytes.assign(size, '\0');
        if (way == 2) return;
        for (char& c : bytes) c = static_cast<char>(random_.next());
    }

    Random random_;
    const Recall& recall_;
    Plan plan_;
    std::vector<Need> needs_;
    std::vector<std::string> texts_;
    std::string_view alphabet_;
    bool small_ = false;
};

}  // namespace

Plan draw(const Entry& entry, const Turn& turn, const Recall& recall) { return Drawing(entry, turn, recall).make(); }

}  // namespace vx::fuzz
