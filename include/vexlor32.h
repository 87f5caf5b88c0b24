/* SPDX-License-Identifier: MIT
 *
 * vexlor32.h: the functions of Vexlor32.DLL (32-bit Windows), Vexlor64.DLL (64-bit Windows) and libvexlor32.so (64-bit
 * Linux), for C and C++.
 *
 * Made from the tables under exports/; edit those, not this file.
 *
 * Texts are NUL-terminated single-byte strings. Destinations are yours: give each the room that its line states; nothing
 * is ever yours to free. Counts of tokens, lines, fields and occurrences begin with 1; character positions begin
 * with 1, or with 0 in the functions that say so. Failures are told by the result alone.
 *
 * Every function has further names. They are declared when VEXLOR32_ALL_NAMES is defined, except those that belong to the C
 * library or to others, too (isalpha, fopen, crc32, ...): a program finds those with GetProcAddress or dlsym.
 *
 * Include this header after all those of the system and of other libraries. Some of them define a name of ours as a macro
 * (StrCmp in <shlwapi.h>); it is undefined here, and would be back, silently, if they came later. On Linux, link this library
 * behind all others, too: one whose names have no versions, such as zlib, would otherwise call our function for its own.
 */
#ifndef VEXLOR32_H
#define VEXLOR32_H

#include <stdint.h>

/* ---- Open modes: what a program wants to do with a file; for FOpen and DbfOpen, plus what others may not do ---- */
#define VX_OPEN_READ      0 /* reading */
#define VX_OPEN_WRITE     1 /* writing */
#define VX_OPEN_READWRITE 2 /* both */

/* ---- Share modes: what others may not do with a file that is open; added to an open mode ---- */
#define VX_SHARE_COMPATIBLE 0x00 /* like VX_SHARE_DENY_NONE */
#define VX_SHARE_EXCLUSIVE  0x10 /* others may not open the file */
#define VX_SHARE_DENY_WRITE 0x20 /* others may not write */
#define VX_SHARE_DENY_READ  0x30 /* others may not read */
#define VX_SHARE_DENY_NONE  0x40 /* others may read and write */

/* ---- Table modes: for DbfOpen, which takes all other open modes, too ---- */
#define VX_TABLE_SHARED 0x42 /* reading and writing, shared with other programs: appends and locks are coordinated */

/* ---- Seek origins: what an offset of FSeek, or a line number of FSeekLine, is counted from ---- */
#define VX_SEEK_START   0 /* the start of the file */
#define VX_SEEK_CURRENT 1 /* the position */
#define VX_SEEK_END     2 /* the end of the file */

/* ---- File attributes: bits of a file's attributes; in the flags of a search, the mask of those of which an entry
 * has one at least ---- */
#define VX_ATTR_NORMAL     0x00 /* none of the others */
#define VX_ATTR_READONLY   0x01 /* may not be written to */
#define VX_ATTR_HIDDEN     0x02 /* left out of listings */
#define VX_ATTR_SYSTEM     0x04 /* belongs to the system */
#define VX_ATTR_DIRECTORY  0x10 /* a directory */
#define VX_ATTR_ARCHIVE    0x20 /* changed since the last backup */
#define VX_ATTR_COMPRESSED 0x40 /* compressed by the file system */

/* ---- Search flags: how a search chooses its entries and gives their names; added to a mask of attributes ---- */
#define VX_FIND_MASK_ONLY   0x080 /* nothing but the mask decides */
#define VX_FIND_DIRECTORIES 0x100 /* every directory but . and .. is taken, whatever the mask says */
#define VX_FIND_FULL_NAMES  0x200 /* names come with the pattern's drive and directory */
#define VX_FIND_SHORT_NAMES 0x400 /* names are the short ones (8.3) */

/* ---- Sizes: bytes of blocks that a program keeps for the library ---- */
#define VX_FIND_BLOCK_SIZE 1115 /* the block of a search */

/* ---- Letter case in files: for FLocate and FStrCount; the text that is looked for is always taken as it is ---- */
#define VX_LOCATE_EXACT 0 /* the file's bytes as they are */
#define VX_LOCATE_UPPER 1 /* the file's bytes in upper case */
#define VX_LOCATE_LOWER 2 /* the file's bytes in lower case */

/* ---- Prune modes: what Prune leaves of a tree ---- */
#define VX_PRUNE_ALL              0 /* nothing */
#define VX_PRUNE_KEEP_TOP         1 /* the directory itself, empty */
#define VX_PRUNE_KEEP_TOP_FILES   2 /* the directory with its own files */
#define VX_PRUNE_KEEP_DIRECTORIES 4 /* the directory with its own files, and all directories below, empty */

/* ---- Trim modes: the end of a text that ChrTrim works on ---- */
#define VX_TRIM_START (-1) /* the start */
#define VX_TRIM_BOTH  0    /* both ends */
#define VX_TRIM_END   1    /* the end */

/* ---- StrJustify modes: where a text stands in its field ---- */
#define VX_JUSTIFY_NONE          1 /* as it is */
#define VX_JUSTIFY_LEFT          2 /* at the left */
#define VX_JUSTIFY_RIGHT         3 /* at the right, with its trailing blanks */
#define VX_JUSTIFY_RIGHT_TRIMMED 4 /* at the right, without them */

/* ---- TokenJustify modes: where the tokens stand in a line ---- */
#define VX_TOKENS_SPREAD         0 /* from margin to margin */
#define VX_TOKENS_INDENTED       1 /* single gaps, from where the first token stands in the text */
#define VX_TOKENS_LEFT           2 /* single gaps, from the left margin */
#define VX_TOKENS_RIGHT_INDENTED 3 /* single gaps, as far from the right margin as in the text */
#define VX_TOKENS_RIGHT          4 /* single gaps, up to the right margin */

/* ---- Regular expression errors: what RegCheck and its kin give for a bad pattern ---- */
#define VX_REGEX_OK               0     /* the pattern is good */
#define VX_REGEX_NO_PATTERN       (-1)  /* it is empty, and there is no last one */
#define VX_REGEX_UNFINISHED       (-2)  /* a class has no end, a backslash is the last character, or the pattern is too long */
#define VX_REGEX_CLOSURE_FIRST    (-3)  /* * or + comes first */
#define VX_REGEX_CLOSURE_OF_MARK  (-4)  /* * or + follows an anchor, a group mark, a word mark or a back-reference */
#define VX_REGEX_TOO_MANY_GROUPS  (-5)  /* there are more than 9 groups */
#define VX_REGEX_NO_OPEN_GROUP    (-6)  /* a group ends that has not begun */
#define VX_REGEX_EMPTY_GROUP      (-7)  /* a group or a word has nothing in it */
#define VX_REGEX_REFERENCE_INSIDE (-8)  /* a back-reference stands in its own group */
#define VX_REGEX_REFERENCE_BEFORE (-9)  /* a back-reference stands before its group */
#define VX_REGEX_OPEN_GROUP       (-10) /* a group does not end */

/* ---- Character classes: bits of a character's classes, for IsStrType and SetCharType; those above are free for
 * programs ---- */
#define VX_TYPE_ALPHA       0x001 /* letters */
#define VX_TYPE_ASCII       0x002 /* 0x01 to 0x7F */
#define VX_TYPE_LOWER       0x004 /* a to z */
#define VX_TYPE_UPPER       0x008 /* A to Z */
#define VX_TYPE_DIGIT       0x010 /* 0 to 9 */
#define VX_TYPE_NUMERIC     0x020 /* digits, signs and the full stop */
#define VX_TYPE_SPACE       0x040 /* blank and tab */
#define VX_TYPE_HEX_DIGIT   0x080 /* 0 to 9, A to F, a to f */
#define VX_TYPE_CONTROL     0x100 /* control characters */
#define VX_TYPE_PRINTABLE   0x200 /* 0x20 to 0x7E */
#define VX_TYPE_PUNCTUATION 0x400 /* printable, but no letter, no digit and no blank */
#define VX_TYPE_WHITE       0x800 /* blank, tab, line feed, carriage return, and both line ends with their high bits set */

/* ---- Diskette formats: what DriveType and DiskType give ---- */
#define VX_DISKETTE_UNKNOWN 0   /* none of these */
#define VX_DISKETTE_160K    160 /* 160 KB */
#define VX_DISKETTE_180K    180 /* 180 KB */
#define VX_DISKETTE_320K    320 /* 320 KB */
#define VX_DISKETTE_360K    360 /* 360 KB */
#define VX_DISKETTE_720K    720 /* 720 KB */
#define VX_DISKETTE_1M      250 /* 2002 sectors */
#define VX_DISKETTE_1200K   120 /* 1.2 MB, and 1232 sectors */
#define VX_DISKETTE_1440K   144 /* 1.44 MB */
#define VX_DISKETTE_2M      500 /* 4004 sectors */
#define VX_DISKETTE_2880K   288 /* 2.88 MB */

/* ---- Disk states: what DiskStatus gives ---- */
#define VX_DISK_READY       0    /* it can be written to */
#define VX_DISK_PROTECTED   1    /* it is write-protected */
#define VX_DISK_NOT_READY   3    /* no disk is there */
#define VX_DISK_UNREADABLE  7    /* it cannot be read */
#define VX_DISK_UNFORMATTED 8    /* it is not formatted, or any other reason */
#define VX_DISK_FAILURE     13   /* a general failure */
#define VX_DISK_NO_DRIVE    (-1) /* there is no such drive */

/* ---- Error numbers: common reasons that FError gives, on both systems; they are those of Windows, which has more
 * ---- */
#define VX_ERROR_NONE                0   /* no failure */
#define VX_ERROR_FILE_NOT_FOUND      2   /* there is no such file */
#define VX_ERROR_PATH_NOT_FOUND      3   /* there is no such directory */
#define VX_ERROR_TOO_MANY_FILES      4   /* too many files are open */
#define VX_ERROR_ACCESS_DENIED       5   /* the file's permissions or attributes do not allow it */
#define VX_ERROR_INVALID_HANDLE      6   /* the handle is not that of an open file */
#define VX_ERROR_NO_MEMORY           8   /* there is not enough memory */
#define VX_ERROR_INVALID_DRIVE       15  /* there is no such drive */
#define VX_ERROR_CURRENT_DIRECTORY   16  /* the current directory cannot be removed */
#define VX_ERROR_NO_MORE_FILES       18  /* the search is at its end */
#define VX_ERROR_WRITE_PROTECTED     19  /* the disk is write-protected */
#define VX_ERROR_NOT_READY           21  /* no disk is in the drive */
#define VX_ERROR_WRITE_FAULT         29  /* the device cannot be written to */
#define VX_ERROR_READ_FAULT          30  /* the device cannot be read */
#define VX_ERROR_GENERAL_FAILURE     31  /* the device does not work */
#define VX_ERROR_SHARING             32  /* another has opened the file and does not share it */
#define VX_ERROR_LOCKED              33  /* another has locked the bytes */
#define VX_ERROR_FILE_EXISTS         80  /* the file exists */
#define VX_ERROR_INVALID_PARAMETER   87  /* an argument is out of range */
#define VX_ERROR_DISK_FULL           112 /* the disk is full */
#define VX_ERROR_INVALID_NAME        123 /* no file can have the name */
#define VX_ERROR_NEGATIVE_SEEK       131 /* the position would lie before the start of the file */
#define VX_ERROR_DIRECTORY_NOT_EMPTY 145 /* the directory is not empty */
#define VX_ERROR_ALREADY_EXISTS      183 /* a file or directory of that name exists */
#define VX_ERROR_NAME_TOO_LONG       206 /* the name is too long */

#if defined(_WIN32)
#define VEXLOR32_CALL __stdcall
#ifndef VEXLOR32_API
#define VEXLOR32_API __declspec(dllimport)
#endif
#else
#define VEXLOR32_CALL
#ifndef VEXLOR32_API
#define VEXLOR32_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif


/* ---- Blobs ---- */

/* Fills a field of a blob with a text, cut to the field's length, and zero bytes.
 *   blob     NULL: nothing happens; room: max(offset + max(length, min(len(text), max(length, 0)) + 1), 0); below 0,
 *            offset counts bytes in front of it
 *   offset   of the field, in bytes from the blob's start; below 0, in front of it
 *   length   of the field, in bytes; below 0 counts as 0
 *   text     text; NULL counts as empty
 *   returns  the blob
 * A terminator always follows the text: when the text fills the field, it lies on the byte behind the field. */
VEXLOR32_API void *VEXLOR32_CALL _str2blob(void *blob, int32_t offset, int32_t length, const char *text);

/* Stores a byte in a blob.
 *   blob     NULL: nothing happens; room: max(offset + 1, 0); below 0, offset counts bytes in front of it
 *   offset   in bytes from the blob's start; below 0, in front of it
 *   value    character; only the low byte counts
 *   returns  the byte that was there, -128 to 127; 0 if the blob is NULL */
VEXLOR32_API int32_t VEXLOR32_CALL _byte2blob(void *blob, int32_t offset, int32_t value);

/* Stores a 32-bit number in a blob, its low byte first, at any offset.
 *   blob     NULL: nothing happens; room: max(offset + 4, 0); below 0, offset counts bytes in front of it
 *   offset   in bytes from the blob's start; below 0, in front of it
 *   value    the number to store
 *   returns  the number that was there; 0 if the blob is NULL */
VEXLOR32_API int32_t VEXLOR32_CALL _int2blob(void *blob, int32_t offset, int32_t value);

/* The same as _int2blob: both store 32 bits.
 *   blob     NULL: nothing happens; room: max(offset + 4, 0); below 0, offset counts bytes in front of it
 *   offset   in bytes from the blob's start; below 0, in front of it
 *   value    the number to store
 *   returns  the number that was there; 0 if the blob is NULL */
VEXLOR32_API int32_t VEXLOR32_CALL _long2blob(void *blob, int32_t offset, int32_t value);

/* The byte at an offset of a blob.
 *   blob     NULL gives 0; room: max(offset + 1, 0); below 0, offset counts bytes in front of it
 *   offset   in bytes from the blob's start; below 0, in front of it
 *   returns  the byte, -128 to 127; 0 if the blob is NULL */
VEXLOR32_API int32_t VEXLOR32_CALL _blob2byte(const void *blob, int32_t offset);

/* The 32-bit number at an offset of a blob.
 *   blob     NULL gives 0; room: max(offset + 4, 0); below 0, offset counts bytes in front of it
 *   offset   in bytes from the blob's start; below 0, in front of it
 *   returns  the number; 0 if the blob is NULL */
VEXLOR32_API int32_t VEXLOR32_CALL _blob2int(const void *blob, int32_t offset);

/* The same as _blob2int: both read 32 bits.
 *   blob     NULL gives 0; room: max(offset + 4, 0); below 0, offset counts bytes in front of it
 *   offset   in bytes from the blob's start; below 0, in front of it
 *   returns  the number; 0 if the blob is NULL */
VEXLOR32_API int32_t VEXLOR32_CALL _blob2long(const void *blob, int32_t offset);

/* Copies bytes of a blob, zero bytes among them, and adds a terminator.
 *   blob     NULL: the result is a constant empty text; room: max(offset + max(count, 0), 0); below 0, offset counts
 *            bytes in front of it
 *   offset   in bytes from the blob's start; below 0, in front of it
 *   count    number of bytes; below 0 counts as 0
 *   dest     destination; room: max(count, 0) + 1; NULL: nothing is written; left as it is when blob is NULL
 *   returns  dest, or a constant empty text when the blob is NULL */
VEXLOR32_API char *VEXLOR32_CALL _blob2str(const void *blob, int32_t offset, int32_t count, char *dest);

/* As _blob2str, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strblob2str(const void *blob, int32_t offset, int32_t count, char *dest);

/* Copies bytes from a place in one blob to a place in another.
 *   blob        NULL: nothing happens; room: max(offset + max(count, 0), 0); below 0, offset counts bytes in front of
 *               it
 *   offset      in bytes from the blob's start; below 0, in front of it
 *   dest        NULL: nothing happens; room: max(destOffset + max(count, 0), 0); below 0, destOffset counts bytes in
 *               front of it
 *   destOffset  in bytes from the start of dest; below 0, in front of it
 *   count       number of bytes; below 0 counts as 0
 *   returns     just past the last byte written, ready for the next piece; dest if either block is NULL */
VEXLOR32_API void *VEXLOR32_CALL blobcopy(const void *blob, int32_t offset, void *dest, int32_t destOffset, int32_t count);

/* Copies bytes one by one, from the first to the last.
 *   dest     NULL: nothing happens; room: max(count, 0)
 *   source   NULL: nothing happens; room: max(count, 0)
 *   count    number of bytes; below 0 counts as 0
 *   returns  dest
 * A destination inside the source repeats the source's first bytes: `MemCopy(p + 1, p, n)` fills with the byte at p. */
