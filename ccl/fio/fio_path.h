/// @file
/// Declares `FIO_PATH`, the path class of the suite.
///
/// A path is a value: four components (drive, directory, base and extension) and the string that they form, which is
/// called the path's string. Every edit changes a component and rebuilds the string at once, so reading the string is
/// free. Strings are bytes in no particular encoding. A NUL ends a string that is parsed, and each component when the
/// string is rebuilt.
///
///     FIO_PATH path("rtl//core\\alu.v");
///     path.fullpath()                       => "rtl/core/alu.v"
///     path.directory()                      => "rtl/core/"
///     path.base(), path.extension()         => "alu", "v"
///     path.filename("fpu.sv").fullpath()    => "rtl/core/fpu.sv"
///
/// A path need not exist. `become_absolute`, `canonical` and the comparisons read the current directory, `canonical`
/// resolves symbolic links, and every operation that simplifies (`become_absolute`, `cd` and the comparisons included,
/// `flatten` not) reads one environment variable; all other operations work on strings alone.
///
/// @par Separators
/// Both `/` and `\` are separators when a string is parsed. A directory is normalised when it is stored: the path's own
/// separator, `/` unless `path_separator(char)` set another, replaces its opposite (`\` for `/`, and `/` for any
/// other), and runs of it are collapsed into one. There are no drives and no network paths on this platform: "C:/x" is
/// a relative path with the directory "C:/".
///
/// @par Length
/// A string of more than 1023 characters is rejected: constructing or assigning it leaves an empty path, for which
/// `is_legal_length()` returns false. Edits may make a longer string. It is kept whole, and each operation that is
/// documented to check the length writes a debug message about it and then returns its usual result. The path is part
/// of the message's format: see `fio_display_path_too_long_assert_message`.
///
/// @par Failure
/// No operation but `canonical` fails. The only exception is `std::bad_alloc`, which an operation that makes or stores
/// a string or writes the message about the length may throw. If a setter throws it after storing its components but
/// before storing the string, the components keep their new values and the string follows with the next edit. Parsing,
/// simplifying and setting a file name change nothing before they have the memory for the components.
///
/// @par Common mistakes
/// `if (path)` is always true: it tests the pointer to the string, which is never null. Test the string:
///
///     if (path.fullpath().empty())
///
/// A path as the key of a sorted container reads the current directory twice at each comparison, and a change of that
/// directory changes the order. Make the path absolute once and use its string as the key:
///
///     path.become_absolute("");
///     path.become_simplified();      // an absolute path is not simplified by the line above
///     files[path.fullpath()] = value;
///
/// @par Thread safety
/// As with a string, several threads may read one object or use different objects, but no thread may use an object
/// while another changes it. The current directory and the environment belong to the process: no thread may change the
/// environment while another calls an operation that simplifies.

#ifndef CCL_FIO_FIO_PATH_H
#define CCL_FIO_FIO_PATH_H

#include <boost/optional/optional.hpp>
#include <string>
#include <string_view>

#include "ccl/fio/fio_export.h"
#include "ccl/fio/fio_types.h"

/// Represents a file or directory name, by its components and as one string.
///
/// @copydetails fio_path.h
class FIO_PATH {
public:
  /// Identifies the components as single bits: one of them for `make_path`, any combination for `get_path_components`.
  enum FILE_COMPONENTS : int { DRIVE = 1, DIRECTORY = 2, BASE = 4, EXTENSION = 8 };

  /// @name Construction and assignment
  /// @{

  /// Constructs an empty path with the separator `/`.
  FIO_EXPORT FIO_PATH();

  /// Constructs a path by parsing a string; a null pointer counts as an empty one. See `split_full_path`.
  FIO_EXPORT FIO_PATH(char const* path);

  /// Constructs a path by parsing a string up to its first NUL. See `split_full_path`.
  FIO_EXPORT FIO_PATH(std::string const& path);

  /// Joins a directory and a name without parsing them: a separator in `name` stays in the base, and the last dot of
  /// `name` starts the extension wherever it occurs. Separators are normalised in both strings. The length is not
  /// checked.
  ///
  ///     FIO_PATH("a//b", "c.d.e")   => "a/b/c.d.e", extension "e"
  ///     FIO_PATH("a", "sub.d/f")    => "a/sub.d/f", base "sub", extension "d/f"
  FIO_EXPORT FIO_PATH(std::string const& directory, std::string const& name);

