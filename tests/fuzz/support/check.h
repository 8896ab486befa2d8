/// @file
/// How a fuzz target says that something is wrong: on standard error, and then by ending the process, which is what the
/// fuzzer and the replay both take for a finding.

#ifndef CCL_TESTS_FUZZ_SUPPORT_CHECK_H
#define CCL_TESTS_FUZZ_SUPPORT_CHECK_H

#include <string>
#include <vector>

namespace fuzz {

/// A text with everything but printable ASCII written as `\x..`, in quotation marks.
std::string quoted(std::string const& text);

/// Quoted texts in brackets.
std::string quoted(std::vector<std::string> const& texts);

[[noreturn]] void fail(std::string const& what);

/// Fails unless `holds`. `what` says what should have held, and `subject` of which text.
void expect(bool holds, char const* what, std::string const& subject);

/// Fails unless both are equal.
void expect_equal(std::string const& found, std::string const& expected, char const* what);
void expect_equal(std::vector<std::string> const& found, std::vector<std::string> const& expected, char const* what);
void expect_equal(long found, long expected, char const* what);

} // namespace fuzz

#endif
