/// @file
/// Declares `FIO_FILE_SYSTEM`: file operations, path strings and find handles.
///
/// The class has no instances and serves as a namespace. Its only state is what makes temporary names differ. It opens,
/// renames, removes and examines files; it parses and composes paths as C-strings; and it iterates over the entries of
/// a directory that match a wildcard.
///
///     FIO_FILE_SYSTEM::exists("rtl/top.v")        => true if there is such an entry
///     FIO_FILE_SYSTEM::exists("rtl/*.v")          => true if any entry matches
///     FIO_FILE_SYSTEM::same_file("a.txt", "*.txt") => true
///
/// Names are bytes in no particular encoding. Relative paths start at the current directory of the process.
///
/// @par Failure
/// Failures are reported by the result alone. A `bool` is true on success; an `int` is the system's, 0 on success.
/// Nothing is logged or retried, unless an operation says so. Concurrent changes by other processes are not tolerated
/// beyond what a system call offers, except that `findnext` skips entries that vanish. `errno` is left as the last
/// system call set it: read it at once. An operation that returns a string or iterates over a directory may throw
/// `std::bad_alloc`, and one that is documented to reject a null pointer throws `std::logic_error`.
///
/// @par Overloads
/// An overload for a `FIO_PATH` takes its string, with the length check of that class, which may write a debug message,
/// and then does what the overload for a C-string does. Where there is no overload for a string, a `std::string` is
/// converted to a `FIO_PATH`, with its separators normalised: pass `c_str()` to test the string as it is. Strings of
/// 1024 characters or more are rejected only where an operation says so.
///
/// @par Thread safety
/// Every operation may be called from any thread. The current directory belongs to the process and is not guarded. A
/// find handle may be used by one thread at a time.

#ifndef CCL_FIO_FIO_FILE_SYS_H
#define CCL_FIO_FIO_FILE_SYS_H

#include <sys/stat.h>

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <memory>
#include <string>

#include "ccl/fio/fio_errc_codes.h"
#include "ccl/fio/fio_export.h"

class FIO_PATH;

/// Describes an entry that `findfirst` or `findnext` found.
struct _finddata_t {       // NOLINT(bugprone-reserved-identifier): the name is shared with other platforms
  std::uint32_t attrib;    ///< 0x10 if `is_directory` is true of it, else 0x01 if it is not writable, else 0
  std::time_t time_create; ///< never written by this library
  std::time_t time_access; ///< never written by this library
  std::time_t time_write;  ///< time of the last modification, in seconds since the epoch
  std::int64_t size;       ///< size in bytes
  char name[260];          ///< the name without a directory, truncated to 259 bytes, always terminated by a NUL
};

/// Provides the operations on files, directories and path strings.
///
/// @copydetails fio_file_sys.h
class FIO_FILE_SYSTEM {
public:
  explicit FIO_FILE_SYSTEM() = delete;

  /// @name Opening and attributes
  /// @{

  /// Opens a file by `osi_open`. Returns a descriptor, or a negative value on failure.
  [[nodiscard]] FIO_EXPORT static int open(char const* path, int flags, int mode);

  /// Opens a file by `osi_fopen`. Returns a stream, which the caller closes, or null on failure.
  [[nodiscard]] FIO_EXPORT static std::FILE* fopen(char const* path, char const* mode);

  /// Changes the mode of a file by `osi_chmod`. Returns true on success.
  FIO_EXPORT static bool chmod(char const* path, int mode);
  /// @}

  /// @name Directories
  /// @{

  /// Makes a directory by `osi_mkdir`, which chooses the mode. Returns 0 on success.
  FIO_EXPORT static int mkdir(char const* path);

  /// Removes an empty directory by `osi_rmdir`. Returns 0 on success.
  FIO_EXPORT static int rmdir(char const* path);

  /// Changes the current directory by `osi_chdir`. Returns 0 on success, whereas `set_current_directory` returns true.
  FIO_EXPORT static int change_current_directory(char const* path);

  /// Changes the current directory by `osi_chdir`. Returns true on success.
  FIO_EXPORT static bool set_current_directory(std::string const& path);

  /// Reads the current directory into `buffer` by `osi_getcwd`. Returns `buffer`, or null on failure.
  FIO_EXPORT static char* get_current_directory(char* buffer, unsigned long size);