  /// Copies `other` in every respect, including its separator and a rejected length.
  FIO_EXPORT FIO_PATH(FIO_PATH const& other);

  /// Moves the content of `other`, which is left empty, with its separator, and with `is_legal_length()` false.
  FIO_EXPORT FIO_PATH(FIO_PATH&& other) noexcept;

  /// Copies the strings only: unlike a copy-constructed path, this one has the separator `/` afterwards, and a legal
  /// length unless its string is too long. The directory keeps the separators of its source until a directory is next
  /// stored. Self-assignment changes nothing.
  FIO_EXPORT FIO_PATH& operator=(FIO_PATH const& other);

  /// Moves the strings of `other`, as move construction does, and resets the separator and a rejected length, as copy
  /// assignment does. Self-assignment changes nothing.
  FIO_EXPORT FIO_PATH& operator=(FIO_PATH&& other) noexcept;

  /// Parses a string into this path, which keeps its separator. See `split_full_path`.
  FIO_EXPORT FIO_PATH& operator=(std::string const& path);

  /// Parses a string into this path, which keeps its separator; a null pointer counts as an empty one. See
  /// `split_full_path`.
  FIO_EXPORT FIO_PATH& operator=(char const* path);

  /// Replaces the whole content with the components of a string.
  ///
  /// The directory is everything up to the last separator of either kind, the extension begins at the last dot after
  /// it, and the base is what lies between:
  ///
  ///     "a.b.c"        => base "a.b", extension ".c"
  ///     ".profile"     => base "", extension ".profile"
  ///     "dir/.."       => directory "dir/", base ".", extension "."
  ///     "dir.d/name"   => directory "dir.d/", base "name", extension ""
  ///     "C:\x\y.txt"   => directory "C:/x/", base "y", extension ".txt"
  ///     "a///b\\c"     => directory "a/b/", base "c", extension ""
  ///
  /// The directory is normalised. An extension is truncated to 256 characters, dot included. A string of 1024
  /// characters or more leaves the path empty, without a debug message, and `is_legal_length()` false. A null pointer
  /// or an empty string leaves it empty, and `is_legal_length()` false if a rejected string or a move had made it so.
  /// `path` may be this path's own string.
  FIO_EXPORT void split_full_path(char const* path);

  /// Stores one component as given and rebuilds the string.
  ///
  /// Only a directory is normalised and given its trailing separator, and only a drive is truncated, to one character
  /// followed by ":". Any other value of `component`, including a combination of bits, stores nothing and rebuilds the
  /// string. The length is not checked. A NUL in a component is kept there, and ends that component in the string.
  FIO_EXPORT void make_path(FILE_COMPONENTS component, std::string const& value);
  /// @}

  /// @name Reading the string
  /// @{

  /// Returns a copy of the path's string. Checks the length.
  [[nodiscard]] FIO_EXPORT std::string fullpath() const;

  /// Returns a copy of the path's string. Checks the length.
  FIO_EXPORT operator std::string() const;

  /// Returns the path's string itself, never null, valid until the path is next changed or destroyed. Checks the
  /// length, which is its whole cost.
  FIO_EXPORT operator char const*() const;
  /// @}

  /// @name Reading components
  /// Each reads what is stored. See `fio_path.h` for what it means to check the length.
  /// @{

  /// Returns the components selected by the bits of `mask`, in the order directory, base, extension. The drive is never
  /// included, and other bits are ignored.
  ///
  ///     FIO_PATH("a/b.c").get_path_components(FIO_PATH::DIRECTORY | FIO_PATH::EXTENSION)   => "a/.c"
  [[nodiscard]] FIO_EXPORT std::string get_path_components(int mask) const;

  /// Returns false for every path: a drive that was set appears only in the string, and in what is parsed from the
  /// string.
  [[nodiscard]] FIO_EXPORT bool has_drive() const;

  /// Returns true if there is a directory.
  [[nodiscard]] FIO_EXPORT bool has_directory() const;

  /// Returns true if there is an extension, as there is in "file.", whose extension is a lone dot.
  [[nodiscard]] FIO_EXPORT bool has_extension() const;

  /// Returns true if the directory begins with this path's separator. "C:/x" is relative, and so is a bare name.
  [[nodiscard]] FIO_EXPORT bool absolute() const;

  /// Returns true if the path consists of a directory alone: "a/" does, and "a", "a/.." and "" do not.
  [[nodiscard]] FIO_EXPORT bool directory_path() const;

