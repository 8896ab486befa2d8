#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "ccl/fio/fio_extension_type_info.h"
#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_file_type_info.h"
#include "ccl/fio/internal/filter_text.h"
#include "tests/support/ever_more_memory.h"
#include "tests/support/scratch.h"
#include "tests/vocabulary_expected.h"

namespace {

class dialog_filters : public fio_test {};

std::string extension_filter(int type, bool plural) {
  return fio_get_extension_type_filter(static_cast<FIO_EXTENSION_TYPE>(type), plural);
}

std::string type_filter(int type, bool plural) {
  return fio_get_file_type_filter(static_cast<FIO_FILE_TYPE>(type), plural);
}

struct filter_row {
  int type;
  bool plural;
  char const* filter;
};

// What the filters have to be, put together from the tables of the tests alone.

std::string entry(std::string const& name, bool plural, std::string const& patterns) {
  return name + (plural ? "s (" : " (") + patterns + ")";
}

std::string expected_type_filter(int type, bool plural) {
  std::string patterns;
  for (vocabulary::extension_row const& row : vocabulary::extensions) {
    if (row.file_type == type) {
      patterns += (patterns.empty() ? "*" : " *") + std::string(row.text);
    }
  }
  return entry(vocabulary::file_types[type].description, plural, patterns);
}

// The row that an extension is offered under: a default one before others, an earlier one before a later one.
vocabulary::extension_row const* leading_row(int type) {
  constexpr int default_extension = 2;
  vocabulary::extension_row const* leading = nullptr;
  for (vocabulary::extension_row const& row : vocabulary::extensions) {
    bool const is_better =
        leading == nullptr || (leading->traits & default_extension) < (row.traits & default_extension);
    if (row.extension_type == type && is_better) {
      leading = &row;
    }
  }
  return leading;
}

std::string expected_extension_filter(int type, bool plural) {
  vocabulary::extension_row const* const row = leading_row(type);
  return row->file_type == 0
             ? std::string()
             : entry(vocabulary::file_types[row->file_type].description, plural, "*" + std::string(row->text));
}

} // namespace

TEST_F(dialog_filters, an_extension_is_offered_under_the_name_of_its_file_type) {
  filter_row const rows[] = {
      {9, false, "VHDL File (*.vhd)"},
      {9, true, "VHDL Files (*.vhd)"},
      {10, true, "VHDL Files (*.vhdl)"},
      // Of the three types with this extension, the one that has it as its default.
      {12, false, "Verilog HDL File (*.v)"},
      {12, true, "Verilog HDL Files (*.v)"},
      // A compound extension stays whole.
      {127, false, "Text-Format Report File (*.csf.rpt)"},
  };
  for (filter_row const& row : rows) {
    EXPECT_EQ(extension_filter(row.type, row.plural), row.filter) << row.type << ' ' << row.plural;
  }
}

TEST_F(dialog_filters, a_file_type_is_offered_with_all_its_extensions_in_the_order_of_the_vocabulary) {
  filter_row const rows[] = {
      {8, false, "VHDL File (*.vhd *.vhdl *.vhdp)"},
      {8, true, "VHDL Files (*.vhd *.vhdl *.vhdp)"},
      {9, true, "Verilog HDL Files (*.v *.vlg *.verilog)"},
      // The default extension stands wherever its row does.
      {2, true, "HTML Files (*.htm *.html)"},
      {10, false, "SystemVerilog HDL File (*.sv *.v *.vlg *.verilog)"},
      {116, false, "Text-Format Report File (*.rpt *.csf.rpt *.sim.rpt *.pao *.summary)"},
      {239, true,
       "Power and Thermal Calculator Files (*.ptc_import *.ptc.gz *.ptc_import.gz *.epe *.epe_import *.epe.gz "
       "*.epe_import.gz *.kptc *.kptc.gz *.csv *.csv.gz)"},
  };
  for (filter_row const& row : rows) {
    EXPECT_EQ(type_filter(row.type, row.plural), row.filter) << row.type << ' ' << row.plural;
  }
}

