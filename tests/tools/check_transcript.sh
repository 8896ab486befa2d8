#!/bin/sh
# check_transcript.sh PROGRAM LIBRARIES DESIGN TRANSCRIPT
#
# Runs the commands of a transcript and compares what comes of them with what stands there. A command is a line that
# begins with "$ ", and ends at its end. What it prints follows, on standard output and standard error, and behind that
# its status in brackets if it is not 0. Lines before the first command say what the transcript shows.
#
# The commands run in a copy of the design, and the first command of a transcript in a fresh one. With UPDATE=1 in the
# environment the transcript is written anew.

set -eu

program=$1
libraries=$2
design=$3
transcript=$4

# Not every root has the file system of the terminals.
if grep -q on_terminal "$transcript" && ! script --quiet --command true /dev/null >/dev/null 2>&1; then
  echo "left out: no terminal can be made here"
  exit 0
fi

scratch=$(mktemp -d)
trap 'chmod -R u+rwx "$scratch" && rm -rf "$scratch"' EXIT
trap 'exit 1' HUP INT TERM
chmod 755 "$scratch"
mkdir "$scratch/bin"
cp -r "$design" "$scratch/design"
cp "$program" "$scratch/bin/ccl-fio"
cp "$libraries"/libccl_*.so.*.* "$scratch/bin"

# Runs a command as a user whom permissions stop.
cat >"$scratch/bin/as_user" <<'END'
#!/bin/sh
if [ "$(id -u)" = 0 ]; then
  exec setpriv --reuid=65534 --regid=65534 --clear-groups "$@"
fi
exec "$@"
END
# Runs a command with a terminal of 60 columns as its standard output, and shows what it would act on.
cat >"$scratch/bin/on_terminal" <<'END'
#!/bin/sh
unset COLUMNS
script --quiet --return --command "stty cols 60; $*" /dev/null </dev/null | tr -d '\r' | cat -v
END
chmod 755 "$scratch"/bin/*

if [ "$(id -u)" = 0 ]; then
  chown -R 65534:65534 "$scratch/design"
fi

cd "$scratch/design"
while IFS= read -r line; do
  case $line in
  '$ '*)
    printf '%s\n' "$line"
    status=0
    env -i PATH="$scratch/bin:/usr/bin:/bin" LD_LIBRARY_PATH="$scratch/bin" HOME=/ LC_ALL=C.UTF-8 TERM=xterm \
      SHELL=/bin/sh sh -c "${line#$ }" >"$scratch/printed" 2>&1 </dev/null || status=$?
    cat "$scratch/printed"
    [ -z "$(tail -c 1 "$scratch/printed")" ] || echo
    [ "$status" = 0 ] || printf '[%s]\n' "$status"
    begun=yes
    ;;
  *) [ -n "${begun-}" ] || printf '%s\n' "$line" ;;
  esac
done <"$transcript" >"$scratch/out"

if [ -n "${UPDATE-}" ]; then
  cp "$scratch/out" "$transcript"
fi
diff -u "$transcript" "$scratch/out"