  /// Returns an empty string for every path. See `has_drive`.
  [[nodiscard]] FIO_EXPORT std::string drive() const;

  /// Returns the directory with its trailing separator. Checks the length.
  [[nodiscard]] FIO_EXPORT std::string directory() const;

  /// Returns the same as `directory()`. Checks the length.
  [[nodiscard]] FIO_EXPORT std::string full_directory() const;

  /// Returns the file name up to its last dot: "a.tar" of "a.tar.gz", "" of ".profile". Checks the length.
  [[nodiscard]] FIO_EXPORT std::string base() const;

  /// Returns the extension without its leading dot: "gz" of "a.tar.gz", "profile" of ".profile", "" of "file.".
  [[nodiscard]] FIO_EXPORT std::string extension() const;

  /// Returns the file name with its extension. Checks the length.
  [[nodiscard]] FIO_EXPORT std::string filename() const;

  /// Returns the number of directory levels. The file name is not one.
  ///
  ///     "a/b/c.txt"   => 2
  ///     "/a/b/"       => 2
  ///     "/", "name"   => 0
  [[nodiscard]] FIO_EXPORT int levels() const;

  /// Returns the name of a directory level, without separators. Levels are counted from 0 on the left; the name is
  /// empty for an index below 0 or from `levels()` on. Checks the length. Complexity: linear in the length of the
  /// directory.
  ///
  ///     FIO_PATH("/a/b/c.txt")[1]   => "b"
  [[nodiscard]] FIO_EXPORT std::string operator[](int level) const;

  /// Returns the name of the last directory level, as found by parsing the string anew, with both kinds of separator.
  /// Checks the length, twice; a string that is too long has no levels here.
  ///
  ///     "a/b/c.txt"                    => "b"
  ///     "/a/x" with `drive('C')`       => "C:": the index comes from the directory, the names from the text "C:/a/x"
  [[nodiscard]] FIO_EXPORT std::string tail() const;

  /// Returns true if `level` is the index of a directory level: at least 0 and less than `levels()`. Unrelated to
  /// length.
  [[nodiscard]] FIO_EXPORT bool legal(int level) const;

  /// Returns true if `name` is exactly "." or "..".
  [[nodiscard]] FIO_EXPORT static bool is_dot_directory(std::string const& name);
  /// @}

  /// @name Length
  /// @{

  /// Returns true if a path's string may have this many characters: at most 1023.
  [[nodiscard]] FIO_EXPORT static bool is_path_length_within_operating_system_limits(unsigned long length);

  /// Returns true if a path's string may have as many characters as `text`.
  [[nodiscard]] FIO_EXPORT static bool is_path_length_within_operating_system_limits(std::string const& text);

  /// Returns true if the string is short enough and the last string parsed into this path was too. False for a
  /// moved-from path.
  [[nodiscard]] FIO_EXPORT bool is_legal_length() const;
  /// @}

  /// @name Editing
  /// Each operation changes the components mentioned, rebuilds the string, and returns this path, so that calls can be
  /// chained. Nothing is rejected and no length is checked, unless said otherwise.
  /// @{

  /// Sets the drive to one letter and ":". No component query returns it; see `has_drive`.
  FIO_EXPORT FIO_PATH& drive(char letter);

  /// Sets the drive to the first character of `text` and ":", or removes it if `text` is empty.
  FIO_EXPORT FIO_PATH& drive(std::string const& text);

  /// Replaces the directory. Separators are normalised and a trailing one is added; an empty string removes the
  /// directory.
  ///
  ///     "a/b/c.txt", "x\y"   => "x/y/c.txt"
  FIO_EXPORT FIO_PATH& directory(std::string const& text);

  /// Replaces the base, unchecked: a dot or separator in it stays in the base until the string is parsed anew.
  ///
  ///     "a/b/c.txt", "d.e"   => "a/b/d.e.txt", base "d.e"
  FIO_EXPORT FIO_PATH& base(std::string const& text);

  /// Replaces the name and the extension with those of a string, and appends the directory of that string to the
  /// present one.
  ///
  ///     "a/b/c.txt", "d.h"      => "a/b/d.h"
  ///     "a/b/c.txt", "x/d.h"    => "a/b/x/d.h"
  ///     "a/b/c.txt", "/x/d.h"   => "a/b/x/d.h"
  ///     "a/b/c.txt", "sub/"     => "a/b/sub/"
  ///     "a/b/c.txt", ""         => "a/b/"
  ///
  /// The string is parsed as by `split_full_path`. This is the only setter that truncates an extension, and the only
  /// one that rejects a string: one of 1024 characters or more removes the name and makes `is_legal_length()` false.
  /// Any other non-empty string cancels an earlier rejection.
  FIO_EXPORT FIO_PATH& filename(std::string const& text);

