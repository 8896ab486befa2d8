#!/bin/sh
# Counts the lines and branches of the library that the tests reach. Every line has to be reached, and every branch that
# is not has to have its reason in tests/coverage/unreached_branches.txt. Installs what is missing, on Debian, as root or
# through sudo. The report is in build/coverage; the last line is its sum.

. "$(dirname -- "$0")/common.sh"

need_packages $packages_to_build $packages_to_check $packages_to_measure
say "coverage: building"
build coverage
say "coverage: testing"
find build/coverage -name '*.gcda' -delete
# One program after the other: each adds to the same counts.
if ! ctest --test-dir build/coverage -R "^(fio_test|platform_test|sweeps)" -j 1 >build/coverage.log 2>&1; then
  grep -v ' Passed ' build/coverage.log | tail -n 40 >&2
  say "A test failed; all they said is in build/coverage.log"
fi
gcovr --root . --filter ccl/fio/ --exclude-throw-branches --exclude-unreachable-branches \
  --json build/coverage/report.json --html-details build/coverage/report.html build/coverage
exec python3 scripts/coverage_report.py build/coverage/report.json tests/coverage/unreached_branches.txt
