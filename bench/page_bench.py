"""Measures vistrel-batch against other ways of turning the same pages into pictures.

Every way gets the same browser program, the same pages, one at a time or several, and runs under the same unprivileged
account with the browser's sandbox on. Nothing is fetched from the network: a missing host fails at once, for all alike.
scripts/bench runs this; --help tells the options.
"""
import argparse
import functools
import http.server
import json
import multiprocessing
import os
import pathlib
import shutil
import statistics
import stat
import subprocess
import sys
import tempfile
from dataclasses import dataclass

import tree_usage
from picture_size import picture_size

OFFLINE = '--host-resolver-rules=MAP * ~NOTFOUND, EXCLUDE 127.0.0.1'
VIEWPORT = (1280, 800)
ACCOUNT, GROUP = 'nobody', 'nogroup'  # Chromium refuses to run as the superuser with its sandbox on.
ENDINGS = {'jpeg': ('jpg', 'jpeg'), 'png': ('png',)}
SHORTEST_SHARE = 0.98  # Of the usual height of a page's pictures; a shorter one is cut.
OURS, BARE, SINGLE = 'vistrel-batch', 'bare protocol loop', 'browser --screenshot'
PEERS = {'playwright-core': 'playwright.mjs', 'puppeteer-cluster': 'puppeteer-cluster.mjs'}
SCRIPTS = {**PEERS, BARE: 'bare-pipe.mjs'}


@dataclass(frozen=True)
class Setting:
    """One way of converting, and how many pages at a time."""
    way: str
    jobs: str


class PageServer(multiprocessing.Process):
    """A web server of this machine's own, in a process that counts for none of the ways and ends with us."""

    def __init__(self, folder):
        super().__init__(daemon=True)
        self.folder = folder
        self._server = http.server.ThreadingHTTPServer(
            ('127.0.0.1', 0), functools.partial(SilentHandler, directory=folder))
        self.port = self._server.server_port

    def run(self):
        self._server.serve_forever()


class SilentHandler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


class Workshop:
    """A folder that the unprivileged account can read: browser, programs, pages, results."""

    def __init__(self, options):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix='vistrel-bench-'))
        self.pages = self._copy_pages(options.pages, options.limit)
        self.list = self.folder / 'list.txt'
        self.list.write_text(''.join(f'{address}\n' for address in self._addresses(options.served)))
        self.browser = self._write_browser(options.browser)
        self.program = shutil.copy2(options.program, self.folder)
        self.drivers = shutil.copytree(options.peers, self.folder / 'peers')
        self._open_up()

    def _copy_pages(self, source, limit):
        copy = shutil.copytree(source, self.folder / 'pages')
        return sorted(copy.rglob('*.html'))[:limit]

    def _addresses(self, served):
        if not served:
            return [page.as_uri() for page in self.pages]
        server = PageServer(self.folder / 'pages')
        server.start()
        return [f'http://127.0.0.1:{server.port}/{page.relative_to(server.folder)}' for page in self.pages]

    def _write_browser(self, program):
        """The browser without a network, as a program that every way starts."""
        script = self.folder / 'browser'
        script.write_text(f'#!/bin/sh\nexec "{program}" "{OFFLINE}" "$@"\n')
        return script

    def _open_up(self):
        for path in [self.folder, *self.folder.rglob('*')]:
            mode = path.stat().st_mode
            path.chmod(mode | (0o555 if stat.S_ISDIR(mode) or mode & 0o100 else 0o444))
        self.browser.chmod(0o755)

    def fresh_folder(self, name):
        folder = self.folder / name
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()
        if os.geteuid() == 0:
            shutil.chown(folder, ACCOUNT, GROUP)
        return folder

    def command(self, setting, image_format, out):
        if setting.way == OURS:
            return [self.program, '--output', out, '--format', image_format, '--quality', '80', '--name', 'number',
                    '--jobs', setting.jobs, '--browser', self.browser, self.list]
        if setting.way == SINGLE:
            return [sys.executable, self.drivers / 'screenshot_loop.py', self.browser, self.list,
                    out, image_format]
        return ['node', self.drivers / SCRIPTS[setting.way], '--browser', self.browser, '--list', self.list,
                '--out', out, '--format', image_format, '--jobs', setting.jobs]


def as_account(command):
    if os.geteuid() != 0:
        return command
    return ['setpriv', '--reuid', ACCOUNT, '--regid', GROUP, '--clear-groups', *command]


def picture_sizes(out, image_format, count):
    """The size of each page's picture by page number from 1; None where there is none."""
    def size(number):
        found = (picture_size(out / f'{number}.{ending}') for ending in ENDINGS[image_format])
        return next(filter(None, found), None)
    return [size(number) for number in range(1, count + 1)]


def measure(workshop, setting, image_format):
    out = workshop.fresh_folder('out')
    home = workshop.fresh_folder('home')
    environment = {'PATH': os.environ['PATH'], 'HOME': home, 'TMPDIR': home, 'LANG': 'C.UTF-8'}
    command = as_account(workshop.command(setting, image_format, out))
    usage = tree_usage.run(command, environment)
    pages = len(workshop.pages)
    return {
        'way': setting.way, 'jobs': setting.jobs, 'format': image_format,
        'pages_per_second': pages / usage.seconds,
        'cpu_seconds_per_page': usage.cpu_seconds / pages,
        'peak_bytes': usage.peak_bytes,
        'exit_code': usage.exit_code, 'errors': usage.errors,
        'sizes': picture_sizes(out, image_format, pages),
    }


def settings(quick):
    if quick:
        return [Setting(way, '2') for way in [OURS, *PEERS, BARE]] + [Setting(SINGLE, '1')]
    several = [Setting(way, jobs) for way in [*PEERS, BARE] for jobs in '124']
    return [Setting(OURS, jobs) for jobs in ('1', '2', '4', 'auto')] + several + [Setting(SINGLE, '1')]


