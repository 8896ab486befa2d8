#!/bin/sh
# Compares a transcript with what gdb says of a program, or of its core file, with the library as the packages have it:
# installed, stripped, and with its debug symbols in a folder of their own.
#
# usage: run.sh BUILD PROGRAM TRANSCRIPT WORK process|core|no-symbols

set -eu

build=$1
program=$2
transcript=$3
work=$4
what=$5
here=$(CDPATH= cd -- "$(dirname -- "$0")" && pwd -P)

probe=$(gdb -nx -batch -ex 'python print("Python")' -ex run "$(command -v true)" 2>&1 || true)
case $probe in
*Python*"exited normally"*) ;;
*)
  echo "left out: no gdb with Python (Debian: gdb), or none that may trace a process: $probe"
  exit 0
  ;;
esac

rm -rf "$work"
mkdir -p "$work/tree/only"
touch "$work/tree/only/file"
cp "$here"/*.py "$work"
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

unset LD_LIBRARY_PATH
set -- gdb -nx -batch -iex "set debuginfod enabled off" -iex "set debug-file-directory $symbols" -iex "$safe" \
  -iex "set startup-with-shell off" -iex "set environment LD_LIBRARY_PATH $libraries" -ex "$first"
if [ "$what" = core ]; then
  "$@" -ex 'break look_at' -ex run -ex 'generate-core-file core' "$program" >core.log 2>&1 </dev/null
  exec "$here/compare.sh" "$transcript" "$@" "$program" core
fi
exec "$here/compare.sh" "$transcript" "$@" -ex 'break look_at' -ex run "$program"
