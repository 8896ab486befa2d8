/// @file
/// `FIO_FIND`: finding files over a search path, the way a tool resolves its sources, libraries and includes.
///
///     FIO_FIND find("/proj/rtl;/proj/lib", false);
///     find.find_first("top.v")   => "/proj/rtl/top.v" if it exists, else "/proj/lib/top.v", else an empty path
///
/// A search path is a text of directories separated by ";" and nothing else. The object keeps two lists of them, which
/// grow by different rules, and each search uses one of the two:
///
///                                      m_search_list              m_directories
///     used by                          all other searches         `find`
///     white space around an element    trimmed                    kept
///     an element of white space        ends the list              kept
///     the text behind the last ";"     an element                 dropped
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
/// The walk of `find_first()` uses neither: the search path as a whole is its pattern.
///
/// Directories are searched in list order and the first hit ends a search for one file, so an earlier directory shadows
/// a later one. Found is whatever `FIO_FILE_SYSTEM` finds, by `exists` or, in `find_all` and the walk, by `findfirst`:
/// a directory of the name like a file. Missing directories and texts of more than 1023 characters are passed over.
/// Nothing is kept from one search to the next, and the searches change no list.
///
/// @par Failure
/// What is not found is an empty result. `boost::filesystem::filesystem_error` leaves a constructor, `init` and
/// `add_subdirs` when a directory tree to be listed cannot be read, and `std::bad_alloc` any operation that makes a
/// text. Mistakes of the caller go to `err_report_internal_error`, which does not return.
///
/// @par Thread safety
/// An object serves one thread at a time; objects share nothing. Relative directories are relative to the process's
/// current directory at the time of each search.

#ifndef CCL_FIO_FIO_FIND_H
#define CCL_FIO_FIO_FIND_H

#include <list>
#include <string>
#include <vector>

#include "ccl/fio/fio_export.h"
#include "ccl/fio/fio_path.h"

/// A search over a list of directories. Not copied: it may own an open directory.
///
/// @copydetails fio_find.h
class FIO_FIND {
public:
  /// @name Making the lists
  /// @{

  /// Makes both lists from a search path. With `recursive`, all subdirectories follow in the search list.
  FIO_EXPORT FIO_FIND(std::string search_path, bool recursive);

  /// Copies a list of directories into the search list, and all their subdirectories behind them with `recursive`.
  FIO_EXPORT FIO_FIND(std::list<FIO_PATH> const& directories, bool recursive);

  /// Closes the open wildcard search, if any.
  FIO_EXPORT ~FIO_FIND();

  FIO_FIND(FIO_FIND const&) = delete;
  FIO_FIND& operator=(FIO_FIND const&) = delete;

  /// Replaces the search path and makes the search list anew, with all subdirectories if the object is recursive.
  /// `m_directories` and an open walk stay as they are. If listing the subdirectories throws, everything else is done.
  FIO_EXPORT void init(std::string const& search_path);

  /// Makes the search list anew from a list of directories, in the same way.
  FIO_EXPORT void init(std::list<FIO_PATH> const& directories);

  /// Appends the elements of the search path to `m_directories`, the one behind the last ";" excepted. A second call
  /// appends them again.
  FIO_EXPORT void parse_dirs();

  /// Appends a directory to `m_directories`, after a "/" was appended to `dir` itself unless it ends in "/" or "\". An
  /// empty `dir` is a mistake of the caller.
  FIO_EXPORT void push(std::string& dir);

  /// Appends the subdirectories of all directories in the search list, if the object is recursive.
  ///
  /// A directory comes before its contents and siblings come as the file system delivers them. A link to a directory is
  /// listed and not entered. What the list holds that is missing, too long or no directory adds nothing. A subdirectory
  /// whose own text is too long is added as an empty path of illegal length, which no search looks at.
  ///
  /// @throws boost::filesystem::filesystem_error if a directory cannot be read; the list is then unchanged
  FIO_EXPORT void add_subdirs();
  /// @}

  /// @name Relative results
  /// @{

  /// Sets the directory that relative results become absolute to.
  ///
  ///     "/proj"        => true
  ///     "rel/dir"      => false, and the former directory stays in force
  ///     "" or null     => false, and results stay as they are found
  FIO_EXPORT bool set_directory_for_results_to_become_absolute_to(char const* dir);

