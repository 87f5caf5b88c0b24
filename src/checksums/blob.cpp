// Values put into and taken from callers' memory blocks. Offsets and sizes are the caller's word.
#include "entries/blob.h"

#include <algorithm>
#include <cstring>

#include "frame/text.h"

namespace vx {

namespace {

template <class Byte>
Byte* at(Byte* blob, std::int32_t offset) {
    return blob + offset;
}

template <class Value>
std::int32_t read(const void* blob, std::int32_t offset) {
    if (!blob) return 0;
    Value value;
    std::memcpy(&value, at(static_cast<const char*>(blob), offset), sizeof value);
    return value;
}

// Stores a value and gives the one that was there.
template <class Value>
std::int32_t exchange(void* blob, std::int32_t offset, std::int32_t value) {
    if (!blob) return 0;
    std::int32_t previous = read<Value>(blob, offset);
    auto stored = static_cast<Value>(value);
    std::memcpy(at(static_cast<char*>(blob), offset), &stored, sizeof stored);
    return previous;
}

// Byte by byte from the first to the last: a destination inside the source repeats the bytes before it.
void copyForward(char* to, const char* from, std::size_t size) {
    auto distance = reinterpret_cast<std::uintptr_t>(to) - reinterpret_cast<std::uintptr_t>(from);
    if (distance == 0) return;
    if (distance >= size) {
        moveBytes(to, from, size);
    } else if (distance == 1) {
        std::memset(to, *from, size);
    } else {
        // What lies between `from` and `to` repeats; each copy doubles what is there of it.
        for (std::size_t known = distance; size > 0;) {
            std::size_t piece = std::min(known, size);
            std::memcpy(to, from, piece);
            to += piece;
            size -= piece;
            known += piece;
        }
    }
}

}  // namespace
}  // namespace vx

using namespace vx;

void* VX_CALL vx__str2blob(void* blob, int32_t offset, int32_t length, const char* text) noexcept {
    if (!blob) return nullptr;
    char* field = at(static_cast<char*>(blob), offset);
    std::size_t size = atLeastZero(length);
    std::memset(field, 0, size);
    // kept: a text that fills the field has its terminator behind it.
    store(field, {text, text ? strnlen(text, size) : 0});
    return blob;
}

int32_t VX_CALL vx__byte2blob(void* blob, int32_t offset, int32_t value) noexcept {
    return exchange<std::int8_t>(blob, offset, value);
}
int32_t VX_CALL vx__int2blob(void* blob, int32_t offset, int32_t value) noexcept {
    return exchange<std::int32_t>(blob, offset, value);
}
int32_t VX_CALL vx__long2blob(void* blob, int32_t offset, int32_t value) noexcept {
    return exchange<std::int32_t>(blob, offset, value);
}

int32_t VX_CALL vx__blob2byte(const void* blob, int32_t offset) noexcept { return read<std::int8_t>(blob, offset); }
int32_t VX_CALL vx__blob2int(const void* blob, int32_t offset) noexcept { return read<std::int32_t>(blob, offset); }
int32_t VX_CALL vx__blob2long(const void* blob, int32_t offset) noexcept { return read<std::int32_t>(blob, offset); }

char* VX_CALL vx__blob2str(const void* blob, int32_t offset, int32_t count, char* dest) noexcept {
    if (!blob) return const_cast<char*>(emptyText);
    return dest ? store(dest, {at(static_cast<const char*>(blob), offset), atLeastZero(count)}) : nullptr;
}

void* VX_CALL vx_blobcopy(const void* blob, int32_t offset, void* dest, int32_t destOffset, int32_t count) noexcept {
    if (!blob || !dest) return dest;
    char* to = at(static_cast<char*>(dest), destOffset);
    std::size_t size = atLeastZero(count);
    moveBytes(to, at(static_cast<const char*>(blob), offset), size);
    return to + size;
}

void* VX_CALL vx_MemCopy(void* dest, const void* source, int32_t count) noexcept {
    if (dest && source) copyForward(static_cast<char*>(dest), static_cast<const char*>(source), atLeastZero(count));
    return dest;
}
