/// @file
/// Declares the queries on the vocabulary of files: from a name to its extension and type, from a type to its names,
/// editor and traits, from a class identifier to a type, and the lists of types and extensions that pass a filter.
///
///     fio_get_file_type("rtl/Top.VHD")                        => FIO_FILE_TYPE_VHDL_FILE
///     fio_get_file_type_name(FIO_FILE_TYPE_VHDL_FILE)         => "VHDL File"
///     fio_get_default_extension_string(FIO_FILE_TYPE_VHDL_FILE) => ".vhd"
///
/// Only names are examined, never the disk. Several file types may share an extension; the first type for which it is
/// the default one is preferred, and then the first one in the order of the vocabulary.
///
/// @par Failure
/// An unknown value is no failure: each query has a neutral result for it. A null list is a violated precondition and
/// is reported to `err_report_internal_error`, which does not return. The queries that allocate may throw
/// `std::bad_alloc`; a list then has what was appended before.
///
/// @par Thread safety
/// All queries read constant data and may be used from any thread, and from static constructors. C-strings point into
/// that data and are never freed. A list belongs to its caller.
///
/// @par Complexity
/// One or two scans of the vocabulary (298 extension rows, 246 file types), and at most three by name. The queries by
/// name copy the extension, or the whole of a name that has none, and the list queries allocate their elements; nothing
/// else allocates.

#ifndef CCL_FIO_FIO_FILE_EXT_TYPE_INFO_H
#define CCL_FIO_FIO_FILE_EXT_TYPE_INFO_H

#include <list>
#include <string>

#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_export.h"
#include "ccl/fio/fio_types.h"

/// Points to an empty string, which the queries for a C-string return for an unknown value. Must not be changed.
extern FIO_EXPORT char const* fio_empty_result_value;

/// @name By file type
/// @{

/// Returns the name for display, such as "VHDL File"; empty for an unknown type.
[[nodiscard]] FIO_EXPORT char const* fio_get_file_type_name(FIO_FILE_TYPE file_type);

/// Returns "Other" for a type with the trait `FIO_FILE_TYPE_FLAG_OTHER_FILES`, otherwise its name.
[[nodiscard]] FIO_EXPORT char const* fio_get_file_description(FIO_FILE_TYPE file_type);

/// Returns the editor that opens files of the type; none for an unknown type.
[[nodiscard]] FIO_EXPORT FIO_EDITOR_TYPE fio_get_editor_type(FIO_FILE_TYPE file_type);

/// Returns true if the type has any of the traits in `flag`; false for an unknown type.
[[nodiscard]] FIO_EXPORT bool fio_test_trait_of(FIO_FILE_TYPE file_type, FIO_FILE_TYPE_FLAG flag);

/// Returns the extension for a new file of the type: the first one marked as default, or `FIO_EXTENSION_TYPE_INVALID`
/// if there is none.
[[nodiscard]] FIO_EXPORT FIO_EXTENSION_TYPE fio_get_default_extension_type(FIO_FILE_TYPE file_type);

/// Returns the string of the default extension, with its dot; "." if there is none.
[[nodiscard]] FIO_EXPORT char const* fio_get_default_extension_string(FIO_FILE_TYPE file_type);
/// @}

/// @name By extension type
/// @{

/// Returns the string of an extension type, with its leading dot: ".vhd", and "." for `FIO_EXTENSION_TYPE_INVALID`;
/// empty for an unknown value.
[[nodiscard]] FIO_EXPORT char const* fio_get_extension_string(FIO_EXTENSION_TYPE extension_type);

/// Returns the file type of an extension: the first one of which it is the default extension, otherwise the first one
/// that uses it, otherwise `FIO_FILE_TYPE_INVALID`.
///
///     FIO_EXTENSION_TYPE_V      => FIO_FILE_TYPE_VERILOG_HDL_FILE, of three types
///     FIO_EXTENSION_TYPE_HTML   => FIO_FILE_TYPE_HTML_FILE, though not its default
[[nodiscard]] FIO_EXPORT FIO_FILE_TYPE fio_get_file_type(FIO_EXTENSION_TYPE extension_type);
/// @}

