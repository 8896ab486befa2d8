"""Loses the power of a disk after operations of the library, and looks at what is on the disk.

usage: power_cuts.py CRASH_OPERATION

Each operation runs on a file system of its own, on a disk that records its writes and its flushes (recorder.py). From
the record the disk is made anew as it may be if the power is lost at any moment: every write up to then is there, or
only what was flushed, or that and some of the rest, in any choice. It is mounted, by which its journal is replayed, and
read. Each moment is tried from the return of the operation on, through an fsync of the directories that it changed, to
the end of the unmount. From the return on, the content of a target is whole if its name is there; with the directories
forced, all names are as the operation left them. What else is seen is counted.

Then a copy once more with an fsync that does nothing: the campaign fails unless it sees a content lost by that.

What this shows ends at the disk: a drive that reports a flush before it is done is another matter, and so is a file
system that was not tried. The last line is the figure: "power cuts: ...".
"""

import collections
import contextlib
import dataclasses
import multiprocessing
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import time

import recorder

OLD = b"old\n" * 2000
TREE = {f"tree/{directory}{name}": name.encode() * size
        for directory in ("", "a/", "a/b/", "c/")
        for name, size in (("one.v", 1), ("two.v", 1000), ("three.v", 30000), ("none.v", 0))}
SOURCE = bytes(range(256)) * 1200 + b"end"
SOURCE_TIME = 1_000_000_000
MIXTURES = 3
SETUP = {"source": SOURCE, "out/old": OLD, **TREE}

MAKE = {
    "ext4": (64, ("mkfs.ext4", "-q", "-E", "lazy_itable_init=0,lazy_journal_init=0")),
    "xfs": (320, ("mkfs.xfs", "-q")),
}


@dataclasses.dataclass
class Operation:
    """What it copies, by name and content; the names that it changes, which hold once the directories are forced; and
    what nothing here forces."""

    name: str
    contents: dict = dataclasses.field(default_factory=dict)
    names: dict = dataclasses.field(default_factory=dict)
    others: dict = dataclasses.field(default_factory=dict)


def gone(name):
    return lambda root: not os.path.lexists(root / name)


def there(name):
    return lambda root: os.path.lexists(root / name)


def has_content(name, content):
    return lambda root: (root / name).is_file() and (root / name).read_bytes() == content


OPERATIONS = (
    Operation("copy", {"out/target": SOURCE}),
    Operation("copy_overwriting", {"out/old": SOURCE}),
    Operation("copy_with_times", {"out/target": SOURCE}, {},
              {"time set": lambda root: (root / "out/target").exists()
               and (root / "out/target").stat().st_mtime == SOURCE_TIME}),
    Operation("copy_files", {"out/" + name[len("tree/"):]: content for name, content in TREE.items()
                             if name.count("/") == 1}),
    Operation("copy_dir", {"out/" + name: content for name, content in TREE.items()}),
    Operation("move", {"out/target": SOURCE}, {"source gone": gone("source")}),
    Operation("move_overwriting", {"out/old": SOURCE}, {"source gone": gone("source")}),
    Operation("rename", {}, {"new name": has_content("out/old", SOURCE),
                             "one of both": lambda root: has_content("out/old", SOURCE)(root) or (
                                 has_content("source", SOURCE)(root) and has_content("out/old", OLD)(root))}),
    Operation("create", {}, {"there": there("out/made/deep")}),
    Operation("touch", {}, {"there": there("out/made")}),
    Operation("remove", {}, {"gone": gone("out/old")}),
    Operation("remove_recursively", {}, {"gone": gone("tree")}),
)


def run(*command, **options):
    return subprocess.run([str(word) for word in command], check=True, **options)


@contextlib.contextmanager
def mounted(device, directory, *options):
    run("mount", *options, device, directory)
    try:
        yield directory
    finally:
        run("umount", directory)


def make_file_system(kind, image, directory):
    """A file system with the files of SETUP in it, cleanly unmounted."""
    size, command = MAKE[kind]
    with open(image, "wb") as file:
        file.truncate(size << 20)
    run(*command, image)
    with mounted(image, directory, "-o", "loop"):
        for name, content in SETUP.items():
            path = directory / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)
            os.utime(path, (SOURCE_TIME, SOURCE_TIME))


@contextlib.contextmanager
def recording_device(image, record, directory):
    """A block device whose writes are recorded until it is left."""
    server = multiprocessing.Process(target=recorder.serve, args=(image, record, str(directory)))
    server.start()
    while not (directory / "disk").exists():
        if not server.is_alive():
            raise RuntimeError("the recorder did not start")
        time.sleep(0.01)
    device = run("losetup", "--find", "--show", directory / "disk", capture_output=True, text=True).stdout.strip()
    try:
        yield device
    finally:
        run("losetup", "--detach", device)
        while device in run("losetup", "--list", "--noheadings", "--output", "NAME", capture_output=True,
                            text=True).stdout.split():
            time.sleep(0.01)
        run("umount", directory)
        server.join()


def apply(writes, image):
    with open(image, "r+b", buffering=0) as file:
        for write in writes:
            os.pwrite(file.fileno(), write.data, write.offset)


