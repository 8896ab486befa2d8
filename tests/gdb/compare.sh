#!/bin/sh
# Runs the commands of a transcript in gdb and compares what it says with the transcript, which may be a block of a page.
# What gdb is started with stops in the function that is called where all objects are complete.
#
# usage: compare.sh TRANSCRIPT gdb ARGUMENT...

transcript=$1
shift

sed -n '/^```gdb$/,/^```$/{ /^```/!p }' "$transcript" >expected
[ -s expected ] || cp "$transcript" expected
sed -n 's/^(gdb) \(.*\)$/echo (gdb) \1\\n\n\1/p' expected >commands
LC_ALL=C.UTF-8 "$@" -ex up -ex 'echo ====\n' -x commands >output 2>&1 </dev/null

sed '1,/^====$/d' output >shown
grep -q '^====$' output || cat output
diff expected shown
