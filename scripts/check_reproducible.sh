#!/bin/sh
# Builds the packages twice, from copies of the sources in two folders, and compares what comes of it byte for byte: the
# libraries as they are built, and all packages. The last line is the sum: "N passed, N failed".

. "$(dirname -- "$0")/common.sh"

: "${SOURCE_DATE_EPOCH:=$(git log -1 --format=%ct 2>/dev/null || stat -c %Y CHANGELOG.md)}"
export SOURCE_DATE_EPOCH
export CCACHE_DISABLE=1 # the second build is to be one

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
trap 'exit 1' HUP INT TERM
first=$scratch/first
second=$scratch/another_place/for_the_second # a blank in it is more than Doxygen can take

for folder in "$first" "$second"; do
  mkdir -p "$folder"
  tar --exclude ./build --exclude ./.git -cf - . | tar -C "$folder" -xf -
  "$folder/scripts/package.sh" >/dev/null
done

passed=0
failed=0
compare() {
  if cmp "$first/$1" "$second/$1" >&2; then
    passed=$((passed + 1))
    say "the same twice: $1"
  else
    failed=$((failed + 1))
  fi
}
for library in fio platform; do
  compare "build/package/ccl/libccl_$library.so"
done
for file in "$first"/build/packages/*; do
  compare "build/packages/$(basename -- "$file")"
done
echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
