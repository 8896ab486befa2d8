/// @file
/// Declares the errors of this library that carry a message: `FIO_ERRC`, its codes and their factory. Code that only
/// receives errors needs no more than `fio_errc_codes.h`, which the headers of operations that return one include.
///
/// Most of the library reports a failure by a result. An operation that needs a message returns an owning pointer to a
/// `FIO_ERRC`, which is null on success; nothing here is ever thrown.
///
///     std::unique_ptr<FIO_ERRC> error = make_korvane_error<FIO::ERRC::NOT_A_DIRECTORY_ERRC>(path);
///     error->message().m_lines[0].m_text   => The given path "/tmp/x" is not a valid directory.
///
/// @par Thread safety
/// An error belongs to the owner of its pointer and does not change once made. Any thread may make one. A thread
/// checker may report two threads that make their first at once: the C++ library fills a cache of characters there
/// without a lock, each time with the same values.

#ifndef CCL_FIO_FIO_ERRC_H
#define CCL_FIO_FIO_ERRC_H

#include "ccl/err/korvane_error.h"
#include "ccl/fio/fio_errc_codes.h"

#endif
