#!/bin/sh
# Builds the library, runs its tests, and checks the format of the sources. Installs what is missing, on Debian, as root
# or through sudo. The last line is the sum: "N passed, N failed"; the line before it says how long it took.
#
# Without an argument, what is worth knowing before a commit: the release build with its tests; the programs of these
# tests over a library that is built for AddressSanitizer and UndefinedBehaviorSanitizer; and threads and processes under
# ThreadSanitizer. With --tests all tests in all three builds, where the tests are instrumented as well and each is a
# process. With --full also the other compiler, clang-tidy, the packages, the instruction counts of the benchmarks, and the
# campaigns whole.

. "$(dirname -- "$0")/common.sh"

case $#,${1-} in
0,) form=quick ;;
1,--tests) form=tests ;;
1,--full) form=full ;;
*)
  echo "usage: check.sh [--tests | --full]" >&2
  exit 2
  ;;
esac
full=
[ "$form" != full ] || full=yes

need_packages $packages_to_build $packages_to_check ${full:+$packages_to_check_all $packages_to_measure}

# What the quick form leaves to the others: the tests that build the library once more, or programs that use it, or
# install what was tested where it was built; another compiler, and its language of another year; the page in a browser,
# all but one session of the debugger, and the longest campaigns.
longer_tests='^(package\.(stands_on_another_platform|starts_.*)|tcl\.installed\..*|python\.(works_in_a_prefix_.*|stubs)'
longer_tests="$longer_tests"'|headers\.std_.*_(with_clang.*|cxx20)|ccl-fio\.writes_a_page_that_works_in_a_browser'
longer_tests="$longer_tests"'|debugger\.(shows_(the|memory|what_it).*|agrees_.*)'
longer_tests="$longer_tests"'|sweeps\.system_call_sweep|faults\.real_faults|model\.exhaustive_texts)$'

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
trap 'exit 1' HUP INT TERM
clock=$scratch/clock
counts=$scratch/counts
: >"$counts"

# The processor time so far of all processes that have ended, in seconds. Not for a subshell, which has none.
note_processor_time() {
  times >"$clock"
  processor_time=$(tr 'ms' '  ' <"$clock" | awk '{ sum += $1 * 60 + $2 + $3 * 60 + $4 } END { printf "%.0f", sum }')
}

note_processor_time
processor_time_before=$processor_time
started=$(date +%s)

# Adds to the counts of what passed, failed, and left itself out. They stand in a file, as a part of the checks runs in the
# background.
add_counts() {
  echo "$1 $2 ${3:-0}" >>"$counts"
}

# The sum of a column of the counts.
sum_of() {
  awk -v column="$1" '{ sum += $column } END { print sum + 0 }' "$counts"
}

# Counts one check that is not a program of tests.
count_check() {
  if "$@"; then add_counts 1 0; else add_counts 0 1; fi
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
    not_passed=1
    add_counts 0 1
    return
  fi
  failures=$(number_in "$1" failures)
  not_run=$(($(number_in "$1" skipped) + $(number_in "$1" disabled)))
  left_out=$(grep -c 'SKIP_REGULAR_EXPRESSION_MATCHED\|SKIP_RETURN_CODE\|result="skipped"' "$1" || true)
  [ "$left_out" -le "$not_run" ] || left_out=$not_run
  not_passed=$((failures + not_run - left_out))
  add_counts $((tests - failures - not_run)) "$not_passed" "$left_out"
}

sources() {
  find ccl tools bindings examples tests benchmarks \( -name '*.h' -o -name '*.cpp' \) -print | sort
}

format_is_right() {
  sources | xargs -P "$(nproc)" -n 40 clang-format --dry-run -Werror
}

# What clang-tidy says of its own progress goes to a log.
tidy_is_silent() {
  sources | grep '^\(ccl\|tools\|bindings\|examples\)/.*\.cpp$' |
    xargs -P "$(nproc)" -n 2 clang-tidy --quiet --warnings-as-errors='*' -p build/clang 2>build/tidy.log ||
    { tail -n 5 build/tidy.log >&2 && return 1; }
}

# Runs the tests of a preset: all of them, or what further arguments for ctest say.
run_tests() {
  preset=$1
  shift
  report=$repository/build/$preset/report.xml
  rm -f "$report"
  ctest --preset "$preset" -j "$(nproc)" --output-junit "$report" "$@" >"build/$preset.log" 2>&1 || true
  if [ ! -f "$report" ]; then
    tail -n 20 "build/$preset.log" >&2
    add_counts 0 1
    return
  fi
  count_report "$report"
  [ "$not_passed" != 0 ] || return 0
  # The failures are told again at the end of the log; before it stands what the tests themselves said.
  grep -v ' Passed \|^ *Start ' "build/$preset.log" | tail -n 200 >&2
  say "The tests of '$preset' failed; all they said is in build/$preset.log"
}

