#!/bin/sh
# Stops a program in gdb where its objects are complete, runs the commands of a transcript there, and compares what gdb
# says with the transcript, which may be a block of a page. The library is installed as the packages have it: stripped,
# with its debug symbols in a folder of their own.
#
# usage: run.sh BUILD PROGRAM TRANSCRIPT WORK process|core|no-symbols

set -eu

build=$1
program=$2
transcript=$3
work=$4
what=$5

if ! gdb -nx -batch -ex 'python pass' >/dev/null 2>&1; then
  echo "left out: there is no gdb with Python (Debian: gdb)"
  exit 0
fi

rm -rf "$work"
mkdir -p "$work/tree/only"
touch "$work/tree/only/file"
cp "${0%/*}"/*.py "$work"
cd "$work"

for component in fio platform; do
  cmake --install "$build" --prefix "$work/prefix" --component $component >install.log
done
script=$(find prefix -name 'libccl_fio.so.*-gdb.py')
libraries=$work/${script%/*}
for library in "$libraries"/libccl_*.so.*.*.?; do
  id=$(readelf -n "$library" | sed -n 's/.*Build ID: //p')
  folder=symbols/.build-id/$(printf %.2s "$id")
  mkdir -p "$folder"
  objcopy --only-keep-debug "$library" "$folder/${id#??}.debug"
  strip --strip-unneeded "$library"
done

# gdb finds what stands beside the library, where that is allowed, unless it is to be told.
symbols=$work/symbols
safe="add-auto-load-safe-path $libraries"
first=
if [ "$what" = no-symbols ]; then
  symbols=$work/nothing
  safe=
  first="source $libraries/${script##*/}"
fi

sed -n '/^```gdb$/,/^```$/{ /^```/!p }' "$transcript" >expected
[ -s expected ] || cp "$transcript" expected
sed -n 's/^(gdb) \(.*\)$/echo (gdb) \1\\n\n\1/p' expected >commands

debug() {
  env -u LD_LIBRARY_PATH LC_ALL=C.UTF-8 gdb -nx -batch -iex "set debuginfod enabled off" \
    -iex "set debug-file-directory $symbols" -iex "$safe" -iex "set startup-with-shell off" \
    -iex "set environment LD_LIBRARY_PATH $libraries" "$@" </dev/null 2>&1
}

show() {
  debug "$@" -ex up -ex "$first" -ex 'echo ====\n' -x commands >output
}

if [ "$what" = core ]; then
  debug -ex 'break look_at' -ex run -ex 'generate-core-file core' "$program" >output
  [ ! -s core ] || show "$program" core
else
  show -ex 'break look_at' -ex run "$program"
fi
if grep -q 'ptrace\|Operation not permitted' output; then
  echo "left out: a process may not be traced here"
  exit 0
fi

sed '1,/^====$/d' output >shown
grep -q '^====$' output || cat output
diff expected shown