/// @name By name or identifier
/// @{

/// Returns the extension type of a path, a file name or a bare extension, regardless of case;
/// `FIO_EXTENSION_TYPE_INVALID` if it has none that is known.
///
///     "a.VHD", "/x/y.vhd", ".vhd", "vhd"   => FIO_EXTENSION_TYPE_VHD
///     "top.csf.rpt"                        => FIO_EXTENSION_TYPE_RPT: only what follows the last dot counts
///     "foo", "foo.", "dir/vhd", ""         => FIO_EXTENSION_TYPE_INVALID
///
/// Of two types with one string the lower one is returned. The strings with two dots or with capital letters cannot be
/// found by name.
[[nodiscard]] FIO_EXPORT FIO_EXTENSION_TYPE fio_get_extension_type(std::string const& name);

/// Returns the file type of a path, a file name or a bare extension, by its extension type.
[[nodiscard]] FIO_EXPORT FIO_FILE_TYPE fio_get_file_type(std::string const& name);

/// Returns the first file type of a document class; `FIO_FILE_TYPE_INVALID` if no type has it.
///
///     VFC_CLSID_TED_DEFAULT_DOC   => FIO_FILE_TYPE_TEXT_FILE, of six types
///     FIO_CLSID_NULL              => FIO_FILE_TYPE_IMAGE_FILE: the first type without a class, the invalid one aside
[[nodiscard]] FIO_EXPORT FIO_FILE_TYPE fio_get_file_type(_GUID const& clsid);
/// @}

/// @name Names of editors and traits
/// Each returns the name of exactly this value. Unlike the other queries these return null for a value that has none,
/// such as a combination of bits.
/// @{

/// Returns the name of an editor, such as "Text Files", or null.
[[nodiscard]] FIO_EXPORT char const* fio_get_editor_type_string(FIO_EDITOR_TYPE editor_type);

/// Returns the name of a trait of file types, such as "Design Files", or null.
[[nodiscard]] FIO_EXPORT char const* fio_get_file_type_trait_string(FIO_FILE_TYPE_FLAG trait);

/// Returns the name of a trait of extension types, or null.
[[nodiscard]] FIO_EXPORT char const* fio_get_extension_type_trait_string(FIO_EXTENSION_TYPE_FLAG trait);
/// @}

/// @name Lists
/// Each appends to the list, in the order of the vocabulary, with duplicates, and does not clear it.
/// @{

/// Appends the extension types of all rows with this extension type (`FIO_EXTENSION_TYPE_ANY` for any) and this file
/// type (`FIO_FILE_TYPE_ANY` for any).
FIO_EXPORT void fio_get_extension_type_list(std::list<FIO_EXTENSION_TYPE>* extension_list,
                                            FIO_EXTENSION_TYPE extension_type, FIO_FILE_TYPE file_type);

/// Appends the file types with this value (`FIO_FILE_TYPE_ANY` for any), exactly this editor
/// (`FIO_EDITOR_TYPE_ALL_FILES` for any) and any of these traits (-1 for any, none included; 0 matches nothing).
FIO_EXPORT void fio_get_file_type_list(std::list<FIO_FILE_TYPE>* file_type_list, FIO_FILE_TYPE file_type,
                                       FIO_EDITOR_TYPE editor_type, long traits);

/// Appends the extension types of all rows with any of the traits in `flag`. `FIO_EXTENSION_TYPE_FLAG_ALL_EXTENSIONS`
/// omits the rows without a trait.
FIO_EXPORT void fio_get_list_of_extensions_valid_for_trait(FIO_EXTENSION_TYPE_FLAG flag,
                                                           std::list<FIO_EXTENSION_TYPE>* extension_list);
/// @}

#endif
