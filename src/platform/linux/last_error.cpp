#include "platform/linux/last_error.h"

#include <cerrno>

namespace vx::platform {
namespace {

thread_local std::uint32_t last = kNoError;

std::uint32_t codeOf(int systemError) {
    switch (systemError) {
        case 0:
            return kNoError;
        case ESPIPE:
            return kInvalidFunction;
        case ENOENT:
            return kFileNotFound;
        case ENOTDIR:
            return kPathNotFound;
        case EMFILE:
        case ENFILE:
            return kTooManyOpenFiles;
        case EACCES:
        case EPERM:
        case EISDIR:
            return kAccessDenied;
        case EROFS:
            return kWriteProtect;
        case EBADF:
            return kInvalidHandle;
        case ENOMEM:
            return kNotEnoughMemory;
        case EEXIST:
            return kAlreadyExists;
        case EBUSY:
        case ETXTBSY:
            return kSharingViolation;
        case EAGAIN:
            return kLockViolation;
        case ENOSPC:
        case EDQUOT:
            return kDiskFull;
        case EINVAL:
            return kInvalidParameter;
        case ENAMETOOLONG:
            return kFilenameTooLong;
        case EFBIG:
            return kFileTooLarge;
        case ENOTEMPTY:
            return kDirectoryNotEmpty;
        case ENXIO:
        case ENODEV:
            return kNotReady;
        case ENOTSUP:
        case ENOSYS:
            return kNotSupported;
        default:
            return kGeneralFailure;
    }
}

}  // namespace

std::uint32_t lastError() { return last; }
void setLastError(std::uint32_t code) { last = code; }

std::uint32_t systemErrorCode() { return codeOf(errno); }

}  // namespace vx::platform
