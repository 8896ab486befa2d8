#!/bin/sh
# check_installed.sh CMAKE BUILD PAGE
#
# Installs what belongs to the command, and has a look at it: the command starts and finds the libraries beside it, the
# manual page is there, and the completion offers subcommands, options and files.

set -eu

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
trap 'exit 1' HUP INT TERM

"$1" --install "$2" --prefix "$scratch/a prefix" >"$scratch/log"
mv "$scratch/a prefix" "$scratch/moved"
cd "$scratch"

fail() {
  echo "$*" >&2
  exit 1
}

[ "$(env -i moved/bin/ccl-fio type -0 a.vhd | tr -d '\0')" = "VHDL File" ] || fail "ccl-fio does not start"
cmp moved/share/man/man1/ccl-fio.1 "$3"

# The words that the completion offers for a command line, of which the last word is completed.
offered() {
  bash -c '
    . moved/share/bash-completion/completions/ccl-fio
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
    _ccl_fio
    printf "%s " "${COMPREPLY[@]}"' bash "$@"
}

expect() {
  expected=$1
  shift
  [ "$(offered "$@")" = "$expected " ] || fail "offered for '$*': $(offered "$@")"
}

touch "moved/a file.v"
expect "find" ccl-fio f
expect "find type path copy clean --help --version" ccl-fio ""
expect "text json markdown" ccl-fio type --list --format ""
expect "--shadowed" ccl-fio find --sh
expect "moved" ccl-fio copy --to m
expect "moved/a file.v" ccl-fio find -s moved moved/a

# Each long option of each subcommand is offered, and no other.
for subcommand in find type path copy clean; do
  known=$(moved/bin/ccl-fio $subcommand --help | grep -o -e '--[a-z-]*' | sort -u)
  [ "$(offered ccl-fio $subcommand -- | tr ' ' '\n' | grep . | sort)" = "$known" ] ||
    fail "$subcommand: the completion offers other options than the help"
done
