/// @file
/// Defines the macro that marks exported declarations.

#ifndef CCL_FIO_FIO_EXPORT_H
#define CCL_FIO_FIO_EXPORT_H

/// Makes a declaration visible outside the shared library. Everything without this mark is hidden, whatever header
/// declares it.
#define FIO_EXPORT __attribute__((visibility("default")))

#endif
