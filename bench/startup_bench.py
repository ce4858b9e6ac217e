"""Measures how long the wizard takes from its start until its window is painted, and its memory while it is idle.

It runs on an X display of its own, each time with a home of its own. scripts/bench runs this; --help tells the options.
"""
import argparse
import os
import pathlib
import statistics
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / 'tests/desktop'))

from screen import SIZE, Screen, Window, wait_for
from wizard import DARK_BLUE, Wizard

POLL_S = 0.001
QUIET_S = 0.5  # Without any processor time, for the program to count as idle.
TICKS_PER_SECOND = os.sysconf('SC_CLK_TCK')


def middle_of_screen(wizard):
    _, _, width, height = wizard.places['frmMain']
    return Window('', '', (SIZE[0] - width) // 2, (SIZE[1] - height) // 2, width, height)


def is_painted(wizard):
    """Both corners of its frame, and the marked button between them."""
    corners = ((0, 0), (wizard.window.width - 1, wizard.window.height - 1))
    return all(wizard.pixel('frmMain', *corner) == DARK_BLUE for corner in corners) and wizard.shows_page(0)


def processor_ticks(process):
    fields = pathlib.Path(f'/proc/{process}/stat').read_text().rpartition(')')[2].split()
    return int(fields[11]) + int(fields[12])


def wait_until_idle(process):
    def is_quiet():
        before = processor_ticks(process)
        time.sleep(QUIET_S)
        return processor_ticks(process) == before
    wait_for(is_quiet, 'an idle program')


def resident_bytes(process):
    lines = pathlib.Path(f'/proc/{process}/status').read_text().splitlines()
    return next(int(line.split()[1]) * 1024 for line in lines if line.startswith('VmRSS:'))


def measure(screen, program):
    """Seconds to the painted window, bytes of the idle one."""
    with tempfile.TemporaryDirectory(prefix='vistrel-bench-') as folder:
        wizard = Wizard(screen, program, pathlib.Path(folder))
        wizard.write_settings()
        wizard.window = middle_of_screen(wizard)
        started = time.perf_counter()
        wizard.start()
        try:
            while not is_painted(wizard):
                if time.perf_counter() - started > 20:
                    raise SystemExit('startup_bench: no window was painted in the middle of the screen')
                time.sleep(POLL_S)
            seconds = time.perf_counter() - started
            wait_until_idle(wizard.process.pid)
            return seconds, resident_bytes(wizard.process.pid)
        finally:
            wizard.end()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument('program')
    parser.add_argument('--rounds', type=int, default=15)
    options = parser.parse_args()
    with Screen() as screen:
        seconds, memory = zip(*(measure(screen, options.program) for _ in range(options.rounds)))
    for what, values, unit, goal in (('start to painted window', [1e3 * value for value in seconds], 'ms', 300),
                                     ('resident memory, idle', [value / 1e6 for value in memory], 'MB', 80)):
        print(f'{what:25} median {statistics.median(values):4.0f} {unit}, worst {max(values):4.0f} {unit}, '
              f'goal below {goal} {unit} ({len(values)} starts)')


if __name__ == '__main__':
    main()
