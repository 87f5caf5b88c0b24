// Notices, about box, clipboard, log-off, attach and detach, against a recorded platform.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "catalog/catalog.h"
#include "tests/seam/seam.h"

namespace vx::test {
namespace {

using lab::Box;
using platform::BoxIcon;

class Frame : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};
};

// Calls an entry of no interest in its arguments with zeros, by any of its names.
catalog::Value callWithZeros(const char* name) {
    const catalog::Entry* entry = catalog::find(name);
    std::array<catalog::Value, 8> zeros{};
    catalog::Value result;
    entry->invoke(reinterpret_cast<catalog::Function>(address(name)), zeros.data(), &result);
    return result;
}

TEST_F(Frame, UnavailableFunctionsSaySo) {
    struct Row {
        const char* name;
        const char* shown;
    };
    const Row rows[] = {{"_peekstr", "peekstr"},   {"strpeekstr", "peekstr"},  {"poke", "poke"},
                        {"_peek", "peek"},         {"_blob2mem", "mem2blob"},  // kept: shows its partner's name
                        {"_mem2blob", "mem2blob"}, {"dosalloc", "dosalloc"},   {"_dosfree", "dosfree"},
                        {"q_status", "q_status"},  {"q_restart", "q_restart"}, {"_q_hold", "q_hold"},
                        {"q_files", "q_files"},    {"_q_file", "q_file"},      {"strq_file", "q_file"},
                        {"q_delete", "q_delete"},  {"q_cancel", "q_cancel"},   {"_q_submit", "q_submit"}};
    for (auto [name, shown] : rows) {
        fake.desktop.boxes.clear();
        callWithZeros(name);
        Box expected{7, std::string("The function ") + shown + "() is not available on 32 bit platforms.",
                     "Vexlor Alert", BoxIcon::kNone};
        EXPECT_EQ(fake.desktop.boxes, std::vector{expected}) << name;
    }
}

TEST_F(Frame, UnwrittenFunctionsSaySo) {
    struct Row {
        const char* name;
        const char* title;
    };
    const Row rows[] = {{"compress", "Compress()"},
                        {"_dcompress", "Decompress()"},
                        {"FCompress", "FCompress()"},
                        {"fdcompress", "FDecompress()"}};
    for (auto [name, title] : rows) {
        fake.desktop.boxes.clear();
        EXPECT_EQ(callWithZeros(name).number, 0) << name;
        Box expected{7, "This function has not been implemented in this beta.", title, BoxIcon::kNone};
        EXPECT_EQ(fake.desktop.boxes, std::vector{expected}) << name;
    }
}

TEST_F(Frame, StubResults) {
    for (const char* name : {"strpeekstr", "poke", "peek", "_blob2mem", "_mem2blob", "dosalloc", "q_status",
                             "q_restart", "q_hold", "q_files", "strq_file", "q_delete", "q_cancel", "q_submit"}) {
        EXPECT_EQ(callWithZeros(name).number, 0) << name;
    }
    EXPECT_STREQ(lib().peekstr(0, 0, 0), "");
    EXPECT_EQ(lib().dosfree(0), 1);
    fake.desktop.boxResult = 0;
    EXPECT_EQ(lib().dosfree(0), 0);

    char buffer[] = "full";
    EXPECT_EQ(lib().q_file(1, buffer), buffer);
    EXPECT_STREQ(buffer, "");
    buffer[0] = 'x';
    EXPECT_EQ(lib().strq_file(1, buffer), 0u);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(lib().q_file(1, nullptr), nullptr);
}

TEST_F(Frame, SilentOnes) {
    EXPECT_EQ(lib().isqueue(), 0);
    EXPECT_EQ(lib().VEXDEV(1, 2, 3), 1);
    EXPECT_EQ(lib().VEXVERSION(), 199);
    EXPECT_EQ(lib().RELEASEME(), 0);
    EXPECT_TRUE(fake.desktop.boxes.empty());
}

TEST_F(Frame, AboutBox) {
    Box about{7,
              "The internal version number of this copy of Vexlor32.DLL is 5.0\r\n"
              "Build: Beta 199.02 Created: Aug 14 1996 at 14:28:06.",
              "ABOUT Vexlor32.DLL", BoxIcon::kInformation};
    EXPECT_EQ(lib().DLLVERSION(), 199);
    EXPECT_EQ(fake.desktop.boxes, std::vector{about});
    fake.desktop.boxResult = 0;
    EXPECT_EQ(lib().DLLVERSION(), 199);
}

TEST_F(Frame, ShutDownPassesTheResultOn) {
    fake.desktop.logOffResult = 5;
    EXPECT_EQ(lib().ShutDown(), 5);
    EXPECT_EQ(fake.desktop.logOffs, 1);
}

