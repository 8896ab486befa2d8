/// @file
/// Includes the whole library but for the making of errors: that is in `fio_errc.h`, which includes the format library.

#ifndef CCL_FIO_FIO_H
#define CCL_FIO_FIO_H

#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_clsid_list.h"
#include "ccl/fio/fio_errc_codes.h"
#include "ccl/fio/fio_extension_type_info.h"
#include "ccl/fio/fio_file_bin.h"
#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_file_type_info.h"
#include "ccl/fio/fio_find.h"
#include "ccl/fio/fio_iterator.h"
#include "ccl/fio/fio_path.h"
#include "ccl/fio/fio_types.h"
#include "ccl/fio/fio_version.h"

#endif
