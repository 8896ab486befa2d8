#!/bin/sh
# Runs every campaign whole, one after the other, and prints the figure of each. With --update they go into the table of
# docs/testing.md. Mutation takes longer than all others together: scripts/mutate.sh runs it, and its last report gives
# the figure here. Installs what is missing, on Debian, as root or through sudo.

. "$(dirname -- "$0")/common.sh"

update=
case $#,${1-} in
0,) ;;
1,--update) update=yes ;;
*)
  echo "usage: campaigns.sh [--update]" >&2
  exit 2
  ;;
esac

need_packages $packages_to_build $packages_to_check $packages_to_check_all $packages_to_measure
say "release: building"
build release

figures=$repository/build/figures
rm -rf "$figures"
mkdir -p "$figures"
failed=0

# Runs a campaign by name and command. Its last line is its figure.
campaign() {
  name=$1
  shift
  say "$name"
  if ! "$@" >"$figures/$name.log"; then
    failed=$((failed + 1))
    tail -n 40 "$figures/$name.log" >&2
  fi
  tail -n 1 "$figures/$name.log" | tee -a "$figures/table"
}

tests=build/release/tests
campaign exhaustive_texts "$tests/model/exhaustive_texts" --full
campaign random_sequences "$tests/model/random_sequences" --full
campaign allocation_sweep "$tests/sweeps/allocation_sweep" --full
campaign system_call_sweep "$tests/sweeps/system_call_sweep" --full
campaign real_faults "$tests/faults/real_faults" --full
campaign threads "$tests/stress/stress_threads" --full
campaign processes "$tests/stress/stress_processes" --full
campaign fuzzing scripts/fuzz.sh 60
campaign mutation tail -n 1 tests/mutation/report.md
campaign coverage scripts/coverage.sh

# Puts the figures in the place of those between the two marks.
update_table() {
  {
    sed '/^<!-- figures -->$/q' docs/testing.md
    printf '\n| campaign | figure |\n|---|---|\n'
    sed 's/^\([^:]*\): \(.*\)$/| \1 | \2 |/' "$figures/table"
    printf '\n'
    sed -n '/^<!-- end of figures -->$/,$p' docs/testing.md
  } >"$figures/testing.md"
  cp "$figures/testing.md" docs/testing.md
}

[ -z "$update" ] || update_table
[ "$failed" = 0 ] || say "$failed campaigns failed"
[ "$failed" = 0 ]
