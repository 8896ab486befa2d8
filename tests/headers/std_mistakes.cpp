// Each marked line is a mistake that does not compile with the header for the standard library: the message has the
// words behind it. Each kind of operands stands here once, since a compiler complains of it once.

#include "ccl/fio/fio.h"
#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_std.h"

void mistakes(FIO_PATH const& p, FIO_PATH const& q, char const* text);

void mistakes(FIO_PATH const& p, FIO_PATH const& q, char const* text) {
  (void)(p > q);        // write `q < p`
  (void)(p > text);     // write `q < p`
  (void)("text" > p);   // write `q < p`
  (void)(p <= q);       // write `!(q < p)`
  (void)(p <= "text");  // write `!(q < p)`
  (void)(text <= p);    // write `!(q < p)`
  (void)(p >= q);       // write `!(p < q)`
  (void)(p >= text);    // write `!(p < q)`
  (void)(nullptr >= p); // write `!(p < q)`
  (void)(p - q);        // write `p.get_relative_to(q.directory())`
  (void)(p - text);     // write `p.get_relative_to(q.directory())`
  (void)(text - p);     // write `p.get_relative_to(q.directory())`
  (void)(p - 1);        // write `p.fullpath()`, and `substr`
  (void)(p + 1);        // write `p.fullpath() + ...` to append
  (void)(1 + p);        // write `p.fullpath().substr(1)`
  (void)!p;             // write `p.fullpath().empty()`
  (void)(nullptr == p); // write `p.fullpath().empty()`
}
