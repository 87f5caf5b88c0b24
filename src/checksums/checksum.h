// Checksums: the one switch under the exported names.
#pragma once

namespace vx {

// Whether Crc32 folds long blocks by carry-less multiplication: set at load, when the processor can. The tables, by
// which it works otherwise, give the same values.
extern bool foldsCrc32;

}  // namespace vx
