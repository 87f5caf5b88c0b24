// Attributes of files, and the date and time at which they were last written: by name and by handle.
#include "entries/fileattr.h"

#include <optional>

#include "files/filesearch.h"
#include "files/open_file.h"
#include "files/written.h"
#include "frame/text.h"
#include "platform/platform.h"

namespace vx {
namespace {

using platform::FileTime;
using platform::Moment;

// These bits are the library's as well as the platform's.
constexpr std::uint32_t kSettable = platform::kReadOnly | platform::kHidden | platform::kSystem | platform::kArchive;

std::int32_t shownAttributes(std::uint32_t attributes) {
    return static_cast<std::int32_t>(libraryAttributes(attributes));
}

std::uint32_t platformAttributes(std::int32_t bits) {
    if (bits == -1) return platform::kNoAttributes;
    std::uint32_t attributes = static_cast<std::uint32_t>(bits) & kSettable;
    return attributes != 0 ? attributes : std::uint32_t{platform::kNormal};
}

std::int32_t attributesOf(const char* name) {
    std::uint32_t attributes = platform::tree().attributes(textOf(name));
    return attributes != platform::kNoAttributes ? shownAttributes(attributes) : -1;
}

std::int32_t attributesOf(std::int32_t handle) {
    platform::FileInformation information;
    return platform::files().information(handle, information) ? shownAttributes(information.attributes) : 0;
}

bool changeAttributes(const char* name, std::uint32_t attributes, bool set) {
    name = textOf(name);
    platform::Tree& tree = platform::tree();
    std::uint32_t now = tree.attributes(name);
    if (now == platform::kNoAttributes) return false;
    return tree.setAttributes(name, set ? (now | attributes) : (now & ~attributes));
}

std::optional<Written> written(std::int32_t handle) {
    platform::FileInformation information;
    bool known = platform::files().information(handle, information);
    return known ? writtenAt(information.times.written) : std::nullopt;
}

std::optional<Written> written(const char* name) {
    OpenFile file = OpenFile::open(name, kReading);
    return file.isOpen() ? written(file.handle()) : std::nullopt;
}

// kept: 0 leaves a field as it is, so midnight cannot be set; the platform's record has 16 bits a field.
void change(std::uint16_t& field, std::int32_t value) {
    if (value != 0) field = static_cast<std::uint16_t>(value);
}

// What is finer than local time shows stays. A stamp whose local time does not change is not worked out anew: where
// clocks are put back, two stamps have that time.
bool changedStamp(const Written& written, const Date& date, const TimeOfDay& time, FileTime& stamp) {
    constexpr FileTime kStepsPerMillisecond = 10'000;
    Moment local = written.local;
    change(local.year, date.year);
    change(local.month, date.month);
    change(local.day, date.day);
    change(local.hour, time.hour);
    change(local.minute, time.minute);
    change(local.second, time.second);
    if (local == written.local) {
        stamp = written.stamp;
        return true;
    }
    if (!platform::clock().toFileTime(local, stamp)) return false;
    stamp += written.stamp % kStepsPerMillisecond;
    return true;
}

// kept: the file is opened for reading only. A system that wants more for setting times refuses, and the result is 0.
bool setWritten(const char* name, const Date& date, const TimeOfDay& time) {
    OpenFile file = OpenFile::open(name, kReading);
    if (!file.isOpen()) return false;
    std::optional<Written> before = written(file.handle());
    FileTime stamp;
    if (!before || !changedStamp(*before, date, time, stamp)) return false;
    if (stamp == 0 && before->stamp != 0) return false;  // the first moment of 1601: the platform takes 0 for none
    return platform::files().setTimes(file.handle(), {.written = stamp}) && file.close();
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_FGetAttr(const char* name) noexcept { return attributesOf(name); }
int32_t VX_CALL vx_FileAttr(int32_t handle) noexcept { return attributesOf(handle); }
int32_t VX_CALL vx_FSetAttr(const char* name, int32_t bits, int32_t set) noexcept {
    return changeAttributes(name, platformAttributes(bits), set != 0);
}
int32_t VX_CALL vx_FProtect(const char* name) noexcept { return changeAttributes(name, platform::kReadOnly, true); }
int32_t VX_CALL vx_FUnProtect(const char* name) noexcept { return changeAttributes(name, platform::kReadOnly, false); }
int32_t VX_CALL vx_FHide(const char* name) noexcept { return changeAttributes(name, platform::kHidden, true); }
int32_t VX_CALL vx_FUnHide(const char* name) noexcept { return changeAttributes(name, platform::kHidden, false); }
// kept: a file that is missing has changed.
int32_t VX_CALL vx_FChanged(const char* name) noexcept { return (attributesOf(name) & kArchiveBit) != 0; }

int32_t VX_CALL vx_FileDosDate(int32_t handle, int32_t* year, int32_t* month, int32_t* day) noexcept {
    return tellDate(written(handle), year, month, day);
}
int32_t VX_CALL vx_FileDosTime(int32_t handle, int32_t* hour, int32_t* minute, int32_t* second) noexcept {
    return tellTime(written(handle), hour, minute, second);
}
int32_t VX_CALL vx_FGetDosDate(const char* name, int32_t* year, int32_t* month, int32_t* day) noexcept {
    return tellDate(written(name), year, month, day);
}
int32_t VX_CALL vx_FGetDosTime(const char* name, int32_t* hour, int32_t* minute, int32_t* second) noexcept {
    return tellTime(written(name), hour, minute, second);
}

int32_t VX_CALL vx_FileJDate(int32_t handle) noexcept { return dayNumberOf(written(handle)); }
int32_t VX_CALL vx_FGetJDate(const char* name) noexcept { return dayNumberOf(written(name)); }

char* VX_CALL vx_FileDate(int32_t handle, char* dest) noexcept {
    return dest ? putDateOf(written(handle), dest) : nullptr;
}
char* VX_CALL vx_FGetDate(const char* name, char* dest) noexcept {
    return dest ? putDateOf(written(name), dest) : nullptr;
}
char* VX_CALL vx_FileDatef(int32_t handle, const char* picture, char* dest) noexcept {
    return dest ? putDateOf(written(handle), picture, dest) : nullptr;
}
char* VX_CALL vx_FGetDatef(const char* name, const char* picture, char* dest) noexcept {
    return dest ? putDateOf(written(name), picture, dest) : nullptr;
}
char* VX_CALL vx_FileTime(int32_t handle, char* dest) noexcept {
    return dest ? putTimeOf(written(handle), dest) : nullptr;
}
char* VX_CALL vx_FGetTime(const char* name, char* dest) noexcept {
    return dest ? putTimeOf(written(name), dest) : nullptr;
}

int32_t VX_CALL vx_FSetDosDate(const char* name, int32_t year, int32_t month, int32_t day) noexcept {
    return setWritten(name, {year, month, day}, {});
}
int32_t VX_CALL vx_FSetDate(const char* name, const char* text) noexcept {
    return text && setWritten(name, dateOfText(text), {});
}
int32_t VX_CALL vx_FSetJDate(const char* name, int32_t jd) noexcept { return setWritten(name, dateOfDay(jd), {}); }
int32_t VX_CALL vx_FSetTime(const char* name, const char* text) noexcept {
    return text && setWritten(name, {}, timeOfText(text));
}
