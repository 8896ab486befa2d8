/// @file
/// The first temporary names of a process, asked for by several threads at the same moment.

#ifndef CCL_TESTS_STRESS_FIRST_IDENTIFIERS_H
#define CCL_TESTS_STRESS_FIRST_IDENTIFIERS_H

namespace stress {

/// Has each thread of a new process ask for temporary names that nobody asked for before, and answers whether the
/// names are those of one base and of counters that lost no call. To be called while there is no other thread.
bool first_identifiers_are_right(int threads);

} // namespace stress

#endif
