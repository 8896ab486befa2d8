/// @file
/// What the vocabulary of files has to hold, written down as numbers and texts: the tests compare the answers of every
/// query with it. One row of a table is one line. It names nothing that the library keeps to itself.

#ifndef CCL_TESTS_VOCABULARY_EXPECTED_H
#define CCL_TESTS_VOCABULARY_EXPECTED_H

#include <cstdint>

#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_types.h"

namespace vocabulary {

/// A file type. Its document class is told by `document_classes`.
struct file_type_row {
  int file_type;
  char const* description;
  std::uint32_t editor_type;
  std::int64_t traits;
};

/// One extension of one file type.
struct extension_row {
  int extension_type;
  char const* text;
  int file_type;
  std::int64_t traits;
};

/// A document class under the name of its constant. Its value stands in what other programs have stored.
struct named_class {
  char const* name;
  _GUID const* clsid;
  char const* value;
};

/// A value with the text that people see.
struct named_value {
  std::uint32_t value;
  char const* text;
};

inline constexpr int file_type_count = 246;
inline constexpr int extension_type_count = 283;
inline constexpr int extension_row_count = 298;
inline constexpr int class_count = 156;

// clang-format off

/// The file types; a row's index is its value.
inline constexpr file_type_row file_types[] = {
  {0, "Invalid file type", 0, 128},
  {1, "Image File", 0, 0},
  {2, "HTML File", 0, 4096},
  {3, "QML File", 0, 4096},
  {4, "JSON File", 0, 4096},
  {5, "Text File", 8, 16777472},
  {6, "KHDL File", 8, 2097158},
  {7, "KHDL Include File", 8, 16777218},
  {8, "VHDL File", 8, 2097158},
  {9, "Verilog HDL File", 8, 2097158},
  {10, "SystemVerilog HDL File", 8, 2097158},
  {11, "Verilog Include File", 8, 2},
  {12, "Verilog Global Compiler Macro File", 8, 2},
  {13, "Verilog Korvane Mapping File", 8, 6},
  {14, "EDIF File", 8, 2097158},
  {15, "Tavro Source File", 8, 6},
  {16, "Sigmaker Source File", 0, 6},
  {17, "C Source File", 8, 0},
  {18, "C++ Source File", 8, 0},
  {19, "C/C++ Include File", 8, 6},
  {20, "Assembly File", 0, 0},
  {21, "Graphic Design File", 16, 6},
  {22, "Block Diagram/Schematic File", 16, 2097158},
  {23, "Block Symbol File", 16, 16777218},
  {24, "Symbol File", 16, 2},
  {25, "JPEG File Interchange Format", 0, 0},
  {26, "JPEG File Interchange Format", 0, 0},
  {27, "Bitmap File", 0, 0},
  {28, "Portable Network Graphics File", 0, 0},
  {29, "Graphics Interchange Format File", 0, 0},
  {30, "Collegium Program VWF", 2, 8194},
  {31, "Compressed Vector Waveform File", 2, 8194},
  {32, "Vector Text File", 2, 8194},
  {33, "Vector Table Output File", 2, 8192},
  {34, "VHDL Test Bench File", 8, 2048},
  {35, "Verilog Test Bench File", 8, 2048},
  {36, "Simulator Channel File", 2, 8194},
  {37, "Vexlog Logic Analyzer File", 128, 8389122},
  {38, "IP Variation File (.kip)", 8, 2228230},
  {39, "Logic Analyzer Interface File", 256, 8389634},
  {40, "Memory Initialization File", 4, 4194306},
  {41, "Hexadecimal (Merak-Format) File", 4, 4194306},
  {42, "Value Change Dump File", 2, 8194},
  {43, "Signal Activity File", 0, 0},
  {44, "RAM Initialization File", 0, 0},
  {45, "Address Mapping Information File", 0, 0},
  {46, "Library Mapping File", 8, 2},
  {47, "Tcl Script File", 8, 2097216},
  {48, "SDC File (Read by the Timing Analyzer at each fitter stage)", 8, 16777288},
  {49, "SDC File with entity binding (Read by the Timing Analyzer at each fitter stage)", 8, 16777288},
  {50, "Python Script File", 8, 0},
  {51, "Library File", 0, 0},
  {52, "Object File", 0, 0},
  {53, "Dependency File", 0, 0},
  {54, "ELF File", 0, 0},
  {55, "Binary File", 0, 0},
  {56, "Authentication Header Binary File", 0, 0},
  {57, "Formatted Binary File", 0, 0},
  {58, "Encrypted Binary File", 0, 0},
  {59, "Motorola S-Record File", 0, 0},
  {60, "Project File", 0, 8},
  {61, "Workspace File", 0, 256},
  {62, "Project Settings File", 0, 256},
  {63, "Compiler Settings File", 0, 264},
  {64, "Simulator Settings File", 0, 264},
  {65, "Entity Settings File", 0, 256},
  {66, "Standard Delay Format File", 0, 384},
  {67, "Dalmir II Assignment & Configuration File", 0, 384},
  {68, "System Build Descriptor File", 0, 384},
  {69, "Assignment Editor File", 512, 256},
  {70, "Korvane Project File", 0, 264},
  {71, "Korvane Default Setting File", 0, 256},
  {72, "Korvane Setting File", 8, 264},
  {73, "Chip Editor File", 1024, 256},
  {74, "Atom Property Editor File", 2048, 256},
  {75, "Chain Description File", 64, 16777216},
  {76, "SRAM Object File", 64, 4096},
  {77, "Programmer Object File", 64, 4096},
  {78, "Jam File", 64, 0},
  {79, "Jam Byte-Code File", 64, 0},
  {80, "Serial Vector Format File", 0, 0},
  {81, "Hexadecimal Output File", 0, 0},
  {82, "Serial Bitstream File", 0, 0},
  {83, "Raw Binary File", 0, 0},
  {84, "Mask Settings File", 0, 0},
  {85, "Secure Mask Settings File", 0, 0},
  {86, "Partial-Masked Settings File", 0, 0},
  {87, "Device Masked Settings File", 0, 0},
  {88, "Partial Settings Mask File", 0, 0},
  {89, "Partial Preserved Bitstream File", 0, 0},
  {90, "Encryption Lock File", 0, 0},
  {91, "Slave Binary Image File", 0, 0},
  {92, "IEEE 1532 file", 0, 0},
  {93, "Synthesis file", 8, 0},
  {94, "Tabular Text File", 8, 0},
  {95, "Hexadecimal Programmer Object File", 8, 0},
  {96, "Conversion Setup File", 0, 0},
  {97, "Raw Programming Data File", 0, 0},
  {98, "Korvane User-Defined Device", 0, 0},
  {99, "JTAG Indirect Configuration File", 64, 4096},
  {100, "JTAG Chain File", 64, 4096},
  {101, "FLEQ Chain File", 64, 4096},
  {102, "I/O Pin State File", 0, 0},
  {103, "Flash Loader Hexadecimal File", 0, 0},
  {104, "Encryption Key Programming File", 0, 0},
  {105, "HPS IO File", 0, 0},
  {106, "UFP Flash File", 0, 0},
  {107, "Mask Object File", 0, 0},
  {108, "X.509 Binary Encoded Certificate File", 0, 0},
  {109, "X.509 ASCII Encoded Certificate File", 0, 0},
  {110, "Security Protocol and Data Model (SPDM) Chain File", 0, 0},
  {111, "Database File", 0, 384},
  {112, "VHDL Parse File", 0, 384},
  {113, "Verilog Parse File", 0, 384},
  {114, "Report File", 0, 384},
  {115, "Floorplan File", 0, 384},
  {116, "Text-Format Report File", 8, 4112},
  {117, "HTML-Format Report File", 32, 4112},
  {118, "Korvane Message File", 8, 4128},
  {119, "Korvane Message DB File", 0, 0},
  {120, "SQLite Database File", 0, 0},
  {121, "Verilog Output File", 8, 32},
  {122, "VHDL Output File", 8, 32},
  {123, "KHDL Text Design Output File", 8, 32},
  {124, "Standard Delay Format Output File", 8, 32},
  {125, "Timing Analysis Output File", 8, 4128},
  {126, "Pin-Out File", 8, 32},
  {127, "Comma Separated Value File", 8, 0},
  {128, "Regtest Input File", 0, 384},
  {129, "Regtest Output File", 0, 384},
  {130, "Equation File", 0, 4480},
  {131, "Template File", 0, 384},
  {132, "License File", 0, 384},
  {133, "Korvane Archive File", 0, 384},
  {134, "Korvane Design Template File", 0, 384},
  {135, "Korvane Archive Log File", 0, 384},
  {136, "Korvane Database File", 0, 6},
  {137, "Korvane Core Database Archive Log File", 0, 384},
  {138, "Korvane Core Database model's header file", 0, 0},
  {139, "Korvane Device Archive File", 0, 384},
  {140, "Korvane Device Archive Log File", 0, 384},
  {141, "Power Input File", 0, 0},
  {142, "Macro File", 0, 0},
  {143, "Routing Constraints File", 0, 0},
  {144, "Fitter Cluster File", 0, 0},
  {145, "Avanti Placement Constraints File", 0, 0},
  {146, "Global Clock File", 0, 0},
  {147, "Revision Description File", 0, 0},
  {148, "Incremental Fitting File", 0, 0},
  {149, "MAC Region File", 0, 0},
  {150, "Component Declaration File", 8, 4},
  {151, "Buffer Location File", 0, 0},
  {152, "Change Manager File", 0, 256},
  {153, "Change Manager File", 0, 0},
  {154, "Version-compatible database file for the atom netlist", 0, 0},
  {155, "Version-compatible database file for the bcm netlist", 0, 0},
  {156, "Version-compatible database file for the A2C database", 0, 0},
  {157, "Version-compatible database file for the IBR database", 0, 0},
  {158, "Version-compatible database file for the assignment database", 0, 0},
  {159, "QML version of the report file", 0, 0},
  {160, "XML version of the report file", 0, 0},
  {161, "Database information", 0, 0},
  {162, "Version-compatible database file for Signal Probe information", 0, 0},
  {163, "Version-compatible database file for auto node SLD information", 0, 0},
  {164, "Version-compatible database file for SLD information", 0, 0},
  {165, "Version-compatible database file for DFP result", 0, 0},
  {166, "Version-compatible database file for BPM information", 0, 0},
  {167, "Simulator Files", 0, 0},
  {168, "Pin Planner File", 0, 0},
  {169, "Touch file used to help build makefiles", 0, 0},
  {170, "Korvane Placement Exchange File", 0, 0},
  {171, "Korvane Routing Exchange File", 0, 0},
  {172, "Korvane Fixcast Option Register File", 0, 0},
  {173, "Korvane Fixcast Timing Information File", 0, 0},
  {174, "Protocol Planner File", 0, 2},
  {175, "Korvane Exported Design Partition File", 0, 0},
  {176, "Korvane Exported Design Partition Information File", 0, 0},
  {177, "Korvane Design Partition Information File (XML)", 0, 256},
  {178, "Korvane Message Suppression Rule File", 0, 0},
  {179, "Korvane Message Flag Rule File", 0, 0},
  {180, "Trialcore File", 0, 256},
  {181, "Korvane Suppressed Message File", 0, 0},
  {182, "Version-compatible database file for Fitter Created Atoms", 0, 0},
  {183, "Version-compatible database file for LogDB", 0, 0},
  {184, "Vector Table Output File with group radix suffix", 0, 0},
  {185, "Pin Planner File", 0, 256},
  {186, "Database file for the KPT (XML format)", 0, 0},
  {187, "DDR Timing Wizard File", 0, 256},
  {188, "JTAG Debugging Information", 0, 4096},
  {189, "System-level Debug Information", 0, 4096},
  {190, "Encryption Key File", 0, 0},
  {191, "In-System Sources and Probes File", 4096, 8404992},
  {192, "State Machine File", 8192, 2129926},
  {193, "Forgeline System File", 65536, 2228230},
  {194, "Design Entry Editor File", 1048576, 2097152},
  {195, "Korvane IP-XACT Description File", 8, 2},
  {196, "IP-XACT Description File", 8, 32},
  {197, "Korvane IP File", 8, 72},
  {198, "Korvane SIP File", 8, 131144},
  {199, "Design Assistant Custom Rules Files", 0, 0},
  {200, "Design Assistant Waiver Files", 0, 0},
  {201, "Simulation files table", 0, 0},
  {202, "Boundary Scan Description Language", 0, 0},
  {203, "Tasks Window flow file", 0, 0},
  {204, "Korvane Advisor File", 0, 256},
  {205, "Version-compatible database file for the Equivalence Checker database", 0, 0},
  {206, "Database file for Removed Register Database", 0, 0},
  {207, "Korvane Persona File", 0, 0},
  {208, "Korvane Version-compatible Personax File", 0, 0},
  {209, "Directory", 0, 0},
  {210, "Korvane Report Database File", 0, 0},
  {211, "Korvane Platform Information File", 0, 384},
  {212, "Korvane Devkit Information File", 0, 384},
  {213, "TAR File", 0, 384},
  {214, "Fault Injection File", 0, 0},
  {215, "IP File", 131072, 131078},
  {216, "Sensitivity Map Header File", 0, 0},
  {217, "Programming File Generator Settings File", 262144, 0},
  {218, "Privacy Enhanced Mail Certificate File", 0, 0},
  {219, "Korvane Key File", 0, 0},
  {220, "Korvane Encryption Key File", 0, 0},
  {221, "Korvane Fuse File", 0, 0},
  {222, "Korvane Co-signed Firmware File", 0, 0},
  {223, "Korvane Certificate File", 0, 0},
  {224, "Korvane Device License File", 0, 0},
  {225, "Korvane Physical Unclonable Function File", 0, 0},
  {226, "Korvane Wrapped Key File", 0, 0},
  {227, "Korvane Compact Certificate File", 0, 0},
  {228, "Korvane Reference Integrity Manifest File", 0, 0},
  {229, "Korvane Concise Reference Integrity Manifest File", 0, 0},
  {230, "Korvane Concise Reference Integrity Manifest Revocation File", 0, 0},
  {231, "Korvane Concise Reference Integrity Manifest Diagnostic Notation File", 0, 0},
  {232, "Zip File", 0, 0},
  {233, "Korvane Snapshot Viewer File", 0, 0},
  {234, "Tcl Script File (Source)", 8, 64},
  {235, "Asic writeback protobuf binary file", 0, 0},
  {236, "Asic writeback protobuf text file", 0, 0},
  {237, "Korvane Timing Analyzer File", 0, 0},
  {238, "Korvane Snapshot Viewer File", 0, 0},
  {239, "Power and Thermal Calculator File", 524288, 262144},
  {240, "Power and Thermal Calculator File", 524288, 17563648},
  {241, "Korvane RTL Analyzer File", 0, 0},
  {242, "SDC File targeting RTL names (Read and stored after elaboration)", 8, 16777288},
  {243, "SDC File based on RTL names with entity binding (Read and stored after elaboration)", 8, 16777544},
  {244, "Plain Text Configuration File", 8, 128},
  {245, "Power and Thermal Calculator (NG) File", 2097152, 786432},
};

/// The document class of each file type, by value.
inline _GUID const* const document_classes[] = {
  &FIO_CLSID_NULL, // 0
  &FIO_CLSID_NULL, // 1
  &FIO_CLSID_NULL, // 2
  &FIO_CLSID_NULL, // 3
  &FIO_CLSID_NULL, // 4
  &VFC_CLSID_TED_DEFAULT_DOC, // 5
  &VFC_CLSID_TED_TDF_DOC, // 6
  &VFC_CLSID_TED_TDF_INC_DOC, // 7
  &VFC_CLSID_TED_VHD_DOC, // 8
  &VFC_CLSID_TED_VERILOG_DOC, // 9
  &VFC_CLSID_TED_SYSTEMVERILOG_DOC, // 10
  &VFC_CLSID_TED_VERILOG_DOC, // 11
  &VFC_CLSID_TED_VERILOG_DOC, // 12
  &VFC_CLSID_TED_VERILOG_DOC, // 13
  &VFC_CLSID_TED_EDF_DOC, // 14
  &VFC_CLSID_TED_DEFAULT_DOC, // 15
  &FIO_CLSID_NULL, // 16
  &VFC_CLSID_TED_DEFAULT_DOC, // 17
  &VFC_CLSID_TED_DEFAULT_DOC, // 18
  &VFC_CLSID_TED_DEFAULT_DOC, // 19
  &FIO_CLSID_NULL, // 20
  &VFC_CLSID_GED_GDF_DOC, // 21
  &VFC_CLSID_GED_BDF_DOC, // 22
  &VFC_CLSID_GED_BSF_DOC, // 23
  &VFC_CLSID_GED_SYM_DOC, // 24
  &FIO_CLSID_NULL, // 25
  &FIO_CLSID_NULL, // 26
  &FIO_CLSID_NULL, // 27
  &FIO_CLSID_NULL, // 28
  &FIO_CLSID_NULL, // 29
  &VFC_CLSID_WEDTQ_DEFAULT_DOC, // 30
  &VFC_CLSID_WED_ZVCF_DOC, // 31
  &VFC_CLSID_WED_VEC_DOC, // 32
  &VFC_CLSID_WED_TBL_DOC, // 33
  &FIO_CLSID_NULL, // 34
  &FIO_CLSID_NULL, // 35
  &VFC_CLSID_WED_SCF_DOC, // 36
  &VFC_CLSID_SED_DEFAULT_DOC, // 37
  &FIO_CLSID_NULL, // 38
  &VFC_CLSID_ATC_DEFAULT_DOC, // 39
  &VFC_CLSID_MED_MIF_DOC, // 40
  &VFC_CLSID_MED_HEX_DOC, // 41
  &VFC_CLSID_WED_VCD_DOC, // 42
  &FIO_CLSID_NULL, // 43
  &FIO_CLSID_NULL, // 44
  &FIO_CLSID_NULL, // 45
  &FIO_CLSID_NULL, // 46
  &VFC_CLSID_TED_TCL_DOC, // 47
  &VFC_CLSID_TED_SDC_DOC, // 48
  &VFC_CLSID_TED_SDC_DOC, // 49
  &FIO_CLSID_NULL, // 50
  &FIO_CLSID_NULL, // 51
  &FIO_CLSID_NULL, // 52
  &FIO_CLSID_NULL, // 53
  &FIO_CLSID_NULL, // 54
  &FIO_CLSID_NULL, // 55
  &FIO_CLSID_NULL, // 56
  &FIO_CLSID_NULL, // 57
  &FIO_CLSID_NULL, // 58
  &FIO_CLSID_NULL, // 59
  &VFC_CLSID_PJM_PROJECT, // 60
  &FIO_CLSID_NULL, // 61
  &FIO_CLSID_NULL, // 62
  &VFC_CLSID_PJM_CSF, // 63
  &VFC_CLSID_PJM_SSF, // 64
  &FIO_CLSID_NULL, // 65
  &FIO_CLSID_NULL, // 66
  &FIO_CLSID_NULL, // 67
  &FIO_CLSID_NULL, // 68
  &VFC_CLSID_ASE_DEFAULT_DOC, // 69
  &VFC_CLSID_PJM_KPF, // 70
  &FIO_CLSID_NULL, // 71
  &VFC_CLSID_TED_DEFAULT_DOC, // 72
  &VFC_CLSID_ACV_DEFAULT_DOC, // 73
  &VFC_CLSID_APE_DEFAULT_DOC, // 74
  &VFC_CLSID_PGMW_CDF_DOC, // 75
  &VFC_CLSID_PGMW_SOF_DOC, // 76
  &VFC_CLSID_PGMW_POF_DOC, // 77
  &VFC_CLSID_PGMW_JAM_DOC, // 78
  &VFC_CLSID_PGMW_JBC_DOC, // 79
  &FIO_CLSID_NULL, // 80
  &FIO_CLSID_NULL, // 81
  &FIO_CLSID_NULL, // 82
  &FIO_CLSID_NULL, // 83
  &FIO_CLSID_NULL, // 84
  &FIO_CLSID_NULL, // 85
  &FIO_CLSID_NULL, // 86
  &FIO_CLSID_NULL, // 87
  &FIO_CLSID_NULL, // 88
  &FIO_CLSID_NULL, // 89
  &FIO_CLSID_NULL, // 90
  &FIO_CLSID_NULL, // 91
  &FIO_CLSID_NULL, // 92
  &FIO_CLSID_NULL, // 93
  &FIO_CLSID_NULL, // 94
  &FIO_CLSID_NULL, // 95
  &FIO_CLSID_NULL, // 96
  &FIO_CLSID_NULL, // 97
  &FIO_CLSID_NULL, // 98
  &VFC_CLSID_PGMW_PFL_DOC, // 99
  &VFC_CLSID_PGMW_JCF_DOC, // 100
  &VFC_CLSID_PGMW_FCF_DOC, // 101
  &FIO_CLSID_NULL, // 102
  &FIO_CLSID_NULL, // 103
  &FIO_CLSID_NULL, // 104
  &FIO_CLSID_NULL, // 105
  &FIO_CLSID_NULL, // 106
  &FIO_CLSID_NULL, // 107
  &FIO_CLSID_NULL, // 108
  &FIO_CLSID_NULL, // 109
  &FIO_CLSID_NULL, // 110
  &FIO_CLSID_NULL, // 111
  &FIO_CLSID_NULL, // 112
  &FIO_CLSID_NULL, // 113
  &FIO_CLSID_NULL, // 114
  &FIO_CLSID_NULL, // 115
  &VFC_CLSID_RPW_TXT_DOC, // 116
  &VFC_CLSID_RPW_HTML_DOC, // 117
  &FIO_CLSID_NULL, // 118
  &FIO_CLSID_NULL, // 119
  &FIO_CLSID_NULL, // 120
  &FIO_CLSID_NULL, // 121
  &FIO_CLSID_NULL, // 122
  &FIO_CLSID_NULL, // 123
  &FIO_CLSID_NULL, // 124
  &FIO_CLSID_NULL, // 125
  &FIO_CLSID_NULL, // 126
  &FIO_CLSID_NULL, // 127
  &FIO_CLSID_NULL, // 128
  &FIO_CLSID_NULL, // 129
  &FIO_CLSID_NULL, // 130
  &FIO_CLSID_NULL, // 131
  &FIO_CLSID_NULL, // 132
  &VFC_CLSID_PJM_ARCHIVE, // 133
  &FIO_CLSID_NULL, // 134
  &FIO_CLSID_NULL, // 135
  &VFC_CLSID_KDB_DEFAULT_DOC, // 136
  &FIO_CLSID_NULL, // 137
  &FIO_CLSID_NULL, // 138
  &FIO_CLSID_NULL, // 139
  &FIO_CLSID_NULL, // 140
  &FIO_CLSID_NULL, // 141
  &FIO_CLSID_NULL, // 142
  &FIO_CLSID_NULL, // 143
  &FIO_CLSID_NULL, // 144
  &FIO_CLSID_NULL, // 145
  &FIO_CLSID_NULL, // 146
  &FIO_CLSID_NULL, // 147
  &FIO_CLSID_NULL, // 148
  &FIO_CLSID_NULL, // 149
  &FIO_CLSID_NULL, // 150
  &FIO_CLSID_NULL, // 151
  &FIO_CLSID_NULL, // 152
  &FIO_CLSID_NULL, // 153
  &FIO_CLSID_NULL, // 154
  &FIO_CLSID_NULL, // 155
  &FIO_CLSID_NULL, // 156
  &FIO_CLSID_NULL, // 157
  &FIO_CLSID_NULL, // 158
  &FIO_CLSID_NULL, // 159
  &FIO_CLSID_NULL, // 160
  &FIO_CLSID_NULL, // 161
  &FIO_CLSID_NULL, // 162
  &FIO_CLSID_NULL, // 163
  &FIO_CLSID_NULL, // 164
  &FIO_CLSID_NULL, // 165
  &FIO_CLSID_NULL, // 166
  &FIO_CLSID_NULL, // 167
  &VFC_CLSID_PPL_DEFAULT_DOC, // 168
  &FIO_CLSID_NULL, // 169
  &FIO_CLSID_NULL, // 170
  &FIO_CLSID_NULL, // 171
  &FIO_CLSID_NULL, // 172
  &FIO_CLSID_NULL, // 173
  &FIO_CLSID_NULL, // 174
  &FIO_CLSID_NULL, // 175
  &FIO_CLSID_NULL, // 176
  &FIO_CLSID_NULL, // 177
  &FIO_CLSID_NULL, // 178
  &FIO_CLSID_NULL, // 179
  &FIO_CLSID_NULL, // 180
  &FIO_CLSID_NULL, // 181
  &FIO_CLSID_NULL, // 182
  &FIO_CLSID_NULL, // 183
  &VFC_CLSID_WED_RDX_DOC, // 184
  &FIO_CLSID_NULL, // 185
  &FIO_CLSID_NULL, // 186
  &FIO_CLSID_NULL, // 187
  &FIO_CLSID_NULL, // 188
  &FIO_CLSID_NULL, // 189
  &FIO_CLSID_NULL, // 190
  &VFC_CLSID_BNL_DEFAULT_DOC, // 191
  &VFC_CLSID_SME_DEFAULT_DOC, // 192
  &VFC_CLSID_KSYS_DEFAULT_DOC, // 193
  &VFC_CLSID_DEEQ_DEFAULT_DOC, // 194
  &FIO_CLSID_NULL, // 195
  &FIO_CLSID_NULL, // 196
  &FIO_CLSID_NULL, // 197
  &FIO_CLSID_NULL, // 198
  &FIO_CLSID_NULL, // 199
  &FIO_CLSID_NULL, // 200
  &FIO_CLSID_NULL, // 201
  &FIO_CLSID_NULL, // 202
  &FIO_CLSID_NULL, // 203
  &VFC_CLSID_OAW_DEFAULT_DOC, // 204
  &FIO_CLSID_NULL, // 205
  &FIO_CLSID_NULL, // 206
  &FIO_CLSID_NULL, // 207
  &FIO_CLSID_NULL, // 208
  &FIO_CLSID_NULL, // 209
  &VFC_CLSID_RPW_DEFAULT_DOC, // 210
  &FIO_CLSID_NULL, // 211
  &FIO_CLSID_NULL, // 212
  &FIO_CLSID_NULL, // 213
  &FIO_CLSID_NULL, // 214
  &VFC_CLSID_PBIP_DEFAULT_DOC, // 215
  &FIO_CLSID_NULL, // 216
  &VFC_CLSID_PFG_DEFAULT_DOC, // 217
  &FIO_CLSID_NULL, // 218
  &FIO_CLSID_NULL, // 219
  &FIO_CLSID_NULL, // 220
  &FIO_CLSID_NULL, // 221
  &FIO_CLSID_NULL, // 222
  &FIO_CLSID_NULL, // 223
  &FIO_CLSID_NULL, // 224
  &FIO_CLSID_NULL, // 225
  &FIO_CLSID_NULL, // 226
  &FIO_CLSID_NULL, // 227
  &FIO_CLSID_NULL, // 228
  &FIO_CLSID_NULL, // 229
  &FIO_CLSID_NULL, // 230
  &FIO_CLSID_NULL, // 231
  &FIO_CLSID_NULL, // 232
  &VFC_CLSID_NUI_SNAPSHOT_VIEWER_DOC, // 233
  &VFC_CLSID_TED_TCL_DOC, // 234
  &FIO_CLSID_NULL, // 235
  &FIO_CLSID_NULL, // 236
  &VFC_CLSID_TAW_SNAPSHOT_DOC, // 237
  &VFC_CLSID_SSV_DEFAULT_DOC, // 238
  &VFC_CLSID_EPEQ_READABLE_DOC, // 239
  &VFC_CLSID_EPEQ_DEFAULT_DOC, // 240
  &VFC_CLSID_RUI_DEFAULT_DOC, // 241
  &VFC_CLSID_TED_RTL_SDC_DOC, // 242
  &VFC_CLSID_TED_RTL_SDC_DOC, // 243
  &FIO_CLSID_NULL, // 244
  &VFC_CLSID_PTCNG_DEFAULT_DOC, // 245
};

/// The extensions of all file types, in their order.
inline constexpr extension_row extensions[] = {
  {0, ".", 0, 2},
  {1, ".img", 1, 2},
  {2, ".htm", 2, 6},
  {3, ".html", 2, 4},
  {4, ".qml", 3, 6},
  {5, ".json", 4, 6},
  {6, ".txt", 5, 6},
  {7, ".tdf", 6, 14},
  {8, ".inc", 7, 6},
  {9, ".vhd", 8, 14},
  {10, ".vhdl", 8, 4},
  {11, ".vhdp", 8, 4},
  {12, ".v", 9, 14},
  {13, ".vlg", 9, 4},
  {14, ".verilog", 9, 4},
  {15, ".sv", 10, 6},
  {12, ".v", 10, 12},
  {13, ".vlg", 10, 4},
  {14, ".verilog", 10, 4},
  {12, ".v", 11, 14},
  {13, ".vlg", 11, 4},
  {16, ".vh", 11, 4},
  {14, ".verilog", 11, 4},
  {17, ".pkg", 11, 4},
  {18, ".vmh", 12, 14},
  {19, ".vqm", 13, 6},
  {20, ".edf", 14, 6},
  {21, ".edif", 14, 4},
  {22, ".edn", 14, 4},
  {23, ".cpp", 15, 6},
  {24, ".mdl", 16, 6},
  {25, ".c", 17, 6},
  {26, ".cpp", 18, 6},
  {27, ".h", 19, 6},
  {28, ".s", 20, 6},
  {29, ".asm", 20, 4},
  {30, ".gdf", 21, 6},
  {31, ".bdf", 22, 6},
  {32, ".bsf", 23, 6},
  {33, ".sym", 24, 6},
  {34, ".jpg", 25, 2},
  {35, ".jpeg", 26, 2},
  {36, ".bmp", 27, 2},
  {37, ".png", 28, 2},
  {38, ".gif", 29, 2},
  {39, ".vwf", 30, 6},
  {40, ".cvwf", 31, 6},
  {41, ".vec", 32, 6},
  {42, ".tbl", 33, 6},
  {43, ".vht", 34, 2},
  {44, ".vt", 35, 2},
  {45, ".scf", 36, 6},
  {46, ".stp", 37, 6},
  {47, ".kip", 38, 12},
  {48, ".lai", 39, 6},
  {49, ".mif", 40, 6},
  {50, ".hex", 41, 6},
  {51, ".vcd", 42, 6},
  {52, ".saf", 43, 2},
  {53, ".rif", 44, 2},
  {54, ".amif", 45, 2},
  {55, ".lmf", 46, 6},
  {56, ".tcl", 47, 2},
  {57, ".sdc", 48, 2},
  {57, ".sdc", 49, 2},
  {58, ".py", 50, 2},
  {59, ".a", 51, 2},
  {60, ".lib", 51, 0},
  {61, ".o", 52, 2},
  {62, ".d", 53, 2},
  {63, ".elf", 54, 2},
  {64, ".bin", 55, 2},
  {65, ".abin", 56, 2},
  {66, ".fbin", 57, 2},
  {67, ".ebin", 58, 2},
  {68, ".srec", 59, 2},
  {69, ".korvane", 60, 2},
  {70, ".kws", 61, 2},
  {71, ".psf", 62, 2},
  {72, ".csf", 63, 2},
  {73, ".ssf", 64, 2},
  {74, ".esf", 65, 6},
  {75, ".sdf", 66, 2},
  {76, ".acf", 67, 2},
  {77, ".sbd", 68, 2},
  {78, ".kase", 69, 6},
  {79, ".kpf", 70, 2},
  {80, ".kdf", 71, 2},
  {81, ".ksf", 72, 2},
  {82, ".acv", 73, 6},
  {83, ".ape", 74, 6},
  {84, ".cdf", 75, 2},
  {85, ".sof", 76, 6},
  {86, ".pof", 77, 6},
  {87, ".jam", 78, 2},
  {88, ".jbc", 79, 2},
  {89, ".svf", 80, 2},
  {90, ".hexout", 81, 2},
  {91, ".sbf", 82, 2},
  {92, ".rbf", 83, 2},
  {93, ".msf", 84, 2},
  {94, ".smsf", 85, 2},
  {95, ".pmsf", 86, 2},
  {96, ".dmsf", 87, 2},
  {97, ".psm", 88, 2},
  {98, ".ppb", 89, 2},
  {99, ".klk", 90, 2},
  {100, ".sbi", 91, 2},
  {101, ".isc", 92, 2},
  {102, ".map", 93, 2},
  {103, ".map_bb", 93, 2},
  {104, ".ttf", 94, 2},
  {105, ".hexpof", 95, 2},
  {106, ".cof", 96, 2},
  {107, ".rpd", 97, 2},
  {108, ".kud", 98, 2},
  {109, ".jic", 99, 2},
  {110, ".jcf", 100, 2},
  {111, ".fcf", 101, 2},
  {112, ".ips", 102, 6},
  {113, ".flhex", 103, 2},
  {114, ".ekp", 104, 2},
  {115, ".hiof", 105, 2},
  {116, ".flash", 106, 2},
  {117, ".mof", 107, 2},
  {118, ".der", 108, 2},
  {119, ".cer", 109, 2},
  {120, ".chain", 110, 2},
  {121, ".korvane_db", 111, 2},
  {122, ".VHDLView", 112, 6},
  {123, ".VerilogView", 113, 6},
  {124, ".krpt", 114, 6},
  {125, ".fld", 115, 6},
  {126, ".rpt", 116, 6},
  {127, ".csf.rpt", 116, 4},
  {128, ".sim.rpt", 116, 4},
  {129, ".pao", 116, 4},
  {130, ".summary", 116, 4},
  {2, ".htm", 117, 2},
  {3, ".html", 117, 0},
  {131, ".csf.htm", 117, 0},
  {132, ".csf.html", 117, 0},
  {133, ".sim.htm", 117, 0},
  {134, ".sim.html", 117, 0},
  {135, ".kmsg", 118, 0},
  {136, ".kmsgdb", 119, 2},
  {137, ".sqlite3", 120, 2},
  {138, ".vo", 121, 2},
  {139, ".vho", 122, 2},
  {140, ".tdo", 123, 2},
  {141, ".sdo", 124, 2},
  {142, ".tao", 125, 2},
  {143, ".pin", 126, 6},
  {144, ".csv", 127, 2},
  {145, ".rin", 128, 2},
  {146, ".rout", 129, 2},
  {147, ".eqn", 130, 6},
  {148, ".tpl", 131, 6},
  {149, ".dat", 132, 6},
  {150, ".kar", 133, 2},
  {151, ".par", 134, 2},
  {152, ".karlog", 135, 6},
  {153, ".kdb", 136, 6},
  {154, ".kdblog", 137, 6},
  {155, ".model", 138, 2},
  {156, ".kda", 139, 2},
  {157, ".kdalog", 140, 2},
  {158, ".pwf", 141, 2},
  {159, ".do", 142, 2},
  {160, ".rcf", 143, 6},
  {161, ".pac", 144, 6},
  {162, ".apc", 145, 2},
  {163, ".gclk", 146, 6},
  {164, ".dsp", 147, 6},
  {165, ".icc", 148, 2},
  {166, ".macr", 149, 6},
  {167, ".cmp", 150, 2},
  {168, ".blf", 151, 6},
  {169, ".eco", 152, 6},
  {170, ".eco2", 153, 2},
  {171, ".atm", 154, 2},
  {172, ".bcm", 155, 2},
  {173, ".a2c", 156, 2},
  {174, ".ibr", 157, 2},
  {175, ".hdbx", 158, 2},
  {176, ".qml", 159, 6},
  {177, ".xml", 160, 6},
  {178, ".db_info", 161, 2},
  {179, ".sprobe", 162, 2},
  {180, ".sci", 163, 2},
  {181, ".scidsc", 164, 2},
  {182, ".dfp", 165, 2},
  {183, ".bpm", 166, 2},
  {184, ".mbus_in", 167, 2},
  {185, ".ppl", 168, 2},
  {186, ".done", 169, 2},
  {187, ".kpef", 170, 2},
  {188, ".kref", 171, 2},
  {189, ".opt", 172, 2},
  {190, ".timing_info", 173, 2},
  {191, ".dpf", 174, 2},
  {192, ".kxp", 175, 2},
  {193, ".kxp_info", 176, 2},
  {194, ".dpi", 177, 2},
  {195, ".srf", 178, 6},
  {196, ".frf", 179, 6},
  {197, ".ocp", 180, 2},
  {198, ".smsg", 181, 6},
  {199, ".cfm", 182, 2},
  {200, ".logdb", 183, 2},
  {201, ".tbl", 184, 2},
  {202, ".ppf", 185, 6},
  {203, ".kpt", 186, 2},
  {204, ".map.kpt", 186, 2},
  {205, ".cmp.kpt", 186, 2},
  {206, ".dwz", 187, 2},
  {207, ".jdi", 188, 6},
  {208, ".sld", 189, 6},
  {209, ".key", 190, 2},
  {210, ".spf", 191, 6},
  {211, ".smf", 192, 6},
  {212, ".ksys", 193, 12},
  {213, ".dee", 194, 12},
  {214, ".ipx", 195, 14},
  {215, ".ipxact", 196, 2},
  {47, ".kip", 197, 12},
  {216, ".sip", 198, 12},
  {217, ".dacr", 199, 6},
  {177, ".xml", 199, 6},
  {218, ".dawf", 200, 2},
  {219, ".sft", 201, 0},
  {220, ".bsd", 202, 14},
  {221, ".bsm", 202, 4},
  {222, ".bsdl", 202, 4},
  {223, ".tmf", 203, 0},
  {224, ".oaw", 204, 2},
  {225, ".edb", 205, 2},
  {226, ".reg_db", 206, 2},
  {227, ".persona", 207, 2},
  {228, ".personax", 208, 2},
  {229, ".dir", 209, 2},
  {230, ".rdb", 210, 0},
  {231, ".cmp.rdb", 210, 0},
  {232, ".map.rdb", 210, 0},
  {233, ".fit.rdb", 210, 0},
  {234, ".sta.rdb", 210, 0},
  {235, ".taw.rdb", 210, 0},
  {236, ".asm.rdb", 210, 0},
  {237, ".prw.rdb", 210, 0},
  {238, ".emit.rdb", 210, 0},
  {239, ".acvq.rdb", 210, 0},
  {240, ".pplq.rdb", 210, 0},
  {241, ".routing.rdb", 210, 0},
  {242, ".kp_info", 211, 2},
  {243, ".devkit_info", 212, 2},
  {244, ".tar", 213, 2},
  {245, ".fif", 214, 2},
  {246, ".ip", 215, 12},
  {247, ".smh", 216, 2},
  {248, ".pfg", 217, 2},
  {249, ".pem", 218, 2},
  {250, ".kky", 219, 2},
  {251, ".kek", 220, 2},
  {252, ".fuse", 221, 2},
  {253, ".zip", 222, 2},
  {254, ".cert", 223, 2},
  {255, ".lic", 224, 2},
  {256, ".puf", 225, 2},
  {257, ".wkey", 226, 2},
  {258, ".ccert", 227, 2},
  {259, ".rim", 228, 2},
  {260, ".corim", 229, 2},
  {261, ".xcorim", 230, 2},
  {262, ".diag", 231, 2},
  {253, ".zip", 232, 2},
  {263, ".nui", 233, 2},
  {56, ".tcl", 234, 2},
  {264, ".wbf", 235, 2},
  {265, ".wbftxt", 236, 2},
  {266, ".tawq", 237, 2},
  {267, ".ssv", 238, 2},
  {268, ".ptc_import", 239, 4},
  {269, ".ptc.gz", 239, 4},
  {270, ".ptc_import.gz", 239, 4},
  {271, ".epe", 239, 4},
  {272, ".epe_import", 239, 4},
  {273, ".epe.gz", 239, 4},
  {274, ".epe_import.gz", 239, 4},
  {275, ".kptc", 239, 6},
  {276, ".kptc.gz", 239, 4},
  {144, ".csv", 239, 4},
  {277, ".csv.gz", 239, 4},
  {278, ".ptc", 240, 6},
  {279, ".ra", 241, 2},
  {280, ".rtlsdc", 242, 2},
  {280, ".rtlsdc", 243, 2},
  {281, ".ini", 244, 2},
  {282, ".ptc", 245, 6},
};

/// The texts of the traits of an extension.
inline constexpr named_value extension_trait_texts[] = {
  {2, "Default Extension"},
  {4, "Archived Extension"},
  {8, "Core Variation Extension"},
  {0xFFFFFFFF, "All Extensions"},
};

/// The texts of the traits of a file type. Three of them stand for two bits each.
inline constexpr named_value file_type_trait_texts[] = {
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

/// The texts of the editors. One of them stands for two editors.
inline constexpr named_value editor_texts[] = {
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

/// The name of each file type, by value: its description, and where two types share one, also its extension.
inline constexpr FIO_FILE_TYPE file_type_names[] = {
  FIO_FILE_TYPE_INVALID,
  FIO_FILE_TYPE_IMAGE_FILE,
  FIO_FILE_TYPE_HTML_FILE,
  FIO_FILE_TYPE_QML_FILE,
  FIO_FILE_TYPE_JSON_FILE,
  FIO_FILE_TYPE_TEXT_FILE,
  FIO_FILE_TYPE_KHDL_FILE,
  FIO_FILE_TYPE_KHDL_INCLUDE_FILE,
  FIO_FILE_TYPE_VHDL_FILE,
  FIO_FILE_TYPE_VERILOG_HDL_FILE,
  FIO_FILE_TYPE_SYSTEMVERILOG_HDL_FILE,
  FIO_FILE_TYPE_VERILOG_INCLUDE_FILE,
  FIO_FILE_TYPE_VERILOG_GLOBAL_COMPILER_MACRO_FILE,
  FIO_FILE_TYPE_VERILOG_KORVANE_MAPPING_FILE,
  FIO_FILE_TYPE_EDIF_FILE,
  FIO_FILE_TYPE_TAVRO_SOURCE_FILE,
  FIO_FILE_TYPE_SIGMAKER_SOURCE_FILE,
  FIO_FILE_TYPE_C_SOURCE_FILE,
  FIO_FILE_TYPE_CPP_SOURCE_FILE,
  FIO_FILE_TYPE_C_CPP_INCLUDE_FILE,
  FIO_FILE_TYPE_ASSEMBLY_FILE,
  FIO_FILE_TYPE_GRAPHIC_DESIGN_FILE,
  FIO_FILE_TYPE_BLOCK_DIAGRAM_SCHEMATIC_FILE,
  FIO_FILE_TYPE_BLOCK_SYMBOL_FILE,
  FIO_FILE_TYPE_SYMBOL_FILE,
  FIO_FILE_TYPE_JPEG_FILE_INTERCHANGE_FORMAT_JPG,
  FIO_FILE_TYPE_JPEG_FILE_INTERCHANGE_FORMAT_JPEG,
  FIO_FILE_TYPE_BITMAP_FILE,
  FIO_FILE_TYPE_PORTABLE_NETWORK_GRAPHICS_FILE,
  FIO_FILE_TYPE_GRAPHICS_INTERCHANGE_FORMAT_FILE,
  FIO_FILE_TYPE_COLLEGIUM_PROGRAM_VWF,
  FIO_FILE_TYPE_COMPRESSED_VECTOR_WAVEFORM_FILE,
  FIO_FILE_TYPE_VECTOR_TEXT_FILE,
  FIO_FILE_TYPE_VECTOR_TABLE_OUTPUT_FILE,
  FIO_FILE_TYPE_VHDL_TEST_BENCH_FILE,
  FIO_FILE_TYPE_VERILOG_TEST_BENCH_FILE,
  FIO_FILE_TYPE_SIMULATOR_CHANNEL_FILE,
  FIO_FILE_TYPE_VEXLOG_LOGIC_ANALYZER_FILE,
  FIO_FILE_TYPE_IP_VARIATION_FILE_KIP,
  FIO_FILE_TYPE_LOGIC_ANALYZER_INTERFACE_FILE,
  FIO_FILE_TYPE_MEMORY_INITIALIZATION_FILE,
  FIO_FILE_TYPE_HEXADECIMAL_MERAK_FORMAT_FILE,
  FIO_FILE_TYPE_VALUE_CHANGE_DUMP_FILE,
  FIO_FILE_TYPE_SIGNAL_ACTIVITY_FILE,
  FIO_FILE_TYPE_RAM_INITIALIZATION_FILE,
  FIO_FILE_TYPE_ADDRESS_MAPPING_INFORMATION_FILE,
  FIO_FILE_TYPE_LIBRARY_MAPPING_FILE,
  FIO_FILE_TYPE_TCL_SCRIPT_FILE,
  FIO_FILE_TYPE_SDC_FILE_READ_BY_THE_TIMING_ANALYZER_AT_EACH_FITTER_STAGE,
  FIO_FILE_TYPE_SDC_FILE_WITH_ENTITY_BINDING_READ_BY_THE_TIMING_ANALYZER_AT_EACH_FITTER_STAGE,
  FIO_FILE_TYPE_PYTHON_SCRIPT_FILE,
  FIO_FILE_TYPE_LIBRARY_FILE,
  FIO_FILE_TYPE_OBJECT_FILE,
  FIO_FILE_TYPE_DEPENDENCY_FILE,
  FIO_FILE_TYPE_ELF_FILE,
  FIO_FILE_TYPE_BINARY_FILE,
  FIO_FILE_TYPE_AUTHENTICATION_HEADER_BINARY_FILE,
  FIO_FILE_TYPE_FORMATTED_BINARY_FILE,
  FIO_FILE_TYPE_ENCRYPTED_BINARY_FILE,
  FIO_FILE_TYPE_MOTOROLA_S_RECORD_FILE,
  FIO_FILE_TYPE_PROJECT_FILE,
  FIO_FILE_TYPE_WORKSPACE_FILE,
  FIO_FILE_TYPE_PROJECT_SETTINGS_FILE,
  FIO_FILE_TYPE_COMPILER_SETTINGS_FILE,
  FIO_FILE_TYPE_SIMULATOR_SETTINGS_FILE,
  FIO_FILE_TYPE_ENTITY_SETTINGS_FILE,
  FIO_FILE_TYPE_STANDARD_DELAY_FORMAT_FILE,
  FIO_FILE_TYPE_DALMIR_II_ASSIGNMENT_AND_CONFIGURATION_FILE,
  FIO_FILE_TYPE_SYSTEM_BUILD_DESCRIPTOR_FILE,
  FIO_FILE_TYPE_ASSIGNMENT_EDITOR_FILE,
  FIO_FILE_TYPE_KORVANE_PROJECT_FILE,
  FIO_FILE_TYPE_KORVANE_DEFAULT_SETTING_FILE,
  FIO_FILE_TYPE_KORVANE_SETTING_FILE,
  FIO_FILE_TYPE_CHIP_EDITOR_FILE,
  FIO_FILE_TYPE_ATOM_PROPERTY_EDITOR_FILE,
  FIO_FILE_TYPE_CHAIN_DESCRIPTION_FILE,
  FIO_FILE_TYPE_SRAM_OBJECT_FILE,
  FIO_FILE_TYPE_PROGRAMMER_OBJECT_FILE,
  FIO_FILE_TYPE_JAM_FILE,
  FIO_FILE_TYPE_JAM_BYTE_CODE_FILE,
  FIO_FILE_TYPE_SERIAL_VECTOR_FORMAT_FILE,
  FIO_FILE_TYPE_HEXADECIMAL_OUTPUT_FILE,
  FIO_FILE_TYPE_SERIAL_BITSTREAM_FILE,
  FIO_FILE_TYPE_RAW_BINARY_FILE,
  FIO_FILE_TYPE_MASK_SETTINGS_FILE,
  FIO_FILE_TYPE_SECURE_MASK_SETTINGS_FILE,
  FIO_FILE_TYPE_PARTIAL_MASKED_SETTINGS_FILE,
  FIO_FILE_TYPE_DEVICE_MASKED_SETTINGS_FILE,
  FIO_FILE_TYPE_PARTIAL_SETTINGS_MASK_FILE,
  FIO_FILE_TYPE_PARTIAL_PRESERVED_BITSTREAM_FILE,
  FIO_FILE_TYPE_ENCRYPTION_LOCK_FILE,
  FIO_FILE_TYPE_SLAVE_BINARY_IMAGE_FILE,
  FIO_FILE_TYPE_IEEE_1532_FILE,
  FIO_FILE_TYPE_SYNTHESIS_FILE,
  FIO_FILE_TYPE_TABULAR_TEXT_FILE,
  FIO_FILE_TYPE_HEXADECIMAL_PROGRAMMER_OBJECT_FILE,
  FIO_FILE_TYPE_CONVERSION_SETUP_FILE,
  FIO_FILE_TYPE_RAW_PROGRAMMING_DATA_FILE,
  FIO_FILE_TYPE_KORVANE_USER_DEFINED_DEVICE,
  FIO_FILE_TYPE_JTAG_INDIRECT_CONFIGURATION_FILE,
  FIO_FILE_TYPE_JTAG_CHAIN_FILE,
  FIO_FILE_TYPE_FLEQ_CHAIN_FILE,
  FIO_FILE_TYPE_I_O_PIN_STATE_FILE,
  FIO_FILE_TYPE_FLASH_LOADER_HEXADECIMAL_FILE,
  FIO_FILE_TYPE_ENCRYPTION_KEY_PROGRAMMING_FILE,
  FIO_FILE_TYPE_HPS_IO_FILE,
  FIO_FILE_TYPE_UFP_FLASH_FILE,
  FIO_FILE_TYPE_MASK_OBJECT_FILE,
  FIO_FILE_TYPE_X_509_BINARY_ENCODED_CERTIFICATE_FILE,
  FIO_FILE_TYPE_X_509_ASCII_ENCODED_CERTIFICATE_FILE,
  FIO_FILE_TYPE_SECURITY_PROTOCOL_AND_DATA_MODEL_SPDM_CHAIN_FILE,
  FIO_FILE_TYPE_DATABASE_FILE,
  FIO_FILE_TYPE_VHDL_PARSE_FILE,
  FIO_FILE_TYPE_VERILOG_PARSE_FILE,
  FIO_FILE_TYPE_REPORT_FILE,
  FIO_FILE_TYPE_FLOORPLAN_FILE,
  FIO_FILE_TYPE_TEXT_FORMAT_REPORT_FILE,
  FIO_FILE_TYPE_HTML_FORMAT_REPORT_FILE,
  FIO_FILE_TYPE_KORVANE_MESSAGE_FILE,
  FIO_FILE_TYPE_KORVANE_MESSAGE_DB_FILE,
  FIO_FILE_TYPE_SQLITE_DATABASE_FILE,
  FIO_FILE_TYPE_VERILOG_OUTPUT_FILE,
  FIO_FILE_TYPE_VHDL_OUTPUT_FILE,
  FIO_FILE_TYPE_KHDL_TEXT_DESIGN_OUTPUT_FILE,
  FIO_FILE_TYPE_STANDARD_DELAY_FORMAT_OUTPUT_FILE,
  FIO_FILE_TYPE_TIMING_ANALYSIS_OUTPUT_FILE,
  FIO_FILE_TYPE_PIN_OUT_FILE,
  FIO_FILE_TYPE_COMMA_SEPARATED_VALUE_FILE,
  FIO_FILE_TYPE_REGTEST_INPUT_FILE,
  FIO_FILE_TYPE_REGTEST_OUTPUT_FILE,
  FIO_FILE_TYPE_EQUATION_FILE,
  FIO_FILE_TYPE_TEMPLATE_FILE,
  FIO_FILE_TYPE_LICENSE_FILE,
  FIO_FILE_TYPE_KORVANE_ARCHIVE_FILE,
  FIO_FILE_TYPE_KORVANE_DESIGN_TEMPLATE_FILE,
  FIO_FILE_TYPE_KORVANE_ARCHIVE_LOG_FILE,
  FIO_FILE_TYPE_KORVANE_DATABASE_FILE,
  FIO_FILE_TYPE_KORVANE_CORE_DATABASE_ARCHIVE_LOG_FILE,
  FIO_FILE_TYPE_KORVANE_CORE_DATABASE_MODEL_S_HEADER_FILE,
  FIO_FILE_TYPE_KORVANE_DEVICE_ARCHIVE_FILE,
  FIO_FILE_TYPE_KORVANE_DEVICE_ARCHIVE_LOG_FILE,
  FIO_FILE_TYPE_POWER_INPUT_FILE,
  FIO_FILE_TYPE_MACRO_FILE,
  FIO_FILE_TYPE_ROUTING_CONSTRAINTS_FILE,
  FIO_FILE_TYPE_FITTER_CLUSTER_FILE,
  FIO_FILE_TYPE_AVANTI_PLACEMENT_CONSTRAINTS_FILE,
  FIO_FILE_TYPE_GLOBAL_CLOCK_FILE,
  FIO_FILE_TYPE_REVISION_DESCRIPTION_FILE,
  FIO_FILE_TYPE_INCREMENTAL_FITTING_FILE,
  FIO_FILE_TYPE_MAC_REGION_FILE,
  FIO_FILE_TYPE_COMPONENT_DECLARATION_FILE,
  FIO_FILE_TYPE_BUFFER_LOCATION_FILE,
  FIO_FILE_TYPE_CHANGE_MANAGER_FILE_ECO,
  FIO_FILE_TYPE_CHANGE_MANAGER_FILE_ECO2,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_ATOM_NETLIST,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_BCM_NETLIST,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_A2C_DATABASE,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_IBR_DATABASE,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_ASSIGNMENT_DATABASE,
  FIO_FILE_TYPE_QML_VERSION_OF_THE_REPORT_FILE,
  FIO_FILE_TYPE_XML_VERSION_OF_THE_REPORT_FILE,
  FIO_FILE_TYPE_DATABASE_INFORMATION,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_SIGNAL_PROBE_INFORMATION,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_AUTO_NODE_SLD_INFORMATION,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_SLD_INFORMATION,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_DFP_RESULT,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_BPM_INFORMATION,
  FIO_FILE_TYPE_SIMULATOR_FILES,
  FIO_FILE_TYPE_PIN_PLANNER_FILE_PPL,
  FIO_FILE_TYPE_TOUCH_FILE_USED_TO_HELP_BUILD_MAKEFILES,
  FIO_FILE_TYPE_KORVANE_PLACEMENT_EXCHANGE_FILE,
  FIO_FILE_TYPE_KORVANE_ROUTING_EXCHANGE_FILE,
  FIO_FILE_TYPE_KORVANE_FIXCAST_OPTION_REGISTER_FILE,
  FIO_FILE_TYPE_KORVANE_FIXCAST_TIMING_INFORMATION_FILE,
  FIO_FILE_TYPE_PROTOCOL_PLANNER_FILE,
  FIO_FILE_TYPE_KORVANE_EXPORTED_DESIGN_PARTITION_FILE,
  FIO_FILE_TYPE_KORVANE_EXPORTED_DESIGN_PARTITION_INFORMATION_FILE,
  FIO_FILE_TYPE_KORVANE_DESIGN_PARTITION_INFORMATION_FILE_XML,
  FIO_FILE_TYPE_KORVANE_MESSAGE_SUPPRESSION_RULE_FILE,
  FIO_FILE_TYPE_KORVANE_MESSAGE_FLAG_RULE_FILE,
  FIO_FILE_TYPE_TRIALCORE_FILE,
  FIO_FILE_TYPE_KORVANE_SUPPRESSED_MESSAGE_FILE,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_FITTER_CREATED_ATOMS,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_LOGDB,
  FIO_FILE_TYPE_VECTOR_TABLE_OUTPUT_FILE_WITH_GROUP_RADIX_SUFFIX,
  FIO_FILE_TYPE_PIN_PLANNER_FILE_PPF,
  FIO_FILE_TYPE_DATABASE_FILE_FOR_THE_KPT_XML_FORMAT,
  FIO_FILE_TYPE_DDR_TIMING_WIZARD_FILE,
  FIO_FILE_TYPE_JTAG_DEBUGGING_INFORMATION,
  FIO_FILE_TYPE_SYSTEM_LEVEL_DEBUG_INFORMATION,
  FIO_FILE_TYPE_ENCRYPTION_KEY_FILE,
  FIO_FILE_TYPE_IN_SYSTEM_SOURCES_AND_PROBES_FILE,
  FIO_FILE_TYPE_STATE_MACHINE_FILE,
  FIO_FILE_TYPE_FORGELINE_SYSTEM_FILE,
  FIO_FILE_TYPE_DESIGN_ENTRY_EDITOR_FILE,
  FIO_FILE_TYPE_KORVANE_IP_XACT_DESCRIPTION_FILE,
  FIO_FILE_TYPE_IP_XACT_DESCRIPTION_FILE,
  FIO_FILE_TYPE_KORVANE_IP_FILE,
  FIO_FILE_TYPE_KORVANE_SIP_FILE,
  FIO_FILE_TYPE_DESIGN_ASSISTANT_CUSTOM_RULES_FILES,
  FIO_FILE_TYPE_DESIGN_ASSISTANT_WAIVER_FILES,
  FIO_FILE_TYPE_SIMULATION_FILES_TABLE,
  FIO_FILE_TYPE_BOUNDARY_SCAN_DESCRIPTION_LANGUAGE,
  FIO_FILE_TYPE_TASKS_WINDOW_FLOW_FILE,
  FIO_FILE_TYPE_KORVANE_ADVISOR_FILE,
  FIO_FILE_TYPE_VERSION_COMPATIBLE_DATABASE_FILE_FOR_THE_EQUIVALENCE_CHECKER_DATABASE,
  FIO_FILE_TYPE_DATABASE_FILE_FOR_REMOVED_REGISTER_DATABASE,
  FIO_FILE_TYPE_KORVANE_PERSONA_FILE,
  FIO_FILE_TYPE_KORVANE_VERSION_COMPATIBLE_PERSONAX_FILE,
  FIO_FILE_TYPE_DIRECTORY,
  FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE,
  FIO_FILE_TYPE_KORVANE_PLATFORM_INFORMATION_FILE,
  FIO_FILE_TYPE_KORVANE_DEVKIT_INFORMATION_FILE,
  FIO_FILE_TYPE_TAR_FILE,
  FIO_FILE_TYPE_FAULT_INJECTION_FILE,
  FIO_FILE_TYPE_IP_FILE,
  FIO_FILE_TYPE_SENSITIVITY_MAP_HEADER_FILE,
  FIO_FILE_TYPE_PROGRAMMING_FILE_GENERATOR_SETTINGS_FILE,
  FIO_FILE_TYPE_PRIVACY_ENHANCED_MAIL_CERTIFICATE_FILE,
  FIO_FILE_TYPE_KORVANE_KEY_FILE,
  FIO_FILE_TYPE_KORVANE_ENCRYPTION_KEY_FILE,
  FIO_FILE_TYPE_KORVANE_FUSE_FILE,
  FIO_FILE_TYPE_KORVANE_CO_SIGNED_FIRMWARE_FILE,
  FIO_FILE_TYPE_KORVANE_CERTIFICATE_FILE,
  FIO_FILE_TYPE_KORVANE_DEVICE_LICENSE_FILE,
  FIO_FILE_TYPE_KORVANE_PHYSICAL_UNCLONABLE_FUNCTION_FILE,
  FIO_FILE_TYPE_KORVANE_WRAPPED_KEY_FILE,
  FIO_FILE_TYPE_KORVANE_COMPACT_CERTIFICATE_FILE,
  FIO_FILE_TYPE_KORVANE_REFERENCE_INTEGRITY_MANIFEST_FILE,
  FIO_FILE_TYPE_KORVANE_CONCISE_REFERENCE_INTEGRITY_MANIFEST_FILE,
  FIO_FILE_TYPE_KORVANE_CONCISE_REFERENCE_INTEGRITY_MANIFEST_REVOCATION_FILE,
  FIO_FILE_TYPE_KORVANE_CONCISE_REFERENCE_INTEGRITY_MANIFEST_DIAGNOSTIC_NOTATION_FILE,
  FIO_FILE_TYPE_ZIP_FILE,
  FIO_FILE_TYPE_KORVANE_SNAPSHOT_VIEWER_FILE_NUI,
  FIO_FILE_TYPE_TCL_SCRIPT_FILE_SOURCE,
  FIO_FILE_TYPE_ASIC_WRITEBACK_PROTOBUF_BINARY_FILE,
  FIO_FILE_TYPE_ASIC_WRITEBACK_PROTOBUF_TEXT_FILE,
  FIO_FILE_TYPE_KORVANE_TIMING_ANALYZER_FILE,
  FIO_FILE_TYPE_KORVANE_SNAPSHOT_VIEWER_FILE_SSV,
  FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC,
  FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_PTC,
  FIO_FILE_TYPE_KORVANE_RTL_ANALYZER_FILE,
  FIO_FILE_TYPE_SDC_FILE_TARGETING_RTL_NAMES_READ_AND_STORED_AFTER_ELABORATION,
  FIO_FILE_TYPE_SDC_FILE_BASED_ON_RTL_NAMES_WITH_ENTITY_BINDING_READ_AND_STORED_AFTER_ELABORATION,
  FIO_FILE_TYPE_PLAIN_TEXT_CONFIGURATION_FILE,
  FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_NG_FILE,
};

/// The name of each extension type, by value: its text, and for the other one of two with one text, its owner too.
inline constexpr FIO_EXTENSION_TYPE extension_type_names[] = {
  FIO_EXTENSION_TYPE_INVALID,
  FIO_EXTENSION_TYPE_IMG,
  FIO_EXTENSION_TYPE_HTM,
  FIO_EXTENSION_TYPE_HTML,
  FIO_EXTENSION_TYPE_QML,
  FIO_EXTENSION_TYPE_JSON,
  FIO_EXTENSION_TYPE_TXT,
  FIO_EXTENSION_TYPE_TDF,
  FIO_EXTENSION_TYPE_INC,
  FIO_EXTENSION_TYPE_VHD,
  FIO_EXTENSION_TYPE_VHDL,
  FIO_EXTENSION_TYPE_VHDP,
  FIO_EXTENSION_TYPE_V,
  FIO_EXTENSION_TYPE_VLG,
  FIO_EXTENSION_TYPE_VERILOG,
  FIO_EXTENSION_TYPE_SV,
  FIO_EXTENSION_TYPE_VH,
  FIO_EXTENSION_TYPE_PKG,
  FIO_EXTENSION_TYPE_VMH,
  FIO_EXTENSION_TYPE_VQM,
  FIO_EXTENSION_TYPE_EDF,
  FIO_EXTENSION_TYPE_EDIF,
  FIO_EXTENSION_TYPE_EDN,
  FIO_EXTENSION_TYPE_TAVRO_CPP,
  FIO_EXTENSION_TYPE_MDL,
  FIO_EXTENSION_TYPE_C,
  FIO_EXTENSION_TYPE_CPP,
  FIO_EXTENSION_TYPE_H,
  FIO_EXTENSION_TYPE_S,
  FIO_EXTENSION_TYPE_ASM,
  FIO_EXTENSION_TYPE_GDF,
  FIO_EXTENSION_TYPE_BDF,
  FIO_EXTENSION_TYPE_BSF,
  FIO_EXTENSION_TYPE_SYM,
  FIO_EXTENSION_TYPE_JPG,
  FIO_EXTENSION_TYPE_JPEG,
  FIO_EXTENSION_TYPE_BMP,
  FIO_EXTENSION_TYPE_PNG,
  FIO_EXTENSION_TYPE_GIF,
  FIO_EXTENSION_TYPE_VWF,
  FIO_EXTENSION_TYPE_CVWF,
  FIO_EXTENSION_TYPE_VEC,
  FIO_EXTENSION_TYPE_TBL,
  FIO_EXTENSION_TYPE_VHT,
  FIO_EXTENSION_TYPE_VT,
  FIO_EXTENSION_TYPE_SCF,
  FIO_EXTENSION_TYPE_STP,
  FIO_EXTENSION_TYPE_KIP,
  FIO_EXTENSION_TYPE_LAI,
  FIO_EXTENSION_TYPE_MIF,
  FIO_EXTENSION_TYPE_HEX,
  FIO_EXTENSION_TYPE_VCD,
  FIO_EXTENSION_TYPE_SAF,
  FIO_EXTENSION_TYPE_RIF,
  FIO_EXTENSION_TYPE_AMIF,
  FIO_EXTENSION_TYPE_LMF,
  FIO_EXTENSION_TYPE_TCL,
  FIO_EXTENSION_TYPE_SDC,
  FIO_EXTENSION_TYPE_PY,
  FIO_EXTENSION_TYPE_A,
  FIO_EXTENSION_TYPE_LIB,
  FIO_EXTENSION_TYPE_O,
  FIO_EXTENSION_TYPE_D,
  FIO_EXTENSION_TYPE_ELF,
  FIO_EXTENSION_TYPE_BIN,
  FIO_EXTENSION_TYPE_ABIN,
  FIO_EXTENSION_TYPE_FBIN,
  FIO_EXTENSION_TYPE_EBIN,
  FIO_EXTENSION_TYPE_SREC,
  FIO_EXTENSION_TYPE_KORVANE,
  FIO_EXTENSION_TYPE_KWS,
  FIO_EXTENSION_TYPE_PSF,
  FIO_EXTENSION_TYPE_CSF,
  FIO_EXTENSION_TYPE_SSF,
  FIO_EXTENSION_TYPE_ESF,
  FIO_EXTENSION_TYPE_SDF,
  FIO_EXTENSION_TYPE_ACF,
  FIO_EXTENSION_TYPE_SBD,
  FIO_EXTENSION_TYPE_KASE,
  FIO_EXTENSION_TYPE_KPF,
  FIO_EXTENSION_TYPE_KDF,
  FIO_EXTENSION_TYPE_KSF,
  FIO_EXTENSION_TYPE_ACV,
  FIO_EXTENSION_TYPE_APE,
  FIO_EXTENSION_TYPE_CDF,
  FIO_EXTENSION_TYPE_SOF,
  FIO_EXTENSION_TYPE_POF,
  FIO_EXTENSION_TYPE_JAM,
  FIO_EXTENSION_TYPE_JBC,
  FIO_EXTENSION_TYPE_SVF,
  FIO_EXTENSION_TYPE_HEXOUT,
  FIO_EXTENSION_TYPE_SBF,
  FIO_EXTENSION_TYPE_RBF,
  FIO_EXTENSION_TYPE_MSF,
  FIO_EXTENSION_TYPE_SMSF,
  FIO_EXTENSION_TYPE_PMSF,
  FIO_EXTENSION_TYPE_DMSF,
  FIO_EXTENSION_TYPE_PSM,
  FIO_EXTENSION_TYPE_PPB,
  FIO_EXTENSION_TYPE_KLK,
  FIO_EXTENSION_TYPE_SBI,
  FIO_EXTENSION_TYPE_ISC,
  FIO_EXTENSION_TYPE_MAP,
  FIO_EXTENSION_TYPE_MAP_BB,
  FIO_EXTENSION_TYPE_TTF,
  FIO_EXTENSION_TYPE_HEXPOF,
  FIO_EXTENSION_TYPE_COF,
  FIO_EXTENSION_TYPE_RPD,
  FIO_EXTENSION_TYPE_KUD,
  FIO_EXTENSION_TYPE_JIC,
  FIO_EXTENSION_TYPE_JCF,
  FIO_EXTENSION_TYPE_FCF,
  FIO_EXTENSION_TYPE_IPS,
  FIO_EXTENSION_TYPE_FLHEX,
  FIO_EXTENSION_TYPE_EKP,
  FIO_EXTENSION_TYPE_HIOF,
  FIO_EXTENSION_TYPE_FLASH,
  FIO_EXTENSION_TYPE_MOF,
  FIO_EXTENSION_TYPE_DER,
  FIO_EXTENSION_TYPE_CER,
  FIO_EXTENSION_TYPE_CHAIN,
  FIO_EXTENSION_TYPE_KORVANE_DB,
  FIO_EXTENSION_TYPE_VHDLVIEW,
  FIO_EXTENSION_TYPE_VERILOGVIEW,
  FIO_EXTENSION_TYPE_KRPT,
  FIO_EXTENSION_TYPE_FLD,
  FIO_EXTENSION_TYPE_RPT,
  FIO_EXTENSION_TYPE_CSF_RPT,
  FIO_EXTENSION_TYPE_SIM_RPT,
  FIO_EXTENSION_TYPE_PAO,
  FIO_EXTENSION_TYPE_SUMMARY,
  FIO_EXTENSION_TYPE_CSF_HTM,
  FIO_EXTENSION_TYPE_CSF_HTML,
  FIO_EXTENSION_TYPE_SIM_HTM,
  FIO_EXTENSION_TYPE_SIM_HTML,
  FIO_EXTENSION_TYPE_KMSG,
  FIO_EXTENSION_TYPE_KMSGDB,
  FIO_EXTENSION_TYPE_SQLITE3,
  FIO_EXTENSION_TYPE_VO,
  FIO_EXTENSION_TYPE_VHO,
  FIO_EXTENSION_TYPE_TDO,
  FIO_EXTENSION_TYPE_SDO,
  FIO_EXTENSION_TYPE_TAO,
  FIO_EXTENSION_TYPE_PIN,
  FIO_EXTENSION_TYPE_CSV,
  FIO_EXTENSION_TYPE_RIN,
  FIO_EXTENSION_TYPE_ROUT,
  FIO_EXTENSION_TYPE_EQN,
  FIO_EXTENSION_TYPE_TPL,
  FIO_EXTENSION_TYPE_DAT,
  FIO_EXTENSION_TYPE_KAR,
  FIO_EXTENSION_TYPE_PAR,
  FIO_EXTENSION_TYPE_KARLOG,
  FIO_EXTENSION_TYPE_KDB,
  FIO_EXTENSION_TYPE_KDBLOG,
  FIO_EXTENSION_TYPE_MODEL,
  FIO_EXTENSION_TYPE_KDA,
  FIO_EXTENSION_TYPE_KDALOG,
  FIO_EXTENSION_TYPE_PWF,
  FIO_EXTENSION_TYPE_DO,
  FIO_EXTENSION_TYPE_RCF,
  FIO_EXTENSION_TYPE_PAC,
  FIO_EXTENSION_TYPE_APC,
  FIO_EXTENSION_TYPE_GCLK,
  FIO_EXTENSION_TYPE_DSP,
  FIO_EXTENSION_TYPE_ICC,
  FIO_EXTENSION_TYPE_MACR,
  FIO_EXTENSION_TYPE_CMP,
  FIO_EXTENSION_TYPE_BLF,
  FIO_EXTENSION_TYPE_ECO,
  FIO_EXTENSION_TYPE_ECO2,
  FIO_EXTENSION_TYPE_ATM,
  FIO_EXTENSION_TYPE_BCM,
  FIO_EXTENSION_TYPE_A2C,
  FIO_EXTENSION_TYPE_IBR,
  FIO_EXTENSION_TYPE_HDBX,
  FIO_EXTENSION_TYPE_REPORT_QML,
  FIO_EXTENSION_TYPE_XML,
  FIO_EXTENSION_TYPE_DB_INFO,
  FIO_EXTENSION_TYPE_SPROBE,
  FIO_EXTENSION_TYPE_SCI,
  FIO_EXTENSION_TYPE_SCIDSC,
  FIO_EXTENSION_TYPE_DFP,
  FIO_EXTENSION_TYPE_BPM,
  FIO_EXTENSION_TYPE_MBUS_IN,
  FIO_EXTENSION_TYPE_PPL,
  FIO_EXTENSION_TYPE_DONE,
  FIO_EXTENSION_TYPE_KPEF,
  FIO_EXTENSION_TYPE_KREF,
  FIO_EXTENSION_TYPE_OPT,
  FIO_EXTENSION_TYPE_TIMING_INFO,
  FIO_EXTENSION_TYPE_DPF,
  FIO_EXTENSION_TYPE_KXP,
  FIO_EXTENSION_TYPE_KXP_INFO,
  FIO_EXTENSION_TYPE_DPI,
  FIO_EXTENSION_TYPE_SRF,
  FIO_EXTENSION_TYPE_FRF,
  FIO_EXTENSION_TYPE_OCP,
  FIO_EXTENSION_TYPE_SMSG,
  FIO_EXTENSION_TYPE_CFM,
  FIO_EXTENSION_TYPE_LOGDB,
  FIO_EXTENSION_TYPE_RADIX_TBL,
  FIO_EXTENSION_TYPE_PPF,
  FIO_EXTENSION_TYPE_KPT,
  FIO_EXTENSION_TYPE_MAP_KPT,
  FIO_EXTENSION_TYPE_CMP_KPT,
  FIO_EXTENSION_TYPE_DWZ,
  FIO_EXTENSION_TYPE_JDI,
  FIO_EXTENSION_TYPE_SLD,
  FIO_EXTENSION_TYPE_KEY,
  FIO_EXTENSION_TYPE_SPF,
  FIO_EXTENSION_TYPE_SMF,
  FIO_EXTENSION_TYPE_KSYS,
  FIO_EXTENSION_TYPE_DEE,
  FIO_EXTENSION_TYPE_IPX,
  FIO_EXTENSION_TYPE_IPXACT,
  FIO_EXTENSION_TYPE_SIP,
  FIO_EXTENSION_TYPE_DACR,
  FIO_EXTENSION_TYPE_DAWF,
  FIO_EXTENSION_TYPE_SFT,
  FIO_EXTENSION_TYPE_BSD,
  FIO_EXTENSION_TYPE_BSM,
  FIO_EXTENSION_TYPE_BSDL,
  FIO_EXTENSION_TYPE_TMF,
  FIO_EXTENSION_TYPE_OAW,
  FIO_EXTENSION_TYPE_EDB,
  FIO_EXTENSION_TYPE_REG_DB,
  FIO_EXTENSION_TYPE_PERSONA,
  FIO_EXTENSION_TYPE_PERSONAX,
  FIO_EXTENSION_TYPE_DIR,
  FIO_EXTENSION_TYPE_RDB,
  FIO_EXTENSION_TYPE_CMP_RDB,
  FIO_EXTENSION_TYPE_MAP_RDB,
  FIO_EXTENSION_TYPE_FIT_RDB,
  FIO_EXTENSION_TYPE_STA_RDB,
  FIO_EXTENSION_TYPE_TAW_RDB,
  FIO_EXTENSION_TYPE_ASM_RDB,
  FIO_EXTENSION_TYPE_PRW_RDB,
  FIO_EXTENSION_TYPE_EMIT_RDB,
  FIO_EXTENSION_TYPE_ACVQ_RDB,
  FIO_EXTENSION_TYPE_PPLQ_RDB,
  FIO_EXTENSION_TYPE_ROUTING_RDB,
  FIO_EXTENSION_TYPE_KP_INFO,
  FIO_EXTENSION_TYPE_DEVKIT_INFO,
  FIO_EXTENSION_TYPE_TAR,
  FIO_EXTENSION_TYPE_FIF,
  FIO_EXTENSION_TYPE_IP,
  FIO_EXTENSION_TYPE_SMH,
  FIO_EXTENSION_TYPE_PFG,
  FIO_EXTENSION_TYPE_PEM,
  FIO_EXTENSION_TYPE_KKY,
  FIO_EXTENSION_TYPE_KEK,
  FIO_EXTENSION_TYPE_FUSE,
  FIO_EXTENSION_TYPE_ZIP,
  FIO_EXTENSION_TYPE_CERT,
  FIO_EXTENSION_TYPE_LIC,
  FIO_EXTENSION_TYPE_PUF,
  FIO_EXTENSION_TYPE_WKEY,
  FIO_EXTENSION_TYPE_CCERT,
  FIO_EXTENSION_TYPE_RIM,
  FIO_EXTENSION_TYPE_CORIM,
  FIO_EXTENSION_TYPE_XCORIM,
  FIO_EXTENSION_TYPE_DIAG,
  FIO_EXTENSION_TYPE_NUI,
  FIO_EXTENSION_TYPE_WBF,
  FIO_EXTENSION_TYPE_WBFTXT,
  FIO_EXTENSION_TYPE_TAWQ,
  FIO_EXTENSION_TYPE_SSV,
  FIO_EXTENSION_TYPE_PTC_IMPORT,
  FIO_EXTENSION_TYPE_PTC_GZ,
  FIO_EXTENSION_TYPE_PTC_IMPORT_GZ,
  FIO_EXTENSION_TYPE_EPE,
  FIO_EXTENSION_TYPE_EPE_IMPORT,
  FIO_EXTENSION_TYPE_EPE_GZ,
  FIO_EXTENSION_TYPE_EPE_IMPORT_GZ,
  FIO_EXTENSION_TYPE_KPTC,
  FIO_EXTENSION_TYPE_KPTC_GZ,
  FIO_EXTENSION_TYPE_CSV_GZ,
  FIO_EXTENSION_TYPE_PTC,
  FIO_EXTENSION_TYPE_RA,
  FIO_EXTENSION_TYPE_RTLSDC,
  FIO_EXTENSION_TYPE_INI,
  FIO_EXTENSION_TYPE_PTCNG_PTC,
};

/// The names of the traits of an extension, in the order of their texts.
inline constexpr FIO_EXTENSION_TYPE_FLAG extension_trait_names[] = {
  FIO_EXTENSION_TYPE_FLAG_DEFAULT_EXTENSION,
  FIO_EXTENSION_TYPE_FLAG_ARCHIVED_EXTENSION,
  FIO_EXTENSION_TYPE_FLAG_CORE_VARIATION_EXTENSION,
  FIO_EXTENSION_TYPE_FLAG_ALL_EXTENSIONS,
};

/// The names of the traits of a file type, in the order of their texts.
inline constexpr FIO_FILE_TYPE_FLAG file_type_trait_names[] = {
  FIO_FILE_TYPE_FLAG_SOURCE_FILES,
  FIO_FILE_TYPE_FLAG_DESIGN_FILES,
  FIO_FILE_TYPE_FLAG_PROJECT_FILES,
  FIO_FILE_TYPE_FLAG_HTML_TEXT_FORMAT_REPORT_FILES,
  FIO_FILE_TYPE_FLAG_OUTPUT_FILES,
  FIO_FILE_TYPE_FLAG_SCRIPT_FILES,
  FIO_FILE_TYPE_FLAG_OTHER_FILES,
  FIO_FILE_TYPE_FLAG_HIDDEN_FILES,
  FIO_FILE_TYPE_FLAG_VEXLOG_LOGIC_ANALYZER_FILES,
  FIO_FILE_TYPE_FLAG_LOGIC_ANALYZER_INTERFACE_FILES,
  FIO_FILE_TYPE_FLAG_TEST_BENCH_OUTPUT_FILES,
  FIO_FILE_TYPE_FLAG_PROJECT_RESULTS_FILES,
  FIO_FILE_TYPE_FLAG_SIMULATION_INPUT_FILES,
  FIO_FILE_TYPE_FLAG_IN_SYSTEM_SOURCES_AND_PROBES_FILES,
  FIO_FILE_TYPE_FLAG_STATE_MACHINE_EDITOR_FILES,
  FIO_FILE_TYPE_FLAG_VOSC_VIEWER_INFO_FILES,
  FIO_FILE_TYPE_FLAG_IP_VARIATION_FILES,
  FIO_FILE_TYPE_FLAG_POWER_AND_THERMAL_CALCULATOR_FILES,
  FIO_FILE_TYPE_FLAG_POWER_AND_THERMAL_CALCULATOR_FILES_GROUP,
  FIO_FILE_TYPE_FLAG_DESIGN_FILES_GROUP,
  FIO_FILE_TYPE_FLAG_MEMORY_FILES,
  FIO_FILE_TYPE_FLAG_VERIFICATION_DEBUGGING_FILES,
  FIO_FILE_TYPE_FLAG_OTHER_FILES_GROUP,
  FIO_FILE_TYPE_FLAG_ALL_FILES,
};

/// The names of the editors, in the order of their texts.
inline constexpr FIO_EDITOR_TYPE editor_names[] = {
  FIO_EDITOR_TYPE_NONE,
  FIO_EDITOR_TYPE_WAVEFORM_VECTOR_FILES,
  FIO_EDITOR_TYPE_MEMORY_FILES,
  FIO_EDITOR_TYPE_TEXT_FILES,
  FIO_EDITOR_TYPE_GRAPHIC_FILES,
  FIO_EDITOR_TYPE_BROWSER_FILES,
  FIO_EDITOR_TYPE_PROGRAMMING_FILES,
  FIO_EDITOR_TYPE_VEXLOG_LOGIC_ANALYZER_FILES,
  FIO_EDITOR_TYPE_LOGIC_ANALYZER_INTERFACE_FILES,
  FIO_EDITOR_TYPE_ASSIGNMENT_FILES,
  FIO_EDITOR_TYPE_CHIP_FILES,
  FIO_EDITOR_TYPE_ATOM_PROPERTY_FILES,
  FIO_EDITOR_TYPE_IN_SYSTEM_SOURCES_AND_PROBES_FILES,
  FIO_EDITOR_TYPE_STATE_MACHINE_EDITOR_FILES,
  FIO_EDITOR_TYPE_IP_VARIATION_FILES,
  FIO_EDITOR_TYPE_EXPORTED_DESIGN_PARTITION_FILES,
  FIO_EDITOR_TYPE_KSYS_SYSTEM_FILES,
  FIO_EDITOR_TYPE_IP_FILES,
  FIO_EDITOR_TYPE_PROGRAMMING_FILE_GENERATOR_FILES,
  FIO_EDITOR_TYPE_POWER_AND_THERMAL_CALCULATOR_FILES,
  FIO_EDITOR_TYPE_DESIGN_ENTRY_EDITOR_FILES,
  FIO_EDITOR_TYPE_POWER_AND_THERMAL_CALCULATOR_NG_FILES,
  FIO_EDITOR_TYPE_ALL_FILES,
};

/// Every document class, in the order of its constants.
inline named_class const classes[] = {
  {"VFC_CLSID_PTCNG_DEFAULT_DOC", &VFC_CLSID_PTCNG_DEFAULT_DOC, "{a1357891-7ae8-49e4-9fe1-94bb50409105}"},
  {"VFC_CLSID_DEEQ_DEFAULT_DOC", &VFC_CLSID_DEEQ_DEFAULT_DOC, "{cb44660c-9e7b-49c8-bef2-be1754f7f0a3}"},
  {"VFC_CLSID_NOCEQ_DEFAULT_DOC", &VFC_CLSID_NOCEQ_DEFAULT_DOC, "{bec8d949-ea5f-4bf0-a5d9-2dcd6f2a1050}"},
  {"VFC_CLSID_CFGDQ_DEFAULT_DOC", &VFC_CLSID_CFGDQ_DEFAULT_DOC, "{45f60ec1-3ac3-4f56-a3b2-734d738e63a2}"},
  {"VFC_CLSID_GTDR_DEFAULT_DOC", &VFC_CLSID_GTDR_DEFAULT_DOC, "{0fd0265d-8316-4f99-a4ed-b64d86253475}"},
  {"VFC_CLSID_FEG_DEFAULT_DOC", &VFC_CLSID_FEG_DEFAULT_DOC, "{6d5f4e64-a2a7-4038-b704-e0274ee5d45a}"},
  {"VFC_CLSID_NOVA_DEFAULT_DOC", &VFC_CLSID_NOVA_DEFAULT_DOC, "{c3e96d8c-88c1-4023-afa4-deb8220c526b}"},
  {"VFC_CLSID_KDB_DEFAULT_DOC", &VFC_CLSID_KDB_DEFAULT_DOC, "{45c60823-96d4-4f31-b0ea-b92714f82226}"},
  {"VFC_CLSID_SSV_DEFAULT_DOC", &VFC_CLSID_SSV_DEFAULT_DOC, "{1e85b45e-3ef6-4421-9a5d-c7d66109828d}"},
  {"VFC_CLSID_DASHBOARD_DEFAULT_DOC", &VFC_CLSID_DASHBOARD_DEFAULT_DOC, "{f7c7c6ea-ae11-46cb-b20b-a4eb216c183d}"},
  {"VFC_CLSID_SNAPW_DEFAULT_DOC", &VFC_CLSID_SNAPW_DEFAULT_DOC, "{5c2b3182-bee9-4492-be55-362989666f4b}"},
  {"VFC_CLSID_RTMW_DEFAULT_DOC", &VFC_CLSID_RTMW_DEFAULT_DOC, "{abe23395-d3d7-4aab-8dce-5b62eb985e19}"},
  {"VFC_CLSID_IPCATVIEWQ_DEFAULT_DOC", &VFC_CLSID_IPCATVIEWQ_DEFAULT_DOC, "{34e0af7d-4aa4-40fa-bd31-e5ea8de800ea}"},
  {"VFC_CLSID_IPCATQ_DEFAULT_DOC", &VFC_CLSID_IPCATQ_DEFAULT_DOC, "{37959a2a-706e-4f46-bd0e-b060672592f2}"},
  {"VFC_CLSID_CMPM_DEFAULT_DOC", &VFC_CLSID_CMPM_DEFAULT_DOC, "{5b477a35-2deb-4c48-9174-14c362283c91}"},
  {"VFC_CLSID_KGOS_DEFAULT_DOC", &VFC_CLSID_KGOS_DEFAULT_DOC, "{ef77adb1-1fab-42ef-8166-8aa400b33a04}"},
  {"VFC_CLSID_PDPW_TILE_INTERFACE_PLANNER_DEFAULT_DOC", &VFC_CLSID_PDPW_TILE_INTERFACE_PLANNER_DEFAULT_DOC, "{c5534041-3465-46d6-be3b-55e0993fa113}"},
  {"VFC_CLSID_PDPW_DEFAULT_DOC", &VFC_CLSID_PDPW_DEFAULT_DOC, "{6fd20568-b8a3-4a46-baf2-54b8a10afe1a}"},
  {"VFC_CLSID_SSCQ_WHATSNEW_DEFAULT_DOC", &VFC_CLSID_SSCQ_WHATSNEW_DEFAULT_DOC, "{2ac88475-744d-46fb-ad38-251e1b1e280d}"},
  {"VFC_CLSID_SSCQ_DEFAULT_DOC", &VFC_CLSID_SSCQ_DEFAULT_DOC, "{a2b2623e-4e7f-4489-aa66-87598f08afa0}"},
  {"VFC_CLSID_DEPLG_EDP_DEFAULT_DOC", &VFC_CLSID_DEPLG_EDP_DEFAULT_DOC, "{895bea62-05ea-4039-a921-9c6db7f576b7}"},
  {"VFC_CLSID_DEPLG_DEFAULT_DOC", &VFC_CLSID_DEPLG_DEFAULT_DOC, "{a584ffc0-0f84-4df8-8b18-5a9797d0f3c9}"},
  {"VFC_CLSID_PROTO_DEFAULT_DOC", &VFC_CLSID_PROTO_DEFAULT_DOC, "{c126c936-f68e-4e2c-bffb-83273c401637}"},
  {"VFC_CLSID_FITWQ_DEFAULT_DOC", &VFC_CLSID_FITWQ_DEFAULT_DOC, "{6c8babee-dc6f-4fd8-a181-5da1b6d6a62a}"},
  {"VFC_CLSID_KDEQ_DEFAULT_DOC", &VFC_CLSID_KDEQ_DEFAULT_DOC, "{67ac8460-8ed6-45d8-8570-c2c3c1a26a00}"},
  {"VFC_CLSID_SLDWQ_DEFAULT_DOC", &VFC_CLSID_SLDWQ_DEFAULT_DOC, "{1dfd773d-b5a6-4e8a-ac4a-5e56980e7bb2}"},
  {"VFC_CLSID_SQLT_DEFAULT_DOC", &VFC_CLSID_SQLT_DEFAULT_DOC, "{8335cb72-ef0b-4b18-80e0-71160b1f17ee}"},
  {"VFC_CLSID_FLOWG_DEFAULT_DOC", &VFC_CLSID_FLOWG_DEFAULT_DOC, "{0ef18671-7e0e-4eb1-b735-13f8cdec2dd9}"},
  {"VFC_CLSID_BUGZ_DEFAULT_DOC", &VFC_CLSID_BUGZ_DEFAULT_DOC, "{8d0a9e06-b945-48fb-8788-4b205838f024}"},
  {"VFC_CLSID_EMIT_DEFAULT_DOC", &VFC_CLSID_EMIT_DEFAULT_DOC, "{5bd21dfb-3ec6-421d-a0c6-be962a091be8}"},
  {"VFC_CLSID_SYNQ_DEFAULT_DOC", &VFC_CLSID_SYNQ_DEFAULT_DOC, "{149a783b-51d7-406e-a974-84f7d1fb0ff1}"},
  {"VFC_CLSID_DMR_DEFAULT_DOC", &VFC_CLSID_DMR_DEFAULT_DOC, "{322e2765-7b20-446a-8a06-9f953df56c43}"},
  {"VFC_CLSID_PRW_DEFAULT_DOC", &VFC_CLSID_PRW_DEFAULT_DOC, "{bcede11f-42bc-40c4-b78a-407232a31e2e}"},
  {"VFC_CLSID_WEDTQ_DEFAULT_DOC", &VFC_CLSID_WEDTQ_DEFAULT_DOC, "{97b2a5f4-d045-42ff-b58c-057cd1efa6e4}"},
  {"VFC_CLSID_SHUIQ_DEFAULT_DOC", &VFC_CLSID_SHUIQ_DEFAULT_DOC, "{4222497a-0620-41f8-8c70-0da8ffc0d25b}"},
  {"VFC_CLSID_SHLPQ_DEFAULT_DOC", &VFC_CLSID_SHLPQ_DEFAULT_DOC, "{90e649ef-d50a-416c-8b6c-3cd87099fac2}"},
  {"VFC_CLSID_SMSQ_DEFAULT_DOC", &VFC_CLSID_SMSQ_DEFAULT_DOC, "{395d907a-1c78-4630-b0d0-c8397296e93b}"},
  {"VFC_CLSID_WEDQ_DEFAULT_DOC", &VFC_CLSID_WEDQ_DEFAULT_DOC, "{06bece6d-8cf9-4808-9bf6-5b98b8dc7847}"},
  {"VFC_CLSID_EPEQ_READABLE_DOC", &VFC_CLSID_EPEQ_READABLE_DOC, "{1b8e1d83-823c-2300-aeae-cb2db3bf3bd7}"},
  {"VFC_CLSID_EPEQ_DEFAULT_DOC", &VFC_CLSID_EPEQ_DEFAULT_DOC, "{a04c51df-581e-4752-856f-c6350dd155da}"},
  {"VFC_CLSID_CONW_DEFAULT_DOC", &VFC_CLSID_CONW_DEFAULT_DOC, "{646d386e-9d71-4a26-8cd2-bff66951933a}"},
  {"VFC_CLSID_UNBQ_DEFAULT_DOC", &VFC_CLSID_UNBQ_DEFAULT_DOC, "{408bf49e-fd29-4ebb-be74-ed9d0306202d}"},
  {"VFC_CLSID_ASDQ_DEFAULT_DOC", &VFC_CLSID_ASDQ_DEFAULT_DOC, "{b4d66c00-bc67-4d3e-8962-96aa0504b9eb}"},
  {"VFC_CLSID_PBIP_DEFAULT_DOC", &VFC_CLSID_PBIP_DEFAULT_DOC, "{6b29715a-3baf-449b-9068-e19117563994}"},
  {"VFC_CLSID_KSYS_DEFAULT_DOC", &VFC_CLSID_KSYS_DEFAULT_DOC, "{c526f95d-5cec-4d70-a6cc-0bf1a0762661}"},
  {"VFC_CLSID_KVAR_DEFAULT_DOC", &VFC_CLSID_KVAR_DEFAULT_DOC, "{5a3d724a-5fda-472a-abf3-1e4165e9a9ca}"},
  {"VFC_CLSID_IPEDQ_DEFAULT_DOC", &VFC_CLSID_IPEDQ_DEFAULT_DOC, "{4cae721b-aedc-4ea5-a83b-840bf8bb7ba9}"},
  {"VFC_CLSID_MWPIM_DEFAULT_DOC", &VFC_CLSID_MWPIM_DEFAULT_DOC, "{79dd8363-2976-450b-9d1d-32598f5acf9b}"},
  {"VFC_CLSID_ESLC_DEFAULT_DOC", &VFC_CLSID_ESLC_DEFAULT_DOC, "{446d58eb-fbc1-42cb-ab1e-656846aa2bb1}"},
  {"VFC_CLSID_DPWQ_DEFAULT_DOC", &VFC_CLSID_DPWQ_DEFAULT_DOC, "{2bb2639d-c221-4daf-b5f0-66b98fd4df1e}"},
  {"VFC_CLSID_LLWQ_DEFAULT_DOC", &VFC_CLSID_LLWQ_DEFAULT_DOC, "{28d73c4c-017a-44dc-a0aa-c3bd94fbad0f}"},
  {"VFC_CLSID_AWVQ_DEFAULT_DOC", &VFC_CLSID_AWVQ_DEFAULT_DOC, "{4682599e-d54d-4e2c-84b1-7b4fbfa8dcc2}"},
  {"VFC_CLSID_ECO_DEFAULT_DOC", &VFC_CLSID_ECO_DEFAULT_DOC, "{3636a634-5f8a-470c-9491-ce92caaf9d02}"},
  {"VFC_CLSID_VOSCVQ_DEFAULT_DOC", &VFC_CLSID_VOSCVQ_DEFAULT_DOC, "{397efa2a-0aaa-4d50-9471-d1f98651b93c}"},
  {"VFC_CLSID_HLPQ_DEFAULT_DOC", &VFC_CLSID_HLPQ_DEFAULT_DOC, "{d021c6b3-de3b-444d-9595-56156897d5cc}"},
  {"VFC_CLSID_STWQ_DEFAULT_DOC", &VFC_CLSID_STWQ_DEFAULT_DOC, "{9562b1c4-1091-443d-b670-3b5385c4b118}"},
  {"VFC_CLSID_STW_DEFAULT_DOC", &VFC_CLSID_STW_DEFAULT_DOC, "{447b376b-58c7-4b58-b1e2-8173869c35db}"},
  {"VFC_CLSID_AWV_DEFAULT_DOC", &VFC_CLSID_AWV_DEFAULT_DOC, "{e56e480b-876d-4fb6-938f-a34704ba8598}"},
  {"VFC_CLSID_SME_DEFAULT_DOC", &VFC_CLSID_SME_DEFAULT_DOC, "{5067330b-50ac-4e3f-8ef9-abcfd0ba21fb}"},
  {"VFC_CLSID_LFP_DEFAULT_DOC", &VFC_CLSID_LFP_DEFAULT_DOC, "{36722e45-c1db-49d7-a8b8-cb87dbf80a9f}"},
  {"VFC_CLSID_VOSCW_DEFAULT_DOC", &VFC_CLSID_VOSCW_DEFAULT_DOC, "{5cca367e-d749-419c-bced-931cb8b42a77}"},
  {"VFC_CLSID_KIS_DEFAULT_DOC", &VFC_CLSID_KIS_DEFAULT_DOC, "{e2bb2270-7609-4402-932e-677681dd9eb7}"},
  {"VFC_CLSID_NSM_DEFAULT_DOC", &VFC_CLSID_NSM_DEFAULT_DOC, "{8da3df63-1b23-48a7-b456-bebe85fb8787}"},
  {"VFC_CLSID_RSM_DEFAULT_DOC", &VFC_CLSID_RSM_DEFAULT_DOC, "{31e60f4c-dd6d-40ca-adcd-9b4792d44076}"},
  {"VFC_CLSID_PTW_DEFAULT_DOC", &VFC_CLSID_PTW_DEFAULT_DOC, "{e93447eb-fed8-4be0-b0f7-1b576bb6dede}"},
  {"VFC_CLSID_REQC_DEFAULT_DOC", &VFC_CLSID_REQC_DEFAULT_DOC, "{c818dcae-df0a-4507-a189-fa39b1b13398}"},
  {"VFC_CLSID_ECUI_DEFAULT_DOC", &VFC_CLSID_ECUI_DEFAULT_DOC, "{e205332c-c5b5-4e8f-9acd-f99bbd95ba60}"},
  {"VFC_CLSID_PPL_DEFAULT_DOC", &VFC_CLSID_PPL_DEFAULT_DOC, "{754185c0-3aee-415a-819d-b0a88fa85ee4}"},
  {"VFC_CLSID_OAW_DEFAULT_DOC", &VFC_CLSID_OAW_DEFAULT_DOC, "{e9f155a7-5806-48a0-b4d2-33452091c941}"},
  {"VFC_CLSID_RUI_SIM_VIEWER_FAST_TIMING_DOC", &VFC_CLSID_RUI_SIM_VIEWER_FAST_TIMING_DOC, "{457dda35-f157-41a6-859f-620bae184f3f}"},
  {"VFC_CLSID_RUI_SIM_VIEWER_TIMING_DOC", &VFC_CLSID_RUI_SIM_VIEWER_TIMING_DOC, "{bf34508b-6fec-445c-9c95-a1e592f3d209}"},
  {"VFC_CLSID_RUI_SIM_VIEWER_FUNCTIONAL_DOC", &VFC_CLSID_RUI_SIM_VIEWER_FUNCTIONAL_DOC, "{00277ad8-8327-4723-af70-54509bf08b47}"},
  {"VFC_CLSID_NUI_SNAPSHOT_VIEWER_DOC", &VFC_CLSID_NUI_SNAPSHOT_VIEWER_DOC, "{f804db12-216a-4bba-a8ff-08a80204da89}"},
  {"VFC_CLSID_NUI_SCHEMATIC_VIEWER_DOC", &VFC_CLSID_NUI_SCHEMATIC_VIEWER_DOC, "{6453582f-76a2-4f85-84a0-6952c4282086}"},
  {"VFC_CLSID_NUI_RTM_VIEWER_DOC", &VFC_CLSID_NUI_RTM_VIEWER_DOC, "{25d5d59f-9704-45de-9cfd-e8a18ca4846b}"},
  {"VFC_CLSID_NUI_TECH_POST_FIT_VIEWER_DOC", &VFC_CLSID_NUI_TECH_POST_FIT_VIEWER_DOC, "{0e3ea2c7-d481-43c3-a6ba-751f79b0c4fd}"},
  {"VFC_CLSID_NUI_TECH_POST_MAP_VIEWER_DOC", &VFC_CLSID_NUI_TECH_POST_MAP_VIEWER_DOC, "{566b8cae-c564-441c-9311-0df1fd0f7602}"},
  {"VFC_CLSID_NUI_DEFAULT_DOC", &VFC_CLSID_NUI_DEFAULT_DOC, "{d800552d-898d-4173-827f-425b810ffc1d}"},
  {"VFC_CLSID_RUI_TECH_POST_FIT_VIEWER_DOC", &VFC_CLSID_RUI_TECH_POST_FIT_VIEWER_DOC, "{057823f8-53b7-4ea0-b354-bfac948d172c}"},
  {"VFC_CLSID_RUI_TECH_POST_MAP_VIEWER_DOC", &VFC_CLSID_RUI_TECH_POST_MAP_VIEWER_DOC, "{e2508eb4-a4ad-41c1-8de1-cdea56090543}"},
  {"VFC_CLSID_RUI_DEFAULT_DOC", &VFC_CLSID_RUI_DEFAULT_DOC, "{dc5f1a21-53de-46a3-907f-dc4045baf29b}"},
  {"VFC_CLSID_TFW_ADVANCED_DOC", &VFC_CLSID_TFW_ADVANCED_DOC, "{9ee3a16f-d9ba-4c1b-a927-b4035421ea41}"},
  {"VFC_CLSID_TFW_DEFAULT_DOC", &VFC_CLSID_TFW_DEFAULT_DOC, "{c7740e6c-55f3-46d7-b4de-1dbfb629f98c}"},
  {"VFC_CLSID_SFW_DEFAULT_DOC", &VFC_CLSID_SFW_DEFAULT_DOC, "{9c665862-a0c3-4f70-b475-05416309bf94}"},
  {"VFC_CLSID_CFW_DEFAULT_DOC", &VFC_CLSID_CFW_DEFAULT_DOC, "{796287a6-bd5c-4343-bb98-d1d56f0ee8cc}"},
  {"VFC_CLSID_ACV_FLED_DEFAULT_DOC", &VFC_CLSID_ACV_FLED_DEFAULT_DOC, "{1cda4ef3-9ce6-45d0-b7cb-cb17af1bf2d0}"},
  {"VFC_CLSID_APE_DEFAULT_DOC", &VFC_CLSID_APE_DEFAULT_DOC, "{b2dcf69a-28cf-4890-b634-7b854d8d79a3}"},
  {"VFC_CLSID_ACV_DEFAULT_DOC", &VFC_CLSID_ACV_DEFAULT_DOC, "{50c95946-e6cb-4e48-b2bd-a3119c7d9d13}"},
  {"VFC_CLSID_ASE_DEFAULT_DOC", &VFC_CLSID_ASE_DEFAULT_DOC, "{cd05d1fb-f46f-4329-a29d-c37a6e0d1781}"},
  {"VFC_CLSID_BNL_DEFAULT_DOC", &VFC_CLSID_BNL_DEFAULT_DOC, "{c493cd50-e03c-4ee3-bdf1-b6942a5efb6c}"},
  {"VFC_CLSID_ATC_DEFAULT_DOC", &VFC_CLSID_ATC_DEFAULT_DOC, "{7cf0dc4e-b24f-45b2-8ba7-cfc2f2267114}"},
  {"VFC_CLSID_RED_DEFAULT_DOC", &VFC_CLSID_RED_DEFAULT_DOC, "{31c2170a-bfb0-4218-9811-c0cf9ccf6bc8}"},
  {"VFC_CLSID_SED_DEFAULT_DOC", &VFC_CLSID_SED_DEFAULT_DOC, "{f8f635aa-3eab-4b3c-8f36-9e5931e1803e}"},
  {"VFC_CLSID_KSTP_DOC", &VFC_CLSID_KSTP_DOC, "{7d047d14-2be1-4116-9deb-52cd639a435b}"},
  {"VFC_CLSID_PJN_DEFAULT_DOC", &VFC_CLSID_PJN_DEFAULT_DOC, "{c88bdc4b-950a-4d91-bd6b-481f2d68263d}"},
  {"VFC_CLSID_MSW_DOC", &VFC_CLSID_MSW_DOC, "{f5330902-5393-4ea8-bd4c-77953c8ca664}"},
  {"VFC_CLSID_GED_BSF_DOC", &VFC_CLSID_GED_BSF_DOC, "{69f24a90-e813-4122-8553-6c0741902115}"},
  {"VFC_CLSID_GED_SYM_DOC", &VFC_CLSID_GED_SYM_DOC, "{ac5956ad-6425-496e-988d-650276252d18}"},
  {"VFC_CLSID_GED_BDF_DOC", &VFC_CLSID_GED_BDF_DOC, "{a340d17c-6159-4a63-8971-db798f2fddcc}"},
  {"VFC_CLSID_GED_GDF_DOC", &VFC_CLSID_GED_GDF_DOC, "{b229df78-fdf3-47ed-bbce-83818914e118}"},
  {"VFC_CLSID_MED_HEX_DOC", &VFC_CLSID_MED_HEX_DOC, "{75cdf3be-5ebe-4d3b-b3e7-5c65fc5f9448}"},
  {"VFC_CLSID_MED_MIF_DOC", &VFC_CLSID_MED_MIF_DOC, "{0c88597f-f0bb-435a-8bf3-264f225e10a7}"},
  {"VFC_CLSID_FLP_DEFAULT_DOC", &VFC_CLSID_FLP_DEFAULT_DOC, "{a98dffa2-d979-4b99-94bd-504dfebd36d2}"},
  {"VFC_CLSID_FIDQ_DEFAULT_DOC", &VFC_CLSID_FIDQ_DEFAULT_DOC, "{6f496a7c-0017-4418-999c-f9d17315bd54}"},
  {"VFC_CLSID_PGMDQ_DEFAULT_DOC", &VFC_CLSID_PGMDQ_DEFAULT_DOC, "{1c5a2d3d-8216-42ab-b9b9-958f395f38af}"},
  {"VFC_CLSID_PFG_DEFAULT_DOC", &VFC_CLSID_PFG_DEFAULT_DOC, "{e6eed450-aa69-4c91-97e5-ea35e1b47335}"},
  {"VFC_CLSID_PGMW_COF_DOC", &VFC_CLSID_PGMW_COF_DOC, "{0de47625-6266-46c1-ba74-cd78201de6eb}"},
  {"VFC_CLSID_CSEQ_DEFAULT_DOC", &VFC_CLSID_CSEQ_DEFAULT_DOC, "{14c6989e-3363-4056-9562-4314d5802b1b}"},
  {"VFC_CLSID_PGMTQ_DEFAULT_DOC", &VFC_CLSID_PGMTQ_DEFAULT_DOC, "{64e4a76f-832f-4f82-a821-4ed1b917b68e}"},
  {"VFC_CLSID_PGMW_JBC_DOC", &VFC_CLSID_PGMW_JBC_DOC, "{8464eabe-4b73-4548-8cda-8ff5eaf902d0}"},
  {"VFC_CLSID_PGMW_FCF_DOC", &VFC_CLSID_PGMW_FCF_DOC, "{aaab083a-3aa9-4892-a011-53cf2ae162ab}"},
  {"VFC_CLSID_PGMW_JCF_DOC", &VFC_CLSID_PGMW_JCF_DOC, "{91fff41f-ff96-4d3e-91f2-8733ee9572d2}"},
  {"VFC_CLSID_PGMW_PFL_DOC", &VFC_CLSID_PGMW_PFL_DOC, "{e6d9f66f-d318-49d0-87e4-9d799d70d6d7}"},
  {"VFC_CLSID_PGMW_JAM_DOC", &VFC_CLSID_PGMW_JAM_DOC, "{53ec6009-6fa8-40c7-9129-562e24bb3582}"},
  {"VFC_CLSID_PGMW_SOF_DOC", &VFC_CLSID_PGMW_SOF_DOC, "{32900e73-2475-4930-9594-6c2879b3f6f2}"},
  {"VFC_CLSID_PGMW_POF_DOC", &VFC_CLSID_PGMW_POF_DOC, "{237525d9-3d23-4c4d-a15d-c9dc0942909a}"},
  {"VFC_CLSID_PGMW_CDF_DOC", &VFC_CLSID_PGMW_CDF_DOC, "{d0ed1b0a-21f2-480a-ab9c-864580951f88}"},
  {"VFC_CLSID_RPW_HTML_TYPE", &VFC_CLSID_RPW_HTML_TYPE, "{dffbcd62-106b-4c0d-be6a-82776f35d2db}"},
  {"VFC_CLSID_RPW_GAUGES_TYPE", &VFC_CLSID_RPW_GAUGES_TYPE, "{b0baa325-16d3-4236-9ff5-e2019a2dde28}"},
  {"VFC_CLSID_RPW_CMP_SUMMARY_TYPE", &VFC_CLSID_RPW_CMP_SUMMARY_TYPE, "{93d76a0e-1cc8-47e5-9a7b-cf7cced5f619}"},
  {"VFC_CLSID_RPW_TABLE_TYPE", &VFC_CLSID_RPW_TABLE_TYPE, "{167110c8-7695-4e89-84ad-3114610b2164}"},
  {"VFC_CLSID_RPW_TEXT_TYPE", &VFC_CLSID_RPW_TEXT_TYPE, "{83493fc3-a8b0-11d1-a095-0020affa4418}"},
  {"VFC_CLSID_RPW_CHART_TYPE", &VFC_CLSID_RPW_CHART_TYPE, "{644b2ecc-a31c-49ae-bf20-41a442fd7a9f}"},
  {"VFC_CLSID_RPW_KXP_DOC", &VFC_CLSID_RPW_KXP_DOC, "{0372f0a3-2dcc-44e6-830b-4a48922726d7}"},
  {"VFC_CLSID_RPW_HTML_DOC", &VFC_CLSID_RPW_HTML_DOC, "{9a0913d3-d8eb-4b3a-99b2-f1f970fc3ff1}"},
  {"VFC_CLSID_RPW_TXT_DOC", &VFC_CLSID_RPW_TXT_DOC, "{a425cfae-3b07-4b95-8003-1b4e4564200f}"},
  {"VFC_CLSID_RPW_DEFAULT_DOC", &VFC_CLSID_RPW_DEFAULT_DOC, "{e7493578-7b1c-4194-8564-622ccc983d5f}"},
  {"VFC_CLSID_WED_RDX_DOC", &VFC_CLSID_WED_RDX_DOC, "{09f02c49-3abc-40c7-81d2-26e724fb6b22}"},
  {"VFC_CLSID_WED_VCD_DOC", &VFC_CLSID_WED_VCD_DOC, "{92b2020e-d78c-4c73-a84e-038d805d8008}"},
  {"VFC_CLSID_WED_SCF_DOC", &VFC_CLSID_WED_SCF_DOC, "{049ca06e-42e1-4913-b35c-2869c0a4d182}"},
  {"VFC_CLSID_WED_ELA_DOC", &VFC_CLSID_WED_ELA_DOC, "{9469d9a3-6526-47fb-88c3-e29790c136ef}"},
  {"VFC_CLSID_WED_TBL_DOC", &VFC_CLSID_WED_TBL_DOC, "{d7237702-10f5-4178-8fd0-3fdcde1bfca4}"},
  {"VFC_CLSID_WED_ZVCF_DOC", &VFC_CLSID_WED_ZVCF_DOC, "{5095c8ad-a2f7-4ba1-a0d2-6f45260f5eb4}"},
  {"VFC_CLSID_WED_VCF_DOC", &VFC_CLSID_WED_VCF_DOC, "{97f20176-ce9f-4bf6-a265-053952bc4025}"},
  {"VFC_CLSID_WED_VEC_DOC", &VFC_CLSID_WED_VEC_DOC, "{7393e314-df60-4008-b59e-650ec269f32c}"},
  {"VFC_CLSID_TAW_SNAPSHOT_DOC", &VFC_CLSID_TAW_SNAPSHOT_DOC, "{9a8bc562-ed93-4aa5-89d3-1d4b002c74d2}"},
  {"VFC_CLSID_TAW_FMAX_DOC", &VFC_CLSID_TAW_FMAX_DOC, "{a13711a7-9b56-4373-95ff-43775c9292ef}"},
  {"VFC_CLSID_TED_TEMPLATE_DEFAULT_DOC", &VFC_CLSID_TED_TEMPLATE_DEFAULT_DOC, "{ff8e5fd8-1a50-428a-b1d8-24d73cd8a293}"},
  {"VFC_CLSID_TED_SYSTEMVERILOG_DOC", &VFC_CLSID_TED_SYSTEMVERILOG_DOC, "{78a6149d-107f-4562-8e71-6a661b70072c}"},
  {"VFC_CLSID_TED_PTF_DOC", &VFC_CLSID_TED_PTF_DOC, "{6a992604-63b7-4992-93c5-0b09546138b3}"},
  {"VFC_CLSID_TED_PDC_DOC", &VFC_CLSID_TED_PDC_DOC, "{ebb1cbb0-46f7-40dc-899f-196acca573ca}"},
  {"VFC_CLSID_TED_RTL_SDC_DOC", &VFC_CLSID_TED_RTL_SDC_DOC, "{18bdf66e-7afd-40b0-a013-10b5f16b8810}"},
  {"VFC_CLSID_TED_SDC_DOC", &VFC_CLSID_TED_SDC_DOC, "{e222ea0e-6abc-4185-8489-21063a67a8db}"},
  {"VFC_CLSID_TED_TCL_DOC", &VFC_CLSID_TED_TCL_DOC, "{15e0fbd8-ee0c-11d2-a07a-00c04f6bedd6}"},
  {"VFC_CLSID_TED_TDF_INC_DOC", &VFC_CLSID_TED_TDF_INC_DOC, "{15e0fbd7-ee0c-11d2-a07a-00c04f6bedd6}"},
  {"VFC_CLSID_TED_TDF_DOC", &VFC_CLSID_TED_TDF_DOC, "{db27d083-8806-4810-9beb-a9cdd323caad}"},
  {"VFC_CLSID_TED_EDF_DOC", &VFC_CLSID_TED_EDF_DOC, "{5cdd0f47-652d-477f-82a9-c2c7695186bd}"},
  {"VFC_CLSID_TED_VHD_DOC", &VFC_CLSID_TED_VHD_DOC, "{ba5b9a64-043c-4d6f-8eea-f5995f4e37e9}"},
  {"VFC_CLSID_TED_VERILOG_DOC", &VFC_CLSID_TED_VERILOG_DOC, "{4643d12e-344d-4088-bba7-83dc594ebde5}"},
  {"VFC_CLSID_TED_DEFAULT_DOC", &VFC_CLSID_TED_DEFAULT_DOC, "{0b720e69-67da-11d0-bf4f-0000c08cb0c0}"},
  {"VFC_CLSID_PJM_VOSC", &VFC_CLSID_PJM_VOSC, "{11def45e-8d73-4648-ad4e-5325a9cdab13}"},
  {"VFC_CLSID_PJM_KPF", &VFC_CLSID_PJM_KPF, "{a35c87cd-f18c-4830-8dbb-1125454ec521}"},
  {"VFC_CLSID_PJM_ARCHIVE", &VFC_CLSID_PJM_ARCHIVE, "{ec132bc6-ab2a-42e4-8133-fd22a1a6f275}"},
  {"VFC_CLSID_PJM_SSF", &VFC_CLSID_PJM_SSF, "{15e0fbd6-ee0c-11d2-a07a-00c04f6bedd6}"},
  {"VFC_CLSID_PJM_CSF", &VFC_CLSID_PJM_CSF, "{15e0fbd5-ee0c-11d2-a07a-00c04f6bedd6}"},
  {"VFC_CLSID_PJM_PROJECT", &VFC_CLSID_PJM_PROJECT, "{77e37a26-cc18-11d2-a0ac-00c04fb9ceb4}"},
};

// clang-format on

static_assert(sizeof file_types / sizeof *file_types == file_type_count);
static_assert(sizeof document_classes / sizeof *document_classes == file_type_count);
static_assert(sizeof file_type_names / sizeof *file_type_names == file_type_count);
static_assert(sizeof classes / sizeof *classes == class_count);
static_assert(sizeof extensions / sizeof *extensions == extension_row_count);
static_assert(sizeof extension_type_names / sizeof *extension_type_names == extension_type_count);
static_assert(sizeof extension_trait_names / sizeof *extension_trait_names ==
              sizeof extension_trait_texts / sizeof *extension_trait_texts);
static_assert(sizeof file_type_trait_names / sizeof *file_type_trait_names ==
              sizeof file_type_trait_texts / sizeof *file_type_trait_texts);
static_assert(sizeof editor_names / sizeof *editor_names == sizeof editor_texts / sizeof *editor_texts);

} // namespace vocabulary

#endif
