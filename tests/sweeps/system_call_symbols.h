/// @file
/// What the library takes from others, and what it offers: the lists against which the sweep is complete.

#ifndef CCL_TESTS_SWEEPS_SYSTEM_CALL_SYMBOLS_H
#define CCL_TESTS_SWEEPS_SYSTEM_CALL_SYMBOLS_H

#include <string>
#include <vector>

namespace system_call {

/// A symbol as the language has it, with `string` for the standard one.
std::string demangled(std::string const& symbol);

/// The dynamic symbols that the library defines, or those that it takes from others.
std::vector<std::string> dynamic_symbols(bool defined);

/// What is wrong with the imports of the library: neither doubled nor unable to fail.
std::vector<std::string> complaints_about_imports();

/// What is wrong with the exported operations: on the file system, and not among `swept`.
std::vector<std::string> complaints_about_exports(std::vector<std::string> const& swept);

} // namespace system_call

#endif