def run_rounds(workshop, options):
    """All settings in turn, each round begun by another one, so that no setting always has the same predecessor."""
    runs = []
    ways = settings(options.quick)
    for number in range(options.rounds):
        turn = number * len(ways) // options.rounds
        for image_format in options.formats:
            for setting in ways[turn:] + ways[:turn]:
                runs.append({'round': number + 1, **measure(workshop, setting, image_format)})
                show_progress(runs[-1])
    return runs


def show_progress(run):
    print(f"round {run['round']}, {run['format']}, {run['way']} -j {run['jobs']}: "
          f"{run['pages_per_second']:.2f} pages/s", file=sys.stderr, flush=True)


def usual_heights(runs):
    """The median height of each page's full pictures; 0 where nobody took one."""
    columns = zip(*(run['sizes'] for run in runs if run['way'] != SINGLE))
    return [statistics.median([size[1] for size in column if size] or [0]) for column in columns]


def faults(run, heights):
    """The numbers of the pages whose picture is missing or of a wrong size."""
    def wrong(size, height):
        if size is None:
            return True
        if run['way'] == SINGLE:
            return tuple(size) != VIEWPORT
        return size[0] < VIEWPORT[0] or size[1] < max(VIEWPORT[1], SHORTEST_SHARE * height)
    return [number for number, (size, height) in enumerate(zip(run['sizes'], heights), start=1)
            if wrong(size, height)]


def medians(runs):
    """One row for each setting and format, in the order of their first runs."""
    rows = {}
    for run in runs:
        rows.setdefault((run['format'], run['way'], run['jobs']), []).append(run)
    return [{'format': key[0], 'way': key[1], 'jobs': key[2],
             **{name: statistics.median(run[name] for run in group)
                for name in ('pages_per_second', 'cpu_seconds_per_page', 'peak_bytes')},
             'faults': max(len(run['faults']) for run in group)}
            for key, group in rows.items()]


def table(rows, image_format):
    """Markdown; the ratios are against the peer setting with the most pages per second."""
    rows = [row for row in rows if row['format'] == image_format]
    best = max((row for row in rows if row['way'] in PEERS), key=lambda row: row['pages_per_second'])
    order = [OURS, *PEERS, BARE, SINGLE]
    lines = [f'**{image_format.upper()}** (best peer: {best["way"]}, {best["jobs"]} at a time)', '',
             '| Way | Pages at a time | Pages/s | Ratio | CPU s/page | Ratio | Peak MB | Wrong pictures |',
             '|---|---|---|---|---|---|---|---|']
    for row in sorted(rows, key=lambda row: (order.index(row['way']), row['jobs'])):
        speed, cost = (row[name] / best[name] for name in ('pages_per_second', 'cpu_seconds_per_page'))
        lines.append(f"| {row['way']} | {row['jobs']} | {row['pages_per_second']:.2f} | {speed:.2f} | "
                     f"{row['cpu_seconds_per_page']:.3f} | {cost:.2f} | {row['peak_bytes'] / 1e6:.0f} | "
                     f"{row['faults']} |")
    return '\n'.join(lines)


def list_faults(runs, pages):
    for run in runs:
        for number in run['faults']:
            size = run['sizes'][number - 1]
            print(f"wrong: {run['way']} -j {run['jobs']}, {run['format']}, round {run['round']}, "
                  f"{pages[number - 1].name}: {'no picture' if size is None else '%d x %d px' % tuple(size)}")
        if run['exit_code'] != 0:
            print(f"{run['way']} -j {run['jobs']} ended with {run['exit_code']}: {run['errors'][-300:]}")


def read_options():
    parser = argparse.ArgumentParser(prog='scripts/bench pages', description=__doc__.split('\n')[0])
    parser.add_argument('--pages', required=True, type=pathlib.Path, help='folder of HTML files')
    parser.add_argument('--rounds', type=int, help='how often each setting runs (3)')
    parser.add_argument('--formats', default='jpeg,png', type=lambda text: text.split(','))
    parser.add_argument('--served', action='store_true', help='from a web server on this machine, not as local files')
    parser.add_argument('--quick', action='store_true', help='ten pages, one round, one setting of each way')
    parser.add_argument('--limit', type=int, help='the first so many pages only')
    parser.add_argument('--browser', required=True, help='the browser program')
    parser.add_argument('--program', required=True, help='vistrel-batch')
    parser.add_argument('--peers', required=True, help="folder of the peers' drivers, with their libraries")
    parser.add_argument('--json', required=True, type=pathlib.Path, help='file for the figures of every run')
    options = parser.parse_args()
    options.rounds = options.rounds or (1 if options.quick else 3)
    options.limit = options.limit or (10 if options.quick else None)
    return options


def main():
    options = read_options()
    workshop = Workshop(options)
    try:
        runs = run_rounds(workshop, options)
    finally:
        shutil.rmtree(workshop.folder, ignore_errors=True)
    heights = usual_heights(runs)
    for run in runs:
        run['faults'] = faults(run, heights)
    version = subprocess.run([options.browser, '--version'], capture_output=True, text=True).stdout.strip()
    rows = medians(runs)
    options.json.write_text(json.dumps({'browser': version, 'cores': os.cpu_count(), 'medians': rows, 'runs': runs}))
    print(f'{len(workshop.pages)} pages, {options.rounds} rounds, {os.cpu_count()} cores, {version}; '
          f'processor time from {tree_usage.method()}, memory as PSS\n')
    print('\n\n'.join(table(rows, image_format) for image_format in options.formats) + '\n')
    list_faults(runs, workshop.pages)


if __name__ == '__main__':
    main()