  /// Returns the length of the string in `buffer` after `osi_getcwd`, or 0 if `buffer` is null. A failure of that call
  /// is not detected: the result is then the length of what the buffer held.
  ///
  /// @warning Do not pass null: the call is made all the same, and what a layer allocates then, as the C library does,
  /// is never freed.
  FIO_EXPORT static unsigned long get_current_directory(unsigned long size, char* buffer);

  /// Returns the current directory, or an empty string if it cannot be read or has 1024 characters or more.
  [[nodiscard]] FIO_EXPORT static std::string get_current_directory();
  /// @}

  /// @name Renaming
  /// Each calls the system's `rename`: an existing target is replaced atomically, and a target on another file system
  /// is a failure. Returns true on success.
  /// @{

  /// Renames a file or a directory.
  FIO_EXPORT static bool posix_rename(char const* from, char const* to);

  /// Renames a file or a directory, as `posix_rename` does.
  FIO_EXPORT static bool rename(char const* from, char const* to);

  /// Renames a file or a directory, given as strings.
  FIO_EXPORT static bool rename(std::string const& from, std::string const& to);

  /// Renames a file or a directory, given as paths.
  FIO_EXPORT static bool rename(FIO_PATH const& from, FIO_PATH const& to);
  /// @}

  /// @name Removing
  /// Each calls the system's `remove`, for a file or an empty directory. Returns true on success. For a null pointer
  /// all but `posix_remove`, which passes it on, return false without a system call. A symbolic link is removed itself;
  /// its target remains.
  /// @{

  /// Removes a file or an empty directory. Returns false, without a system call, for null.
  FIO_EXPORT static bool remove(char const* path);

  /// Removes a file or an empty directory, given as a string.
  FIO_EXPORT static bool remove(std::string const& path);

  /// Removes a file or an empty directory, given as a path.
  FIO_EXPORT static bool remove(FIO_PATH const& path);

  /// Removes a file or an empty directory, as `remove` does.
  FIO_EXPORT static bool native_remove(char const* path);

  /// Removes a file or an empty directory, but passes null on to the system, which fails.
  FIO_EXPORT static bool posix_remove(char const* path);

  /// Removes a file or an empty directory, as `remove` does with a string.
  FIO_EXPORT static bool unc_native_remove(std::string const& path);

  /// Removes a file or an empty directory, if there is one. Returns true as well if `exists` returns false.
  FIO_EXPORT static bool remove_if_exists(std::string const& path);
  /// @}

  /// @name Status
  /// Whether a symbolic link is followed is decided by `osi_status`.
  /// @{

  /// Reads the status of a file into `*buffer` by `osi_status`. Returns true on success.
  [[nodiscard]] FIO_EXPORT static bool status(char const* path, struct stat* buffer);

  /// Reads the status of a file, given as a string.
  [[nodiscard]] FIO_EXPORT static bool status(std::string const& path, struct stat* buffer);

  /// Reads the status of a file, given as a path.
  [[nodiscard]] FIO_EXPORT static bool status(FIO_PATH const& path, struct stat* buffer);

  /// Returns true if the mode has the bit 0x4000. Directories have it, and so do block devices and sockets. False on
  /// failure.
  [[nodiscard]] FIO_EXPORT static bool is_directory(char const* path);

  /// Returns true if the mode has the bit 0x8000. Regular files have it, and so do symbolic links and sockets. False on
  /// failure.
  [[nodiscard]] FIO_EXPORT static bool is_regular_file(char const* path);

  /// Returns true if the last modification precedes `*limit`, in seconds since the epoch. A null `limit` means any age:
  /// the result is true and the file is not examined. False if the status cannot be read.
  [[nodiscard]] FIO_EXPORT static bool is_older(char const* path, long const* limit);

  /// Returns true if `osi_exists` finds anything at `path`. If `path` contains `*` or `?`, returns true if `findfirst`
  /// finds a match instead, which may throw `std::bad_alloc`. Returns false, without a system call, for null and for
  /// 1024 characters or more.
  [[nodiscard]] FIO_EXPORT static bool exists(char const* path);

  /// Returns true if anything exists at the path, as for its string.
  [[nodiscard]] FIO_EXPORT static bool exists(FIO_PATH const& path);

