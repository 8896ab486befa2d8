/// @file
/// `FIO_PATH`: the suite's notion of a path.
///
/// A path is a value: four components (drive, directory, base, extension) and the finished text that they make. Every
/// edit goes to a component and rebuilds the text at once, so reading the text is free. Texts are bytes in no
/// particular encoding. A NUL ends a text that is divided, and each component in the text that is rebuilt.
///
///     FIO_PATH path("rtl//core\\alu.v");
///     path.fullpath()                       => "rtl/core/alu.v"
///     path.directory()                      => "rtl/core/"
///     path.base(), path.extension()         => "alu", "v"
///     path.filename("fpu.sv").fullpath()    => "rtl/core/fpu.sv"
///
/// A path says nothing about what exists. `become_absolute`, `canonical` and the comparisons read the current
/// directory, `canonical` asks about links, and whatever simplifies (anchoring, moving and comparing too) reads one
/// environment variable; all other operations are work on texts.
///
/// @par Separators
/// Both `/` and `\` separate when a text is divided. The directory is stored with the path's own separator, `/` unless
/// `path_separator(char)` chose another, in the place of its opposite (`\` for `/`, and `/` for any other). Runs of the
/// own separator become one. There are no drives and no network paths on this platform: "C:/x" is a relative path with
/// a directory "C:/".
///
/// @par Length
/// A text of more than 1023 characters is refused: constructing or assigning it leaves an empty path, and
/// `is_legal_length()` says so. Edits may make a longer text. It is kept whole, and each reader that checks the length
/// (they say so) writes a debug message about it and then answers as usual. That message has the path in the place of a
/// format: see `fio_display_path_too_long_assert_message`.
///
/// @par Failure
/// No operation but `canonical` fails. Only `std::bad_alloc` can leave one that makes or stores a text or writes the
/// message about the length. If it leaves a setter that could store its components but not the text, the components
/// keep their new values and the text follows with the next edit. Dividing, simplifying and setting a file name change
/// nothing before they have the memory for the components.
///
/// @par Common mistakes
/// `if (path)` is always true: it tests the pointer to the text, which is never null. Test the text:
///
///     if (path.fullpath().empty())
///
/// A path as the key of a sorted container reads the current directory twice at each comparison, and a change of that
/// directory changes the order. Make the path absolute once and use its text as the key:
///
///     path.become_absolute("");
///     path.become_simplified();      // an absolute path is not simplified by the line above
///     files[path.fullpath()] = value;
///
/// @par Thread safety
/// A path is like a string: several threads may read one object, or use different objects freely, but one that changes
/// an object must be alone with it. The current directory belongs to the process and the environment too: nobody may
/// change the environment while a path is simplified, anchored, moved or compared.

#ifndef CCL_FIO_FIO_PATH_H
#define CCL_FIO_FIO_PATH_H

#include <boost/optional/optional.hpp>
#include <string>
#include <string_view>

#include "ccl/fio/fio_export.h"
#include "ccl/fio/fio_types.h"

/// A file or directory name, in components and as one text.
///
/// @copydetails fio_path.h
class FIO_PATH {
public:
  /// The components, as single bits: one of them for `make_path`, any combination for `get_path_components`.
  enum FILE_COMPONENTS : int { DRIVE = 1, DIRECTORY = 2, BASE = 4, EXTENSION = 8 };

  /// @name Making and assigning
  /// @{

  /// An empty path with the separator `/`.
  FIO_EXPORT FIO_PATH();

  /// The path of a text; null counts as empty. See `split_full_path`.
  FIO_EXPORT FIO_PATH(char const* path);

  /// The path of a text, up to its first NUL. See `split_full_path`.
  FIO_EXPORT FIO_PATH(std::string const& path);

  /// Joins a directory and a name without dividing them: a separator in `name` stays in the base, and the last dot of
  /// `name` starts the extension wherever it stands. Both texts have their separators normalised. No length is tested.
  ///
  ///     FIO_PATH("a//b", "c.d.e")   => "a/b/c.d.e", extension "e"
  ///     FIO_PATH("a", "sub.d/f")    => "a/sub.d/f", base "sub", extension "d/f"
  FIO_EXPORT FIO_PATH(std::string const& directory, std::string const& name);