VEXLOR32_API void *VEXLOR32_CALL MemCopy(void *dest, const void *source, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void *VEXLOR32_CALL _memcpy(void *dest, const void *source, int32_t count);
VEXLOR32_API void *VEXLOR32_CALL memcopy(void *dest, const void *source, int32_t count);
VEXLOR32_API void *VEXLOR32_CALL _memcopy(void *dest, const void *source, int32_t count);
#endif


/* ---- Expression calculator ---- */

/* Evaluates an arithmetic expression in single precision and formats its value.
 *   expression  numbers, + - * / ^ and parentheses; NULL counts as empty
 *   format      printf style, with exactly one floating-point conversion; NULL counts as empty
 *   dest        513 characters at most are written; room: 514; NULL: nothing is written; must already end at its last
 *               byte
 *   returns     dest
 * Power has the precedence of product and quotient, and all three group from the left. A division by zero gives 0 for
 * its term. Blanks and commas may stand anywhere.
 * A failed calculation writes the single character 0 into the first byte of dest and no terminator: clear dest
 * before. So does a format that is not exactly one floating-point conversion (%f, %e, %g, %a with flags, width and
 * precision), with other text around it as you like (%% for a percent sign). A width or a precision above 9999 counts
 * as 9999. */
VEXLOR32_API char *VEXLOR32_CALL Calculate(const char *expression, const char *format, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _calculate(const char *expression, const char *format, char *dest);
VEXLOR32_API char *VEXLOR32_CALL calculate(const char *expression, const char *format, char *dest);
#endif

/* As Calculate, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrCalculate(const char *expression, const char *format, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strcalculate(const char *expression, const char *format, char *dest);
#endif


/* ---- Case and character mapping ---- */

/* The text in upper case.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL StrUpper(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL Upper(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _upper(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL upper(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strupper(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _strupper(const char *text, char *dest);
#endif

/* As StrUpper, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrupper(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrUpper(const char *text, char *dest);
#endif

/* The text in lower case.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL Lower(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _lower(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL lower(const char *text, char *dest);
#endif

/* As Lower, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strlower(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrLower(const char *text, char *dest);
#endif

/* The text with the first character of each word in upper case, the rest unchanged.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL Capitalize(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _capitalize(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL capitalize(const char *text, char *dest);
#endif

/* As Capitalize, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strcapitalize(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrCapitalize(const char *text, char *dest);
#endif

/* The text with the first character of each word in upper case and the rest of the word in lower case.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL CapFirst(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _capfirst(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL capfirst(const char *text, char *dest);
#endif

/* As CapFirst, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strcapfirst(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrCapFirst(const char *text, char *dest);
#endif

/* The characters of the text in reverse order.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL StrReverse(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _reverse(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strreverse(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _strreverse(const char *text, char *dest);
#endif

/* As StrReverse, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrReverse(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strstrreverse(const char *text, char *dest);
#endif

/* The text with characters replaced by others, or removed.
 *   text     text; NULL counts as empty
 *   from     the characters to replace; of one that occurs twice the later place counts; NULL counts as empty
 *   to       what each becomes, at the same place; characters of `from` that have none here are removed; NULL counts
 *            as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL ChrSwap(const char *text, const char *from, const char *to, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _chrswap(const char *text, const char *from, const char *to, char *dest);
VEXLOR32_API char *VEXLOR32_CALL chrswap(const char *text, const char *from, const char *to, char *dest);
#endif

/* As ChrSwap, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrChrSwap(const char *text, const char *from, const char *to, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strchrswap(const char *text, const char *from, const char *to, char *dest);
#endif


/* ---- Character sets ---- */

/* Whether any character of the text is in the set.
 *   set      text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL ChrAny(const char *set, const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _chrany(const char *set, const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL chrany(const char *set, const char *text);
#endif

/* The first character of the text that is in the set.
 *   set      text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   returns  its code, 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL ChrFirst(const char *set, const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _chrfirst(const char *set, const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL chrfirst(const char *set, const char *text);
#endif

/* Whether every character of the text is in the set.
 *   text     an empty one gives 1; NULL counts as empty
 *   set      text; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL ChrFound(const char *text, const char *set);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _chrfound(const char *text, const char *set);
VEXLOR32_API int32_t VEXLOR32_CALL chrfound(const char *text, const char *set);
#endif

/* The number of characters of the text that are in the set.
 *   set      text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   returns  the number */
VEXLOR32_API int32_t VEXLOR32_CALL ChrTotal(const char *set, const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _chrtotal(const char *set, const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL chrtotal(const char *set, const char *text);
#endif

/* The number of characters of the text that are in the set, upper and lower case being equal.
 *   set      text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   returns  the number */
VEXLOR32_API int32_t VEXLOR32_CALL ChrTotali(const char *set, const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _chrtotali(const char *set, const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL chrtotali(const char *set, const char *text);
#endif

/* The text reduced to its characters that are in the set.
 *   set      text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  the terminator of the result, not its start
 * The length form measures from that terminator and always gives 0. */
VEXLOR32_API char *VEXLOR32_CALL ChrKeep(const char *set, const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _chrkeep(const char *set, const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL chrkeep(const char *set, const char *text, char *dest);
#endif

/* As ChrKeep, returning 0, as it measures from the terminator. */
VEXLOR32_API uint32_t VEXLOR32_CALL strchrkeep(const char *set, const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrChrKeep(const char *set, const char *text, char *dest);
#endif

/* Sorts the characters of the text by code, in place.
 *   text        text, changed in place; NULL: nothing happens
 *   descending  0 sorts from the lowest code up, any other from the highest down
 *   returns     text */
VEXLOR32_API char *VEXLOR32_CALL ChrSort(char *text, int32_t descending);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _chrsort(char *text, int32_t descending);
VEXLOR32_API char *VEXLOR32_CALL chrsort(char *text, int32_t descending);
#endif

/* As ChrSort, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strchrsort(char *text, int32_t descending);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrChrSort(char *text, int32_t descending);
#endif

/* The text with repeated characters removed; the first of each stays.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL ChrUnique(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _chrunique(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL chrunique(const char *text, char *dest);
#endif

/* As ChrUnique, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strchrunique(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrChrUnique(const char *text, char *dest);
#endif


/* ---- Checksums and hashes ---- */

/* CRC-32 of a block, carried on from a running value: reflected polynomial 0xEDB88320.
 *   bytes    NULL: the running value comes back; room: count
 *   running  the value so far; 0xFFFFFFFF at the start of the usual CRC-32
 *   count    number of bytes; 0 gives the running value back
 *   returns  the new running value, not inverted */
VEXLOR32_API uint32_t VEXLOR32_CALL Crc32(const void *bytes, uint32_t running, uint32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _crc32(const void *bytes, uint32_t running, uint32_t count);
#endif

/* CRC-16 of a block, carried on from a running value: CCITT polynomial 0x1021, not reflected.
 *   bytes    NULL: the running value comes back; room: count
 *   running  the value so far, of which the low 16 bits count; 0 at the start of CRC-16/XMODEM
 *   count    number of bytes; 0 gives the running value back as it was
 *   returns  the new running value in its low 16 bits; mask it to use it
 * Bits 16 to 23 of the result hold the upper half of the value before the last byte; they are harmless in the next
 * call. */
VEXLOR32_API uint32_t VEXLOR32_CALL Crc16(const void *bytes, uint32_t running, uint32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _crc16(const void *bytes, uint32_t running, uint32_t count);
VEXLOR32_API uint32_t VEXLOR32_CALL crc16(const void *bytes, uint32_t running, uint32_t count);
#endif

/* Sum over a text's characters, each plus 1, times its position from 1, times 256; characters from 0x80 up count as
 * negative.
 *   text     text; NULL counts as empty
 *   returns  the sum, modulo 2^32; 0 for an empty text */
VEXLOR32_API uint32_t VEXLOR32_CALL CheckSum(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _checksum(const char *text);
VEXLOR32_API uint32_t VEXLOR32_CALL checksum(const char *text);
#endif

/* The plain sum of a text's characters, each 0 to 255.
 *   text     text; NULL counts as empty
 *   returns  the sum */
VEXLOR32_API uint32_t VEXLOR32_CALL StrSum(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _strsum(const char *text);
VEXLOR32_API uint32_t VEXLOR32_CALL strsum(const char *text);
#endif

/* Hash of a text into a table. The first character does not count.
 *   text     text; NULL counts as empty
 *   size     of the hash table, a power of two
 *   returns  0 to size - 1 */
VEXLOR32_API uint32_t VEXLOR32_CALL StrHash(const char *text, uint32_t size);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _strhash(const char *text, uint32_t size);
VEXLOR32_API uint32_t VEXLOR32_CALL strhash(const char *text, uint32_t size);
#endif

/* As StrHash, with a 16-bit table size.
 *   text     text; NULL counts as empty
 *   size     of the hash table, a power of two; only the low 16 bits count
 *   returns  0 to size - 1 */
VEXLOR32_API uint32_t VEXLOR32_CALL vbstrhash(const char *text, uint32_t size);

/* Hash of a block into a table. It begins with the second byte and ends with the one behind the counted bytes.
 *   bytes    one byte more than the count is read; NULL gives 0; room: max(count, 0) + 1
 *   count    number of bytes; below 1 gives 0
 *   size     of the hash table, a power of two
 *   returns  0 to size - 1 */
VEXLOR32_API uint32_t VEXLOR32_CALL blobhash(const void *bytes, int32_t count, uint32_t size);


/* ---- Text cipher ---- */

/* Encrypts a text in place by a repeated key; the same call decrypts it.
 *   text     changed in place; NULL: nothing happens
 *   key      its first 255 characters count; NULL or empty: the built-in phrase
 *   result   handed back as it is, never written to; usually the text itself; NULL counts as empty
 *   returns  the third argument
 * A character from 0x80 up that meets its own key character becomes the terminator: the encrypted text then looks
 * shorter. */
VEXLOR32_API char *VEXLOR32_CALL Encrypt(char *text, const char *key, const char *result);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _encrypt(char *text, const char *key, const char *result);
#endif

/* As Encrypt, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrEncrypt(char *text, const char *key, const char *result);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strencrypt(char *text, const char *key, const char *result);
#endif

/* The same operation as Encrypt, which is its own inverse.
 *   text     changed in place; NULL: nothing happens
 *   key      its first 255 characters count; NULL or empty: the built-in phrase
 *   result   handed back as it is, never written to; usually the text itself; NULL counts as empty
 *   returns  the third argument */
VEXLOR32_API char *VEXLOR32_CALL Decrypt(char *text, const char *key, const char *result);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _decrypt(char *text, const char *key, const char *result);
VEXLOR32_API char *VEXLOR32_CALL decrypt(char *text, const char *key, const char *result);
#endif

/* As Decrypt, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrDecrypt(char *text, const char *key, const char *result);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strdecrypt(char *text, const char *key, const char *result);
#endif

/* Encrypts a block in place by the built-in key; the same call decrypts it.
 *   buffer   changed in place; NULL: nothing happens; room: count
 *   count    number of bytes
 *   key      not used: the built-in key always applies; NULL counts as empty
 *   returns  the buffer */
VEXLOR32_API void *VEXLOR32_CALL _blobencrypt(void *buffer, uint32_t count, const char *key);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void *VEXLOR32_CALL _memencrypt(void *buffer, uint32_t count, const char *key);
#endif

/* The same operation as _blobencrypt, which is its own inverse.
 *   buffer   changed in place; NULL: nothing happens; room: count
 *   count    number of bytes
 *   key      not used: the built-in key always applies; NULL counts as empty
 *   returns  the buffer */
VEXLOR32_API void *VEXLOR32_CALL _blobdecrypt(void *buffer, uint32_t count, const char *key);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void *VEXLOR32_CALL _memdecrypt(void *buffer, uint32_t count, const char *key);
#endif


/* ---- Character classes ---- */

/* Sets an entry of the upper-case table. No entry can be set to 0.
 *   c        character; only the low byte counts
 *   value    the new entry; 0 only asks
 *   returns  the previous entry, 0 to 255 */
VEXLOR32_API int32_t VEXLOR32_CALL SetUpperTable(int32_t c, int32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL setuppertable(int32_t c, int32_t value);
VEXLOR32_API int32_t VEXLOR32_CALL _setuppertable(int32_t c, int32_t value);
#endif

/* Sets an entry of the lower-case table. No entry can be set to 0.
 *   c        character; only the low byte counts
 *   value    the new entry; 0 only asks
 *   returns  the previous entry, 0 to 255 */
VEXLOR32_API int32_t VEXLOR32_CALL SetLowerTable(int32_t c, int32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL setlowertable(int32_t c, int32_t value);
VEXLOR32_API int32_t VEXLOR32_CALL _setlowertable(int32_t c, int32_t value);
#endif

/* Sets an entry of the collation table. No entry can be set to 0.
 *   c        character; only the low byte counts
 *   value    the new entry; 0 only asks
 *   returns  the previous entry, 0 to 255 */
VEXLOR32_API int32_t VEXLOR32_CALL SetCollateTable(int32_t c, int32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL setcollatetable(int32_t c, int32_t value);
VEXLOR32_API int32_t VEXLOR32_CALL _setcollatetable(int32_t c, int32_t value);
#endif

/* Adds classes to a character. Classes can be added, never removed.
 *   c        character; only the low byte counts
 *   bits     the classes to add, VX_TYPE_... or a program's own; 0 only asks
 *   returns  the low 8 bits of the previous classes
 * Classes from 0x100 upward are not reported back. */
VEXLOR32_API int32_t VEXLOR32_CALL SetCharType(int32_t c, uint32_t bits);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL setchartype(int32_t c, uint32_t bits);
VEXLOR32_API int32_t VEXLOR32_CALL _setchartype(int32_t c, uint32_t bits);
#endif

/* The upper-case form of a character.
 *   c        character; only the low byte counts
 *   returns  a character code, 0 to 255 */
VEXLOR32_API int32_t VEXLOR32_CALL ChrUpper(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _chrupper(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL chrupper(int32_t c);
#endif

/* The lower-case form of a character.
 *   c        character; only the low byte counts
 *   returns  a character code, 0 to 255 */
VEXLOR32_API int32_t VEXLOR32_CALL ChrLower(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _chrlower(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL chrlower(int32_t c);
#endif

/* The collation key of a character.
 *   c        character; only the low byte counts
 *   returns  a character code, 0 to 255 */
VEXLOR32_API int32_t VEXLOR32_CALL ChrCollate(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _chrcollate(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL chrcollate(int32_t c);
#endif

/* Maps every character through the collation table.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL Collate(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _collate(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL collate(const char *text, char *dest);
#endif

/* As Collate, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strcollate(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrCollate(const char *text, char *dest);
#endif

/* Whether a character is a letter.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrAlpha(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischralpha(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischralpha(int32_t c);
#endif

/* Whether a character lies in 0x01 to 0x7F.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrAscii(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrascii(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrascii(int32_t c);
#endif

/* Whether a character is a digit.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrDigit(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrdigit(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrdigit(int32_t c);
#endif

/* Whether a character is a digit, a sign or a full stop.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrNum(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrnum(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrnum(int32_t c);
#endif

/* Whether a character is a blank or a tab.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrSpace(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrspace(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrspace(int32_t c);
#endif

/* Whether a character is a hexadecimal digit.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrHex(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrhex(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrhex(int32_t c);
#endif

/* Whether a character is a control character.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrCntrl(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrcntrl(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrcntrl(int32_t c);
#endif

/* Whether a character is printable.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrPrint(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrprint(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrprint(int32_t c);
#endif

/* Whether a character is punctuation.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrPunct(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrpunct(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrpunct(int32_t c);
#endif

/* Whether a character is white.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrWhite(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrwhite(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrwhite(int32_t c);
#endif

/* Whether a character is its own upper case.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrUpper(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrupper(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrupper(int32_t c);
#endif

/* Whether a character is its own lower case.
 *   c        character; only the low byte counts
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsChrLower(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ischrlower(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _ischrlower(int32_t c);
#endif

/* Whether the characters of a text are letters.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsAlpha(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isalpha(const char *text, int32_t count);
#endif

/* Whether the characters of a text lie in 0x01 to 0x7F.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsAscii(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isascii(const char *text, int32_t count);
#endif

/* Whether the characters of a text are digits.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsDigit(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isdigit(const char *text, int32_t count);
#endif

/* Whether the characters of a text are digits, signs or full stops.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsNum(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isnum(const char *text, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL isnum(const char *text, int32_t count);
#endif

/* Whether the characters of a text are blanks or tabs.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsSpace(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isspace(const char *text, int32_t count);
#endif

/* Whether the characters of a text are hexadecimal digits.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsHexDigit(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL IsHexdigit(const char *text, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL _isxdigit(const char *text, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL ishexdigit(const char *text, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL _ishexdigit(const char *text, int32_t count);
#endif

/* Whether the characters of a text are control characters.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsCntrl(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _iscntrl(const char *text, int32_t count);
#endif

/* Whether the characters of a text are printable.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsPrint(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isprint(const char *text, int32_t count);
#endif

/* Whether the characters of a text are punctuation.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsPunct(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _ispunct(const char *text, int32_t count);
#endif

/* Whether the characters of a text are white.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsWhite(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL iswhite(const char *text, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL _iswhite(const char *text, int32_t count);
#endif

/* Whether the characters of a text are their own upper case.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsUpper(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isupper(const char *text, int32_t count);
#endif

/* Whether the characters of a text are their own lower case.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsLower(const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _islower(const char *text, int32_t count);
#endif

/* Whether each character of a text belongs to one of the classes at least.
 *   text     text; NULL counts as empty
 *   count    the largest number of characters to look at
 *   mask     the sum of VX_TYPE_...
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsStrType(const char *text, int32_t count, uint32_t mask);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL isstrtype(const char *text, int32_t count, uint32_t mask);
VEXLOR32_API int32_t VEXLOR32_CALL _isstrtype(const char *text, int32_t count, uint32_t mask);
#endif

/* A predicate by number: 1 IsHexDigit, 2 IsUpper, 3 IsSpace, 4 IsPunct, 5 IsPrint, 6 IsNum, 7 IsLower, 8 IsDigit, 9
 * IsCntrl, 10 IsAscii, 11 IsAlpha; 0 for any other number.
 *   selector  the predicate, 1 to 11
 *   text      text; NULL counts as empty
 *   count     the largest number of characters to look at
 *   returns   1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL isthings(int32_t selector, const char *text, int32_t count);


/* ---- Comparison and substitution ---- */

/* Compares two texts by the codes of their characters, 0 to 255.
 *   a        text; NULL counts as empty
 *   b        text; NULL counts as empty
 *   returns  -1, 0 or 1 when a comes before b, equals it, or comes behind it */
#undef StrCmp
VEXLOR32_API int32_t VEXLOR32_CALL StrCmp(const char *a, const char *b);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _strcmp(const char *a, const char *b);
#endif

/* Compares two texts, A-Z counting as a-z.
 *   a        text; NULL counts as empty
 *   b        text; NULL counts as empty
 *   returns  -1, 0 or 1 when a comes before b, equals it, or comes behind it */
VEXLOR32_API int32_t VEXLOR32_CALL StrCmpi(const char *a, const char *b);

/* Compares the starts of two texts by the codes of their characters, 0 to 255.
 *   a        text; NULL counts as empty
 *   b        text; NULL counts as empty
 *   n        at most this many characters are compared; below 1 none
 *   returns  -1, 0 or 1 when a comes before b, equals it, or comes behind it */
VEXLOR32_API int32_t VEXLOR32_CALL StrnCmp(const char *a, const char *b, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _strncmp(const char *a, const char *b, int32_t n);
#endif

/* Compares the starts of two texts, A-Z counting as a-z.
 *   a        text; NULL counts as empty
 *   b        text; NULL counts as empty
 *   n        at most this many characters are compared; below 1 none
 *   returns  -1, 0 or 1 when a comes before b, equals it, or comes behind it */
VEXLOR32_API int32_t VEXLOR32_CALL StrnCmpi(const char *a, const char *b, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _strncmpi(const char *a, const char *b, int32_t n);
VEXLOR32_API int32_t VEXLOR32_CALL strncmpi(const char *a, const char *b, int32_t n);
#endif

/* The text with upper and lower case exchanged, by the case tables.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL StrSwitch(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _strswitch(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strswitch(const char *text, char *dest);
#endif

/* As StrSwitch, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrswitch(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrSwitch(const char *text, char *dest);
#endif

/* Every step-th character of a text, from a position on.
 *   text     text; NULL counts as empty
 *   start    before the text counts as its start (the first character is 1)
 *   step     below 1 gives an empty text
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL StrKeep(const char *text, int32_t start, int32_t step, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL strkeep(const char *text, int32_t start, int32_t step, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strkeep1(const char *text, int32_t start, int32_t step, char *dest);
#endif

/* As the function above, with 0-based positions; returns dest, or text when dest is NULL. */
VEXLOR32_API char *VEXLOR32_CALL _strkeep(const char *text, int32_t start, int32_t step, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL strkeep0(const char *text, int32_t start, int32_t step, char *dest);
#endif

/* As StrKeep, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrkeep(const char *text, int32_t start, int32_t step, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrKeep(const char *text, int32_t start, int32_t step, char *dest);
#endif

/* As _strkeep, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrkeep0(const char *text, int32_t start, int32_t step, char *dest);

/* The characters of a text spread apart.
 *   text     text; NULL counts as empty
 *   n        how many characters come between two; below 1 none
 *   fill     its first character comes between; NULL or empty: the fill character
 *   dest     destination; room: len(text) + max(len(text) - 1, 0) * max(n, 0) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL StrExpand(const char *text, int32_t n, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _strexpand(const char *text, int32_t n, const char *fill, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strexpand(const char *text, int32_t n, const char *fill, char *dest);
#endif

/* As StrExpand, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrexpand(const char *text, int32_t n, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrExpand(const char *text, int32_t n, const char *fill, char *dest);
#endif

/* The text with a field or an enclosed section replaced by another text.
 *   text         text; NULL counts as empty
 *   delimiters   one: it separates fields; two: they enclose sections; NULL or empty: one field
 *   n            the number of the field or section; below 1 is 1
 *   replacement  text; NULL counts as empty
 *   dest         destination; room: len(text) + len(replacement) + 1; NULL: nothing is written
 *   returns      dest
 * Without a field of that number, and with an empty field at the very end, the text stays as it is. */
VEXLOR32_API char *VEXLOR32_CALL StrSwap(const char *text, const char *delimiters, int32_t n, const char *replacement, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _strswap(const char *text, const char *delimiters, int32_t n, const char *replacement, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strswap(const char *text, const char *delimiters, int32_t n, const char *replacement, char *dest);
#endif

/* As StrSwap, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrswap(const char *text, const char *delimiters, int32_t n, const char *replacement, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrSwap(const char *text, const char *delimiters, int32_t n, const char *replacement, char *dest);
#endif


/* ---- Date formatting and the system date ---- */

/* A date as a picture shows it.
 *   year     in full
 *   month    from 1
 *   day      from 1
 *   picture  text; NULL counts as empty
 *   dest     destination; room: len(picture) * 11 + 1; NULL: nothing is written; never the text itself
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL IntToDatef(int32_t year, int32_t month, int32_t day, const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _itodatef(int32_t year, int32_t month, int32_t day, const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL itodatef(int32_t year, int32_t month, int32_t day, const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL inttodatef(int32_t year, int32_t month, int32_t day, const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _inttodatef(int32_t year, int32_t month, int32_t day, const char *picture, char *dest);
#endif

/* As IntToDatef, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL stritodatef(int32_t year, int32_t month, int32_t day, const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrIntToDatef(int32_t year, int32_t month, int32_t day, const char *picture, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strinttodatef(int32_t year, int32_t month, int32_t day, const char *picture, char *dest);
#endif

/* The date of a day number as a picture shows it; no date is 0 in year, month and day.
 *   jd       a day number
 *   picture  text; NULL counts as empty
 *   dest     destination; room: len(picture) * 11 + 1; NULL: nothing is written; never the text itself
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL GetJDatef(int32_t jd, const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _jdatef(int32_t jd, const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL jdatef(int32_t jd, const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL getjdatef(int32_t jd, const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _getjdatef(int32_t jd, const char *picture, char *dest);
#endif

/* As GetJDatef, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strjdatef(int32_t jd, const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrGetJDatef(int32_t jd, const char *picture, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strgetjdatef(int32_t jd, const char *picture, char *dest);
#endif

/* Today's date as a picture shows it.
 *   picture  text; NULL counts as empty
 *   dest     destination; room: len(picture) * 11 + 1; NULL: nothing is written; never the text itself
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL GetDatef(const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _datef(const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL datef(const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL getdatef(const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _getdatef(const char *picture, char *dest);
#endif

/* As GetDatef, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strdatef(const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrGetDatef(const char *picture, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strgetdatef(const char *picture, char *dest);
#endif

/* The date of a day number with the name of the month, like January 5, 2000.
 *   jd       a day number
 *   dest     destination; room: 48; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL Dtow(int32_t jd, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _dtow(int32_t jd, char *dest);
VEXLOR32_API char *VEXLOR32_CALL dtow(int32_t jd, char *dest);
#endif

/* As Dtow, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strdtow(int32_t jd, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrDtow(int32_t jd, char *dest);
#endif

/* A date like 12/31/1999; empty for what is no date.
 *   year     in full
 *   month    from 1
 *   day      from 1
 *   dest     destination; room: 32; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL IntToDate(int32_t year, int32_t month, int32_t day, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _itod(int32_t year, int32_t month, int32_t day, char *dest);
VEXLOR32_API char *VEXLOR32_CALL itod(int32_t year, int32_t month, int32_t day, char *dest);
VEXLOR32_API char *VEXLOR32_CALL inttodate(int32_t year, int32_t month, int32_t day, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _inttodate(int32_t year, int32_t month, int32_t day, char *dest);
#endif

/* As IntToDate, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL stritod(int32_t year, int32_t month, int32_t day, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrIntToDate(int32_t year, int32_t month, int32_t day, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strinttodate(int32_t year, int32_t month, int32_t day, char *dest);
#endif

/* The date of a day number like 12/31/1999; empty for no date.
 *   jd       a day number
 *   dest     destination; room: 32; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL JulianToDate(int32_t jd, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _jtod(int32_t jd, char *dest);
VEXLOR32_API char *VEXLOR32_CALL jtod(int32_t jd, char *dest);
VEXLOR32_API char *VEXLOR32_CALL juliantodate(int32_t jd, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _juliantodate(int32_t jd, char *dest);
#endif

/* As JulianToDate, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strjtod(int32_t jd, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrJulianToDate(int32_t jd, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strjuliantodate(int32_t jd, char *dest);
#endif

/* Today's date like 12/31/1999.
 *   dest     destination; room: 32; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL GetDate(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _getdate(char *dest);
#endif

/* As GetDate, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strgetdate(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrGetDate(char *dest);
#endif

/* The short name of a month.
 *   month    1 to 12; any other gives an empty text
 *   dest     destination; room: 32; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL NumToMon(int32_t month, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _num2mon(int32_t month, char *dest);
VEXLOR32_API char *VEXLOR32_CALL num2mon(int32_t month, char *dest);
VEXLOR32_API char *VEXLOR32_CALL numtomon(int32_t month, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _numtomon(int32_t month, char *dest);
#endif

/* The full name of a month, as strnum2month gives it: not the short one of NumToMon.
 *   month    1 to 12; any other gives an empty text
 *   dest     destination; room: 32; NULL: nothing is written
 *   returns  the length of the name */
VEXLOR32_API uint32_t VEXLOR32_CALL strnum2mon(int32_t month, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrNumToMon(int32_t month, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strnumtomon(int32_t month, char *dest);
#endif

/* The full name of a month.
 *   month    1 to 12; any other gives an empty text
 *   dest     destination; room: 32; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL NumToMonth(int32_t month, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _num2month(int32_t month, char *dest);
VEXLOR32_API char *VEXLOR32_CALL num2month(int32_t month, char *dest);
VEXLOR32_API char *VEXLOR32_CALL numtomonth(int32_t month, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _numtomonth(int32_t month, char *dest);
#endif

/* As NumToMonth, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strnum2month(int32_t month, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrNumToMonth(int32_t month, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strnumtomonth(int32_t month, char *dest);
#endif

/* The name of a day of the week.
 *   day      1 (Sunday) to 7 (Saturday); any other gives an empty text
 *   dest     destination; room: 32; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL NumToDay(int32_t day, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _num2day(int32_t day, char *dest);
VEXLOR32_API char *VEXLOR32_CALL num2day(int32_t day, char *dest);
VEXLOR32_API char *VEXLOR32_CALL numtoday(int32_t day, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _numtoday(int32_t day, char *dest);
#endif

/* As NumToDay, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strnum2day(int32_t day, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrNumToDay(int32_t day, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strnumtoday(int32_t day, char *dest);
#endif

/* Today's date.
 *   returns  the day number */
VEXLOR32_API int32_t VEXLOR32_CALL GetJDate(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _getjdate(void);
VEXLOR32_API int32_t VEXLOR32_CALL getjdate(void);
#endif

/* Today's day of the week.
 *   returns  1 (Sunday) to 7 (Saturday) */
VEXLOR32_API int32_t VEXLOR32_CALL Dow(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dosdow(void);
VEXLOR32_API int32_t VEXLOR32_CALL dosdow(void);
VEXLOR32_API int32_t VEXLOR32_CALL dow(void);
VEXLOR32_API int32_t VEXLOR32_CALL _dow(void);
#endif

/* Today's year, month and day.
 *   year     receives the year in full; NULL is skipped
 *   month    receives the month, from 1; NULL is skipped
 *   day      receives the day, from 1; NULL is skipped
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL DosGetDate(int32_t *year, int32_t *month, int32_t *day);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _dosgetdate(int32_t *year, int32_t *month, int32_t *day);
VEXLOR32_API void VEXLOR32_CALL dosgetdate(int32_t *year, int32_t *month, int32_t *day);
#endif

/* Sets the date of the machine's clock; the time of day stays. Only the low 16 bits of each number count.
 *   year     in full
 *   month    1 to 12
 *   day      1 to 31
 *   returns  what the system says; 0 if it refuses, and the clock is as it was */
VEXLOR32_API int32_t VEXLOR32_CALL DosSetDate(int32_t year, int32_t month, int32_t day);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dossetdate(int32_t year, int32_t month, int32_t day);
VEXLOR32_API int32_t VEXLOR32_CALL dossetdate(int32_t year, int32_t month, int32_t day);
#endif

/* Sets the date of the machine's clock to that of a text.
 *   text     month, day and year (in full) with slashes between; NULL sets nothing
 *   returns  what the system says; 0 if it refuses, and the clock is as it was */
VEXLOR32_API int32_t VEXLOR32_CALL SetDate(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _setdate(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL setdate(const char *text);
#endif

/* Sets the date of the machine's clock to that of a day number.
 *   jd       a day number
 *   returns  what the system says; 0 if it refuses, and the clock is as it was */
VEXLOR32_API int32_t VEXLOR32_CALL SetJDate(int32_t jd);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _setjdate(int32_t jd);
VEXLOR32_API int32_t VEXLOR32_CALL setjdate(int32_t jd);
#endif


/* ---- Day numbers and calendar arithmetic ---- */

/* The day number of a date. Months and days out of range roll over: 30 February is 1 or 2 March.
 *   year     in full
 *   month    from 1
 *   day      from 1
 *   returns  the day number; 0 if the year is before 1584 */
VEXLOR32_API int32_t VEXLOR32_CALL IntToJulian(int32_t year, int32_t month, int32_t day);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _itoj(int32_t year, int32_t month, int32_t day);
VEXLOR32_API int32_t VEXLOR32_CALL itoj(int32_t year, int32_t month, int32_t day);
VEXLOR32_API int32_t VEXLOR32_CALL inttojulian(int32_t year, int32_t month, int32_t day);
VEXLOR32_API int32_t VEXLOR32_CALL _inttojulian(int32_t year, int32_t month, int32_t day);
#endif

/* The year, month and day of a day number; 0, 0, 0 for 2299603 and less.
 *   jd       a day number
 *   year     receives the year in full; NULL is skipped
 *   month    receives the month, from 1; NULL is skipped
 *   day      receives the day, from 1; NULL is skipped
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL JulianToInt(int32_t jd, int32_t *year, int32_t *month, int32_t *day);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _jtoi(int32_t jd, int32_t *year, int32_t *month, int32_t *day);
VEXLOR32_API void VEXLOR32_CALL jtoi(int32_t jd, int32_t *year, int32_t *month, int32_t *day);
VEXLOR32_API void VEXLOR32_CALL juliantoint(int32_t jd, int32_t *year, int32_t *month, int32_t *day);
VEXLOR32_API void VEXLOR32_CALL _juliantoint(int32_t jd, int32_t *year, int32_t *month, int32_t *day);
#endif

/* Whether a year is a leap year.
 *   year     in full
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsLeap(int32_t year);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isleap(int32_t year);
VEXLOR32_API int32_t VEXLOR32_CALL isleap(int32_t year);
#endif

/* Whether the year of a day number is a leap year.
 *   jd       a day number
 *   returns  1 for no date */
VEXLOR32_API int32_t VEXLOR32_CALL IsJLeap(int32_t jd);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isjleap(int32_t jd);
VEXLOR32_API int32_t VEXLOR32_CALL isjleap(int32_t jd);
#endif

/* How many days the month of a day number has.
 *   jd       a day number
 *   returns  28 to 31; 0 for no date */
VEXLOR32_API int32_t VEXLOR32_CALL LastDay(int32_t jd);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _lastday(int32_t jd);
VEXLOR32_API int32_t VEXLOR32_CALL lastday(int32_t jd);
#endif

/* The day of the week of a day number.
 *   jd       a day number
 *   returns  1 (Sunday) to 7 (Saturday) */
VEXLOR32_API int32_t VEXLOR32_CALL JDow(int32_t jd);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _jdow(int32_t jd);
VEXLOR32_API int32_t VEXLOR32_CALL jdow(int32_t jd);
#endif

/* The day of the year of a day number.
 *   jd       a day number
 *   returns  1 to 366; jd + 1 for no date */
VEXLOR32_API int32_t VEXLOR32_CALL JDoy(int32_t jd);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _jdoy(int32_t jd);
VEXLOR32_API int32_t VEXLOR32_CALL jdoy(int32_t jd);
#endif

/* The week of the year of a day number: a seventh of the day of the year, plus 1.
 *   jd       a day number
 *   returns  1 to 53
 * Days 1 to 6 are week 1, day 7 begins week 2, day 364 week 53. The day of the week plays no part. */
VEXLOR32_API int32_t VEXLOR32_CALL JWoy(int32_t jd);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _jwoy(int32_t jd);
VEXLOR32_API int32_t VEXLOR32_CALL jwoy(int32_t jd);
#endif

/* A day of the week that a day number lies in (Sunday to Saturday), or of one some weeks later or earlier.
 *   jd       a day number
 *   dow      1 (Sunday) to 7 (Saturday); only its low three bits count
 *   weeks    to move by
 *   returns  the day number
 * Day 0 is the Saturday before the week. */
VEXLOR32_API int32_t VEXLOR32_CALL AtDow(int32_t jd, int32_t dow, int32_t weeks);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _atdow(int32_t jd, int32_t dow, int32_t weeks);
VEXLOR32_API int32_t VEXLOR32_CALL atdow(int32_t jd, int32_t dow, int32_t weeks);
#endif

/* How many days from Monday to Friday there are from one day to another, both included.
 *   from     a day number
 *   to       a day number, before or after the other
 *   returns  the count */
VEXLOR32_API int32_t VEXLOR32_CALL Weekdays(int32_t from, int32_t to);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _weekdays(int32_t from, int32_t to);
VEXLOR32_API int32_t VEXLOR32_CALL weekdays(int32_t from, int32_t to);
#endif

/* The same day some months later; the last day of a month always gives the last day of a month.
 *   jd       a day number
 *   months   to add; below 0 goes back
 *   returns  the day number; jd itself if it is no date
 * A day that the other month lacks becomes its last: 30 January plus 1 month is 28 or 29 February. */
VEXLOR32_API int32_t VEXLOR32_CALL AddMonth(int32_t jd, int32_t months);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _addmonth(int32_t jd, int32_t months);
VEXLOR32_API int32_t VEXLOR32_CALL addmonth(int32_t jd, int32_t months);
#endif

/* The year, month and day of a date text, not checked; what is missing is 0. A year of two digits stays one.
 *   text     month, day and year with slashes between; NULL counts as empty
 *   year     receives the year as it is written; NULL is skipped
 *   month    receives the month; NULL is skipped
 *   day      receives the day; NULL is skipped
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL DateToInt(const char *text, int32_t *year, int32_t *month, int32_t *day);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _dtoi(const char *text, int32_t *year, int32_t *month, int32_t *day);
VEXLOR32_API void VEXLOR32_CALL dtoi(const char *text, int32_t *year, int32_t *month, int32_t *day);
VEXLOR32_API void VEXLOR32_CALL datetoint(const char *text, int32_t *year, int32_t *month, int32_t *day);
VEXLOR32_API void VEXLOR32_CALL _datetoint(const char *text, int32_t *year, int32_t *month, int32_t *day);
#endif

/* The day number of a date text, not checked.
 *   text     month, day and year with slashes between; NULL counts as empty
 *   returns  the day number; 0 if the year is before 1584 */
VEXLOR32_API int32_t VEXLOR32_CALL DateToJulian(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dtoj(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL dtoj(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL datetojulian(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL _datetojulian(const char *text);
#endif

/* Whether a date text is a date of the years 1 to 2100; a year below 20 counts from 2000.
 *   text     month, day and year with slashes between; NULL counts as empty
 *   returns  1 if so, else 0
 * A date before 1584 can be valid and still have no day number. */
VEXLOR32_API int32_t VEXLOR32_CALL CheckDate(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _checkdate(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL checkdate(const char *text);
#endif

/* The day number of a date in eight digits, not checked.
 *   text     four digits of year, two of month, two of day; white space in front is skipped; NULL counts as empty
 *   returns  the day number; 0 if the year is before 1584 */
VEXLOR32_API int32_t VEXLOR32_CALL AnsiToJulian(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _stoj(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL stoj(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL ansitojulian(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL _ansitojulian(const char *text);
#endif

/* A day number in eight digits: year, month, day. Empty for no date and beyond the year 9999.
 *   jd       a day number
 *   dest     destination; room: 9; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL JulianToAnsi(int32_t jd, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _jtos(int32_t jd, char *dest);
VEXLOR32_API char *VEXLOR32_CALL jtos(int32_t jd, char *dest);
VEXLOR32_API char *VEXLOR32_CALL juliantoansi(int32_t jd, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _juliantoansi(int32_t jd, char *dest);
#endif

/* As JulianToAnsi, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strjtos(int32_t jd, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrJulianToAnsi(int32_t jd, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strjuliantoansi(int32_t jd, char *dest);
#endif


/* ---- Tables: creation, appending and locks ---- */

/* Makes an empty table, with a memo and a blob file if its fields need them, and opens it.
 *   name       the table's path; DBF is its extension if it has none; NULL counts as empty
 *   structure  the fields, like ID,N,5,0:NAME,C,20:NOTES,M; NULL counts as empty
 *   returns    the table's handle, 0 on failure */
VEXLOR32_API uint32_t VEXLOR32_CALL DbfStrCreate(const char *name, const char *structure);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _dbfStrCreate(const char *name, const char *structure);
VEXLOR32_API uint32_t VEXLOR32_CALL dbfStrCreate(const char *name, const char *structure);
VEXLOR32_API uint32_t VEXLOR32_CALL dbfstrcreate(const char *name, const char *structure);
VEXLOR32_API uint32_t VEXLOR32_CALL _dbfstrcreate(const char *name, const char *structure);
#endif

/* Appends blank records.
 *   table    table handle
 *   count    how many records; below 1 appends none and gives the record count plus 1
 *   returns  the number of the first new record, the current one from then on; 0 if none were appended */
VEXLOR32_API int32_t VEXLOR32_CALL DbfAppend(uint32_t table, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfAppend(uint32_t table, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL dbfAppend(uint32_t table, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL dbfappend(uint32_t table, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfappend(uint32_t table, int32_t count);
#endif

/* Locks all records of a shared table; what was read before, and is unchanged, is read again.
 *   table    table handle
 *   returns  whether the lock was had; always if the table is not shared */
VEXLOR32_API int32_t VEXLOR32_CALL DbfLock(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfLock(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfLock(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbflock(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL _dbflock(uint32_t table);
#endif

/* Locks so many records of a shared table, from the current one on; what was read before, and is unchanged, is read
 * again.
 *   table    table handle
 *   count    how many records; below 1 locks none of a shared table and gives 0
 *   returns  whether the lock was had; always if the table is not shared */
VEXLOR32_API int32_t VEXLOR32_CALL DbfRlock(uint32_t table, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfRlock(uint32_t table, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL dbfRlock(uint32_t table, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL dbfrlock(uint32_t table, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfrlock(uint32_t table, int32_t count);
#endif

/* Writes back what has changed and gives the table or record lock back.
 *   table    table handle
 *   returns  0 on failure; 1 as well if no lock is held, and nothing is written then */
VEXLOR32_API int32_t VEXLOR32_CALL DbfUnlock(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfUnlock(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfUnlock(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfunlock(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfunlock(uint32_t table);
#endif


/* ---- Tables: fields ---- */

/* The name of a field; empty if there is no such field.
 *   table    table handle
 *   number   of the field, from 1
 *   buffer   destination; room: 11; NULL: nothing is written
 *   returns  buffer */
VEXLOR32_API char *VEXLOR32_CALL DbfFieldName(uint32_t table, int32_t number, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _dbfFieldName(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL dbfFieldName(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL dbffieldname(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL _dbffieldname(uint32_t table, int32_t number, char *buffer);
#endif

/* As DbfFieldName, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strdbfFieldName(uint32_t table, int32_t number, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrDbfFieldName(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API uint32_t VEXLOR32_CALL strdbffieldname(uint32_t table, int32_t number, char *buffer);
#endif

/* The type letter of a field; empty if there is no such field.
 *   table    table handle
 *   number   of the field, from 1
 *   buffer   destination; room: 2; NULL: nothing is written
 *   returns  buffer */
VEXLOR32_API char *VEXLOR32_CALL DbfFieldType(uint32_t table, int32_t number, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _dbfFieldType(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL dbfFieldType(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL dbffieldtype(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL _dbffieldtype(uint32_t table, int32_t number, char *buffer);
#endif

/* As DbfFieldType, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strdbfFieldType(uint32_t table, int32_t number, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrDbfFieldType(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API uint32_t VEXLOR32_CALL strdbffieldtype(uint32_t table, int32_t number, char *buffer);
#endif

/* The length of a field: 0 to 255 for N and F, 0 to 65535 for all others.
 *   table    table handle
 *   number   of the field, from 1
 *   returns  the width in the record; 0 if there is no such field */
VEXLOR32_API int32_t VEXLOR32_CALL DbfFieldLen(uint32_t table, int32_t number);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfFieldLen(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL dbfFieldLen(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL dbffieldlen(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL _dbffieldlen(uint32_t table, int32_t number);
#endif

/* The decimals of a field; where the length has two bytes, the upper one.
 *   table    table handle
 *   number   of the field, from 1
 *   returns  the number of decimals; 0 if there is no such field */
VEXLOR32_API int32_t VEXLOR32_CALL DbfFieldDec(uint32_t table, int32_t number);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfFieldDec(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL dbfFieldDec(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL dbffielddec(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL _dbffielddec(uint32_t table, int32_t number);
#endif

/* Where a field lies in the record's data.
 *   table    table handle
 *   number   of the field, from 1
 *   returns  in bytes from 0, the deletion flag not counted; -1 if there is no such field */
VEXLOR32_API int32_t VEXLOR32_CALL DbfFieldOff(uint32_t table, int32_t number);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfFieldOff(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL dbfFieldoff(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL dbffieldoff(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL _dbffieldoff(uint32_t table, int32_t number);
#endif

/* The field that has a name.
 *   table    table handle
 *   name     in the letter case in which the table has it; NULL counts as empty
 *   returns  its number from 1, 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL DbfFieldPos(uint32_t table, const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfFieldPos(uint32_t table, const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL dbfFieldPos(uint32_t table, const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL dbffieldpos(uint32_t table, const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL _dbffieldpos(uint32_t table, const char *name);
#endif

/* The value of a field in the current record.
 *   table    table handle
 *   number   of the field, from 1
 *   buffer   room for DbfFieldSize bytes and a terminator; blobs and raw fields get no terminator; room: 65537; NULL:
 *            nothing is written; must already end at its last byte
 *   returns  buffer */
VEXLOR32_API char *VEXLOR32_CALL DbfFieldGet(uint32_t table, int32_t number, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _dbfFieldGet(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL dbffieldget(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL _dbffieldget(uint32_t table, int32_t number, char *buffer);
#endif

/* DbfFieldGet, with the length of the value.
 *   table    table handle
 *   number   of the field, from 1
 *   buffer   as for DbfFieldGet; room: 65537; NULL: nothing is written; must already end at its last byte
 *   returns  the length of the text; of a blob or raw field the number of bytes placed */
VEXLOR32_API uint32_t VEXLOR32_CALL strdbfFieldGet(uint32_t table, int32_t number, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrDbfFieldGet(uint32_t table, int32_t number, char *buffer);
VEXLOR32_API uint32_t VEXLOR32_CALL strdbffieldget(uint32_t table, int32_t number, char *buffer);
#endif

/* The value, in the current record, of the field that has a name; empty if there is none.
 *   table    table handle
 *   name     text; NULL counts as empty
 *   buffer   as for DbfFieldGet; room: 65537; NULL: nothing is written; must already end at its last byte
 *   returns  buffer */
VEXLOR32_API char *VEXLOR32_CALL DbfField(uint32_t table, const char *name, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _dbfField(uint32_t table, const char *name, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL dbfField(uint32_t table, const char *name, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL dbffield(uint32_t table, const char *name, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL _dbffield(uint32_t table, const char *name, char *buffer);
#endif

/* DbfField, with the length of the value.
 *   table    table handle
 *   name     text; NULL counts as empty
 *   buffer   as for DbfFieldGet; room: 65537; NULL: nothing is written; must already end at its last byte
 *   returns  the length of the text; of a blob or raw field the number of bytes placed */
VEXLOR32_API uint32_t VEXLOR32_CALL strdbfField(uint32_t table, const char *name, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrDbfField(uint32_t table, const char *name, char *buffer);
VEXLOR32_API uint32_t VEXLOR32_CALL strdbffield(uint32_t table, const char *name, char *buffer);
#endif

/* Replaces the value of a field in the current record.
 *   table    table handle
 *   number   of the field, from 1
 *   value    text; NULL counts as empty
 *   returns  whether it was written; 0 as well for a memo or blob while another handle writes to their file */
VEXLOR32_API int32_t VEXLOR32_CALL DbfFieldPut(uint32_t table, int32_t number, const char *value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfFieldPut(uint32_t table, int32_t number, const char *value);
VEXLOR32_API int32_t VEXLOR32_CALL dbfFieldPut(uint32_t table, int32_t number, const char *value);
VEXLOR32_API int32_t VEXLOR32_CALL dbffieldput(uint32_t table, int32_t number, const char *value);
VEXLOR32_API int32_t VEXLOR32_CALL _dbffieldput(uint32_t table, int32_t number, const char *value);
#endif

/* Replaces the value, in the current record, of the field that has a name.
 *   table    table handle
 *   name     text; NULL counts as empty
 *   value    text; NULL counts as empty
 *   returns  whether it was written; 0 as well for a memo or blob while another handle writes to their file */
VEXLOR32_API int32_t VEXLOR32_CALL DbfReplace(uint32_t table, const char *name, const char *value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfReplace(uint32_t table, const char *name, const char *value);
VEXLOR32_API int32_t VEXLOR32_CALL dbfReplace(uint32_t table, const char *name, const char *value);
VEXLOR32_API int32_t VEXLOR32_CALL dbfreplace(uint32_t table, const char *name, const char *value);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfreplace(uint32_t table, const char *name, const char *value);
#endif

/* The size of a field's value in the current record: for a memo or a blob, that of the text or the blob.
 *   table    table handle
 *   number   of the field, from 1
 *   returns  the size in bytes; 0 if there is no such field */
VEXLOR32_API uint32_t VEXLOR32_CALL DbfFieldSize(uint32_t table, int32_t number);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _dbfFieldSize(uint32_t table, int32_t number);
VEXLOR32_API uint32_t VEXLOR32_CALL dbfFieldSize(uint32_t table, int32_t number);
VEXLOR32_API uint32_t VEXLOR32_CALL dbffieldsize(uint32_t table, int32_t number);
VEXLOR32_API uint32_t VEXLOR32_CALL _dbffieldsize(uint32_t table, int32_t number);
#endif


/* ---- Tables: opening and navigation ---- */

/* Opens a table and its memo and blob files, and goes to record 1.
 *   name     the table's path; DBF is its extension if it has none; NULL counts as empty
 *   mode     how its files are opened, as FOpen takes it; VX_TABLE_SHARED (0x42) opens the table shared
 *   returns  the table's handle, 0 if it cannot be opened */
VEXLOR32_API uint32_t VEXLOR32_CALL DbfOpen(const char *name, int32_t mode);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _dbfOpen(const char *name, int32_t mode);
VEXLOR32_API uint32_t VEXLOR32_CALL dbfOpen(const char *name, int32_t mode);
VEXLOR32_API uint32_t VEXLOR32_CALL dbfopen(const char *name, int32_t mode);
VEXLOR32_API uint32_t VEXLOR32_CALL _dbfopen(const char *name, int32_t mode);
#endif

/* Writes back what has changed, gives locks back and closes the table's files.
 *   table    table handle
 *   returns  0, or -1 on failure
 * A table whose changes cannot be written stays open, so that closing it can be tried again. */
VEXLOR32_API int32_t VEXLOR32_CALL DbfClose(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfClose(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfClose(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfclose(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfclose(uint32_t table);
#endif

/* Goes to a record by its number.
 *   table    table handle
 *   number   of the record, from 1; below 1 goes before the first, above the count behind the last
 *   returns  the number of the record that was current before; 0 without a table */
VEXLOR32_API int32_t VEXLOR32_CALL DbfGoto(uint32_t table, int32_t number);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfGoto(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL dbfGoto(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL dbfgoto(uint32_t table, int32_t number);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfgoto(uint32_t table, int32_t number);
#endif

/* Goes so many records on.
 *   table    table handle
 *   count    of records; negative to go backwards
 *   returns  the number of the record that was current before; 0 without a table */
VEXLOR32_API int32_t VEXLOR32_CALL DbfSkip(uint32_t table, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfSkip(uint32_t table, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL dbfSkip(uint32_t table, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL dbfskip(uint32_t table, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfskip(uint32_t table, int32_t count);
#endif

/* The current record.
 *   table    table handle
 *   returns  its number; 0 before the first record, the count plus 1 behind the last */
VEXLOR32_API int32_t VEXLOR32_CALL DbfRecno(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfRecno(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfRecno(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfrecno(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfrecno(uint32_t table);
#endif

/* The record count; that of a shared table comes from the size of its file.
 *   table    table handle
 *   returns  the number of records; 0 without a table */
VEXLOR32_API uint32_t VEXLOR32_CALL DbfLastrec(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _dbfLastrec(uint32_t table);
VEXLOR32_API uint32_t VEXLOR32_CALL dbfLastrec(uint32_t table);
VEXLOR32_API uint32_t VEXLOR32_CALL dbflastrec(uint32_t table);
VEXLOR32_API uint32_t VEXLOR32_CALL _dbflastrec(uint32_t table);
#endif

/* Whether a move went before the first record; 1 without a table.
 *   table    table handle
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL DbfBof(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfBof(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfBof(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfbof(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfbof(uint32_t table);
#endif

/* Whether a move went behind the last record; 1 without a table.
 *   table    table handle
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL DbfEof(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfEof(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfEof(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfeof(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfeof(uint32_t table);
#endif

/* The size of the table's header.
 *   table    table handle
 *   returns  the size in bytes; 0 without a table */
VEXLOR32_API int32_t VEXLOR32_CALL DbfHeaderSize(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfHeaderSize(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfHeaderSize(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfheadersize(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfheadersize(uint32_t table);
#endif

/* The size of a record's data.
 *   table    table handle
 *   returns  the size in bytes, without the deletion flag; 0 without a table */
VEXLOR32_API int32_t VEXLOR32_CALL DbfRecordSize(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfRecordSize(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfRecordSize(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfrecordsize(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfrecordsize(uint32_t table);
#endif

/* The number of fields.
 *   table    table handle
 *   returns  the number of fields; 0 without a table */
VEXLOR32_API int32_t VEXLOR32_CALL DbfFieldCount(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfFieldCount(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfFieldCount(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbffieldcount(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL _dbffieldcount(uint32_t table);
#endif

/* Whether the current record is marked as deleted.
 *   table    table handle
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL DbfIsDeleted(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfIsDeleted(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL dbfisdeleted(uint32_t table);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfisdeleted(uint32_t table);
#endif

/* Marks the current record as deleted.
 *   table    table handle
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL DbfDelete(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _dbfDelete(uint32_t table);
VEXLOR32_API void VEXLOR32_CALL dbfDelete(uint32_t table);
VEXLOR32_API void VEXLOR32_CALL dbfdelete(uint32_t table);
VEXLOR32_API void VEXLOR32_CALL _dbfdelete(uint32_t table);
#endif

/* Takes the deletion mark off the current record.
 *   table    table handle
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL DbfRecall(uint32_t table);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _dbfRecall(uint32_t table);
VEXLOR32_API void VEXLOR32_CALL dbfRecall(uint32_t table);
VEXLOR32_API void VEXLOR32_CALL dbfrecall(uint32_t table);
VEXLOR32_API void VEXLOR32_CALL _dbfrecall(uint32_t table);
#endif

/* The data of the current record, as it stands; blanks if there is none.
 *   table    table handle
 *   buffer   room for DbfRecordSize bytes; no terminator is placed; room: 65536; NULL: nothing is written; must
 *            already end at its last byte
 *   returns  buffer */
VEXLOR32_API char *VEXLOR32_CALL DbfRecordGet(uint32_t table, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _dbfRecordGet(uint32_t table, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL dbfRecordGet(uint32_t table, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL dbfrecordget(uint32_t table, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL _dbfrecordget(uint32_t table, char *buffer);
#endif

/* DbfRecordGet, with the length of the text that it gives.
 *   table    table handle
 *   buffer   room for DbfRecordSize bytes; no terminator is placed; room: 65536; NULL: nothing is written; must
 *            already end at its last byte
 *   returns  the length up to the first NUL, at most DbfRecordSize */
VEXLOR32_API uint32_t VEXLOR32_CALL strdbfRecordGet(uint32_t table, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrDbfRecordGet(uint32_t table, char *buffer);
VEXLOR32_API uint32_t VEXLOR32_CALL strdbfrecordget(uint32_t table, char *buffer);
#endif

/* Replaces the data of the current record; nothing happens if there is none.
 *   table    table handle
 *   data     DbfRecordSize bytes; room: 65535
 *   returns  always 1 */
VEXLOR32_API int32_t VEXLOR32_CALL DbfRecordPut(uint32_t table, const void *data);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dbfRecordPut(uint32_t table, const void *data);
VEXLOR32_API int32_t VEXLOR32_CALL dbfRecordPut(uint32_t table, const void *data);
VEXLOR32_API int32_t VEXLOR32_CALL dbfrecordput(uint32_t table, const void *data);
VEXLOR32_API int32_t VEXLOR32_CALL _dbfrecordput(uint32_t table, const void *data);
#endif


/* ---- Disk space and directories ---- */

/* The size of a drive.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  bytes, which wrap; -1 if there is no such drive, 0 if it does not answer
 * Above 4 GB the number begins again at 0. */
VEXLOR32_API int32_t VEXLOR32_CALL DiskSize(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _disksize(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL disksize(const char *drive);
#endif

/* The free space on a drive.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  bytes, which wrap; 0 if the drive does not answer
 * Above 4 GB the number begins again at 0. */
VEXLOR32_API uint32_t VEXLOR32_CALL DiskSpace(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _diskspace(const char *drive);
VEXLOR32_API uint32_t VEXLOR32_CALL diskspace(const char *drive);
#endif

/* The space on a drive that is in use.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  bytes, which wrap; 0 if the drive does not answer
 * Above 4 GB the number begins again at 0. */
VEXLOR32_API uint32_t VEXLOR32_CALL DiskUsed(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _diskused(const char *drive);
VEXLOR32_API uint32_t VEXLOR32_CALL diskused(const char *drive);
#endif

/* The number of clusters of a drive.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  the number of clusters; 0 if the drive does not answer */
VEXLOR32_API uint32_t VEXLOR32_CALL Clusters(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _clusters(const char *drive);
VEXLOR32_API uint32_t VEXLOR32_CALL clusters(const char *drive);
#endif

/* The number of free clusters of a drive.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  the number of free clusters; 0 if the drive does not answer */
VEXLOR32_API uint32_t VEXLOR32_CALL FreeClusters(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _freeclusters(const char *drive);
VEXLOR32_API uint32_t VEXLOR32_CALL freeclusters(const char *drive);
#endif

/* The size of a cluster.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  bytes; 0 if the drive does not answer */
VEXLOR32_API uint32_t VEXLOR32_CALL ClustSize(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _clustsize(const char *drive);
VEXLOR32_API uint32_t VEXLOR32_CALL clustsize(const char *drive);
#endif

/* The size of a sector.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  bytes; 0 if the drive does not answer */
VEXLOR32_API uint32_t VEXLOR32_CALL SectorSize(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _sectorsize(const char *drive);
VEXLOR32_API uint32_t VEXLOR32_CALL sectorsize(const char *drive);
#endif

/* The number of sectors of a drive.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  the number of sectors; 0 if the drive does not answer */
VEXLOR32_API uint32_t VEXLOR32_CALL Sectors(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _sectors(const char *drive);
VEXLOR32_API uint32_t VEXLOR32_CALL sectors(const char *drive);
#endif

/* The label of the disk in a drive; an empty text if there is none.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   dest     destination; room: 260; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL GetVolume(const char *drive, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _getvolume(const char *drive, char *dest);
VEXLOR32_API char *VEXLOR32_CALL getvolume(const char *drive, char *dest);
#endif

/* As GetVolume, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrGetVolume(const char *drive, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strgetvolume(const char *drive, char *dest);
#endif

/* Gives the disk in a drive a label.
 *   label    the new label; NULL deletes it
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  1 if it was set */
VEXLOR32_API int32_t VEXLOR32_CALL SetVolume(const char *label, const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _setvolume(const char *label, const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL setvolume(const char *label, const char *drive);
#endif

/* Deletes the label of the disk in a drive.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  1 if it was deleted */
VEXLOR32_API int32_t VEXLOR32_CALL DelVolume(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _delvolume(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL delvolume(const char *drive);
#endif

/* Whether a disk is there and can be written to: its label is changed and changed back.
 *   drive    0 for A to 25 for Z
 *   returns  VX_DISK_READY (0) if it can be written to; VX_DISK_PROTECTED (1), VX_DISK_NOT_READY (3),
 *            VX_DISK_UNREADABLE (7), VX_DISK_UNFORMATTED (8) for any other reason, too, or VX_DISK_FAILURE (13);
 *            VX_DISK_NO_DRIVE (-1) if there is no such drive
 * On Linux, whose disks keep the labels that they have, it is 8 for C, or 1 where the file system is read-only. */
VEXLOR32_API int32_t VEXLOR32_CALL DiskStatus(int32_t drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _diskstatus(int32_t drive);
VEXLOR32_API int32_t VEXLOR32_CALL diskstatus(int32_t drive);
#endif

/* The current drive, like C:.
 *   dest     destination; room: 3; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL CurDrive(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _curdrive(char *dest);
VEXLOR32_API char *VEXLOR32_CALL curdrive(char *dest);
#endif

/* As CurDrive, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrCurDrive(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strcurdrive(char *dest);
#endif

/* A drive's current directory, like C:\DATA; an empty text if there is no such drive.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   dest     destination; room: 261; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL CurDir(const char *drive, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _curdir(const char *drive, char *dest);
VEXLOR32_API char *VEXLOR32_CALL curdir(const char *drive, char *dest);
#endif

/* As CurDir, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrCurDir(const char *drive, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strcurdir(const char *drive, char *dest);
#endif

/* A drive's current directory without the drive, like \DATA.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   dest     destination; room: 261; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL GetDir(const char *drive, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _getdir(const char *drive, char *dest);
VEXLOR32_API char *VEXLOR32_CALL getdir(const char *drive, char *dest);
#endif

/* As GetDir, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strgetdir(const char *drive, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrGetDir(const char *drive, char *dest);
#endif

/* Makes a drive the current one.
 *   drive    begins with the drive's letter; an empty one changes nothing; NULL counts as empty
 *   returns  1 if the drive is the current one now */
VEXLOR32_API int32_t VEXLOR32_CALL SetDrive(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _setdrive(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL setdrive(const char *drive);
#endif

/* Changes the current directory of the drive that the path names. The current drive stays what it is.
 *   path     text; NULL counts as empty
 *   returns  1 if it was changed */
VEXLOR32_API int32_t VEXLOR32_CALL ChangeDir(const char *path);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ChangeDirectory(const char *path);
VEXLOR32_API int32_t VEXLOR32_CALL Chdir(const char *path);
VEXLOR32_API int32_t VEXLOR32_CALL changedir(const char *path);
VEXLOR32_API int32_t VEXLOR32_CALL _changedir(const char *path);
#endif

/* Finds a directory in a list of directories and makes it and its drive the current ones.
 *   name     a directory; an empty name gives 0; NULL counts as empty
 *   list     where to look for it, separated by semicolons; empty: the roots of all drives; NULL counts as empty
 *   returns  1 if it is the current directory now */
VEXLOR32_API int32_t VEXLOR32_CALL FChDir(const char *name, const char *list);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fchdir(const char *name, const char *list);
#endif

/* The system's own directory.
 *   dest     destination; room: 261; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL SysDir(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _sysdir(char *dest);
VEXLOR32_API char *VEXLOR32_CALL sysdir(char *dest);
#endif

/* As SysDir, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strsysdir(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrSysDir(char *dest);
#endif

/* The directory of Windows.
 *   dest     destination; room: 261; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL WinDir(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _windir(char *dest);
VEXLOR32_API char *VEXLOR32_CALL windir(char *dest);
#endif

/* As WinDir, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strwindir(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrWinDir(char *dest);
#endif

/* Makes a directory; the one that it is to be in must exist.
 *   path     text; NULL counts as empty
 *   returns  1 if it was made */
VEXLOR32_API int32_t VEXLOR32_CALL MakeDir(const char *path);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL MkDir(const char *path);
VEXLOR32_API int32_t VEXLOR32_CALL makedir(const char *path);
VEXLOR32_API int32_t VEXLOR32_CALL _makedir(const char *path);
#endif

/* Removes an empty directory.
 *   path     text; NULL counts as empty
 *   returns  1 if it was removed */
VEXLOR32_API int32_t VEXLOR32_CALL RemoveDir(const char *path);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL RmDir(const char *path);
VEXLOR32_API int32_t VEXLOR32_CALL removedir(const char *path);
VEXLOR32_API int32_t VEXLOR32_CALL _removedir(const char *path);
#endif

/* Renames a directory in place.
 *   old      the path of the directory; NULL counts as empty
 *   name     only its name and extension count; NULL counts as empty
 *   returns  1 if it was renamed */
VEXLOR32_API int32_t VEXLOR32_CALL RenDir(const char *old, const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL RenameDir(const char *old, const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL _rendir(const char *old, const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL rendir(const char *old, const char *name);
#endif

/* Whether a path exists; a file counts, too.
 *   path     text; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsDir(const char *path);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isdir(const char *path);
VEXLOR32_API int32_t VEXLOR32_CALL isdir(const char *path);
#endif

/* The boot drive, or how many drives there are.
 *   selector  1 asks for the boot drive, 2 for the number of drives
 *   returns   the drive (0 for A; -1 if none is named) or the number; 0 for other selectors */
VEXLOR32_API int32_t VEXLOR32_CALL _sysinfo2(int32_t selector);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL sysinfo2(int32_t selector);
#endif


/* ---- Drives ---- */

/* Whether a drive exists. B does wherever A does.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsDisk(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isdisk(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL isdisk(const char *drive);
#endif

/* Whether a drive is ready: it tells its free space.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsDrive(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isdrive(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL isdrive(const char *drive);
#endif

/* Whether a drive exists, by its number. B does wherever A does.
 *   drive    0 for A to 25 for Z
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsDosDisk(int32_t drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isdosdisk(int32_t drive);
VEXLOR32_API int32_t VEXLOR32_CALL isdosdisk(int32_t drive);
#endif

/* The number of a drive, which need not exist.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  0 for A to 25 for Z; -1 if the text begins with no letter */
VEXLOR32_API int32_t VEXLOR32_CALL DosDrive(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dosdrive(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL dosdrive(const char *drive);
#endif

/* Whether a drive is a hard disk.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsFixed(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isfixed(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL isfixed(const char *drive);
#endif

/* Whether a drive takes removable disks; a CD drive is none of these.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsRemovable(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL Removeable(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL _removeable(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL removeable(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL isremovable(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL _isremovable(const char *drive);
#endif

/* Whether a drive takes removable disks, as IsRemovable does.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsFloppy(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isfloppy(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL isfloppy(const char *drive);
#endif

/* Whether a drive is a network drive: 0 for every drive.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsRemote(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isremote(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL isremote(const char *drive);
#endif

/* Whether a drive takes CDs.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsCdRom(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _iscdrom(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL iscdrom(const char *drive);
#endif

/* Whether there is a disk in a drive.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   returns  1 if there is a disk, -1 if not, or if there is no such drive */
VEXLOR32_API int32_t VEXLOR32_CALL MediaType(const char *drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _mediatype(const char *drive);
VEXLOR32_API int32_t VEXLOR32_CALL mediatype(const char *drive);
#endif

/* The largest format that a diskette drive takes. B is A on a machine that has no B.
 *   drive    0 for A, 1 for B
 *   returns  VX_DISKETTE_1440K (144) for 1.44 MB and the other VX_DISKETTE_...; 0 if unknown, -1 if there is no such
 *            drive */
/* DriveType: another library has a function of this name; declared as _drivetype. */
VEXLOR32_API int32_t VEXLOR32_CALL _drivetype(int32_t drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL drivetype(int32_t drive);
#endif

/* The format of the diskette that is in a drive. B is A on a machine that has no B.
 *   drive    0 for A, 1 for B
 *   returns  VX_DISKETTE_1440K (144) for 1.44 MB and the other VX_DISKETTE_...; 0 if unknown, -1 if there is no such
 *            drive or disk */
VEXLOR32_API int32_t VEXLOR32_CALL DiskType(int32_t drive);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _disktype(int32_t drive);
VEXLOR32_API int32_t VEXLOR32_CALL disktype(int32_t drive);
#endif

/* All drives that exist, like A: C: D:.
 *   dest     destination; room: 78; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL AllDrives(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _alldrives(char *dest);
VEXLOR32_API char *VEXLOR32_CALL alldrives(char *dest);
#endif

/* As AllDrives, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrAllDrives(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL stralldrives(char *dest);
#endif

/* The letters of all drives that exist, like ACD.
 *   dest     destination; room: 27; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL DriveStr(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _drivestr(char *dest);
VEXLOR32_API char *VEXLOR32_CALL drivestr(char *dest);
#endif

/* As DriveStr, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrDriveStr(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strdrivestr(char *dest);
#endif

/* The number of diskette drives.
 *   returns  the number, 0 to 2; on Windows NT 1 for A, 2 for B, 3 for both */
VEXLOR32_API int32_t VEXLOR32_CALL Numfloppy(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _numfloppy(void);
VEXLOR32_API int32_t VEXLOR32_CALL numfloppy(void);
#endif

/* The number of hard disks.
 *   returns  the number, 0 to 8 */
VEXLOR32_API int32_t VEXLOR32_CALL NumFixed(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _numfixed(void);
VEXLOR32_API int32_t VEXLOR32_CALL numfixed(void);
#endif

/* The last drive letter: what LASTDRIVE in CONFIG.SYS says, or the last drive that exists.
 *   returns  0 for A to 25 for Z; -1 if the setting names no drive */
VEXLOR32_API int32_t VEXLOR32_CALL LastDrive(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _lastdrive(void);
VEXLOR32_API int32_t VEXLOR32_CALL lastdrive(void);
#endif


/* ---- Command line and environment ---- */

/* The command line behind the program's name.
 *   dest     destination; room: the command line's length + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL Command(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _command(char *dest);
VEXLOR32_API char *VEXLOR32_CALL command(char *dest);
#endif

/* As Command, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrCommand(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strcommand(char *dest);
#endif

/* The full path of the host program.
 *   dest     destination; room: 261; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL Program(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _program(char *dest);
VEXLOR32_API char *VEXLOR32_CALL program(char *dest);
#endif

/* As Program, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrProgram(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strprogram(char *dest);
#endif

/* An argument of the command line, without its quotes; an empty text if there is none.
 *   n        from 1; 0 asks for the program's path
 *   dest     destination; room: the argument's length + 1, or 261 for the path; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL Arg(int32_t n, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _argv(int32_t n, char *dest);
VEXLOR32_API char *VEXLOR32_CALL argv(int32_t n, char *dest);
VEXLOR32_API char *VEXLOR32_CALL arg(int32_t n, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _arg(int32_t n, char *dest);
#endif

/* As Arg, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strargv(int32_t n, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrArg(int32_t n, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strarg(int32_t n, char *dest);
#endif

/* The number of arguments up to the first empty one.
 *   returns  their number, without the program itself */
VEXLOR32_API int32_t VEXLOR32_CALL ArgCount(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _argc(void);
VEXLOR32_API int32_t VEXLOR32_CALL argc(void);
VEXLOR32_API int32_t VEXLOR32_CALL argcount(void);
VEXLOR32_API int32_t VEXLOR32_CALL _argcount(void);
#endif

/* The rest of the first argument that begins with a prefix: out.txt for /O when the command line has /Oout.txt.
 *   prefix   letter case counts; NULL counts as empty
 *   dest     destination; room: the argument's length + 1; NULL: nothing is written
 *   returns  dest
 * Arguments behind an empty one are not looked at. */
VEXLOR32_API char *VEXLOR32_CALL Param(const char *prefix, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _argp(const char *prefix, char *dest);
VEXLOR32_API char *VEXLOR32_CALL argp(const char *prefix, char *dest);
VEXLOR32_API char *VEXLOR32_CALL param(const char *prefix, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _param(const char *prefix, char *dest);
#endif

/* As Param, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strargp(const char *prefix, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrParam(const char *prefix, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strparam(const char *prefix, char *dest);
#endif

/* The value of an environment variable; an empty text if it is not set.
 *   name     text; NULL counts as empty
 *   dest     destination; room: the value's length + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL GetEnv(const char *name, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _getenv(const char *name, char *dest);
#endif

/* As GetEnv, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrGetEnv(const char *name, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strgetenv(const char *name, char *dest);
#endif

/* An entry of the environment, like PATH=C:\DOS; an empty text if there is none.
 *   n        from 1
 *   dest     destination; room: the entry's length + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL Env(int32_t n, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _env(int32_t n, char *dest);
VEXLOR32_API char *VEXLOR32_CALL env(int32_t n, char *dest);
#endif

/* As Env, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrEnv(int32_t n, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strenv(int32_t n, char *dest);
#endif

/* The number of entries of the environment.
 *   returns  their number */
VEXLOR32_API int32_t VEXLOR32_CALL EnvCount(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _envc(void);
VEXLOR32_API int32_t VEXLOR32_CALL envc(void);
VEXLOR32_API int32_t VEXLOR32_CALL envcount(void);
VEXLOR32_API int32_t VEXLOR32_CALL _envcount(void);
#endif


/* ---- File attributes and time stamps ---- */

/* The attributes of a file or directory.
 *   name     text; NULL counts as empty
 *   returns  the attributes: the sum of VX_ATTR_...; -1 if there is no such file */
VEXLOR32_API int32_t VEXLOR32_CALL FGetAttr(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fgetattr(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL fgetattr(const char *name);
#endif

/* The attributes of an open file.
 *   handle   file handle
 *   returns  the attributes: the sum of VX_ATTR_...; 0 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FileAttr(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fileattr(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL fileattr(int32_t handle);
#endif

/* Adds attributes to a file, or removes them.
 *   name     text; NULL counts as empty
 *   bits     the attributes to change, VX_ATTR_...
 *   set      0 removes them, any other adds them
 *   returns  1 if so, else 0
 * The directory and compressed bits are passed over: with VX_ATTR_DIRECTORY (0x10) alone nothing changes. */
VEXLOR32_API int32_t VEXLOR32_CALL FSetAttr(const char *name, int32_t bits, int32_t set);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fsetattr(const char *name, int32_t bits, int32_t set);
VEXLOR32_API int32_t VEXLOR32_CALL fsetattr(const char *name, int32_t bits, int32_t set);
#endif

/* Makes a file read-only.
 *   name     text; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FProtect(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fprotect(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL fprotect(const char *name);
#endif

/* Makes a file writable.
 *   name     text; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FUnProtect(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _funprotect(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL funprotect(const char *name);
#endif

/* Hides a file.
 *   name     text; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FHide(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fhide(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL fhide(const char *name);
#endif

/* Shows a hidden file.
 *   name     text; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FUnHide(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _funhide(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL funhide(const char *name);
#endif

/* Whether a file has the archive attribute.
 *   name     text; NULL counts as empty
 *   returns  1 if so, else 0
 * A file that is missing counts as changed. */
VEXLOR32_API int32_t VEXLOR32_CALL FChanged(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fchanged(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL fchanged(const char *name);
#endif

/* The date on which an open file was last written; zeros on failure.
 *   handle   file handle
 *   year     receives the year in full; NULL is skipped
 *   month    receives the month, from 1; NULL is skipped
 *   day      receives the day, from 1; NULL is skipped
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FileDosDate(int32_t handle, int32_t *year, int32_t *month, int32_t *day);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _filedosdate(int32_t handle, int32_t *year, int32_t *month, int32_t *day);
VEXLOR32_API int32_t VEXLOR32_CALL filedosdate(int32_t handle, int32_t *year, int32_t *month, int32_t *day);
#endif

/* The time at which an open file was last written; zeros on failure.
 *   handle   file handle
 *   hour     receives the hour, 0 to 23; NULL is skipped
 *   minute   receives the minute; NULL is skipped
 *   second   receives the second; NULL is skipped
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FileDosTime(int32_t handle, int32_t *hour, int32_t *minute, int32_t *second);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _filedostime(int32_t handle, int32_t *hour, int32_t *minute, int32_t *second);
VEXLOR32_API int32_t VEXLOR32_CALL filedostime(int32_t handle, int32_t *hour, int32_t *minute, int32_t *second);
#endif

/* The date on which a file was last written; zeros on failure.
 *   name     text; NULL counts as empty
 *   year     receives the year in full; NULL is skipped
 *   month    receives the month, from 1; NULL is skipped
 *   day      receives the day, from 1; NULL is skipped
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FGetDosDate(const char *name, int32_t *year, int32_t *month, int32_t *day);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fgetdosdate(const char *name, int32_t *year, int32_t *month, int32_t *day);
VEXLOR32_API int32_t VEXLOR32_CALL fgetdosdate(const char *name, int32_t *year, int32_t *month, int32_t *day);
#endif

/* The time at which a file was last written; zeros on failure.
 *   name     text; NULL counts as empty
 *   hour     receives the hour, 0 to 23; NULL is skipped
 *   minute   receives the minute; NULL is skipped
 *   second   receives the second; NULL is skipped
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FGetDosTime(const char *name, int32_t *hour, int32_t *minute, int32_t *second);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fgetdostime(const char *name, int32_t *hour, int32_t *minute, int32_t *second);
VEXLOR32_API int32_t VEXLOR32_CALL fgetdostime(const char *name, int32_t *hour, int32_t *minute, int32_t *second);
#endif

/* The date on which an open file was last written.
 *   handle   file handle
 *   returns  a day number, 0 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FileJDate(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _filejdate(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL filejdate(int32_t handle);
#endif

/* The date on which a file was last written.
 *   name     text; NULL counts as empty
 *   returns  a day number, 0 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FGetJDate(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fgetjdate(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL fgetjdate(const char *name);
#endif

/* The date on which an open file was last written, like 12/31/1999; empty on failure.
 *   handle   file handle
 *   dest     destination; room: 32; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FileDate(int32_t handle, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _filedate(int32_t handle, char *dest);
VEXLOR32_API char *VEXLOR32_CALL filedate(int32_t handle, char *dest);
#endif

/* As FileDate, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfiledate(int32_t handle, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFileDate(int32_t handle, char *dest);
#endif

/* The date on which a file was last written, like 12/31/1999; empty on failure.
 *   name     text; NULL counts as empty
 *   dest     destination; room: 32; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FGetDate(const char *name, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fgetdate(const char *name, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fgetdate(const char *name, char *dest);
#endif

/* As FGetDate, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfgetdate(const char *name, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFGetDate(const char *name, char *dest);
#endif

/* The date on which an open file was last written, as a picture shows it; empty on failure.
 *   handle   file handle
 *   picture  text; NULL counts as empty
 *   dest     destination; room: len(picture) * 11 + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FileDatef(int32_t handle, const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _filedatef(int32_t handle, const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL filedatef(int32_t handle, const char *picture, char *dest);
#endif

/* As FileDatef, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfiledatef(int32_t handle, const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFileDatef(int32_t handle, const char *picture, char *dest);
#endif

/* The date on which a file was last written, as a picture shows it; empty on failure.
 *   name     text; NULL counts as empty
 *   picture  text; NULL counts as empty
 *   dest     destination; room: len(picture) * 11 + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FGetDatef(const char *name, const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fgetdatef(const char *name, const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fgetdatef(const char *name, const char *picture, char *dest);
#endif

/* As FGetDatef, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfgetdatef(const char *name, const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFGetDatef(const char *name, const char *picture, char *dest);
#endif

/* The time at which an open file was last written, as the user's locale writes it; empty on failure.
 *   handle   file handle
 *   dest     destination; room: 64; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FileTime(int32_t handle, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _filetime(int32_t handle, char *dest);
VEXLOR32_API char *VEXLOR32_CALL filetime(int32_t handle, char *dest);
#endif

/* As FileTime, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfiletime(int32_t handle, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFileTime(int32_t handle, char *dest);
#endif

/* The time at which a file was last written, as the user's locale writes it; empty on failure.
 *   name     text; NULL counts as empty
 *   dest     destination; room: 64; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FGetTime(const char *name, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fgettime(const char *name, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fgettime(const char *name, char *dest);
#endif

/* As FGetTime, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfgettime(const char *name, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFGetTime(const char *name, char *dest);
#endif

/* Changes the date on which a file was last written.
 *   name     text; NULL counts as empty
 *   year     in full; 0 keeps it
 *   month    1 to 12; 0 keeps it
 *   day      1 to 31; 0 keeps it
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FSetDosDate(const char *name, int32_t year, int32_t month, int32_t day);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fsetdosdate(const char *name, int32_t year, int32_t month, int32_t day);
VEXLOR32_API int32_t VEXLOR32_CALL fsetdosdate(const char *name, int32_t year, int32_t month, int32_t day);
#endif

/* Changes the date on which a file was last written.
 *   name     text; NULL counts as empty
 *   date     a text like 12/31/1999; NULL changes nothing
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FSetDate(const char *name, const char *date);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fsetdate(const char *name, const char *date);
VEXLOR32_API int32_t VEXLOR32_CALL fsetdate(const char *name, const char *date);
#endif

/* Changes the date on which a file was last written.
 *   name     text; NULL counts as empty
 *   jd       a day number; 0 changes nothing
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FSetJDate(const char *name, int32_t jd);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fsetjdate(const char *name, int32_t jd);
VEXLOR32_API int32_t VEXLOR32_CALL fsetjdate(const char *name, int32_t jd);
#endif

/* Changes the time at which a file was last written.
 *   name     text; NULL counts as empty
 *   time     a text like 23:59:59; NULL changes nothing
 *   returns  1 if so, else 0
 * An hour, minute or second of 0 stays what it was: 00:00:00 changes nothing. */
VEXLOR32_API int32_t VEXLOR32_CALL FSetTime(const char *name, const char *time);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fsettime(const char *name, const char *time);
VEXLOR32_API int32_t VEXLOR32_CALL fsettime(const char *name, const char *time);
#endif


/* ---- File search ---- */

/* Begins a search: the name of the first entry taken, empty if there is none.
 *   state    NULL: nothing is found; room: 1115
 *   list     NULL: nothing is found, and the block stays as it is
 *   flags    the sum of VX_FIND_... and of the VX_ATTR_... of which an entry has one at least; without any of these,
 *            entries without attributes and those with VX_ATTR_ARCHIVE (0x20) are taken
 *   dest     NULL: no search is begun; room: 514
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FindFirst(void *state, const char *list, uint32_t flags, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL findfirst(void *state, const char *list, uint32_t flags, char *dest);
#endif

/* As FindFirst, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfindfirst(void *state, const char *list, uint32_t flags, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFindFirst(void *state, const char *list, uint32_t flags, char *dest);
#endif

/* The name of the next entry that a search takes, empty at the end.
 *   state    memory block of the caller; room: 1115
 *   dest     NULL: the search stays where it is; room: 514
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FindNext(void *state, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL findnext(void *state, char *dest);
#endif

/* As FindNext, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfindnext(void *state, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFindNext(void *state, char *dest);
#endif

/* Ends a search.
 *   state    memory block of the caller; room: 1115
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL FindRelease(void *state);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL findrelease(void *state);
VEXLOR32_API void VEXLOR32_CALL _findrelease(void *state);
#endif

/* The current entry's name with the pattern's drive and directory, whatever the flags say.
 *   state    bytes, read only; room: 1115
 *   dest     destination; room: 514; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FindName(const void *state, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _findname(const void *state, char *dest);
VEXLOR32_API char *VEXLOR32_CALL findname(const void *state, char *dest);
#endif

/* As FindName, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfindname(const void *state, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFindName(const void *state, char *dest);
#endif

/* The current entry's size.
 *   state    bytes, read only; room: 1115
 *   returns  bytes: the low 32 bits less the high ones; 0 without an entry */
VEXLOR32_API uint32_t VEXLOR32_CALL FindSize(const void *state);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _findsize(const void *state);
VEXLOR32_API uint32_t VEXLOR32_CALL findsize(const void *state);
#endif

/* The current entry's attributes.
 *   state    bytes, read only; room: 1115
 *   returns  the attributes: the sum of VX_ATTR_...; -1 without an entry */
VEXLOR32_API int32_t VEXLOR32_CALL FindAttr(const void *state);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _findattr(const void *state);
VEXLOR32_API int32_t VEXLOR32_CALL findattr(const void *state);
#endif

/* The date of the current entry's last change.
 *   state    bytes, read only; room: 1115
 *   year     receives the year in full; NULL is skipped
 *   month    receives the month, from 1; NULL is skipped
 *   day      receives the day, from 1; NULL is skipped
 *   returns  0 without an entry, and the outputs are 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FindDosDate(const void *state, int32_t *year, int32_t *month, int32_t *day);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _finddosdate(const void *state, int32_t *year, int32_t *month, int32_t *day);
VEXLOR32_API int32_t VEXLOR32_CALL finddosdate(const void *state, int32_t *year, int32_t *month, int32_t *day);
#endif

/* The time of the current entry's last change.
 *   state    bytes, read only; room: 1115
 *   hour     receives the hour, 0 to 23; NULL is skipped
 *   minute   receives the minute; NULL is skipped
 *   second   receives the second; NULL is skipped
 *   returns  0 without an entry, and the outputs are 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FindDosTime(const void *state, int32_t *hour, int32_t *minute, int32_t *second);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _finddostime(const void *state, int32_t *hour, int32_t *minute, int32_t *second);
VEXLOR32_API int32_t VEXLOR32_CALL finddostime(const void *state, int32_t *hour, int32_t *minute, int32_t *second);
#endif

/* The date of the current entry's last change.
 *   state    bytes, read only; room: 1115
 *   returns  a day number, 0 without an entry */
VEXLOR32_API int32_t VEXLOR32_CALL FindJDate(const void *state);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _findjdate(const void *state);
VEXLOR32_API int32_t VEXLOR32_CALL findjdate(const void *state);
#endif

/* The date of the current entry's last change like 12/31/1999.
 *   state    bytes, read only; room: 1115
 *   dest     destination; room: 32; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FindDate(const void *state, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _finddate(const void *state, char *dest);
VEXLOR32_API char *VEXLOR32_CALL finddate(const void *state, char *dest);
#endif

/* As FindDate, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfinddate(const void *state, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFindDate(const void *state, char *dest);
#endif

/* The date of the current entry's last change as a picture shows it.
 *   state    bytes, read only; room: 1115
 *   picture  text; NULL counts as empty
 *   dest     destination; room: len(picture) * 11 + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FindDatef(const void *state, const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _finddatef(const void *state, const char *picture, char *dest);
VEXLOR32_API char *VEXLOR32_CALL finddatef(const void *state, const char *picture, char *dest);
#endif

/* As FindDatef, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfinddatef(const void *state, const char *picture, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFindDatef(const void *state, const char *picture, char *dest);
#endif

/* The time of the current entry's last change as the user's locale writes it.
 *   state    bytes, read only; room: 1115
 *   dest     destination; room: 64; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FindTime(const void *state, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _findtime(const void *state, char *dest);
VEXLOR32_API char *VEXLOR32_CALL findtime(const void *state, char *dest);
#endif

/* As FindTime, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfindtime(const void *state, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFindTime(const void *state, char *dest);
#endif

/* Whether every pattern finds something, and what it finds first is taken.
 *   list     an empty one gives 1; NULL counts as empty
 *   flags    the sum of VX_FIND_... and of the VX_ATTR_... of which an entry has one at least; without any of these,
 *            entries without attributes and those with VX_ATTR_ARCHIVE (0x20) are taken
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsFile(const char *list, uint32_t flags);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isfile(const char *list, uint32_t flags);
VEXLOR32_API int32_t VEXLOR32_CALL isfile(const char *list, uint32_t flags);
#endif

/* The sizes of all entries that a search takes.
 *   list     text; NULL counts as empty
 *   flags    the sum of VX_FIND_... and of the VX_ATTR_... of which an entry has one at least; without any of these,
 *            entries without attributes and those with VX_ATTR_ARCHIVE (0x20) are taken
 *   returns  bytes, modulo 2^32 */
VEXLOR32_API uint32_t VEXLOR32_CALL DirSize(const char *list, uint32_t flags);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _dirsize(const char *list, uint32_t flags);
VEXLOR32_API uint32_t VEXLOR32_CALL dirsize(const char *list, uint32_t flags);
#endif

/* The number of entries that a search takes.
 *   list     text; NULL counts as empty
 *   flags    the sum of VX_FIND_... and of the VX_ATTR_... of which an entry has one at least; without any of these,
 *            entries without attributes and those with VX_ATTR_ARCHIVE (0x20) are taken
 *   returns  their number, or -1 when an error was left behind
 * A pattern that finds nothing makes it -1 when a later one finds something, and a pattern that has come to its end
 * ends the count. */
VEXLOR32_API int32_t VEXLOR32_CALL FileCount(const char *list, uint32_t flags);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _filecount(const char *list, uint32_t flags);
VEXLOR32_API int32_t VEXLOR32_CALL filecount(const char *list, uint32_t flags);
#endif

/* The full name of the first entry found in the listed directories or below them; empty if there is none.
 *   name         may have wildcards; NULL counts as empty
 *   directories  separated by semicolons; an empty list is the current directory; NULL counts as empty
 *   dest         destination; room: 260; NULL: nothing is written
 *   returns      dest */
VEXLOR32_API char *VEXLOR32_CALL FileFind(const char *name, const char *directories, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _filefind(const char *name, const char *directories, char *dest);
VEXLOR32_API char *VEXLOR32_CALL filefind(const char *name, const char *directories, char *dest);
#endif

/* As FileFind, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfilefind(const char *name, const char *directories, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFileFind(const char *name, const char *directories, char *dest);
#endif

/* Deletes the files that a search without flags takes.
 *   list     text; NULL counts as empty
 *   returns  the number of files deleted */
VEXLOR32_API int32_t VEXLOR32_CALL FEraseAll(const char *list);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _feraseall(const char *list);
VEXLOR32_API int32_t VEXLOR32_CALL feraseall(const char *list);
#endif

/* Deletes the files that match in a directory and in all below it.
 *   path     of a directory; empty is the current one, NULL is refused
 *   list     patterns of names, without directories; an empty one deletes nothing; NULL counts as empty
 *   returns  0, or -1 on failure
 * -1 when a file could not be deleted, and, with nothing deleted, for NULL and for patterns with a directory. Of the
 * directories right below one, only the last one's result counts. */
VEXLOR32_API int32_t VEXLOR32_CALL FPrune(const char *path, const char *list);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fprune(const char *path, const char *list);
VEXLOR32_API int32_t VEXLOR32_CALL fprune(const char *path, const char *list);
#endif

/* Deletes a tree of files and directories.
 *   path     of a directory; empty is the current one, NULL is refused
 *   mode     VX_PRUNE_ALL (0) deletes all; VX_PRUNE_KEEP_TOP (1) keeps the directory itself; VX_PRUNE_KEEP_TOP_FILES
 *            (2) and 3 also its own files; VX_PRUNE_KEEP_DIRECTORIES (4) also all directories
 *   returns  0, or -1 if something could not be deleted; other modes and NULL give -1 and delete nothing
 * Read-only files stay, and so do those hidden or system ones that lack the archive attribute. */
VEXLOR32_API int32_t VEXLOR32_CALL Prune(const char *path, int32_t mode);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _prune(const char *path, int32_t mode);
VEXLOR32_API int32_t VEXLOR32_CALL prune(const char *path, int32_t mode);
#endif


/* ---- Library frame ---- */

/* Development probe; always succeeds.
 *   a        ignored
 *   b        ignored
 *   c        ignored
 *   returns  1 */
VEXLOR32_API int32_t VEXLOR32_CALL VEXDEV(int32_t a, int32_t b, int32_t c);

/* The library's internal version number.
 *   returns  199 */
VEXLOR32_API int32_t VEXLOR32_CALL VEXVERSION(void);

/* Does nothing; kept for programs that call it before they unload the library.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL RELEASEME(void);

/* Shows the about box, then gives the version number.
 *   returns  199, whether or not the box could be shown */
VEXLOR32_API int32_t VEXLOR32_CALL DLLVERSION(void);

/* Logs the user off. Despite its name it does not power the machine down.
 *   returns  the system's result: not 0 if the log-off has begun, 0 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL ShutDown(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _shutdown(void);
#endif

/* Sets the library's fill character, with which padding, centring and spacing functions pad. It is a blank at first.
 *   c        the new fill character; 0 only asks
 *   returns  the previous fill character, 0 to 255 */
VEXLOR32_API int32_t VEXLOR32_CALL SetFillChar(int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL fillchar(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL setfillchar(int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _setfillchar(int32_t c);
#endif

/* Puts a text on the clipboard.
 *   text     the text to copy; NULL counts as empty
 *   returns  1 if the text is on the clipboard, 0 if not
 * When no window has the focus, or the clipboard is in use, a notice says so and the result is 0. Linux needs
 * wl-copy, xclip or xsel for it; without one of these the result is 0. */
VEXLOR32_API int32_t VEXLOR32_CALL StrPaste(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL strpaste(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL _strpaste(const char *text);
#endif

/* Shows that peekstr() is not available on 32-bit platforms.
 *   a        ignored
 *   b        ignored
 *   c        ignored
 *   returns  the library's constant empty text; never write to it */
VEXLOR32_API const char *VEXLOR32_CALL peekstr(int32_t a, int32_t b, int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API const char *VEXLOR32_CALL _peekstr(int32_t a, int32_t b, int32_t c);
#endif

/* Shows that peekstr() is not available on 32-bit platforms.
 *   a        ignored
 *   b        ignored
 *   c        ignored
 *   returns  0 */
VEXLOR32_API uint32_t VEXLOR32_CALL strpeekstr(int32_t a, int32_t b, int32_t c);

/* Shows that poke() is not available on 32-bit platforms.
 *   address  ignored
 *   value    ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL poke(int32_t address, int32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _poke(int32_t address, int32_t value);
#endif

/* Shows that peek() is not available on 32-bit platforms.
 *   address  ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL peek(int32_t address);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _peek(int32_t address);
#endif

/* Shows that mem2blob() is not available on 32-bit platforms: the notice names the partner function.
 *   a        ignored
 *   b        ignored
 *   c        ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL _blob2mem(int32_t a, int32_t b, int32_t c);

/* Shows that mem2blob() is not available on 32-bit platforms.
 *   a        ignored
 *   b        ignored
 *   c        ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL _mem2blob(int32_t a, int32_t b, int32_t c);

/* Shows that dosalloc() is not available on 32-bit platforms.
 *   a        ignored
 *   b        ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL dosalloc(int32_t a, int32_t b);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dosalloc(int32_t a, int32_t b);
#endif

/* Shows that dosfree() is not available on 32-bit platforms.
 *   a        ignored
 *   returns  1 for the box's OK button, 0 if the box could not be shown */
VEXLOR32_API int32_t VEXLOR32_CALL dosfree(int32_t a);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dosfree(int32_t a);
#endif

/* Shows that q_status() is not available on 32-bit platforms.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL q_status(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _q_status(void);
#endif

/* Shows that q_restart() is not available on 32-bit platforms.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL q_restart(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _q_restart(void);
#endif

/* Shows that q_hold() is not available on 32-bit platforms.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL q_hold(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _q_hold(void);
#endif

/* Shows that q_files() is not available on 32-bit platforms.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL q_files(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _q_files(void);
#endif

/* Shows that q_file() is not available on 32-bit platforms.
 *   number   ignored
 *   dest     receives an empty text; room: 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL q_file(int32_t number, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _q_file(int32_t number, char *dest);
#endif

/* As q_file, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strq_file(int32_t number, char *dest);

/* Shows that q_delete() is not available on 32-bit platforms.
 *   number   ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL q_delete(int32_t number);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _q_delete(int32_t number);
#endif

/* Shows that q_cancel() is not available on 32-bit platforms.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL q_cancel(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _q_cancel(void);
#endif

/* Shows that q_submit() is not available on 32-bit platforms.
 *   name     ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL q_submit(int32_t name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _q_submit(int32_t name);
#endif

/* Whether a print queue is installed: never, on 32-bit platforms. Shows nothing.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL isqueue(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isqueue(void);
#endif

/* Shows that the function has not been implemented.
 *   a        ignored
 *   b        ignored
 *   c        ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL Compress(int32_t a, int32_t b, int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _compress(int32_t a, int32_t b, int32_t c);
#endif

/* Shows that the function has not been implemented.
 *   a        ignored
 *   b        ignored
 *   c        ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL Decompress(int32_t a, int32_t b, int32_t c);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dcompress(int32_t a, int32_t b, int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL dcompress(int32_t a, int32_t b, int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL decompress(int32_t a, int32_t b, int32_t c);
VEXLOR32_API int32_t VEXLOR32_CALL _decompress(int32_t a, int32_t b, int32_t c);
#endif

/* Shows that the function has not been implemented.
 *   a        ignored
 *   b        ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL FCompress(int32_t a, int32_t b);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fcompress(int32_t a, int32_t b);
VEXLOR32_API int32_t VEXLOR32_CALL fcompress(int32_t a, int32_t b);
#endif

/* Shows that the function has not been implemented.
 *   a        ignored
 *   b        ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL FDecompress(int32_t a, int32_t b);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fdcompress(int32_t a, int32_t b);
VEXLOR32_API int32_t VEXLOR32_CALL fdcompress(int32_t a, int32_t b);
VEXLOR32_API int32_t VEXLOR32_CALL fdecompress(int32_t a, int32_t b);
VEXLOR32_API int32_t VEXLOR32_CALL _fdecompress(int32_t a, int32_t b);
#endif


/* ---- File handles ---- */

/* Opens a file.
 *   name     text; NULL counts as empty
 *   mode     VX_OPEN_READ (0), VX_OPEN_WRITE (1) or VX_OPEN_READWRITE (2), plus what others may not do:
 *            VX_SHARE_DENY_NONE (0x40) or VX_SHARE_COMPATIBLE (0x00), VX_SHARE_EXCLUSIVE (0x10), VX_SHARE_DENY_WRITE
 *            (0x20) or VX_SHARE_DENY_READ (0x30)
 *   returns  the file's handle; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FOpen(const char *name, uint32_t mode);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fopen(const char *name, uint32_t mode);
#endif

/* Creates a file, or empties the one that is there, and opens it for reading and writing.
 *   name       text; NULL counts as empty
 *   attribute  VX_ATTR_NORMAL (0x00), or the sum of VX_ATTR_READONLY (0x01), VX_ATTR_HIDDEN (0x02) and VX_ATTR_SYSTEM
 *              (0x04)
 *   returns    the file's handle; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FCreate(const char *name, uint32_t attribute);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fcreate(const char *name, uint32_t attribute);
VEXLOR32_API int32_t VEXLOR32_CALL fcreate(const char *name, uint32_t attribute);
#endif

/* Creates a file under a name that does not exist and opens it for reading and writing.
 *   name       text; NULL counts as empty
 *   attribute  VX_ATTR_NORMAL (0x00), or the sum of VX_ATTR_READONLY (0x01), VX_ATTR_HIDDEN (0x02) and VX_ATTR_SYSTEM
 *              (0x04)
 *   returns    the file's handle; -1 on failure
 * A file that has no attribute at all, not even the archive attribute, is not seen: it is emptied as by FCreate. */
VEXLOR32_API int32_t VEXLOR32_CALL FCreatef(const char *name, uint32_t attribute);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fcreatef(const char *name, uint32_t attribute);
VEXLOR32_API int32_t VEXLOR32_CALL fcreatef(const char *name, uint32_t attribute);
#endif

/* Closes a file.
 *   handle   file handle
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FClose(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fclose(int32_t handle);
#endif

/* Reads bytes.
 *   handle   file handle
 *   buffer   memory block of the caller; room: count
 *   count    how many bytes at most
 *   returns  the number of bytes read, 0 at the end of the file, -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FRead(int32_t handle, void *buffer, uint32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fread(int32_t handle, void *buffer, uint32_t count);
#endif

/* Writes bytes.
 *   handle   file handle
 *   buffer   bytes, read only; room: max(count, 0)
 *   count    how many bytes; below 1, nothing is written
 *   returns  the number of bytes written, fewer when the disk is full; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FWrite(int32_t handle, const void *buffer, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fwrite(int32_t handle, const void *buffer, int32_t count);
#endif

/* Reads bytes.
 *   handle   file handle
 *   buffer   memory block of the caller; room: max(count, 0)
 *   count    how many bytes at most; below 1, nothing is read
 *   returns  the number of bytes read, 0 at the end of the file, -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL hread(int32_t handle, void *buffer, int32_t count);

/* Writes bytes and does not tell whether that went well.
 *   handle   file handle
 *   buffer   bytes, read only; room: max(count, 0)
 *   count    how many bytes; below 1, nothing is written
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL hwrite(int32_t handle, const void *buffer, int32_t count);

/* Moves the position, which may go beyond the end.
 *   handle   file handle
 *   offset   in bytes, negative to go backwards
 *   origin   VX_SEEK_START (0), VX_SEEK_CURRENT (1) or VX_SEEK_END (2)
 *   returns  the new position; -1 on failure, and it is where it was */
VEXLOR32_API int32_t VEXLOR32_CALL FSeek(int32_t handle, int32_t offset, int32_t origin);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fseek(int32_t handle, int32_t offset, int32_t origin);
#endif

/* The position.
 *   handle   file handle
 *   returns  in bytes from the start of the file; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FTell(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _ftell(int32_t handle);
#endif

/* The length of the file.
 *   handle   file handle
 *   returns  in bytes; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FLen(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _flen(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL flen(int32_t handle);
#endif

/* Whether the position is at the start of the file.
 *   handle   file handle
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FBof(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fbof(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL fbof(int32_t handle);
#endif

/* Whether the position is at the end of the file or beyond it.
 *   handle   file handle
 *   returns  1 on failure, too */
VEXLOR32_API int32_t VEXLOR32_CALL FEof(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _feof(int32_t handle);
#endif

/* Ends the file at the position.
 *   handle   file handle
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FTruncate(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _ftruncate(int32_t handle);
#endif

/* Has the system write to the disk what it still holds of the file.
 *   handle   file handle
 *   returns  0, whether the disk has everything or not */
VEXLOR32_API int32_t VEXLOR32_CALL FCommit(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fcommit(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL fcommit(int32_t handle);
#endif

/* Locks nothing: it is for descriptors of a C runtime, and file handles are none.
 *   handle   file handle
 *   offset   in bytes; has no effect
 *   mode     has no effect
 *   flag     has no effect
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL FAccess(int32_t handle, int32_t offset, int32_t mode, int32_t flag);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _faccess(int32_t handle, int32_t offset, int32_t mode, int32_t flag);
VEXLOR32_API int32_t VEXLOR32_CALL faccess(int32_t handle, int32_t offset, int32_t mode, int32_t flag);
#endif

/* Duplicates nothing: it is for descriptors of a C runtime, and file handles are none.
 *   handle   file handle
 *   returns  -1 */
VEXLOR32_API int32_t VEXLOR32_CALL FDupe(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fdupe(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL fdupe(int32_t handle);
#endif

/* Whether a handle is that of an open file.
 *   handle   file handle
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL ValidHandle(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _validhandle(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL validhandle(int32_t handle);
#endif

/* The reason of the last failure on this thread.
 *   returns  a Windows error number; VX_ERROR_FILE_NOT_FOUND (2), VX_ERROR_ACCESS_DENIED (5) and so on */
VEXLOR32_API uint32_t VEXLOR32_CALL FError(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _ferror(void);
#endif

/* Sets what FError tells.
 *   code     a Windows error number; VX_ERROR_NONE (0) forgets the last failure
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL SetFError(uint32_t code);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _setferror(uint32_t code);
VEXLOR32_API void VEXLOR32_CALL setferror(uint32_t code);
#endif

/* Reads a number of 32 bits, its low byte first.
 *   handle   file handle
 *   returns  the number; 4294967295 if fewer than 4 bytes are left */
VEXLOR32_API uint32_t VEXLOR32_CALL FReadDword(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _freaddword(int32_t handle);
VEXLOR32_API uint32_t VEXLOR32_CALL freaddword(int32_t handle);
#endif

/* Reads a number of 32 bits, its low byte first.
 *   handle   file handle
 *   returns  the number; -1 if fewer than 4 bytes are left */
VEXLOR32_API int32_t VEXLOR32_CALL FReadLong(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _freadlong(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL freadlong(int32_t handle);
#endif

/* Reads a number of 32 bits, its low byte first.
 *   handle   file handle
 *   returns  the number; -1 if fewer than 4 bytes are left */
VEXLOR32_API int32_t VEXLOR32_CALL FReadInt(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _freadint(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL freadint(int32_t handle);
#endif

/* Reads a number of 16 bits, its low byte first.
 *   handle   file handle
 *   returns  0 to 65535; 65535 if fewer than 2 bytes are left */
VEXLOR32_API int32_t VEXLOR32_CALL FReadWord(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _freadword(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL freadword(int32_t handle);
#endif

/* Reads a byte.
 *   handle   file handle
 *   returns  0 to 255; 255 if no byte is left */
VEXLOR32_API int32_t VEXLOR32_CALL FReadByte(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _freadbyte(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL freadbyte(int32_t handle);
#endif

/* Writes a number of 32 bits, its low byte first.
 *   handle   file handle
 *   value    the number
 *   returns  the number of bytes written; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FWriteDword(int32_t handle, uint32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fwritedword(int32_t handle, uint32_t value);
VEXLOR32_API int32_t VEXLOR32_CALL fwritedword(int32_t handle, uint32_t value);
#endif

/* Writes a number of 32 bits, its low byte first.
 *   handle   file handle
 *   value    the number
 *   returns  the number of bytes written; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FWriteLong(int32_t handle, int32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fwritelong(int32_t handle, int32_t value);
VEXLOR32_API int32_t VEXLOR32_CALL fwritelong(int32_t handle, int32_t value);
#endif

/* Writes a number of 32 bits, its low byte first.
 *   handle   file handle
 *   value    the number
 *   returns  the number of bytes written; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FWriteInt(int32_t handle, int32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fwriteint(int32_t handle, int32_t value);
VEXLOR32_API int32_t VEXLOR32_CALL fwriteint(int32_t handle, int32_t value);
#endif

/* Writes a number of 16 bits, its low byte first.
 *   handle   file handle
 *   value    its low 16 bits count
 *   returns  the number of bytes written; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FWriteword(int32_t handle, int32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fwriteword(int32_t handle, int32_t value);
VEXLOR32_API int32_t VEXLOR32_CALL fwriteword(int32_t handle, int32_t value);
#endif

/* Writes a byte.
 *   handle   file handle
 *   value    character; only the low byte counts
 *   returns  the number of bytes written; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FWriteByte(int32_t handle, int32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fwritebyte(int32_t handle, int32_t value);
VEXLOR32_API int32_t VEXLOR32_CALL fwritebyte(int32_t handle, int32_t value);
#endif

/* Reads bytes and puts a terminator behind them; an empty text on failure.
 *   handle   file handle
 *   buffer   destination; room: max(count, 0) + 1; NULL: nothing is written
 *   count    how many bytes at most; below 1, nothing is read
 *   returns  buffer */
VEXLOR32_API char *VEXLOR32_CALL FReadStr(int32_t handle, char *buffer, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _freadstr(int32_t handle, char *buffer, int32_t count);
VEXLOR32_API char *VEXLOR32_CALL freadstr(int32_t handle, char *buffer, int32_t count);
#endif

/* As FReadStr, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfreadstr(int32_t handle, char *buffer, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFReadStr(int32_t handle, char *buffer, int32_t count);
#endif

/* Reads up to a character, which stays in the text, and puts a terminator behind it; the position follows the
 * character.
 *   handle     file handle
 *   buffer     memory block of the caller; room: max(count, 0) + 1
 *   count      how many bytes at most; below 1, nothing is read
 *   delimiter  a character; below 0, all bytes are read and no terminator is written
 *   returns    the number of bytes up to the position; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FReads(int32_t handle, void *buffer, int32_t count, int32_t delimiter);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _freads(int32_t handle, void *buffer, int32_t count, int32_t delimiter);
VEXLOR32_API int32_t VEXLOR32_CALL freads(int32_t handle, void *buffer, int32_t count, int32_t delimiter);
#endif

/* Writes a text with its terminator.
 *   handle   file handle
 *   text     text; NULL counts as empty
 *   returns  the number of bytes written; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FWrites(int32_t handle, const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fwrites(int32_t handle, const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL fwrites(int32_t handle, const char *text);
#endif

/* Writes a text without its terminator.
 *   handle   file handle
 *   text     text; NULL counts as empty
 *   returns  the number of bytes written; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FWritestr(int32_t handle, const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fwritestr(int32_t handle, const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL fwritestr(int32_t handle, const char *text);
#endif

/* Writes a text, then a carriage return and a line feed.
 *   handle   file handle
 *   text     text; NULL counts as empty
 *   returns  1 too when only one of the two could be written */
VEXLOR32_API int32_t VEXLOR32_CALL FWriteLine(int32_t handle, const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fwriteline(int32_t handle, const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL fwriteline(int32_t handle, const char *text);
#endif


/* ---- Text layout ---- */

/* The number of lines that StrWrap makes of a text.
 *   text     text; NULL counts as empty
 *   width    in characters; below 1 gives 0
 *   returns  the number of lines */
VEXLOR32_API int32_t VEXLOR32_CALL WrapCount(const char *text, int32_t width);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _wrapcount(const char *text, int32_t width);
VEXLOR32_API int32_t VEXLOR32_CALL wrapcount(const char *text, int32_t width);
#endif

/* A line of the text as it falls when wrapped at blanks to a width, padded with blanks to that width.
 *   text     text; NULL counts as empty
 *   line     from 1; below 1 gives a line of blanks, past the last line an empty text
 *   width    in characters; below 1 gives an empty text
 *   dest     destination; room: max(width, 0) + 1; NULL: nothing is written
 *   returns  dest; the end of the line of blanks for a line below 1 or an empty text
 * The character behind a full line is not looked at: a word that ends exactly at the width still moves on when a
 * blank stands before it. */
VEXLOR32_API char *VEXLOR32_CALL StrWrap(const char *text, int32_t line, int32_t width, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _strwrap(const char *text, int32_t line, int32_t width, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strwrap(const char *text, int32_t line, int32_t width, char *dest);
#endif

/* As StrWrap, returning the length of the line in dest; a line of blanks counts, too; 0 when dest is NULL. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrwrap(const char *text, int32_t line, int32_t width, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrWrap(const char *text, int32_t line, int32_t width, char *dest);
#endif

/* The whole text wrapped to a width by soft line ends (0x8D 0x0A); older soft line ends are removed.
 *   text      text; NULL counts as empty
 *   width     in columns; below 1 counts as 1
 *   tabWidth  -2 for 8; at least 1 and at most 255 apply
 *   dest      destination; room: len(text) * 3 + 1; NULL: nothing is written; never the text itself
 *   returns   dest
 * A carriage return comes out as a hard line end (0x0D 0x0A), a line feed by itself is dropped. A removed line feed
 * or soft line end still counts as one column. */
VEXLOR32_API char *VEXLOR32_CALL MemoWrap(const char *text, int32_t width, int32_t tabWidth, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _memowrap(const char *text, int32_t width, int32_t tabWidth, char *dest);
VEXLOR32_API char *VEXLOR32_CALL memowrap(const char *text, int32_t width, int32_t tabWidth, char *dest);
#endif

/* As MemoWrap, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strmemowrap(const char *text, int32_t width, int32_t tabWidth, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrMemoWrap(const char *text, int32_t width, int32_t tabWidth, char *dest);
#endif

/* The number of lines of a text: one more than it has line feeds.
 *   text     text; NULL counts as empty
 *   returns  the number of lines, 0 for an empty text */
VEXLOR32_API int32_t VEXLOR32_CALL LineCount(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _linecount(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL linecount(const char *text);
#endif

/* A line of the text without its line end.
 *   text     text; NULL counts as empty
 *   line     from 1; any that does not exist gives an empty text
 *   dest     destination; room: len(text) + 1; NULL: nothing is written
 *   returns  dest
 * What stands before a carriage return that no line feed follows is left out of its line. */
VEXLOR32_API char *VEXLOR32_CALL ReadLine(const char *text, int32_t line, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _readline(const char *text, int32_t line, char *dest);
#endif

/* As ReadLine, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strreadline(const char *text, int32_t line, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrReadLine(const char *text, int32_t line, char *dest);
#endif

/* The number of positions that a tab at a column fills.
 *   column    from 1; a negative one counts as positive
 *   tabWidth  -2 for 8; any other below 1 gives 1
 *   returns   a number of positions; one more than the tab width for column 0 */
VEXLOR32_API int32_t VEXLOR32_CALL TabStop(int32_t column, int32_t tabWidth);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _tabstop(int32_t column, int32_t tabWidth);
VEXLOR32_API int32_t VEXLOR32_CALL tabstop(int32_t column, int32_t tabWidth);
#endif

/* The column that follows a tab at a column.
 *   column    from 1; a negative one counts as positive
 *   tabWidth  -2 for 8; any other below 1 gives column + 1
 *   returns   a column; one more than the tab width for column 0 */
VEXLOR32_API int32_t VEXLOR32_CALL NextTabStop(int32_t column, int32_t tabWidth);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL nexttabstop(int32_t column, int32_t tabWidth);
VEXLOR32_API int32_t VEXLOR32_CALL _nexttabstop(int32_t column, int32_t tabWidth);
#endif

/* The text with each tab replaced by fill characters up to the next tab stop; columns restart behind each line feed.
 *   text      text; NULL counts as empty
 *   tabWidth  -2 for 8; at least 1 and at most 255 apply
 *   fill      its first character replaces tabs; NULL or empty: the fill character
 *   dest      destination; room: len(text) * max(min(tabWidth, 255), 8) + 1; NULL: nothing is written; never the text
 *             itself
 *   returns   dest */
VEXLOR32_API char *VEXLOR32_CALL TabExpand(const char *text, int32_t tabWidth, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _tabexpand(const char *text, int32_t tabWidth, const char *fill, char *dest);
VEXLOR32_API char *VEXLOR32_CALL tabexpand(const char *text, int32_t tabWidth, const char *fill, char *dest);
#endif

/* As TabExpand, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strtabexpand(const char *text, int32_t tabWidth, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrTabExpand(const char *text, int32_t tabWidth, const char *fill, char *dest);
#endif

/* The text set in a field of `width` characters, cut at its end if longer.
 *   text     NULL gives an empty text
 *   width    in characters; below 1 gives an empty text
 *   mode     VX_JUSTIFY_NONE (1) as it is, VX_JUSTIFY_LEFT (2), VX_JUSTIFY_RIGHT (3) with its trailing blanks, any
 *            other at the right without them
 *   fill     its first character pads; NULL or empty: the fill character
 *   dest     destination; room: max(width, 0) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL StrJustify(const char *text, int32_t width, int32_t mode, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _strjustify(const char *text, int32_t width, int32_t mode, const char *fill, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strjustify(const char *text, int32_t width, int32_t mode, const char *fill, char *dest);
#endif

/* As StrJustify, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrjustify(const char *text, int32_t width, int32_t mode, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrJustify(const char *text, int32_t width, int32_t mode, const char *fill, char *dest);
#endif


/* ---- Line navigation ---- */

/* Reads the next line, without its end; empty at the end of the file and on failure.
 *   handle   file handle
 *   buffer   NULL: the line is skipped; room: 2049
 *   returns  buffer
 * The carriage return before the line feed goes, too, except when the line has nothing else. */
VEXLOR32_API char *VEXLOR32_CALL FReadLine(int32_t handle, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _freadline(int32_t handle, char *buffer);
VEXLOR32_API char *VEXLOR32_CALL freadline(int32_t handle, char *buffer);
#endif

/* As FReadLine, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfreadline(int32_t handle, char *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFReadLine(int32_t handle, char *buffer);
#endif

/* Skips the rest of the line.
 *   handle   file handle
 *   returns  the position of the next line; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FAdvance(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fadvance(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL fadvance(int32_t handle);
#endif

/* Goes to the start of the line.
 *   handle   file handle
 *   returns  its position; -1 on failure
 * In a file's first line the position stays where it is, and the result is 0; when the 2048 bytes before have no line
 * feed, the position stays, and the result is 2048 less. */
VEXLOR32_API int32_t VEXLOR32_CALL FBol(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fbol(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL fbol(int32_t handle);
#endif

/* Goes to the start of the line before this one.
 *   handle   file handle
 *   returns  its position; -1 when there is none, or on failure
 * Goes to the start of the line as FBol does, two bytes back, and to the start of the line there: an empty line that
 * ends with a line feed alone is passed over. */
VEXLOR32_API int32_t VEXLOR32_CALL FRewind(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _frewind(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL frewind(int32_t handle);
#endif

/* Goes to the start of the file.
 *   handle   file handle
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FTop(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _ftop(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL ftop(int32_t handle);
#endif

/* Goes to the end of the file.
 *   handle   file handle
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FBot(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fbot(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL fbot(int32_t handle);
#endif

/* Goes to a line.
 *   handle   file handle
 *   n        the number of the line, from 1, or of lines
 *   origin   VX_SEEK_START (0): line n of the file; VX_SEEK_CURRENT (1): n lines forward, or back if below 0;
 *            VX_SEEK_END (2): line n from the end, whatever its sign; any other: stay
 *   returns  the position; -1 on failure
 * For origin 2 and n = 0 the position is the end of the file, and the result is 1, as FBot gives it. */
VEXLOR32_API int32_t VEXLOR32_CALL FSeekLine(int32_t handle, int32_t n, int32_t origin);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fseekline(int32_t handle, int32_t n, int32_t origin);
VEXLOR32_API int32_t VEXLOR32_CALL fseekline(int32_t handle, int32_t n, int32_t origin);
#endif

/* The number of lines from the position to the end; the position stays.
 *   handle   file handle
 *   returns  the number of lines; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FLineCount(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _flinecount(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL flinecount(int32_t handle);
#endif

/* Finds a text from the position on and goes there; the position stays if there is none.
 *   handle   file handle
 *   text     up to 32767 bytes; not found if empty or longer; NULL counts as empty
 *   mode     VX_LOCATE_EXACT (0) compares exactly; VX_LOCATE_UPPER (1): the file's bytes are taken in upper case, any
 *            other in lower case, the text always as it is
 *   returns  the position where it begins; -2 if there is none, -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FLocate(int32_t handle, const char *text, int32_t mode);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _flocate(int32_t handle, const char *text, int32_t mode);
VEXLOR32_API int32_t VEXLOR32_CALL flocate(int32_t handle, const char *text, int32_t mode);
#endif

/* The number of occurrences, without overlap, of a text from the position to the end; the position stays.
 *   handle   file handle
 *   text     up to 32767 bytes; -1 if empty, 0 if longer; NULL counts as empty
 *   mode     VX_LOCATE_EXACT (0) compares exactly; VX_LOCATE_UPPER (1): the file's bytes are taken in upper case, any
 *            other in lower case, the text always as it is
 *   returns  the number of occurrences; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FStrCount(int32_t handle, const char *text, int32_t mode);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fstrcount(int32_t handle, const char *text, int32_t mode);
VEXLOR32_API int32_t VEXLOR32_CALL fstrcount(int32_t handle, const char *text, int32_t mode);
#endif


/* ---- Path names ---- */

/* The drive, directory, base name and extension of a path; a piece without a destination is left out.
 *   path       text; NULL counts as empty
 *   drive      destination; room: 3; NULL: nothing is written
 *   directory  destination; room: min(len(path), 255) + 1; NULL: nothing is written
 *   name       destination; room: min(len(path), 255) + 1; NULL: nothing is written
 *   extension  destination; room: min(len(path), 255) + 1; NULL: nothing is written
 *   returns    nothing */
VEXLOR32_API void VEXLOR32_CALL FSsplit(const char *path, char *drive, char *directory, char *name, char *extension);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _fsplit(const char *path, char *drive, char *directory, char *name, char *extension);
VEXLOR32_API void VEXLOR32_CALL fsplit(const char *path, char *drive, char *directory, char *name, char *extension);
VEXLOR32_API void VEXLOR32_CALL fssplit(const char *path, char *drive, char *directory, char *name, char *extension);
VEXLOR32_API void VEXLOR32_CALL _fssplit(const char *path, char *drive, char *directory, char *name, char *extension);
#endif

/* The path of a drive, a directory, a base name and an extension.
 *   drive      only the first character counts; NULL counts as empty
 *   directory  text; NULL counts as empty
 *   name       text; NULL counts as empty
 *   extension  with or without its dot; NULL counts as empty
 *   dest       destination; room: min(len(directory), 255) + min(len(name), 255) + min(len(extension), 255) + 5;
 *              NULL: nothing is written
 *   returns    dest */
VEXLOR32_API char *VEXLOR32_CALL FMake(const char *drive, const char *directory, const char *name, const char *extension, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fmake(const char *drive, const char *directory, const char *name, const char *extension, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fmake(const char *drive, const char *directory, const char *name, const char *extension, char *dest);
#endif

/* As FMake, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfmake(const char *drive, const char *directory, const char *name, const char *extension, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFMake(const char *drive, const char *directory, const char *name, const char *extension, char *dest);
#endif

/* The drive of a path: letter and colon, or empty.
 *   path     text; NULL counts as empty
 *   dest     destination; room: 3; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FParsedr(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fparsedr(const char *path, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fparsedr(const char *path, char *dest);
#endif

/* As FParsedr, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfparsedr(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFParsedr(const char *path, char *dest);
#endif

/* The directory of a path without its last backslash; a backslash alone stays, and so does a slash.
 *   path     text; NULL counts as empty
 *   dest     destination; room: min(len(path), 255) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FParsed(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fparsed(const char *path, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fparsed(const char *path, char *dest);
#endif

/* As FParsed, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfparsed(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFParsed(const char *path, char *dest);
#endif

/* The base name of a path, without its extension.
 *   path     text; NULL counts as empty
 *   dest     destination; room: min(len(path), 255) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FParsefn(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fparsefn(const char *path, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fparsefn(const char *path, char *dest);
#endif

/* As FParsefn, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfparsefn(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFParsefn(const char *path, char *dest);
#endif

/* The extension of a path, with its dot.
 *   path     text; NULL counts as empty
 *   dest     destination; room: min(len(path), 255) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FParsefx(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fparsefx(const char *path, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fparsefx(const char *path, char *dest);
#endif

/* As FParsefx, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfparsefx(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFParsefx(const char *path, char *dest);
#endif

/* The base name and extension of a path.
 *   path     text; NULL counts as empty
 *   dest     destination; room: min(len(path), 510) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FParsef(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fparsef(const char *path, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fparsef(const char *path, char *dest);
#endif

/* As FParsef, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfparsef(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFParsef(const char *path, char *dest);
#endif

/* The full path of a name, from the current drive and directory; empty if there is none or it is too long.
 *   path     need not exist; NULL counts as empty
 *   dest     destination; room: 260; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL TrueName(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _truename(const char *path, char *dest);
VEXLOR32_API char *VEXLOR32_CALL truename(const char *path, char *dest);
#endif

/* As TrueName, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strtruename(const char *path, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrTrueName(const char *path, char *dest);
#endif

/* A file's name in a directory.
 *   file       its drive and directory do not count; NULL counts as empty
 *   directory  with or without a separator at its end; NULL counts as empty
 *   dest       destination; room: min(len(directory), 257) + min(len(file), 510) + 2; NULL: nothing is written
 *   returns    dest */
VEXLOR32_API char *VEXLOR32_CALL FAppendName(const char *file, const char *directory, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fnappend(const char *file, const char *directory, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fnappend(const char *file, const char *directory, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fappendname(const char *file, const char *directory, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _fappendname(const char *file, const char *directory, char *dest);
#endif

/* As FAppendName, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strfnappend(const char *file, const char *directory, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFAppendName(const char *file, const char *directory, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strfappendname(const char *file, const char *directory, char *dest);
#endif

/* A temporary name, made of digits where a template has wildcards.
 *   pattern  wildcards in its name and extension are filled; NULL counts as empty
 *   dest     destination; room: min(len(pattern), 767) + 14; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL FTempName(const char *pattern, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _ftempname(const char *pattern, char *dest);
VEXLOR32_API char *VEXLOR32_CALL ftempname(const char *pattern, char *dest);
#endif

/* As FTempName, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strftempname(const char *pattern, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrFTempName(const char *pattern, char *dest);
#endif

/* Creates a new file under a temporary name and opens it.
 *   pattern    wildcards in its name and extension are filled; NULL counts as empty
 *   attribute  of the new file: VX_ATTR_NORMAL (0x00), or the sum of VX_ATTR_READONLY (0x01), VX_ATTR_HIDDEN (0x02)
 *              and VX_ATTR_SYSTEM (0x04)
 *   dest       NULL: nothing happens, and the result is -1; room: min(len(pattern), 767) + 14
 *   returns    the file's handle; -1 if none of 100 names could be had */
VEXLOR32_API int32_t VEXLOR32_CALL FUnique(const char *pattern, uint32_t attribute, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _funique(const char *pattern, uint32_t attribute, char *dest);
VEXLOR32_API int32_t VEXLOR32_CALL funique(const char *pattern, uint32_t attribute, char *dest);
#endif

/* Creates directories with all that lead to them.
 *   list     paths, separated by semicolons or commas; NULL counts as empty
 *   returns  whether the last one is there
 * Directories that another process makes meanwhile are there; a file of that name gives 0. A path of more than 260
 * characters behind the first ends the call, and critical errors stay silent after it. */
VEXLOR32_API int32_t VEXLOR32_CALL MakePath(const char *list);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL MkPath(const char *list);
VEXLOR32_API int32_t VEXLOR32_CALL _mkpath(const char *list);
VEXLOR32_API int32_t VEXLOR32_CALL mkpath(const char *list);
VEXLOR32_API int32_t VEXLOR32_CALL makepath(const char *list);
#endif


/* ---- Phonetic codes ---- */

/* The Soundex code of a text: its first character, then a digit for each group of similar consonants.
 *   text     text; NULL counts as empty
 *   pad      its first character pads; NULL or empty: `0`
 *   length   of the code; below 1 gives an empty text
 *   dest     destination; room: max(length, 0) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL Soundex(const char *text, const char *pad, int32_t length, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _soundex(const char *text, const char *pad, int32_t length, char *dest);
VEXLOR32_API char *VEXLOR32_CALL soundex(const char *text, const char *pad, int32_t length, char *dest);
#endif

/* As Soundex, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrSoundex(const char *text, const char *pad, int32_t length, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strsoundex(const char *text, const char *pad, int32_t length, char *dest);
#endif

/* Keeps a code length for callers; at first it is 4. `Soundex` does not use it.
 *   length   the new setting; below 0 only asks
 *   returns  the previous setting */
VEXLOR32_API int32_t VEXLOR32_CALL SoundexLen(int32_t length);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _soundexlen(int32_t length);
VEXLOR32_API int32_t VEXLOR32_CALL soundexlen(int32_t length);
#endif

/* A phonetic key of a word: its consonants as they sound, and its first letter.
 *   word     its first 1024 characters count; NULL counts as empty
 *   dest     destination; room: 2 * min(len(word), 1024) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL MetaFone(const char *word, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _metafone(const char *word, char *dest);
VEXLOR32_API char *VEXLOR32_CALL metafone(const char *word, char *dest);
#endif

/* As MetaFone, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrMetaFone(const char *word, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strmetafone(const char *word, char *dest);
#endif


/* ---- Radix conversion ---- */

/* A 16-bit value in hexadecimal: four digits, or two when it is at most 255.
 *   value    the low 16 bits count
 *   dest     destination; room: 5; NULL: nothing is written
 *   returns  dest
 * The two digits of a value up to 255 come in reverse order: 0x1F gives F1. */
VEXLOR32_API char *VEXLOR32_CALL IntToHex(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _itoh(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL itoh(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL WordToHex(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL inttohex(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _inttohex(uint32_t value, char *dest);
#endif

/* As IntToHex, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL stritoh(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrIntToHex(uint32_t value, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strinttohex(uint32_t value, char *dest);
#endif

/* The low 16 bits of a value as four hexadecimal digits.
 *   value    the low 16 bits count
 *   dest     destination; room: 5; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL DecToHex(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _dec2hex(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL dec2hex(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL dectohex(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _dectohex(uint32_t value, char *dest);
#endif

/* As DecToHex, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strdec2hex(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrDecToHex(uint32_t value, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strdectohex(uint32_t value, char *dest);
#endif

/* A 32-bit value as eight hexadecimal digits.
 *   value    the number
 *   dest     destination; room: 9; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL LongToHex(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _ltoh(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL ltoh(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL longtohex(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _longtohex(uint32_t value, char *dest);
#endif

/* As LongToHex, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strltoh(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrLongToHex(uint32_t value, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strlongtohex(uint32_t value, char *dest);
#endif

/* A 32-bit value as eight hexadecimal digits.
 *   value    the number
 *   dest     destination; room: 9; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL DwordToHex(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL dwordtohex(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _dwordtohex(uint32_t value, char *dest);
#endif

/* A 32-bit value as two groups of four hexadecimal digits with a colon between them.
 *   value    the number
 *   dest     destination; room: 10; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL PtrToHex(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _ptr2hex(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL ptr2hex(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL ptrtohex(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _ptrtohex(uint32_t value, char *dest);
#endif

/* As PtrToHex, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strptr2hex(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrPtrToHex(uint32_t value, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strptrtohex(uint32_t value, char *dest);
#endif

/* The value of the hexadecimal digits at the end of a text.
 *   text     text; NULL counts as empty
 *   returns  the value of the last four digits at most; 0 if there is none
 * G to Z count as digits of value 16 to 35, whose upper bits spill into the next digit. */
VEXLOR32_API uint32_t VEXLOR32_CALL HexToDec(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _hex2dec(const char *text);
VEXLOR32_API uint32_t VEXLOR32_CALL hex2dec(const char *text);
VEXLOR32_API uint32_t VEXLOR32_CALL hextodec(const char *text);
VEXLOR32_API uint32_t VEXLOR32_CALL _hextodec(const char *text);
#endif

/* The 16-bit value of the hexadecimal digits at the end of a text.
 *   text     text; NULL counts as empty
 *   returns  as HexToDec, 16 bits of it */
VEXLOR32_API uint32_t VEXLOR32_CALL HexToWord(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL hextoword(const char *text);
VEXLOR32_API uint32_t VEXLOR32_CALL _hextoword(const char *text);
#endif

/* The 32-bit value of the hexadecimal digits at the end of a text; G to Z as in HexToDec.
 *   text     text; NULL counts as empty
 *   returns  the value of the last eight digits at most; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL HexToLong(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _htol(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL htol(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL hextolong(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL _hextolong(const char *text);
#endif

/* As HexToLong, unsigned.
 *   text     text; NULL counts as empty
 *   returns  the value of the last eight digits at most; 0 if there is none */
VEXLOR32_API uint32_t VEXLOR32_CALL HexToDword(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL hextodword(const char *text);
VEXLOR32_API uint32_t VEXLOR32_CALL _hextodword(const char *text);
#endif

/* The low 8 bits of a value as eight characters 0 or 1.
 *   value    the low 8 bits count
 *   dest     destination; room: 9; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL ByteToBin(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _byte2bin(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL byte2bin(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL bytetobin(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _bytetobin(uint32_t value, char *dest);
#endif

/* As ByteToBin, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strbyte2bin(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrByteToBin(uint32_t value, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strbytetobin(uint32_t value, char *dest);
#endif

/* The low 16 bits of a value as sixteen characters 0 or 1.
 *   value    the low 16 bits count
 *   dest     destination; room: 17; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL NumToBin(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _num2bin(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL numtobin(uint32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _numtobin(uint32_t value, char *dest);
#endif

/* As NumToBin, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrNumToBin(uint32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strnum2bin(uint32_t value, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strnumtobin(uint32_t value, char *dest);
#endif

/* The value of the characters 0 and 1 of a text as a signed 16-bit number; all other characters are skipped.
 *   text     text; NULL counts as empty
 *   returns  from -32768 to 32767 */
VEXLOR32_API int32_t VEXLOR32_CALL BinToNum(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _bin2num(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL bin2num(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL bintonum(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL _bintonum(const char *text);
#endif

/* A value in any base, digits 0 to 9 and A to Z.
 *   value    the number
 *   base     2 to 36; any other gives an empty text
 *   dest     destination; room: 33; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL NumToBase(uint32_t value, int32_t base, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _num2base(uint32_t value, int32_t base, char *dest);
VEXLOR32_API char *VEXLOR32_CALL num2base(uint32_t value, int32_t base, char *dest);
VEXLOR32_API char *VEXLOR32_CALL numtobase(uint32_t value, int32_t base, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _numtobase(uint32_t value, int32_t base, char *dest);
#endif

/* As NumToBase, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrNumToBase(uint32_t value, int32_t base, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strnum2base(uint32_t value, int32_t base, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strnumtobase(uint32_t value, int32_t base, char *dest);
#endif

/* The value of a text's digits in any base; a digit that the base does not have is used all the same.
 *   text     text; NULL counts as empty
 *   base     2 to 36; any other gives 0
 *   returns  the value, wrapped to 32 bits; 0 if a character is no digit */
VEXLOR32_API int32_t VEXLOR32_CALL BaseToNum(const char *text, int32_t base);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _base2num(const char *text, int32_t base);
VEXLOR32_API int32_t VEXLOR32_CALL base2num(const char *text, int32_t base);
VEXLOR32_API int32_t VEXLOR32_CALL basetonum(const char *text, int32_t base);
VEXLOR32_API int32_t VEXLOR32_CALL _basetonum(const char *text, int32_t base);
#endif

/* The text with the high bit of every character cleared.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest as it was given, NULL when working in place */
VEXLOR32_API char *VEXLOR32_CALL BitStrip(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _bitstrip(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL bitstrip(const char *text, char *dest);
#endif

/* As BitStrip, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrBitStrip(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strbitstrip(const char *text, char *dest);
#endif


/* ---- Random numbers ---- */

/* The next pseudo-random number, or the first one of a seed's sequence.
 *   seed     not 0: starts the sequence of its low 16 bits anew; 0: goes on
 *   returns  0 to 32767 */
VEXLOR32_API int32_t VEXLOR32_CALL Random(int32_t seed);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _random(int32_t seed);
#endif


/* ---- Regular expressions ---- */

/* Compiles a pattern.
 *   pattern  the pattern; NULL or empty asks for the last one
 *   returns  VX_REGEX_OK (0), or the error code, VX_REGEX_... */
VEXLOR32_API int32_t VEXLOR32_CALL RegCheck(const char *pattern);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _regcheck(const char *pattern);
VEXLOR32_API int32_t VEXLOR32_CALL regcheck(const char *pattern);
#endif

/* Where a pattern first matches.
 *   pattern  the pattern; NULL or empty means the last one
 *   text     text; NULL counts as empty
 *   returns  the position (the first character is 1), 0 if there is none, or the error code, VX_REGEX_... */
VEXLOR32_API int32_t VEXLOR32_CALL RegAt(const char *pattern, const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _regat(const char *pattern, const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL regat(const char *pattern, const char *text);
#endif

/* Where a pattern matches for the n-th time.
 *   pattern  the pattern; NULL or empty means the last one
 *   text     text; NULL counts as empty
 *   n        which match, 1 for the first
 *   returns  the position (the first character is 1), 0 if there are fewer matches, or the error code, VX_REGEX_... */
VEXLOR32_API int32_t VEXLOR32_CALL RegAtNext(const char *pattern, const char *text, uint32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _regatnext(const char *pattern, const char *text, uint32_t n);
VEXLOR32_API int32_t VEXLOR32_CALL regatnext(const char *pattern, const char *text, uint32_t n);
#endif

/* The length of the n-th match.
 *   pattern  the pattern; NULL or empty means the last one
 *   text     text; NULL counts as empty
 *   n        which match, 1 for the first
 *   returns  the length, 0 if there are fewer matches, or the error code, VX_REGEX_... */
VEXLOR32_API int32_t VEXLOR32_CALL RegLen(const char *pattern, const char *text, uint32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _reglen(const char *pattern, const char *text, uint32_t n);
VEXLOR32_API int32_t VEXLOR32_CALL reglen(const char *pattern, const char *text, uint32_t n);
#endif

/* How often a pattern matches. Matches may overlap: the next search starts one character after the previous match's
 * start.
 *   pattern  the pattern; NULL or empty means the last one
 *   text     text; NULL counts as empty
 *   returns  the number of matches, or the error code, VX_REGEX_... */
VEXLOR32_API int32_t VEXLOR32_CALL RegCount(const char *pattern, const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _regcount(const char *pattern, const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL regcount(const char *pattern, const char *text);
#endif

/* The n-th match, cut to size - 1 characters; empty if there are fewer matches or the pattern is bad.
 *   pattern  the pattern; NULL or empty means the last one
 *   text     text; NULL counts as empty
 *   n        which match, 1 for the first
 *   dest     destination; room: min(size, len(text) + 2); NULL: nothing is written; left as it is when size is below
 *            1
 *   size     bytes at dest, the terminator included
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL RegExtract(const char *pattern, const char *text, uint32_t n, char *dest, uint32_t size);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _regextract(const char *pattern, const char *text, uint32_t n, char *dest, uint32_t size);
VEXLOR32_API char *VEXLOR32_CALL regextract(const char *pattern, const char *text, uint32_t n, char *dest, uint32_t size);
#endif

/* As RegExtract, returning the length of the text in dest; 0 when dest is NULL or size is 0. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrRegExtract(const char *pattern, const char *text, uint32_t n, char *dest, uint32_t size);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strregextract(const char *pattern, const char *text, uint32_t n, char *dest, uint32_t size);
#endif

/* The text with its n-th match replaced, cut to size - 1 characters; the whole text if there are fewer matches, empty
 * if the pattern is bad.
 *   pattern      the pattern; NULL or empty means the last one
 *   text         text; NULL counts as empty
 *   n            which match, 1 for the first
 *   replacement  the new text, with & and \\0 for the match and \\1 to \\9 for the groups; NULL counts as empty
 *   dest         destination; room: min(size, len(text) + (len(text) + 1) * len(replacement) + 1); NULL: nothing is
 *                written; left as it is when size is below 1; never the text itself
 *   size         bytes at dest, the terminator included
 *   returns      dest */
VEXLOR32_API char *VEXLOR32_CALL RegSwap(const char *pattern, const char *text, uint32_t n, const char *replacement, char *dest, uint32_t size);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _regswap(const char *pattern, const char *text, uint32_t n, const char *replacement, char *dest, uint32_t size);
VEXLOR32_API char *VEXLOR32_CALL regswap(const char *pattern, const char *text, uint32_t n, const char *replacement, char *dest, uint32_t size);
#endif

/* As RegSwap, returning the length of the text in dest; 0 when dest is NULL or size is 0. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrRegSwap(const char *pattern, const char *text, uint32_t n, const char *replacement, char *dest, uint32_t size);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strregswap(const char *pattern, const char *text, uint32_t n, const char *replacement, char *dest, uint32_t size);
#endif

/* The n-th match, its position and its length. A bad pattern leaves position and length as they were.
 *   pattern   the pattern; NULL or empty means the last one
 *   text      text; NULL counts as empty
 *   n         which match, 1 for the first
 *   position  receives the position (the first character is 1); with fewer matches, how many characters lie before
 *             the last, failing search; NULL is skipped
 *   length    receives the length, 0 if there are fewer matches; NULL is skipped
 *   dest      receives the match, cut to size - 1 characters; NULL is skipped; room: min(size, len(text) + 2); left
 *             as it is when size is below 1
 *   size      bytes at dest, the terminator included
 *   returns   dest */
VEXLOR32_API char *VEXLOR32_CALL RegInfo(const char *pattern, const char *text, uint32_t n, int32_t *position, int32_t *length, char *dest, uint32_t size);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _reginfo(const char *pattern, const char *text, uint32_t n, int32_t *position, int32_t *length, char *dest, uint32_t size);
VEXLOR32_API char *VEXLOR32_CALL reginfo(const char *pattern, const char *text, uint32_t n, int32_t *position, int32_t *length, char *dest, uint32_t size);
#endif

/* As RegInfo, returning the length of the text in dest; 0 when dest is NULL or size is 0. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrRegInfo(const char *pattern, const char *text, uint32_t n, int32_t *position, int32_t *length, char *dest, uint32_t size);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strreginfo(const char *pattern, const char *text, uint32_t n, int32_t *position, int32_t *length, char *dest, uint32_t size);
#endif


/* ---- Search and replace ---- */

/* The text with occurrences of one text replaced by another.
 *   text         NULL: dest is returned untouched
 *   search       text; NULL counts as empty
 *   replacement  text; NULL counts as empty
 *   n            the number of the first occurrence that is replaced; below 1 replaces nothing
 *   count        how many are replaced; all if negative
 *   dest         destination; room: len(text) + len(text) // max(len(search), 1) * max(len(replacement) -
 *                len(search), 0) + 1; NULL: nothing is written; left as it is when text is NULL
 *   returns      dest */
VEXLOR32_API char *VEXLOR32_CALL StrTran(const char *text, const char *search, const char *replacement, int32_t n, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _strtran(const char *text, const char *search, const char *replacement, int32_t n, int32_t count, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strtran(const char *text, const char *search, const char *replacement, int32_t n, int32_t count, char *dest);
#endif

/* As StrTran, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrtran(const char *text, const char *search, const char *replacement, int32_t n, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrTran(const char *text, const char *search, const char *replacement, int32_t n, int32_t count, char *dest);
#endif

/* The text with occurrences of one text replaced by another, found case-blind.
 *   text         NULL: dest is returned untouched
 *   search       text; NULL counts as empty
 *   replacement  text; NULL counts as empty
 *   n            the number of the first occurrence that is replaced; below 1 replaces nothing
 *   count        how many are replaced; all if negative
 *   dest         destination; room: len(text) + len(text) // max(len(search), 1) * max(len(replacement) -
 *                len(search), 0) + 1; NULL: nothing is written; left as it is when text is NULL
 *   returns      dest */
VEXLOR32_API char *VEXLOR32_CALL StrTrani(const char *text, const char *search, const char *replacement, int32_t n, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _strtrani(const char *text, const char *search, const char *replacement, int32_t n, int32_t count, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strtrani(const char *text, const char *search, const char *replacement, int32_t n, int32_t count, char *dest);
#endif

/* As StrTrani, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrtrani(const char *text, const char *search, const char *replacement, int32_t n, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrTrani(const char *text, const char *search, const char *replacement, int32_t n, int32_t count, char *dest);
#endif


/* ---- Roman numerals, phone letters and digit grouping ---- */

/* A number as a Roman numeral.
 *   value    1 to 3999; any other gives an empty text
 *   dest     destination; room: 16; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL NumToRoman(int32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _num2roman(int32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL numtoroman(int32_t value, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _numtoroman(int32_t value, char *dest);
#endif

/* As NumToRoman, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrNumToRoman(int32_t value, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strnum2roman(int32_t value, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strnumtoroman(int32_t value, char *dest);
#endif

/* The value of a Roman numeral. The order of its digits is not checked.
 *   text     capital letters; NULL counts as empty
 *   returns  the value; 0 if any character is no Roman digit */
VEXLOR32_API int32_t VEXLOR32_CALL RomanToNum(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _roman2num(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL roman2num(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL romantonum(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL _romantonum(const char *text);
#endif

/* The text with each letter replaced by its key on a telephone; Q and Z are on the 1.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL PhoneToNum(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _phone2num(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL phonetonum(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _phonetonum(const char *text, char *dest);
#endif

/* As PhoneToNum, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrPhoneToNum(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strphone2num(const char *text, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strphonetonum(const char *text, char *dest);
#endif

/* A number as the user's locale writes it: in groups, with two decimals, rounded.
 *   number   digits, with a minus sign in front and a decimal point if need be; NULL counts as empty
 *   dest     destination; room: 64; NULL: nothing is written
 *   returns  dest
 * A text that is no number, or whose result is longer than 63 characters, gives an empty text. */
VEXLOR32_API char *VEXLOR32_CALL Comma(const char *number, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _comma(const char *number, char *dest);
VEXLOR32_API char *VEXLOR32_CALL comma(const char *number, char *dest);
#endif

/* As Comma, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strcomma(const char *number, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrComma(const char *number, char *dest);
#endif


/* ---- Searching and counting ---- */

/* The first occurrence of a text in another.
 *   search   text; NULL counts as empty
 *   target   text; NULL counts as empty
 *   returns  a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL at(const char *search, const char *target);

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL At0(const char *search, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _at(const char *search, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL at0(const char *search, const char *target);
#endif

/* The first occurrence of a text in another, case-blind.
 *   search   text; NULL counts as empty
 *   target   text; NULL counts as empty
 *   returns  a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL Ati(const char *search, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ati(const char *search, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL ati1(const char *search, const char *target);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _ati(const char *search, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ati0(const char *search, const char *target);
#endif

/* Occurrence n of a text in another; they may overlap.
 *   search   text; NULL counts as empty
 *   target   text; NULL counts as empty
 *   n        the occurrence's number, from the end if negative; 0 finds nothing
 *   returns  a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL StrAtNext(const char *search, const char *target, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL stratnext(const char *search, const char *target, int32_t n);
VEXLOR32_API int32_t VEXLOR32_CALL stratnext1(const char *search, const char *target, int32_t n);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _stratnext(const char *search, const char *target, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL stratnext0(const char *search, const char *target, int32_t n);
#endif

/* Occurrence n of a text in another, case-blind; they may overlap.
 *   search   text; NULL counts as empty
 *   target   text; NULL counts as empty
 *   n        the occurrence's number, from the end if negative; 0 finds nothing
 *   returns  a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL StrAtNexti(const char *search, const char *target, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL stratnexti(const char *search, const char *target, int32_t n);
VEXLOR32_API int32_t VEXLOR32_CALL stratnexti1(const char *search, const char *target, int32_t n);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _stratnexti(const char *search, const char *target, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL stratnexti0(const char *search, const char *target, int32_t n);
#endif

/* The last occurrence of a text in another.
 *   search   text; NULL counts as empty
 *   target   text; NULL counts as empty
 *   returns  a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL Rat(const char *search, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL rat(const char *search, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL rat1(const char *search, const char *target);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _rat(const char *search, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL rat0(const char *search, const char *target);
#endif

/* The last occurrence of a text in another, case-blind.
 *   search   text; NULL counts as empty
 *   target   text; NULL counts as empty
 *   returns  a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL Rati(const char *search, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL rati(const char *search, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL rati1(const char *search, const char *target);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _rati(const char *search, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL rati0(const char *search, const char *target);
#endif

/* Occurrence n of a character in a text.
 *   character  its first character is searched for; NULL counts as empty
 *   target     text; NULL counts as empty
 *   n          the occurrence's number, from the end if negative; 0 finds nothing
 *   returns    a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL AtNext(const char *character, const char *target, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL atnext(const char *character, const char *target, int32_t n);
VEXLOR32_API int32_t VEXLOR32_CALL atnext1(const char *character, const char *target, int32_t n);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _atnext(const char *character, const char *target, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL atnext0(const char *character, const char *target, int32_t n);
#endif

/* Occurrence n of a character in a text, case-blind.
 *   character  its first character is searched for; NULL counts as empty
 *   target     text; NULL counts as empty
 *   n          the occurrence's number, from the end if negative; 0 finds nothing
 *   returns    a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL AtNexti(const char *character, const char *target, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL atnexti(const char *character, const char *target, int32_t n);
VEXLOR32_API int32_t VEXLOR32_CALL atnexti1(const char *character, const char *target, int32_t n);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _atnexti(const char *character, const char *target, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL atnexti0(const char *character, const char *target, int32_t n);
#endif

/* The last occurrence of a character in a text.
 *   character  its first character is searched for; NULL counts as empty
 *   target     text; NULL counts as empty
 *   returns    a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL AtLast(const char *character, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL atlast(const char *character, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL atlast1(const char *character, const char *target);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _atlast(const char *character, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL atlast0(const char *character, const char *target);
#endif

/* The last occurrence of a character in a text, case-blind.
 *   character  its first character is searched for; NULL counts as empty
 *   target     text; NULL counts as empty
 *   returns    a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL AtLasti(const char *character, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL atlasti(const char *character, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL atlasti1(const char *character, const char *target);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _atlasti(const char *character, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL atlasti0(const char *character, const char *target);
#endif

/* The number of occurrences of a text in another, overlapping ones included.
 *   search   text; NULL counts as empty
 *   target   text; NULL counts as empty
 *   returns  the number */
VEXLOR32_API uint32_t VEXLOR32_CALL StrCount(const char *search, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _strcount(const char *search, const char *target);
VEXLOR32_API uint32_t VEXLOR32_CALL strcount(const char *search, const char *target);
#endif

/* The number of occurrences of a text in another, case-blind, overlapping ones included.
 *   search   text; NULL counts as empty
 *   target   text; NULL counts as empty
 *   returns  the number */
VEXLOR32_API uint32_t VEXLOR32_CALL StrCounti(const char *search, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _strcounti(const char *search, const char *target);
VEXLOR32_API uint32_t VEXLOR32_CALL strcounti(const char *search, const char *target);
#endif

/* The number of occurrences of a character in a text.
 *   character  its first character is counted; NULL counts as empty
 *   target     text; NULL counts as empty
 *   returns    the number */
VEXLOR32_API uint32_t VEXLOR32_CALL ChrCount(const char *character, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _chrcount(const char *character, const char *target);
VEXLOR32_API uint32_t VEXLOR32_CALL chrcount(const char *character, const char *target);
#endif

/* The number of occurrences of a character in a text, case-blind.
 *   character  its first character is counted; NULL counts as empty
 *   target     text; NULL counts as empty
 *   returns    the number */
VEXLOR32_API uint32_t VEXLOR32_CALL ChrCounti(const char *character, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _chrcounti(const char *character, const char *target);
VEXLOR32_API uint32_t VEXLOR32_CALL chrcounti(const char *character, const char *target);
#endif

/* The character at a position.
 *   text      text; NULL counts as empty
 *   position  position (the first character is 1)
 *   returns   its code, 0 to 255; 0 when the position is outside the text */
VEXLOR32_API int32_t VEXLOR32_CALL AscPos(const char *text, int32_t position);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ascpos(const char *text, int32_t position);
VEXLOR32_API int32_t VEXLOR32_CALL ascpos1(const char *text, int32_t position);
#endif

/* As the function above, with 0-based positions; returns its code, 0 to 255; 0 when the position is outside the text. */
VEXLOR32_API int32_t VEXLOR32_CALL _ascpos(const char *text, int32_t position);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL ascpos0(const char *text, int32_t position);
#endif

/* The first character in which two texts differ, within the length of the shorter one.
 *   a        text; NULL counts as empty
 *   b        text; NULL counts as empty
 *   returns  the position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL AtDiff(const char *a, const char *b);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _atdiff(const char *a, const char *b);
VEXLOR32_API int32_t VEXLOR32_CALL atdiff(const char *a, const char *b);
#endif

/* The rest of a text behind the first character in which it differs from another.
 *   a        text; NULL counts as empty
 *   b        NULL gives NULL
 *   returns  a pointer into b; its terminator if nothing differs before it
 * The character that differs is skipped itself: of abXde, compared with abc, the rest is de. */
VEXLOR32_API char *VEXLOR32_CALL StrDiff(const char *a, const char *b);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _strdiff(const char *a, const char *b);
VEXLOR32_API char *VEXLOR32_CALL strdiff(const char *a, const char *b);
#endif

/* As StrDiff, returning the length of what follows that place in b. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrdiff(const char *a, const char *b);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrDiff(const char *a, const char *b);
#endif

/* The number of fields or of enclosed sections in a text.
 *   text        text; NULL counts as empty
 *   delimiters  one: it separates fields; two: they enclose sections; NULL or empty: one field
 *   returns     the number, 0 for an empty text */
VEXLOR32_API uint32_t VEXLOR32_CALL DelimCount(const char *text, const char *delimiters);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _delimcount(const char *text, const char *delimiters);
VEXLOR32_API uint32_t VEXLOR32_CALL delimcount(const char *text, const char *delimiters);
#endif

/* A field or an enclosed section of a text; empty if there is none of that number.
 *   text        text; NULL counts as empty
 *   delimiters  one: it separates fields; two: they enclose sections; NULL or empty: one field
 *   n           the number of the field or section; below 1 is 1
 *   dest        destination; room: len(text) + 1; NULL: the result is a constant empty text
 *   returns     dest, or a constant empty text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL StrExtract(const char *text, const char *delimiters, int32_t n, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _strextract(const char *text, const char *delimiters, int32_t n, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strextract(const char *text, const char *delimiters, int32_t n, char *dest);
#endif

/* As StrExtract, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrExtract(const char *text, const char *delimiters, int32_t n, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strstrextract(const char *text, const char *delimiters, int32_t n, char *dest);
#endif


/* ---- Sectors ---- */

/* Reads sectors of a drive.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   first    the first sector, from 0
 *   count    of sectors; its low 16 bits count
 *   buffer   receives them; NULL gives 0; room: 512 bytes a sector
 *   returns  1 if they were read
 * Only on Windows 95. Windows NT and Linux show that it is not implemented and give 0; Win32s does nothing and gives
 * 1. Sectors are larger than 512 bytes on some media. */
VEXLOR32_API int32_t VEXLOR32_CALL ReadSector(const char *drive, uint32_t first, uint32_t count, void *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _readsector(const char *drive, uint32_t first, uint32_t count, void *buffer);
VEXLOR32_API int32_t VEXLOR32_CALL readsector(const char *drive, uint32_t first, uint32_t count, void *buffer);
#endif

/* Writes sectors of a drive, whatever they belong to.
 *   drive    begins with the drive's letter; without one, the current drive; NULL counts as empty
 *   first    the first sector, from 0
 *   count    of sectors; its low 16 bits count
 *   buffer   what to write; NULL gives 0; room: 512 bytes a sector
 *   returns  1 if they were written
 * Only on Windows 95. Windows NT and Linux show that it is not implemented and give 0; Win32s does nothing and gives
 * 1. Sectors are larger than 512 bytes on some media. */
VEXLOR32_API int32_t VEXLOR32_CALL WriteSector(const char *drive, uint32_t first, uint32_t count, const void *buffer);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _writesector(const char *drive, uint32_t first, uint32_t count, const void *buffer);
VEXLOR32_API int32_t VEXLOR32_CALL writesector(const char *drive, uint32_t first, uint32_t count, const void *buffer);
#endif

/* The serial number in the boot sector of a disk, and a new one.
 *   drive    0 for A to 25 for Z; only the low byte counts
 *   serial   the new number; -2 only asks
 *   returns  the number before; 0 if the disk has none, -1 on failure
 * It reads and writes as ReadSector and WriteSector do. */
VEXLOR32_API int32_t VEXLOR32_CALL DiskNumber(int32_t drive, int32_t serial);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _disknumber(int32_t drive, int32_t serial);
VEXLOR32_API int32_t VEXLOR32_CALL disknumber(int32_t drive, int32_t serial);
#endif

/* Shows that the function has not been implemented.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL FmtTrack(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fmtTrack(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtTrack(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmttrack(void);
VEXLOR32_API int32_t VEXLOR32_CALL _fmttrack(void);
#endif

/* Shows that the function has not been implemented.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL FmtVerify(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fmtVerify(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtVerify(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtverify(void);
VEXLOR32_API int32_t VEXLOR32_CALL _fmtverify(void);
#endif

/* Shows that the function has not been implemented.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL FmtSystem(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fmtSystem(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtSystem(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtsystem(void);
VEXLOR32_API int32_t VEXLOR32_CALL _fmtsystem(void);
#endif

/* Shows that the function has not been implemented.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL FmtBoot(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fmtBoot(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtBoot(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtboot(void);
VEXLOR32_API int32_t VEXLOR32_CALL _fmtboot(void);
#endif

/* Shows that the function has not been implemented.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL FmtFat(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fmtFat(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtFat(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtfat(void);
VEXLOR32_API int32_t VEXLOR32_CALL _fmtfat(void);
#endif

/* Shows that the function has not been implemented.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL FmtDir(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fmtDir(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtDir(void);
VEXLOR32_API int32_t VEXLOR32_CALL fmtdir(void);
VEXLOR32_API int32_t VEXLOR32_CALL _fmtdir(void);
#endif


/* ---- Similarity ---- */

/* How well a text occurs, approximately, somewhere inside another.
 *   pattern  text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   returns  0 to 100
 * 200 * (m - d) / (m + n), cut to a whole number: m and n are the lengths of pattern and text, d is the number of
 * characters that must be inserted, deleted or replaced to turn the pattern into the stretch of the text that is most
 * like it. */
VEXLOR32_API int32_t VEXLOR32_CALL Similarity(const char *pattern, const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _similarity(const char *pattern, const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL similarity(const char *pattern, const char *text);
#endif


/* ---- States and ZIP codes ---- */

/* The two-letter code of the state to which a ZIP code belongs.
 *   zip      a ZIP code, of which the first three characters count; NULL counts as empty
 *   dest     left as it was when there is no such state; room: 3; NULL: nothing is written; must already end at its
 *            last byte
 *   returns  dest
 * Put an empty text into the destination before the call, so that it tells when no state has the ZIP code. */
VEXLOR32_API char *VEXLOR32_CALL State(const char *zip, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _state(const char *zip, char *dest);
VEXLOR32_API char *VEXLOR32_CALL state(const char *zip, char *dest);
#endif

/* As State, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstate(const char *zip, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrState(const char *zip, char *dest);
#endif

/* The name of a state for its code, its code for its name; empty if it is neither.
 *   text     a state's code or name, in any letter case, blanks around it; 257 characters at most; NULL counts as
 *            empty
 *   dest     destination; room: 21; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL StateCode(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _statecode(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL statecode(const char *text, char *dest);
#endif

/* As StateCode, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstatecode(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStateCode(const char *text, char *dest);
#endif

/* Whether a text begins, after blanks, with a state code in capitals, followed by a blank or nothing.
 *   text     text; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsState(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isstate(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL isstate(const char *text);
#endif

/* Whether a ZIP code belongs to a state.
 *   state    a state code, in any letter case, blanks around it; 256 characters at most; NULL counts as empty
 *   zip      a ZIP code, blanks before it; its first three characters count; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsZip(const char *state, const char *zip);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _iszip(const char *state, const char *zip);
VEXLOR32_API int32_t VEXLOR32_CALL iszip(const char *state, const char *zip);
#endif


/* ---- Substrings ---- */

/* The first characters of a text.
 *   text     text; NULL counts as empty
 *   count    below 1 gives an empty text
 *   dest     destination; room: min(len(text), max(count, 0)) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL Left(const char *text, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL StrLeft(const char *text, int32_t count, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _left(const char *text, int32_t count, char *dest);
VEXLOR32_API char *VEXLOR32_CALL left(const char *text, int32_t count, char *dest);
#endif

/* As Left, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strleft(const char *text, int32_t count, char *dest);

/* The last characters of a text.
 *   text     text; NULL counts as empty
 *   count    below 1 gives an empty text
 *   dest     destination; room: min(len(text), max(count, 0)) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL Right(const char *text, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL StrRight(const char *text, int32_t count, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _right(const char *text, int32_t count, char *dest);
VEXLOR32_API char *VEXLOR32_CALL right(const char *text, int32_t count, char *dest);
#endif

/* As Right, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strright(const char *text, int32_t count, char *dest);

/* A piece of a text from a position on.
 *   text     text; NULL counts as empty
 *   start    one before the first character counts from the end; out of the text gives an empty text (the first
 *            character is 1)
 *   count    at most this many characters; below 1 gives an empty text
 *   dest     destination; room: min(len(text), max(count, 0)) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL
 * Counting from the end: from 0, -1 is the last character; from 1, that is 0. */
VEXLOR32_API char *VEXLOR32_CALL SubStr(const char *text, int32_t start, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _substr1(const char *text, int32_t start, int32_t count, char *dest);
VEXLOR32_API char *VEXLOR32_CALL substr(const char *text, int32_t start, int32_t count, char *dest);
VEXLOR32_API char *VEXLOR32_CALL substr1(const char *text, int32_t start, int32_t count, char *dest);
#endif

/* As the function above, with 0-based positions; returns dest, or text when dest is NULL. */
VEXLOR32_API char *VEXLOR32_CALL _substr(const char *text, int32_t start, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL substr0(const char *text, int32_t start, int32_t count, char *dest);
#endif

/* As SubStr, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strsubstr1(const char *text, int32_t start, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrSubStr(const char *text, int32_t start, int32_t count, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strsubstr(const char *text, int32_t start, int32_t count, char *dest);
#endif

/* The text with a number of characters at a position replaced by another text.
 *   text     text; NULL counts as empty
 *   start    before the text counts as its start; more than one behind its end leaves the text as it is (the first
 *            character is 1)
 *   remove   how many characters go; below 0 counts as 0
 *   insert   what comes in their place; NULL counts as empty
 *   dest     destination; room: len(text) + len(insert) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL Stuff(const char *text, int32_t start, int32_t remove, const char *insert, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL stuff(const char *text, int32_t start, int32_t remove, const char *insert, char *dest);
VEXLOR32_API char *VEXLOR32_CALL stuff1(const char *text, int32_t start, int32_t remove, const char *insert, char *dest);
#endif

/* As the function above, with 0-based positions; returns dest. */
VEXLOR32_API char *VEXLOR32_CALL _stuff(const char *text, int32_t start, int32_t remove, const char *insert, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL stuff0(const char *text, int32_t start, int32_t remove, const char *insert, char *dest);
#endif

/* As Stuff, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstuff(const char *text, int32_t start, int32_t remove, const char *insert, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStuff(const char *text, int32_t start, int32_t remove, const char *insert, char *dest);
#endif

/* As _stuff, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstuff0(const char *text, int32_t start, int32_t remove, const char *insert, char *dest);


/* ---- System information and sound ---- */

/* The version of DOS: always 7.00.
 *   returns  700 */
VEXLOR32_API int32_t VEXLOR32_CALL DosVersion(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dosvers(void);
VEXLOR32_API int32_t VEXLOR32_CALL dosvers(void);
VEXLOR32_API int32_t VEXLOR32_CALL dosversion(void);
VEXLOR32_API int32_t VEXLOR32_CALL _dosversion(void);
#endif

/* The version of expanded memory: always 4.0.
 *   returns  40 */
VEXLOR32_API int32_t VEXLOR32_CALL EmsVersion(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _emsvers(void);
VEXLOR32_API int32_t VEXLOR32_CALL emsvers(void);
VEXLOR32_API int32_t VEXLOR32_CALL emsversion(void);
VEXLOR32_API int32_t VEXLOR32_CALL _emsversion(void);
#endif

/* The version of extended memory: always 2.00.
 *   returns  200 */
VEXLOR32_API int32_t VEXLOR32_CALL XmsVersion(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _xmsvers(void);
VEXLOR32_API int32_t VEXLOR32_CALL xmsvers(void);
VEXLOR32_API int32_t VEXLOR32_CALL xmsversion(void);
VEXLOR32_API int32_t VEXLOR32_CALL _xmsversion(void);
#endif

/* The version of the DOS protected-mode interface: always 0.90.
 *   returns  90 */
VEXLOR32_API int32_t VEXLOR32_CALL DpmiVersion(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dpmivers(void);
VEXLOR32_API int32_t VEXLOR32_CALL dpmivers(void);
VEXLOR32_API int32_t VEXLOR32_CALL dpmiversion(void);
VEXLOR32_API int32_t VEXLOR32_CALL _dpmiversion(void);
#endif

/* The KB of DOS memory: always 640.
 *   selector  ignored
 *   returns   640 */
VEXLOR32_API int32_t VEXLOR32_CALL DosMem(int32_t selector);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dosmem(int32_t selector);
VEXLOR32_API int32_t VEXLOR32_CALL dosmem(int32_t selector);
#endif

/* The KB of video memory: always 256.
 *   returns  256 */
VEXLOR32_API int32_t VEXLOR32_CALL VidMem(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _vidmem(void);
VEXLOR32_API int32_t VEXLOR32_CALL vidmem(void);
#endif

/* The type of the coprocessor: always 0.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL NdpType(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _ndptype(void);
VEXLOR32_API int32_t VEXLOR32_CALL ndptype(void);
#endif

/* Whether a console driver is loaded: always 0.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL IsAnsi(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _isansi(void);
VEXLOR32_API int32_t VEXLOR32_CALL isansi(void);
#endif

/* Free memory: always 0.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL Fre(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fre(void);
VEXLOR32_API int32_t VEXLOR32_CALL fre(void);
#endif

/* The type of the monitor: always 0.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL MonType(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _montype(void);
VEXLOR32_API int32_t VEXLOR32_CALL montype(void);
#endif

/* The mouse's interrupt: always 0.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL MouseIrq(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _m_irq(void);
VEXLOR32_API int32_t VEXLOR32_CALL m_irq(void);
VEXLOR32_API int32_t VEXLOR32_CALL mouseirq(void);
VEXLOR32_API int32_t VEXLOR32_CALL _mouseirq(void);
#endif

/* The mouse's type: always 0.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL MouseType(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _m_type(void);
VEXLOR32_API int32_t VEXLOR32_CALL mousetype(void);
VEXLOR32_API int32_t VEXLOR32_CALL _mousetype(void);
#endif

/* The version of the mouse driver: always 0.
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL MouseVersion(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _m_version(void);
VEXLOR32_API int32_t VEXLOR32_CALL m_version(void);
VEXLOR32_API int32_t VEXLOR32_CALL mouseversion(void);
VEXLOR32_API int32_t VEXLOR32_CALL _mouseversion(void);
#endif

/* The language of the mouse driver: always 0.
 *   selector  ignored
 *   returns   0 */
VEXLOR32_API int32_t VEXLOR32_CALL MouseLang(int32_t selector);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _m_language(int32_t selector);
VEXLOR32_API int32_t VEXLOR32_CALL m_language(int32_t selector);
VEXLOR32_API int32_t VEXLOR32_CALL mouselang(int32_t selector);
VEXLOR32_API int32_t VEXLOR32_CALL _mouselang(int32_t selector);
#endif

/* Reads a port: no port is touched, the result is always 0.
 *   port     ignored
 *   returns  0 */
VEXLOR32_API int32_t VEXLOR32_CALL InPort(int32_t port);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL inport(int32_t port);
VEXLOR32_API int32_t VEXLOR32_CALL _inport(int32_t port);
#endif

/* Writes a byte to a port: does nothing.
 *   port     ignored
 *   value    ignored
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL OutPort(int32_t port, int32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL outport(int32_t port, int32_t value);
VEXLOR32_API void VEXLOR32_CALL _outport(int32_t port, int32_t value);
#endif

/* Writes a word to a port: does nothing.
 *   port     ignored
 *   value    ignored
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL OutPortWord(int32_t port, int32_t value);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL outportword(int32_t port, int32_t value);
VEXLOR32_API void VEXLOR32_CALL _outportword(int32_t port, int32_t value);
#endif

/* The date of the machine's firmware: always an empty text.
 *   dest     destination; room: 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL RomDate(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _romdate(char *dest);
VEXLOR32_API char *VEXLOR32_CALL romdate(char *dest);
#endif

/* As RomDate, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strromdate(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrRomDate(char *dest);
#endif

/* The version of Windows. On Linux it is 400.
 *   returns  400 for 4.0, 351 for 3.51 */
VEXLOR32_API int32_t VEXLOR32_CALL WinVersion(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _winvers(void);
VEXLOR32_API int32_t VEXLOR32_CALL winvers(void);
VEXLOR32_API int32_t VEXLOR32_CALL winversion(void);
VEXLOR32_API int32_t VEXLOR32_CALL _winversion(void);
#endif

/* The physical memory of the machine.
 *   available  not 0: what is available; 0: all
 *   returns    KB */
VEXLOR32_API uint32_t VEXLOR32_CALL ExtMem(int32_t available);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _extmem(int32_t available);
VEXLOR32_API uint32_t VEXLOR32_CALL extmem(int32_t available);
#endif

/* The physical memory of the machine, as ExtMem gives it.
 *   available  not 0: what is available; 0: all
 *   returns    KB */
VEXLOR32_API uint32_t VEXLOR32_CALL ExpMem(int32_t available);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _expmem(int32_t available);
VEXLOR32_API uint32_t VEXLOR32_CALL expmem(int32_t available);
#endif

/* The timer ticks of 55 ms in the current second of the clock; 0 below 56 ms.
 *   returns  0 to 18 */
VEXLOR32_API int32_t VEXLOR32_CALL TimerTick(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _timertick(void);
VEXLOR32_API int32_t VEXLOR32_CALL timertick(void);
#endif

/* The family of the processor.
 *   returns  3 for a 386, 4 for a 486, 5 for a Pentium, 6 for its successors and so on */
VEXLOR32_API int32_t VEXLOR32_CALL CpuType(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _cputype(void);
VEXLOR32_API int32_t VEXLOR32_CALL cputype(void);
#endif

/* One of the inquiries, by its number.
 *   selector  1 MonType, 2 MouseIrq, 3 MouseType, 4 MouseVersion, 5 EmsVersion, 6 XmsVersion, 7 DpmiVersion, 8
 *             DosVersion
 *   returns   what that function gives; 0 for other selectors */
VEXLOR32_API int32_t VEXLOR32_CALL _sysinfo1(int32_t selector);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL sysinfo1(int32_t selector);
#endif

/* Sounds the speaker for a while.
 *   frequency  Hz, at least 37 and at most 32767
 *   ticks      of 55 ms
 *   returns    what turning the sound off gave
 * On Linux nothing sounds; the call takes as long all the same, and gives 0. */
VEXLOR32_API int32_t VEXLOR32_CALL Tone(int32_t frequency, uint32_t ticks);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _tone(int32_t frequency, uint32_t ticks);
VEXLOR32_API int32_t VEXLOR32_CALL tone(int32_t frequency, uint32_t ticks);
#endif

/* Turns the speaker on; it sounds until Silence.
 *   frequency  Hz, at least 37 and at most 32767
 *   returns    nothing
 * On Linux nothing sounds. */
VEXLOR32_API void VEXLOR32_CALL Noise(int32_t frequency);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _noise(int32_t frequency);
VEXLOR32_API void VEXLOR32_CALL noise(int32_t frequency);
#endif

/* Turns the speaker off.
 *   returns  on Windows NT what the system says, else what was written to the speaker port */
VEXLOR32_API int32_t VEXLOR32_CALL Silence(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _silence(void);
VEXLOR32_API int32_t VEXLOR32_CALL silence(void);
#endif

/* Whether all bits of a mask are set in a value.
 *   value    any bits
 *   mask     the bits that are tested; none gives 1
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL Test(int32_t value, int32_t mask);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _test(int32_t value, int32_t mask);
VEXLOR32_API int32_t VEXLOR32_CALL test(int32_t value, int32_t mask);
#endif

/* A value shifted right; the sign is kept.
 *   value    any bits
 *   count    by how many bits; its low five bits count
 *   returns  the shifted value */
VEXLOR32_API int32_t VEXLOR32_CALL Shr(int32_t value, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _shr(int32_t value, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL shr(int32_t value, int32_t count);
#endif

/* A value shifted left.
 *   value    any bits
 *   count    by how many bits; its low five bits count
 *   returns  the shifted value */
VEXLOR32_API int32_t VEXLOR32_CALL Shl(int32_t value, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _shl(int32_t value, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL shl(int32_t value, int32_t count);
#endif

/* A value shifted right; the sign is kept.
 *   value    any bits
 *   count    by how many bits; its low five bits count
 *   returns  the shifted value */
VEXLOR32_API int32_t VEXLOR32_CALL _LShr(int32_t value, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _lshr(int32_t value, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL lshr(int32_t value, int32_t count);
#endif

/* A value shifted left.
 *   value    any bits
 *   count    by how many bits; its low five bits count
 *   returns  the shifted value */
VEXLOR32_API int32_t VEXLOR32_CALL _LShl(int32_t value, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _lshl(int32_t value, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL lshl(int32_t value, int32_t count);
#endif

/* The bits that are set in either value.
 *   a        any bits
 *   b        any bits
 *   returns  all of them */
VEXLOR32_API int32_t VEXLOR32_CALL Ior(int32_t a, int32_t b);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _ior(int32_t a, int32_t b);
VEXLOR32_API int32_t VEXLOR32_CALL ior(int32_t a, int32_t b);
#endif


/* ---- Time of day ---- */

/* The hour, minute and second of a time text, not checked; what is missing is 0.
 *   text     hour, minute and second with colons between; NULL: nothing is stored
 *   hour     receives the hour; NULL is skipped
 *   minute   receives the minute; NULL is skipped
 *   second   receives the second; NULL is skipped
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL TimeToInt(const char *text, int32_t *hour, int32_t *minute, int32_t *second);
#ifdef VEXLOR32_ALL_NAMES
#undef _ttoi
VEXLOR32_API void VEXLOR32_CALL _ttoi(const char *text, int32_t *hour, int32_t *minute, int32_t *second);
VEXLOR32_API void VEXLOR32_CALL ttoi(const char *text, int32_t *hour, int32_t *minute, int32_t *second);
VEXLOR32_API void VEXLOR32_CALL timetoint(const char *text, int32_t *hour, int32_t *minute, int32_t *second);
VEXLOR32_API void VEXLOR32_CALL _timetoint(const char *text, int32_t *hour, int32_t *minute, int32_t *second);
#endif

/* Whether hour, minute and second of a time text all lie in 0 to 59 - the hour, too.
 *   text     hour, minute and second with colons between; NULL gives 0
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL CheckTime(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _checktime(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL checktime(const char *text);
#endif

/* A time of day as seconds since midnight, not checked.
 *   hour     0 to 23
 *   minute   0 to 59
 *   second   0 to 59
 *   returns  the seconds since midnight */
VEXLOR32_API int32_t VEXLOR32_CALL IntToJTime(int32_t hour, int32_t minute, int32_t second);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _itojt(int32_t hour, int32_t minute, int32_t second);
VEXLOR32_API int32_t VEXLOR32_CALL itojt(int32_t hour, int32_t minute, int32_t second);
VEXLOR32_API int32_t VEXLOR32_CALL inttojtime(int32_t hour, int32_t minute, int32_t second);
VEXLOR32_API int32_t VEXLOR32_CALL _inttojtime(int32_t hour, int32_t minute, int32_t second);
#endif

/* The hour, minute and second of a number of seconds since midnight.
 *   seconds  since midnight; whole days are taken off, so -1 is 23:59:59
 *   hour     receives the hour, 0 to 23; NULL is skipped
 *   minute   receives the minute; NULL is skipped
 *   second   receives the second; NULL is skipped
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL JTimeToInt(int32_t seconds, int32_t *hour, int32_t *minute, int32_t *second);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _jttoi(int32_t seconds, int32_t *hour, int32_t *minute, int32_t *second);
VEXLOR32_API void VEXLOR32_CALL jttoi(int32_t seconds, int32_t *hour, int32_t *minute, int32_t *second);
VEXLOR32_API void VEXLOR32_CALL jtimetoint(int32_t seconds, int32_t *hour, int32_t *minute, int32_t *second);
VEXLOR32_API void VEXLOR32_CALL _jtimetoint(int32_t seconds, int32_t *hour, int32_t *minute, int32_t *second);
#endif

/* The time of the machine's clock.
 *   returns  the seconds since midnight */
VEXLOR32_API int32_t VEXLOR32_CALL GetJTime(void);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _getjtime(void);
VEXLOR32_API int32_t VEXLOR32_CALL getjtime(void);
#endif

/* The hour, minute and second of the machine's clock.
 *   hour     receives the hour, 0 to 23; NULL is skipped
 *   minute   receives the minute; NULL is skipped
 *   second   receives the second; NULL is skipped
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL DosGetTime(int32_t *hour, int32_t *minute, int32_t *second);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _dosgettime(int32_t *hour, int32_t *minute, int32_t *second);
VEXLOR32_API void VEXLOR32_CALL dosgettime(int32_t *hour, int32_t *minute, int32_t *second);
#endif

/* Sets the time of the machine's clock; date and milliseconds stay. Only the low 16 bits of each number count.
 *   hour     0 to 23
 *   minute   0 to 59
 *   second   0 to 59
 *   returns  what the system says; 0 if it refuses, and the clock is as it was */
VEXLOR32_API int32_t VEXLOR32_CALL DosSetTime(int32_t hour, int32_t minute, int32_t second);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _dossettime(int32_t hour, int32_t minute, int32_t second);
VEXLOR32_API int32_t VEXLOR32_CALL dossettime(int32_t hour, int32_t minute, int32_t second);
#endif

/* Sets the time of the machine's clock to that of a text; PM or pm anywhere in it adds 12 to an hour below 12.
 *   text     hour, minute and second with colons between; NULL sets nothing
 *   returns  what the system says; 0 if it refuses, and the clock is as it was
 * AM means nothing: 12:30 AM is half past noon. */
VEXLOR32_API int32_t VEXLOR32_CALL SetTime(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _settime(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL settime(const char *text);
#endif

/* Sets the time of the machine's clock to a number of seconds since midnight.
 *   seconds  since midnight; whole days are taken off
 *   returns  what the system says; 0 if it refuses, and the clock is as it was */
VEXLOR32_API int32_t VEXLOR32_CALL SetJTime(int32_t seconds);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _setjtime(int32_t seconds);
VEXLOR32_API int32_t VEXLOR32_CALL setjtime(int32_t seconds);
#endif

/* A time of day in 24 hours, as the user's locale writes it.
 *   hour     0 to 23
 *   minute   0 to 59
 *   second   0 to 59
 *   dest     destination; room: 64; NULL: nothing is written
 *   returns  dest
 * What the system refuses becomes hour, minute and second in two digits each, cut off after 8 characters: 24:00:00,
 * 100:00:0. */
VEXLOR32_API char *VEXLOR32_CALL IntToTime(int32_t hour, int32_t minute, int32_t second, char *dest);
#ifdef VEXLOR32_ALL_NAMES
#undef _itot
VEXLOR32_API char *VEXLOR32_CALL _itot(int32_t hour, int32_t minute, int32_t second, char *dest);
VEXLOR32_API char *VEXLOR32_CALL itot(int32_t hour, int32_t minute, int32_t second, char *dest);
VEXLOR32_API char *VEXLOR32_CALL inttotime(int32_t hour, int32_t minute, int32_t second, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _inttotime(int32_t hour, int32_t minute, int32_t second, char *dest);
#endif

/* As IntToTime, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrIntToTime(int32_t hour, int32_t minute, int32_t second, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL stritot(int32_t hour, int32_t minute, int32_t second, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strinttotime(int32_t hour, int32_t minute, int32_t second, char *dest);
#endif

/* The time of the machine's clock in 24 hours, as the user's locale writes it.
 *   dest     destination; room: 64; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL GetTime(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _gettime(char *dest);
VEXLOR32_API char *VEXLOR32_CALL gettime(char *dest);
#endif

/* As GetTime, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrGetTime(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strgettime(char *dest);
#endif

/* The time of the machine's clock with hundredths of seconds, like 09:05:03.07.
 *   dest     destination; room: 12; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL Timeh(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _timeh(char *dest);
VEXLOR32_API char *VEXLOR32_CALL timeh(char *dest);
#endif

/* As Timeh, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrTimeh(char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strtimeh(char *dest);
#endif

/* Waits for a number of hundredths of a second.
 *   count    below 1 does not wait
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL Delay(int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _delay(int32_t count);
VEXLOR32_API void VEXLOR32_CALL delay(int32_t count);
#endif

/* Waits for a number of times 56 milliseconds.
 *   count    below 1 does not wait
 *   returns  nothing */
VEXLOR32_API void VEXLOR32_CALL Nap(int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API void VEXLOR32_CALL _nap(int32_t count);
VEXLOR32_API void VEXLOR32_CALL nap(int32_t count);
#endif


/* ---- Tokens ---- */

/* A token of a text; empty if there is no such token.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: the default set
 *   n           the token's number, from the end if negative
 *   dest        destination; room: len(text) + 1; NULL: nothing is written
 *   returns     dest */
VEXLOR32_API char *VEXLOR32_CALL Token(const char *text, const char *delimiters, int32_t n, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _token(const char *text, const char *delimiters, int32_t n, char *dest);
VEXLOR32_API char *VEXLOR32_CALL token(const char *text, const char *delimiters, int32_t n, char *dest);
#endif

/* As Token, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL Str_Token(const char *text, const char *delimiters, int32_t n, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrToken(const char *text, const char *delimiters, int32_t n, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strtoken(const char *text, const char *delimiters, int32_t n, char *dest);
#endif

/* A token of a text, with its position and length; empty if there is no such token.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: the default set
 *   n           the token's number, from the end if negative
 *   position    receives the token's position (the first character is 1), 1 if there is no such token; NULL is
 *               skipped
 *   length      receives the token's length, 0 if there is no such token; NULL is skipped
 *   dest        destination; room: len(text) + 1; NULL: nothing is written
 *   returns     dest */
VEXLOR32_API char *VEXLOR32_CALL TokenInfo(const char *text, const char *delimiters, int32_t n, int32_t *position, int32_t *length, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _tokeninfo(const char *text, const char *delimiters, int32_t n, int32_t *position, int32_t *length, char *dest);
VEXLOR32_API char *VEXLOR32_CALL tokeninfo(const char *text, const char *delimiters, int32_t n, int32_t *position, int32_t *length, char *dest);
#endif

/* As TokenInfo, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strtokeninfo(const char *text, const char *delimiters, int32_t n, int32_t *position, int32_t *length, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrTokenInfo(const char *text, const char *delimiters, int32_t n, int32_t *position, int32_t *length, char *dest);
#endif

/* The length of a token.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: the default set
 *   n           the token's number, from the end if negative
 *   returns     the length, 0 if there is no such token */
VEXLOR32_API uint32_t VEXLOR32_CALL TokenLen(const char *text, const char *delimiters, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _tokenlen(const char *text, const char *delimiters, int32_t n);
VEXLOR32_API uint32_t VEXLOR32_CALL tokenlen(const char *text, const char *delimiters, int32_t n);
#endif

/* The number of tokens in a text.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: the default set
 *   returns     the number */
VEXLOR32_API uint32_t VEXLOR32_CALL NumToken(const char *text, const char *delimiters);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _numtoken(const char *text, const char *delimiters);
VEXLOR32_API uint32_t VEXLOR32_CALL numtoken(const char *text, const char *delimiters);
#endif

/* The length of all tokens of a text together, that is, of the text without its delimiters.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: the default set
 *   returns     the length */
VEXLOR32_API uint32_t VEXLOR32_CALL TokenSize(const char *text, const char *delimiters);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _tokensize(const char *text, const char *delimiters);
VEXLOR32_API uint32_t VEXLOR32_CALL tokensize(const char *text, const char *delimiters);
#endif

/* The position of a token.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: the default set
 *   n           the token's number, from the end if negative
 *   returns     a position, the first character is 1; 0 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL AtToken(const char *text, const char *delimiters, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL attoken(const char *text, const char *delimiters, int32_t n);
VEXLOR32_API int32_t VEXLOR32_CALL attoken1(const char *text, const char *delimiters, int32_t n);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _attoken(const char *text, const char *delimiters, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL attoken0(const char *text, const char *delimiters, int32_t n);
#endif

/* The text without a token and the delimiters behind it; unchanged if there is no such token.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: the default set
 *   n           the token's number, from the end if negative
 *   dest        destination; room: len(text) + 1; NULL: nothing is written
 *   returns     dest */
VEXLOR32_API char *VEXLOR32_CALL DeleteToken(const char *text, const char *delimiters, int32_t n, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _deletetoken(const char *text, const char *delimiters, int32_t n, char *dest);
VEXLOR32_API char *VEXLOR32_CALL deletetoken(const char *text, const char *delimiters, int32_t n, char *dest);
#endif

/* As DeleteToken, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strdeletetoken(const char *text, const char *delimiters, int32_t n, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrDeleteToken(const char *text, const char *delimiters, int32_t n, char *dest);
#endif

/* The text with a token replaced; unchanged if there is no such token.
 *   text         text; NULL counts as empty
 *   delimiters   NULL or empty: the default set
 *   n            the token's number, from the end if negative
 *   replacement  text; NULL counts as empty
 *   dest         destination; room: len(text) + len(replacement) + 1; NULL: nothing is written
 *   returns      dest */
VEXLOR32_API char *VEXLOR32_CALL SwapToken(const char *text, const char *delimiters, int32_t n, const char *replacement, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _swaptoken(const char *text, const char *delimiters, int32_t n, const char *replacement, char *dest);
VEXLOR32_API char *VEXLOR32_CALL swaptoken(const char *text, const char *delimiters, int32_t n, const char *replacement, char *dest);
#endif

/* As SwapToken, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strswaptoken(const char *text, const char *delimiters, int32_t n, const char *replacement, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrSwapToken(const char *text, const char *delimiters, int32_t n, const char *replacement, char *dest);
#endif

/* The tokens of a text, joined by fill characters.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: the default set
 *   count       fill characters between two tokens; below 0 counts as 0
 *   fill        its first character fills; NULL or empty: the fill character
 *   dest        destination; room: len(text) + len(text) // 2 * max(count, 0) + 1; NULL: nothing is written; never
 *               the text itself
 *   returns     the terminator of the result; dest itself if there is no token, NULL if dest is NULL
 * Since the result is the terminator, the length form always returns 0. */
VEXLOR32_API char *VEXLOR32_CALL SpaceToken(const char *text, const char *delimiters, int32_t count, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _spacetoken(const char *text, const char *delimiters, int32_t count, const char *fill, char *dest);
VEXLOR32_API char *VEXLOR32_CALL spacetoken(const char *text, const char *delimiters, int32_t count, const char *fill, char *dest);
#endif

/* As SpaceToken, returning 0, as it measures from the terminator. */
VEXLOR32_API uint32_t VEXLOR32_CALL strspacetoken(const char *text, const char *delimiters, int32_t count, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrSpaceToken(const char *text, const char *delimiters, int32_t count, const char *fill, char *dest);
#endif

/* Makes the first character of a token upper case.
 *   text        text, changed in place; NULL: nothing happens
 *   delimiters  NULL or empty: the default set
 *   n           the token's number, from the end if negative
 *   returns     text */
VEXLOR32_API char *VEXLOR32_CALL CapToken(char *text, const char *delimiters, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _captoken(char *text, const char *delimiters, int32_t n);
VEXLOR32_API char *VEXLOR32_CALL captoken(char *text, const char *delimiters, int32_t n);
#endif

/* Makes a token upper case, and the character behind it, too.
 *   text        text, changed in place; NULL: nothing happens
 *   delimiters  NULL or empty: the default set
 *   n           the token's number, from the end if negative
 *   returns     text */
VEXLOR32_API char *VEXLOR32_CALL TokenUpper(char *text, const char *delimiters, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _tokenupper(char *text, const char *delimiters, int32_t n);
VEXLOR32_API char *VEXLOR32_CALL tokenupper(char *text, const char *delimiters, int32_t n);
#endif

/* As TokenUpper, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strtokenupper(char *text, const char *delimiters, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrTokenUpper(char *text, const char *delimiters, int32_t n);
#endif

/* Makes a token lower case, and the character behind it, too.
 *   text        text, changed in place; NULL: nothing happens
 *   delimiters  NULL or empty: the default set
 *   n           the token's number, from the end if negative
 *   returns     text */
VEXLOR32_API char *VEXLOR32_CALL TokenLower(char *text, const char *delimiters, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _tokenlower(char *text, const char *delimiters, int32_t n);
VEXLOR32_API char *VEXLOR32_CALL tokenlower(char *text, const char *delimiters, int32_t n);
#endif

/* As TokenLower, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strtokenlower(char *text, const char *delimiters, int32_t n);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrTokenLower(char *text, const char *delimiters, int32_t n);
#endif

/* The first token from a given one onward that is, or begins, a text.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: the default set
 *   match       what a token must be, or be the beginning of; NULL counts as empty
 *   n           the number of the first token to compare, from the end if negative
 *   exact       0 takes A-Z and a-z as equal
 *   returns     the token's number, 0 if none matches; with a negative n, what the count of tokens compared makes it:
 *               that count - n - 1 */
VEXLOR32_API int32_t VEXLOR32_CALL MatchToken(const char *text, const char *delimiters, const char *match, int32_t n, int32_t exact);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _matchtoken(const char *text, const char *delimiters, const char *match, int32_t n, int32_t exact);
VEXLOR32_API int32_t VEXLOR32_CALL matchtoken(const char *text, const char *delimiters, const char *match, int32_t n, int32_t exact);
#endif

/* The tokens of a text in columns of one width, each aligned by its letter and cut if it is too long.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: those of the last call that gave some, at first blank and tab
 *   count       of columns; -2 makes one for each token
 *   width       of a column; below 1 counts as 0
 *   separator   stands between two columns; NULL puts nothing there, yet one fill character more per gap at the end
 *               of the line
 *   codes       a letter for each column: L left, R right, C centre; the last one holds for all further columns. NULL
 *               or empty: L
 *   dest        destination; room: max(count, (len(text) + 1) // 2) * (max(width, 0) + max(len(separator), 1)) + 1;
 *               NULL: nothing is written; never the text itself
 *   returns     dest
 * Any other letter keeps the place at which the token before began in its column. The line has `count` columns and
 * the gaps between them; the rest of the room is for a `count` of -2. */
VEXLOR32_API char *VEXLOR32_CALL AlignToken(const char *text, const char *delimiters, int32_t count, int32_t width, const char *separator, const char *codes, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _aligntoken(const char *text, const char *delimiters, int32_t count, int32_t width, const char *separator, const char *codes, char *dest);
VEXLOR32_API char *VEXLOR32_CALL aligntoken(const char *text, const char *delimiters, int32_t count, int32_t width, const char *separator, const char *codes, char *dest);
#endif

/* As AlignToken, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL straligntoken(const char *text, const char *delimiters, int32_t count, int32_t width, const char *separator, const char *codes, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrAlignToken(const char *text, const char *delimiters, int32_t count, int32_t width, const char *separator, const char *codes, char *dest);
#endif

/* The tokens of a text laid out in a line of exactly a width, cut if they do not fit.
 *   text        text; NULL counts as empty
 *   delimiters  NULL or empty: those of the last call that gave some, at first blank and tab
 *   width       of the line; below 1 gives an empty text
 *   mode        VX_TOKENS_SPREAD (0) spreads the tokens to both margins; the others put single gaps:
 *               VX_TOKENS_INDENTED (1) from where the first token stands in the text, VX_TOKENS_LEFT (2) from the
 *               left margin, VX_TOKENS_RIGHT_INDENTED (3) as far from the right margin as in the text,
 *               VX_TOKENS_RIGHT (4) up to the right margin
 *   dest        destination; room: max(width, 0) + 1; NULL: nothing is written; never the text itself
 *   returns     dest
 * Any other mode gives a line of fill characters. */
VEXLOR32_API char *VEXLOR32_CALL TokenJustify(const char *text, const char *delimiters, int32_t width, int32_t mode, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _tokenjustify(const char *text, const char *delimiters, int32_t width, int32_t mode, char *dest);
VEXLOR32_API char *VEXLOR32_CALL tokenjustify(const char *text, const char *delimiters, int32_t width, int32_t mode, char *dest);
#endif

/* As TokenJustify, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strtokenjustify(const char *text, const char *delimiters, int32_t width, int32_t mode, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrTokenJustify(const char *text, const char *delimiters, int32_t width, int32_t mode, char *dest);
#endif


/* ---- Trimming and padding ---- */

/* The text without leading and trailing blanks.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL AllTrim(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _alltrim(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL alltrim(const char *text, char *dest);
#endif

/* As AllTrim, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL stralltrim(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrAllTrim(const char *text, char *dest);
#endif

/* The length that AllTrim would give.
 *   text     text; NULL counts as empty
 *   returns  the length */
VEXLOR32_API uint32_t VEXLOR32_CALL AllTrimLen(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _alltrimlen(const char *text);
VEXLOR32_API uint32_t VEXLOR32_CALL alltrimlen(const char *text);
#endif

/* The text without leading blanks.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest as it was given, NULL when working in place */
VEXLOR32_API char *VEXLOR32_CALL LTrim(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _ltrim(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL ltrim(const char *text, char *dest);
#endif

/* As LTrim, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strltrim(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrLTrim(const char *text, char *dest);
#endif

/* The length that LTrim would give.
 *   text     text; NULL counts as empty
 *   returns  the length */
VEXLOR32_API uint32_t VEXLOR32_CALL LTrimLen(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _ltrimlen(const char *text);
VEXLOR32_API uint32_t VEXLOR32_CALL ltrimlen(const char *text);
#endif

/* The text without trailing blanks.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL RTrim(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _rtrim(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL rtrim(const char *text, char *dest);
#endif

/* As RTrim, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strrtrim(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrRTrim(const char *text, char *dest);
#endif

/* The length that RTrim would give.
 *   text     text; NULL counts as empty
 *   returns  the length */
VEXLOR32_API uint32_t VEXLOR32_CALL RTrimLen(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _rtrimlen(const char *text);
VEXLOR32_API uint32_t VEXLOR32_CALL rtrimlen(const char *text);
#endif

/* The text without leading and trailing characters of a set.
 *   text     text; NULL counts as empty
 *   set      the characters to remove; NULL counts as empty
 *   mode     VX_TRIM_BOTH (0), VX_TRIM_END (1) or VX_TRIM_START (-1); any other trims nothing
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL ChrTrim(const char *text, const char *set, int32_t mode, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _chrtrim(const char *text, const char *set, int32_t mode, char *dest);
VEXLOR32_API char *VEXLOR32_CALL chrtrim(const char *text, const char *set, int32_t mode, char *dest);
#endif

/* As ChrTrim, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strchrtrim(const char *text, const char *set, int32_t mode, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrChrTrim(const char *text, const char *set, int32_t mode, char *dest);
#endif

/* The length that ChrTrim would give.
 *   text     text; NULL counts as empty
 *   set      the characters to remove; NULL counts as empty
 *   mode     VX_TRIM_BOTH (0), VX_TRIM_END (1) or VX_TRIM_START (-1); any other trims nothing
 *   returns  the length */
VEXLOR32_API uint32_t VEXLOR32_CALL ChrTrimLen(const char *text, const char *set, int32_t mode);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _chrtrimlen(const char *text, const char *set, int32_t mode);
VEXLOR32_API uint32_t VEXLOR32_CALL chrtrimlen(const char *text, const char *set, int32_t mode);
#endif

/* The text from its first to its last letter (A-Z, a-z), digit or tab; empty if it has none.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL TrimPunct(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _trimpunct(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL trimpunct(const char *text, char *dest);
#endif

/* As TrimPunct, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strtrimpunct(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrTrimPunct(const char *text, char *dest);
#endif

/* The text with its leading blanks moved to its end.
 *   text     text; NULL counts as empty
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room; must already end
 *            at its last byte
 *   returns  dest as it was given, NULL when working in place
 * Writes no terminator behind the blanks: a destination must already have one at the length of the text. */
VEXLOR32_API char *VEXLOR32_CALL LJust(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _ljust(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL ljust(const char *text, char *dest);
#endif

/* As LJust, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strljust(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrLJust(const char *text, char *dest);
#endif

/* The text with its trailing blanks moved to its front: right-justified in the length that it has.
 *   text     NULL: dest is returned as it is
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room; left as it is when
 *            text is NULL
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL RJust(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _rjust(const char *text, char *dest);
VEXLOR32_API char *VEXLOR32_CALL rjust(const char *text, char *dest);
#endif

/* As RJust, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strrjust(const char *text, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrRJust(const char *text, char *dest);
#endif

/* The text padded on the left so that it stands in the middle of a width; not padded on the right, cut at its end if
 * longer.
 *   text     text; NULL counts as empty
 *   width    in characters; below 1 gives an empty text
 *   fill     its first character pads; NULL or empty: the fill character
 *   dest     destination; room: max(width, 0) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL Center(const char *text, int32_t width, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _center(const char *text, int32_t width, const char *fill, char *dest);
VEXLOR32_API char *VEXLOR32_CALL center(const char *text, int32_t width, const char *fill, char *dest);
#endif

/* As Center, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL str_center(const char *text, int32_t width, const char *fill, char *dest);

/* The text in the middle of exactly `width` characters, padded on both sides; of a longer one its middle.
 *   text     text; NULL counts as empty
 *   width    in characters; below 1 gives an empty text
 *   fill     its first character pads; NULL or empty: the fill character
 *   dest     destination; room: max(width, 0) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL StrCenter(const char *text, int32_t width, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _strcenter(const char *text, int32_t width, const char *fill, char *dest);
VEXLOR32_API char *VEXLOR32_CALL strcenter(const char *text, int32_t width, const char *fill, char *dest);
#endif

/* As StrCenter, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrcenter(const char *text, int32_t width, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrCenter(const char *text, int32_t width, const char *fill, char *dest);
#endif

/* The text with its leading blanks replaced by the fill character.
 *   text     text; NULL counts as empty
 *   fill     its first character pads; NULL or empty: the fill character
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL
 * With a destination, the content loses as many of its first characters as there were leading blanks; in place it
 * does not. */
VEXLOR32_API char *VEXLOR32_CALL LeadChar(const char *text, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _leadchar(const char *text, const char *fill, char *dest);
VEXLOR32_API char *VEXLOR32_CALL leadchar(const char *text, const char *fill, char *dest);
#endif

/* As LeadChar, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strleadchar(const char *text, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrLeadChar(const char *text, const char *fill, char *dest);
#endif

/* The text with its trailing blanks replaced by the fill character.
 *   text     text; NULL counts as empty
 *   fill     its first character pads; NULL or empty: the fill character
 *   dest     destination; room: len(text) + 1; NULL: text is changed in place and needs that room
 *   returns  dest, or text when dest is NULL */
VEXLOR32_API char *VEXLOR32_CALL TrailChar(const char *text, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _trailchar(const char *text, const char *fill, char *dest);
VEXLOR32_API char *VEXLOR32_CALL trailchar(const char *text, const char *fill, char *dest);
#endif

/* As TrailChar, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strtrailchar(const char *text, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrTrailChar(const char *text, const char *fill, char *dest);
#endif

/* The text cut or padded on the right to exactly `width` characters.
 *   text     NULL: the constant empty text is returned
 *   width    in characters; below 0 counts as 0
 *   fill     its first character pads; NULL or empty: a blank
 *   dest     destination; room: max(width, 0) + 1; NULL: text is changed in place and needs that room; left as it is
 *            when text is NULL
 *   returns  dest, or text when dest is NULL, or a constant empty text when text is NULL */
VEXLOR32_API char *VEXLOR32_CALL UnTrim(const char *text, int32_t width, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _untrim(const char *text, int32_t width, const char *fill, char *dest);
VEXLOR32_API char *VEXLOR32_CALL untrim(const char *text, int32_t width, const char *fill, char *dest);
#endif

/* As UnTrim, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL struntrim(const char *text, int32_t width, const char *fill, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrUnTrim(const char *text, int32_t width, const char *fill, char *dest);
#endif

/* Copies of the text, end to end.
 *   text     text; NULL counts as empty
 *   count    below 1 gives an empty text
 *   dest     destination; room: len(text) * max(count, 0) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL Replicate(const char *text, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _replicate(const char *text, int32_t count, char *dest);
VEXLOR32_API char *VEXLOR32_CALL replicate(const char *text, int32_t count, char *dest);
#endif

/* As Replicate, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strreplicate(const char *text, int32_t count, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrReplicate(const char *text, int32_t count, char *dest);
#endif

/* Copies of a character.
 *   text     receives the characters; room: max(count, 0) + 1; NULL: nothing is written; left as it is when count is
 *            below 0
 *   c        character; only the low byte counts
 *   count    how many; below 0 does nothing
 *   returns  the terminator of the result; text itself if count is below 1 */
VEXLOR32_API char *VEXLOR32_CALL StrnSet(char *text, int32_t c, int32_t count);

/* As StrnSet, returning the number of characters set; 0 for a negative count or a NULL text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strstrnset(char *text, int32_t c, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrStrnSet(char *text, int32_t c, int32_t count);
#endif

/* Whether a text is empty or holds blanks and tabs only.
 *   text     NULL gives 0
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL StrEmpty(const char *text);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _strempty(const char *text);
VEXLOR32_API int32_t VEXLOR32_CALL strempty(const char *text);
#endif


/* ---- Whole files ---- */

/* Copies a file, with its time stamps.
 *   source   text; NULL counts as empty
 *   target   text; NULL counts as empty
 *   returns  the number of bytes copied, -1 on failure
 * A target that exists is replaced. A copy that fails leaves none. A file is not copied onto itself, and none of more
 * than 2147483647 bytes. */
VEXLOR32_API int32_t VEXLOR32_CALL FCcopy(const char *source, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fcopy(const char *source, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL fcopy(const char *source, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL fccopy(const char *source, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL _fccopy(const char *source, const char *target);
#endif

/* Copies bytes from one open file to another, from where they stand.
 *   source   file handle
 *   target   file handle
 *   count    how many bytes at most
 *   returns  the number of bytes copied, fewer at the end of the source; -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FCopyByte(int32_t source, int32_t target, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fcopybyte(int32_t source, int32_t target, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL fcopybyte(int32_t source, int32_t target, int32_t count);
#endif

/* Moves or copies a file into a directory, which is made if it is not there.
 *   source     text; NULL counts as empty
 *   directory  text; NULL counts as empty
 *   erase      1 erases the source, any other keeps it
 *   returns    0 when all went well, -1 on failure, 1 if only the source could not be erased
 * The file must fit the free space of the drive, also where it replaces another. */
VEXLOR32_API int32_t VEXLOR32_CALL FMove(const char *source, const char *directory, int32_t erase);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fmove(const char *source, const char *directory, int32_t erase);
VEXLOR32_API int32_t VEXLOR32_CALL fmove(const char *source, const char *directory, int32_t erase);
#endif

/* Compares two files byte by byte.
 *   first    text; NULL counts as empty
 *   second   text; NULL counts as empty
 *   returns  0 if they are equal, the position of the first difference from 1, -1 on failure
 * Where one file is the start of the other, they differ behind its last byte. */
VEXLOR32_API int32_t VEXLOR32_CALL FCompare(const char *first, const char *second);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fcompare(const char *first, const char *second);
VEXLOR32_API int32_t VEXLOR32_CALL fcompare(const char *first, const char *second);
#endif

/* Overwrites a file six times and erases it.
 *   name     text; NULL counts as empty
 *   returns  1 if so, else 0
 * A symbolic link, and on Windows any other reparse point, gives 0 and stays, as does what is behind it. */
VEXLOR32_API int32_t VEXLOR32_CALL WipeFile(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _wipefile(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL wipefile(const char *name);
#endif

/* Whether a file can be read from start to end.
 *   name     text; NULL counts as empty
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FileTest(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _filetest(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL filetest(const char *name);
#endif

/* Renames a file or directory, or moves a file.
 *   name     text; NULL counts as empty
 *   to       where no file may be yet; NULL counts as empty
 *   returns  0, or -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FRename(const char *name, const char *to);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _frename(const char *name, const char *to);
VEXLOR32_API int32_t VEXLOR32_CALL frename(const char *name, const char *to);
#endif

/* Erases a file.
 *   name     text; NULL counts as empty
 *   returns  0, or -1 on failure */
VEXLOR32_API int32_t VEXLOR32_CALL FErase(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _ferase(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL ferase(const char *name);
#endif

/* The size of a file.
 *   name     text; NULL counts as empty
 *   returns  in bytes; -1 on failure
 * Of a file that cannot be opened, the size that a search for the name finds, which may have wildcards. */
VEXLOR32_API int32_t VEXLOR32_CALL FileSize(const char *name);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _filesize(const char *name);
VEXLOR32_API int32_t VEXLOR32_CALL filesize(const char *name);
#endif

/* Writes a text to an open file many times.
 *   handle   file handle
 *   text     text; NULL counts as empty
 *   count    how many times
 *   returns  the number of writes, with the last one that fell short; the count as given for an empty text */
VEXLOR32_API int32_t VEXLOR32_CALL FReplicate(int32_t handle, const char *text, int32_t count);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _freplicate(int32_t handle, const char *text, int32_t count);
VEXLOR32_API int32_t VEXLOR32_CALL freplicate(int32_t handle, const char *text, int32_t count);
#endif

/* Encrypts a file.
 *   source   text; NULL counts as empty
 *   target   blank to change the source itself; NULL counts as empty
 *   returns  1 if so, else 0
 * Done twice, it gives the file back. A target that exists is replaced. */
VEXLOR32_API int32_t VEXLOR32_CALL FEncrypt(const char *source, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fencrypt(const char *source, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL fencrypt(const char *source, const char *target);
#endif

/* Decrypts a file that FEncrypt has made.
 *   source   text; NULL counts as empty
 *   target   blank to change the source itself; NULL counts as empty
 *   returns  1 if so, else 0
 * The same operation as FEncrypt. */
VEXLOR32_API int32_t VEXLOR32_CALL FDecrypt(const char *source, const char *target);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fdecrypt(const char *source, const char *target);
VEXLOR32_API int32_t VEXLOR32_CALL fdecrypt(const char *source, const char *target);
#endif

/* Makes a path of a pattern, whose ? and * take the characters of a name.
 *   pattern  a path with wildcards in its name and extension; NULL counts as empty
 *   name     text; NULL counts as empty
 *   dest     destination; room: min(len(pattern) + len(name) + 1, 770); NULL: name is changed in place and needs that
 *            room
 *   returns  dest, or name when dest is NULL
 * The drive and the directory are those of the pattern, or those of the name where it has none. */
VEXLOR32_API char *VEXLOR32_CALL FMerge(const char *pattern, const char *name, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _fmerge(const char *pattern, const char *name, char *dest);
VEXLOR32_API char *VEXLOR32_CALL fmerge(const char *pattern, const char *name, char *dest);
#endif

/* Whether an open file is on a network drive, as IsRemote tells: never.
 *   handle   file handle
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL FRemote(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _fremote(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL fremote(int32_t handle);
#endif

/* The drive that has the volume which an open file is on.
 *   handle   file handle
 *   returns  0 for A to 25 for Z; -1 if there is none */
VEXLOR32_API int32_t VEXLOR32_CALL FileDrive(int32_t handle);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _filedrive(int32_t handle);
VEXLOR32_API int32_t VEXLOR32_CALL filedrive(int32_t handle);
#endif


/* ---- Wildcard matching ---- */

/* Whether a pattern matches a text from its first character on.
 *   pattern  text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   exact    0 ignores case
 *   returns  1 if so, else 0 */
VEXLOR32_API int32_t VEXLOR32_CALL WildCard(const char *pattern, const char *text, int32_t exact);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL _wildcard(const char *pattern, const char *text, int32_t exact);
VEXLOR32_API int32_t VEXLOR32_CALL wildcard(const char *pattern, const char *text, int32_t exact);
#endif

/* How many characters the pattern's first `*` skips, as a position.
 *   pattern  text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   exact    0 ignores case
 *   returns  a position, the first character is 1; 0 if there is none
 * A `*` that ends the pattern skips nothing. With a pattern like `*word*` the result is where the word stands. */
VEXLOR32_API int32_t VEXLOR32_CALL WildAt(const char *pattern, const char *text, int32_t exact);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL wildat(const char *pattern, const char *text, int32_t exact);
VEXLOR32_API int32_t VEXLOR32_CALL wildat1(const char *pattern, const char *text, int32_t exact);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _wildat(const char *pattern, const char *text, int32_t exact);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL wildat0(const char *pattern, const char *text, int32_t exact);
#endif

/* Where match n starts.
 *   pattern  text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   n        the match's number
 *   exact    0 ignores case
 *   returns  a position, the first character is 1; 0 if there is none
 * With n = 0 nothing is found if the pattern matches, and the text's first position if it does not. */
VEXLOR32_API int32_t VEXLOR32_CALL WildAtNext(const char *pattern, const char *text, uint32_t n, int32_t exact);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL wildatnext(const char *pattern, const char *text, uint32_t n, int32_t exact);
VEXLOR32_API int32_t VEXLOR32_CALL wildatnext1(const char *pattern, const char *text, uint32_t n, int32_t exact);
#endif

/* As the function above, with 0-based positions; returns a position, the first character is 0; -1 if there is none. */
VEXLOR32_API int32_t VEXLOR32_CALL _wildatnext(const char *pattern, const char *text, uint32_t n, int32_t exact);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API int32_t VEXLOR32_CALL wildatnext0(const char *pattern, const char *text, uint32_t n, int32_t exact);
#endif

/* The length of match n.
 *   pattern  text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   n        the match's number; 0 gives 0
 *   exact    0 ignores case
 *   returns  the length, 0 if there is no such match */
VEXLOR32_API uint32_t VEXLOR32_CALL WildLen(const char *pattern, const char *text, uint32_t n, int32_t exact);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _wildlen(const char *pattern, const char *text, uint32_t n, int32_t exact);
VEXLOR32_API uint32_t VEXLOR32_CALL wildlen(const char *pattern, const char *text, uint32_t n, int32_t exact);
#endif

/* The number of successive matches.
 *   pattern  text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   exact    0 ignores case
 *   returns  the number */
VEXLOR32_API uint32_t VEXLOR32_CALL WildCount(const char *pattern, const char *text, int32_t exact);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL _wildcount(const char *pattern, const char *text, int32_t exact);
VEXLOR32_API uint32_t VEXLOR32_CALL wildcount(const char *pattern, const char *text, int32_t exact);
#endif

/* Match n, or an empty text if there is no such match.
 *   pattern  text; NULL counts as empty
 *   text     text; NULL counts as empty
 *   n        the match's number; 0 gives an empty text
 *   exact    0 ignores case
 *   dest     destination; room: len(text) + 1; NULL: nothing is written
 *   returns  dest */
VEXLOR32_API char *VEXLOR32_CALL WildExtract(const char *pattern, const char *text, uint32_t n, int32_t exact, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _wildextract(const char *pattern, const char *text, uint32_t n, int32_t exact, char *dest);
VEXLOR32_API char *VEXLOR32_CALL wildextract(const char *pattern, const char *text, uint32_t n, int32_t exact, char *dest);
#endif

/* As WildExtract, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strwildextract(const char *pattern, const char *text, uint32_t n, int32_t exact, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrWildExtract(const char *pattern, const char *text, uint32_t n, int32_t exact, char *dest);
#endif

/* The text with match n replaced.
 *   pattern      text; NULL counts as empty
 *   text         text; NULL counts as empty
 *   n            the match's number; 0 replaces nothing
 *   exact        0 ignores case
 *   replacement  NULL deletes the match
 *   dest         destination; room: len(text) + len(replacement) + 1; NULL: nothing is written
 *   returns      dest */
VEXLOR32_API char *VEXLOR32_CALL WildSwap(const char *pattern, const char *text, uint32_t n, int32_t exact, const char *replacement, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _wildswap(const char *pattern, const char *text, uint32_t n, int32_t exact, const char *replacement, char *dest);
VEXLOR32_API char *VEXLOR32_CALL wildswap(const char *pattern, const char *text, uint32_t n, int32_t exact, const char *replacement, char *dest);
#endif

/* As WildSwap, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strwildswap(const char *pattern, const char *text, uint32_t n, int32_t exact, const char *replacement, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrWildSwap(const char *pattern, const char *text, uint32_t n, int32_t exact, const char *replacement, char *dest);
#endif


/* ---- Numbers in words ---- */

/* A whole number in English words.
 *   number   digits, with a minus sign in front if need be; commas and blanks are skipped, decimals ignored; NULL
 *            counts as empty
 *   dest     destination; room: 448; NULL: the result is a constant empty text
 *   returns  dest, or a constant empty text when dest is NULL
 * A number of more than 33 digits comes back as digits. The first 63 characters count. */
VEXLOR32_API char *VEXLOR32_CALL NumToWords(const char *number, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _num2words(const char *number, char *dest);
VEXLOR32_API char *VEXLOR32_CALL numtowords(const char *number, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _numtowords(const char *number, char *dest);
#endif

/* As NumToWords, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL StrNumToWords(const char *number, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL strnum2words(const char *number, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strnumtowords(const char *number, char *dest);
#endif

/* The cents of an amount, for a cheque.
 *   number   an amount; the two digits behind its point count; NULL counts as empty
 *   style    0: 05/100, 1: 05 cents, 2: five cents, 3: nothing; any other is 0
 *   dest     destination; room: 24; NULL: nothing is written
 *   returns  dest
 * Style 1 always says cents, style 2 says one cent. Further decimals are cut, not rounded. */
VEXLOR32_API char *VEXLOR32_CALL NumToCents(const char *number, int32_t style, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _num2cents(const char *number, int32_t style, char *dest);
VEXLOR32_API char *VEXLOR32_CALL num2cents(const char *number, int32_t style, char *dest);
VEXLOR32_API char *VEXLOR32_CALL numtocents(const char *number, int32_t style, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _numtocents(const char *number, int32_t style, char *dest);
#endif

/* As NumToCents, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strnum2cents(const char *number, int32_t style, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrNumToCents(const char *number, int32_t style, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strnumtocents(const char *number, int32_t style, char *dest);
#endif

/* An amount in words, for a cheque: one thousand two hundred thirty four dollars and 56/100.
 *   number   an amount; NULL counts as empty
 *   style    of the cents, as in NumToCents
 *   dest     destination; room: 512; NULL: nothing is written
 *   returns  dest
 * A missing amount gives a text of its own, which begins with zero02 dollars02. */
VEXLOR32_API char *VEXLOR32_CALL NumToDollars(const char *number, int32_t style, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API char *VEXLOR32_CALL _num2dollars(const char *number, int32_t style, char *dest);
VEXLOR32_API char *VEXLOR32_CALL num2dollars(const char *number, int32_t style, char *dest);
VEXLOR32_API char *VEXLOR32_CALL numtodollars(const char *number, int32_t style, char *dest);
VEXLOR32_API char *VEXLOR32_CALL _numtodollars(const char *number, int32_t style, char *dest);
#endif

/* As NumToDollars, returning the length of the resulting text. */
VEXLOR32_API uint32_t VEXLOR32_CALL strnum2dollars(const char *number, int32_t style, char *dest);
#ifdef VEXLOR32_ALL_NAMES
VEXLOR32_API uint32_t VEXLOR32_CALL StrNumToDollars(const char *number, int32_t style, char *dest);
VEXLOR32_API uint32_t VEXLOR32_CALL strnumtodollars(const char *number, int32_t style, char *dest);
#endif

#ifdef __cplusplus
}
#endif

#endif
