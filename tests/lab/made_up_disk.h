// A disk in memory: the files and the tree of names of a made-up drive C, which can be full, fall short or fail.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/errors.h"
#include "platform/platform.h"

namespace vx::lab {

std::string upperCased(std::string text);

// What devices of a made-up machine have in common.
struct MadeUpDevice {
    platform::Process* process = nullptr;  // gets the reasons of failures
    std::function<void()> onCall;          // what others do before each call that may reach for the device

    void call() const {
        if (onCall) onCall();
    }
    template <typename Result>
    Result refuse(Result result, std::uint32_t code) const {
        if (process) process->setLastError(code);
        return result;
    }
};

// What goes wrong, and when: every call of the disk counts one, from 1.
struct Fault {
    int atCall = 0;           // 0 never
    bool lasts = false;       // for all calls from there on
    bool fallsShort = false;  // reads and writes do half of their work; other calls fail
    std::uint32_t code = platform::kGeneralFailure;
};

class MadeUpDisk final : public platform::Files, public platform::Tree, public MadeUpDevice {
 public:
    struct Node {
        std::string name;
        bool directory = false;
        std::string data;
        std::uint32_t attributes = platform::kArchive;
        platform::FileTimes times{1, 2, 3};
        std::string target;     // of a link
        std::string shortName;  // empty if the name is a short one itself
    };

    // Names are "C:\dir\file"; directories on the way are made.
    Node& put(const std::string& path, std::string data = "");
    Node& putDirectory(const std::string& path);
    Node& putLink(const std::string& path, const std::string& target);
    Node* find(const std::string& path);  // null if there is none
    void clear() { nodes_.clear(); }
    std::vector<std::string> names() const;  // all paths in order, directories with a separator behind
    std::size_t openFiles() const { return open_.size(); }
    std::string locks() const;  // those held in all files, as `T.DBF 1000000000+1, T.DBF 1000000004+2`
    std::size_t openSearches() const { return searches_.size(); }

    Fault fault;
    bool tellsIdentity = true;                    // of open files
    int calls = 0;                                // since the disk was made, or since the last reset
    std::size_t capacity = std::size_t{1} << 24;  // bytes in all files
    std::string directory = "C:\\";               // where names without a directory start
    bool dropsEnds = false;                       // blanks and dots at a path's end, as Windows does
    std::set<std::int32_t> unclosable;
    std::vector<std::int32_t> closed;  // what close was called with
    std::int32_t lastHandle = 0;       // the next file or search has the next multiple of 4

    std::int32_t open(const char* name, std::uint32_t mode) override;
    std::int32_t create(const char* name, std::uint32_t attributes) override;
    bool close(std::int32_t handle) override;
    std::int32_t read(std::int32_t handle, void* to, std::uint32_t count) override {
        return transfer(handle, to, nullptr, count);
    }
    std::int32_t write(std::int32_t handle, const void* from, std::uint32_t count) override {
        return transfer(handle, nullptr, from, count);
    }
    std::int32_t seek(std::int32_t handle, std::int32_t offset, std::int32_t origin) override;
    std::int32_t readAt(std::int32_t handle, std::int64_t position, void* to, std::uint32_t count) override {
        return transferAt(handle, position, to, nullptr, count);
    }
    std::int32_t writeAt(std::int32_t handle, std::int64_t position, const void* from, std::uint32_t count) override {
        return transferAt(handle, position, nullptr, from, count);
    }
    std::int64_t size(std::int32_t handle) override;
    bool truncate(std::int32_t handle) override;
    bool flush(std::int32_t handle) override { return callFor(handle); }
    bool lock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) override;
    bool unlock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) override;
    bool information(std::int32_t handle, platform::FileInformation& information) override;
    bool setTimes(std::int32_t handle, const platform::FileTimes& times) override;

    std::uint32_t attributes(const char* name) override;
    bool setAttributes(const char* name, std::uint32_t attributes) override;
    bool erase(const char* name) override;
    bool move(const char* from, const char* to) override;
    bool createDirectory(const char* name) override;
    bool removeDirectory(const char* name) override;
    std::uint32_t fullPath(const char* name, char* path, std::uint32_t room) override;
    std::int32_t findFirst(const char* pattern, platform::FoundEntry& entry) override;
    bool findNext(std::int32_t search, platform::FoundEntry& entry) override;
    bool findClose(std::int32_t search) override;

 private:
    using Range = std::pair<std::uint64_t, std::uint64_t>;  // from, up to
    struct Open {
        std::shared_ptr<Node> node;
        std::int64_t position = 0;
        bool reads = true;
        bool writes = true;
        std::vector<Range> held;
    };
    using Nodes = std::map<std::string, std::shared_ptr<Node>>;

    std::string absolute(const std::string& name) const;
    std::string behindLinks(std::string key) const;
    Nodes::iterator at(const std::string& name);
    bool fails();
    Open* opened(std::int32_t handle);
    Open* callFor(std::int32_t handle);  // null if it fails, as are the iterators that end
    Nodes::iterator callFor(const char* name, std::uint32_t none = platform::kFileNotFound);
    std::int32_t start(std::shared_ptr<Node> node, std::uint32_t mode);
    std::int32_t transfer(std::int32_t handle, void* to, const void* from, std::uint32_t count);
    std::int32_t transferAt(std::int32_t handle, std::int64_t position, void* to, const void* from,
                            std::uint32_t count);
    std::size_t used() const;
    bool parentExists(const std::string& path) const;
    bool isOpen(const Node& node) const;
    bool isEmptyDirectory(const std::string& key) const;

    Nodes nodes_;  // by upper-cased full path; the root is not among them
    std::map<std::int32_t, Open> open_;
    std::map<std::int32_t, std::vector<platform::FoundEntry>> searches_;  // what is still to be found, last first
};

}  // namespace vx::lab
