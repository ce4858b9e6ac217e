"""Runs vistrel-batch as users do, and looks at what it leaves behind.

VISTREL_BATCH is the path of the program. The tests' folders are made where a browser that runs as another account gets
at them.
"""
import hashlib
import operator
import os
import pathlib
import shutil
import sqlite3
import subprocess
import tempfile
import time
import unittest
from collections import Counter
from contextlib import closing
from dataclasses import astuple, dataclass

from tests.support.page_server import PageServer

PROGRAM = os.environ['VISTREL_BATCH']
SANITIZED = os.environ.get('VISTREL_SANITIZED') == '1'  # Slower, and its memory is not what users see.
JOURNAL = '.vistrel-journal.sqlite'
PENDING, WRITING, CONVERTED, FAILED = range(4)  # States of an entry in the journal.
LONGEST_RUN_S = 300


class BatchTest(unittest.TestCase):
    """Each test has a folder with the output folder "out", and a temporary folder of its own for the browser; both must
    be tidy when the test ends."""

    routes = {}

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix='vistrel-test-'))
        self.folder.chmod(0o755)
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.temporary = self.folder / 'tmp'
        self.temporary.mkdir()
        self.out = self.folder / 'out'
        self.server = self.enterContext(PageServer(self.routes))

    def write_list(self, lines):
        path = self.folder / 'list.txt'
        path.write_text(''.join(f'{line}\n' for line in lines))
        return str(path)

    def start(self, *arguments, before=(), **how):
        """The running program; before: a command that runs it, output: its folder when it is not self.out,
        environment: what is added to ours."""
        output = how.pop('output', self.out)
        environment = os.environ | {'TMPDIR': str(self.temporary)} | how.pop('environment', {})
        command = [*before, PROGRAM, '-o', str(output), *map(str, arguments)]
        streams = {'stdin': subprocess.DEVNULL, 'stdout': subprocess.PIPE, 'stderr': subprocess.STDOUT, 'text': True}
        process = subprocess.Popen(command, env=environment, **(streams | how))
        self.addCleanup(self._end, process)
        return process

    @staticmethod
    def _end(process):
        process.kill()
        process.wait()
        if process.stdout:
            process.stdout.close()

    def run_batch(self, *arguments, **how):
        """Runs the program to its end; its exit code and all that it said."""
        process = self.start(*arguments, **how)
        said, _ = process.communicate(timeout=LONGEST_RUN_S)
        return process.returncode, said

    def states(self, folder=None):
        """The journal's state of every entry, by number, when no run is under way."""
        copy = shutil.copy((folder or self.out) / JOURNAL, self.folder)  # Where other names mean the same file.
        with closing(sqlite3.connect(copy)) as journal:
            return dict(journal.execute('SELECT number, state FROM entry'))

    def assert_nothing_left(self):
        """No process of the browser, no temporary file."""
        left = [process for process in processes() if str(self.temporary) in process.command]
        self.assertEqual(left, [], 'processes are left')
        self.assertEqual(list(self.temporary.iterdir()), [])
        self.assertEqual(list(self.out.glob('.vistrel-*.part')), [])


def pictures(folder):
    """SHA-256 of every file but the journal's, by name."""
    return {path.name: hashlib.sha256(path.read_bytes()).hexdigest()
            for path in folder.iterdir() if not path.name.startswith(JOURNAL)}


class Process:
    def __init__(self, folder):
        self.id = int(folder.name)
        self.command = (folder / 'cmdline').read_bytes().replace(b'\0', b' ').decode(errors='replace')
        self.parent = int((folder / 'stat').read_text().rpartition(')')[2].split()[1])

    def __repr__(self):
        return f'{self.id}: {self.command[:200]}'


def processes():
    """All that run on this machine."""
    found = []
    for folder in pathlib.Path('/proc').glob('[0-9]*'):
        try:
            found.append(Process(folder))
        except OSError:
            pass  # It has ended meanwhile.
    return found


def family(root):
    """The process ids of root and all its descendants."""
    everyone = processes()
    found = {root}
    while more := {process.id for process in everyone if process.parent in found} - found:
        found |= more
    return found


@dataclass(frozen=True)
class Memory:
    """Bytes of one process or of several."""
    resident: int = 0
    proportional: int = 0  # A page shared by n processes counts 1/n for each.
    own: int = 0  # Of the proportional: what is no file's, so that other browsers of this machine do not count.

    def __add__(self, other):
        return Memory(*map(operator.add, astuple(self), astuple(other)))


def memory(process):
    """Nothing for a process that has ended, or that we may not look into (renderers, unless we are the superuser)."""
    members = Counter()
    try:
        for line in pathlib.Path(f'/proc/{process}/smaps_rollup').read_text().splitlines()[1:]:
            name, size, _ = line.split()
            members[name] = int(size) * 1024
    except OSError:
        pass
    return Memory(members['Rss:'], members['Pss:'], members['Pss_Anon:'] + members['Pss_Shmem:'])


def kill(process):
    """SIGKILL to the program alone, as the system's memory killer does it."""
    process.kill()
    process.wait()


def wait_until(condition, limit_s=30):
    """Whether condition came true within limit_s."""
    end = time.monotonic() + limit_s
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.02)
    return True
