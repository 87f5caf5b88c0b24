#include "tests/lab/made_up_disk.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <iterator>
#include <sstream>
#include <tuple>

namespace vx::lab {

using namespace platform;

std::string upperCased(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

namespace {

std::string parentOf(const std::string& path) { return path.substr(0, path.rfind('\\')); }
std::string lastOf(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

bool matches(const std::string& pattern, const std::string& name) {
    std::vector<bool> fits(name.size() + 1);  // whether the pattern up to here takes so many characters
    fits[0] = true;
    for (char c : pattern) {
        bool before = fits[0];
        fits[0] = before && c == '*';
        for (std::size_t i = 1; i < fits.size(); ++i) {
            bool fit = c == '*' ? fits[i] || fits[i - 1] : before && (c == '?' || c == name[i - 1]);
            before = fits[i];
            fits[i] = fit;
        }
    }
    return fits.back();
}

void putTime(std::uint32_t (&halves)[2], FileTime time) {
    halves[0] = static_cast<std::uint32_t>(time);
    halves[1] = static_cast<std::uint32_t>(time >> 32);
}

std::uint32_t shownAttributes(const MadeUpDisk::Node& node) {
    std::uint32_t shown =
        node.attributes | (node.directory ? kDirectoryEntry : 0u) | (node.target.empty() ? 0u : kLink);
    return shown ? shown : std::uint32_t{kNormal};
}

bool isKept(const MadeUpDisk::Node& node) { return node.directory || (node.attributes & kReadOnly); }

FoundEntry entryOf(const MadeUpDisk::Node& node, const std::string& name) {
    FoundEntry entry{};
    entry.attributes = shownAttributes(node);
    putTime(entry.created, node.times.created);
    putTime(entry.accessed, node.times.accessed);
    putTime(entry.written, node.times.written);
    entry.sizeLow = static_cast<std::uint32_t>(node.data.size());
    name.copy(entry.name, kPathSize - 1);
    node.shortName.copy(entry.shortName, sizeof entry.shortName - 1);
    return entry;
}

}  // namespace

bool MadeUpDisk::fails() {
    ++calls;
    if (onCall) onCall();
    bool now = fault.atCall != 0 && (fault.lasts ? calls >= fault.atCall : calls == fault.atCall);
    return now && refuse(true, fault.code);
}

std::string MadeUpDisk::absolute(const std::string& name) const {
    std::string path = dropsEnds ? name.substr(0, name.find_last_not_of(" .") + 1) : name;
    std::replace(path.begin(), path.end(), '/', '\\');
    if (path.size() > 1 && path[1] == ':') {
        if (std::toupper(static_cast<unsigned char>(path[0])) != 'C') return "";
        path.erase(0, 2);
    }
    if (path.empty() || path[0] != '\\') path = directory.substr(2) + "\\" + path;
    std::string result = "C:", piece;
    for (std::istringstream pieces(path); std::getline(pieces, piece, '\\');) {
        if (piece == "..") {
            if (result.size() > 2) result = parentOf(result);
        } else if (!piece.empty() && piece != ".") {
            result += "\\" + piece;
        }
    }
    return result;
}

// A link in a path leads on; at its end it stands for itself.
std::string MadeUpDisk::behindLinks(std::string key) const {
    for (std::size_t end = key.find('\\', 3); end < key.size(); end = key.find('\\', end + 1)) {
        auto found = nodes_.find(key.substr(0, end));
        if (found == nodes_.end() || found->second->target.empty()) continue;
        key = upperCased(found->second->target) + key.substr(end);
        end = 2;
    }
    return key;
}

MadeUpDisk::Nodes::iterator MadeUpDisk::at(const std::string& name) {
    return nodes_.find(behindLinks(upperCased(absolute(name))));
}

MadeUpDisk::Node& MadeUpDisk::put(const std::string& path, std::string data) {
    std::string full = absolute(path);
    if (parentOf(full) != "C:") putDirectory(parentOf(full));
    auto& node = nodes_[upperCased(full)];
    if (!node) node = std::make_shared<Node>();
    node->name = lastOf(full);
    node->data = std::move(data);
    return *node;
}

MadeUpDisk::Node& MadeUpDisk::putDirectory(const std::string& path) {
    Node& node = put(path);
    if (!node.directory) node.attributes = 0;
    node.directory = true;
    return node;
}

MadeUpDisk::Node& MadeUpDisk::putLink(const std::string& path, const std::string& target) {
    Node* behind = find(target);
    Node& node = put(path);
    node.directory = behind && behind->directory;
    node.attributes = behind ? behind->attributes : std::uint32_t{kArchive};
    node.target = absolute(target);
    return node;
}

MadeUpDisk::Node* MadeUpDisk::find(const std::string& path) {
    auto found = at(path);
    return found == nodes_.end() ? nullptr : found->second.get();
}

std::vector<std::string> MadeUpDisk::names() const {
    std::vector<std::string> all;
    for (const auto& [key, node] : nodes_)
        all.push_back(parentOf(key) + "\\" + node->name + (node->directory ? "\\" : ""));
    return all;
}

std::size_t MadeUpDisk::used() const {
    std::size_t sum = 0;
    for (const auto& [key, node] : nodes_) sum += node->data.size();
    return sum;
}

bool MadeUpDisk::parentExists(const std::string& path) const {
    std::string parent = upperCased(parentOf(path));
    auto found = nodes_.find(parent);
    return parent == "C:" || (found != nodes_.end() && found->second->directory);
}

bool MadeUpDisk::isOpen(const Node& node) const {
    return std::any_of(open_.begin(), open_.end(), [&](const auto& o) { return o.second.node.get() == &node; });
}

bool MadeUpDisk::isEmptyDirectory(const std::string& key) const {
    auto next = nodes_.upper_bound(key + "\\");
    return next == nodes_.end() || !next->first.starts_with(key + "\\");
}

MadeUpDisk::Open* MadeUpDisk::opened(std::int32_t handle) {
    auto found = open_.find(handle);
    return found == open_.end() ? refuse(static_cast<Open*>(nullptr), kInvalidHandle) : &found->second;
}

MadeUpDisk::Open* MadeUpDisk::callFor(std::int32_t handle) { return fails() ? nullptr : opened(handle); }

MadeUpDisk::Nodes::iterator MadeUpDisk::callFor(const char* name, std::uint32_t none) {
    if (fails()) return nodes_.end();
    auto found = at(name);
    return found == nodes_.end() ? refuse(found, none) : found;
}

std::int32_t MadeUpDisk::start(std::shared_ptr<Node> node, std::uint32_t mode) {
    lastHandle += 4;
    open_[lastHandle] = {std::move(node), 0, (mode & 3) != kWrite, (mode & 3) != kRead, {}};
    return lastHandle;
}

std::int32_t MadeUpDisk::open(const char* name, std::uint32_t mode) {
    auto found = callFor(name);
    if (found == nodes_.end()) return -1;
    bool refused = found->second->directory || ((mode & 3) != kRead && (found->second->attributes & kReadOnly));
    return refused ? refuse(-1, kAccessDenied) : start(found->second, mode);
}

std::int32_t MadeUpDisk::create(const char* name, std::uint32_t attributes) {
    if (fails()) return -1;
    std::string full = absolute(name);
    if (full.size() <= 3 || !parentExists(full)) return refuse(-1, kPathNotFound);
    auto found = at(name);
    if (found != nodes_.end() && isKept(*found->second)) return refuse(-1, kAccessDenied);
    Node& node = put(full);
    node.attributes = (attributes & 7) | kArchive;
    return start(at(full)->second, kReadWrite);
}

bool MadeUpDisk::close(std::int32_t handle) {
    closed.push_back(handle);
    if (unclosable.contains(handle)) return false;
    bool failed = fails();
    return open_.erase(handle) != 0 ? !failed : refuse(false, kInvalidHandle);
}

std::int32_t MadeUpDisk::transfer(std::int32_t handle, void* to, const void* from, std::uint32_t count) {
    if (fails()) {
        if (!fault.fallsShort) return -1;
        count /= 2;
    }
    Open* file = opened(handle);
    if (!file) return -1;
    if (to ? !file->reads : !file->writes) return refuse(-1, kAccessDenied);
    std::string& data = file->node->data;
    std::size_t start = static_cast<std::size_t>(file->position);
    if (to) {
        count = start < data.size() ? std::min(count, static_cast<std::uint32_t>(data.size() - start)) : 0;
        std::memcpy(to, data.data() + std::min(start, data.size()), count);
    } else if (count > 0) {
        std::size_t grown = std::max(data.size(), start + count);
        if (used() - data.size() + grown > capacity) return refuse(-1, kDiskFull);
        data.resize(grown);
        std::memcpy(data.data() + start, from, count);
    }
    file->position += count;
    return static_cast<std::int32_t>(count);
}

// The position is lost, as on Windows.
std::int32_t MadeUpDisk::transferAt(std::int32_t handle, std::int64_t position, void* to, const void* from,
                                    std::uint32_t count) {
    if (Open* file = opened(handle)) file->position = position;
    return transfer(handle, to, from, count);
}

std::int32_t MadeUpDisk::seek(std::int32_t handle, std::int32_t offset, std::int32_t origin) {
    Open* file = callFor(handle);
    if (!file) return -1;
    if (origin < kFromStart || origin > kFromEnd) return refuse(-1, kInvalidParameter);
    std::int64_t base = origin == kFromStart     ? 0
                        : origin == kFromCurrent ? file->position
                                                 : static_cast<std::int64_t>(file->node->data.size());
    if (base + offset < 0) return refuse(-1, kNegativeSeek);
    if (base + offset > kLastPosition) return refuse(-1, kInvalidParameter);
    file->position = base + offset;
    return static_cast<std::int32_t>(file->position);
}

std::int64_t MadeUpDisk::size(std::int32_t handle) {
    Open* file = callFor(handle);
    return file ? static_cast<std::int64_t>(file->node->data.size()) : -1;
}

bool MadeUpDisk::truncate(std::int32_t handle) {
    Open* file = callFor(handle);
    if (!file) return false;
    if (!file->writes) return refuse(false, kAccessDenied);
    std::size_t end = static_cast<std::size_t>(file->position);
    if (end > file->node->data.size() && used() - file->node->data.size() + end > capacity)
        return refuse(false, kDiskFull);
    file->node->data.resize(end);
    return true;
}

std::string MadeUpDisk::locks() const {
    std::set<std::tuple<std::string, std::uint64_t, std::uint64_t>> all;
    for (auto& [handle, file] : open_) {
        for (auto [from, end] : file.held) all.emplace(file.node->name, from, end - from);
    }
    std::string text;
    for (auto& [name, from, length] : all)
        text += (text.empty() ? "" : ", ") + name + " " + std::to_string(from) + "+" + std::to_string(length);
    return text;
}

bool MadeUpDisk::lock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) {
    Open* file = callFor(handle);
    if (!file) return false;
    Range range{offset, std::uint64_t{offset} + length};
    for (const auto& [other, opened] : open_) {
        if (opened.node != file->node) continue;
        for (const Range& held : opened.held) {
            if (range.first < held.second && held.first < range.second) return refuse(false, kLockViolation);
        }
    }
    file->held.push_back(range);
    return true;
}

bool MadeUpDisk::unlock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) {
    Open* file = callFor(handle);
    if (!file) return false;
    auto found = std::find(file->held.begin(), file->held.end(), Range{offset, std::uint64_t{offset} + length});
    if (found == file->held.end()) return refuse(false, kNotLocked);
    file->held.erase(found);
    return true;
}

bool MadeUpDisk::information(std::int32_t handle, FileInformation& information) {
    Open* file = callFor(handle);
    if (!file) return false;
    const Node& node = *file->node;
    information = {.attributes = shownAttributes(node),
                   .times = node.times,
                   .volumeSerial = 0x1234ABCD,
                   .size = node.data.size(),
                   .identity = {1, tellsIdentity ? reinterpret_cast<std::uintptr_t>(&node) : 0}};
    return true;
}

bool MadeUpDisk::setTimes(std::int32_t handle, const FileTimes& times) {
    Open* file = callFor(handle);
    if (!file) return false;
    for (FileTime FileTimes::*time : {&FileTimes::created, &FileTimes::accessed, &FileTimes::written})
        if (times.*time) file->node->times.*time = times.*time;
    return true;
}

std::uint32_t MadeUpDisk::attributes(const char* name) {
    if (fails()) return kNoAttributes;
    if (!*name) return refuse(kNoAttributes, kPathNotFound);
    if (absolute(name) == "C:") return kDirectoryEntry;
    auto found = at(name);
    return found == nodes_.end() ? refuse(kNoAttributes, kFileNotFound) : shownAttributes(*found->second);
}

bool MadeUpDisk::setAttributes(const char* name, std::uint32_t attributes) {
    auto found = callFor(name);
    if (found == nodes_.end()) return false;
    found->second->attributes = attributes & (kReadOnly | kHidden | kSystem | kArchive);
    return true;
}

bool MadeUpDisk::erase(const char* name) {
    auto found = callFor(name);
    if (found == nodes_.end()) return false;
    if (isKept(*found->second)) return refuse(false, kAccessDenied);
    if (isOpen(*found->second)) return refuse(false, kSharingViolation);
    nodes_.erase(found);
    return true;
}

bool MadeUpDisk::move(const char* from, const char* to) {
    auto found = callFor(from);
    if (found == nodes_.end()) return false;
    std::string target = absolute(to);
    if (target.size() <= 3 || !parentExists(target)) return refuse(false, kPathNotFound);
    if (auto taken = at(to); taken != nodes_.end() && taken != found) return refuse(false, kAlreadyExists);
    if (isOpen(*found->second)) return refuse(false, kSharingViolation);
    std::string oldKey = found->first, newKey = upperCased(target);
    Nodes moved;
    for (auto it = nodes_.begin(); it != nodes_.end();) {
        bool within = it->first == oldKey || it->first.starts_with(oldKey + "\\");
        if (within) moved[newKey + it->first.substr(oldKey.size())] = it->second;
        it = within ? nodes_.erase(it) : std::next(it);
    }
    nodes_.merge(moved);
    nodes_[newKey]->name = lastOf(target);
    return true;
}

bool MadeUpDisk::createDirectory(const char* name) {
    if (fails()) return false;
    std::string full = absolute(name);
    if (full.empty() || !parentExists(full)) return refuse(false, kPathNotFound);
    if (full == "C:" || find(full)) return refuse(false, kAlreadyExists);
    putDirectory(full);
    return true;
}

bool MadeUpDisk::removeDirectory(const char* name) {
    auto found = callFor(name, kPathNotFound);
    if (found == nodes_.end()) return false;
    if (!found->second->directory) return refuse(false, kDirectory);
    if (!isEmptyDirectory(found->first)) return refuse(false, kDirectoryNotEmpty);
    nodes_.erase(found);
    return true;
}

std::uint32_t MadeUpDisk::fullPath(const char* name, char* path, std::uint32_t room) {
    if (fails() || !*name) return 0;
    std::string full = absolute(name);
    if (full.empty()) return refuse(0u, kInvalidDrive);
    if (full == "C:") full += '\\';
    if (full.size() >= room) return static_cast<std::uint32_t>(full.size() + 1);
    std::memcpy(path, full.c_str(), full.size() + 1);
    return static_cast<std::uint32_t>(full.size());
}

std::int32_t MadeUpDisk::findFirst(const char* pattern, FoundEntry& entry) {
    if (fails()) return -1;
    std::string full = behindLinks(upperCased(absolute(pattern)));
    if (full.size() <= 3) return refuse(-1, kFileNotFound);
    if (!parentExists(full)) return refuse(-1, kPathNotFound);
    std::string parent = parentOf(full), wanted = lastOf(full) == "*.*" ? "*" : lastOf(full);
    std::vector<FoundEntry> found;
    if (parent != "C:" && wanted == "*") {
        for (const char* name : {".", ".."}) found.push_back(entryOf({name, true, "", 0, {}, {}, {}}, name));
    }
    for (const auto& [key, node] : nodes_)
        if (parentOf(key) == parent && matches(wanted, lastOf(key))) found.push_back(entryOf(*node, node->name));
    if (found.empty()) return refuse(-1, kFileNotFound);
    std::reverse(found.begin(), found.end());
    lastHandle += 4;
    entry = found.back();
    found.pop_back();
    searches_[lastHandle] = std::move(found);
    return lastHandle;
}

bool MadeUpDisk::findNext(std::int32_t search, FoundEntry& entry) {
    if (fails()) return false;
    auto found = searches_.find(search);
    if (found == searches_.end()) return refuse(false, kInvalidHandle);
    if (found->second.empty()) return refuse(false, kNoMoreFiles);
    entry = found->second.back();
    found->second.pop_back();
    return true;
}

bool MadeUpDisk::findClose(std::int32_t search) {
    ++calls;
    return searches_.erase(search) != 0 || refuse(false, kInvalidHandle);
}

}  // namespace vx::lab
