#!/bin/sh
# Runs the campaigns whole, all of them or those named, one after the other, and prints the figure of each. With --update
# the last figure of each goes into the table of docs/testing.md. Mutation takes longer than all others together:
# scripts/mutate.sh runs it, and its last report gives the figure here. Installs what is missing, on Debian, as root or
# through sudo.

. "$(dirname -- "$0")/common.sh"

all="exhaustive_texts random_sequences allocation_sweep system_call_sweep real_faults stress_threads stress_processes \
power_cuts long_life fuzzing mutation coverage other_processors"
update=
wanted=
for argument in "$@"; do
  case $argument,$all in
  --update,*) update=yes ;;
  *,*"$argument"*) wanted="$wanted $argument" ;;
  *)
    echo "usage: campaigns.sh [--update] [NAME...], of: $all" >&2
    exit 2
    ;;
  esac
done

need_packages $packages_to_build $packages_to_check $packages_to_check_all $packages_to_measure
say "release: building"
build release

figures=$repository/build/figures
mkdir -p "$figures"
failed=0

# Runs a campaign. What it prints last is its figure.
run_campaign() {
  case $1 in
  power_cuts)
    if [ "$(id -u)" = 0 ]; then
      need_packages $packages_to_cut_power
    else
      say "power_cuts: left out, for only root can mount a disk"
    fi
    /usr/bin/python3 tests/crash/power_cuts.py "$(find build/release/tests -type f -name crash_operation)"
    ;;
  fuzzing) scripts/fuzz.sh 60 ;;
  mutation) sed -n 's/^mutation: /&/p' tests/mutation/report.md ;;
  coverage) scripts/coverage.sh ;;
  other_processors) scripts/check_elsewhere.sh ;;
  *) "$(find build/release/tests -type f -name "$1")" --full ;;
  esac
}

for campaign in ${wanted:-$all}; do
  say "$campaign"
  if ! run_campaign "$campaign" >"$figures/$campaign.log"; then
    failed=$((failed + 1))
    tail -n 40 "$figures/$campaign.log" >&2
  fi
  tail -n 1 "$figures/$campaign.log" | tee "$figures/$campaign"
done

update_table() {
  {
    printf '| campaign | figure |\n|---|---|\n'
    for campaign in $all; do
      [ ! -f "$figures/$campaign" ] || sed 's/^\([^:]*\): \(.*\)$/| \1 | \2 |/' "$figures/$campaign"
    done
  } | replace_marked docs/testing.md figures
}

[ -z "$update" ] || update_table
[ "$failed" = 0 ] || say "$failed campaigns failed"
[ "$failed" = 0 ]
