/// @file
/// The fixture that gives a test a tree of its own and watches over what it leaves behind.

#ifndef CCL_TESTS_SUPPORT_SCRATCH_H
#define CCL_TESTS_SUPPORT_SCRATCH_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/scratch_tree.h"
#include "tests/support/text.h"

/// The base of all tests: it resets the doubles before each test, and after it finds what was left behind (descriptors,
/// directory streams) and puts back what was changed (current directory, environment of the library).
class fio_test : public testing::Test {
protected:
  void SetUp() override;
  void TearDown() override;

  /// The texts of the debug messages so far.
  static std::vector<std::string> messages();

  scratch_tree m_tree;

private:
  std::string m_current_directory;
  int m_descriptors = 0;
  int m_streams = 0;
};

#endif
