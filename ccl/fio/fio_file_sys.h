/// @file
/// `FIO_FILE_SYSTEM`: the library's face towards the operating system, and the find handles.
///
/// A class without instances or state, used as a namespace. It opens, renames, removes and asks; it takes paths apart
/// and puts them together as C-strings; and it walks the entries of a directory that match a wildcard.
///
///     FIO_FILE_SYSTEM::exists("rtl/top.v")        => true if there is such an entry
///     FIO_FILE_SYSTEM::exists("rtl/*.v")          => true if any entry matches
///     FIO_FILE_SYSTEM::same_file("a.txt", "*.txt") => true
///
/// Names are bytes in no particular encoding. Relative paths start at the current directory of the process.
///
/// @par Failure
/// Failures are told by the result alone. A `bool` is true on success; an `int` is the system's, 0 on success. Nothing
/// is logged or retried. What another process does meanwhile is not tolerated beyond what a system call offers, except
/// that `findnext` passes over entries that vanish. `errno` is left as the last system call set it: read it at once.
/// `std::bad_alloc` leaves an operation that answers a string or starts a walk, and `std::logic_error` one that is said
/// to refuse a null pointer.
///
/// @par Forms
/// Where an operation takes a `FIO_PATH`, it takes its text through the length check of that class, which may write its
/// debug message, and then does what the C-string form does. Where it has no string form, a `std::string` becomes a
/// `FIO_PATH`, with its separators normalised: pass `c_str()` to ask about the text as it stands. Texts of 1024
/// characters or more are refused only where an operation says so.
///
/// @par Thread safety
/// Every operation may be called from any thread. The current directory belongs to the process and is not guarded. A
/// find handle serves one thread at a time.

#ifndef CCL_FIO_FIO_FILE_SYS_H
#define CCL_FIO_FIO_FILE_SYS_H

#include <sys/stat.h>

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>

#include "ccl/fio/fio_export.h"

class FIO_PATH;

/// What `findfirst` and `findnext` tell of an entry.
struct _finddata_t {       // NOLINT(bugprone-reserved-identifier): the name is shared with other platforms
  std::uint32_t attrib;    ///< 0x10 for what `is_directory` says yes to, else 0x01 if it may not be written, else 0
  std::time_t time_create; ///< never written by this library
  std::time_t time_access; ///< never written by this library
  std::time_t time_write;  ///< time of the last modification, in seconds since the epoch
  std::int64_t size;       ///< size in bytes
  char name[260];          ///< the name without a directory, cut to 259 bytes, always ended by a NUL
};

/// The operations on files, directories and path texts.
class FIO_FILE_SYSTEM {
public:
  explicit FIO_FILE_SYSTEM() = delete;

  /// @name Opening and attributes
  /// @{

  /// `osi_open`: a descriptor, or negative on failure.
  FIO_EXPORT static int open(char const* path, int flags, int mode);

  /// `osi_fopen`: a stream that the caller closes, or null.
  FIO_EXPORT static std::FILE* fopen(char const* path, char const* mode);

  /// `osi_chmod`: true on success.
  FIO_EXPORT static bool chmod(char const* path, int mode);
  /// @}

  /// @name Directories
  /// @{

  /// `osi_mkdir`, which chooses the mode: 0 on success.
  FIO_EXPORT static int mkdir(char const* path);

  /// `osi_rmdir` of an empty directory: 0 on success.
  FIO_EXPORT static int rmdir(char const* path);

  /// `osi_chdir`: 0 on success. Note that `set_current_directory` answers the other way round.
  FIO_EXPORT static int change_current_directory(char const* path);

  /// `osi_chdir`: true on success.
  FIO_EXPORT static bool set_current_directory(std::string const& path);

  /// `osi_getcwd`: `buffer` with the current directory in it, or null.
  FIO_EXPORT static char* get_current_directory(char* buffer, unsigned long size);

