#include "disk/config_file.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "disk/drives.h"
#include "files/path.h"
#include "platform/platform.h"
#include "strings/difference.h"
#include "strings/token.h"
#include "strings/trim.h"

namespace vx {
namespace {

constexpr std::size_t kLongestLine = 2048;

class TextFile {
 public:
    explicit TextFile(const char* name)
        : files_(*platform::current().files), handle_(files_.open(name, platform::kRead | platform::kDenyNone)) {}
    ~TextFile() {
        if (handle_ != -1) files_.close(handle_);
    }
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    // The next line, in pieces if it is too long; nothing at the end.
    std::optional<std::string_view> nextLine() {
        std::int32_t count = handle_ == -1 ? -1 : files_.read(handle_, bytes_, kLongestLine);
        if (count < 1) return std::nullopt;
        std::string_view read(bytes_, static_cast<std::size_t>(count));
        std::size_t end = read.find('\n');
        if (end == read.npos) return read;
        std::int32_t ahead = count - static_cast<std::int32_t>(end + 1);
        if (ahead > 0 && files_.seek(handle_, -ahead, platform::kFromCurrent) < 0) return std::nullopt;
        std::string_view line = read.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        return line;
    }

 private:
    platform::Files& files_;
    std::int32_t handle_;
    char bytes_[kLongestLine];
};

std::optional<std::int32_t> lastDriveOf(std::string_view line) {
    static constexpr char kWord[] = "LASTDRIV";
    static constexpr std::size_t kWordSize = sizeof kWord - 1;
    static constexpr DelimiterSet kEquals("=");
    line = withoutBlanks(line.substr(0, line.find('\0')));
    if (line.size() < kWordSize) return std::nullopt;
    char text[kLongestLine + 1];
    store(text, line);
    if (firstAsciiBlindDifference(text, kWord, kWordSize) != kWordSize) return std::nullopt;
    // kept: the ninth character is taken for the E, even an equals sign.
    text[kWordSize] = 'E';
    std::string_view setting(text, std::max(line.size(), kWordSize + 1));
    std::optional<Token> value = findToken(setting, kEquals, 2);
    char drive[kLongestLine + 1];
    store(drive, value ? withoutBlanks(value->in(setting)) : std::string_view());
    return dosDriveNumber(drive);
}

}  // namespace

std::optional<std::int32_t> configuredLastDrive() {
    char shell[kPathRoom];
    std::uint32_t length = platform::current().process->variable("COMSPEC", shell, sizeof shell);
    char path[kJoinedSize];
    joinPath(splitPath(length > 0 && length < sizeof shell ? shell : "C:").drive, "\\", "CONFIG", ".SYS", path);
    TextFile file(path);
    while (std::optional<std::string_view> line = file.nextLine()) {
        if (std::optional<std::int32_t> drive = lastDriveOf(*line)) return drive;
    }
    return std::nullopt;
}

}  // namespace vx