  /// A copy in every respect, separator and refused length included.
  FIO_EXPORT FIO_PATH(FIO_PATH const& other);

  /// Takes the texts of `other`, which is left empty, with its separator, and with `is_legal_length()` false.
  FIO_EXPORT FIO_PATH(FIO_PATH&& other) noexcept;

  /// Copies the texts only: unlike a copy-constructed path this one has the separator `/` afterwards, and a legal
  /// length unless the text is too long. A directory text keeps the other separator of its source until the next store
  /// of a directory. Assigning a path to itself changes nothing.
  FIO_EXPORT FIO_PATH& operator=(FIO_PATH const& other);

  /// Takes the texts of `other`, as the move construction does, and resets separator and legal length, as the copy
  /// assignment does. Assigning a path to itself changes nothing.
  FIO_EXPORT FIO_PATH& operator=(FIO_PATH&& other) noexcept;

  /// Divides a text into this path, which keeps its separator. See `split_full_path`.
  FIO_EXPORT FIO_PATH& operator=(std::string const& path);

  /// Divides a text into this path, which keeps its separator; null counts as empty. See `split_full_path`.
  FIO_EXPORT FIO_PATH& operator=(char const* path);

  /// Replaces the whole content by the parts of a text.
  ///
  /// The directory is everything up to the last separator of either kind, the extension begins at the last dot behind
  /// it, and the base is what stands between:
  ///
  ///     "a.b.c"        => base "a.b", extension ".c"
  ///     ".profile"     => base "", extension ".profile"
  ///     "dir/.."       => directory "dir/", base ".", extension "."
  ///     "dir.d/name"   => directory "dir.d/", base "name", extension ""
  ///     "C:\x\y.txt"   => directory "C:/x/", base "y", extension ".txt"
  ///     "a///b\\c"     => directory "a/b/", base "c", extension ""
  ///
  /// The directory is normalised. An extension is cut to 256 characters, dot included. A text of 1024 characters or
  /// more leaves the path empty, without a message, and `is_legal_length()` false. Null or an empty text leaves it
  /// empty and `is_legal_length()` as it was. `path` may be this path's own text.
  FIO_EXPORT void split_full_path(char const* path);

  /// Stores one component as it is given and rebuilds the text.
  ///
  /// Only a directory is normalised, and given its trailing separator, and a drive is cut to one character and ":". Any
  /// other value of `component`, a combination of bits included, stores nothing and rebuilds the text. No length is
  /// tested. A NUL in a component is kept there, and ends that component in the text.
  FIO_EXPORT void make_path(FILE_COMPONENTS component, std::string const& value);
  /// @}

  /// @name Reading the text
  /// @{

  /// A copy of the text. Checks the length.
  [[nodiscard]] FIO_EXPORT std::string fullpath() const;

  /// A copy of the text. Checks the length.
  FIO_EXPORT operator std::string() const;

  /// The text itself, valid until the path is next changed or destroyed; never null. Checks the length, which is all
  /// that it costs.
  FIO_EXPORT operator char const*() const;
  /// @}

  /// @name Reading components
  /// All of them answer from what is stored. See `fio_path.h` for what it means that one checks the length.
  /// @{

  /// The components named by the bits of `mask`, in the order directory, base, extension. The drive is never among
  /// them, and other bits are ignored.
  ///
  ///     FIO_PATH("a/b.c").get_path_components(FIO_PATH::DIRECTORY | FIO_PATH::EXTENSION)   => "a/.c"
  [[nodiscard]] FIO_EXPORT std::string get_path_components(int mask) const;

  /// Always false: a drive that was set shows in the text, and in what is read from the text anew.
  [[nodiscard]] FIO_EXPORT bool has_drive() const;

  /// Whether there is a directory.
  [[nodiscard]] FIO_EXPORT bool has_directory() const;

