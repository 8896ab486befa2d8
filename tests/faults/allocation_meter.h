/// @file
/// Measures the memory that operations take: the program's `operator new` serves the libraries as well.

#ifndef CCL_TESTS_FAULTS_ALLOCATION_METER_H
#define CCL_TESTS_FAULTS_ALLOCATION_METER_H

namespace allocation_meter {

/// Starts a measurement.
void start();

/// The most bytes that were in use at one time since then, beyond those that were in use at the start.
long peak();

} // namespace allocation_meter

#endif