  /// The length of the text in `buffer` after `osi_getcwd`, or 0 if `buffer` is null. A failure of that call goes
  /// unnoticed: the answer is then the length of what the buffer held. The call is made with a null buffer too, and
  /// what a layer allocates then, as the C library does, is never freed: do not pass null.
  FIO_EXPORT static unsigned long get_current_directory(unsigned long size, char* buffer);

  /// The current directory, or an empty text if it cannot be read or has 1024 characters or more.
  FIO_EXPORT static std::string get_current_directory();
  /// @}

  /// @name Renaming
  /// The system's `rename`: an existing target is replaced as one step, and a target on another file system is a
  /// failure. True on success.
  /// @{
  FIO_EXPORT static bool posix_rename(char const* from, char const* to);
  FIO_EXPORT static bool rename(char const* from, char const* to);
  FIO_EXPORT static bool rename(std::string const& from, std::string const& to);
  FIO_EXPORT static bool rename(FIO_PATH const& from, FIO_PATH const& to);
  /// @}

  /// @name Removing
  /// The system's `remove`, of a file or an empty directory. True on success. A null pointer answers false without a
  /// call, but for `posix_remove`, which passes it on. A symbolic link goes itself; what it leads to stays.
  /// @{
  FIO_EXPORT static bool remove(char const* path);
  FIO_EXPORT static bool remove(std::string const& path);
  FIO_EXPORT static bool remove(FIO_PATH const& path);
  FIO_EXPORT static bool native_remove(char const* path);
  FIO_EXPORT static bool posix_remove(char const* path);
  FIO_EXPORT static bool unc_native_remove(std::string const& path);

  /// Removes what is there: true as well if `exists` says that nothing is.
  FIO_EXPORT static bool remove_if_exists(std::string const& path);
  /// @}

  /// @name Status
  /// Whether a symbolic link is followed is decided by `osi_status`.
  /// @{

  /// `osi_status`: fills `*buffer` and answers true, or answers false.
  FIO_EXPORT static bool status(char const* path, struct stat* buffer);
  FIO_EXPORT static bool status(std::string const& path, struct stat* buffer);
  FIO_EXPORT static bool status(FIO_PATH const& path, struct stat* buffer);

  /// Whether the mode has the bit 0x4000. Directories have it, and so do block devices and sockets. False on failure.
  FIO_EXPORT static bool is_directory(char const* path);

  /// Whether the mode has the bit 0x8000. Regular files have it, and so do symbolic links and sockets. False on
  /// failure.
  FIO_EXPORT static bool is_regular_file(char const* path);

  /// Whether the last modification lies before `*limit`, in seconds since the epoch. A null `limit` means any age: the
  /// answer is true and the file is not looked at. False if the status cannot be read.
  FIO_EXPORT static bool is_older(char const* path, long const* limit);

  /// Whether `osi_exists` finds anything at `path`. With `*` or `?` anywhere in it: whether `findfirst` finds an entry
  /// that matches, which may throw `std::bad_alloc`. False, without a system call, for null and for 1024 characters or
  /// more.
  FIO_EXPORT static bool exists(char const* path);
  FIO_EXPORT static bool exists(FIO_PATH const& path);

  /// Whether `name` matches `pattern`: the one wildcard test of the library.
  ///
  /// `*` stands for any run of bytes and `?` for any byte; everything else, `/` and a leading dot included, stands for
  /// itself. The test has rules of its own:
  ///
  ///     "abc",  "abcdef"   => true: a pattern matches as a prefix until a `*` was met
  ///     "*.txt", "a.txt.bak" => false: behind a `*` the pattern must end with the name
  ///     "ab*", "ab"        => false: a `*` behind other text is reached only with name left...
  ///     "ab*c", "abc"      => true: ...even if it stands for nothing then
  ///     "*a*", "xa"        => false: for the same reason
  ///     "**", ""           => false
  ///     "*", ""            => true
  ///
  /// (pattern first, then name.) Where the text between two `*` first fits, it is taken; no other place is tried.
  FIO_EXPORT static bool same_file(char const* name, char const* pattern);
  /// @}

