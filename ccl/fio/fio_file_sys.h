/// @file
/// `FIO_FILE_SYSTEM`: the library's face towards the operating system, and the find handles.
///
/// A class without instances, used as a namespace. It has no state but what makes temporary names different. It opens,
/// renames, removes and asks; it takes paths apart and puts them together as C-strings; and it walks the entries of a
/// directory that match a wildcard.
///
///     FIO_FILE_SYSTEM::exists("rtl/top.v")        => true if there is such an entry
///     FIO_FILE_SYSTEM::exists("rtl/*.v")          => true if any entry matches
///     FIO_FILE_SYSTEM::same_file("a.txt", "*.txt") => true
///
/// Names are bytes in no particular encoding. Relative paths start at the current directory of the process.
///
/// @par Failure
/// Failures are told by the result alone. A `bool` is true on success; an `int` is the system's, 0 on success. Nothing
/// is logged or retried, unless an operation says so. What another process does meanwhile is not tolerated beyond what
/// a system call offers, except that `findnext` passes over entries that vanish. `errno` is left as the last system
/// call set it: read it at once. `std::bad_alloc` leaves an operation that answers a string or starts a walk, and
/// `std::logic_error` one that is said to refuse a null pointer.
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
#include <memory>
#include <string>

#include "ccl/fio/fio_errc_codes.h"
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
///
/// @copydetails fio_file_sys.h
class FIO_FILE_SYSTEM {
public:
  explicit FIO_FILE_SYSTEM() = delete;

  /// @name Opening and attributes
  /// @{

  /// `osi_open`: a descriptor, or negative on failure.
  [[nodiscard]] FIO_EXPORT static int open(char const* path, int flags, int mode);

  /// `osi_fopen`: a stream that the caller closes, or null.
  [[nodiscard]] FIO_EXPORT static std::FILE* fopen(char const* path, char const* mode);

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
  [[nodiscard]] FIO_EXPORT static std::string get_current_directory();
  /// @}

  /// @name Renaming
  /// The system's `rename`: an existing target is replaced as one step, and a target on another file system is a
  /// failure. True on success.
  /// @{

  /// Renames a file or a directory.
  FIO_EXPORT static bool posix_rename(char const* from, char const* to);

  /// The same as `posix_rename`.
  FIO_EXPORT static bool rename(char const* from, char const* to);

  /// The same with strings.
  FIO_EXPORT static bool rename(std::string const& from, std::string const& to);

  /// The same with paths.
  FIO_EXPORT static bool rename(FIO_PATH const& from, FIO_PATH const& to);
  /// @}

  /// @name Removing
  /// The system's `remove`, of a file or an empty directory. True on success. A null pointer answers false without a
  /// call, but for `posix_remove`, which passes it on. A symbolic link goes itself; what it leads to stays.
  /// @{

  /// Removes a file or an empty directory. False, without a call, for null.
  FIO_EXPORT static bool remove(char const* path);

  /// The same with a string.
  FIO_EXPORT static bool remove(std::string const& path);

  /// The same with a path.
  FIO_EXPORT static bool remove(FIO_PATH const& path);

  /// The same as `remove`.
  FIO_EXPORT static bool native_remove(char const* path);

  /// The same, but null is passed on to the system, which fails.
  FIO_EXPORT static bool posix_remove(char const* path);

  /// The same as `remove` with a string.
  FIO_EXPORT static bool unc_native_remove(std::string const& path);

  /// Removes what is there: true as well if `exists` says that nothing is.
  FIO_EXPORT static bool remove_if_exists(std::string const& path);
  /// @}

  /// @name Status
  /// Whether a symbolic link is followed is decided by `osi_status`.
  /// @{

  /// `osi_status`: fills `*buffer` and answers true, or answers false.
  [[nodiscard]] FIO_EXPORT static bool status(char const* path, struct stat* buffer);

  /// The same with a string.
  [[nodiscard]] FIO_EXPORT static bool status(std::string const& path, struct stat* buffer);