TEST_F(Frame, PasteCopiesTheTextWithItsTerminator) {
    struct Row {
        const char* text;
        std::string pasted;
    };
    for (const Row& row :
         {Row{"a memo", std::string("a memo", 7)}, Row{"", std::string("", 1)}, Row{nullptr, std::string("", 1)}}) {
        fake.desktop.steps.clear();
        EXPECT_EQ(lib().StrPaste(row.text), 1);
        EXPECT_EQ(fake.desktop.pasted, std::vector{row.pasted});
        EXPECT_EQ(fake.desktop.steps, "oaesc");
    }
    EXPECT_TRUE(fake.desktop.boxes.empty());
}

TEST_F(Frame, PasteFailures) {
    fake.desktop.memoryLeft = false;
    EXPECT_EQ(lib().StrPaste("x"), 0);
    EXPECT_EQ(fake.desktop.steps, "oa") << "kept: the clipboard stays open";
    fake.desktop = {};
    fake.desktop.clipboardKeeps = false;
    EXPECT_EQ(lib().StrPaste("x"), 0);
    EXPECT_EQ(fake.desktop.steps, "oaesc") << "closed all the same";
    EXPECT_TRUE(fake.desktop.boxes.empty());

    fake.desktop.clipboardOpens = false;
    EXPECT_EQ(lib().StrPaste("x"), 0);
    EXPECT_EQ(fake.desktop.boxes.back(), (Box{7, "Clipboard is in use at this time", "Vexlor", BoxIcon::kInformation}));

    fake.desktop.focus = 0;
    EXPECT_EQ(lib().StrPaste("x"), 0);
    EXPECT_EQ(fake.desktop.boxes.back(), (Box{0, "Cannot paste at this time", "Vexlor", BoxIcon::kNone}));
    EXPECT_TRUE(fake.desktop.pasted.empty());
}

// Attach and detach change the one state that all share: it is put back afterwards.
class Loading : public Frame {
 protected:
    void TearDown() override {
        Library& state = *door()->library;
        std::copy(std::begin(tables.upper), std::end(tables.upper), state.upper);
        std::copy(std::begin(tables.lower), std::end(tables.lower), state.lower);
        std::copy(std::begin(tables.collate), std::end(tables.collate), state.collate);
        std::fill(std::begin(state.handles), std::end(state.handles), kNoHandle);
    }

    Library& state = *door()->library;
    struct Tables {
        std::uint8_t upper[256], lower[256], collate[256];
    } tables = copyTables();

    Tables copyTables() {
        Tables copy;
        std::copy(std::begin(state.upper), std::end(state.upper), copy.upper);
        std::copy(std::begin(state.lower), std::end(state.lower), copy.lower);
        std::copy(std::begin(state.collate), std::end(state.collate), copy.collate);
        return copy;
    }
};

TEST_F(Loading, TakesTablesPathAndEmptyHandleTable) {
    std::fill(std::begin(state.handles), std::end(state.handles), 5);
    door()->attach(nullptr);
    EXPECT_EQ(std::count(std::begin(state.handles), std::end(state.handles), kNoHandle), kHandleSlots);
    EXPECT_STREQ(state.programPath, "C:\\hosts\\host.exe");
    for (int c = 1; c < 256; ++c) {
        EXPECT_EQ(state.upper[c], static_cast<std::uint8_t>(c + 1)) << c;
        EXPECT_EQ(state.lower[c], static_cast<std::uint8_t>(c - 1)) << c;
        EXPECT_EQ(state.collate[c], static_cast<std::uint8_t>(c + 2)) << c;
    }
    EXPECT_EQ(state.upper[0], 0) << "NUL has no case";
    EXPECT_EQ(state.collate[0], 2) << "the collation table takes all 256";
}

TEST_F(Loading, KeepsBuiltInTablesWhenTheSystemFallsShort) {
    fake.locale.works = false;
    door()->attach(nullptr);
    Tables now = copyTables();
    EXPECT_TRUE(std::equal(std::begin(now.upper), std::end(now.upper), tables.upper));
    EXPECT_TRUE(std::equal(std::begin(now.lower), std::end(now.lower), tables.lower));
    EXPECT_TRUE(std::equal(std::begin(now.collate), std::end(now.collate), tables.collate));
}

TEST_F(Loading, CutsALongPath) {
    fake.process.path = std::string(400, 'p');
    door()->attach(nullptr);
    EXPECT_EQ(std::string(state.programPath), std::string(kPathRoom - 1, 'p'));
}

TEST_F(Loading, DetachClosesWhatIsStillOpen) {
    std::fill(std::begin(state.handles), std::end(state.handles), kNoHandle);
    fake.disk.put("C:\\open");
    std::vector<std::int32_t> opened;
    for (std::int32_t* slot : {&state.handles[0], &state.handles[500], &state.handles[1023]}) {
        opened.push_back(*slot = fake.disk.open("C:\\open", platform::kRead));
    }
    fake.disk.unclosable = {opened[1]};
    door()->detach();
    EXPECT_EQ(fake.disk.closed, opened);
    // kept: only the slot whose close failed is cleared
    EXPECT_EQ(state.handles[0], opened[0]);
    EXPECT_EQ(state.handles[500], kNoHandle);
    EXPECT_EQ(state.handles[1023], opened[2]);
}

}  // namespace
}  // namespace vx::test
