/// @file
/// The constant tables behind every query on file types and extensions. Included by one source file only.
///
/// Everything is constant-initialised and free of pointers, so that the tables are in read-only memory that all
/// processes share: a pointer in a table would be a relocation to apply at each start. Strings are therefore stored in
/// the rows, or as offsets, and class identifiers by value.

#ifndef CCL_FIO_INTERNAL_TYPE_TABLES_H
#define CCL_FIO_INTERNAL_TYPE_TABLES_H

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "ccl/fio/fio_types.h"
#include "ccl/fio/internal/clsid_values.h"

namespace fio_tables {

/// A value of an enumeration and its name for display.
struct named_value {
  std::uint32_t value;
  char text[36];
};

inline constexpr named_value fio_extension_type_traits_to_string[] = {
    {2, "Default Extension"},
    {4, "Archived Extension"},
    {8, "Core Variation Extension"},
    {0xFFFFFFFF, "All Extensions"},
};

// Some names are those of two values: a name does not identify a trait or an editor.
inline constexpr named_value fio_file_type_traits_to_string[] = {
    {2, "Source Files"},
    {4, "Design Files"},
    {8, "Project Files"},
    {16, "HTML/Text-Format Report Files"},
    {32, "Output Files"},
    {64, "Script Files"},
    {128, "Other Files"},
    {256, "Hidden Files"},
    {512, "Vexlog Logic Analyzer Files"},
    {1024, "Logic Analyzer Interface Files"},
    {2048, "Test Bench Output Files"},
    {4096, "Project Results Files"},
    {8192, "Simulation Input Files"},
    {16384, "In-System Sources and Probes Files"},
    {32768, "State Machine Editor Files"},
    {65536, "VOSC Viewer Info Files"},
    {131072, "IP Variation Files"},
    {262144, "Power and Thermal Calculator Files"},
    {524288, "Power and Thermal Calculator Files"},
    {2097152, "Design Files"},
    {4194304, "Memory Files"},
    {8388608, "Verification/Debugging Files"},
    {16777216, "Other Files"},
    {0xFFFFFFFF, "All Files (*.*)"},
};

inline constexpr named_value fio_editor_type_to_string[] = {
    {0, " "},
    {2, "Waveform/Vector Files"},
    {4, "Memory Files"},
    {8, "Text Files"},
    {16, "Graphic Files"},
    {32, "Browser Files"},
    {64, "Programming Files"},
    {128, "Vexlog Logic Analyzer Files"},
    {256, "Logic Analyzer Interface Files"},
    {512, "Assignment Files"},
    {1024, "Chip Files"},
    {2048, "Atom Property Files"},
    {4096, "In-System Sources and Probes Files"},
    {8192, "State Machine Editor Files"},
    {16384, "IP Variation Files"},
    {32768, "Exported Design Partition Files"},
    {65536, "Ksys System Files"},
    {131072, "IP Files"},
    {262144, "Programming File Generator Files"},
    {524288, "Power and Thermal Calculator Files"},
    {1048576, "Design Entry Editor Files"},
    {2097152, "Power and Thermal Calculator Files"},
    {0xFFFFFFFF, "All Files (*.*)"},
};

/// A pairing of an extension with a file type that uses it.
struct extension_row {
  FIO_EXTENSION_TYPE extension_type;
  char extension[16]; ///< with its leading dot, padded with NUL
  FIO_FILE_TYPE file_type;
  std::int64_t traits; ///< bits of `FIO_EXTENSION_TYPE_FLAG`
};

/// A file type as it is written below.
struct file_type_source {
  FIO_FILE_TYPE file_type;
  std::string_view description;
  _GUID clsid;
  FIO_EDITOR_TYPE editor_type;
  std::int64_t traits; ///< bits of `FIO_FILE_TYPE_FLAG`
};

namespace rows {

namespace clsid = fio_clsid_values;

// Short names for the columns of the two tables.
inline constexpr int by_default = FIO_EXTENSION_TYPE_FLAG_DEFAULT_EXTENSION;
inline constexpr int archived = FIO_EXTENSION_TYPE_FLAG_ARCHIVED_EXTENSION;
inline constexpr int core_variation = FIO_EXTENSION_TYPE_FLAG_CORE_VARIATION_EXTENSION;

inline constexpr int source = FIO_FILE_TYPE_FLAG_SOURCE_FILES;
inline constexpr int design = FIO_FILE_TYPE_FLAG_DESIGN_FILES;
inline constexpr int project = FIO_FILE_TYPE_FLAG_PROJECT_FILES;
inline constexpr int report = FIO_FILE_TYPE_FLAG_HTML_TEXT_FORMAT_REPORT_FILES;
inline constexpr int output = FIO_FILE_TYPE_FLAG_OUTPUT_FILES;
inline constexpr int script = FIO_FILE_TYPE_FLAG_SCRIPT_FILES;
inline constexpr int other = FIO_FILE_TYPE_FLAG_OTHER_FILES;
inline constexpr int hidden = FIO_FILE_TYPE_FLAG_HIDDEN_FILES;
inline constexpr int logic_analyzer = FIO_FILE_TYPE_FLAG_VEXLOG_LOGIC_ANALYZER_FILES;
inline constexpr int analyzer_interface = FIO_FILE_TYPE_FLAG_LOGIC_ANALYZER_INTERFACE_FILES;
inline constexpr int test_bench = FIO_FILE_TYPE_FLAG_TEST_BENCH_OUTPUT_FILES;
inline constexpr int project_result = FIO_FILE_TYPE_FLAG_PROJECT_RESULTS_FILES;
inline constexpr int simulation_input = FIO_FILE_TYPE_FLAG_SIMULATION_INPUT_FILES;
inline constexpr int source_and_probe = FIO_FILE_TYPE_FLAG_IN_SYSTEM_SOURCES_AND_PROBES_FILES;
inline constexpr int state_machine = FIO_FILE_TYPE_FLAG_STATE_MACHINE_EDITOR_FILES;
inline constexpr int ip_variation = FIO_FILE_TYPE_FLAG_IP_VARIATION_FILES;
inline constexpr int power = FIO_FILE_TYPE_FLAG_POWER_AND_THERMAL_CALCULATOR_FILES;
inline constexpr int power_group = FIO_FILE_TYPE_FLAG_POWER_AND_THERMAL_CALCULATOR_FILES_GROUP;
inline constexpr int design_group = FIO_FILE_TYPE_FLAG_DESIGN_FILES_GROUP;
inline constexpr int memory = FIO_FILE_TYPE_FLAG_MEMORY_FILES;
inline constexpr int debugging = FIO_FILE_TYPE_FLAG_VERIFICATION_DEBUGGING_FILES;
inline constexpr int other_group = FIO_FILE_TYPE_FLAG_OTHER_FILES_GROUP;

// clang-format off: one row a line

inline constexpr file_type_source file_types[] = {
    {FIO_FILE_TYPE_INVALID, "Invalid file type", clsid::NONE, FIO_EDITOR_TYPE_NONE, other},
    {FIO_FILE_TYPE_IMAGE_FILE, "Image File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_HTML_FILE, "HTML File", clsid::NONE, FIO_EDITOR_TYPE_NONE, project_result},
    {FIO_FILE_TYPE_QML_FILE, "QML File", clsid::NONE, FIO_EDITOR_TYPE_NONE, project_result},
    {FIO_FILE_TYPE_JSON_FILE, "JSON File", clsid::NONE, FIO_EDITOR_TYPE_NONE, project_result},
    {FIO_FILE_TYPE_TEXT_FILE, "Text File", clsid::TED_DEFAULT_DOC, FIO_EDITOR_TYPE_TEXT_FILES, hidden | other_group},
    {FIO_FILE_TYPE_KHDL_FILE, "KHDL File", clsid::TED_TDF_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     source | design | design_group},
    {FIO_FILE_TYPE_KHDL_INCLUDE_FILE, "KHDL Include File", clsid::TED_TDF_INC_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     source | other_group},
    {FIO_FILE_TYPE_VHDL_FILE, "VHDL File", clsid::TED_VHD_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     source | design | design_group},
    {FIO_FILE_TYPE_VERILOG_HDL_FILE, "Verilog HDL File", clsid::TED_VERILOG_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     source | design | design_group},
    {FIO_FILE_TYPE_SYSTEMVERILOG_HDL_FILE, "SystemVerilog HDL File", clsid::TED_SYSTEMVERILOG_DOC,
     FIO_EDITOR_TYPE_TEXT_FILES, source | design | design_group},
    {FIO_FILE_TYPE_VERILOG_INCLUDE_FILE, "Verilog Include File", clsid::TED_VERILOG_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     source},
    {FIO_FILE_TYPE_VERILOG_GLOBAL_COMPILER_MACRO_FILE, "Verilog Global Compiler Macro File", clsid::TED_VERILOG_DOC,
     FIO_EDITOR_TYPE_TEXT_FILES, source},
    {FIO_FILE_TYPE_VERILOG_KORVANE_MAPPING_FILE, "Verilog Korvane Mapping File", clsid::TED_VERILOG_DOC,
     FIO_EDITOR_TYPE_TEXT_FILES, source | design},
    {FIO_FILE_TYPE_EDIF_FILE, "EDIF File", clsid::TED_EDF_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     source | design | design_group},
    {FIO_FILE_TYPE_TAVRO_SOURCE_FILE, "Tavro Source File", clsid::TED_DEFAULT_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     source | design},
    {FIO_FILE_TYPE_SIGMAKER_SOURCE_FILE, "Sigmaker Source File", clsid::NONE, FIO_EDITOR_TYPE_NONE, source | design},
    {FIO_FILE_TYPE_C_SOURCE_FILE, "C Source File", clsid::TED_DEFAULT_DOC, FIO_EDITOR_TYPE_TEXT_FILES, 0},
    {FIO_FILE_TYPE_CPP_SOURCE_FILE, "C++ Source File", clsid::TED_DEFAULT_DOC, FIO_EDITOR_TYPE_TEXT_FILES, 0},
    {FIO_FILE_TYPE_C_CPP_INCLUDE_FILE, "C/C++ Include File", clsid::TED_DEFAULT_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     source | design},
    {FIO_FILE_TYPE_ASSEMBLY_FILE, "Assembly File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_GRAPHIC_DESIGN_FILE, "Graphic Design File", clsid::GED_GDF_DOC, FIO_EDITOR_TYPE_GRAPHIC_FILES,
     source | design},
    {FIO_FILE_TYPE_BLOCK_DIAGRAM_SCHEMATIC_FILE, "Block Diagram/Schematic File", clsid::GED_BDF_DOC,
     FIO_EDITOR_TYPE_GRAPHIC_FILES, source | design | design_group},
    {FIO_FILE_TYPE_BLOCK_SYMBOL_FILE, "Block Symbol File", clsid::GED_BSF_DOC, FIO_EDITOR_TYPE_GRAPHIC_FILES,
     source | other_group},
    {FIO_FILE_TYPE_SYMBOL_FILE, "Symbol File", clsid::GED_SYM_DOC, FIO_EDITOR_TYPE_GRAPHIC_FILES, source},
    {FIO_FILE_TYPE_JPEG_FILE_INTERCHANGE_FORMAT_JPG, "JPEG File Interchange Format", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     0},
    {FIO_FILE_TYPE_JPEG_FILE_INTERCHANGE_FORMAT_JPEG, "JPEG File Interchange Format", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     0},
    {FIO_FILE_TYPE_BITMAP_FILE, "Bitmap File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_PORTABLE_NETWORK_GRAPHICS_FILE, "Portable Network Graphics File", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     0},
    {FIO_FILE_TYPE_GRAPHICS_INTERCHANGE_FORMAT_FILE, "Graphics Interchange Format File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_COLLEGIUM_PROGRAM_VWF, "Collegium Program VWF", clsid::WEDTQ_DEFAULT_DOC,
     FIO_EDITOR_TYPE_WAVEFORM_VECTOR_FILES, source | simulation_input},
    {FIO_FILE_TYPE_COMPRESSED_VECTOR_WAVEFORM_FILE, "Compressed Vector Waveform File", clsid::WED_ZVCF_DOC,
     FIO_EDITOR_TYPE_WAVEFORM_VECTOR_FILES, source | simulation_input},
    {FIO_FILE_TYPE_VECTOR_TEXT_FILE, "Vector Text File", clsid::WED_VEC_DOC, FIO_EDITOR_TYPE_WAVEFORM_VECTOR_FILES,
     source | simulation_input},
    {FIO_FILE_TYPE_VECTOR_TABLE_OUTPUT_FILE, "Vector Table Output File", clsid::WED_TBL_DOC,
     FIO_EDITOR_TYPE_WAVEFORM_VECTOR_FILES, simulation_input},
    {FIO_FILE_TYPE_VHDL_TEST_BENCH_FILE, "VHDL Test Bench File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES, test_bench},
    {FIO_FILE_TYPE_VERILOG_TEST_BENCH_FILE, "Verilog Test Bench File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES,
     test_bench},
    {FIO_FILE_TYPE_SIMULATOR_CHANNEL_FILE, "Simulator Channel File", clsid::WED_SCF_DOC,
     FIO_EDITOR_TYPE_WAVEFORM_VECTOR_FILES, source | simulation_input},
    {FIO_FILE_TYPE_VEXLOG_LOGIC_ANALYZER_FILE, "Vexlog Logic Analyzer File", clsid::SED_DEFAULT_DOC,
     FIO_EDITOR_TYPE_VEXLOG_LOGIC_ANALYZER_FILES, source | logic_analyzer | debugging},
    {FIO_FILE_TYPE_IP_VARIATION_FILE_KIP, "IP Variation File (.kip)", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES,
     source | design | ip_variation | design_group},
    {FIO_FILE_TYPE_LOGIC_ANALYZER_INTERFACE_FILE, "Logic Analyzer Interface File", clsid::ATC_DEFAULT_DOC,
     FIO_EDITOR_TYPE_LOGIC_ANALYZER_INTERFACE_FILES, source | analyzer_interface | debugging},
    {FIO_FILE_TYPE_MEMORY_INITIALIZATION_FILE, "Memory Initialization File", clsid::MED_MIF_DOC,
     FIO_EDITOR_TYPE_MEMORY_FILES, source | memory},
    {FIO_FILE_TYPE_HEXADECIMAL_MERAK_FORMAT_FILE, "Hexadecimal (Merak-Format) File", clsid::MED_HEX_DOC,
     FIO_EDITOR_TYPE_MEMORY_FILES, source | memory},
    {FIO_FILE_TYPE_VALUE_CHANGE_DUMP_FILE, "Value Change Dump File", clsid::WED_VCD_DOC,
     FIO_EDITOR_TYPE_WAVEFORM_VECTOR_FILES, source | simulation_input},
    {FIO_FILE_TYPE_SIGNAL_ACTIVITY_FILE, "Signal Activity File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_RAM_INITIALIZATION_FILE, "RAM Initialization File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_ADDRESS_MAPPING_INFORMATION_FILE, "Address Mapping Information File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_LIBRARY_MAPPING_FILE, "Library Mapping File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES, source},
    {FIO_FILE_TYPE_TCL_SCRIPT_FILE, "Tcl Script File", clsid::TED_TCL_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     script | design_group},
    {FIO_FILE_TYPE_SDC_FILE_READ_BY_THE_TIMING_ANALYZER_AT_EACH_FITTER_STAGE,
     "SDC File (Read by the Timing Analyzer at each fitter stage)", clsid::TED_SDC_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     project | script | other_group},
    {FIO_FILE_TYPE_SDC_FILE_WITH_ENTITY_BINDING_READ_BY_THE_TIMING_ANALYZER_AT_EACH_FITTER_STAGE,
     "SDC File with entity binding (Read by the Timing Analyzer at each fitter stage)", clsid::TED_SDC_DOC,
     FIO_EDITOR_TYPE_TEXT_FILES, project | script | other_group},
    {FIO_FILE_TYPE_PYTHON_SCRIPT_FILE, "Python Script File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES, 0},
    {FIO_FILE_TYPE_LIBRARY_FILE, "Library File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_OBJECT_FILE, "Object File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_DEPENDENCY_FILE, "Dependency File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_ELF_FILE, "ELF File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_BINARY_FILE, "Binary File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_AUTHENTICATION_HEADER_BINARY_FILE, "Authentication Header Binary File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_FORMATTED_BINARY_FILE, "Formatted Binary File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_ENCRYPTED_BINARY_FILE, "Encrypted Binary File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_MOTOROLA_S_RECORD_FILE, "Motorola S-Record File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_PROJECT_FILE, "Project File", clsid::PJM_PROJECT, FIO_EDITOR_TYPE_NONE, project},
    {FIO_FILE_TYPE_WORKSPACE_FILE, "Workspace File", clsid::NONE, FIO_EDITOR_TYPE_NONE, hidden},
    {FIO_FILE_TYPE_PROJECT_SETTINGS_FILE, "Project Settings File", clsid::NONE, FIO_EDITOR_TYPE_NONE, hidden},
    {FIO_FILE_TYPE_COMPILER_SETTINGS_FILE, "Compiler Settings File", clsid::PJM_CSF, FIO_EDITOR_TYPE_NONE,
     project | hidden},
    {FIO_FILE_TYPE_SIMULATOR_SETTINGS_FILE, "Simulator Settings File", clsid::PJM_SSF, FIO_EDITOR_TYPE_NONE,
     project | hidden},
    {FIO_FILE_TYPE_ENTITY_SETTINGS_FILE, "Entity Settings File", clsid::NONE, FIO_EDITOR_TYPE_NONE, hidden},
    {FIO_FILE_TYPE_STANDARD_DELAY_FORMAT_FILE, "Standard Delay Format File", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     other | hidden},
    {FIO_FILE_TYPE_DALMIR_II_ASSIGNMENT_AND_CONFIGURATION_FILE, "Dalmir II Assignment & Configuration File",
     clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_SYSTEM_BUILD_DESCRIPTOR_FILE, "System Build Descriptor File", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     other | hidden},
    {FIO_FILE_TYPE_ASSIGNMENT_EDITOR_FILE, "Assignment Editor File", clsid::ASE_DEFAULT_DOC,
     FIO_EDITOR_TYPE_ASSIGNMENT_FILES, hidden},
    {FIO_FILE_TYPE_KORVANE_PROJECT_FILE, "Korvane Project File", clsid::PJM_KPF, FIO_EDITOR_TYPE_NONE,
     project | hidden},
    {FIO_FILE_TYPE_KORVANE_DEFAULT_SETTING_FILE, "Korvane Default Setting File", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     hidden},
    {FIO_FILE_TYPE_KORVANE_SETTING_FILE, "Korvane Setting File", clsid::TED_DEFAULT_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     project | hidden},
    {FIO_FILE_TYPE_CHIP_EDITOR_FILE, "Chip Editor File", clsid::ACV_DEFAULT_DOC, FIO_EDITOR_TYPE_CHIP_FILES, hidden},
    {FIO_FILE_TYPE_ATOM_PROPERTY_EDITOR_FILE, "Atom Property Editor File", clsid::APE_DEFAULT_DOC,
     FIO_EDITOR_TYPE_ATOM_PROPERTY_FILES, hidden},
    {FIO_FILE_TYPE_CHAIN_DESCRIPTION_FILE, "Chain Description File", clsid::PGMW_CDF_DOC,
     FIO_EDITOR_TYPE_PROGRAMMING_FILES, other_group},
    {FIO_FILE_TYPE_SRAM_OBJECT_FILE, "SRAM Object File", clsid::PGMW_SOF_DOC, FIO_EDITOR_TYPE_PROGRAMMING_FILES,
     project_result},
    {FIO_FILE_TYPE_PROGRAMMER_OBJECT_FILE, "Programmer Object File", clsid::PGMW_POF_DOC,
     FIO_EDITOR_TYPE_PROGRAMMING_FILES, project_result},
    {FIO_FILE_TYPE_JAM_FILE, "Jam File", clsid::PGMW_JAM_DOC, FIO_EDITOR_TYPE_PROGRAMMING_FILES, 0},
    {FIO_FILE_TYPE_JAM_BYTE_CODE_FILE, "Jam Byte-Code File", clsid::PGMW_JBC_DOC, FIO_EDITOR_TYPE_PROGRAMMING_FILES, 0},
    {FIO_FILE_TYPE_SERIAL_VECTOR_FORMAT_FILE, "Serial Vector Format File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_HEXADECIMAL_OUTPUT_FILE, "Hexadecimal Output File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_SERIAL_BITSTREAM_FILE, "Serial Bitstream File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_RAW_BINARY_FILE, "Raw Binary File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_MASK_SETTINGS_FILE, "Mask Settings File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_SECURE_MASK_SETTINGS_FILE, "Secure Mask Settings File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_PARTIAL_MASKED_SETTINGS_FILE, "Partial-Masked Settings File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_DEVICE_MASKED_SETTINGS_FILE, "Device Masked Settings File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_PARTIAL_SETTINGS_MASK_FILE, "Partial Settings Mask File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_PARTIAL_PRESERVED_BITSTREAM_FILE, "Partial Preserved Bitstream File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_ENCRYPTION_LOCK_FILE, "Encryption Lock File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_SLAVE_BINARY_IMAGE_FILE, "Slave Binary Image File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_IEEE_1532_FILE, "IEEE 1532 file", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_SYNTHESIS_FILE, "Synthesis file", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES, 0},
    {FIO_FILE_TYPE_TABULAR_TEXT_FILE, "Tabular Text File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES, 0},
    {FIO_FILE_TYPE_HEXADECIMAL_PROGRAMMER_OBJECT_FILE, "Hexadecimal Programmer Object File", clsid::NONE,
     FIO_EDITOR_TYPE_TEXT_FILES, 0},
    {FIO_FILE_TYPE_CONVERSION_SETUP_FILE, "Conversion Setup File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_RAW_PROGRAMMING_DATA_FILE, "Raw Programming Data File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_USER_DEFINED_DEVICE, "Korvane User-Defined Device", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_JTAG_INDIRECT_CONFIGURATION_FILE, "JTAG Indirect Configuration File", clsid::PGMW_PFL_DOC,
     FIO_EDITOR_TYPE_PROGRAMMING_FILES, project_result},
    {FIO_FILE_TYPE_JTAG_CHAIN_FILE, "JTAG Chain File", clsid::PGMW_JCF_DOC, FIO_EDITOR_TYPE_PROGRAMMING_FILES,
     project_result},
    {FIO_FILE_TYPE_FLEQ_CHAIN_FILE, "FLEQ Chain File", clsid::PGMW_FCF_DOC, FIO_EDITOR_TYPE_PROGRAMMING_FILES,
     project_result},
    {FIO_FILE_TYPE_I_O_PIN_STATE_FILE, "I/O Pin State File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_FLASH_LOADER_HEXADECIMAL_FILE, "Flash Loader Hexadecimal File", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     0},
    {FIO_FILE_TYPE_ENCRYPTION_KEY_PROGRAMMING_FILE, "Encryption Key Programming File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_HPS_IO_FILE, "HPS IO File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_UFP_FLASH_FILE, "UFP Flash File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_MASK_OBJECT_FILE, "Mask Object File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_X_509_BINARY_ENCODED_CERTIFICATE_FILE, "X.509 Binary Encoded Certificate File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_X_509_ASCII_ENCODED_CERTIFICATE_FILE, "X.509 ASCII Encoded Certificate File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_SECURITY_PROTOCOL_AND_DATA_MODEL_SPDM_CHAIN_FILE,
     "Security Protocol and Data Model (SPDM) Chain File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_DATABASE_FILE, "Database File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_VHDL_PARSE_FILE, "VHDL Parse File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_VERILOG_PARSE_FILE, "Verilog Parse File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_REPORT_FILE, "Report File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_FLOORPLAN_FILE, "Floorplan File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_TEXT_FORMAT_REPORT_FILE, "Text-Format Report File", clsid::RPW_TXT_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     report | project_result},
    {FIO_FILE_TYPE_HTML_FORMAT_REPORT_FILE, "HTML-Format Report File", clsid::RPW_HTML_DOC,
     FIO_EDITOR_TYPE_BROWSER_FILES, report | project_result},
    {FIO_FILE_TYPE_KORVANE_MESSAGE_FILE, "Korvane Message File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES,
     output | project_result},
    {FIO_FILE_TYPE_KORVANE_MESSAGE_DB_FILE, "Korvane Message DB File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_SQLITE_DATABASE_FILE, "SQLite Database File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERILOG_OUTPUT_FILE, "Verilog Output File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES, output},
    {FIO_FILE_TYPE_VHDL_OUTPUT_FILE, "VHDL Output File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES, output},
    {FIO_FILE_TYPE_KHDL_TEXT_DESIGN_OUTPUT_FILE, "KHDL Text Design Output File", clsid::NONE,
     FIO_EDITOR_TYPE_TEXT_FILES, output},
    {FIO_FILE_TYPE_STANDARD_DELAY_FORMAT_OUTPUT_FILE, "Standard Delay Format Output File", clsid::NONE,
     FIO_EDITOR_TYPE_TEXT_FILES, output},
    {FIO_FILE_TYPE_TIMING_ANALYSIS_OUTPUT_FILE, "Timing Analysis Output File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES,
     output | project_result},
    {FIO_FILE_TYPE_PIN_OUT_FILE, "Pin-Out File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES, output},
    {FIO_FILE_TYPE_COMMA_SEPARATED_VALUE_FILE, "Comma Separated Value File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES,
     0},
    {FIO_FILE_TYPE_REGTEST_INPUT_FILE, "Regtest Input File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_REGTEST_OUTPUT_FILE, "Regtest Output File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_EQUATION_FILE, "Equation File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden | project_result},
    {FIO_FILE_TYPE_TEMPLATE_FILE, "Template File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_LICENSE_FILE, "License File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_KORVANE_ARCHIVE_FILE, "Korvane Archive File", clsid::PJM_ARCHIVE, FIO_EDITOR_TYPE_NONE,
     other | hidden},
    {FIO_FILE_TYPE_KORVANE_DESIGN_TEMPLATE_FILE, "Korvane Design Template File", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     other | hidden},
    {FIO_FILE_TYPE_KORVANE_ARCHIVE_LOG_FILE, "Korvane Archive Log File", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     other | hidden},
    {FIO_FILE_TYPE_KORVANE_DATABASE_FILE, "Korvane Database File", clsid::KDB_DEFAULT_DOC, FIO_EDITOR_TYPE_NONE,
     source | design},
    {FIO_FILE_TYPE_KORVANE_CORE_DATABASE_ARCHIVE_LOG_FILE, "Korvane Core Database Archive Log File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_KORVANE_CORE_DATABASE_MODEL_S_HEADER_FILE, "Korvane Core Database model's header file", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_DEVICE_ARCHIVE_FILE, "Korvane Device Archive File", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     other | hidden},
    {FIO_FILE_TYPE_KORVANE_DEVICE_ARCHIVE_LOG_FILE, "Korvane Device Archive Log File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_POWER_INPUT_FILE, "Power Input File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_MACRO_FILE, "Macro File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_ROUTING_CONSTRAINTS_FILE, "Routing Constraints File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_FITTER_CLUSTER_FILE, "Fitter Cluster File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_AVANTI_PLACEMENT_CONSTRAINTS_FILE, "Avanti Placement Constraints File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_GLOBAL_CLOCK_FILE, "Global Clock File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_REVISION_DESCRIPTION_FILE, "Revision Description File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_INCREMENTAL_FITTING_FILE, "Incremental Fitting File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_MAC_REGION_FILE, "MAC Region File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_COMPONENT_DECLARATION_FILE, "Component Declaration File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES,
     design},
    {FIO_FILE_TYPE_BUFFER_LOCATION_FILE, "Buffer Location File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_CHANGE_MANAGER_FILE_ECO, "Change Manager File", clsid::NONE, FIO_EDITOR_TYPE_NONE, hidden},
    {FIO_FILE_TYPE_CHANGE_MANAGER_FILE_ECO2, "Change Manager File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_ATOM_NETLIST,
     "Version-compatible database file for the atom netlist", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_BCM_NETLIST,
     "Version-compatible database file for the bcm netlist", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_A2C_DATABASE,
     "Version-compatible database file for the A2C database", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_IBR_DATABASE,
     "Version-compatible database file for the IBR database", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_ASSIGNMENT_DATABASE,
     "Version-compatible database file for the assignment database", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_QML_VERSION_OF_THE_REPORT_FILE, "QML version of the report file", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     0},
    {FIO_FILE_TYPE_XML_VERSION_OF_THE_REPORT_FILE, "XML version of the report file", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     0},
    {FIO_FILE_TYPE_DATABASE_INFORMATION, "Database information", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_SIGNAL_PROBE_INFORMATION,
     "Version-compatible database file for Signal Probe information", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_AUTO_NODE_SLD_INFORMATION,
     "Version-compatible database file for auto node SLD information", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_SLD_INFORMATION,
     "Version-compatible database file for SLD information", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_DFP_RESULT, "Version-compatible database file for DFP result",
     clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_BPM_INFORMATION,
     "Version-compatible database file for BPM information", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_SIMULATOR_FILES, "Simulator Files", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_PIN_PLANNER_FILE_PPL, "Pin Planner File", clsid::PPL_DEFAULT_DOC, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_TOUCH_FILE_USED_TO_HELP_BUILD_MAKEFILES, "Touch file used to help build makefiles", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_PLACEMENT_EXCHANGE_FILE, "Korvane Placement Exchange File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_ROUTING_EXCHANGE_FILE, "Korvane Routing Exchange File", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     0},
    {FIO_FILE_TYPE_KORVANE_FIXCAST_OPTION_REGISTER_FILE, "Korvane Fixcast Option Register File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_FIXCAST_TIMING_INFORMATION_FILE, "Korvane Fixcast Timing Information File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_PROTOCOL_PLANNER_FILE, "Protocol Planner File", clsid::NONE, FIO_EDITOR_TYPE_NONE, source},
    {FIO_FILE_TYPE_KORVANE_EXPORTED_DESIGN_PARTITION_FILE, "Korvane Exported Design Partition File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_EXPORTED_DESIGN_PARTITION_INFORMATION_FILE,
     "Korvane Exported Design Partition Information File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_DESIGN_PARTITION_INFORMATION_FILE_XML, "Korvane Design Partition Information File (XML)",
     clsid::NONE, FIO_EDITOR_TYPE_NONE, hidden},
    {FIO_FILE_TYPE_KORVANE_MESSAGE_SUPPRESSION_RULE_FILE, "Korvane Message Suppression Rule File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_MESSAGE_FLAG_RULE_FILE, "Korvane Message Flag Rule File", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     0},
    {FIO_FILE_TYPE_TRIALCORE_FILE, "Trialcore File", clsid::NONE, FIO_EDITOR_TYPE_NONE, hidden},
    {FIO_FILE_TYPE_KORVANE_SUPPRESSED_MESSAGE_FILE, "Korvane Suppressed Message File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_FITTER_CREATED_ATOMS,
     "Version-compatible database file for Fitter Created Atoms", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_LOGDB, "Version-compatible database file for LogDB",
     clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_VECTOR_TABLE_OUTPUT_FILE_WITH_GROUP_RADIX_SUFFIX, "Vector Table Output File with group radix suffix",
     clsid::WED_RDX_DOC, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_PIN_PLANNER_FILE_PPF, "Pin Planner File", clsid::NONE, FIO_EDITOR_TYPE_NONE, hidden},
    {FIO_FILE_TYPE_DATABASE_FILE_FOR_THE_KPT_XML_FORMAT, "Database file for the KPT (XML format)", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_DDR_TIMING_WIZARD_FILE, "DDR Timing Wizard File", clsid::NONE, FIO_EDITOR_TYPE_NONE, hidden},
    {FIO_FILE_TYPE_JTAG_DEBUGGING_INFORMATION, "JTAG Debugging Information", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     project_result},
    {FIO_FILE_TYPE_SYSTEM_LEVEL_DEBUG_INFORMATION, "System-level Debug Information", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     project_result},
    {FIO_FILE_TYPE_ENCRYPTION_KEY_FILE, "Encryption Key File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_IN_SYSTEM_SOURCES_AND_PROBES_FILE, "In-System Sources and Probes File", clsid::BNL_DEFAULT_DOC,
     FIO_EDITOR_TYPE_IN_SYSTEM_SOURCES_AND_PROBES_FILES, source_and_probe | debugging},
    {FIO_FILE_TYPE_STATE_MACHINE_FILE, "State Machine File", clsid::SME_DEFAULT_DOC,
     FIO_EDITOR_TYPE_STATE_MACHINE_EDITOR_FILES, source | design | state_machine | design_group},
    {FIO_FILE_TYPE_FORGELINE_SYSTEM_FILE, "Forgeline System File", clsid::KSYS_DEFAULT_DOC,
     FIO_EDITOR_TYPE_KSYS_SYSTEM_FILES, source | design | ip_variation | design_group},
    {FIO_FILE_TYPE_DESIGN_ENTRY_EDITOR_FILE, "Design Entry Editor File", clsid::DEEQ_DEFAULT_DOC,
     FIO_EDITOR_TYPE_DESIGN_ENTRY_EDITOR_FILES, design_group},
    {FIO_FILE_TYPE_KORVANE_IP_XACT_DESCRIPTION_FILE, "Korvane IP-XACT Description File", clsid::NONE,
     FIO_EDITOR_TYPE_TEXT_FILES, source},
    {FIO_FILE_TYPE_IP_XACT_DESCRIPTION_FILE, "IP-XACT Description File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES,
     output},
    {FIO_FILE_TYPE_KORVANE_IP_FILE, "Korvane IP File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES, project | script},
    {FIO_FILE_TYPE_KORVANE_SIP_FILE, "Korvane SIP File", clsid::NONE, FIO_EDITOR_TYPE_TEXT_FILES,
     project | script | ip_variation},
    {FIO_FILE_TYPE_DESIGN_ASSISTANT_CUSTOM_RULES_FILES, "Design Assistant Custom Rules Files", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_DESIGN_ASSISTANT_WAIVER_FILES, "Design Assistant Waiver Files", clsid::NONE, FIO_EDITOR_TYPE_NONE,
     0},
    {FIO_FILE_TYPE_SIMULATION_FILES_TABLE, "Simulation files table", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_BOUNDARY_SCAN_DESCRIPTION_LANGUAGE, "Boundary Scan Description Language", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_TASKS_WINDOW_FLOW_FILE, "Tasks Window flow file", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_ADVISOR_FILE, "Korvane Advisor File", clsid::OAW_DEFAULT_DOC, FIO_EDITOR_TYPE_NONE, hidden},
    {FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_EQUIVALENCE_CHECKER_DATABASE,
     "Version-compatible database file for the Equivalence Checker database", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_DATABASE_FILE_FOR_REMOVED_REGISTER_DATABASE, "Database file for Removed Register Database",
     clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_PERSONA_FILE, "Korvane Persona File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_VERSION_COMPATIBLE_PERSONAX_FILE, "Korvane Version-compatible Personax File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_DIRECTORY, "Directory", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, "Korvane Report Database File", clsid::RPW_DEFAULT_DOC,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_PLATFORM_INFORMATION_FILE, "Korvane Platform Information File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_KORVANE_DEVKIT_INFORMATION_FILE, "Korvane Devkit Information File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_TAR_FILE, "TAR File", clsid::NONE, FIO_EDITOR_TYPE_NONE, other | hidden},
    {FIO_FILE_TYPE_FAULT_INJECTION_FILE, "Fault Injection File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_IP_FILE, "IP File", clsid::PBIP_DEFAULT_DOC, FIO_EDITOR_TYPE_IP_FILES,
     source | design | ip_variation},
    {FIO_FILE_TYPE_SENSITIVITY_MAP_HEADER_FILE, "Sensitivity Map Header File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_PROGRAMMING_FILE_GENERATOR_SETTINGS_FILE, "Programming File Generator Settings File",
     clsid::PFG_DEFAULT_DOC, FIO_EDITOR_TYPE_PROGRAMMING_FILE_GENERATOR_FILES, 0},
    {FIO_FILE_TYPE_PRIVACY_ENHANCED_MAIL_CERTIFICATE_FILE, "Privacy Enhanced Mail Certificate File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_KEY_FILE, "Korvane Key File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_ENCRYPTION_KEY_FILE, "Korvane Encryption Key File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_FUSE_FILE, "Korvane Fuse File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_CO_SIGNED_FIRMWARE_FILE, "Korvane Co-signed Firmware File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_CERTIFICATE_FILE, "Korvane Certificate File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_DEVICE_LICENSE_FILE, "Korvane Device License File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_PHYSICAL_UNCLONABLE_FUNCTION_FILE, "Korvane Physical Unclonable Function File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_WRAPPED_KEY_FILE, "Korvane Wrapped Key File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_COMPACT_CERTIFICATE_FILE, "Korvane Compact Certificate File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_REFERENCE_INTEGRITY_MANIFEST_FILE, "Korvane Reference Integrity Manifest File", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_CONCISE_REFERENCE_INTEGRITY_MANIFEST_FILE,
     "Korvane Concise Reference Integrity Manifest File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_CONCISE_REFERENCE_INTEGRITY_MANIFEST_REVOCATION_FILE,
     "Korvane Concise Reference Integrity Manifest Revocation File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_CONCISE_REFERENCE_INTEGRITY_MANIFEST_DIAGNOSTIC_NOTATION_FILE,
     "Korvane Concise Reference Integrity Manifest Diagnostic Notation File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_ZIP_FILE, "Zip File", clsid::NONE, FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_SNAPSHOT_VIEWER_FILE_NUI, "Korvane Snapshot Viewer File", clsid::NUI_SNAPSHOT_VIEWER_DOC,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_TCL_SCRIPT_FILE_SOURCE, "Tcl Script File (Source)", clsid::TED_TCL_DOC, FIO_EDITOR_TYPE_TEXT_FILES,
     script},
    {FIO_FILE_TYPE_ASIC_WRITEBACK_PROTOBUF_BINARY_FILE, "Asic writeback protobuf binary file", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_ASIC_WRITEBACK_PROTOBUF_TEXT_FILE, "Asic writeback protobuf text file", clsid::NONE,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_TIMING_ANALYZER_FILE, "Korvane Timing Analyzer File", clsid::TAW_SNAPSHOT_DOC,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_KORVANE_SNAPSHOT_VIEWER_FILE_SSV, "Korvane Snapshot Viewer File", clsid::SSV_DEFAULT_DOC,
     FIO_EDITOR_TYPE_NONE, 0},
    {FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC, "Power and Thermal Calculator File",
     clsid::EPEQ_READABLE_DOC, FIO_EDITOR_TYPE_POWER_AND_THERMAL_CALCULATOR_FILES, power},
    {FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_PTC, "Power and Thermal Calculator File", clsid::EPEQ_DEFAULT_DOC,
     FIO_EDITOR_TYPE_POWER_AND_THERMAL_CALCULATOR_FILES, power | power_group | other_group},
    {FIO_FILE_TYPE_KORVANE_RTL_ANALYZER_FILE, "Korvane RTL Analyzer File", clsid::RUI_DEFAULT_DOC, FIO_EDITOR_TYPE_NONE,
     0},
    {FIO_FILE_TYPE_SDC_FILE_TARGETING_RTL_NAMES_READ_AND_STORED_AFTER_ELABORATION,
     "SDC File targeting RTL names (Read and stored after elaboration)", clsid::TED_RTL_SDC_DOC,
     FIO_EDITOR_TYPE_TEXT_FILES, project | script | other_group},
    {FIO_FILE_TYPE_SDC_FILE_BASED_ON_RTL_NAMES_WITH_ENTITY_BINDING_READ_AND_STORED_AFTER_ELABORATION,
     "SDC File based on RTL names with entity binding (Read and stored after elaboration)", clsid::TED_RTL_SDC_DOC,
     FIO_EDITOR_TYPE_TEXT_FILES, project | script | hidden | other_group},
    {FIO_FILE_TYPE_PLAIN_TEXT_CONFIGURATION_FILE, "Plain Text Configuration File", clsid::NONE,
     FIO_EDITOR_TYPE_TEXT_FILES, other},
    {FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_NG_FILE, "Power and Thermal Calculator (NG) File",
     clsid::PTCNG_DEFAULT_DOC, FIO_EDITOR_TYPE_POWER_AND_THERMAL_CALCULATOR_NG_FILES, power | power_group},
};

// clang-format on

} // namespace rows

// clang-format off: one row a line

// Ordered by file type. Within a type the order decides which extension is the type's own: the first by default.
inline constexpr extension_row fio_extension_type_datas[] = {
    {FIO_EXTENSION_TYPE_INVALID, ".", FIO_FILE_TYPE_INVALID, rows::by_default},
    {FIO_EXTENSION_TYPE_IMG, ".img", FIO_FILE_TYPE_IMAGE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_HTM, ".htm", FIO_FILE_TYPE_HTML_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_HTML, ".html", FIO_FILE_TYPE_HTML_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_QML, ".qml", FIO_FILE_TYPE_QML_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_JSON, ".json", FIO_FILE_TYPE_JSON_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_TXT, ".txt", FIO_FILE_TYPE_TEXT_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_TDF, ".tdf", FIO_FILE_TYPE_KHDL_FILE, rows::by_default | rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_INC, ".inc", FIO_FILE_TYPE_KHDL_INCLUDE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_VHD, ".vhd", FIO_FILE_TYPE_VHDL_FILE, rows::by_default | rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_VHDL, ".vhdl", FIO_FILE_TYPE_VHDL_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_VHDP, ".vhdp", FIO_FILE_TYPE_VHDL_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_V, ".v", FIO_FILE_TYPE_VERILOG_HDL_FILE,
     rows::by_default | rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_VLG, ".vlg", FIO_FILE_TYPE_VERILOG_HDL_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_VERILOG, ".verilog", FIO_FILE_TYPE_VERILOG_HDL_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_SV, ".sv", FIO_FILE_TYPE_SYSTEMVERILOG_HDL_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_V, ".v", FIO_FILE_TYPE_SYSTEMVERILOG_HDL_FILE, rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_VLG, ".vlg", FIO_FILE_TYPE_SYSTEMVERILOG_HDL_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_VERILOG, ".verilog", FIO_FILE_TYPE_SYSTEMVERILOG_HDL_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_V, ".v", FIO_FILE_TYPE_VERILOG_INCLUDE_FILE,
     rows::by_default | rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_VLG, ".vlg", FIO_FILE_TYPE_VERILOG_INCLUDE_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_VH, ".vh", FIO_FILE_TYPE_VERILOG_INCLUDE_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_VERILOG, ".verilog", FIO_FILE_TYPE_VERILOG_INCLUDE_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_PKG, ".pkg", FIO_FILE_TYPE_VERILOG_INCLUDE_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_VMH, ".vmh", FIO_FILE_TYPE_VERILOG_GLOBAL_COMPILER_MACRO_FILE,
     rows::by_default | rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_VQM, ".vqm", FIO_FILE_TYPE_VERILOG_KORVANE_MAPPING_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_EDF, ".edf", FIO_FILE_TYPE_EDIF_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_EDIF, ".edif", FIO_FILE_TYPE_EDIF_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_EDN, ".edn", FIO_FILE_TYPE_EDIF_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_TAVRO_CPP, ".cpp", FIO_FILE_TYPE_TAVRO_SOURCE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_MDL, ".mdl", FIO_FILE_TYPE_SIGMAKER_SOURCE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_C, ".c", FIO_FILE_TYPE_C_SOURCE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_CPP, ".cpp", FIO_FILE_TYPE_CPP_SOURCE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_H, ".h", FIO_FILE_TYPE_C_CPP_INCLUDE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_S, ".s", FIO_FILE_TYPE_ASSEMBLY_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_ASM, ".asm", FIO_FILE_TYPE_ASSEMBLY_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_GDF, ".gdf", FIO_FILE_TYPE_GRAPHIC_DESIGN_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_BDF, ".bdf", FIO_FILE_TYPE_BLOCK_DIAGRAM_SCHEMATIC_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_BSF, ".bsf", FIO_FILE_TYPE_BLOCK_SYMBOL_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_SYM, ".sym", FIO_FILE_TYPE_SYMBOL_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_JPG, ".jpg", FIO_FILE_TYPE_JPEG_FILE_INTERCHANGE_FORMAT_JPG, rows::by_default},
    {FIO_EXTENSION_TYPE_JPEG, ".jpeg", FIO_FILE_TYPE_JPEG_FILE_INTERCHANGE_FORMAT_JPEG, rows::by_default},
    {FIO_EXTENSION_TYPE_BMP, ".bmp", FIO_FILE_TYPE_BITMAP_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PNG, ".png", FIO_FILE_TYPE_PORTABLE_NETWORK_GRAPHICS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_GIF, ".gif", FIO_FILE_TYPE_GRAPHICS_INTERCHANGE_FORMAT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_VWF, ".vwf", FIO_FILE_TYPE_COLLEGIUM_PROGRAM_VWF, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_CVWF, ".cvwf", FIO_FILE_TYPE_COMPRESSED_VECTOR_WAVEFORM_FILE,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_VEC, ".vec", FIO_FILE_TYPE_VECTOR_TEXT_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_TBL, ".tbl", FIO_FILE_TYPE_VECTOR_TABLE_OUTPUT_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_VHT, ".vht", FIO_FILE_TYPE_VHDL_TEST_BENCH_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_VT, ".vt", FIO_FILE_TYPE_VERILOG_TEST_BENCH_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SCF, ".scf", FIO_FILE_TYPE_SIMULATOR_CHANNEL_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_STP, ".stp", FIO_FILE_TYPE_VEXLOG_LOGIC_ANALYZER_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_KIP, ".kip", FIO_FILE_TYPE_IP_VARIATION_FILE_KIP, rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_LAI, ".lai", FIO_FILE_TYPE_LOGIC_ANALYZER_INTERFACE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_MIF, ".mif", FIO_FILE_TYPE_MEMORY_INITIALIZATION_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_HEX, ".hex", FIO_FILE_TYPE_HEXADECIMAL_MERAK_FORMAT_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_VCD, ".vcd", FIO_FILE_TYPE_VALUE_CHANGE_DUMP_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_SAF, ".saf", FIO_FILE_TYPE_SIGNAL_ACTIVITY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_RIF, ".rif", FIO_FILE_TYPE_RAM_INITIALIZATION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_AMIF, ".amif", FIO_FILE_TYPE_ADDRESS_MAPPING_INFORMATION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_LMF, ".lmf", FIO_FILE_TYPE_LIBRARY_MAPPING_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_TCL, ".tcl", FIO_FILE_TYPE_TCL_SCRIPT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SDC, ".sdc", FIO_FILE_TYPE_SDC_FILE_READ_BY_THE_TIMING_ANALYZER_AT_EACH_FITTER_STAGE,
     rows::by_default},
    {FIO_EXTENSION_TYPE_SDC, ".sdc",
     FIO_FILE_TYPE_SDC_FILE_WITH_ENTITY_BINDING_READ_BY_THE_TIMING_ANALYZER_AT_EACH_FITTER_STAGE, rows::by_default},
    {FIO_EXTENSION_TYPE_PY, ".py", FIO_FILE_TYPE_PYTHON_SCRIPT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_A, ".a", FIO_FILE_TYPE_LIBRARY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_LIB, ".lib", FIO_FILE_TYPE_LIBRARY_FILE, 0},
    {FIO_EXTENSION_TYPE_O, ".o", FIO_FILE_TYPE_OBJECT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_D, ".d", FIO_FILE_TYPE_DEPENDENCY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_ELF, ".elf", FIO_FILE_TYPE_ELF_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_BIN, ".bin", FIO_FILE_TYPE_BINARY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_ABIN, ".abin", FIO_FILE_TYPE_AUTHENTICATION_HEADER_BINARY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_FBIN, ".fbin", FIO_FILE_TYPE_FORMATTED_BINARY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_EBIN, ".ebin", FIO_FILE_TYPE_ENCRYPTED_BINARY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SREC, ".srec", FIO_FILE_TYPE_MOTOROLA_S_RECORD_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KORVANE, ".korvane", FIO_FILE_TYPE_PROJECT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KWS, ".kws", FIO_FILE_TYPE_WORKSPACE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PSF, ".psf", FIO_FILE_TYPE_PROJECT_SETTINGS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_CSF, ".csf", FIO_FILE_TYPE_COMPILER_SETTINGS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SSF, ".ssf", FIO_FILE_TYPE_SIMULATOR_SETTINGS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_ESF, ".esf", FIO_FILE_TYPE_ENTITY_SETTINGS_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_SDF, ".sdf", FIO_FILE_TYPE_STANDARD_DELAY_FORMAT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_ACF, ".acf", FIO_FILE_TYPE_DALMIR_II_ASSIGNMENT_AND_CONFIGURATION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SBD, ".sbd", FIO_FILE_TYPE_SYSTEM_BUILD_DESCRIPTOR_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KASE, ".kase", FIO_FILE_TYPE_ASSIGNMENT_EDITOR_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_KPF, ".kpf", FIO_FILE_TYPE_KORVANE_PROJECT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KDF, ".kdf", FIO_FILE_TYPE_KORVANE_DEFAULT_SETTING_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KSF, ".ksf", FIO_FILE_TYPE_KORVANE_SETTING_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_ACV, ".acv", FIO_FILE_TYPE_CHIP_EDITOR_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_APE, ".ape", FIO_FILE_TYPE_ATOM_PROPERTY_EDITOR_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_CDF, ".cdf", FIO_FILE_TYPE_CHAIN_DESCRIPTION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SOF, ".sof", FIO_FILE_TYPE_SRAM_OBJECT_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_POF, ".pof", FIO_FILE_TYPE_PROGRAMMER_OBJECT_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_JAM, ".jam", FIO_FILE_TYPE_JAM_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_JBC, ".jbc", FIO_FILE_TYPE_JAM_BYTE_CODE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SVF, ".svf", FIO_FILE_TYPE_SERIAL_VECTOR_FORMAT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_HEXOUT, ".hexout", FIO_FILE_TYPE_HEXADECIMAL_OUTPUT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SBF, ".sbf", FIO_FILE_TYPE_SERIAL_BITSTREAM_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_RBF, ".rbf", FIO_FILE_TYPE_RAW_BINARY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_MSF, ".msf", FIO_FILE_TYPE_MASK_SETTINGS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SMSF, ".smsf", FIO_FILE_TYPE_SECURE_MASK_SETTINGS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PMSF, ".pmsf", FIO_FILE_TYPE_PARTIAL_MASKED_SETTINGS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_DMSF, ".dmsf", FIO_FILE_TYPE_DEVICE_MASKED_SETTINGS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PSM, ".psm", FIO_FILE_TYPE_PARTIAL_SETTINGS_MASK_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PPB, ".ppb", FIO_FILE_TYPE_PARTIAL_PRESERVED_BITSTREAM_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KLK, ".klk", FIO_FILE_TYPE_ENCRYPTION_LOCK_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SBI, ".sbi", FIO_FILE_TYPE_SLAVE_BINARY_IMAGE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_ISC, ".isc", FIO_FILE_TYPE_IEEE_1532_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_MAP, ".map", FIO_FILE_TYPE_SYNTHESIS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_MAP_BB, ".map_bb", FIO_FILE_TYPE_SYNTHESIS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_TTF, ".ttf", FIO_FILE_TYPE_TABULAR_TEXT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_HEXPOF, ".hexpof", FIO_FILE_TYPE_HEXADECIMAL_PROGRAMMER_OBJECT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_COF, ".cof", FIO_FILE_TYPE_CONVERSION_SETUP_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_RPD, ".rpd", FIO_FILE_TYPE_RAW_PROGRAMMING_DATA_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KUD, ".kud", FIO_FILE_TYPE_KORVANE_USER_DEFINED_DEVICE, rows::by_default},
    {FIO_EXTENSION_TYPE_JIC, ".jic", FIO_FILE_TYPE_JTAG_INDIRECT_CONFIGURATION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_JCF, ".jcf", FIO_FILE_TYPE_JTAG_CHAIN_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_FCF, ".fcf", FIO_FILE_TYPE_FLEQ_CHAIN_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_IPS, ".ips", FIO_FILE_TYPE_I_O_PIN_STATE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_FLHEX, ".flhex", FIO_FILE_TYPE_FLASH_LOADER_HEXADECIMAL_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_EKP, ".ekp", FIO_FILE_TYPE_ENCRYPTION_KEY_PROGRAMMING_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_HIOF, ".hiof", FIO_FILE_TYPE_HPS_IO_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_FLASH, ".flash", FIO_FILE_TYPE_UFP_FLASH_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_MOF, ".mof", FIO_FILE_TYPE_MASK_OBJECT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_DER, ".der", FIO_FILE_TYPE_X_509_BINARY_ENCODED_CERTIFICATE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_CER, ".cer", FIO_FILE_TYPE_X_509_ASCII_ENCODED_CERTIFICATE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_CHAIN, ".chain", FIO_FILE_TYPE_SECURITY_PROTOCOL_AND_DATA_MODEL_SPDM_CHAIN_FILE,
     rows::by_default},
    {FIO_EXTENSION_TYPE_KORVANE_DB, ".korvane_db", FIO_FILE_TYPE_DATABASE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_VHDLVIEW, ".VHDLView", FIO_FILE_TYPE_VHDL_PARSE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_VERILOGVIEW, ".VerilogView", FIO_FILE_TYPE_VERILOG_PARSE_FILE,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_KRPT, ".krpt", FIO_FILE_TYPE_REPORT_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_FLD, ".fld", FIO_FILE_TYPE_FLOORPLAN_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_RPT, ".rpt", FIO_FILE_TYPE_TEXT_FORMAT_REPORT_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_CSF_RPT, ".csf.rpt", FIO_FILE_TYPE_TEXT_FORMAT_REPORT_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_SIM_RPT, ".sim.rpt", FIO_FILE_TYPE_TEXT_FORMAT_REPORT_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_PAO, ".pao", FIO_FILE_TYPE_TEXT_FORMAT_REPORT_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_SUMMARY, ".summary", FIO_FILE_TYPE_TEXT_FORMAT_REPORT_FILE, rows::archived},
    {FIO_EXTENSION_TYPE_HTM, ".htm", FIO_FILE_TYPE_HTML_FORMAT_REPORT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_HTML, ".html", FIO_FILE_TYPE_HTML_FORMAT_REPORT_FILE, 0},
    {FIO_EXTENSION_TYPE_CSF_HTM, ".csf.htm", FIO_FILE_TYPE_HTML_FORMAT_REPORT_FILE, 0},
    {FIO_EXTENSION_TYPE_CSF_HTML, ".csf.html", FIO_FILE_TYPE_HTML_FORMAT_REPORT_FILE, 0},
    {FIO_EXTENSION_TYPE_SIM_HTM, ".sim.htm", FIO_FILE_TYPE_HTML_FORMAT_REPORT_FILE, 0},
    {FIO_EXTENSION_TYPE_SIM_HTML, ".sim.html", FIO_FILE_TYPE_HTML_FORMAT_REPORT_FILE, 0},
    {FIO_EXTENSION_TYPE_KMSG, ".kmsg", FIO_FILE_TYPE_KORVANE_MESSAGE_FILE, 0},
    {FIO_EXTENSION_TYPE_KMSGDB, ".kmsgdb", FIO_FILE_TYPE_KORVANE_MESSAGE_DB_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SQLITE3, ".sqlite3", FIO_FILE_TYPE_SQLITE_DATABASE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_VO, ".vo", FIO_FILE_TYPE_VERILOG_OUTPUT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_VHO, ".vho", FIO_FILE_TYPE_VHDL_OUTPUT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_TDO, ".tdo", FIO_FILE_TYPE_KHDL_TEXT_DESIGN_OUTPUT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SDO, ".sdo", FIO_FILE_TYPE_STANDARD_DELAY_FORMAT_OUTPUT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_TAO, ".tao", FIO_FILE_TYPE_TIMING_ANALYSIS_OUTPUT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PIN, ".pin", FIO_FILE_TYPE_PIN_OUT_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_CSV, ".csv", FIO_FILE_TYPE_COMMA_SEPARATED_VALUE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_RIN, ".rin", FIO_FILE_TYPE_REGTEST_INPUT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_ROUT, ".rout", FIO_FILE_TYPE_REGTEST_OUTPUT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_EQN, ".eqn", FIO_FILE_TYPE_EQUATION_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_TPL, ".tpl", FIO_FILE_TYPE_TEMPLATE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_DAT, ".dat", FIO_FILE_TYPE_LICENSE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_KAR, ".kar", FIO_FILE_TYPE_KORVANE_ARCHIVE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PAR, ".par", FIO_FILE_TYPE_KORVANE_DESIGN_TEMPLATE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KARLOG, ".karlog", FIO_FILE_TYPE_KORVANE_ARCHIVE_LOG_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_KDB, ".kdb", FIO_FILE_TYPE_KORVANE_DATABASE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_KDBLOG, ".kdblog", FIO_FILE_TYPE_KORVANE_CORE_DATABASE_ARCHIVE_LOG_FILE,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_MODEL, ".model", FIO_FILE_TYPE_KORVANE_CORE_DATABASE_MODEL_S_HEADER_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KDA, ".kda", FIO_FILE_TYPE_KORVANE_DEVICE_ARCHIVE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KDALOG, ".kdalog", FIO_FILE_TYPE_KORVANE_DEVICE_ARCHIVE_LOG_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PWF, ".pwf", FIO_FILE_TYPE_POWER_INPUT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_DO, ".do", FIO_FILE_TYPE_MACRO_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_RCF, ".rcf", FIO_FILE_TYPE_ROUTING_CONSTRAINTS_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_PAC, ".pac", FIO_FILE_TYPE_FITTER_CLUSTER_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_APC, ".apc", FIO_FILE_TYPE_AVANTI_PLACEMENT_CONSTRAINTS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_GCLK, ".gclk", FIO_FILE_TYPE_GLOBAL_CLOCK_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_DSP, ".dsp", FIO_FILE_TYPE_REVISION_DESCRIPTION_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_ICC, ".icc", FIO_FILE_TYPE_INCREMENTAL_FITTING_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_MACR, ".macr", FIO_FILE_TYPE_MAC_REGION_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_CMP, ".cmp", FIO_FILE_TYPE_COMPONENT_DECLARATION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_BLF, ".blf", FIO_FILE_TYPE_BUFFER_LOCATION_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_ECO, ".eco", FIO_FILE_TYPE_CHANGE_MANAGER_FILE_ECO, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_ECO2, ".eco2", FIO_FILE_TYPE_CHANGE_MANAGER_FILE_ECO2, rows::by_default},
    {FIO_EXTENSION_TYPE_ATM, ".atm", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_ATOM_NETLIST,
     rows::by_default},
    {FIO_EXTENSION_TYPE_BCM, ".bcm", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_BCM_NETLIST,
     rows::by_default},
    {FIO_EXTENSION_TYPE_A2C, ".a2c", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_A2C_DATABASE,
     rows::by_default},
    {FIO_EXTENSION_TYPE_IBR, ".ibr", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_IBR_DATABASE,
     rows::by_default},
    {FIO_EXTENSION_TYPE_HDBX, ".hdbx", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_ASSIGNMENT_DATABASE,
     rows::by_default},
    {FIO_EXTENSION_TYPE_REPORT_QML, ".qml", FIO_FILE_TYPE_QML_VERSION_OF_THE_REPORT_FILE,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_XML, ".xml", FIO_FILE_TYPE_XML_VERSION_OF_THE_REPORT_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_DB_INFO, ".db_info", FIO_FILE_TYPE_DATABASE_INFORMATION, rows::by_default},
    {FIO_EXTENSION_TYPE_SPROBE, ".sprobe", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_SIGNAL_PROBE_INFORMATION,
     rows::by_default},
    {FIO_EXTENSION_TYPE_SCI, ".sci", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_AUTO_NODE_SLD_INFORMATION,
     rows::by_default},
    {FIO_EXTENSION_TYPE_SCIDSC, ".scidsc", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_SLD_INFORMATION,
     rows::by_default},
    {FIO_EXTENSION_TYPE_DFP, ".dfp", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_DFP_RESULT, rows::by_default},
    {FIO_EXTENSION_TYPE_BPM, ".bpm", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_BPM_INFORMATION,
     rows::by_default},
    {FIO_EXTENSION_TYPE_MBUS_IN, ".mbus_in", FIO_FILE_TYPE_SIMULATOR_FILES, rows::by_default},
    {FIO_EXTENSION_TYPE_PPL, ".ppl", FIO_FILE_TYPE_PIN_PLANNER_FILE_PPL, rows::by_default},
    {FIO_EXTENSION_TYPE_DONE, ".done", FIO_FILE_TYPE_TOUCH_FILE_USED_TO_HELP_BUILD_MAKEFILES, rows::by_default},
    {FIO_EXTENSION_TYPE_KPEF, ".kpef", FIO_FILE_TYPE_KORVANE_PLACEMENT_EXCHANGE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KREF, ".kref", FIO_FILE_TYPE_KORVANE_ROUTING_EXCHANGE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_OPT, ".opt", FIO_FILE_TYPE_KORVANE_FIXCAST_OPTION_REGISTER_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_TIMING_INFO, ".timing_info", FIO_FILE_TYPE_KORVANE_FIXCAST_TIMING_INFORMATION_FILE,
     rows::by_default},
    {FIO_EXTENSION_TYPE_DPF, ".dpf", FIO_FILE_TYPE_PROTOCOL_PLANNER_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KXP, ".kxp", FIO_FILE_TYPE_KORVANE_EXPORTED_DESIGN_PARTITION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KXP_INFO, ".kxp_info", FIO_FILE_TYPE_KORVANE_EXPORTED_DESIGN_PARTITION_INFORMATION_FILE,
     rows::by_default},
    {FIO_EXTENSION_TYPE_DPI, ".dpi", FIO_FILE_TYPE_KORVANE_DESIGN_PARTITION_INFORMATION_FILE_XML, rows::by_default},
    {FIO_EXTENSION_TYPE_SRF, ".srf", FIO_FILE_TYPE_KORVANE_MESSAGE_SUPPRESSION_RULE_FILE,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_FRF, ".frf", FIO_FILE_TYPE_KORVANE_MESSAGE_FLAG_RULE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_OCP, ".ocp", FIO_FILE_TYPE_TRIALCORE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SMSG, ".smsg", FIO_FILE_TYPE_KORVANE_SUPPRESSED_MESSAGE_FILE,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_CFM, ".cfm", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_FITTER_CREATED_ATOMS,
     rows::by_default},
    {FIO_EXTENSION_TYPE_LOGDB, ".logdb", FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_LOGDB, rows::by_default},
    {FIO_EXTENSION_TYPE_RADIX_TBL, ".tbl", FIO_FILE_TYPE_VECTOR_TABLE_OUTPUT_FILE_WITH_GROUP_RADIX_SUFFIX,
     rows::by_default},
    {FIO_EXTENSION_TYPE_PPF, ".ppf", FIO_FILE_TYPE_PIN_PLANNER_FILE_PPF, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_KPT, ".kpt", FIO_FILE_TYPE_DATABASE_FILE_FOR_THE_KPT_XML_FORMAT, rows::by_default},
    {FIO_EXTENSION_TYPE_MAP_KPT, ".map.kpt", FIO_FILE_TYPE_DATABASE_FILE_FOR_THE_KPT_XML_FORMAT, rows::by_default},
    {FIO_EXTENSION_TYPE_CMP_KPT, ".cmp.kpt", FIO_FILE_TYPE_DATABASE_FILE_FOR_THE_KPT_XML_FORMAT, rows::by_default},
    {FIO_EXTENSION_TYPE_DWZ, ".dwz", FIO_FILE_TYPE_DDR_TIMING_WIZARD_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_JDI, ".jdi", FIO_FILE_TYPE_JTAG_DEBUGGING_INFORMATION, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_SLD, ".sld", FIO_FILE_TYPE_SYSTEM_LEVEL_DEBUG_INFORMATION, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_KEY, ".key", FIO_FILE_TYPE_ENCRYPTION_KEY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SPF, ".spf", FIO_FILE_TYPE_IN_SYSTEM_SOURCES_AND_PROBES_FILE,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_SMF, ".smf", FIO_FILE_TYPE_STATE_MACHINE_FILE, rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_KSYS, ".ksys", FIO_FILE_TYPE_FORGELINE_SYSTEM_FILE, rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_DEE, ".dee", FIO_FILE_TYPE_DESIGN_ENTRY_EDITOR_FILE, rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_IPX, ".ipx", FIO_FILE_TYPE_KORVANE_IP_XACT_DESCRIPTION_FILE,
     rows::by_default | rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_IPXACT, ".ipxact", FIO_FILE_TYPE_IP_XACT_DESCRIPTION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KIP, ".kip", FIO_FILE_TYPE_KORVANE_IP_FILE, rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_SIP, ".sip", FIO_FILE_TYPE_KORVANE_SIP_FILE, rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_DACR, ".dacr", FIO_FILE_TYPE_DESIGN_ASSISTANT_CUSTOM_RULES_FILES,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_XML, ".xml", FIO_FILE_TYPE_DESIGN_ASSISTANT_CUSTOM_RULES_FILES,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_DAWF, ".dawf", FIO_FILE_TYPE_DESIGN_ASSISTANT_WAIVER_FILES, rows::by_default},
    {FIO_EXTENSION_TYPE_SFT, ".sft", FIO_FILE_TYPE_SIMULATION_FILES_TABLE, 0},
    {FIO_EXTENSION_TYPE_BSD, ".bsd", FIO_FILE_TYPE_BOUNDARY_SCAN_DESCRIPTION_LANGUAGE,
     rows::by_default | rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_BSM, ".bsm", FIO_FILE_TYPE_BOUNDARY_SCAN_DESCRIPTION_LANGUAGE, rows::archived},
    {FIO_EXTENSION_TYPE_BSDL, ".bsdl", FIO_FILE_TYPE_BOUNDARY_SCAN_DESCRIPTION_LANGUAGE, rows::archived},
    {FIO_EXTENSION_TYPE_TMF, ".tmf", FIO_FILE_TYPE_TASKS_WINDOW_FLOW_FILE, 0},
    {FIO_EXTENSION_TYPE_OAW, ".oaw", FIO_FILE_TYPE_KORVANE_ADVISOR_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_EDB, ".edb",
     FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_EQUIVALENCE_CHECKER_DATABASE, rows::by_default},
    {FIO_EXTENSION_TYPE_REG_DB, ".reg_db", FIO_FILE_TYPE_DATABASE_FILE_FOR_REMOVED_REGISTER_DATABASE, rows::by_default},
    {FIO_EXTENSION_TYPE_PERSONA, ".persona", FIO_FILE_TYPE_KORVANE_PERSONA_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PERSONAX, ".personax", FIO_FILE_TYPE_KORVANE_VERSION_COMPATIBLE_PERSONAX_FILE,
     rows::by_default},
    {FIO_EXTENSION_TYPE_DIR, ".dir", FIO_FILE_TYPE_DIRECTORY, rows::by_default},
    {FIO_EXTENSION_TYPE_RDB, ".rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_CMP_RDB, ".cmp.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_MAP_RDB, ".map.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_FIT_RDB, ".fit.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_STA_RDB, ".sta.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_TAW_RDB, ".taw.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_ASM_RDB, ".asm.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_PRW_RDB, ".prw.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_EMIT_RDB, ".emit.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_ACVQ_RDB, ".acvq.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_PPLQ_RDB, ".pplq.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_ROUTING_RDB, ".routing.rdb", FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, 0},
    {FIO_EXTENSION_TYPE_KP_INFO, ".kp_info", FIO_FILE_TYPE_KORVANE_PLATFORM_INFORMATION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_DEVKIT_INFO, ".devkit_info", FIO_FILE_TYPE_KORVANE_DEVKIT_INFORMATION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_TAR, ".tar", FIO_FILE_TYPE_TAR_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_FIF, ".fif", FIO_FILE_TYPE_FAULT_INJECTION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_IP, ".ip", FIO_FILE_TYPE_IP_FILE, rows::archived | rows::core_variation},
    {FIO_EXTENSION_TYPE_SMH, ".smh", FIO_FILE_TYPE_SENSITIVITY_MAP_HEADER_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PFG, ".pfg", FIO_FILE_TYPE_PROGRAMMING_FILE_GENERATOR_SETTINGS_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PEM, ".pem", FIO_FILE_TYPE_PRIVACY_ENHANCED_MAIL_CERTIFICATE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KKY, ".kky", FIO_FILE_TYPE_KORVANE_KEY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_KEK, ".kek", FIO_FILE_TYPE_KORVANE_ENCRYPTION_KEY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_FUSE, ".fuse", FIO_FILE_TYPE_KORVANE_FUSE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_ZIP, ".zip", FIO_FILE_TYPE_KORVANE_CO_SIGNED_FIRMWARE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_CERT, ".cert", FIO_FILE_TYPE_KORVANE_CERTIFICATE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_LIC, ".lic", FIO_FILE_TYPE_KORVANE_DEVICE_LICENSE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PUF, ".puf", FIO_FILE_TYPE_KORVANE_PHYSICAL_UNCLONABLE_FUNCTION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_WKEY, ".wkey", FIO_FILE_TYPE_KORVANE_WRAPPED_KEY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_CCERT, ".ccert", FIO_FILE_TYPE_KORVANE_COMPACT_CERTIFICATE_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_RIM, ".rim", FIO_FILE_TYPE_KORVANE_REFERENCE_INTEGRITY_MANIFEST_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_CORIM, ".corim", FIO_FILE_TYPE_KORVANE_CONCISE_REFERENCE_INTEGRITY_MANIFEST_FILE,
     rows::by_default},
    {FIO_EXTENSION_TYPE_XCORIM, ".xcorim", FIO_FILE_TYPE_KORVANE_CONCISE_REFERENCE_INTEGRITY_MANIFEST_REVOCATION_FILE,
     rows::by_default},
    {FIO_EXTENSION_TYPE_DIAG, ".diag",
     FIO_FILE_TYPE_KORVANE_CONCISE_REFERENCE_INTEGRITY_MANIFEST_DIAGNOSTIC_NOTATION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_ZIP, ".zip", FIO_FILE_TYPE_ZIP_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_NUI, ".nui", FIO_FILE_TYPE_KORVANE_SNAPSHOT_VIEWER_FILE_NUI, rows::by_default},
    {FIO_EXTENSION_TYPE_TCL, ".tcl", FIO_FILE_TYPE_TCL_SCRIPT_FILE_SOURCE, rows::by_default},
    {FIO_EXTENSION_TYPE_WBF, ".wbf", FIO_FILE_TYPE_ASIC_WRITEBACK_PROTOBUF_BINARY_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_WBFTXT, ".wbftxt", FIO_FILE_TYPE_ASIC_WRITEBACK_PROTOBUF_TEXT_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_TAWQ, ".tawq", FIO_FILE_TYPE_KORVANE_TIMING_ANALYZER_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_SSV, ".ssv", FIO_FILE_TYPE_KORVANE_SNAPSHOT_VIEWER_FILE_SSV, rows::by_default},
    {FIO_EXTENSION_TYPE_PTC_IMPORT, ".ptc_import", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC,
     rows::archived},
    {FIO_EXTENSION_TYPE_PTC_GZ, ".ptc.gz", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC, rows::archived},
    {FIO_EXTENSION_TYPE_PTC_IMPORT_GZ, ".ptc_import.gz", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC,
     rows::archived},
    {FIO_EXTENSION_TYPE_EPE, ".epe", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC, rows::archived},
    {FIO_EXTENSION_TYPE_EPE_IMPORT, ".epe_import", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC,
     rows::archived},
    {FIO_EXTENSION_TYPE_EPE_GZ, ".epe.gz", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC, rows::archived},
    {FIO_EXTENSION_TYPE_EPE_IMPORT_GZ, ".epe_import.gz", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC,
     rows::archived},
    {FIO_EXTENSION_TYPE_KPTC, ".kptc", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_KPTC_GZ, ".kptc.gz", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC, rows::archived},
    {FIO_EXTENSION_TYPE_CSV, ".csv", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC, rows::archived},
    {FIO_EXTENSION_TYPE_CSV_GZ, ".csv.gz", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC, rows::archived},
    {FIO_EXTENSION_TYPE_PTC, ".ptc", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_PTC,
     rows::by_default | rows::archived},
    {FIO_EXTENSION_TYPE_RA, ".ra", FIO_FILE_TYPE_KORVANE_RTL_ANALYZER_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_RTLSDC, ".rtlsdc", FIO_FILE_TYPE_SDC_FILE_TARGETING_RTL_NAMES_READ_AND_STORED_AFTER_ELABORATION,
     rows::by_default},
    {FIO_EXTENSION_TYPE_RTLSDC, ".rtlsdc",
     FIO_FILE_TYPE_SDC_FILE_BASED_ON_RTL_NAMES_WITH_ENTITY_BINDING_READ_AND_STORED_AFTER_ELABORATION, rows::by_default},
    {FIO_EXTENSION_TYPE_INI, ".ini", FIO_FILE_TYPE_PLAIN_TEXT_CONFIGURATION_FILE, rows::by_default},
    {FIO_EXTENSION_TYPE_PTCNG_PTC, ".ptc", FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_NG_FILE,
     rows::by_default | rows::archived},
};

// clang-format on

/// A file type as it is stored: the description is an offset into the strings after the rows.
struct file_type_row {
  FIO_FILE_TYPE file_type;
  std::uint16_t description;
  FIO_EDITOR_TYPE editor_type;
  std::int64_t traits;
  _GUID clsid;
};

inline constexpr std::size_t file_type_count = std::size(rows::file_types);
inline constexpr std::size_t extension_row_count = std::size(fio_extension_type_datas);

/// The first characters after the dot of an extension that is padded as those of the rows are, as one number.
constexpr std::uint32_t extension_key(char const (&extension)[sizeof extension_row::extension]) {
  std::uint32_t key = 0;
  for (std::size_t i = 1; i <= sizeof key; ++i) {
    key = key << 8 | static_cast<unsigned char>(extension[i]);
  }
  return key;
}

/// The keys of the extension rows, in the order of the rows: a scan of the rows reads them, and no row but those that
/// share a key. They are read by blocks, of which the last one is padded.
struct extension_key_table {
  static constexpr std::size_t block_size = 16;
  static constexpr std::size_t block_count = (extension_row_count + block_size - 1) / block_size;
  std::uint32_t blocks[block_count][block_size];
};

constexpr extension_key_table pack_extension_keys() {
  extension_key_table table = {};
  for (std::size_t i = 0; i != extension_row_count; ++i) {
    table.blocks[i / table.block_size][i % table.block_size] = extension_key(fio_extension_type_datas[i].extension);
  }
  return table;
}

inline constexpr extension_key_table fio_extension_keys = pack_extension_keys();

constexpr std::size_t size_of_descriptions() {
  std::size_t size = 0;
  for (file_type_source const& source : rows::file_types) {
    size += source.description.size() + 1;
  }
  return size;
}

struct file_type_table {
  file_type_row rows[file_type_count];
  char descriptions[size_of_descriptions()]; ///< C-strings, one after the other
};

constexpr file_type_table pack_file_types() {
  file_type_table table = {};
  std::size_t end = 0;
  for (std::size_t i = 0; i != file_type_count; ++i) {
    file_type_source const& source = rows::file_types[i];
    table.rows[i] = {source.file_type, static_cast<std::uint16_t>(end), source.editor_type, source.traits,
                     source.clsid};
    for (char const character : source.description) {
      table.descriptions[end++] = character;
    }
    ++end;
  }
  return table;
}

inline constexpr file_type_table fio_file_type_datas = pack_file_types();

// What the queries rely on.

static_assert(size_of_descriptions() <= UINT16_MAX + 1, "a description's offset fits its field");

constexpr bool each_file_type_is_its_row() {
  for (std::size_t i = 0; i != file_type_count; ++i) {
    if (static_cast<std::size_t>(rows::file_types[i].file_type) != i || rows::file_types[i].description.empty()) {
      return false;
    }
  }
  return true;
}
static_assert(file_type_count == 246 && each_file_type_is_its_row());

constexpr bool extensions_are_ordered_by_file_type_and_serve_all() {
  int newest = 0;
  for (extension_row const& row : fio_extension_type_datas) {
    if (row.file_type != newest && row.file_type != newest + 1) {
      return false;
    }
    newest = row.file_type;
  }
  return static_cast<std::size_t>(newest) + 1 == file_type_count;
}
static_assert(extension_row_count == 298 && extensions_are_ordered_by_file_type_and_serve_all());

constexpr bool extension_types_are_numbered_by_first_use() {
  int unused = 0;
  for (extension_row const& row : fio_extension_type_datas) {
    if (row.extension_type < 0 || row.extension_type > unused) {
      return false;
    }
    if (row.extension_type == unused) {
      ++unused;
    }
  }
  return unused == 283;
}
static_assert(extension_types_are_numbered_by_first_use());

constexpr bool each_extension_type_has_one_text_with_a_dot() {
  for (std::size_t i = 0; i != extension_row_count; ++i) {
    if (fio_extension_type_datas[i].extension[0] != '.') {
      return false;
    }
    for (std::size_t k = 0; k != i; ++k) {
      if (fio_extension_type_datas[k].extension_type == fio_extension_type_datas[i].extension_type &&
          std::string_view(fio_extension_type_datas[k].extension) !=
              std::string_view(fio_extension_type_datas[i].extension)) {
        return false;
      }
    }
  }
  return true;
}
static_assert(each_extension_type_has_one_text_with_a_dot());

constexpr bool no_file_type_uses_the_invalid_extension() {
  for (extension_row const& row : fio_extension_type_datas) {
    if (row.extension_type == FIO_EXTENSION_TYPE_INVALID && row.file_type != FIO_FILE_TYPE_INVALID) {
      return false;
    }
  }
  return true;
}
static_assert(no_file_type_uses_the_invalid_extension());

constexpr bool traits_and_editors_are_known() {
  for (extension_row const& row : fio_extension_type_datas) {
    auto const traits = row.traits;
    if (traits != 0 && traits != 2 && traits != 4 && traits != 6 && traits != 12 && traits != 14) {
      return false;
    }
  }
  for (file_type_source const& row : rows::file_types) {
    unsigned const editor = row.editor_type;
    if ((editor & (editor - 1)) != 0) {
      return false;
    }
  }
  return true;
}
static_assert(traits_and_editors_are_known());

constexpr bool first_rows_are_those_of_the_invalid_type() {
  file_type_source const& type = rows::file_types[0];
  extension_row const& extension = fio_extension_type_datas[0];
  return type.description == "Invalid file type" && fio_clsid_values::are_equal(type.clsid, fio_clsid_values::NONE) &&
         type.editor_type == FIO_EDITOR_TYPE_NONE && type.traits == rows::other && extension.extension_type == 0 &&
         extension.extension[1] == '\0' && extension.file_type == 0 && extension.traits == rows::by_default;
}
static_assert(first_rows_are_those_of_the_invalid_type());

} // namespace fio_tables

#endif
