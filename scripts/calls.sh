#!/bin/sh
# Traces each operation of the library and writes the table of its system calls, docs/calls.md.

. "$(dirname -- "$0")/common.sh"

need_packages $packages_to_build $packages_to_check
build release --target traced_operations
/usr/bin/python3 -B tests/costs/calls.py --renew build/release/tests/costs/traced_operations docs/calls.md
