// Last-error codes, by their Win32 names, on every system.
#pragma once

#include <cstdint>

namespace vx::platform {

enum Error : std::uint32_t {
    kNoError = 0,
    kInvalidFunction = 1,
    kFileNotFound = 2,
    kPathNotFound = 3,
    kTooManyOpenFiles = 4,
    kAccessDenied = 5,
    kInvalidHandle = 6,
    kNotEnoughMemory = 8,
    kInvalidDrive = 15,
    kCurrentDirectory = 16,
    kNoMoreFiles = 18,
    kWriteProtect = 19,
    kBadUnit = 20,
    kNotReady = 21,
    kBadLength = 24,
    kNotDosDisk = 26,
    kWriteFault = 29,
    kReadFault = 30,
    kGeneralFailure = 31,
    kSharingViolation = 32,
    kLockViolation = 33,
    kNotSupported = 50,
    kBadNetPath = 53,
    kFileExists = 80,
    kInvalidParameter = 87,
    kDriveLocked = 108,
    kDiskFull = 112,
    kInsufficientBuffer = 122,
    kInvalidName = 123,
    kNegativeSeek = 131,
    kDirectoryNotEmpty = 145,
    kNotLocked = 158,
    kAlreadyExists = 183,
    kVariableNotFound = 203,
    kFilenameTooLong = 206,
    kFileTooLarge = 223,
    kDirectory = 267,
};

}  // namespace vx::platform
