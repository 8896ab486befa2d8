// Prints the version that the headers have, as a string and as a number.

#include <cstdio>

#include "ccl/fio/fio_version.h"

int main() { std::printf("%s %d\n", CCL_FIO_VERSION_STRING, CCL_FIO_VERSION); }
