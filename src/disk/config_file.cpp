#include "disk/config_file.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "disk/drives.h"
#include "files/lines.h"
#include "files/open_file.h"
#include "files/path.h"
#include "platform/platform.h"
#include "strings/difference.h"
#include "strings/token.h"
#include "strings/trim.h"

namespace vx {
namespace {

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
    // The system may have been started from a diskette that is out by now.
    platform::SilentErrors silent(platform::process());
    char shell[platform::kVariableRoom];
    std::uint32_t length = platform::process().variable("COMSPEC", shell, sizeof shell);
    char path[kJoinedSize];
    joinPath(splitPath(length > 0 && length < sizeof shell ? shell : "C:").drive, "\\", "CONFIG", ".SYS", path);
    OpenFile file = OpenFile::open(path, kReading);
    if (!file.isOpen()) return std::nullopt;
    char bytes[kLongestLine];
    while (std::optional<std::string_view> line = readLine(file.handle(), bytes)) {
        if (std::optional<std::int32_t> drive = lastDriveOf(*line)) return drive;
    }
    return std::nullopt;
}

}  // namespace vx
