/// @file
/// Forward iteration over a directory, or over a whole tree.
///
///     for (FIO_DIRECTORY_ENTRY const& entry : FIO_RECURSIVE_DIRECTORY_ITERATOR("rtl")) {
///       std::puts(entry.path.c_str());    // rtl/core, rtl/core/alu.v, rtl/top.v in the order of the file system
///     }
///
/// "." and ".." never appear, and names with a leading dot do. The kind of an entry is what the directory itself says
/// of it: no status is asked, so a symbolic link is no directory and is never entered, and on a file system that tells
/// no kinds nothing is. A tree is walked depth first, a directory before its contents. Nothing is sorted.
///
/// The iterators are single-pass: copies share the open directory and the entry. Of a walk over a tree only one copy
/// may be moved, since each has levels of its own below the ones that they share.
///
/// @par Failure
/// Nothing is reported. What is no directory, or cannot be opened or read, has no entries. Only `std::bad_alloc` can
/// leave an operation; a null text is not to be passed.
///
/// @warning A directory without permission looks empty, at the top and at each level below. Where that matters, test it
/// first: a directory that may be listed and searched has at least the entry ".", which a wildcard finds.
///
///     if (!FIO_FILE_SYSTEM::exists("rtl/*"))   // missing, no directory, or no permission: see errno
///
/// For a directory below, that is `FIO_FILE_SYSTEM::exists((entry.path + "/*").c_str())`. The test finds nothing in the
/// root, nor in a directory that has a wildcard in its path or more than 1021 characters.
///
/// @par Thread safety
/// An iterator and its copies serve one thread at a time. An open directory is held for each level of a walk.

#ifndef CCL_FIO_FIO_ITERATOR_H
#define CCL_FIO_FIO_ITERATOR_H

#include <dirent.h>

#include <boost/iterator/iterator_categories.hpp>
#include <boost/iterator/iterator_facade.hpp>
#include <memory>
#include <string>

#include "ccl/fio/fio_export.h"
#include "ccl/fio/fio_path.h"

/// One entry of a directory.
class FIO_DIRECTORY_ENTRY {
public:
  bool is_directory = false; ///< what the directory says of the entry; also true for block devices and sockets
  std::string path;          ///< the text given to the iterator, "/" and the name; below the top level likewise

  /// The path of the entry, with every `\` of its text taken for a separator. A text that is too long for a path makes
  /// an empty one of illegal length.
  ///
  /// @throws std::bad_alloc when the path cannot be stored
  [[nodiscard]] FIO_EXPORT FIO_PATH derive_path() const;
};

/// The state of one open directory, which the copies of an iterator share.
class FIO_DIRECTORY_ITERATOR_IMPL {
public:
  /// Keeps the text of the directory. There is no entry and no stream yet.
  FIO_EXPORT explicit FIO_DIRECTORY_ITERATOR_IMPL(char const* directory);

  /// Closes the stream.
  FIO_EXPORT ~FIO_DIRECTORY_ITERATOR_IMPL();

  FIO_DIRECTORY_ITERATOR_IMPL(FIO_DIRECTORY_ITERATOR_IMPL const&) = delete;
  FIO_DIRECTORY_ITERATOR_IMPL& operator=(FIO_DIRECTORY_ITERATOR_IMPL const&) = delete;

  /// Makes the entry with this name the present one.
  FIO_EXPORT void set_filename(char const* name, bool is_directory);

  std::string directory;     ///< the directory as it was given
  FIO_DIRECTORY_ENTRY entry; ///< the present entry
  DIR* stream = nullptr;     ///< the open stream, owned
};

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // nobody owns an iterator by a pointer to its base

/// Walks one directory.
///
/// @copydetails fio_iterator.h
class FIO_EXPORT FIO_DIRECTORY_ITERATOR
    : public boost::iterators::iterator_facade<FIO_DIRECTORY_ITERATOR, FIO_DIRECTORY_ENTRY,
                                               boost::iterators::single_pass_traversal_tag, FIO_DIRECTORY_ENTRY&,
                                               long> {
public:
  /// The end of every directory.
  FIO_DIRECTORY_ITERATOR() = default;

  /// Opens a directory and stands at its first entry, or at the end.
  explicit FIO_DIRECTORY_ITERATOR(char const* path);

  /// Moves to the next entry. At the end it does nothing.
  virtual void increment();

protected:
  /// Whether there is no entry any more.
  bool is_at_end() const { return m_impl == nullptr; }

  std::shared_ptr<FIO_DIRECTORY_ITERATOR_IMPL> m_impl; ///< null at the end

private:
  friend class boost::iterators::iterator_core_access;

  FIO_DIRECTORY_ENTRY& dereference() const { return m_impl->entry; }
  bool equal(FIO_DIRECTORY_ITERATOR const& other) const { return m_impl == other.m_impl; }
};

/// Walks a tree.
///
/// @copydetails fio_iterator.h
class FIO_EXPORT FIO_RECURSIVE_DIRECTORY_ITERATOR : public FIO_DIRECTORY_ITERATOR {
public:
  /// The end of every tree.
  FIO_RECURSIVE_DIRECTORY_ITERATOR() = default;

  /// Opens the top directory and stands at its first entry, or at the end.
  explicit FIO_RECURSIVE_DIRECTORY_ITERATOR(char const* path);

  /// Shares the open directories and the entry.
  FIO_RECURSIVE_DIRECTORY_ITERATOR(FIO_RECURSIVE_DIRECTORY_ITERATOR const&) = default;

  /// Shares the open directories and the entry.
  FIO_RECURSIVE_DIRECTORY_ITERATOR& operator=(FIO_RECURSIVE_DIRECTORY_ITERATOR const&) = default;

  /// Moves to the next entry of the tree: the first one below a directory, and otherwise the next one of this level.
  void increment() override;

  virtual ~FIO_RECURSIVE_DIRECTORY_ITERATOR();

  /// Makes the present entry below the present one of this level. The walk must be below it.
  void update_entry_from_subdir_iter();

private:
  std::shared_ptr<FIO_RECURSIVE_DIRECTORY_ITERATOR> m_subdir_iter; ///< null while the walk is at this level
};

#pragma GCC diagnostic pop

/// @name Ranges
/// An iterator stands for what it still has to deliver. The range is walked by a copy: an iterator with a name is not
/// to be used any more behind the loop.
/// @{

/// A copy of `iterator`.
inline FIO_DIRECTORY_ITERATOR begin(FIO_DIRECTORY_ITERATOR const& iterator) { return iterator; }

/// The end of every directory.
inline FIO_DIRECTORY_ITERATOR end(FIO_DIRECTORY_ITERATOR const& /*iterator*/) { return {}; }

/// A copy of `iterator`.
inline FIO_RECURSIVE_DIRECTORY_ITERATOR begin(FIO_RECURSIVE_DIRECTORY_ITERATOR const& iterator) { return iterator; }

/// The end of every tree.
inline FIO_RECURSIVE_DIRECTORY_ITERATOR end(FIO_RECURSIVE_DIRECTORY_ITERATOR const& /*iterator*/) { return {}; }
/// @}

#endif
