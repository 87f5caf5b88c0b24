// The functions of the library that the cheque run calls, each found by its exported name.
#pragma once

#include <cstdint>

#include "loaded_library.h"

class Functions {
    using Text = const char*;
    using Number = std::int32_t;
    using Table = std::uint32_t;

    const LoadedLibrary& library_;

    // Takes the type of the pointer that it initialises.
    struct Found {
        const LoadedLibrary& library;
        const char* name;
        template <class Signature>
        operator Signature*() const {
            return library.function<Signature>(name);
        }
    };
    Found find(const char* name) const { return {library_, name}; }

 public:
    explicit Functions(const LoadedLibrary& library) : library_(library) {}

    char* (*allTrim)(Text, char*) = find("AllTrim");
    char* (*chrTrim)(Text, Text, Number, char*) = find("ChrTrim");
    char* (*capFirst)(Text, char*) = find("CapFirst");
    char* (*strTran)(Text, Text, Text, Number, Number, char*) = find("StrTran");
    char* (*unTrim)(Text, Number, Text, char*) = find("UnTrim");
    char* (*replicate)(Text, Number, char*) = find("Replicate");
    char* (*strJustify)(Text, Number, Number, Text, char*) = find("StrJustify");
    Number (*wrapCount)(Text, Number) = find("WrapCount");
    char* (*strWrap)(Text, Number, Number, char*) = find("StrWrap");
    Number (*strEmpty)(Text) = find("StrEmpty");
    char* (*numToDollars)(Text, Number, char*) = find("NumToDollars");
    char* (*comma)(Text, char*) = find("Comma");
    Number (*checkDate)(Text) = find("CheckDate");
    Number (*dateToJulian)(Text) = find("DateToJulian");
    char* (*getJDatef)(Number, Text, char*) = find("GetJDatef");
    char* (*stateCode)(Text, char*) = find("StateCode");
    Number (*isZip)(Text, Text) = find("IsZip");
    char* (*soundex)(Text, Text, Number, char*) = find("Soundex");
    Table (*dbfStrCreate)(Text, Text) = find("DbfStrCreate");
    Number (*dbfAppend)(Table, Number) = find("DbfAppend");
    Number (*dbfLastrec)(Table) = find("DbfLastrec");
    Number (*dbfReplace)(Table, Text, Text) = find("DbfReplace");
    Number (*dbfClose)(Table) = find("DbfClose");
};