class Campaign:
    def __init__(self, program, scratch):
        self._program = program
        self._scratch = scratch
        self.snapshots = 0
        self.broken = 0
        self.lost_names = 0
        self._random = random.Random(1)
        for name in ("mount", "recorded"):
            (scratch / name).mkdir()

    def record(self, kind, operation, with_fsync):
        """Runs the operation; the image as it was before it, and what was written then."""
        before = self._scratch / f"{kind}.before"
        image = self._scratch / "image"
        log = self._scratch / "record"
        if not before.exists():
            make_file_system(kind, before, self._scratch / "mount")
        run("cp", before, image)
        marks = self._scratch / "recorded" / "marks"
        with recording_device(image, log, self._scratch / "recorded") as device:
            with mounted(device, self._scratch / "mount") as root:
                run(self._program, operation.name, marks, *([] if with_fsync else ["--without-fsync"]), cwd=root)
        return before, recorder.load(log)

    def states(self, before, record):
        """The disks that a cut may leave, from the note that the operation returned: whether its names had been forced
        by then, and the image."""
        flushed = self._scratch / "flushed"
        run("cp", before, flushed)
        pending = []
        returned = forced = False
        for entry in record:
            if isinstance(entry, recorder.Flush):
                # What it leaves is what all writes before it leave, and that was tried with the last of them.
                apply(pending, flushed)
                pending = []
                continue
            if isinstance(entry, recorder.Write):
                pending.append(entry)
            else:
                forced = entry.text == "forced"
                if not returned or pending:
                    yield forced, self._image_of(flushed, [])
                returned = True
            if returned and pending:
                yield forced, self._image_of(flushed, pending)
                for _ in range(MIXTURES if len(pending) > 1 else 0):
                    yield forced, self._image_of(flushed, [write for write in pending if self._random.random() < 0.5])

    def _image_of(self, flushed, writes):
        image = self._scratch / "state"
        run("cp", flushed, image)
        apply(writes, image)
        return image

    def try_operation(self, kind, operation, with_fsync=True):
        """Counts what is seen in all states, by (names forced, what)."""
        before, record = self.record(kind, operation, with_fsync)
        seen = collections.Counter()
        for forced, image in self.states(before, record):
            with mounted(image, self._scratch / "mount", "-o", "loop,noatime") as root:
                seen[forced, "snapshots"] += 1
                for name, content in operation.contents.items():
                    path = root / name
                    state = ("missing" if not path.exists()
                             else "whole" if path.read_bytes() == content
                             else "broken")
                    seen[forced, state] += 1
                for fact, holds in {**operation.names, **operation.others}.items():
                    seen[forced, fact] += holds(root)
        return seen

    def show(self, kind, operation, seen, note=""):
        for forced in (False, True):
            snapshots = seen[forced, "snapshots"]
            texts = [f"{snapshots} snapshots"]
            if operation.contents:
                total = len(operation.contents) * snapshots
                texts += [f"contents {seen[forced, 'whole']} of {total} whole, {seen[forced, 'missing']} without a name, "
                          f"{seen[forced, 'broken']} broken"]
            texts += [f"{fact} in {seen[forced, fact]}" for fact in (*operation.names, *operation.others)]
            print(f"{kind} {operation.name}{note}, {'names forced' if forced else 'returned'}: {'; '.join(texts)}",
                  flush=True)

    def check(self, kind, operation):
        seen = self.try_operation(kind, operation)
        self.show(kind, operation, seen)
        self.snapshots += seen[False, "snapshots"] + seen[True, "snapshots"]
        self.broken += seen[False, "broken"] + seen[True, "broken"] + seen[True, "missing"]
        self.lost_names += seen[False, "missing"]
        self.broken += sum(seen[True, "snapshots"] - seen[True, fact] for fact in operation.names)

    def check_without_fsync(self, kind, operation):
        """Whether the campaign sees what a missing fsync does."""
        seen = self.try_operation(kind, operation, with_fsync=False)
        self.show(kind, operation, seen, " without fsync")
        return seen[True, "broken"] != 0


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    program = pathlib.Path(sys.argv[1]).resolve()
    if os.geteuid() != 0:
        print("power cuts: left out, for only root can mount a disk")
        return 0
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    scratch = pathlib.Path(tempfile.mkdtemp(prefix="fio_power_cuts.", dir=memory))
    blind = 0
    try:
        campaign = Campaign(program, scratch)
        for kind in MAKE:
            for operation in OPERATIONS:
                campaign.check(kind, operation)
            blind += not campaign.check_without_fsync(kind, OPERATIONS[0])
    finally:
        shutil.rmtree(scratch)
    print(f"power cuts: {len(OPERATIONS)} operations on {' and '.join(MAKE)}, {campaign.snapshots} snapshots, "
          f"{campaign.lost_names} names lost before they were forced, {campaign.broken} wrong"
          + (f", {blind} file systems on which a missing fsync is not seen" if blind else ""))
    return 1 if campaign.broken or blind else 0


if __name__ == "__main__":
    sys.exit(main())