  /// Whether there is an extension; true for "file.", whose extension is a lone dot.
  [[nodiscard]] FIO_EXPORT bool has_extension() const;

  /// Whether the directory begins with this path's separator. "C:/x" is relative, and so is a bare name.
  [[nodiscard]] FIO_EXPORT bool absolute() const;

  /// Whether the path is nothing but a directory: "a/" is, and neither "a" nor "a/.." nor "" is.
  [[nodiscard]] FIO_EXPORT bool directory_path() const;

  /// Always empty. See `has_drive`.
  [[nodiscard]] FIO_EXPORT std::string drive() const;

  /// The directory with its trailing separator. Checks the length.
  [[nodiscard]] FIO_EXPORT std::string directory() const;

  /// The same as `directory()`. Checks the length.
  [[nodiscard]] FIO_EXPORT std::string full_directory() const;

  /// The name up to its last dot: "a.tar" of "a.tar.gz", "" of ".profile". Checks the length.
  [[nodiscard]] FIO_EXPORT std::string base() const;

  /// The extension without its leading dot: "gz" of "a.tar.gz", "profile" of ".profile", "" of "file.".
  [[nodiscard]] FIO_EXPORT std::string extension() const;

  /// The name with its extension. Checks the length.
  [[nodiscard]] FIO_EXPORT std::string filename() const;

  /// The number of directory levels. The file name is not one.
  ///
  ///     "a/b/c.txt"   => 2
  ///     "/a/b/"       => 2
  ///     "/", "name"   => 0
  [[nodiscard]] FIO_EXPORT int levels() const;

  /// The name of a directory level, counted from 0 on the left, without separators; empty for an index below 0 or from
  /// `levels()` on. Checks the length. Linear in the length of the directory.
  ///
  ///     FIO_PATH("/a/b/c.txt")[1]   => "b"
  [[nodiscard]] FIO_EXPORT std::string operator[](int level) const;

  /// The name of the last directory level, read from the text as it divides anew, by both kinds of separator. Checks
  /// the length, twice; a text that is too long has no levels for this operation.
  ///
  ///     "a/b/c.txt"                    => "b"
  ///     "/a/x" with `drive('C')`       => "C:": the index comes from the directory, the names from the text "C:/a/x"
  [[nodiscard]] FIO_EXPORT std::string tail() const;

  /// Whether `level` is the index of a directory level: at least 0 and less than `levels()`. Nothing to do with length.
  [[nodiscard]] FIO_EXPORT bool legal(int level) const;

  /// Whether `name` is exactly "." or "..".
  [[nodiscard]] FIO_EXPORT static bool is_dot_directory(std::string const& name);
  /// @}

  /// @name Length
  /// @{

  /// Whether a path text may have this many characters: at most 1023.
  [[nodiscard]] FIO_EXPORT static bool is_path_length_within_operating_system_limits(unsigned long length);

  /// The same for the size of a text.
  [[nodiscard]] FIO_EXPORT static bool is_path_length_within_operating_system_limits(std::string const& text);

  /// Whether the text is short enough and the last text divided into this path was too. False for a moved-from path.
  [[nodiscard]] FIO_EXPORT bool is_legal_length() const;
  /// @}

  /// @name Editing
  /// Each changes the components named, rebuilds the text, and answers this path, so that calls can be chained. Nothing
  /// is refused and no length is tested, unless said otherwise.
  /// @{

  /// Sets the drive to one letter and ":". No component query shows it; see `has_drive`.
  FIO_EXPORT FIO_PATH& drive(char letter);

  /// Sets the drive to the first character of `text` and ":", or removes it if `text` is empty.
  FIO_EXPORT FIO_PATH& drive(std::string const& text);

  /// Replaces the directory. Separators are normalised and a trailing one is added; an empty text removes it.
  ///
  ///     "a/b/c.txt", "x\y"   => "x/y/c.txt"
  FIO_EXPORT FIO_PATH& directory(std::string const& text);

