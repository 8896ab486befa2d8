#!/bin/sh
# check_manual.sh PAGE PROGRAM
#
# The manual page has nothing for a linter to complain about, and describes each option that the help has.

set -eu

for subcommand in find type path copy clean; do
  "$2" $subcommand --help | grep -o -e '--[a-z-]*' | sort -u | while read -r option; do
    grep -q -e "^\.It.* Fl -${option#--}\( \|\$\)" "$1" || { echo "$subcommand: $option is not described" && exit 1; }
  done
done

if ! command -v mandoc >/dev/null; then
  echo "left out: mandoc is not there"
  exit 0
fi
# Which other pages are installed is no matter of this one.
if mandoc -T lint "$1" 2>&1 | grep -v 'mandoc\.db\|referenced manual not found'; then
  exit 1
fi