  /// Replaces the last level of the directory. An empty string has no effect.
  ///
  ///     "a/b/c.txt", "z"   => "a/z/c.txt"
  ///     "/a/c.txt", "z"    => "/z/c.txt"
  ///     "c.txt", "z"       => "z/c.txt"
  ///     "/c.txt", "z"      => "z/c.txt": the root is lost
  ///     "a/c.txt", "z"     => "az/c.txt": a relative directory of one level has no separator to cut at
  ///     "a/c.txt", ""      => "a/c.txt"
  FIO_EXPORT FIO_PATH& tail(std::string const& text);

  /// Removes the extension with its dot.
  FIO_EXPORT FIO_PATH& no_extension();

  /// Sets an extension of up to two parts.
  ///
  /// A part is an extension type, whose string is taken from the vocabulary, or a string, to which a leading dot is
  /// added if it has none. `FIO_EXTENSION_TYPE_ANY` and the empty string mean no part; an unknown type is a part with
  /// an empty string. Without a first part the extension is removed, whatever the second one is.
  ///
  ///     "a/b/c.txt", "h", ""                          => "a/b/c.h"
  ///     "a/b/c.txt", "tar", ".gz"                     => "a/b/c.tar.gz"
  ///     "a/b/c.txt", "", ".gz"                        => "a/b/c"
  ///     "a/b/c.txt", FIO_EXTENSION_TYPE_VHD, ""       => "a/b/c.vhd"
  ///     "a/b/c.txt", FIO_EXTENSION_TYPE_INVALID, ""   => "a/b/c."
  FIO_EXPORT FIO_PATH& extension(FIO_EXTENSION_TYPE first, FIO_EXTENSION_TYPE second);

  /// Sets an extension of up to two parts, of which the second is a string.
  FIO_EXPORT FIO_PATH& extension(FIO_EXTENSION_TYPE first, std::string const& second);

  /// Sets an extension of up to two parts, of which the first is a string.
  FIO_EXPORT FIO_PATH& extension(std::string const& first, FIO_EXTENSION_TYPE second);

  /// Sets an extension of up to two parts, both strings.
  FIO_EXPORT FIO_PATH& extension(std::string const& first, std::string const& second);

  /// Changes this path's separator, in the directory too. With a separator other than `/` and `\` the string still has
  /// a `/` after the directory.
  ///
  ///     "a/b/f", '\'   => "a\b\f"
  ///     "a/b/f", '|'   => "a|b|/f"
  FIO_EXPORT FIO_PATH& path_separator(char separator);
  /// @}

  /// @name Simplification and location
  /// @{

  /// Removes "." and, as far as the string allows, ".." from the directory. Symbolic links are not resolved.
  ///
  /// What follows the last separator is not interpreted, but a base and an extension of a lone dot are erased. So a
  /// final ".." does not remove a level, and a name loses a final dot:
  ///
  ///     "/a/./b/../c"   => "/a/c"
  ///     "/../a"         => "/a"
  ///     "a/../../b"     => "../b"
  ///     "a/../"         => ""
  ///     "/a/b/.."       => "/a/b/"
  ///     "a/b."          => "a/b"
  ///     "."             => ".": a path without a directory is left alone
  ///
  /// The whole string is scanned, so a drive that was set, or a separator in the base, is copied into the directory and
  /// also stays where it was. Writes a debug message if the string is too long afterwards.
  ///
  /// The environment variable `fio_old_simplify`, set to any value, selects an older algorithm; it is read at each
  /// call. The older algorithm simplifies a path without a directory as well ("." becomes the empty path, "..a" becomes
  /// ".a"), leaves nothing of the directory but the root if the string is too long, and always parses the string with
  /// the separator `/`.
  FIO_EXPORT void become_simplified();

  /// Simplifies by the default algorithm, whatever the environment says. See `become_simplified`.
  FIO_EXPORT void flatten();