  /// @name Path texts
  /// Nothing here touches the disk or, where no string is answered, allocates. No buffer may overlap a text that is
  /// read.
  /// @{

  /// Writes the text that four components make, ended by a NUL. Any of them may be null.
  ///
  ///     "C", "a", "b", "c"      => "C:a/b.c"
  ///     "", "a\", "b", ".c"     => "a\b.c"
  ///
  /// Only the first character of the drive counts. A directory that ends in neither separator gets a `/`, and an
  /// extension without a dot gets one.
  ///
  /// `path` has room for all components and four characters more; its size is not known here.
  FIO_EXPORT static void makepath(char* path, char const* drive, char const* dir, char const* fname, char const* ext);

  /// Divides a text as `FIO_PATH::split_full_path` does, without normalising anything. The drive is always empty.
  ///
  ///     "a\b//c.tar.gz"   => dir "a\b//", fname "c.tar", ext ".gz"
  ///
  /// `drive`, `dir`, `fname` and `ext` are buffers of 1, 1025, 1025 and 257 bytes, or null where the part is not wanted.
  ///
  /// @return false, with all parts empty, for a text that is null, empty or longer than 1023 characters
  FIO_EXPORT static bool splitpath(char const* path, char* drive, char* dir, char* fname, char* ext);

  /// The same into strings. All four are assigned, on failure too. `path` may be the text of one of them.
  FIO_EXPORT static bool splitpath(char const* path, std::string& drive, std::string& dir, std::string& fname,
                                   std::string& ext);

  /// A copy of `text`, unchanged: names on this platform have case.
  FIO_EXPORT static std::string tolower(std::string const& text);
  /// @}

  /// @name Find handles
  /// A walk over the entries of one directory that match a wildcard.
  ///
  ///     _finddata_t entry;
  ///     long const handle = FIO_FILE_SYSTEM::findfirst("rtl/*.v", &entry);
  ///     if (handle != -1) {
  ///       do {
  ///         std::puts(entry.name);
  ///       } while (FIO_FILE_SYSTEM::findnext(handle, &entry) == 0);
  ///     }
  ///     FIO_FILE_SYSTEM::findclose(handle);
  ///
  /// Entries come in the order of the directory, "." and ".." and names with a leading dot among them. The whole text
  /// of an entry, directory included, is compared by `same_file`, so that "dir/ab?" finds "dir/abcd" as well. Wildcards
  /// in the directory are not expanded. An entry whose text holds a `*` or `?` itself is not found by a walk. A pattern
  /// without a directory that begins with a dot is compared with "./name": ".*" finds everything, ".abc*" nothing.
  /// @{

  /// Finds the first entry that `filespec` stands for.
  ///
  /// Without a wildcard this is a status of the entry (links followed), which leaves nothing to release. With one, the
  /// directory is opened and read up to the first match. A wildcard directly under the root finds nothing.
  ///
  /// @return -1 if there is none, or the text has 1024 characters or more; 0 if `filespec` has no wildcard and exists;
  ///         otherwise a handle for `findnext`, to be released by `findclose`. `*fileinfo` is filled unless it is -1.
  /// @throws std::logic_error if `filespec` is null
  /// @throws std::bad_alloc if the handle cannot be stored; the directory then stays open
  FIO_EXPORT static long findfirst(char const* filespec, _finddata_t* fileinfo);

  /// Finds the next entry: 0 with `*fileinfo` filled, otherwise non-zero. Entries that vanish meanwhile are passed
  /// over. A handle of -1, 0 or 1 has no next entry.
  FIO_EXPORT static int findnext(long handle, _finddata_t* fileinfo);

  /// Releases a handle: 1, or -1 if it was -1, 0 or 1 and there was nothing to release.
  FIO_EXPORT static int findclose(long handle);
  /// @}
};

/// The full network form of a path, as the operating-system layer tells it.
///
/// @throws std::logic_error if that layer has no answer
/// @throws std::bad_alloc if the text cannot be stored; in both cases the layer's record is not released
FIO_EXPORT std::string fio_get_unc_full_path(char const* path);

#endif
