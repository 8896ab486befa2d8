/// @file
/// Declares the operating-system layer: the calls that a suite may wish to redirect to an emulation, a cache or a log.
///
/// Each operation makes the system call that it documents and returns its result. On failure `errno` is as that call
/// left it; on success it is not modified. Paths are C-strings of bytes in no particular encoding. Relative paths start
/// at the current directory of the process.
///
/// @par Thread safety
/// Every operation may be called from any thread. The current directory belongs to the process: a change of it in one
/// thread affects all.

#ifndef CCL_OSI_OSI_H
#define CCL_OSI_OSI_H

#include <sys/stat.h>

#include <cstdio>

#include "ccl/platform/export.h"

/// Represents a full path, accessed only through a pointer to it.
struct OSI_PATH;

/// Calls `open`, with the close-on-exec flag added. Returns a descriptor, or -1.
CCL_PLATFORM_EXPORT int osi_open(char const* path, int flags, int mode);

/// Calls `fopen`, with close-on-exec set unless the mode has more than six letters. Returns a stream, or null.
CCL_PLATFORM_EXPORT std::FILE* osi_fopen(char const* path, char const* mode);

/// Calls `chmod`. Returns 0 on success, otherwise -1.
CCL_PLATFORM_EXPORT int osi_chmod(char const* path, int mode);

/// Calls `getcwd`. Returns `buffer` on success; null if the directory no longer exists, is unreadable, or needs more
/// than `size` bytes.
CCL_PLATFORM_EXPORT char* osi_getcwd(char* buffer, unsigned long size);

/// Calls `mkdir` with the mode 0777, as modified by the process's mask. Returns 0 on success, otherwise -1.
CCL_PLATFORM_EXPORT int osi_mkdir(char const* path);

/// Calls `rmdir`. Returns 0 on success, otherwise -1.
CCL_PLATFORM_EXPORT int osi_rmdir(char const* path);

/// Calls `chdir`. Returns 0 on success, otherwise -1.
CCL_PLATFORM_EXPORT int osi_chdir(char const* path);

/// Calls `stat`, which follows symbolic links. Returns 0 on success, otherwise -1.
CCL_PLATFORM_EXPORT int osi_status(char const* path, struct stat* buffer);

/// Returns 1 if `stat` of `path` succeeds, otherwise 0.
///
/// Symbolic links are followed, so the result for a dangling link is 0. Any failure counts as absence, including a
/// directory on the way that may not be searched; `errno` distinguishes them.
CCL_PLATFORM_EXPORT int osi_exists(char const* path);

/// Makes a record of the full form of `path`: `path` itself if it begins with `/`, otherwise the current directory, one
/// `/` and `path`. Nothing is resolved and nothing has to exist.
///
/// @return the record, to be released with `osi_path_free`, or null if memory runs out
CCL_PLATFORM_EXPORT OSI_PATH* osi_get_unc_full_path(char const* path);

/// Returns the string of the record, which owns it. Returns null for a null record, and if the full form could not be
/// made because `path` was null or the current directory could not be read.
CCL_PLATFORM_EXPORT char const* osi_path_get_data(OSI_PATH* path);

/// Releases the record. Null is accepted.
CCL_PLATFORM_EXPORT void osi_path_free(OSI_PATH* path);

#endif
