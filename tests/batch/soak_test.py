"""A long run over pages of which one in twenty is hostile.

VISTREL_SOAK_PAGES sets the number of entries. The memory curve is printed at the end; from 1,200 entries on it must be
flat, which some hundred do not tell.
"""
import collections
import os
import pathlib
import statistics
import time
import unittest
from dataclasses import dataclass

from tests.support.batch_program import (CONVERTED, FAILED, PROGRAM, SANITIZED, BatchTest, Memory, family, memory,
                                         pictures)

PAGES = int(os.environ.get('VISTREL_SOAK_PAGES', '300'))
HOSTILE_EVERY = 20
TIMEOUT_S = 10
SAMPLE_EVERY = 10  # Pages.
WARM_AFTER = 300  # Pages.
MEBIBYTE = 1024 * 1024
LARGEST_PROGRAM = 120 * MEBIBYTE
STEADY = 1.1
BROWSER = '/usr/lib/chromium/chromium-headless-shell'
SMALL_HEAP = '--js-flags=--max-old-space-size=64'  # Script memory, MiB: a bomb goes off early.


def never_ending(exchange):
    exchange.begin()
    try:
        while True:
            exchange.wfile.write(b'and so on ')
            exchange.wfile.flush()
            time.sleep(0.2)
    except OSError:
        pass


def reset(exchange):
    exchange.connection.close()


@dataclass(frozen=True)
class Sample:
    pages: int  # Ended so far.
    program: int  # Bytes that the program itself has resident.
    tree: Memory  # Of all its processes.


def mebibytes(count):
    return round(count / MEBIBYTE)


def script(code):
    return f'<!doctype html><title>hostile</title><p>hostile<script>{code}</script>'


# What becomes of each: a state of the journal, and what the reason or the note says.
HOSTILE = {
    'endless-script': (script('for (;;);'), FAILED, 'time-out'),
    'late-endless-script': (script('onload = () => { for (;;); }'), FAILED, 'time-out'),
    'endless-body': (never_ending, FAILED, 'time-out'),
    'alert-loop': (script('for (;;) alert(1)'), FAILED, 'dialog'),
    'redirect-loop': (lambda e: e.reply('', status=302, Location=e.path), FAILED, 'ERR_TOO_MANY_REDIRECTS'),
    'reload-loop': (script('location.reload()'), FAILED, 'again and again'),
    'heap-bomb': (script('const kept = []; for (;;) kept.push(new Array(1000).fill(kept.length))'), FAILED, 'crashed'),
    'reset': (reset, FAILED, 'ERR_'),
    'no-content': (lambda e: e.reply('', status=204), FAILED, 'ERR_ABORTED'),
    'download': (lambda e: e.reply('PK', 'application/zip'), FAILED, 'download'),
    'missing': (lambda e: e.reply('<p>no', status=404), CONVERTED, 'HTTP 404'),
    'broken': (lambda e: e.reply('<p>no', status=501), CONVERTED, 'HTTP 501'),
    'buffers': (script('const kept = [1, 2, 3, 4].map(() => new Uint8Array(1 << 26).fill(7))'), CONVERTED, ''),
    'popups': (script('for (let i = 0; i < 200; ++i) open("/page/p" + i)'), CONVERTED, ''),
    'stays': (script('onbeforeunload = () => "stay"; print()'), CONVERTED, ''),
    'churn': (script('setInterval(() => document.body.append(1), 0); fetch("/hostile/endless-body/")'), CONVERTED, ''),
}


def page(exchange):
    number = int(exchange.path.rpartition('/')[2].lstrip('p'))
    exchange.reply(f'<!doctype html><title>{number}</title><body style="background:hsl({number % 360} 70% 80%);'
                   f'height:{600 + number % 5 * 300}px"><h1>Page {number}</h1>{"<p>some text" * (number % 40)}'
                   f'<script>for (let i = 0; i < 50; ++i) document.body.append(i + " ")</script>')