  /// The same with a path.
  [[nodiscard]] FIO_EXPORT static bool status(FIO_PATH const& path, struct stat* buffer);

  /// Whether the mode has the bit 0x4000. Directories have it, and so do block devices and sockets. False on failure.
  [[nodiscard]] FIO_EXPORT static bool is_directory(char const* path);

  /// Whether the mode has the bit 0x8000. Regular files have it, and so do symbolic links and sockets. False on
  /// failure.
  [[nodiscard]] FIO_EXPORT static bool is_regular_file(char const* path);

  /// Whether the last modification lies before `*limit`, in seconds since the epoch. A null `limit` means any age: the
  /// answer is true and the file is not looked at. False if the status cannot be read.
  [[nodiscard]] FIO_EXPORT static bool is_older(char const* path, long const* limit);

  /// Whether `osi_exists` finds anything at `path`. With `*` or `?` anywhere in it: whether `findfirst` finds an entry
  /// that matches, which may throw `std::bad_alloc`. False, without a system call, for null and for 1024 characters or
  /// more.
  [[nodiscard]] FIO_EXPORT static bool exists(char const* path);

  /// The same with a path.
  [[nodiscard]] FIO_EXPORT static bool exists(FIO_PATH const& path);

  /// Whether `name` matches `pattern`: the one wildcard test of the library.
  ///
  /// `*` stands for any run of bytes and `?` for any byte; everything else, `/` and a leading dot included, stands for
  /// itself. The test has rules of its own:
  ///
  ///     "abcdef", "abc"        => true: a pattern matches as a prefix until a `*` was met
  ///     "a.txt.bak", "*.txt"   => false: behind a `*` the pattern must end with the name
  ///     "ab", "ab*"            => false: a `*` behind other text is reached only with name left...
  ///     "abc", "ab*c"          => true: ...even if it stands for nothing then
  ///     "xa", "*a*"            => false: for the same reason
  ///     "", "**"               => false
  ///     "", "*"                => true
  ///
  /// Where the text between two `*` first fits, it is taken; no other place is tried. Linear in the length of the name
  /// for each piece between two `*`, unless the piece has a `?`.
  [[nodiscard, gnu::nonnull(2)]] FIO_EXPORT static bool same_file(char const* name, char const* pattern);
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
  [[gnu::nonnull(1)]] FIO_EXPORT static void makepath(char* path, char const* drive, char const* dir, char const* fname,
                                                      char const* ext);

  /// Divides a text as `FIO_PATH::split_full_path` does, without normalising anything. The drive is always empty.
  ///
  ///     "a\b//c.tar.gz"   => dir "a\b//", fname "c.tar", ext ".gz"
  ///
  /// `drive`, `dir`, `fname` and `ext` are buffers of 1, 1025, 1025 and 257 bytes, or null where the part is not
  /// wanted.
  ///
  /// @return false, with all parts empty, for a text that is null, empty or longer than 1023 characters
  FIO_EXPORT static bool splitpath(char const* path, char* drive, char* dir, char* fname, char* ext);

  /// The same into strings. All four are assigned, on failure too. `path` may be the text of one of them.
  FIO_EXPORT static bool splitpath(char const* path, std::string& drive, std::string& dir, std::string& fname,
                                   std::string& ext);

  /// A copy of `text`, unchanged: names on this platform have case.
  [[nodiscard]] FIO_EXPORT static std::string tolower(std::string const& text);
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
  /// A directory that cannot be read looks empty to a walk, and to `copy_dir` and `is_directory_empty`, which are built
  /// on walks. One that may be listed and searched has at least ".", so this tests it first, but for the root:
  ///
  ///     if (!FIO_FILE_SYSTEM::exists("rtl/*"))   // missing, no directory, or no permission: see errno
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
  [[nodiscard]] FIO_EXPORT static long findfirst(char const* filespec, _finddata_t* fileinfo);

