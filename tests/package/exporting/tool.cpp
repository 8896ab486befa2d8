#include <ccl/fio/fio.h>

FIO_PATH tool_output() { return FIO_PATH("rtl/alu.v"); }
