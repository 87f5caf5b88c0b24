// The paths of a table's files: they differ in the extension, DBF if the name has none.
#pragma once

#include "files/path.h"

namespace vx::dbf {

class TablePath {
 public:
    explicit TablePath(const char* name);

    // Companions have the letter case of the table: readers that tell cases apart look for them there.
    TablePath& with(const char* extension);
    const char* get();

 private:
    PathParts parts_;
    char text_[kJoinedSize];
};

}  // namespace vx::dbf
