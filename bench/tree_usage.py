"""What a command and everything that it started cost: wall-clock time, processor time, peak memory.

Processor time is exact, also for processes that live for a moment or are killed: from a control group (cgroup v2) of
the command's own where one can be made, else from wait4() of all descendants, of which this process becomes the
reaper. Memory is the sum of the proportional set sizes (PSS: a page shared by n processes counts 1/n for each), read
twice a second.
"""
import ctypes
import os
import pathlib
import signal
import subprocess
import tempfile
import time
from dataclasses import dataclass

MEMORY_INTERVAL_S = 0.5
POLL_INTERVAL_S = 0.02
END_LIMIT_S = 10  # For what outlives the command.
PR_SET_CHILD_SUBREAPER = 36


@dataclass
class Usage:
    seconds: float
    cpu_seconds: float
    peak_bytes: int
    exit_code: int
    errors: str  # The end of what it wrote to its error stream.


class ControlGroup:
    """A control group of one command."""

    method = 'control group (cgroup v2)'

    def __init__(self, parent):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix='bench-', dir=parent))

    def enter(self):
        (self.folder / 'cgroup.procs').write_text('0')

    def processes(self):
        return [int(line) for line in (self.folder / 'cgroup.procs').read_text().split()]

    def kill(self):
        (self.folder / 'cgroup.kill').write_text('1')

    def close(self):
        """The processor seconds of all that ran in the group, which is no more afterwards."""
        stat = dict(line.split() for line in (self.folder / 'cpu.stat').read_text().splitlines())
        self._remove()
        return int(stat['usage_usec']) / 1e6

    def _remove(self):
        """The last processes are still leaving for a moment after they are listed no more."""
        for _ in range(int(END_LIMIT_S / POLL_INTERVAL_S)):
            try:
                return self.folder.rmdir()
            except OSError:
                time.sleep(POLL_INTERVAL_S)


class Descendants:
    """All descendants of this process, of which there are none but those of one command."""

    method = 'wait4() of every descendant'

    def __init__(self):
        if ctypes.CDLL(None, use_errno=True).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0:
            raise OSError(ctypes.get_errno(), 'the processes of a command cannot be adopted')
        times = os.times()
        self.before = times.children_user + times.children_system

    def enter(self):
        os.setpgid(0, 0)

    def processes(self):
        parents = {}
        for folder in pathlib.Path('/proc').glob('[0-9]*'):
            try:
                parents[int(folder.name)] = int((folder / 'stat').read_text().rpartition(')')[2].split()[1])
            except OSError:
                pass  # It has ended meanwhile.
        found = {os.getpid()}
        while more := {child for child, parent in parents.items() if parent in found} - found:
            found |= more
        return sorted(found - {os.getpid()})

    def kill(self):
        for process in self.processes():
            try:
                os.kill(process, signal.SIGKILL)
            except ProcessLookupError:
                pass

    def close(self):
        times = os.times()
        return times.children_user + times.children_system - self.before


def group_parent():
    """The control group folder in which we may make others; None where there is none."""
    mounts = [line.split() for line in pathlib.Path('/proc/mounts').read_text().splitlines()]
    root = next((mount[1] for mount in mounts if mount[2] == 'cgroup2'), None)
    own = [line for line in pathlib.Path('/proc/self/cgroup').read_text().splitlines() if line.startswith('0::')]
    if root is None or not own:
        return None
    folder = pathlib.Path(root + own[0].removeprefix('0::'))
    return folder if os.access(folder / 'cgroup.procs', os.W_OK) and os.access(folder, os.W_OK) else None


def proportional_bytes(process):
    try:
        for line in pathlib.Path(f'/proc/{process}/smaps_rollup').read_text().splitlines():
            if line.startswith('Pss:'):
                return int(line.split()[1]) * 1024
    except OSError:
        pass  # It has ended meanwhile, or is not ours to look into.
    return 0


def tree():
    parent = group_parent()
    return ControlGroup(parent) if parent else Descendants()


def method():
    """How processor time is measured here, in words."""
    return ControlGroup.method if group_parent() else Descendants.method


def reap():
    """Collects what has ended; returns the exit codes by process number."""
    ended = {}
    try:
        while True:
            process, status = os.waitpid(-1, os.WNOHANG)
            if process == 0:
                break
            ended[process] = os.waitstatus_to_exitcode(status)
    except ChildProcessError:
        pass
    return ended


def run(command, environment=None, limit_s=3600):
    """Runs command to its end and ends what it leaves behind; no other child of this process may be running."""
    group = tree()
    with tempfile.TemporaryFile() as errors:
        started = time.monotonic()
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=errors,
                                   env=environment, preexec_fn=group.enter)
        exit_code, ended_at, peak, next_look = None, None, 0, 0
        while True:
            exit_code = reap().get(process.pid, exit_code)
            now = time.monotonic()
            if exit_code is not None and ended_at is None:
                ended_at = now
            if ended_at and not group.processes():
                break
            if now > (ended_at + END_LIMIT_S if ended_at else started + limit_s):
                group.kill()
            if now >= next_look:
                peak = max(peak, sum(map(proportional_bytes, group.processes())))
                next_look = now + MEMORY_INTERVAL_S
            time.sleep(POLL_INTERVAL_S)
        process.returncode = exit_code  # It is reaped already.
        errors.seek(0, os.SEEK_END)
        errors.seek(max(0, errors.tell() - 4000))
        return Usage(ended_at - started, group.close(), peak, exit_code, errors.read().decode(errors='replace'))
