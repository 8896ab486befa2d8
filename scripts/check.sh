#!/bin/sh
# Builds the library in its release and sanitizer forms, runs all tests in each, and checks the format of the sources.
# With --full also: the build and tests of the other compiler, and clang-tidy. Installs what is missing, on Debian, as
# root or through sudo. The last line is the sum: "N passed, N failed".

. "$(dirname "$0")/common.sh"

presets="release asan tsan"
full=
case ${1-} in
'') ;;
--full) full=yes presets="$presets clang" ;;
*)
  echo "usage: check.sh [--full]" >&2
  exit 2
  ;;
esac

need_packages $packages_to_build $packages_to_check ${full:+$packages_to_check_all}

passed=0
failed=0

# Counts one check that is not a program of tests.
count_check() {
  if "$@"; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
}

# Adds the numbers of a report in the format of JUnit, of which the first line with numbers is the sum.
count_report() {
  tests=$(sed -n 's/.*tests="\([0-9]*\)".*/\1/p' "$1" | head -n 1)
  failures=$(sed -n 's/.*failures="\([0-9]*\)".*/\1/p' "$1" | head -n 1)
  passed=$((passed + tests - failures))
  failed=$((failed + failures))
}

sources() {
  find ccl examples tests benchmarks \( -name '*.h' -o -name '*.cpp' \) -print | sort
}

format_is_right() {
  sources | xargs clang-format --dry-run -Werror
}

tidy_is_silent() {
  sources | grep '\.cpp$' | grep -v '^benchmarks/' |
    xargs -P "$(nproc)" -n 2 clang-tidy --quiet --warnings-as-errors='*' -p build/clang 2>/dev/null
}

run_tests() {
  report=$repository/build/$1/report.xml
  rm -f "$report"
  ctest --preset "$1" -j "$(nproc)" --output-junit "$report" >"build/$1.log" 2>&1 || true
  if [ ! -f "$report" ]; then
    tail -n 20 "build/$1.log" >&2
    failed=$((failed + 1))
    return
  fi
  count_report "$report"
  # The failures are told again at the end of the log; before it stands what the tests themselves said.
  if grep -q 'tests failed' "build/$1.log"; then
    grep -v ' Passed ' "build/$1.log" | tail -n 200 >&2
  fi
}

# Root may do what is refused to everybody else, so its run leaves some behaviour unseen.
run_tests_as_ordinary_user() {
  folder=$(mktemp -d)
  chmod 755 "$folder"
  cp build/release/tests/fio_test build/release/ccl/*.so.* "$folder"
  mkdir -m 777 "$folder/out"
  LD_LIBRARY_PATH=$folder TMPDIR=$folder/out setpriv --reuid=65534 --regid=65534 --clear-groups \
    "$folder/fio_test" --gtest_brief=1 --gtest_output="xml:$folder/out/report.xml" >&2 || true
  if [ -f "$folder/out/report.xml" ]; then
    count_report "$folder/out/report.xml"
  else
    failed=$((failed + 1))
  fi
  rm -rf "$folder"
}

say "format"
count_check format_is_right
for preset in $presets; do
  say "$preset: building"
  if build "$preset"; then
    say "$preset: testing"
    run_tests "$preset"
  else
    failed=$((failed + 1))
  fi
done
if [ "$(id -u)" = 0 ] && [ -x build/release/tests/fio_test ]; then
  say "release: testing as an ordinary user"
  run_tests_as_ordinary_user
fi
if [ -n "$full" ]; then
  say "clang-tidy"
  count_check tidy_is_silent
fi

echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
