"""Runs a program where it can do no harm: usage: sandbox.py REPOSITORY SECONDS MEBIBYTES PROGRAM [ARGUMENT...]

Everything on the machine is read-only to the program but /tmp, where it starts, and /dev/shm. These are file systems in
memory of its own that go with it, as do all processes that it starts. The repository, where the program is, can be read
even if it lies in the machine's /tmp. The time of the processor is limited, and memory if the number is not 0, and the
size of files. The exit status is that of the program, or 128 and the number of the signal that ended it; 125 if the
surroundings could not be made.
"""

import ctypes
import os
import resource
import signal
import struct
import sys

NEW_MOUNTS, NEW_USERS, NEW_PROCESSES = 0x00020000, 0x10000000, 0x20000000
RECURSIVE_PRIVATE, BIND = 0x4000 | 0x40000, 0x1000
MOUNT_SETATTR, AT_FDCWD, AT_RECURSIVE, READ_ONLY = 442, -100, 0x8000, 1
DIE_WITH_PARENT = 1
MEBIBYTE = 1 << 20

libc = ctypes.CDLL(None, use_errno=True)


def check(answer, what):
    if answer != 0:
        print(f"sandbox: {what}: {os.strerror(ctypes.get_errno())}", file=sys.stderr)
        os._exit(125)


def write(path, text):
    with open(path, "w") as file:
        file.write(text)


def leave_the_machine(repository):
    """Moves on into name spaces of processes and mounts in which only scratch can be written."""
    user, group = os.getuid(), os.getgid()
    privileged = os.geteuid() == 0
    check(libc.unshare(NEW_MOUNTS | NEW_PROCESSES | (0 if privileged else NEW_USERS)), "name spaces")
    if not privileged:
        write("/proc/self/setgroups", "deny")
        write("/proc/self/uid_map", f"{user} {user} 1")
        write("/proc/self/gid_map", f"{group} {group} 1")
    check(libc.mount(b"none", b"/", None, RECURSIVE_PRIVATE, None), "private mounts")
    attributes = struct.pack("=QQQQ", READ_ONLY, 0, 0, 0)
    check(libc.syscall(MOUNT_SETATTR, AT_FDCWD, b"/", AT_RECURSIVE, attributes, len(attributes)), "read-only mounts")
    kept = os.open(repository, os.O_PATH)
    for place in (b"/tmp", b"/dev/shm"):
        check(libc.mount(b"tmpfs", place, b"tmpfs", 0, b"size=256m,nr_inodes=100000,mode=1777"), place.decode())
    if not os.path.exists(repository):
        os.makedirs(repository)
        check(libc.mount(b"/proc/self/fd/%d" % kept, os.fsencode(repository), None, BIND, None), repository)
    os.close(kept)


def limit(what, amount, until_killed=0):
    resource.setrlimit(what, (amount, amount + until_killed))


def run_limited(seconds, mebibytes, command):
    os.chdir("/tmp")
    os.environ.update(HOME="/tmp", TMPDIR="/tmp")
    limit(resource.RLIMIT_CPU, seconds, 2)
    if mebibytes != 0:
        limit(resource.RLIMIT_AS, mebibytes * MEBIBYTE)
    limit(resource.RLIMIT_FSIZE, 64 * MEBIBYTE)
    limit(resource.RLIMIT_CORE, 0)
    os.execv(command[0], command)


def status_of(process):
    """Waits for a process, and for any other that falls to this one."""
    while True:
        ended, status = os.wait()
        if ended == process:
            code = os.waitstatus_to_exitcode(status)
            return code if code >= 0 else 128 - code


def main(repository, seconds, mebibytes, *command):
    leave_the_machine(repository)
    first = os.fork()
    if first != 0:
        os._exit(status_of(first))
    # The first process of its name space: all the others end with it.
    libc.prctl(DIE_WITH_PARENT, signal.SIGKILL)
    check(libc.mount(b"proc", b"/proc", b"proc", 0, None), "/proc")
    program = os.fork()
    if program == 0:
        run_limited(int(seconds), int(mebibytes), command)
    os._exit(status_of(program))


main(*sys.argv[1:])
