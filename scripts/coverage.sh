#!/bin/sh
# Counts the lines and branches of the library that the tests reach. Every line has to be reached, and every branch that
# is not has to have its reason in tests/coverage/unreached_branches.txt. Installs what is missing, on Debian, as root or
# through sudo. The report is in build/coverage; the last line is its sum.

. "$(dirname -- "$0")/common.sh"

need_packages $packages_to_build $packages_to_check $packages_to_measure
programs="fio_test allocation_sweep"
say "coverage: building"
build coverage --target $programs
say "coverage: testing"
find build/coverage -name '*.gcda' -delete
for program in $programs; do
  log=build/coverage/$program.log
  # One after the other: each adds to the same counts.
  if ! "$(find build/coverage/tests -type f -name "$program")" >"$log" 2>&1; then
    tail -n 40 "$log" >&2
    say "$program failed; all it said is in $log"
    exit 1
  fi
done
gcovr --root . --filter ccl/fio/ --exclude-unreachable-branches \
  --json build/coverage/report.json --html-details build/coverage/report.html build/coverage
exec python3 tests/coverage/report.py build/coverage/report.json tests/coverage/unreached_branches.txt