  /// Prepends `directory`, or the current directory if that is empty, to a relative path and simplifies the result.
  /// All of `directory` counts as a directory, and a relative one gives a relative path.
  ///
  ///     "../a", "/x/y"         => "/x/a"
  ///     "", "/w/x"             => "/w/x/"
  ///     "..", "/w/x"           => "/w/x/": a final ".." does not climb
  ///     "/a/../b", "/x"        => "/a/../b": an absolute path is not even simplified
  ///
  /// The current directory is read once if `directory` is empty, for an absolute path too. If it cannot be read, or if
  /// `directory` has more than 1023 characters, the root is prepended. If the two strings, joined by a `/`, have more
  /// than 1023 characters before they are simplified, the path is empty afterwards, with `is_legal_length()` false.
  /// Checks the length of a relative path.
  FIO_EXPORT void become_absolute(std::string const& directory);

  /// Changes the directory of this path as a shell's `cd` would and simplifies the path, which may remove a lone dot
  /// from the name and write a debug message. The current directory of the process is neither read nor changed.
  ///
  ///     "/a/b/f.t", ".."     => "/a/f.t"
  ///     "/a/b/f.t", "c\d"    => "/a/b/c/d/f.t"
  ///     "/a/b/f.t", "/x"     => "/x/f.t"
  ///     "a/../f.t", ""       => "a/../f.t": nothing at all is done
  FIO_EXPORT FIO_PATH& cd(std::string directory);

  /// Returns the real location of an existing path: absolute, with all symbolic links resolved by Boost.Filesystem.
  ///
  /// @return the string, of any length and with any byte in it, or nothing on any failure (the cause is lost); a
  ///         current directory that no longer exists is a failure, for an absolute `path` too
  /// @warning Boost.Filesystem compares components in functions that may not throw and that allocate: it terminates the
  /// program if memory runs out there, with a component of more than 15 characters.
  [[nodiscard]] FIO_EXPORT static boost::optional<std::string> canonical(std::string const& path);

  /// Returns this path's string relative to a directory, if both are absolute and share their first level. In every
  /// other case returns this path's string unchanged, so that the result is always a path. Both strings are parsed
  /// anew, with the separator `/`: a path with a drive that was set, or with a separator that is neither `/` nor `\`,
  /// is then not absolute.
  ///
  ///     "/a/b/f.t", "/a/b"   => "f.t"
  ///     "/a/b/f.t", "/a/c"   => "../b/f.t"
  ///     "/a/b/", "/a/b"      => "": the same directory and no file name
  ///     "/x/f.t", "/a/b"     => "/x/f.t": nothing in common
  ///     "/a/f.t", "/"        => "/a/f.t": the root has no levels to share, nor has a file in it
  ///     "/a/../b/f", "/a"    => "../b/f": ".." is a level like any other
  ///
  /// All of `directory` counts as a directory, whether or not it ends with a separator, unless it contains a NUL: what
  /// lies between the last separator and the NUL is then a file name. An empty one is relative. Names are compared byte
  /// by byte. A string of more than 1023 characters counts as relative; the length of `directory` is that after runs of
  /// separators are collapsed and one is added at the end. With the separator `\` each ".." is followed by `\`, and the
  /// rest has `/`:
  ///
  ///     "/a/b/f" with `path_separator('\')`, "/a/c"   => "..\b/f"
  ///
  /// Reads neither the file system nor the current directory. Complexity: linear in the lengths of both strings.
  [[nodiscard]] FIO_EXPORT std::string get_relative_to(std::string const& directory) const;
  /// @}

