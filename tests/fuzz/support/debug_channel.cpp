#include "tests/fuzz/support/debug_channel.h"

#include <utility>

#include "ccl/mem/mem.h"

namespace {

std::vector<std::string> messages;

} // namespace

std::vector<std::string> fuzz::take_debug_messages() { return std::exchange(messages, {}); }

void mem_msg_local_vdebug(char const* /*module*/, char const* format, va_list /*arguments*/) {
  messages.emplace_back(format);
}