  /// Returns true if `name` matches `pattern`. This is the one wildcard test of the library.
  ///
  /// `*` matches any run of bytes and `?` any byte; everything else, including `/` and a leading dot, matches itself.
  /// The test has rules of its own:
  ///
  ///     "abcdef", "abc"        => true: a pattern matches as a prefix until a `*` was met
  ///     "a.txt.bak", "*.txt"   => false: behind a `*` the pattern must end with the name
  ///     "ab", "ab*"            => false: a `*` behind other text is reached only with name left...
  ///     "abc", "ab*c"          => true: ...even if it stands for nothing then
  ///     "xa", "*a*"            => false: for the same reason
  ///     "", "**"               => false
  ///     "", "*"                => true
  ///
  /// The first place where the part between two `*` matches is taken; no other one is tried. Complexity: linear in the
  /// length of the name for each part between two `*`, unless the part has a `?`.
  [[nodiscard, gnu::nonnull(2)]] FIO_EXPORT static bool same_file(char const* name, char const* pattern);
  /// @}

  /// @name Path strings
  /// None of these operations touches the disk or, unless it makes strings, allocates. No buffer may overlap a string
  /// that is read.
  /// @{

  /// Writes the string that four components form, terminated by a NUL. Each component may be null.
  ///
  ///     "C", "a", "b", "c"      => "C:a/b.c"
  ///     "", "a\", "b", ".c"     => "a\b.c"
  ///
  /// Only the first character of the drive is used. A directory that ends in neither separator gets a `/`, and an
  /// extension without a dot gets one.
  ///
  /// @pre `path` has room for all components and four characters more; its size is not checked.
  [[gnu::nonnull(1)]] FIO_EXPORT static void makepath(char* path, char const* drive, char const* dir, char const* fname,
                                                      char const* ext);

  /// Parses a string as `FIO_PATH::split_full_path` does, without normalising anything. The drive is always empty.
  ///
  ///     "a\b//c.tar.gz"   => dir "a\b//", fname "c.tar", ext ".gz"
  ///
  /// @return false, with all components empty, for a string that is null, empty or longer than 1023 characters
  /// @pre `drive`, `dir`, `fname` and `ext` are buffers of 1, 1025, 1025 and 257 bytes, or null where the component is
  /// not wanted.
  FIO_EXPORT static bool splitpath(char const* path, char* drive, char* dir, char* fname, char* ext);

  /// Parses a string into strings. All four are assigned, on failure too. `path` may point into one of them.
  FIO_EXPORT static bool splitpath(char const* path, std::string& drive, std::string& dir, std::string& fname,
                                   std::string& ext);

  /// Returns a copy of `text`, unchanged: names on this platform are case-sensitive.
  [[nodiscard]] FIO_EXPORT static std::string tolower(std::string const& text);
  /// @}

  /// @name Find handles
  /// A find handle iterates over the entries of one directory that match a wildcard.
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
  /// A directory that cannot be read appears to be empty, also to `copy_dir` and `is_directory_empty`, which use find
  /// handles. A directory that may be listed and searched has at least the entry ".", so this tests it first, except
  /// for the root:
  ///
  ///     if (!FIO_FILE_SYSTEM::exists("rtl/*"))   // missing, no directory, or no permission: see errno
  ///
  /// Entries come in the order of the directory, including ".", ".." and names with a leading dot. The path of an
  /// entry, with its directory, is matched by `same_file`, so that "dir/ab?" finds "dir/abcd" as well. Wildcards in the
  /// directory are not expanded. An entry whose path itself contains `*` or `?` is not found. A pattern without a
  /// directory that begins with a dot is matched against "./name": ".*" finds everything, ".abc*" nothing.
  /// @{

  /// Finds the first entry that matches `filespec`.
  ///
  /// Without a wildcard this reads the status of the entry, following links, and leaves nothing to release. With one,
  /// the directory is opened and read up to the first match. A wildcard directly under the root finds nothing.
  ///
  /// @return -1 if there is none, or if `filespec` has 1024 characters or more; 0 if `filespec` has no wildcard and
  ///         exists; otherwise a handle for `findnext`, to be released by `findclose`. `*fileinfo` is filled unless the
  ///         result is -1.
  /// @throws std::logic_error if `filespec` is null
  /// @throws std::bad_alloc if the handle cannot be stored; the directory then stays open
  [[nodiscard]] FIO_EXPORT static long findfirst(char const* filespec, _finddata_t* fileinfo);

  /// Finds the next entry. Returns 0 with `*fileinfo` filled, otherwise non-zero. Entries that vanish meanwhile are
  /// skipped. A handle of -1, 0 or 1 has no next entry.
  FIO_EXPORT static int findnext(long handle, _finddata_t* fileinfo);

