#include "tests/support/scratch.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "tests/support/platform_double.h"

namespace fs = std::filesystem;

namespace {

int count_descriptors() {
  int count = 0;
  for (int descriptor = 0; descriptor != 256; ++descriptor) {
    count += ::fcntl(descriptor, F_GETFD) != -1 ? 1 : 0;
  }
  return count;
}

} // namespace

void fio_test::SetUp() {
  platform_double::reset();
  ::unsetenv("fio_old_simplify");
  m_current_directory = fs::current_path().string();
  m_descriptors = count_descriptors();
  m_streams = platform_double::open_streams();
}

void fio_test::TearDown() {
  platform_double::reset();
  ::unsetenv("fio_old_simplify");
  fs::current_path(m_current_directory);
  EXPECT_EQ(count_descriptors(), m_descriptors) << "a descriptor was left open";
  EXPECT_EQ(platform_double::open_streams(), m_streams) << "a directory stream was left open";
}

std::vector<std::string> fio_test::messages() {
  std::vector<std::string> texts;
  for (platform_double::debug_message const& message : platform_double::debug_messages()) {
    texts.push_back(message.text);
  }
  return texts;
}
