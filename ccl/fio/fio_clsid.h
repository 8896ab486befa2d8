/// @file
/// Declares class identifiers, 16 bytes that identify a document class of the suite, and their two string forms.
///
///     fio_clsid_to_str(VFC_CLSID_TED_DEFAULT_DOC, FIO_CLSID_FORMAT_TEXT)
///         => "{0b720e69-67da-11d0-bf4f-0000c08cb0c0}"
///     fio_str_to_clsid("{0b720e69-67da-11d0-bf4f-0000c08cb0c0}")
///         => VFC_CLSID_TED_DEFAULT_DOC
///
/// Identifiers are in host byte order and are compared as 16 bytes of memory. Nothing here touches the disk.
///
/// @par Thread safety
/// The constants are read-only and need no dynamic initialisation, so they may be used from any thread and from static
/// constructors. The two conversions keep no state.

#ifndef CCL_FIO_FIO_CLSID_H
#define CCL_FIO_FIO_CLSID_H

#include <cstdint>
#include <string>

#include "ccl/fio/fio_export.h"

/// Represents a class identifier.
struct _GUID {           // NOLINT(bugprone-reserved-identifier): the name is shared with other platforms
  std::uint32_t Data1;   ///< the first field of the string form
  std::uint16_t Data2;   ///< the second field
  std::uint16_t Data3;   ///< the third field
  std::uint8_t Data4[8]; ///< the last two fields, byte by byte
};

static_assert(sizeof(_GUID) == 16, "an identifier is compared and stored as 16 bytes");

/// Selects a string form of an identifier.
enum FIO_CLSID_FORMAT : int {
  FIO_CLSID_FORMAT_TEXT = 0,        ///< `{0b720e69-67da-11d0-bf4f-0000c08cb0c0}`, which can be read back
  FIO_CLSID_FORMAT_INITIALIZER = 1, ///< `{0x0b720e69, 0x67da, 0x11d0, {0xbf, 0x4f, ...}}`, for source code
};

/// Parses the string form of an identifier.
///
/// The string has exactly 38 characters, with the braces and dashes of `FIO_CLSID_FORMAT_TEXT` in their places. Digits
/// of either case are accepted. The first three fields are read as `sscanf` reads `%x`, and the others as it reads
/// pairs of `%2x`, tolerances included:
///
///     "{12zz5678-0000-0000-0000-000000000000}"   => Data1 is 0x12: the first three fields stop at a character that is
///                                                   no digit
///     "{00000000-0000-0000-0000-g00000000000}"   => all zero: each pair after the third dash needs a digit
///     ""                                         => all zero
///
/// @return the identifier, or `FIO_CLSID_NULL` for a string that is not one; the string of `FIO_CLSID_NULL` itself
///         gives the same result. Nothing is reported.
[[nodiscard]] FIO_EXPORT _GUID fio_str_to_clsid(std::string const& text);

/// Formats an identifier in one of its two string forms, with lower-case digits and every field in its full width.
///
/// @param clsid  the identifier
/// @param format one of the two enumerators; any other value is undefined behaviour
/// @throws std::bad_alloc if the string cannot be stored
[[nodiscard]] FIO_EXPORT std::string fio_clsid_to_str(_GUID const& clsid, FIO_CLSID_FORMAT format);

/// Identifies no class: 16 zero bytes.
extern FIO_EXPORT _GUID const FIO_CLSID_NULL;

/// @name The document classes
/// One constant for each class that a tool of the suite uses. All values are distinct and never change.
/// @{
extern FIO_EXPORT _GUID const VFC_CLSID_PTCNG_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_DEEQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_NOCEQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_CFGDQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_GTDR_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_FEG_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_NOVA_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_KDB_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SSV_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_DASHBOARD_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SNAPW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RTMW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_IPCATVIEWQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_IPCATQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_CMPM_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_KGOS_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PDPW_TILE_INTERFACE_PLANNER_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PDPW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SSCQ_WHATSNEW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SSCQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_DEPLG_EDP_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_DEPLG_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PROTO_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_FITWQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_KDEQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SLDWQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SQLT_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_FLOWG_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_BUGZ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_EMIT_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SYNQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_DMR_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PRW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_WEDTQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SHUIQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SHLPQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SMSQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_WEDQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_EPEQ_READABLE_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_EPEQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_CONW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_UNBQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_ASDQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PBIP_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_KSYS_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_KVAR_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_IPEDQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_MWPIM_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_ESLC_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_DPWQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_LLWQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_AWVQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_ECO_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_VOSCVQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_HLPQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_STWQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_STW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_AWV_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SME_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_LFP_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_VOSCW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_KIS_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_NSM_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RSM_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PTW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_REQC_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_ECUI_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PPL_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_OAW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RUI_SIM_VIEWER_FAST_TIMING_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RUI_SIM_VIEWER_TIMING_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RUI_SIM_VIEWER_FUNCTIONAL_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_NUI_SNAPSHOT_VIEWER_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_NUI_SCHEMATIC_VIEWER_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_NUI_RTM_VIEWER_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_NUI_TECH_POST_FIT_VIEWER_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_NUI_TECH_POST_MAP_VIEWER_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_NUI_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RUI_TECH_POST_FIT_VIEWER_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RUI_TECH_POST_MAP_VIEWER_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RUI_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TFW_ADVANCED_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TFW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SFW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_CFW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_ACV_FLED_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_APE_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_ACV_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_ASE_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_BNL_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_ATC_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RED_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_SED_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_KSTP_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PJN_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_MSW_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_GED_BSF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_GED_SYM_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_GED_BDF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_GED_GDF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_MED_HEX_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_MED_MIF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_FLP_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_FIDQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMDQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PFG_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMW_COF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_CSEQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMTQ_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMW_JBC_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMW_FCF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMW_JCF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMW_PFL_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMW_JAM_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMW_SOF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMW_POF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PGMW_CDF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RPW_HTML_TYPE;
extern FIO_EXPORT _GUID const VFC_CLSID_RPW_GAUGES_TYPE;
extern FIO_EXPORT _GUID const VFC_CLSID_RPW_CMP_SUMMARY_TYPE;
extern FIO_EXPORT _GUID const VFC_CLSID_RPW_TABLE_TYPE;
extern FIO_EXPORT _GUID const VFC_CLSID_RPW_TEXT_TYPE;
extern FIO_EXPORT _GUID const VFC_CLSID_RPW_CHART_TYPE;
extern FIO_EXPORT _GUID const VFC_CLSID_RPW_KXP_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RPW_HTML_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RPW_TXT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_RPW_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_WED_RDX_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_WED_VCD_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_WED_SCF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_WED_ELA_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_WED_TBL_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_WED_ZVCF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_WED_VCF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_WED_VEC_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TAW_SNAPSHOT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TAW_FMAX_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_TEMPLATE_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_SYSTEMVERILOG_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_PTF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_PDC_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_RTL_SDC_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_SDC_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_TCL_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_TDF_INC_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_TDF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_EDF_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_VHD_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_VERILOG_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_TED_DEFAULT_DOC;
extern FIO_EXPORT _GUID const VFC_CLSID_PJM_VOSC;
extern FIO_EXPORT _GUID const VFC_CLSID_PJM_KPF;
extern FIO_EXPORT _GUID const VFC_CLSID_PJM_ARCHIVE;
extern FIO_EXPORT _GUID const VFC_CLSID_PJM_SSF;
extern FIO_EXPORT _GUID const VFC_CLSID_PJM_CSF;
extern FIO_EXPORT _GUID const VFC_CLSID_PJM_PROJECT;
/// @}

#endif
