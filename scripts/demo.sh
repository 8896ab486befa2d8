#!/bin/sh
# Builds ccl-fio and shows what it does with a small design: takes its sources over search paths, shows what they
# include, says what its files are, and copies and cleans it. Installs what is missing, on Debian, as root or through
# sudo.

. "$(dirname -- "$0")/common.sh"

need_packages $packages_to_build
say "building"
build demo --target ccl-fio

# Shows a command and what comes of it, in the folder of the design. Names that are not found are part of the show.
show() {
  printf '\n# %s\n$ ccl-fio' "$1"
  shift
  for argument in "$@"; do
    case $argument in
    *[!-_./,a-zA-Z0-9]*) printf " '%s'" "$argument" ;;
    *) printf ' %s' "$argument" ;;
    esac
  done
  printf '\n'
  "$repository/build/demo/tools/ccl-fio/ccl-fio" "$@" || [ $? = 1 ]
}

cd examples/design
show "The sources of the design over its search path. The last name is nowhere." \
  find --search-path 'rtl;rtl/core;lib;constraints;memory;scripts;sim' \
  top.v core.sv alu.v top.sdc boot.mif build.tcl top_tb.vt nowhere.v
show "Shadowing: alu.v and defs.vh are in two places each, and the first directory wins." \
  find --search-path 'rtl;rtl/core;lib' --shadowed alu.v include/defs.vh
show "The same the other way round." \
  find --search-path 'lib;rtl;rtl/core' alu.v include/defs.vh
show "All of them, directory by directory." \
  find --search-path 'rtl;rtl/core;lib' --all v,sv alu core
show "fifo.v and uart_tx.vhd are in subdirectories only..." \
  find --search-path 'rtl;lib' fifo.v uart_tx.vhd
show "...which a recursive search includes, after the given directories." \
  find --search-path 'rtl;lib' --recursive fifo.v uart_tx.vhd alu.v
show "A relative search: each directory of the search path is where the path starts." \
  find --search-path 'rtl/core;lib/memory' ../include/defs.vh ../alu.v
show "What the sources include." \
  find --search-path 'rtl;lib' --includes rtl/top.v lib/alu.v
show "For programs, with results made absolute." \
  find --search-path 'rtl' --absolute-to "$PWD" --json top.v
show "Everything about one file type." \
  type --type 'VHDL File' --long
show "A path as it is compared: absolute and simplified." \
  path --absolute-to /proj/rtl ../lib/./alu.v

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
trap 'exit 1' HUP INT TERM
show "A copy of a part of the design, with its times." \
  copy rtl --to "$scratch/rtl" --long
mkdir -p "$scratch/results/maps"
touch -d '2 days ago' "$scratch/results/.korvane.1.tmp"
show "What cleaning would remove from it: old temporary files and empty directories." \
  clean --temporary --empty --dry-run "$scratch"