  /// Makes a relative path absolute against that directory, if one is set. Null is left alone.
  FIO_EXPORT void make_path_absolute_if_relative(FIO_PATH* path) const;

  /// The same for a text. An empty or absolute one stays as it is to the byte, unless it is too long for a path: that
  /// one is taken for an empty relative path.
  FIO_EXPORT void make_path_absolute_if_relative(std::string* path) const;
  /// @}

  /// @name Searching for one file
  /// Each answers the first place that exists, absolute if a directory for that is set, or an empty result. A wildcard
  /// in a name is true of a directory in which anything matches, and the result then has the wildcard still in it.
  ///
  /// `if (found)` is true of an empty path too. Test the text:
  ///
  ///     if (find.find_first("top.v").fullpath().empty())   // not found
  ///
  /// @{

  /// Looks for `name`, directories in it included, in `m_directories`.
  [[nodiscard]] FIO_EXPORT std::string find(std::string const& name) const;

  /// Looks for the file name of `name` in the search list; a directory in `name` is ignored.
  ///
  ///     "sub/x.v" in "/a/"         => "/a/x.v"
  ///     "", "sub/" in "/a/"        => "/a/": without a name the first directory is what is found...
  ///     a name that is too long    => "/a/": ...and such a name is none
  [[nodiscard]] FIO_EXPORT FIO_PATH find_first(std::string const& name) const;

  /// Looks for a relative path below each directory of the search list. Of an absolute path only the name counts.
  ///
  ///     "sub/x.v" in "/a/"    => "/a/sub/x.v"
  ///     "../x.v" in "/a/b/"   => "/a/x.v"
  ///
  /// Writes debug messages about texts that become too long.
  [[nodiscard]] FIO_EXPORT FIO_PATH find_first_relative_path(FIO_PATH const& path) const;
  /// @}

  /// Looks for `name` with each of `extensions` in all directories of the search list.
  ///
  /// An extension replaces the one that `name` has; an empty one removes it. Both may hold wildcards. The results come
  /// directory by directory and, within one, in the order of `extensions`. Nothing removes duplicates.
  ///
  ///     "top", {"v", ".vhd"}   => "/a/top.v", "/a/top.vhd", "/b/top.v"
  ///     "sub/top", {"v"}       => "/a/sub/top.v": a directory in the name counts here
  ///
  /// @param name           the name to look for
  /// @param extensions     the extensions that it may have, with or without their dots
  /// @param matches        where the results go; null is a mistake of the caller, seen after the search
  /// @param append         whether the results go behind what `matches` holds; otherwise they take its place
  /// @param try_lower_case whether, for each directory and extension that bring nothing, the base, then the extension,
  ///                       and then the whole path are folded to lower case and looked for
  /// @return whether this call found anything
  FIO_EXPORT bool find_all(std::string const& name, std::vector<std::string> const& extensions,
                           std::list<FIO_PATH>* matches, bool append, bool try_lower_case) const;

  /// @name Walking the matches of the search path as one pattern
  /// The search path as a whole is the pattern, as in "/a/*.v". The results are bare names; with a directory for
  /// absolute results they are made absolute against that one and not against "/a".
  /// @{

  /// Starts a walk, after the end of an earlier one: the first name, or an empty text.
  FIO_EXPORT std::string find_first();

  /// The next name, or an empty text at the end or without a walk.
  FIO_EXPORT std::string find_next();

  /// Ends the walk: what `FIO_FILE_SYSTEM::findclose` answers, or -1 without a walk.
  FIO_EXPORT int find_close();
  /// @}

  std::string m_search_path;            ///< the search path as given
  std::list<std::string> m_directories; ///< the directories of `find`
  char m_list_separator = ';';          ///< separates the elements for `parse_dirs`
  char m_separator = '/';               ///< what `push` appends
  char m_alternate_separator = '\\';    ///< a second end that `push` accepts
  std::string m_absolute_to;            ///< where relative results become absolute to, or empty
  std::list<FIO_PATH> m_search_list;    ///< the directories of the other searches
  long m_find_handle = -1;              ///< the open wildcard search, or -1
  bool m_recursive;                     ///< whether `add_subdirs` does anything
};

#endif
