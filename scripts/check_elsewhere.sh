#!/bin/sh
# Runs the tests as on other processors: builds the library and programs of its tests with Debian's cross compiler and
# Debian's packages of the processor in build/elsewhere/ARCH, and runs them under qemu-user. ARCH is arm64, where plain
# `char` is unsigned, or s390x, which has the other byte order; without an argument it is both. Installs what is missing,
# on Debian, as root or through sudo. The last line is the sum: "other processors: arm64 N tests, N comparisons with the
# model; ...; N left out, N failed".

. "$(dirname -- "$0")/common.sh"

programs_of_tests="fio_test platform_test"
programs_of_the_model="exhaustive_texts random_sequences"
packages_of_the_root=libc6-dev,libstdc++-12-dev,libboost-dev,libboost-filesystem-dev,libgtest-dev
longest_run=3600 # seconds

# What the emulator makes fail, and not the processor: a test and the reason in each line.
left_out="platform.reports_an_internal_error_with_its_place_and_aborts: \
the emulator prints a line of its own before a program that aborts ends"

[ $# != 0 ] || set -- arm64 s390x
compilers=
for architecture in "$@"; do
  case $architecture in
  arm64) compilers="$compilers g++-aarch64-linux-gnu" ;;
  s390x) compilers="$compilers g++-s390x-linux-gnu" ;;
  *)
    echo "usage: check_elsewhere.sh [arm64 | s390x]..." >&2
    exit 2
    ;;
  esac
done
need_packages cmake ninja-build mmdebstrap qemu-user $compilers
ulimit -c 0 # the emulator leaves files of memory too

# Sets what depends on the processor.
choose() {
  architecture=$1
  processor=$architecture
  [ "$architecture" != arm64 ] || processor=aarch64
  folder=$repository/build/elsewhere/$architecture
  root=$folder/root
  build=$folder/build
}

# Runs a command whose output goes to a log, and prints the end of that if it failed.
quietly() {
  log=$folder/$1.log
  shift
  if ! "$@" >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    say "$architecture: failed; all of it is in $log"
    return 1
  fi
}

# The packages are unpacked and not configured: none of their code runs.
make_root() {
  rm -rf "$root.new"
  mmdebstrap --variant=extract --architectures="$architecture" --include="$packages_of_the_root" bookworm "$root.new" &&
    mv "$root.new" "$root"
}

build_programs() {
  cmake -S . -B "$build" -G Ninja --toolchain cmake/debian_cross.cmake -DCCL_TRIPLE="$processor-linux-gnu" \
    -DCMAKE_SYSROOT="$root" -DCMAKE_BUILD_TYPE=Release -DCCL_BUILD_TESTS=ON -DCCL_BUILD_EXAMPLES=OFF \
    -DCCL_BUILD_TOOLS=OFF -DCCL_BUILD_TCL=OFF -DCCL_BUILD_PYTHON=OFF &&
    cmake --build "$build" --target $programs_of_tests $programs_of_the_model
}

# Runs a program under the emulator. It is started by a script, as a test of what ends a program executes argv[0] anew.
emulate() {
  launcher=$folder/$1
  program=$(find "$build/tests" -type f -name "$1")
  printf '#!/bin/sh\nexec qemu-%s -L "%s" -0 "%s" "%s" "$@"\n' "$processor" "$root" "$launcher" "$program" >"$launcher"
  chmod 755 "$launcher"
  mkdir -p "$folder/tmp" # the emulator looks up the names of /tmp in the root first
  shift
  TMPDIR=$folder/tmp GTEST_BRIEF=1 GTEST_FILTER="-$(echo "$left_out" | sed 's/: .*//' | paste -s -d :)" \
    timeout "$longest_run" "$launcher" "$@"
}

# The sum of the last numbers before a word in the logs of programs. They may be in groups of three digits.
sum_before() {
  word=$1
  shift
  for program in "$@"; do
    sed -n "s/.*[^0-9,]\([0-9,]*\) $word.*/\1/p" "$folder/$program.log" | tail -n 1
  done | tr -d , | awk '{ sum += $1 } END { print sum + 0 }'
}

# Adds what a program found to the failures, where one that came to no end counts as one.
count_failures() {
  count=$(sum_before 'FAILED TEST' "$1")
  [ "$count" != 0 ] || count=1
  failed=$((failed + count))
}

echo "$left_out" | while read -r line; do
  say "left out: $line"
done
failed=0
sum=
check_processor() {
  mkdir -p "$folder"
  if [ ! -d "$root" ]; then
    say "$architecture: unpacking packages"
    quietly root make_root || return 1
  fi
  say "$architecture: building"
  quietly build build_programs || return 1
  for program in $programs_of_tests $programs_of_the_model; do
    say "$architecture: $program"
    case $program in
    random_sequences) set -- --rounds 500 ;; # a tenth of the quick form
    *) set -- ;;
    esac
    quietly "$program" emulate "$program" "$@" || count_failures "$program"
  done
  sum="$sum $architecture $(sum_before 'tests\{0,1\} from' $programs_of_tests) tests,"
  sum="$sum $(sum_before comparisons $programs_of_the_model) comparisons with the model;"
}

for architecture in "$@"; do
  choose "$architecture"
  check_processor || failed=$((failed + 1))
done
echo "other processors:$sum $(echo "$left_out" | wc -l) left out, $failed failed"
[ "$failed" = 0 ]
