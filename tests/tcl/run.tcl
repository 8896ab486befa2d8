# tclsh run.tcl FILE
#
# Runs the tests of a file in a scratch folder of their own. Ends with 1 if one of them failed, or if there was none.

set file [file normalize [lindex $argv 0]]
set argv {}
set repository [file normalize [file join [file dirname [info script]] .. ..]]
package require tcltest 2.3
namespace import tcltest::*
package require ccl::fio

# The outcome of a command: its result, or "error", the error code and the message.
proc outcome {command} {
  if {[catch {uplevel #0 $command} result options]} {
    return [list error [dict get $options -errorcode] $result]
  }
  return $result
}

# A test for each row of a table: its name, a command, and the outcome.
proc table {prefix rows} {
  foreach {name command outcome} $rows {
    test $prefix.$name $command -body [list outcome $command] -result $outcome
  }
}

# Makes files, with the folders that they are in.
proc make_files {args} {
  foreach name $args {
    file mkdir [file dirname $name]
    close [open $name w]
  }
}

# Makes a tree whose lowest directories have paths that are too long for the system. It is put together of two.
proc make_too_deep {directory} {
  set half [string repeat /[string repeat d 250] 9]
  file mkdir lower$half $directory$half
  file rename lower $directory$half
}

# Runs the script of a test in another tclsh, with settings of the environment such as LC_ALL=C in front of it.
proc in_another_tclsh {settings script} {
  exec env {*}$settings [interpreter] << "package require ccl::fio\n$script" 2>@1
}

set failed 1
proc tcltest::cleanupTestsHook {} {
  variable numTests
  set ::failed [expr {$numTests(Failed) > 0 || $numTests(Total) == 0}]
}

set scratch [exec mktemp -d]
configure -tmpdir $scratch
cd $scratch
set broken [catch {source $file} message options]
if {$broken} {
  puts [dict get $options -errorinfo]
} else {
  cleanupTests
}
cd /
exec chmod -R u+rwx $scratch
exec rm -rf $scratch
exit [expr {$broken || $failed}]
