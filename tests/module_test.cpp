// What every unit of the library shares. The assertions of Boost are compiled here as the library compiles them.

#include "ccl/fio/internal/module.h"

#include <boost/assert.hpp>
#include <climits>
#include <cstring>

#include "ccl/fio/fio.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

class module_frame : public fio_test {};

template <typename Action>
platform_double::internal_error error_of(Action action) {
  try {
    action();
  } catch (platform_double::internal_error const& error) {
    return error;
  }
  return {"no internal error", "", "", 0};
}

} // namespace

TEST_F(module_frame, registers_nine_units_under_one_name) {
  std::vector<std::string> const modules = MEM_INITIALIZER::registered_modules();
  EXPECT_EQ(modules, std::vector<std::string>(9, "FIO"));
}

TEST_F(module_frame, reports_a_broken_check_with_its_text_and_place) {
  struct {
    char const* condition;
    char const* file;
    platform_double::internal_error error;
  } const rows[] = {
      {"0 != dir.size()", "ccl/fio/fio_find.cpp", error_of([] {
         std::string empty;
         FIO_FIND("", false).push(empty);
       })},
      {"matches", "ccl/fio/fio_find.cpp",
       error_of([] { FIO_FIND("", false).find_all("a", {}, nullptr, false, false); })},
      {"extension_list != NULL", "ccl/fio/fio_file_ext_type_info.cpp",
       error_of([] { fio_get_extension_type_list(nullptr, FIO_EXTENSION_TYPE_ANY, FIO_FILE_TYPE_ANY); })},
      {"file_type_list != NULL", "ccl/fio/fio_file_ext_type_info.cpp",
       error_of([] { fio_get_file_type_list(nullptr, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_ALL_FILES, -1); })},
      {"extension_list != NULL", "ccl/fio/fio_file_ext_type_info.cpp", error_of([] {
         fio_get_list_of_extensions_valid_for_trait(FIO_EXTENSION_TYPE_FLAG_DEFAULT_EXTENSION, nullptr);
       })},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(row.error.condition, row.condition);
    EXPECT_EQ(row.error.module, "FIO") << row.condition;
    EXPECT_EQ(row.error.file, row.file) << row.condition;
    EXPECT_GT(row.error.line, 0) << row.condition;
  }
  // Each names its own line: the checks stand in this order in their files.
  EXPECT_LT(rows[0].error.line, rows[1].error.line);
  EXPECT_LT(rows[2].error.line, rows[3].error.line);
  EXPECT_LT(rows[3].error.line, rows[4].error.line);
}

TEST_F(module_frame, reports_a_broken_assertion_of_boost_as_its_own) {
  int const line = __LINE__ + 1;
  platform_double::internal_error const plain = error_of([] { BOOST_ASSERT(1 + 1 == 3); });
  EXPECT_EQ(plain.condition, "1 + 1 == 3");
  EXPECT_EQ(plain.module, "FIO");
  EXPECT_EQ(plain.file, __FILE__);
  EXPECT_EQ(plain.line, line);
  platform_double::internal_error const with_message = error_of([] { BOOST_ASSERT_MSG(false, "never"); });
  EXPECT_EQ(with_message.condition, "false");
  EXPECT_EQ(with_message.module, "FIO");
  EXPECT_EQ(with_message.file, __FILE__);
}

TEST_F(module_frame, sends_debug_messages_under_its_name) {
  fio_internal::mem_msg_vdebug("%s and %d", "text", 7);
  fio_internal::mem_msg_vdebug("no arguments, 100%%");
  auto const& messages = platform_double::debug_messages();
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].module, "FIO");
  EXPECT_EQ(messages[0].format, "%s and %d");
  EXPECT_EQ(messages[0].text, "text and 7");
  EXPECT_EQ(messages[1].text, "no arguments, 100%");
}

TEST_F(module_frame, answers_an_empty_text_for_an_unknown_value_and_never_null) {
  ASSERT_NE(fio_empty_result_value, nullptr);
  EXPECT_STREQ(fio_empty_result_value, "");
  for (short const unknown : {short{-1}, short{283}, short{298}, short{SHRT_MAX}, short{SHRT_MIN}}) {
    EXPECT_EQ(fio_get_extension_string(static_cast<FIO_EXTENSION_TYPE>(unknown)), fio_empty_result_value) << unknown;
    EXPECT_EQ(fio_get_file_type_name(static_cast<FIO_FILE_TYPE>(unknown)), fio_empty_result_value) << unknown;
    EXPECT_EQ(fio_get_file_description(static_cast<FIO_FILE_TYPE>(unknown)), fio_empty_result_value) << unknown;
  }
}