  /// Replaces the base, unchecked: a dot or separator in it stays in the base until the text is divided anew.
  ///
  ///     "a/b/c.txt", "d.e"   => "a/b/d.e.txt", base "d.e"
  FIO_EXPORT FIO_PATH& base(std::string const& text);

  /// Replaces name and extension by those of a text, and appends the text's directory to the present one.
  ///
  ///     "a/b/c.txt", "d.h"      => "a/b/d.h"
  ///     "a/b/c.txt", "x/d.h"    => "a/b/x/d.h"
  ///     "a/b/c.txt", "/x/d.h"   => "a/b/x/d.h"
  ///     "a/b/c.txt", "sub/"     => "a/b/sub/"
  ///     "a/b/c.txt", ""         => "a/b/"
  ///
  /// The text is divided as `split_full_path` does it, so this is the one setter that cuts an extension and that sets
  /// what `is_legal_length()` answers: a text of 1024 characters or more removes the name. An empty one leaves that
  /// answer alone.
  FIO_EXPORT FIO_PATH& filename(std::string const& text);

  /// Replaces the last level of the directory. An empty text does nothing at all.
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
  /// A part is an extension type, whose text is taken from the vocabulary, or a string, which is given a leading dot if
  /// it has none. `FIO_EXTENSION_TYPE_ANY` and the empty string stand for no part; an unknown type is a part with an
  /// empty text. Without a first part the extension is removed, whatever the second one is.
  ///
  ///     "a/b/c.txt", "h", ""                          => "a/b/c.h"
  ///     "a/b/c.txt", "tar", ".gz"                     => "a/b/c.tar.gz"
  ///     "a/b/c.txt", "", ".gz"                        => "a/b/c"
  ///     "a/b/c.txt", FIO_EXTENSION_TYPE_VHD, ""       => "a/b/c.vhd"
  ///     "a/b/c.txt", FIO_EXTENSION_TYPE_INVALID, ""   => "a/b/c."
  FIO_EXPORT FIO_PATH& extension(FIO_EXTENSION_TYPE first, FIO_EXTENSION_TYPE second);

  /// The same with a string as the second part.
  FIO_EXPORT FIO_PATH& extension(FIO_EXTENSION_TYPE first, std::string const& second);

  /// The same with a string as the first part.
  FIO_EXPORT FIO_PATH& extension(std::string const& first, FIO_EXTENSION_TYPE second);

  /// The same with two strings.
  FIO_EXPORT FIO_PATH& extension(std::string const& first, std::string const& second);

  /// Changes this path's separator, in the directory too. With a separator other than `/` and `\` the text has a `/`
  /// behind the directory all the same.
  ///
  ///     "a/b/f", '\'   => "a\b\f"
  ///     "a/b/f", '|'   => "a|b|/f"
  FIO_EXPORT FIO_PATH& path_separator(char separator);
  /// @}

  /// @name Simplification and location
  /// @{

  /// Removes "." and, as far as the text allows, ".." from the directory. Links are not looked at.
  ///
  /// What stands behind the last separator is not interpreted, but a base and an extension of a lone dot are erased. So
  /// a final ".." does not climb and a name loses a final dot:
  ///
  ///     "/a/./b/../c"   => "/a/c"
  ///     "/../a"         => "/a"
  ///     "a/../../b"     => "../b"
  ///     "a/../"         => ""
  ///     "/a/b/.."       => "/a/b/"
  ///     "a/b."          => "a/b"
  ///     "."             => ".": a path without a directory is left alone
  ///
  /// The text is what is walked, so a drive that was set, or a separator in the base, enters the directory, and stays
  /// where it was too. Writes a debug message if the text is too long afterwards.
  ///
  /// The environment variable `fio_old_simplify`, set to any value, selects an older algorithm; it is read at each
  /// call. That one treats a path without a directory as well ("." becomes the empty path, "..a" becomes ".a"), leaves
  /// nothing but the root of the directory of a text that is too long, and always reads the text under the separator
  /// `/`.
  FIO_EXPORT void become_simplified();

