"""A disk that keeps a record of what is written to it.

It is one file of a file system in user space. The kernel's loop device makes a block device of it, so every write and
every flush of that device comes by here, in order. A second file, "marks", takes notes, which get their place in the
same record: a note is in the record before the write that made it returns.
"""

import dataclasses
import errno
import os
import pickle
import stat

import fusepy


@dataclasses.dataclass
class Write:
    offset: int
    data: bytes


@dataclasses.dataclass
class Flush:
    """All that was written before is on the disk for good."""


@dataclasses.dataclass
class Mark:
    text: str


class Recorder(fusepy.Operations):
    """Serves the two files. The record is written to `record` when the file system is unmounted."""

    def __init__(self, image, record):
        self._image = os.open(image, os.O_RDWR)
        self._size = os.fstat(self._image).st_size
        self._record_name = record
        self._record = []

    def getattr(self, path, fh=None):
        if path == "/":
            return {"st_mode": stat.S_IFDIR | 0o700, "st_nlink": 2}
        if path in ("/disk", "/marks"):
            return {"st_mode": stat.S_IFREG | 0o600, "st_nlink": 1, "st_size": self._size if path == "/disk" else 0}
        raise fusepy.FuseOSError(errno.ENOENT)

    def open(self, path, flags):
        return 0

    def truncate(self, path, length, fh=None):
        if length != self.getattr(path)["st_size"]:
            raise fusepy.FuseOSError(errno.EPERM)

    def read(self, path, size, offset, fh):
        return os.pread(self._image, size, offset) if path == "/disk" else b""

    def write(self, path, data, offset, fh):
        if path == "/disk":
            os.pwrite(self._image, data, offset)
            self._record.append(Write(offset, data))
        else:
            self._record.append(Mark(data.decode().strip()))
        return len(data)

    def fsync(self, path, datasync, fh):
        if path == "/disk":
            self._record.append(Flush())

    def destroy(self, path):
        with open(self._record_name, "wb") as file:
            pickle.dump(self._record, file)


def serve(image, record, mountpoint):
    """Returns when the file system is unmounted. One request at a time: their order is the record's."""
    fusepy.FUSE(Recorder(image, record), mountpoint, nothreads=True, foreground=True)


def load(record):
    with open(record, "rb") as file:
        return pickle.load(file)