  /// @name Comparison
  ///
  /// The operators simplify both paths, make them absolute with the current directory, and compare the resulting
  /// strings byte by byte. Symbolic links are not resolved, and nothing has to exist. Neither operand changes.
  ///
  /// Two paths are equal only if their file names were the same before simplification. `<` has no such test, so two
  /// paths may be neither equal nor ordered. With the current directory "/w/x":
  ///
  ///     "a/b", "/w/x/a/b"      equal
  ///     "/a/b/../c", "/a/c"    equal
  ///     "", "/w/x/"            equal
  ///     "/a/", "/a"            not equal, and the second is less: a directory and a file name
  ///     "/a/b/.", "/a/b/"      not equal, for their names differ, and neither is less
  ///
  /// A right operand that is a path keeps its separator, whereas the left one is parsed with `/`. So "/a/b" is not
  /// equal to a path with the string "\a\b", whereas the latter, on the left, is equal to "/a/b".
  ///
  /// The current directory is read once for each operand, unless the two are already unequal by their file names. If it
  /// cannot be read, relative paths start at the root.
  ///
  /// Checks the length of the left operand, and that of a right one that is a path each time its string is read. A left
  /// operand that is too long, or a right string that is, counts as empty.
  ///
  /// In a sorted container each comparison reads the current directory twice; with a string as the key none does:
  ///
  ///     path.become_absolute("");
  ///     path.become_simplified();
  ///     files[path.fullpath()] = value;
  ///
  /// @pre The keys of a sorted container, whose order is `<`, are paths as parsed from a string, of legal length and
  /// with the separator `/`. A drive that was set, a component that would be parsed differently, or a directory that
  /// kept another separator can make a path less than itself. Neither the current directory nor the simplification
  /// algorithm changes during the life of the container.
  /// @warning There is no `>`, `<=` or `>=`, and a literal matches both overloads of each operator. As a path converts
  /// to its string, `a > b` and `"x" == a` compile all the same, and compare addresses. Compare with a path or a
  /// `std::string` on the right. In C++20 `<` of pairs, tuples and containers of paths compares addresses, too. With
  /// `fio_std.h` these are right or do not compile.
  /// @{

  /// Returns true if the file names are the same and the two paths, simplified and made absolute, are too.
  [[nodiscard]] FIO_EXPORT bool operator==(FIO_PATH const& other) const;

  /// Returns true if this path is equal to the path parsed from `other`.
  [[nodiscard]] FIO_EXPORT bool operator==(std::string const& other) const;

  /// Returns the exact opposite of `==`.
  [[nodiscard]] FIO_EXPORT bool operator!=(FIO_PATH const& other) const;

  /// Returns the exact opposite of `==` for the path parsed from `other`.
  [[nodiscard]] FIO_EXPORT bool operator!=(std::string const& other) const;

  /// Returns true if this path, simplified and made absolute, precedes the other one byte by byte.
  [[nodiscard]] FIO_EXPORT bool operator<(FIO_PATH const& other) const;

  /// Returns true if this path is less than the path parsed from `other`.
  [[nodiscard]] FIO_EXPORT bool operator<(std::string const& other) const;

  /// Compares two names as this platform does, by `strcmp`, case-sensitively.
  ///
  /// @return a value below 0, 0 or above 0
  [[nodiscard, gnu::nonnull]] FIO_EXPORT static int os_specific_comparison(char const* left, char const* right);
  /// @}

  /// @name Separators and other platforms
  /// @{

  /// Returns a copy of `text` in which the opposite separator is replaced by this path's own and runs of it are
  /// collapsed into one. The opposite of `/` is `\`, and that of any other separator is `/`.
  ///
  ///     "a\b//c"   => "a/b/c"
  [[nodiscard]] FIO_EXPORT std::string sync_path_separators(std::string const& text) const;

  /// Returns `/`.
  [[nodiscard]] FIO_EXPORT static char default_path_separator();

  /// Returns false for every path: there are no network paths on this platform.
  [[nodiscard]] FIO_EXPORT bool unc() const;

  /// Returns false for every string, including one with two leading separators.
  [[nodiscard]] FIO_EXPORT static bool is_unc_path(char const* path);

  /// Returns false for every string, including one with two leading separators.
  [[nodiscard]] FIO_EXPORT static bool is_unc_path(std::string const& path);

  /// Returns false and does not modify `result`.
  FIO_EXPORT static bool convert_unc_to_path_with_drive(char const* path, std::string& result);

  /// Returns false and does not modify `result`.
  FIO_EXPORT static bool convert_path_with_drive_to_unc(char const* path, std::string& result);

  /// Does nothing on this platform.
  FIO_EXPORT static void change_path_separators_for_windows_api();
  /// @}

private:
  struct division;
  struct detail;
  friend struct fio_search_directory; // joins names to a directory without a path for each

  explicit FIO_PATH(division const& parts);
  void store_directory();
  void rebuild();

  std::string m_full_path;
  std::string m_drive;
  std::string m_directory;
  std::string m_base;
  std::string m_extension;
  char m_path_separator = '/';
  bool m_legal_length = true;
};

/// Writes the debug message about a path that is too long:
///
///     Path name is too long -- must be shorter than 1024 characters
///     Path (length 2000): xxx...
///
/// The second line is omitted if `path` is null.
///
/// @warning The message, including the path, is passed to the debug channel as a `printf` format without arguments.
FIO_EXPORT void fio_display_path_too_long_assert_message(char const* path);

#endif
