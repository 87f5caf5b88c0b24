// A CSV file read whole: its rows, each as texts by the names of the first row.
#pragma once

#include <csv.h>

#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

class CsvFile {
 public:
    using Row = std::map<std::string, std::string>;

    explicit CsvFile(const char* path) {
        std::ifstream file(path, std::ios::binary);
        if (!file) throw std::runtime_error(std::string("cannot read ") + path);
        std::string bytes{std::istreambuf_iterator<char>(file), {}};
        csv_parser parser;
        if (csv_init(&parser, CSV_APPEND_NULL) != 0) throw std::runtime_error("cannot start the CSV parser");
        std::size_t parsed = csv_parse(&parser, bytes.data(), bytes.size(), onField, onRow, this);
        csv_fini(&parser, onField, onRow, this);
        csv_free(&parser);
        if (parsed != bytes.size()) throw std::runtime_error(std::string("no CSV file: ") + path);
    }

    const std::vector<Row>& rows() const { return rows_; }

 private:
    static void onField(void* text, std::size_t size, void* self) {
        static_cast<CsvFile*>(self)->fields_.emplace_back(static_cast<const char*>(text), size);
    }

    static void onRow(int, void* self) {
        auto& file = *static_cast<CsvFile*>(self);
        if (file.names_.empty()) {
            file.names_.swap(file.fields_);
        } else {
            Row& row = file.rows_.emplace_back();
            for (std::size_t i = 0; i < file.names_.size() && i < file.fields_.size(); ++i)
                row[file.names_[i]] = file.fields_[i];
        }
        file.fields_.clear();
    }

    std::vector<std::string> names_;
    std::vector<std::string> fields_;
    std::vector<Row> rows_;
};
