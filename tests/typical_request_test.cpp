/// @file
/// The road of a tool's most common request through the whole library: a source file is taken over a search path, and
/// then asked what it is.

#include <gtest/gtest.h>

#include <filesystem>
#include <list>
#include <string>
#include <vector>

#include "ccl/fio/fio.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

using text_list = std::vector<std::string>;

/// The recorded calls of these operations, in their order.
text_list calls_of(text_list const& operations) {
  text_list result;
  for (std::string const& call : platform_double::calls()) {
    for (std::string const& operation : operations) {
      if (call.rfind(operation + '(', 0) == 0) {
        result.push_back(call);
      }
    }
  }
  return result;
}

text_list texts(std::list<FIO_PATH> const& paths) {
  text_list result;
  for (FIO_PATH const& path : paths) {
    result.push_back(path.fullpath());
  }
  return result;
}

class typical_request : public fio_test {
protected:
  void SetUp() override {
    fio_test::SetUp();
    m_tree.draw({"proj/rtl/core.vhd", "proj/rtl/top.vhd", "proj/lib/top.v=module top; endmodule", "proj/lib/core.vhd"});
  }
};

} // namespace

TEST_F(typical_request, a_source_is_found_over_the_search_path_and_told_what_it_is) {
  std::string const rtl = m_tree.path("proj/rtl");
  std::string const lib = m_tree.path("proj/lib");
  std::string const search_path = rtl + ';' + lib;
  platform_double::record_calls(true);

  // The search path becomes two lists.
  FIO_FIND find(search_path, false);
  EXPECT_EQ(platform_double::calls(),
            (text_list{"strtok_s(" + search_path + ", ;)", "strtok_s(null, ;)", "strtok_s(null, ;)"}));
  EXPECT_EQ(texts(find.m_search_list), (text_list{rtl + '/', lib + '/'}));
  EXPECT_EQ(find.m_directories, std::list<std::string>{rtl + '/'});

  // Each directory is looked for, and the candidate in it, until the first hit.
  platform_double::calls().clear();
  FIO_PATH const found = find.find_first("top.v");
  EXPECT_EQ(calls_of({"osi_exists", "opendir", "osi_getcwd", "stl_tolower", "strtok_s"}),
            (text_list{"osi_exists(" + rtl + "/)", "osi_exists(" + rtl + "/top.v)", "osi_exists(" + lib + "/)",
                       "osi_exists(" + lib + "/top.v)"}));
  EXPECT_EQ(found.fullpath(), lib + "/top.v");
  EXPECT_EQ(found.directory(), lib + '/');
  EXPECT_EQ(found.base(), "top");
  EXPECT_EQ(found.extension(), "v");
  EXPECT_TRUE(found.absolute());
  EXPECT_TRUE(FIO_FILE_SYSTEM::is_regular_file(found));

  // The extension leads to the file type, and nothing asks the disk again.
  platform_double::calls().clear();
  FIO_EXTENSION_TYPE const extension_type = fio_get_extension_type(found.fullpath());
  EXPECT_EQ(platform_double::calls(), text_list{"stl_tolower(.v)"});
  EXPECT_EQ(static_cast<int>(extension_type), 12);
  EXPECT_STREQ(fio_get_extension_string(extension_type), ".v");
  FIO_FILE_TYPE const file_type = fio_get_file_type(found.fullpath());
  EXPECT_EQ(static_cast<int>(file_type), 9);
  EXPECT_EQ(fio_get_file_type(extension_type), file_type);
  EXPECT_EQ(platform_double::calls(), (text_list{"stl_tolower(.v)", "stl_tolower(.v)"}));

  // The file type leads to everything else.
  EXPECT_STREQ(fio_get_file_type_name(file_type), "Verilog HDL File");
  EXPECT_STREQ(fio_get_file_description(file_type), "Verilog HDL File");
  EXPECT_STREQ(fio_get_default_extension_string(file_type), ".v");
  EXPECT_EQ(fio_get_default_extension_type(file_type), extension_type);
  EXPECT_EQ(static_cast<unsigned>(fio_get_editor_type(file_type)), 8u);
  EXPECT_STREQ(fio_get_editor_type_string(fio_get_editor_type(file_type)), "Text Files");
  text_list traits;
  for (int bit = 1; bit != 0x40000000; bit *= 2) {
    auto const trait = static_cast<FIO_FILE_TYPE_FLAG>(bit);
    if (fio_test_trait_of(file_type, trait)) {
      traits.push_back(std::to_string(bit) + ' ' + fio_get_file_type_trait_string(trait));
    }
  }
  EXPECT_EQ(traits, (text_list{"2 Source Files", "4 Design Files", "2097152 Design Files"}));
  EXPECT_TRUE(FIO_FILE_TYPE_INFO::is_design_file(file_type));
  EXPECT_EQ(fio_get_file_type(VFC_CLSID_TED_VERILOG_DOC), file_type);
  std::list<FIO_EXTENSION_TYPE> extensions;
  fio_get_extension_type_list(&extensions, FIO_EXTENSION_TYPE_ANY, file_type);
  text_list extension_texts;
  for (FIO_EXTENSION_TYPE const extension : extensions) {
    extension_texts.push_back(fio_get_extension_string(extension));
  }
  EXPECT_EQ(extension_texts, (text_list{".v", ".vlg", ".verilog"}));

  // A dialog offers it, as one of its kind or as itself.
  EXPECT_EQ(fio_get_file_type_filter(file_type, true), "Verilog HDL Files (*.v *.vlg *.verilog)");
  EXPECT_EQ(fio_get_extension_type_filter(extension_type, false), "Verilog HDL File (*.v)");
  EXPECT_EQ(platform_double::calls().size(), 2u);
  EXPECT_EQ(messages(), text_list());
}