  /// The simplification itself, whatever the environment says. See `become_simplified`.
  FIO_EXPORT void flatten();

  /// Anchors a relative path at `directory`, or at the current directory if that is empty, and simplifies it. The
  /// anchor is taken as a directory whatever it looks like, and a relative one gives a relative path.
  ///
  ///     "../a", "/x/y"         => "/x/a"
  ///     "", "/w/x"             => "/w/x/"
  ///     "..", "/w/x"           => "/w/x/": a final ".." does not climb
  ///     "/a/../b", "/x"        => "/a/../b": an absolute path is not even simplified
  ///
  /// The current directory is read once if `directory` is empty, for an absolute path too. If it cannot be read, or if
  /// `directory` has more than 1023 characters, the path is anchored at the root. If the two texts, joined by a `/`,
  /// have more than that before they are simplified, the path is empty afterwards, with `is_legal_length()` false.
  /// Checks the length of a relative path.
  FIO_EXPORT void become_absolute(std::string const& directory);

  /// Moves the directory of this path, as a shell's `cd` would, and simplifies it, which may take a lone dot from the
  /// name and write a debug message. The process's current directory is neither read nor changed.
  ///
  ///     "/a/b/f.t", ".."     => "/a/f.t"
  ///     "/a/b/f.t", "c\d"    => "/a/b/c/d/f.t"
  ///     "/a/b/f.t", "/x"     => "/x/f.t"
  ///     "a/../f.t", ""       => "a/../f.t": nothing at all is done
  FIO_EXPORT FIO_PATH& cd(std::string directory);

  /// The real location of an existing path: absolute, with all symbolic links resolved, as Boost.Filesystem tells it.
  ///
  /// @return the text, of any length and with any byte in it, or nothing on any failure (the cause is lost); a current
  ///         directory that is gone is one, for an absolute `path` too
  /// @warning Boost.Filesystem compares components in functions that may not throw and that allocate: it ends the
  ///          program if memory runs out there, with a component of more than 15 characters.
  [[nodiscard]] FIO_EXPORT static boost::optional<std::string> canonical(std::string const& path);

  /// The text of this path as seen from a directory, if both are absolute and share their first level. In every other
  /// case the text of this path as it is, so that the answer is always a path. Both texts are read anew, under `/`: a
  /// path with a drive that was set, or with a separator that is neither `/` nor `\`, is not absolute in that reading.
  ///
  ///     "/a/b/f.t", "/a/b"   => "f.t"
  ///     "/a/b/f.t", "/a/c"   => "../b/f.t"
  ///     "/a/b/", "/a/b"      => "": the same directory and no file name
  ///     "/x/f.t", "/a/b"     => "/x/f.t": nothing in common
  ///     "/a/f.t", "/"        => "/a/f.t": the root has no levels to share, nor has a file in it
  ///     "/a/../b/f", "/a"    => "../b/f": ".." is a level like any other
  ///
  /// All of `directory` counts as a directory, whether a separator ends it or not, unless it holds a NUL: what stands
  /// between the last separator and that is a file name. An empty one is relative. Names are compared byte by byte. A
  /// text of more than 1023 characters counts as relative; that of a directory is measured as it is used, with runs of
  /// separators made one and one at its end. With the separator `\` the steps up have that one, and the rest has `/`:
  ///
  ///     "/a/b/f" with `path_separator('\')`, "/a/c"   => "..\b/f"
  ///
  /// Looks at neither the disk nor the current directory. Linear in the lengths of both texts.
  [[nodiscard]] FIO_EXPORT std::string get_relative_to(std::string const& directory) const;
  /// @}

