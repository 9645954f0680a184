"""A disk as one file that remembers every write and every flush of it.

recorder.py MOUNTPOINT SIZE JOURNAL: shows the file "disk" there, in the foreground, until it is
unmounted. To look for a file "mark-NAME" beside it puts a mark of that name into the journal.
"""

import errno
import stat
import struct
import sys

import fusepy

WRITE, FLUSH, MARK = b"W", b"F", b"M"


class Recorder(fusepy.Operations):
    def __init__(self, size, journal):
        self.data = bytearray(size)
        self.journal = open(journal, "wb")

    def note(self, kind, offset, content):
        self.journal.write(kind + struct.pack("<QI", offset, len(content)) + content)
        self.journal.flush()

    def getattr(self, path, fh=None):
        if path == "/":
            return {"st_mode": stat.S_IFDIR | 0o755, "st_nlink": 2}
        if path == "/disk":
            return {"st_mode": stat.S_IFREG | 0o600, "st_nlink": 1, "st_size": len(self.data)}
        if path.startswith("/mark-"):
            self.note(MARK, 0, path[len("/mark-"):].encode())
        raise fusepy.FuseOSError(errno.ENOENT)

    def readdir(self, path, fh):
        return [".", "..", "disk"]

    def open(self, path, flags):
        return 0

    def read(self, path, size, offset, fh):
        return bytes(self.data[offset:offset + size])

    def write(self, path, content, offset, fh):
        self.data[offset:offset + len(content)] = content
        self.note(WRITE, offset, content)
        return len(content)

    def fsync(self, path, datasync, fh):
        self.note(FLUSH, 0, b"")
        return 0


if __name__ == "__main__":
    mountpoint, size, journal = sys.argv[1:]
    fusepy.FUSE(Recorder(int(size), journal), mountpoint, foreground=True, nothreads=True)
