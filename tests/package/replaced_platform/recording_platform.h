#ifndef RECORDING_PLATFORM_H
#define RECORDING_PLATFORM_H

#include <string>
#include <vector>

/// The names of the operations that were called, in order.
std::vector<std::string>& recorded_calls();

#endif