TEST_F(dialog_filters, the_plural_is_a_bare_s_whatever_the_name_ends_in) {
  filter_row const rows[] = {
      {209, true, "Directorys (*.dir)"},
      {167, true, "Simulator Filess (*.mbus_in)"},
      {199, true, "Design Assistant Custom Rules Filess (*.dacr *.xml)"},
      {25, true, "JPEG File Interchange Formats (*.jpg)"},
      {38, false, "IP Variation File (.kip) (*.kip)"},
      {38, true, "IP Variation File (.kip)s (*.kip)"},
  };
  for (filter_row const& row : rows) {
    EXPECT_EQ(type_filter(row.type, row.plural), row.filter) << row.type << ' ' << row.plural;
  }
}

TEST_F(dialog_filters, the_invalid_file_type_is_offered_and_the_invalid_extension_is_not) {
  EXPECT_EQ(type_filter(0, false), "Invalid file type (*.)");
  EXPECT_EQ(type_filter(0, true), "Invalid file types (*.)");
  EXPECT_EQ(extension_filter(0, false), "");
  EXPECT_EQ(extension_filter(0, true), "");
}

TEST_F(dialog_filters, an_unknown_value_has_no_filter) {
  for (int const type : {-1, -2, 246, 247, 1000, SHRT_MIN, SHRT_MAX}) {
    EXPECT_EQ(type_filter(type, false), "") << type;
    EXPECT_EQ(type_filter(type, true), "") << type;
  }
  for (int const type : {-1, -2, 283, 284, 298, 1000, SHRT_MIN, SHRT_MAX}) {
    EXPECT_EQ(extension_filter(type, false), "") << type;
    EXPECT_EQ(extension_filter(type, true), "") << type;
  }
}

TEST_F(dialog_filters, neither_a_name_without_patterns_nor_patterns_without_a_name_are_offered) {
  for (bool const plural : {false, true}) {
    EXPECT_EQ(fio_internal::filter_text("VHDL File", plural, ""), "") << plural;
    EXPECT_EQ(fio_internal::filter_text("", plural, "*.vhd"), "") << plural;
    EXPECT_EQ(fio_internal::filter_text("", plural, ""), "") << plural;
  }
  EXPECT_EQ(fio_internal::filter_text("VHDL File", true, "*.vhd"), "VHDL Files (*.vhd)");
}

TEST_F(dialog_filters, a_type_described_as_other_shows_its_own_name) {
  ASSERT_EQ(std::string(fio_get_file_description(FIO_FILE_TYPE_INVALID)), "Other");
  EXPECT_EQ(type_filter(FIO_FILE_TYPE_INVALID, false), "Invalid file type (*.)");
  int others = 0;
  for (int type = 0; type != vocabulary::file_type_count; ++type) {
    if ((vocabulary::file_types[type].traits & FIO_FILE_TYPE_FLAG_OTHER_FILES) != 0) {
      EXPECT_EQ(type_filter(type, false), expected_type_filter(type, false)) << type;
      ++others;
    }
  }
  EXPECT_EQ(others, 24);
}

TEST_F(dialog_filters, every_type_and_every_extension_has_the_entry_of_its_rows) {
  int checked = 0;
  for (bool const plural : {false, true}) {
    for (int type = 0; type != vocabulary::file_type_count; ++type, ++checked) {
      EXPECT_EQ(type_filter(type, plural), expected_type_filter(type, plural)) << type;
    }
    for (int type = 0; type != vocabulary::extension_type_count; ++type, ++checked) {
      EXPECT_EQ(extension_filter(type, plural), expected_extension_filter(type, plural)) << type;
    }
  }
  EXPECT_EQ(checked, 2 * (246 + 283));
}

TEST_F(dialog_filters, memory_that_runs_out_leaves_a_filter_as_an_exception) {
  std::string filter;
  int const failed = with_ever_more_memory(
      [&filter] { filter = type_filter(8, true); },
      [&filter](bool succeeded) { EXPECT_EQ(filter, succeeded ? "VHDL Files (*.vhd *.vhdl *.vhdp)" : ""); });
  EXPECT_GT(failed, 0);
  EXPECT_GT(with_ever_more_memory([&filter] { filter = extension_filter(12, false); }, [](bool) {}), 0);
  EXPECT_EQ(filter, "Verilog HDL File (*.v)");
}
