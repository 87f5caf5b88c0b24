// The register of written cheques: a table that any dBASE-format program reads.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "functions.h"

class ChequeRegister {
 public:
    ChequeRegister(const Functions& call, const std::string& file)
        : call_(call), table_(call.dbfStrCreate(file.c_str(), kStructure)) {
        if (table_ == 0) throw std::runtime_error("cannot create the table " + file);
    }
    ~ChequeRegister() {
        if (table_ != 0) call_.dbfClose(table_);
    }
    ChequeRegister(const ChequeRegister&) = delete;
    ChequeRegister& operator=(const ChequeRegister&) = delete;

    void append() {
        std::int32_t before = call_.dbfLastrec(table_);
        if (call_.dbfAppend(table_, 1) != before + 1) throw std::runtime_error("cannot append to the table");
    }

    // A value of the cheque appended last.
    void put(const char* field, const std::string& value) {
        if (!call_.dbfReplace(table_, field, value.c_str()))
            throw std::runtime_error(std::string("cannot write the field ") + field);
    }

    // All is on the disk when this returns.
    void close() {
        bool failed = call_.dbfClose(table_) != 0;
        table_ = 0;
        if (failed) throw std::runtime_error("cannot close the table");
    }

 private:
    static constexpr char kStructure[] =
        "NUMBER,N,6:PAYEE,C,30:TOWN,C,20:STATE,C,2:DATED,D:AMOUNT,N,12,2:CLEARED,L:MEMO,M";

    const Functions& call_;
    std::uint32_t table_;
};