# Builds a preset, or those of its targets that are named, and says whether it could be built.
build_and_count() {
  say "$1: building"
  build "$@" || { add_counts 0 1 && return 1; }
}

# A program of tests in one process. Its report has each test, so that each counts; a program that came to no end has
# none.
run_test_program() {
  report=$1
  shift
  rm -f "$report"
  "$@" --gtest_brief=1 "--gtest_output=xml:$report" >"$report.log" 2>&1 || tail -n 200 "$report.log" >&2
  if [ -f "$report" ]; then
    count_report "$report"
  else
    add_counts 0 1
  fi
}

# What a program of the release tests finds when it runs with the library that was built for AddressSanitizer.
with_sanitized_library() {
  env LD_PRELOAD="$(g++ -print-file-name=libasan.so) $(g++ -print-file-name=libubsan.so)" \
    LD_LIBRARY_PATH="$repository/build/asan/ccl" "$@"
}

finds_sanitized_library() {
  LD_LIBRARY_PATH=$repository/build/asan/ccl ldd build/release/tests/fio_test | grep -q "$repository/build/asan/ccl/libccl_fio"
}

# A campaign over that library. Prints what it said if it failed.
campaign_is_clean() {
  log=$repository/build/asan/${1##*/}.log
  with_sanitized_library "$@" >"$log" 2>&1 || { tail -n 60 "$log" >&2 && return 1; }
}

# All programs but those that count allocations, which do so above one allocator, and the longest: the sweep of system
# calls and the real faults.
run_over_sanitized_library() {
  programs=build/release/tests
  count_check finds_sanitized_library
  for program in fio_test platform_test; do
    run_test_program "$repository/build/asan/$program.xml" with_sanitized_library "$programs/$program"
  done
  count_check campaign_is_clean "$programs/model/random_sequences" --rounds 500
  for replay in "$programs"/fuzz/replay_*; do
    case $replay in *[!a-z_/]*) continue ;; esac
    count_check campaign_is_clean "$replay" "tests/fuzz/corpus/${replay##*/replay_}"
  done
}

# Root may do what is refused to everybody else, so its run leaves some behaviour unseen.
run_tests_as_ordinary_user() {
  folder=$scratch/ordinary_user
  mkdir "$folder"
  chmod 755 "$scratch" "$folder"
  cp build/release/tests/fio_test build/release/ccl/*.so.* "$folder"
  mkdir -m 777 "$folder/out"
  run_test_program "$folder/out/report.xml" env LD_LIBRARY_PATH="$folder" TMPDIR="$folder/out" \
    setpriv --reuid=65534 --regid=65534 --clear-groups "$folder/fio_test"
}

# Checks that stand in scripts of their own.
run_script() {
  say "$*"
  script=scripts/$1
  shift
  count_check "$script" "$@" >&2
}

say "format"
count_check format_is_right

# The quick form: all is built first, then one core runs each test of the release build as a process, and the other the
# programs that have many tests in one.
check_quickly() {
  if ! build_and_count release; then return; fi
  asan=
  tsan=
  if build_and_count asan --target ccl_fio; then asan=yes; fi
  if build_and_count tsan --target stress_threads stress_processes; then tsan=yes; fi
  say "testing"
  {
    for program in fio_test platform_test; do
      run_test_program "$repository/build/release/$program.xml" "build/release/tests/$program"
    done
    [ "$(id -u)" != 0 ] || run_tests_as_ordinary_user
    [ -z "$asan" ] || run_over_sanitized_library
  } &
  run_tests release -LE '^table$' -E "$longer_tests"
  [ -z "$tsan" ] || run_tests tsan -R '^stress\.'
  wait
}

# Every test of each build as a process.
check_all_tests() {
  for preset in release asan tsan ${full:+clang}; do
    build_and_count "$preset" || continue
    say "$preset: testing"
    run_tests "$preset"
    if [ "$preset,$(id -u)" = release,0 ]; then
      say "$preset: testing as an ordinary user"
      run_tests_as_ordinary_user
    fi
  done
}

if [ "$form" = quick ]; then check_quickly; else check_all_tests; fi

if [ -n "$full" ]; then
  say "clang-tidy"
  count_check tidy_is_silent
  run_script check_packages.sh
  run_script check_reproducible.sh
  run_script bench.sh --check
  say "campaigns"
  count_check scripts/campaigns.sh >&2
fi

skipped=$(sum_of 3)
failed=$(sum_of 2)
[ "$skipped" = 0 ] || say "$skipped tests left themselves out"
note_processor_time
echo "$(($(date +%s) - started)) s, $((processor_time - processor_time_before)) s of processor time"
echo "$(sum_of 1) passed, $failed failed"
[ "$failed" = 0 ]
