// The buffer cipher, with which files are encrypted, too.
#pragma once

#include <cstddef>

namespace vx {

// Encrypts or decrypts a block in place (the two are one operation). The key starts afresh with each call, so the sizes
// of the blocks into which data are cut belong to their format.
void applyBufferCipher(void* block, std::size_t size);

}  // namespace vx
