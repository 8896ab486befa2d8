/// @file
/// The mark of what the library offers to others.

#ifndef CCL_FIO_FIO_EXPORT_H
#define CCL_FIO_FIO_EXPORT_H

/// Visible outside the shared library. Everything without this mark is hidden, whatever header it stands in.
#define FIO_EXPORT __attribute__((visibility("default")))

#endif