  /// Releases a handle. Returns 1, or -1 if it was -1, 0 or 1 and there was nothing to release.
  FIO_EXPORT static int findclose(long handle);
  /// @}

  /// @name Creating and copying
  /// Each returns true on success. Nothing is cleaned up after a failure: what was made or copied before it remains. A
  /// string of 1024 characters or more is a failure.
  /// @{

  /// Makes a directory with all its missing parents, each by `mkdir`. Other processes may do the same at the same time:
  /// a level that cannot be made is accepted if it is a directory by then. Otherwise two debug messages report why it
  /// was not made. The levels are those of a `FIO_PATH`, so `\` separates them too, and a level with a wildcard exists
  /// if anything matches. A string of exactly 1023 characters that does not end in `/` makes nothing.
  ///
  /// `errno` is that of the last test and not that of `mkdir`, so it is ENOENT where permission was denied. The
  /// standard library reports why a directory cannot be made:
  ///
  ///     if (!FIO_FILE_SYSTEM::create(path)) {
  ///       std::error_code why;
  ///       std::filesystem::create_directories(path, why);   // why.message() => "Permission denied"
  ///     }
  ///
  /// @return true if anything exists at `path`, as it was given, afterwards: made by this call or not, directory or not
  FIO_EXPORT static bool create(std::string const& path);

  /// Ensures that a file exists: makes its directory by `create`, and an empty file if there is none. An existing file
  /// keeps its content and its times. A string without a directory is a failure.
  FIO_EXPORT static bool touch(std::string const& path);

  /// Copies the content of a file and, with `preserve_time`, the times of its last access and modification, in whole
  /// seconds.
  ///
  /// A copy may therefore look older than its source. One more line copies the exact time of the modification:
  ///
  ///     std::filesystem::last_write_time(target, std::filesystem::last_write_time(source));
  ///
  /// With `overwrite` an existing target is removed first. A target that still exists then, because it could not be
  /// removed or because `overwrite` is false, is left unchanged but for its times, and that is a success. The content
  /// is forced to stable storage; a failure to do so is not reported. Mode and owner are not copied, and a source that
  /// is a link is followed. A failed copy leaves its partial target.
  FIO_EXPORT static bool copy(std::string const& source, std::string const& target, bool overwrite, bool preserve_time);

  /// Copies a file by `copy` and removes the source if that succeeded.
  ///
  /// @warning `copy` succeeds and copies nothing where a target exists that is not to be overwritten, cannot be
  /// removed, or is the source itself under another name: the source is lost then.
  FIO_EXPORT static bool move(std::string const& source, std::string const& target, bool overwrite, bool preserve_time);

  /// Copies every entry that matches `source`, which may contain a wildcard, into a directory, which is made if it is
  /// missing. No match is a success. Stops at the first failure. A directory among the matches is a failure, unless its
  /// name exists in the target directory and remains there, as "." and ".." always do: with `preserve_time` that entry
  /// gets the times of the match.
  FIO_EXPORT static bool copy_files(std::string const& source, std::string const& target_directory, bool overwrite,
                                    bool preserve_time);

  /// Copies the entries of a directory, and of those below it, into another one, which is made if it is missing. Links
  /// are followed; one without a target, and a name with a wildcard, is not found. Stops at the first failure. A source
  /// that cannot be opened counts as empty. A target inside the source is copied into itself until its paths are too
  /// long.
  FIO_EXPORT static bool copy_dir(std::string const& source, std::string const& target, bool overwrite,
                                  bool preserve_time);
  /// @}

  /// @name Temporary files
  /// @{

  /// Returns a name for a temporary file, ".korvane.N.tmp" with a hexadecimal number, in the directory of `path`:
  /// everything after the last separator is dropped.
  ///
  ///     "/tmp/x"   => "/tmp/.korvane.5A81F3C2.tmp"
  ///     "/tmp"     => "/.korvane.5A81F3C2.tmp"
  ///     ""         => ".korvane.5A81F3C2.tmp"
  ///
  /// Nothing is made, and nothing had this name when it was tested, unless a thousand names in a row were taken or the
  /// whole is too long for a path. The name is made from host, time of the first call, thread and number of the call. A
  /// caller that needs the name exclusively opens it with `O_CREAT | O_EXCL`. May be called from several threads at
  /// once.
  ///
  /// @pre `path` is not null.
  [[nodiscard, gnu::nonnull]] FIO_EXPORT static std::string get_tmp_path(char const* path);

