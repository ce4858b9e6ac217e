"""What vistrel-batch does to servers, with shortcuts and on a terminal, with the real browser."""
import fcntl
import itertools
import json
import os
import pathlib
import pty
import re
import ssl
import struct
import termios
import threading
import time
import unittest

from tests.support.batch_program import CONVERTED, FAILED, BatchTest, pictures

CERTIFICATE = pathlib.Path(__file__).parent.parent / 'support' / 'self_signed.pem'  # Of "localhost", with its key.


def page(exchange):
    exchange.reply('<!doctype html><p>a page')


def flaky(exchange):
    if exchange.number <= 2:
        exchange.reply('try later', status=503)
    else:
        page(exchange)


class Retries(BatchTest):
    routes = {'/page': page, '/flaky': flaky, '/down': lambda exchange: exchange.reply('no', status=503),
              '/gone': lambda exchange: exchange.reply('gone', status=410)}

    def test_a_server_that_fails_for_a_moment_is_asked_again_with_growing_pauses(self):
        report = self.folder / 'report.jsonl'
        code, said = self.run_batch('--retry', 2, '--report', report,
                                    self.write_list(map(self.server.url, ['/flaky', '/down', '/page'])))
        self.assertEqual(code, 0, said)
        first, second, third = self.server.arrivals('/flaky')
        self.assertGreaterEqual(second - first, 1)
        self.assertGreaterEqual(third - second, 2)
        entries = [json.loads(line) for line in report.read_text().splitlines()]
        self.assertEqual([(entry['attempts'], entry['note']) for entry in entries],
                         [(3, None), (3, 'HTTP 503'), (1, None)])

    def test_what_a_picture_may_lack_stands_in_report_and_summary(self):
        report, script = self.folder / 'report.jsonl', self.folder / 'script.js'
        script.write_text('throw new Error("no such element")')
        code, said = self.run_batch('--script', script, '--report', report, self.write_list([self.server.url('/page')]))
        self.assertEqual(code, 0, said)
        self.assertIn('no such element', json.loads(report.read_text())['note'])
        self.assertRegex(said, '1 converted, but: .*no such element')

    def test_an_answer_that_is_an_error_is_told_of_and_retried_when_its_page_lacks_what_was_asked_for(self):
        report = self.folder / 'report.jsonl'
        code, said = self.run_batch('--retry', 2, '--selector', 'p', '--report', report,
                                    self.write_list(map(self.server.url, ['/flaky', '/gone'])))
        self.assertEqual(code, 1, said)
        flaky, gone = map(json.loads, report.read_text().splitlines())
        self.assertEqual((flaky['attempts'], flaky['status'], flaky['note']), (3, 200, None))
        self.assertEqual((gone['attempts'], gone['status']), (1, 410))
        self.assertRegex(said, '1 failed: HTTP 410: the page has no element')

    def test_failed_entries_are_tried_again_only_when_that_is_asked_for(self):
        broken = True
        self.server.routes['/unsteady'] = lambda e: e.connection.close() if broken else page(e)
        code, said = self.run_batch('--name', 'number', self.write_list(map(self.server.url, ['/page', '/unsteady'])))
        self.assertEqual((code, self.states()), (1, {1: CONVERTED, 2: FAILED}), said)
        broken = False
        self.assertEqual(self.run_batch('--resume')[0], 1)
        code, said = self.run_batch('--retry-failed')
        self.assertEqual((code, sorted(pictures(self.out))), (0, ['1.png', '2.png']), said)
        self.assertEqual(self.server.requests['/page'], 1)


class WrongOptions(BatchTest):
    routes = {'/page': page}

    def test_a_selector_that_is_none_ends_the_run_before_any_page_is_visited(self):
        entries = self.write_list([self.server.url('/page')])
        for option in '--hide', '--selector', '--wait-for':
            code, said = self.run_batch(option, 'p[', entries)
            self.assertEqual(code, 2, said)
            self.assertIn('"p[" is no CSS selector', said)
        self.assertEqual(self.server.requests['/page'], 0)
        self.assertEqual(os.listdir(self.out), [])  # No journal that another run would have given way to.


class Hosts(BatchTest):
    """Of two hosts, both this machine, under its address and its name."""

    def setUp(self):
        super().setUp()
        self.busy, self.most = 0, 0
        self.lock = threading.Lock()
        self.server.routes |= {'/one': self.slow, '/two': page}

    def slow(self, exchange):
        with self.lock:
            self.busy += 1
            self.most = max(self.most, self.busy)
        time.sleep(0.3)
        with self.lock:
            self.busy -= 1
        page(exchange)

    def entries(self):
        port = self.server.server_port
        return self.write_list([f'http://127.0.0.1:{port}/one/{number}' for number in range(6)] +
                               [f'http://localhost:{port}/two/{number}' for number in range(6)])

    def test_no_more_pages_of_one_host_are_open_than_allowed(self):
        self.assertEqual(self.run_batch('-j', 6, '--per-host', 2, self.entries())[0], 0)
        self.assertEqual(self.most, 2)

    def test_visits_to_one_host_are_apart_and_the_other_host_does_not_wait(self):
        self.assertEqual(self.run_batch('-j', 4, '--per-host-delay', 0.6, self.entries())[0], 0)
        for host in '/one', '/two':
            arrivals = self.server.arrivals(host)
            pauses = [later - earlier for earlier, later in itertools.pairwise(arrivals)]
            self.assertGreater(min(pauses), 0.5, pauses)  # The way to the server varies a little.
        self.assertLess(self.server.arrivals('/two')[0], self.server.arrivals('/one')[2])


