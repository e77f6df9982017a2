"""A program whose standard output is a terminal."""

import fcntl
import os
import pty
import struct
import subprocess
import termios


class Terminal:
    """Starts the program; ends with it."""

    def __init__(self, arguments, environment, width=80, **more):
        self.ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, width, 0, 0))
        self.process = subprocess.Popen(
            arguments,
            env={**environment, "TERM": "xterm", **more},
            stdin=subprocess.DEVNULL,
            stdout=theirs,
            stderr=subprocess.PIPE,
        )
        os.close(theirs)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait(timeout=100)
        self.process.stderr.close()
        os.close(self.ours)

    def read(self):
        """The next output; empty when the program has closed the terminal."""
        try:
            return os.read(self.ours, 4096).decode()
        except OSError:
            return ""

    def until(self, text):
        """The output up to where this text has come."""
        output = ""
        while text not in output:
            piece = self.read()
            assert piece, f"the output ended without '{text}': {output}"
            output += piece
        return output

    def rest(self):
        """The output up to the program's end."""
        output = ""
        while piece := self.read():
            output += piece
        self.process.wait(timeout=100)
        return output
