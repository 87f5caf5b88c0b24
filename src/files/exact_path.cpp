#include "files/exact_path.h"

#include "files/drive_root.h"
#include "files/path.h"
#include "platform/platform.h"

namespace vx {
namespace {

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

}  // namespace

bool isPlainName(std::string_view name) {
    return !name.empty() && !isDots(name) && findSeparator(name) == name.size() &&
           name.find(':') == std::string_view::npos;
}

bool isTakenAs(const char* path, std::string_view exact) {
    char full[platform::kPathSize];
    std::uint32_t size = platform::tree().fullPath(path, full, sizeof full);
    return size < sizeof full && std::string_view(full, size).ends_with(exact);
}

bool TopPath::complete(const char* text) {
    if (!text) return false;
    std::string_view given = text;
    if (given.find_first_of("*?") != std::string_view::npos) return false;
    std::string_view drive = drivePart(given);
    std::string_view rest = given.substr(drive.size());
    if (!drive.empty() && !isLetter(drive[0])) return false;
    bool rooted = !rest.empty() && findSeparator(rest) == 0;
    return (rooted ? addRoot(drive) : addCurrent(drive)) && addComponents(rest) && isExact();
}

bool TopPath::addRoot(std::string_view drive) {
    std::int32_t current = drive.empty() ? platform::volumes().currentDrive() : 0;
    char letter = drive.empty() ? driveLetter(current - 1) : drive[0];
    char upperLetter = static_cast<char>(letter & ~0x20);
    return isLetter(letter) && path_.append(DriveRoot(upperLetter).get());
}

bool TopPath::addCurrent(std::string_view drive) {
    char directory[platform::kPathSize];
    std::int32_t number = drive.empty() ? 0 : (drive[0] & 0x1F);
    if (!platform::volumes().currentDirectory(number, directory, sizeof directory)) return false;
    std::string_view current = directory;
    if (current.size() < 3 || !isLetter(current[0]) || current[1] != ':') return false;
    return addRoot(current.substr(0, 2)) && addComponents(current.substr(2));
}

// An empty component is not dropped as the platform would: a name is missing there.
bool TopPath::addComponents(std::string_view text) {
    std::size_t at = !text.empty() && findSeparator(text) == 0 ? 1 : 0;
    while (at < text.size()) {
        std::size_t end = findSeparator(text, at);
        if (!addComponent(text.substr(at, end - at))) return false;
        at = end + 1;
    }
    return true;
}

bool TopPath::addComponent(std::string_view name) {
    if (name == ".") return true;
    if (name == "..") return dropComponent();
    return isPlainName(name) && path_.appendDirectory(name);
}

bool TopPath::dropComponent() {
    if (path_.size() <= kRootSize) return false;
    path_.cut(lastComponent(path_.view().substr(0, path_.size() - 1)));
    return true;
}

bool TopPath::isExact() {
    if (path_.size() <= kRootSize) return isTakenAs(path_.text(), path_.view());
    WalkPath whole = path_;
    whole.cut(whole.size() - 1);
    return isTakenAs(whole.text(), whole.view());
}

}  // namespace vx