class BarredWays(BatchTest):
    """What stands between the browser and a server is no page."""

    def failed(self, address, **environment):
        code, said = self.run_batch('--url', address, environment=environment)
        self.assertEqual((code, self.states()), (1, {1: FAILED}), said)
        return said

    def test_a_certificate_that_nobody_vouches_for(self):
        secure = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        secure.load_cert_chain(CERTIFICATE)
        self.server.socket = secure.wrap_socket(self.server.socket, server_side=True)
        said = self.failed(f'https://localhost:{self.server.server_port}/page')
        self.assertRegex(said, 'not valid; --insecure .*ERR_CERT_AUTHORITY_INVALID')

    def test_a_proxy_that_is_down_or_wants_a_password(self):
        self.assertIn('ERR_PROXY_CONNECTION_FAILED', self.failed('http://x.test/', http_proxy='http://127.0.0.1:1'))
        self.server.routes['http://x.test/'] = lambda exchange: exchange.reply(
            'who are you?', status=407, Proxy_Authenticate='Basic realm="proxy"')
        self.assertIn('the proxy asks for a password', self.failed('http://x.test/', http_proxy=self.server.url('')))


class Reports(BatchTest):
    routes = {'/page': page}

    def test_one_that_cannot_be_written_is_no_success(self):
        for option in '--report', '--html':
            code, said = self.run_batch(option, '/dev/full', '--url', self.server.url('/page'))
            self.assertEqual((code, self.states()), (1, {1: CONVERTED}), said)
            self.assertIn('/dev/full cannot be written', said)


class Shortcuts(BatchTest):
    routes = {'/page': page}

    def test_an_internet_shortcut_stands_for_its_address(self):
        (self.folder / 'good.url').write_bytes(f'[InternetShortcut]\r\nURL={self.server.url("/page")}\r\n'.encode())
        (self.folder / 'bare.url').write_bytes(b'[InternetShortcut]\r\n')
        code, said = self.run_batch(self.write_list([self.folder / 'good.url', self.folder / 'bare.url']))
        self.assertEqual((code, self.server.requests['/page'], len(pictures(self.out))), (1, 1, 1), said)
        self.assertIn('holds no address', said)


class Terminal(BatchTest):
    COLUMNS = 35
    CLEAR = '\r\x1b[K'
    routes = {'/page': page}

    def test_progress_is_one_line_of_the_terminals_width_and_only_failures_get_their_own(self):
        entries = self.write_list([*(self.server.url(f'/page/{number}') for number in range(5)), '/no/such.html'])
        shown, _ = self.run_on_terminal('-j', 1, entries, results_too=True)
        self.assertNotIn('converted http', shown)
        progress = re.findall(r'\r\x1b\[K(\d+ of 6, [^\r\n]*)', shown)
        self.assertEqual(sorted({int(line.split()[0]) for line in progress}), list(range(7)))
        self.assertLess(max(map(len, progress)), self.COLUMNS)
        printed = [line.rpartition(self.CLEAR)[2] for line in shown.split('\r\n')]
        self.assertRegex(printed[0], r'^failed /no/such.html \(line 6 of .*list.txt\): ')
        self.assertRegex(printed[1], rf'^5 converted, 1 failed in [\d.]+ s; the pictures are in {re.escape(str(self.out))}$')

    def test_results_that_are_led_elsewhere_arrive_there(self):
        entries = self.write_list([self.server.url('/page'), '/no/such.html'])
        shown, results = self.run_on_terminal('-j', 1, entries)
        self.assertEqual([line.split()[0] for line in results.splitlines()], ['converted', 'failed'])
        self.assertNotIn('converted http', shown)

    @staticmethod
    def resize(terminal, columns):
        fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack('HHHH', 24, columns, 0, 0))

    def run_on_terminal(self, *arguments, results_too=False):
        """What its terminal, which is made narrower when the run has begun, and its standard output, when that is not
        the terminal too, got."""
        ours, theirs = pty.openpty()
        self.resize(ours, 200)
        process = self.start(*arguments, stderr=theirs, **({'stdout': theirs} if results_too else {}))
        os.close(theirs)
        shown = b''
        try:
            while part := os.read(ours, 4096):
                self.resize(ours, self.COLUMNS)
                shown += part
        except OSError:
            pass  # The other side is closed.
        os.close(ours)
        return shown.decode(), process.communicate()[0]


if __name__ == '__main__':
    unittest.main()
