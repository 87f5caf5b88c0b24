// dBASE-format tables, shown by the library's own table functions.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "cli/library.h"

namespace vx::cli {

struct TableField {
    std::string name;
    char type;
    std::int32_t length;
    std::int32_t decimals;
};

// A table opened for reading, with sharing allowed. Throws SystemError if it cannot be opened.
class Table {
 public:
    Table(const Library& library, const std::string& file);
    ~Table();
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    const std::vector<TableField>& fields() const { return fields_; }
    std::int32_t recordSize() const;
    std::int32_t recordCount() const;

    void go(std::int32_t record);
    bool isDeleted() const;

    // The value of a field, from 0, of the current record: its bytes without the blanks around them.
    std::string value(std::size_t field);

 private:
    using Query = std::int32_t(std::uint32_t);
    using FieldQuery = std::int32_t(std::uint32_t, std::int32_t);
    using FieldText = std::int32_t(std::uint32_t, std::int32_t, char*);

    template <class Signature>
    Signature* find(const char* name) const {
        return reinterpret_cast<Signature*>(library_.find(name));
    }
    void readFields();

    const Library& library_;
    std::uint32_t handle_;
    FieldQuery* fieldSize_;
    FieldText* fieldGet_;
    std::vector<TableField> fields_;
    std::unique_ptr<char[]> buffer_;
    std::size_t room_ = 0;
};

struct TableOptions {
    bool json = false;     // an object a record
    bool deleted = false;  // deleted records, too
};

std::string tableHeading(const Table& table, const std::string& file);
std::string tableRow(Table& table, std::int32_t record);   // for people
std::string tableJson(Table& table, std::int32_t record);  // one line

// The fields and records; `write` is called when there is enough to be written.
template <class Write>
void showTable(Table& table, const std::string& file, const TableOptions& options, const Write& write) {
    std::string output = options.json ? "" : tableHeading(table, file);
    constexpr std::size_t kEnough = 1 << 16;
    for (std::int32_t record = 1; record <= table.recordCount(); ++record) {
        table.go(record);
        if (table.isDeleted() && !options.deleted) continue;
        output += options.json ? tableJson(table, record) : tableRow(table, record);
        if (output.size() >= kEnough) write(output);
    }
    write(output);
}

}  // namespace vx::cli