TEST_F(typical_request, an_earlier_directory_shadows_a_later_one) {
  FIO_FIND const find(m_tree.path("proj/rtl") + ';' + m_tree.path("proj/lib"), false);
  FIO_PATH const found = find.find_first("core.vhd");
  EXPECT_EQ(found.fullpath(), m_tree.path("proj/rtl/core.vhd"));
  EXPECT_EQ(static_cast<int>(fio_get_file_type(found.fullpath())), 8);
  EXPECT_EQ(find.find("core.vhd"), m_tree.path("proj/rtl/core.vhd"));
  EXPECT_EQ(find.find("top.v"), "") << "the list of this search lacks the last directory";
}

TEST_F(typical_request, a_relative_result_becomes_absolute_and_simple) {
  std::filesystem::current_path(m_tree.path("proj"));
  FIO_FIND find("./rtl;rtl/../lib", false);
  EXPECT_EQ(find.find_first("top.v").fullpath(), "rtl/../lib/top.v");
  ASSERT_TRUE(find.set_directory_for_results_to_become_absolute_to(m_tree.path("proj").c_str()));
  FIO_PATH const found = find.find_first("top.v");
  EXPECT_EQ(found.fullpath(), m_tree.path("proj/lib/top.v"));
  EXPECT_EQ(find.find_first("core.vhd").fullpath(), m_tree.path("proj/rtl/core.vhd"));
  EXPECT_EQ(static_cast<int>(fio_get_file_type(found.fullpath())), 9);
}

TEST_F(typical_request, a_source_that_is_nowhere_is_an_empty_path_of_no_type) {
  FIO_FIND const find(m_tree.path("proj/rtl") + ';' + m_tree.path("proj/lib"), false);
  FIO_PATH const found = find.find_first("none.v");
  EXPECT_EQ(found.fullpath(), "");
  EXPECT_EQ(static_cast<int>(fio_get_file_type(found.fullpath())), 0);
  EXPECT_EQ(static_cast<int>(fio_get_file_type("none.v")), 9) << "a name alone tells, whether it exists or not";
}
