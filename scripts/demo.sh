#!/bin/sh
# Builds the library and its examples, takes the sources of a small design over search paths, makes and cleans a
# scratch project of it, and shows what the vocabulary says of a type. Installs what is missing, on Debian, as root or
# through sudo.

. "$(dirname -- "$0")/common.sh"

need_packages $packages_to_build
say "building"
build demo

# Shows a command and what comes of it, in the folder of the design. Names that are not found are part of the show.
show() {
  printf '\n# %s\n$ resolve' "$1"
  shift
  for argument in "$@"; do
    case $argument in
    *[!-_./,a-zA-Z0-9]*) printf " '%s'" "$argument" ;;
    *) printf ' %s' "$argument" ;;
    esac
  done
  printf '\n'
  "$repository/build/demo/examples/resolve" "$@" || [ $? = 1 ]
}

cd examples/design
show "The sources of the design over its search path. The last name is nowhere." \
  --search-path 'rtl;rtl/core;lib;constraints;memory;scripts;sim' \
  top.v core.sv alu.v top.sdc boot.mif build.tcl top_tb.vt nowhere.v
show "Shadowing: alu.v and defs.vh stand in two places each, and the first directory wins." \
  --search-path 'rtl;rtl/core;lib' alu.v include/defs.vh
show "The same the other way round." \
  --search-path 'lib;rtl;rtl/core' alu.v include/defs.vh
show "All of them, directory by directory." \
  --search-path 'rtl;rtl/core;lib' --all v,sv alu core
show "fifo.v and uart_tx.vhd stand in subfolders alone..." \
  --search-path 'rtl;lib' fifo.v uart_tx.vhd
show "...which a recursive search reaches, behind the directories given." \
  --search-path 'rtl;lib' --recursive fifo.v uart_tx.vhd alu.v
show "A relative search: each directory of the search path is where the path starts." \
  --search-path 'rtl/core;lib/memory' ../include/defs.vh ../alu.v
show "For programs, with results made absolute." \
  --search-path 'rtl' --absolute-to "$PWD" --json top.v

printf '\n# A scratch project made from the design, listed, and cleaned up.\n$ workspace --design . --into SCRATCH\n'
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
trap 'exit 1' HUP INT TERM
"$repository/build/demo/examples/workspace" --design . --into "$scratch/project"

printf '\n# What the library knows of one kind of file.\n$ vocabulary --type "VHDL File"\n'
"$repository/build/demo/examples/vocabulary" --type "VHDL File"