  /// @name Comparison
  ///
  /// Two paths are compared by the texts that they have when they are simplified and anchored at the current directory,
  /// byte by byte. Links are not looked at, and nothing has to exist. Neither operand changes.
  ///
  /// Equal are only two paths whose file names were the same to begin with, before they are simplified. `<` has no such
  /// test, so two paths may be neither equal nor in any order. With the current directory "/w/x":
  ///
  ///     "a/b", "/w/x/a/b"      equal
  ///     "/a/b/../c", "/a/c"    equal
  ///     "", "/w/x/"            equal
  ///     "/a/", "/a"            not equal, and the second is less: a directory and a file name
  ///     "/a/b/.", "/a/b/"      not equal, for their names differ, and neither is less
  ///
  /// A right operand that is a path keeps its separator, whereas the left one is taken with `/`. So "/a/b" is not equal
  /// to a path that reads "\a\b", which in its turn is equal to "/a/b".
  ///
  /// The current directory is read once for each operand, unless different names have already settled that the two are
  /// not equal. If it cannot be read, relative paths are anchored at the root.
  ///
  /// Checks the length of the left operand, and that of a right one that is a path each time its text is read. A left
  /// operand that is too long, or a right text that is, counts as empty.
  ///
  /// In a sorted container each comparison reads the current directory twice; a text as the key reads nothing:
  ///
  ///     path.become_absolute("");
  ///     path.become_simplified();
  ///     files[path.fullpath()] = value;
  ///
  /// The keys of a sorted container, whose order is `<`, must be paths as a text gives them, of legal length and
  /// divided with the separator `/`. A drive that was set, a component that would divide otherwise, or a directory
  /// that kept another separator can make a path less than itself. Neither the current directory nor the choice of
  /// simplification may change meanwhile.
  ///
  /// @warning There is no `>`, `<=` or `>=`, and a literal fits both forms of each operator. As a path converts to its
  /// text, `a > b` and `"x" == a` compile all the same, and compare addresses. Compare with a path or a `std::string`
  /// on the right.
  /// @{

  /// Whether the two file names are the same and the two paths, simplified and anchored, are too.
  [[nodiscard]] FIO_EXPORT bool operator==(FIO_PATH const& other) const;

  /// The same with the path of a string on the right.
  [[nodiscard]] FIO_EXPORT bool operator==(std::string const& other) const;

  /// The exact opposite of `==`.
  [[nodiscard]] FIO_EXPORT bool operator!=(FIO_PATH const& other) const;

  /// The exact opposite of `==`, with the path of a string on the right.
  [[nodiscard]] FIO_EXPORT bool operator!=(std::string const& other) const;

  /// Whether this path, simplified and anchored, stands before the other one in the order of their bytes.
  [[nodiscard]] FIO_EXPORT bool operator<(FIO_PATH const& other) const;

  /// The same with the path of a string on the right.
  [[nodiscard]] FIO_EXPORT bool operator<(std::string const& other) const;

  /// How this platform compares names: `strcmp`, case and all. Below 0, 0 or above 0.
  [[nodiscard, gnu::nonnull]] FIO_EXPORT static int os_specific_comparison(char const* left, char const* right);
  /// @}

  /// @name Separators and other platforms
  /// @{

  /// A copy of `text` in which the opposite separator is replaced by this path's own and runs of it are made one. The
  /// opposite of `/` is `\`, and that of any other separator is `/`.
  ///
  ///     "a\b//c"   => "a/b/c"
  [[nodiscard]] FIO_EXPORT std::string sync_path_separators(std::string const& text) const;

  /// `/`
  [[nodiscard]] FIO_EXPORT static char default_path_separator();

  /// Always false: no path is a network path on this platform.
  [[nodiscard]] FIO_EXPORT bool unc() const;

  /// Always false, for a text with two leading separators too.
  [[nodiscard]] FIO_EXPORT static bool is_unc_path(char const* path);

  /// Always false, for a text with two leading separators too.
  [[nodiscard]] FIO_EXPORT static bool is_unc_path(std::string const& path);

  /// Always false; `result` is not touched.
  FIO_EXPORT static bool convert_unc_to_path_with_drive(char const* path, std::string& result);

  /// Always false; `result` is not touched.
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
/// The second line is left out if `path` is null.
///
/// @warning The text is passed to the debug channel as a `printf` format, the path in it included, without arguments.
FIO_EXPORT void fio_display_path_too_long_assert_message(char const* path);

#endif
