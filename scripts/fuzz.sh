#!/bin/sh
# Fuzzes the library: builds each target with the fuzzer and the sanitizers, and runs it for a time over a copy of its
# corpus. With --update-corpus the corpus in the repository becomes the smallest part of what was found that reaches
# as much of the library. Installs what is missing, on Debian, as root or through sudo. The last line is the sum:
# "fuzzing: 6 targets, N runs in S s each, N findings; N of N edges of ccl/fio reached".

. "$(dirname -- "$0")/common.sh"

targets="path_sequence path_steps wildcard search_path class_identifier binary_stream"
longest_input=1900
seconds=60
update=

usage() {
  echo "usage: fuzz.sh [--update-corpus] [SECONDS-PER-TARGET]" >&2
  exit 2
}

for argument in "$@"; do
  case $argument in
  --update-corpus) update=yes ;;
  '' | *[!0-9]* | 0) usage ;;
  *) seconds=$argument ;;
  esac
done

need_packages $packages_to_build $packages_to_check $packages_to_check_all

build=$repository/build/fuzz
folder=$build/run
corpora=$repository/tests/fuzz/corpus

# The library is instrumented too, without the fuzzer's own main function: it is what the inputs are to reach.
build_fuzzers() {
  mkdir -p "$build"
  if ! { cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS=-fsanitize=fuzzer-no-link -DCMAKE_CXX_FLAGS_DEBUG=-O1 -DCCL_SANITIZE=address,undefined \
    -DCCL_BUILD_FUZZERS=ON -DCCL_BUILD_EXAMPLES=OFF -DCCL_BUILD_TOOLS=OFF &&
    cmake --build "$build" --target fuzzers; } >"$build.log" 2>&1; then
    tail -n 60 "$build.log" >&2
    say "The build failed; all of it is in $build.log"
    exit 1
  fi
}

# Runs the program of a target. What a target keeps in temporary files lies in the folder and goes with it.
run_fuzzer() {
  program=$build/tests/fuzz/fuzz_$1
  shift
  TMPDIR=$folder/tmp "$program" -max_len=$longest_input -timeout=10 -print_final_stats=1 "$@"
}

# Fuzzes one target, and adds its runs and its findings to the sums.
fuzz() {
  mkdir -p "$folder/$1/corpus" "$folder/$1/findings"
  cp "$corpora/$1"/* "$folder/$1/corpus"
  dictionary=$repository/tests/fuzz/dictionaries/$1.dict
  [ -f "$dictionary" ] || dictionary=
  failed=
  run_fuzzer "$1" -max_total_time="$seconds" -artifact_prefix="$folder/$1/findings/" \
    ${dictionary:+"-dict=$dictionary"} "$folder/$1/corpus" >"$folder/$1.log" 2>&1 || failed=yes
  count=$(sed -n 's/^stat::number_of_executed_units: *//p' "$folder/$1.log")
  runs=$((runs + ${count:-0}))
  [ -n "$failed" ] || return 0
  findings=$((findings + 1))
  grep -v '^#\|^stat::\|^INFO' "$folder/$1.log" | tail -n 60 >&2
  say "$1: a finding; all of the run is in $folder/$1.log"
  for reproducer in "$folder/$1/findings"/*; do
    [ ! -f "$reproducer" ] || say "$1: $build/tests/fuzz/fuzz_$1 $reproducer"
  done
}

# Appends what the corpus of a target reaches of each function of the library: "edges: 3/5 FUNCTION FILE".
add_edges() {
  run_fuzzer "$1" -runs=0 -print_coverage=1 "$folder/$1/corpus" 2>&1 |
    sed -n 's|^U\{0,1\}N\{0,1\}COVERED_FUNC: .*\(edges: [0-9]*/[0-9]*\) \(.*ccl/fio/.*\)|\1 \2|p' >>"$folder/edges"
}

# The edges that some target reaches, "N of N", where of each function the best target counts.
reached_edges() {
  sed 's|^edges: \([0-9]*\)/\([0-9]*\) |\1 \2 |' "$folder/edges" | awk '{
    function_name = $0
    sub(/^[0-9]+ [0-9]+ /, "", function_name)
    if ($1 > reached[function_name]) reached[function_name] = $1
    all[function_name] = $2
  }
  END {
    for (name in all) { sum += reached[name]; total += all[name] }
    printf "%d of %d", sum, total
  }'
}

# Puts the smallest part of what is known that reaches all of it into the repository, the inputs written by hand first.
# How often a place is reached does not count here: that would keep hundreds.
update_corpus() {
  mkdir "$folder/$1/merged"
  cp "$corpora/$1"/seed_* "$folder/$1/merged"
  run_fuzzer "$1" -merge=1 -use_counters=0 "$folder/$1/merged" "$corpora/$1" "$folder/$1/corpus" \
    >"$folder/$1.merge.log" 2>&1
  rm -f "$corpora/$1"/*
  cp "$folder/$1/merged"/* "$corpora/$1"
  say "$1: $(ls "$corpora/$1" | wc -l) inputs in the corpus"
}

say "building"
build_fuzzers
rm -rf "$folder"
mkdir -p "$folder/tmp"
runs=0
findings=0
number=0
for target in $targets; do
  number=$((number + 1))
  say "$target"
  fuzz "$target"
  add_edges "$target"
done
if [ -n "$update" ] && [ "$findings" = 0 ]; then
  for target in $targets; do
    update_corpus "$target"
  done
fi
echo "fuzzing: $number targets, $runs runs in $seconds s each, $findings findings; $(reached_edges) edges of ccl/fio reached"
[ "$findings" = 0 ]
