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

# What the quick form leaves to the others: the tests that build the library once more or programs that use it, and the
# longest sweep.
longer_tests='^(sweeps\.system_call_sweep|package\.(stands_on_another_platform|starts_.*))$'

clock=$(mktemp)
trap 'rm -f "$clock"' EXIT
trap 'exit 1' HUP INT TERM

# The processor time so far of all processes that have ended, in seconds. Not for a subshell, which has none.
note_processor_time() {
  times >"$clock"
  processor_time=$(tr 'ms' '  ' <"$clock" | awk '{ sum += $1 * 60 + $2 + $3 * 60 + $4 } END { printf "%.0f", sum }')
}

note_processor_time
processor_time_before=$processor_time
started=$(date +%s)

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
  left_out=$(grep -c 'SKIP_REGULAR_EXPRESSION_MATCHED\|SKIP_RETURN_CODE\|result="skipped"' "$1" || true)
  [ "$left_out" -le "$not_run" ] || left_out=$not_run
  passed=$((passed + tests - failures - not_run))
  failed=$((failed + failures + not_run - left_out))
  skipped=$((skipped + left_out))
}

sources() {
  find ccl tools examples tests benchmarks \( -name '*.h' -o -name '*.cpp' \) -print | sort
}

format_is_right() {
  sources | xargs -P "$(nproc)" -n 40 clang-format --dry-run -Werror
}

# What clang-tidy says of its own progress goes to a log.
tidy_is_silent() {
  sources | grep '^\(ccl\|tools\|examples\)/.*\.cpp$' |
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
    failed=$((failed + 1))
    return
  fi
  before=$failed
  count_report "$report"
  [ "$failed" != "$before" ] || return 0
  # The failures are told again at the end of the log; before it stands what the tests themselves said.
  grep -v ' Passed \|^ *Start ' "build/$preset.log" | tail -n 200 >&2
  say "The tests of '$preset' failed; all they said is in build/$preset.log"
}

# Builds a preset, or those of its targets that are named, and says whether it could be built.
build_and_count() {
  say "$1: building"
  build "$@" || { failed=$((failed + 1)) && return 1; }
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
    failed=$((failed + 1))
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
  folder=$(mktemp -d)
  trap 'rm -rf "$folder" "$clock"' EXIT
  chmod 755 "$folder"
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

released=
if build_and_count release; then
  released=yes
  say "release: testing"
  if [ "$form" = quick ]; then
    run_tests release -LE '^table$' -E "$longer_tests"
    for program in fio_test platform_test; do
      run_test_program "$repository/build/release/$program.xml" "build/release/tests/$program"
    done
  else
    run_tests release
  fi
  if [ "$(id -u)" = 0 ]; then
    say "release: testing as an ordinary user"
    run_tests_as_ordinary_user
  fi
fi

if [ "$form" = quick ]; then
  if build_and_count asan --target ccl_fio && [ -n "$released" ]; then
    say "asan: testing"
    run_over_sanitized_library
  fi
  if build_and_count tsan --target stress_threads stress_processes; then
    say "tsan: testing"
    run_tests tsan -R '^stress\.'
  fi
else
  for preset in asan tsan ${full:+clang}; do
    if build_and_count "$preset"; then
      say "$preset: testing"
      run_tests "$preset"
    fi
  done
fi

if [ -n "$full" ]; then
  say "clang-tidy"
  count_check tidy_is_silent
  run_script check_packages.sh
  run_script check_reproducible.sh
  run_script bench.sh --check
  say "campaigns"
  count_check scripts/campaigns.sh >&2
fi

[ "$skipped" = 0 ] || say "$skipped tests left themselves out"
note_processor_time
echo "$(($(date +%s) - started)) s, $((processor_time - processor_time_before)) s of processor time"
echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