class Soak(BatchTest):
    routes = {'/page': page} | {f'/hostile/{name}': hostile[0] for name, hostile in HOSTILE.items()}

    def browser(self):
        """The browser, with little memory for scripts."""
        path = self.folder / 'browser'
        path.write_text(f'#!/bin/sh\nexec {BROWSER} "{SMALL_HEAP}" "$@"\n')
        path.chmod(0o755)
        return path

    def expected(self):
        """(address, state, words) of every entry."""
        names = list(HOSTILE)
        for number in range(PAGES):
            if number % HOSTILE_EVERY == HOSTILE_EVERY - 1:
                name = names[number // HOSTILE_EVERY % len(names)]
                yield self.server.url(f'/hostile/{name}/{number}'), *HOSTILE[name][1:]
            else:
                yield self.server.url(f'/page/{number}'), CONVERTED, ''

    @unittest.skipUnless(pathlib.Path(BROWSER).exists(), f'there is no {BROWSER}')
    def test_every_entry_ends_once_and_memory_stays_flat(self):
        expected = list(self.expected())
        started = time.monotonic()
        # A busy machine may let a harmless page wait too long, once.
        process = self.start('-j', 2, '-f', 'jpeg', '--name', 'number', '--timeout', TIMEOUT_S, '--retry', 1,
                             '--browser', self.browser(), self.write_list(address for address, _, _ in expected))
        lines, samples = self.follow(process)
        self.assertEqual(process.wait(30), 1)
        self.tell(samples, time.monotonic() - started)
        self.assert_outcomes(expected, lines)
        self.assert_nothing_left()
        if not SANITIZED:
            self.assertLess(max(sample.program for sample in samples), LARGEST_PROGRAM)
            self.assert_flat(samples)

    def follow(self, process):
        """All that the program says, and samples of memory."""
        lines, samples = [], []
        for line in process.stdout:
            lines.append(line)
            if len(lines) % SAMPLE_EVERY == 0 and len(lines) <= PAGES:
                tree = sum(map(memory, family(process.pid)), Memory())
                samples.append(Sample(len(lines), memory(process.pid).resident, tree))
        return lines, samples

    def assert_outcomes(self, expected, lines):
        states = self.states()
        self.assertEqual(len(states), PAGES)
        told = collections.Counter(line.split()[1] for line in lines if line.startswith(('converted ', 'failed ')))
        said = {line.split()[1]: line for line in lines if line.startswith(('converted ', 'failed '))}
        for number, (address, state, words) in enumerate(expected, 1):
            self.assertEqual(told[address], 1, address)
            self.assertEqual(states[number], state, said[address])
            self.assertIn(words, said[address])
        converted = {f'{number}.jpg' for number, state in states.items() if state == CONVERTED}
        self.assertEqual(set(pictures(self.out)), converted)

    def assert_flat(self, samples):
        """The memory of all processes is the same in the first and the last third of the warm run."""
        warm = [sample.tree.own for sample in samples if sample.pages > WARM_AFTER]
        third = len(warm) // 3
        if third >= WARM_AFTER // SAMPLE_EVERY:
            self.assertLess(statistics.median(warm[-third:]), statistics.median(warm[:third]) * STEADY)

    @staticmethod
    def tell(samples, seconds):
        trees = [sample.tree.proportional for sample in samples]
        curve = collections.defaultdict(list)
        for sample in samples:
            curve[(sample.pages - 1) // WARM_AFTER].append(sample.tree.own)
        print(f'\n{PAGES} entries of {PROGRAM} in {seconds:.0f} s\n'
              f'MiB: the program at most {mebibytes(max(sample.program for sample in samples))}; all processes, shared '
              f'files included, in the median {mebibytes(statistics.median(trees))}, at most {mebibytes(max(trees))}; '
              f'without files, medians of every {WARM_AFTER} pages:',
              *(mebibytes(statistics.median(part)) for part in curve.values()))


if __name__ == '__main__':
    unittest.main()
