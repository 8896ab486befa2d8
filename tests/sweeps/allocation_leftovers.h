/// @file
/// Knows the directory streams and the path records that are open, whoever opened them.

#ifndef CCL_TESTS_SWEEPS_ALLOCATION_LEFTOVERS_H
#define CCL_TESTS_SWEEPS_ALLOCATION_LEFTOVERS_H

/// How many of each are open.
struct leftovers {
  int streams; ///< `opendir` less `closedir`
  int records; ///< `osi_get_unc_full_path` less `osi_path_free`
};

leftovers open_leftovers();

/// Closes all that is open, so that what remains after that is nobody's.
void close_leftovers();

/// The number of descriptors that the process has open.
int open_descriptors();

#endif
