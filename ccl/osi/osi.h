/// @file
/// The operating-system layer: the calls that a suite may wish to send through an emulation, a cache or a log.
///
/// Each operation makes the system call named and hands its result on. On failure `errno` is as that call left it; on
/// success it is not touched. Paths are C-strings of bytes in no particular encoding. Relative paths start at the
/// current directory of the process.
///
/// @par Thread safety
/// Every operation may be called from any thread. The current directory belongs to the process: a change of it in one
/// thread is seen by all.

#ifndef CCL_OSI_OSI_H
#define CCL_OSI_OSI_H

#include <sys/stat.h>

#include <cstdio>

#include "ccl/platform/export.h"

/// A full path record, seen only through a pointer to it.
struct OSI_PATH;

/// `open`, with the close-on-exec flag added. A descriptor, or -1.
CCL_PLATFORM_EXPORT int osi_open(char const* path, int flags, int mode);

/// `fopen`, with close-on-exec set unless the mode has more than six letters. A stream, or null.
CCL_PLATFORM_EXPORT std::FILE* osi_fopen(char const* path, char const* mode);

/// `chmod`. 0 on success, otherwise -1.
CCL_PLATFORM_EXPORT int osi_chmod(char const* path, int mode);

/// `getcwd`. `buffer` on success; null when the directory is gone, unreadable, or needs more than `size` bytes.
CCL_PLATFORM_EXPORT char* osi_getcwd(char* buffer, unsigned long size);

/// `mkdir` with the mode 0777, from which the process's mask takes its bits. 0 on success, otherwise -1.
CCL_PLATFORM_EXPORT int osi_mkdir(char const* path);

/// `rmdir`. 0 on success, otherwise -1.
CCL_PLATFORM_EXPORT int osi_rmdir(char const* path);

/// `chdir`. 0 on success, otherwise -1.
CCL_PLATFORM_EXPORT int osi_chdir(char const* path);

/// `stat`, which follows symbolic links. 0 on success, otherwise -1.
CCL_PLATFORM_EXPORT int osi_status(char const* path, struct stat* buffer);

/// Whether `path` leads to anything: 1 if `stat` succeeds, otherwise 0.
///
/// Symbolic links are followed, so a dangling link leads to nothing. Any failure counts as absence, a directory on the
/// way that may not be searched included; `errno` tells them apart.
CCL_PLATFORM_EXPORT int osi_exists(char const* path);

/// Makes a record of the full form of `path`: the text itself if it begins with `/`, otherwise the current directory,
/// one `/` and the text. Nothing is resolved and nothing has to exist.
///
/// Null when memory runs out. To be released with `osi_path_free`.
CCL_PLATFORM_EXPORT OSI_PATH* osi_get_unc_full_path(char const* path);

/// The text of the record, owned by it. Null for a null record, and when the full form could not be told because `path`
/// was null or the current directory could not be read.
CCL_PLATFORM_EXPORT char const* osi_path_get_data(OSI_PATH* path);

/// Releases the record. Null is accepted.
CCL_PLATFORM_EXPORT void osi_path_free(OSI_PATH* path);

#endif
