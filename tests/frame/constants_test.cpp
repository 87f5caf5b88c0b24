// The public header's constants against the numbers that the library itself uses. The tests of diskettes, disks,
// pruning, locating and searching use theirs.
#include "files/filesearch.h"
#include "frame/library.h"
#include "include/vexlor32.h"
#include "patterns/regex_program.h"
#include "platform/errors.h"
#include "platform/files.h"

namespace vx::test {
namespace {

using namespace platform;

static_assert(VX_OPEN_READ == kRead && VX_OPEN_WRITE == kWrite && VX_OPEN_READWRITE == kReadWrite);
static_assert(VX_SHARE_COMPATIBLE == kShareCompatible && VX_SHARE_EXCLUSIVE == kExclusive &&
              VX_SHARE_DENY_WRITE == kDenyWrite && VX_SHARE_DENY_READ == kDenyRead && VX_SHARE_DENY_NONE == kDenyNone);
static_assert(VX_TABLE_SHARED == (kReadWrite | kDenyNone));
static_assert(VX_SEEK_START == kFromStart && VX_SEEK_CURRENT == kFromCurrent && VX_SEEK_END == kFromEnd);

static_assert(VX_ATTR_NORMAL == 0 && VX_ATTR_READONLY == kReadOnlyBit && VX_ATTR_HIDDEN == kHiddenBit &&
              VX_ATTR_SYSTEM == kSystemBit && VX_ATTR_DIRECTORY == kDirectoryBit && VX_ATTR_ARCHIVE == kArchiveBit &&
              VX_ATTR_COMPRESSED == kCompressedBit);
static_assert(VX_FIND_MASK_ONLY == kMaskOnly && VX_FIND_DIRECTORIES == kAllDirectories &&
              VX_FIND_FULL_NAMES == kFullNames && VX_FIND_SHORT_NAMES == kShortNames);

static_assert(VX_REGEX_OK == regex::kNoError && VX_REGEX_NO_PATTERN == regex::kNoPattern &&
              VX_REGEX_UNFINISHED == regex::kUnfinished && VX_REGEX_CLOSURE_FIRST == regex::kClosureFirst &&
              VX_REGEX_CLOSURE_OF_MARK == regex::kClosureOfMark && VX_REGEX_TOO_MANY_GROUPS == regex::kTooManyGroups &&
              VX_REGEX_NO_OPEN_GROUP == regex::kNoOpenGroup && VX_REGEX_EMPTY_GROUP == regex::kEmptyGroup &&
              VX_REGEX_REFERENCE_INSIDE == regex::kReferenceInside &&
              VX_REGEX_REFERENCE_BEFORE == regex::kReferenceBefore && VX_REGEX_OPEN_GROUP == regex::kOpenGroup);

static_assert(VX_TYPE_ALPHA == kAlpha && VX_TYPE_ASCII == kAscii && VX_TYPE_LOWER == kLowerLetter &&
              VX_TYPE_UPPER == kUpperLetter && VX_TYPE_DIGIT == kDigit && VX_TYPE_NUMERIC == kNumeric &&
              VX_TYPE_SPACE == kSpace && VX_TYPE_HEX_DIGIT == kHexDigit && VX_TYPE_CONTROL == kControl &&
              VX_TYPE_PRINTABLE == kPrintable && VX_TYPE_PUNCTUATION == kPunctuation && VX_TYPE_WHITE == kWhite);

static_assert(VX_ERROR_NONE == platform::kNoError && VX_ERROR_FILE_NOT_FOUND == kFileNotFound &&
              VX_ERROR_PATH_NOT_FOUND == kPathNotFound && VX_ERROR_TOO_MANY_FILES == kTooManyOpenFiles &&
              VX_ERROR_ACCESS_DENIED == kAccessDenied && VX_ERROR_INVALID_HANDLE == kInvalidHandle &&
              VX_ERROR_NO_MEMORY == kNotEnoughMemory && VX_ERROR_INVALID_DRIVE == kInvalidDrive &&
              VX_ERROR_CURRENT_DIRECTORY == kCurrentDirectory && VX_ERROR_NO_MORE_FILES == kNoMoreFiles &&
              VX_ERROR_WRITE_PROTECTED == kWriteProtect && VX_ERROR_NOT_READY == kNotReady &&
              VX_ERROR_WRITE_FAULT == kWriteFault && VX_ERROR_READ_FAULT == kReadFault &&
              VX_ERROR_GENERAL_FAILURE == kGeneralFailure && VX_ERROR_SHARING == kSharingViolation &&
              VX_ERROR_LOCKED == kLockViolation && VX_ERROR_FILE_EXISTS == kFileExists &&
              VX_ERROR_INVALID_PARAMETER == kInvalidParameter && VX_ERROR_DISK_FULL == kDiskFull &&
              VX_ERROR_INVALID_NAME == kInvalidName && VX_ERROR_NEGATIVE_SEEK == kNegativeSeek &&
              VX_ERROR_DIRECTORY_NOT_EMPTY == kDirectoryNotEmpty && VX_ERROR_ALREADY_EXISTS == kAlreadyExists &&
              VX_ERROR_NAME_TOO_LONG == kFilenameTooLong);

// Rows have these numbers.
static_assert(VX_TRIM_START == -1 && VX_TRIM_BOTH == 0 && VX_TRIM_END == 1);
static_assert(VX_JUSTIFY_NONE == 1 && VX_JUSTIFY_LEFT == 2 && VX_JUSTIFY_RIGHT == 3 && VX_JUSTIFY_RIGHT_TRIMMED == 4);
static_assert(VX_TOKENS_SPREAD == 0 && VX_TOKENS_INDENTED == 1 && VX_TOKENS_LEFT == 2 &&
              VX_TOKENS_RIGHT_INDENTED == 3 && VX_TOKENS_RIGHT == 4);

}  // namespace
}  // namespace vx::test
