// Makes the calls of the conformance library through vexlor32.h, linked, and vexlor32.hpp.
#define VEXLOR32_ALL_NAMES

#include <deque>
#include <map>
#include <stdexcept>
#include <vexlor32.hpp>

#include "tests/bindings/conformance.h"

namespace {

std::map<std::int64_t, vexlor32::Table> tables;
std::map<std::int64_t, vexlor32::File> files;

// A friendly call: what the functions take, and what they gave.
class Friendly {
 public:
    std::int32_t number(int i) { return static_cast<std::int32_t>(vxc_number(i)); }
    std::uint32_t unsignedNumber(int i) { return static_cast<std::uint32_t>(vxc_number(i)); }
    vexlor32::Text text(int i) {
        if (vxc_kind(i) == 'z') return nullptr;
        return bytes(i);
    }
    std::string& bytes(int i) {
        return bytes_.emplace_back(vxc_memory(i) ? std::string(vxc_memory(i), vxc_size(i)) : "");
    }
    vexlor32::Table& table(int i) { return tables.at(vxc_number(i)); }
    vexlor32::File& file(int i) { return files.at(vxc_number(i)); }

    void gave(std::int64_t number) { vxc_gave_number(number); }
    void gave(const std::string& text) { vxc_gave_text(text.data(), text.size()); }
    void gave(vexlor32::Table table) { keep(std::move(table), tables); }
    void gave(vexlor32::File file) { keep(std::move(file), files); }
    void gaveOffset(std::ptrdiff_t offset) { offset < 0 ? vxc_gave_null() : vxc_gave_number(offset); }
    void gaveBlock(int i, const std::string& block) {
        if (vxc_kind(i) == 'B') gave(block);
    }

 private:
    template <class Object>
    void keep(Object object, std::map<std::int64_t, Object>& all) {
        if (!object) return vxc_gave_null();
        auto handle = object.handle();
        gave(handle);
        all.insert_or_assign(handle, std::move(object));
    }

    std::deque<std::string> bytes_;
};

#include "bindings/tests/cpp_dispatch.h"

void call(const char* name, int) {
    static const std::map<std::string, void (*)()> exact(std::begin(exactCalls), std::end(exactCalls));
    try {
        Friendly friendly;
        if (vxc_is_friendly())
            friendlyCall(friendly, name);
        else
            exact.at(name)();
    } catch (const std::exception& error) {
        vxc_refused(error.what());
    }
}

}  // namespace

int main() { return vxc_run(0, "NUL|not open|bytes", call); }