  /// Finds the next entry: 0 with `*fileinfo` filled, otherwise non-zero. Entries that vanish meanwhile are passed
  /// over. A handle of -1, 0 or 1 has no next entry.
  FIO_EXPORT static int findnext(long handle, _finddata_t* fileinfo);

  /// Releases a handle: 1, or -1 if it was -1, 0 or 1 and there was nothing to release.
  FIO_EXPORT static int findclose(long handle);
  /// @}

  /// @name Creating and copying
  /// True on success. Nothing is cleaned up after a failure: what was made or copied before it stays. A text of 1024
  /// characters or more is a failure.
  /// @{

  /// Makes a directory with all its missing parents, each by `mkdir`. Other processes may do the same at the same time:
  /// a level that cannot be made is right if it is a directory then. Otherwise two debug messages say why it was not.
  /// The levels are those of a `FIO_PATH`, so a `\` divides them too, and a level with a wildcard is there if anything
  /// matches. A text of exactly 1023 characters without a `/` at its end makes nothing.
  ///
  /// `errno` is that of the last test and not that of `mkdir`, so it says ENOENT where permission was missing. The
  /// standard library tells why a directory cannot be made:
  ///
  ///     if (!FIO_FILE_SYSTEM::create(path)) {
  ///       std::error_code why;
  ///       std::filesystem::create_directories(path, why);   // why.message() => "Permission denied"
  ///     }
  ///
  /// @return whether anything stands at `path`, as it was given, afterwards: made by this call or not, directory or not
  FIO_EXPORT static bool create(std::string const& path);

  /// Sees to it that there is a file: makes its directory by `create`, and an empty file if there is none. An existing
  /// file keeps its content and its times. A text without a directory is a failure.
  FIO_EXPORT static bool touch(std::string const& path);

  /// Copies the content of a file, and with `preserve_time` the times of its last access and modification, in whole
  /// seconds.
  ///
  /// A copy may so look older than its source. The exact time of the modification takes one line more:
  ///
  ///     std::filesystem::last_write_time(target, std::filesystem::last_write_time(source));
  ///
  /// With `overwrite` an existing target is removed first. A target that stands there all the same, because it could
  /// not be removed or because `overwrite` is false, is left as it is but for its times, and that is a success. The
  /// content is forced to stable storage; whether that fails is not told. Mode and owner are not copied, and a link is
  /// read through. A failed copy leaves its partial target.
  FIO_EXPORT static bool copy(std::string const& source, std::string const& target, bool overwrite, bool preserve_time);

  /// Removes the source after a `copy` that succeeded.
  ///
  /// @warning That copy succeeds and copies nothing where a target exists that is not to be overwritten, cannot be
  /// removed, or is the source itself under another name: the source is lost then.
  FIO_EXPORT static bool move(std::string const& source, std::string const& target, bool overwrite, bool preserve_time);

  /// Copies every entry that matches `source`, which may hold a wildcard, into a directory, which is made if it is
  /// missing. No match at all is a success. Ends at the first failure. A directory among the matches is one, unless its
  /// name exists in the target and stays there, as "." and ".." always do: with `preserve_time` those are given their
  /// times.
  FIO_EXPORT static bool copy_files(std::string const& source, std::string const& target_directory, bool overwrite,
                                    bool preserve_time);

  /// Copies what a walk finds in a directory, and below it, into another one, which is made if it is missing. Links are
  /// followed; one that leads nowhere, and a name with a wildcard, is not found. Ends at the first failure. A source
  /// that cannot be opened counts as empty. A target inside the source is copied into itself until its paths are too
  /// long.
  FIO_EXPORT static bool copy_dir(std::string const& source, std::string const& target, bool overwrite,
                                  bool preserve_time);
  /// @}

  /// @name Temporary files
  /// @{

