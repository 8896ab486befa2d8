/// @file
/// Declares `FIO_FIND`, which finds files over a search path, as a tool resolves its sources, libraries and includes.
///
///     FIO_FIND find("/proj/rtl;/proj/lib", false);
///     find.find_first("top.v")   => "/proj/rtl/top.v" if it exists, else "/proj/lib/top.v", else an empty path
///
/// A search path is a string of directories separated by ";" and nothing else. The object keeps two lists of them,
/// which are built by different rules, and each search uses one of the two:
///
///                                      m_search_list              m_directories
///     used by                          all other searches         `find`
///     white space around an element    trimmed                    kept
///     an element of white space        ends the list              kept
///     what follows the last ";"        an element                 dropped
///     "/" added at the end             unless it ends in "/"      unless it ends in "/" or "\"
///     subdirectories                   at the end, on request     never
///     made from a list of paths        a copy of it               empty
///
///     " /a ; /b/ "   => "/a/", "/b/"                              " /a /"
///     "/a;;/b;"      => "/a/", "/b/"                              "/a/", "/b/"
///     "/a; ;/b;"     => "/a/"                                     "/a/", " /", "/b/"
///
/// A caller of `find` who wants every directory searched ends the search path with ";".
///
/// `find_first()` uses neither list: the search path as a whole is its pattern.
///
/// Directories are searched in list order and the first match ends a search for one file, so an earlier directory
/// shadows a later one. A file is found by `FIO_FILE_SYSTEM::exists` or, in `find_all` and `find_first()`, by
/// `FIO_FILE_SYSTEM::findfirst`, so a directory of that name is found as well. Missing directories and strings of more
/// than 1023 characters are skipped. Nothing is cached between searches, and the searches change no list.
///
/// @par Failure
/// A search that finds nothing returns an empty result. A constructor, `init` and `add_subdirs` throw
/// `boost::filesystem::filesystem_error` if a directory tree to be listed cannot be read, and any operation that makes
/// a string may throw `std::bad_alloc`. A violated precondition is reported to `err_report_internal_error`, which does
/// not return.
///
/// @par Thread safety
/// An object may be used by one thread at a time; objects share nothing. Relative directories are relative to the
/// process's current directory at the time of each search.

#ifndef CCL_FIO_FIO_FIND_H
#define CCL_FIO_FIO_FIND_H

#include <list>
#include <string>
#include <vector>

#include "ccl/fio/fio_export.h"
#include "ccl/fio/fio_path.h"

/// Searches a list of directories for files. Not copyable: it may own an open directory.
///
/// @copydetails fio_find.h
class FIO_FIND {
public:
  /// @name Building the lists
  /// @{

  /// Builds both lists from a search path. With `recursive`, all subdirectories follow in the search list.
  FIO_EXPORT FIO_FIND(std::string search_path, bool recursive);

  /// Copies a list of directories into the search list, followed by all their subdirectories with `recursive`.
  FIO_EXPORT FIO_FIND(std::list<FIO_PATH> const& directories, bool recursive);

  /// Closes the open wildcard search, if any.
  FIO_EXPORT ~FIO_FIND();

  FIO_FIND(FIO_FIND const&) = delete;
  FIO_FIND& operator=(FIO_FIND const&) = delete;

  /// Replaces the search path and rebuilds the search list, with all subdirectories if the object is recursive.
  /// `m_directories` and an open wildcard search are left unchanged. If listing the subdirectories throws, everything
  /// else is done.
  FIO_EXPORT void init(std::string const& search_path);

  /// Rebuilds the search list from a list of directories, in the same way.
  FIO_EXPORT void init(std::list<FIO_PATH> const& directories);

  /// Appends the elements of the search path to `m_directories`, except for the one after the last ";". A second call
  /// appends them again.
  FIO_EXPORT void parse_dirs();

  /// Appends a directory to `m_directories`, after appending a "/" to `dir` itself unless it ends in "/" or "\".
  ///
  /// @pre `dir` is not empty.
  FIO_EXPORT void push(std::string& dir);

  /// Appends the subdirectories of all directories in the search list, if the object is recursive.
  ///
  /// A directory precedes its contents and siblings come as the file system delivers them. A link to a directory is
  /// listed and not entered. An element of the list that is missing, too long or not a directory adds nothing. A
  /// subdirectory whose own path is too long is added as an empty path of illegal length, which no search uses.
  ///
  /// @throws boost::filesystem::filesystem_error if a directory cannot be read; the list is then unchanged
  FIO_EXPORT void add_subdirs();
  /// @}

