#!/bin/sh
# Builds the library in its release and sanitizer forms, runs all tests in each, and checks the format of the sources.
# With --full also: the build and tests of the other compiler, clang-tidy, and the campaigns whole. Installs what is
# missing, on Debian, as root or through sudo. The last line is the sum: "N passed, N failed".

. "$(dirname -- "$0")/common.sh"

presets="release asan tsan"
full=
case $#,${1-} in
0,) ;;
1,--full) full=yes presets="$presets clang" ;;
*)
  echo "usage: check.sh [--full]" >&2
  exit 2
  ;;
esac

need_packages $packages_to_build $packages_to_check ${full:+$packages_to_check_all $packages_to_measure}

passed=0
failed=0
skipped=0

# Counts one check that is not a program of tests.
count_check() {
  if "$@"; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
}

# A number in a report in the format of JUnit: the first with this name is the sum.
number_in() {
  number=$(tr '\n\t' '  ' <"$1" | grep -o " $2=\"[0-9]*\"" | head -n 1 | tr -dc 0-9)
  echo "${number:-0}"
}

# Adds the numbers of a report. What did not run has not passed: a test that could not be run has failed, and one that
# leaves itself out is counted apart.
count_report() {
  tests=$(number_in "$1" tests)
  if [ "$tests" = 0 ]; then
    say "no test in $1"
    failed=$((failed + 1))
    return
  fi
  failures=$(number_in "$1" failures)
  not_run=$(($(number_in "$1" skipped) + $(number_in "$1" disabled)))
  left_out=$(grep -c 'SKIP_REGULAR_EXPRESSION_MATCHED\|result="skipped"' "$1" || true)
  [ "$left_out" -le "$not_run" ] || left_out=$not_run
  passed=$((passed + tests - failures - not_run))
  failed=$((failed + failures + not_run - left_out))
  skipped=$((skipped + left_out))
}

sources() {
  find ccl examples tests benchmarks \( -name '*.h' -o -name '*.cpp' \) -print | sort
}

format_is_right() {
  sources | xargs clang-format --dry-run -Werror
}

# What clang-tidy says of its own progress goes to a log.
tidy_is_silent() {
  sources | grep '^\(ccl\|examples\)/.*\.cpp$' |
    xargs -P "$(nproc)" -n 2 clang-tidy --quiet --warnings-as-errors='*' -p build/clang 2>build/tidy.log ||
    { tail -n 5 build/tidy.log >&2 && return 1; }
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
  before=$failed
  count_report "$report"
  [ "$failed" != "$before" ] || return 0
  # The failures are told again at the end of the log; before it stands what the tests themselves said.
  grep -v ' Passed \|^ *Start ' "build/$1.log" | tail -n 200 >&2
  say "The tests of '$1' failed; all they said is in build/$1.log"
}

# Root may do what is refused to everybody else, so its run leaves some behaviour unseen.
run_tests_as_ordinary_user() {
  folder=$(mktemp -d)
  trap 'rm -rf "$folder"' EXIT
  trap 'exit 1' HUP INT TERM
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
}

built=
say "format"
count_check format_is_right
for preset in $presets; do
  say "$preset: building"
  if build "$preset"; then
    built="$built $preset"
    say "$preset: testing"
    run_tests "$preset"
  else
    failed=$((failed + 1))
  fi
done
case $(id -u),$built in
0,*release*)
  say "release: testing as an ordinary user"
  run_tests_as_ordinary_user
  ;;
esac
if [ -n "$full" ]; then
  say "clang-tidy"
  count_check tidy_is_silent
  say "campaigns"
  count_check scripts/campaigns.sh >&2
fi

[ "$skipped" = 0 ] || say "$skipped tests left themselves out"
echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
