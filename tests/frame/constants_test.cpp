// The public header's constants against the numbers that the library itself uses.
#include <gtest/gtest.h>

#include "dbf/table.h"
#include "files/filesearch.h"
#include "frame/library.h"
#include "patterns/regex_program.h"
#include "platform/errors.h"
#include "platform/files.h"
