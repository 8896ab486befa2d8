/// @file
/// The one function of a fuzz target. The fuzzer calls it, and so does the replay of a corpus.

#ifndef CCL_TESTS_FUZZ_SUPPORT_TARGET_H
#define CCL_TESTS_FUZZ_SUPPORT_TARGET_H

#include <cstddef>
#include <cstdint>

/// Does what the input says and ends the process if anything is wrong. Always 0.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

#endif