  /// Removes temporary files that are older than `age_seconds` below `directory`, also where links to directories lead,
  /// by `remove_recursively`.
  ///
  /// The time is that of the file system: a file is made in the directory of `directory`, as `get_tmp_path` parses it,
  /// and removed again. Only what matches `pattern` is removed; null means ".korvane.*.tmp".
  ///
  /// What could not be removed is not reported. This loop reports it and follows no links; its times are those of the
  /// local clock:
  ///
  ///     long const limit = std::time(nullptr) - age_seconds;
  ///     for (FIO_DIRECTORY_ENTRY const& entry : FIO_RECURSIVE_DIRECTORY_ITERATOR(directory)) {
  ///       if (FIO_FILE_SYSTEM::same_file(entry.derive_path().filename().c_str(), ".korvane.*.tmp") &&
  ///           FIO_FILE_SYSTEM::is_older(entry.path.c_str(), &limit) && !FIO_FILE_SYSTEM::remove(entry.path)) {
  ///         std::perror(entry.path.c_str());
  ///       }
  ///     }
  ///
  /// @return false if the time could not be read, and nothing was removed; otherwise true, whatever the removal did
  [[gnu::nonnull(1)]] FIO_EXPORT static bool remove_temp_files(char const* directory, int age_seconds,
                                                               char const* pattern);
  /// @}

  /// @name Removing in bulk
  /// @warning Links to directories are followed: the content of the target is removed, and then the link. Links without
  /// a target and names with a wildcard are not found, and so their directory cannot be removed.
  /// @{

  /// Removes every entry that matches `filespec`, up to the first that cannot be removed: returns false then. No match
  /// is a success. With "dir/*" the entries "." and ".." match, and cannot be removed.
  ///
  /// @throws std::logic_error if `filespec` is null
  FIO_EXPORT static bool remove_files(char const* filespec);

  /// Removes a tree, including the content of the directories that its links lead to, or a single file.
  ///
  /// Failures do not stop the removal. To remove a tree without following its links:
  ///
  ///     std::filesystem::remove_all(path);
  ///
  /// With a `pattern`, removal is attempted only for files whose name matches, and with a `limit` only for what was
  /// last modified before that second. Every directory is entered. Its own removal is attempted after its content, if
  /// it is old enough by then, which a removal in it prevents, and if the name of the last entry that was read in it
  /// matches. A single file, and a directory that cannot be opened, have no such entry: an empty name is matched for
  /// them, which "*" matches and "*.txt" does not.
  ///
  /// @return false if any attempted removal failed, or if the current directory could not be read before and entered
  ///         again after the work; and, with nothing done, for null, a missing path, 1024 characters or more, and
  ///         exactly "." or ".."
  FIO_EXPORT static bool remove_recursively(char const* path, char const* pattern, long const* limit);

  /// Removes a tree as `remove_recursively` does, following links, but without its checks. `path` has its former
  /// content again afterwards.
  FIO_EXPORT static bool do_remove_recursively(std::string& path, char const* pattern, long const* limit);

  /// Returns true if `is_directory` is true of `path` and a find handle finds no entry in it but "." and "..". True for
  /// a directory that cannot be opened.
  [[nodiscard]] FIO_EXPORT static bool is_directory_empty(char const* path);

  /// Removes the directories of a tree, and of the trees that its links lead to, for which `is_directory_empty` returns
  /// true.
  ///
  /// The tree is searched from the bottom up, and its root is removed only with `remove_root`. A link to a directory
  /// that is empty by then is removed itself; its target remains. A directory that contains a file remains, which is no
  /// error.
  ///
  /// @return null, or the first error, which stops nothing: not a directory, cannot be opened, cannot be removed; later
  ///         errors are written as debug messages
  FIO_EXPORT static std::unique_ptr<FIO_ERRC> remove_empty_subdirectories(std::string const& path, bool remove_root);
  /// @}
};

/// Returns the full network form of a path, from the operating-system layer.
///
/// @throws std::logic_error if that layer returns null
/// @throws std::bad_alloc if the string cannot be stored; in both cases the layer's record is not released
[[nodiscard]] FIO_EXPORT std::string fio_get_unc_full_path(char const* path);

#endif