  /// @name Relative results
  /// @{

  /// Sets the directory against which relative results are made absolute.
  ///
  ///     "/proj"        => true
  ///     "rel/dir"      => false, and the former directory stays in force
  ///     "" or null     => false, and results stay as they are found
  FIO_EXPORT bool set_directory_for_results_to_become_absolute_to(char const* dir);

  /// Makes a relative path absolute against that directory, if one is set. A null pointer is ignored.
  FIO_EXPORT void make_path_absolute_if_relative(FIO_PATH* path) const;

  /// Makes a string absolute in the same way. An empty or absolute one is left unchanged to the byte, unless it is too
  /// long for a path: it then counts as an empty relative path.
  FIO_EXPORT void make_path_absolute_if_relative(std::string* path) const;
  /// @}

  /// @name Searching for one file
  /// Each returns the first path that exists, made absolute if a directory for that is set, or an empty result. A name
  /// with a wildcard is found in a directory in which anything matches, and the result still contains the wildcard.
  ///
  /// `if (found)` is true of an empty path too. Test the string:
  ///
  ///     if (find.find_first("top.v").fullpath().empty())   // not found
  ///
  /// @{

  /// Searches `m_directories` for `name`, which may contain directories.
  [[nodiscard]] FIO_EXPORT std::string find(std::string const& name) const;

  /// Searches the search list for the file name of `name`; a directory in `name` is ignored.
  ///
  ///     "sub/x.v" in "/a/"         => "/a/x.v"
  ///     "", "sub/" in "/a/"        => "/a/": without a name the first directory is what is found...
  ///     a name that is too long    => "/a/": ...and such a name is none
  [[nodiscard]] FIO_EXPORT FIO_PATH find_first(std::string const& name) const;

  /// Searches below each directory of the search list for a relative path. Of an absolute path only the file name is
  /// used.
  ///
  ///     "sub/x.v" in "/a/"    => "/a/sub/x.v"
  ///     "../x.v" in "/a/b/"   => "/a/x.v"
  ///
  /// Writes debug messages about strings that become too long.
  [[nodiscard]] FIO_EXPORT FIO_PATH find_first_relative_path(FIO_PATH const& path) const;
  /// @}

  /// Searches all directories of the search list for `name` with each of `extensions`.
  ///
  /// An extension replaces the one that `name` has; an empty one removes it. Both may contain wildcards. The results
  /// are in the order of the directories and, for each of them, of `extensions`. Duplicates are not removed.
  ///
  ///     "top", {"v", ".vhd"}   => "/a/top.v", "/a/top.vhd", "/b/top.v"
  ///     "sub/top", {"v"}       => "/a/sub/top.v": a directory in the name counts here
  ///
  /// @param name           the name to search for
  /// @param extensions     the extensions that it may have, with or without their dots
  /// @param matches        receives the results; must not be null, which is checked after the search
  /// @param append         whether the results are appended to the content of `matches`; otherwise they replace it
  /// @param try_lower_case whether, for each directory and extension without a result, the base, then the extension,
  ///                       and then the whole path are converted to lower case and searched for
  /// @return true if this call found anything
  FIO_EXPORT bool find_all(std::string const& name, std::vector<std::string> const& extensions,
                           std::list<FIO_PATH>* matches, bool append, bool try_lower_case) const;

  /// @name Iterating over the matches of the search path as one pattern
  /// The search path as a whole is the pattern, as in "/a/*.v". The results are bare names; with a directory for
  /// absolute results they are made absolute against that one and not against "/a".
  /// @{

  /// Starts an iteration and ends an earlier one. Returns the first name, or an empty string if there is none.
  FIO_EXPORT std::string find_first();

  /// Returns the next name, or an empty string at the end or without an iteration.
  FIO_EXPORT std::string find_next();

  /// Ends the iteration. Returns the result of `FIO_FILE_SYSTEM::findclose`, or -1 without an iteration.
  FIO_EXPORT int find_close();
  /// @}

  std::string m_search_path;            ///< the search path as given
  std::list<std::string> m_directories; ///< the directories of `find`
  char m_list_separator = ';';          ///< separates the elements for `parse_dirs`
  char m_separator = '/';               ///< what `push` appends
  char m_alternate_separator = '\\';    ///< a second ending that `push` accepts
  std::string m_absolute_to;            ///< what relative results are made absolute against, or empty
  std::list<FIO_PATH> m_search_list;    ///< the directories of the other searches
  long m_find_handle = -1;              ///< the open wildcard search, or -1
  bool m_recursive;                     ///< whether `add_subdirs` does anything
};

#endif