  /// A name for a temporary file, ".korvane.N.tmp" with a hexadecimal number, in the directory of `path`: everything
  /// behind the last separator is dropped.
  ///
  ///     "/tmp/x"   => "/tmp/.korvane.5A81F3C2.tmp"
  ///     "/tmp"     => "/.korvane.5A81F3C2.tmp"
  ///     ""         => ".korvane.5A81F3C2.tmp"
  ///
  /// Nothing is made, and nothing had this name when it was looked for, unless a thousand names in a row were taken or
  /// the whole is too long for a path. Host, time of the first call, thread and number of the call go into the name. A
  /// caller that needs the name for itself opens it with `O_CREAT | O_EXCL`. May be called from several threads at
  /// once. `path` is not null.
  [[nodiscard, gnu::nonnull]] FIO_EXPORT static std::string get_tmp_path(char const* path);

  /// Removes temporary files that are older than `age_seconds` below `directory`, also where links to directories lead,
  /// by `remove_recursively`.
  ///
  /// The time is that of the file system: a file is made in the directory of `directory`, as `get_tmp_path` reads it,
  /// and removed again. What is removed is what matches `pattern`; null stands for ".korvane.*.tmp".
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
  /// @return false if the time could not be told, and nothing was removed; otherwise true, whatever the removal did
  [[gnu::nonnull(1)]] FIO_EXPORT static bool remove_temp_files(char const* directory, int age_seconds,
                                                               char const* pattern);
  /// @}

  /// @name Removing in bulk
  /// @warning Links to directories are followed: what they lead to is removed, and then the link. Links that lead
  /// nowhere and names with a wildcard are not found by a walk, and keep their directory.
  /// @{

  /// Removes every entry that matches `filespec`, up to the first that cannot be removed: false then. No match is a
  /// success. With "dir/*" the entries "." and ".." are matches, and cannot be removed.
  ///
  /// @throws std::logic_error if `filespec` is null
  FIO_EXPORT static bool remove_files(char const* filespec);

  /// Removes a tree, what is in the directories that its links lead to included, or a single file.
  ///
  /// Where something cannot be removed it goes on. To remove a tree and leave alone what its links lead to:
  ///
  ///     std::filesystem::remove_all(path);
  ///
  /// With a `pattern` only the files whose name matches are tried, and with a `limit` only what was last modified
  /// before that second. Every directory is entered. It is tried behind its contents if it is old enough by then, which
  /// a removal in it prevents, and if the name of the last entry that was read in it matches. The single file, and a
  /// directory that cannot be opened, have no such entry: an empty name is matched for them, which "*" does and "*.txt"
  /// does not.
  ///
  /// @return false if anything that was tried could not be removed, or if the current directory could not be read
  ///         before and entered again behind the work; and, with nothing done, for null, a missing path, 1024
  ///         characters or more, and exactly "." or ".."
  FIO_EXPORT static bool remove_recursively(char const* path, char const* pattern, long const* limit);

  /// Does the work of `remove_recursively`, links included, without its checks. `path` has its content again afterwards.
  FIO_EXPORT static bool do_remove_recursively(std::string& path, char const* pattern, long const* limit);

  /// Whether a walk finds no entry but "." and ".." in what `is_directory` says yes to. True for one that cannot be
  /// opened.
  [[nodiscard]] FIO_EXPORT static bool is_directory_empty(char const* path);

  /// Removes the directories of a tree, and those that its links lead to, in which a walk finds nothing.
  ///
  /// It goes from the bottom up, and takes the tree itself only with `remove_root`. A link to a directory that is empty
  /// by then goes itself; its target stays. A directory that holds a file stays, which is no error.
  ///
  /// @return null, or the first error, which stops nothing: not a directory, cannot be opened, cannot be removed. Later
  ///         errors go to the debug log
  FIO_EXPORT static std::unique_ptr<FIO_ERRC> remove_empty_subdirectories(std::string const& path, bool remove_root);
  /// @}
};

/// The full network form of a path, as the operating-system layer tells it.
///
/// @throws std::logic_error if that layer has no answer
/// @throws std::bad_alloc if the text cannot be stored; in both cases the layer's record is not released
[[nodiscard]] FIO_EXPORT std::string fio_get_unc_full_path(char const* path);

#endif
