/// @file
/// What the programs of this folder ask of the process and the machine around them.

#ifndef CCL_TESTS_STRESS_SURROUNDINGS_H
#define CCL_TESTS_STRESS_SURROUNDINGS_H

namespace stress {

/// Has scratch trees made in memory, unless the environment says where to make them: the waits for a disk would leave
/// little of the rounds. To be called first of all.
void prefer_memory_for_scratch();

/// Fills the cache that the C++ library's `std::ctype<char>::narrow` otherwise fills from any thread without a lock
/// (GCC bug 77704). Texts of errors are formatted by way of it, and ThreadSanitizer would find that and nothing else. To
/// be called while there is no other thread.
void fill_cache_of_locale();

int open_descriptors();

} // namespace stress

#endif
