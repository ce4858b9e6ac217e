"""A loopback web server for tests that run vistrel-batch as a program of its own."""
import sys
import threading
import time
from collections import Counter
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer


class Exchange(BaseHTTPRequestHandler):
    """One request under way. A route writes what it likes; the connection is closed after it."""

    def do_GET(self):
        path = self.path.partition('?')[0]
        with self.server.lock:
            self.server.times.append((path, time.monotonic()))
            self.server.requests[path] += 1
            self.number = self.server.requests[path]
        route = self.server.routes.get(path) or self.server.routes.get(path.rpartition('/')[0])
        if route:
            route(self)
        else:
            self.reply('nothing here', 'text/plain', 404)

    def reply(self, body, kind='text/html; charset=utf-8', status=200, **headers):
        """Answers in full. headers: names with "_" for "-"."""
        data = body.encode() if isinstance(body, str) else body
        self.begin(kind, status, Content_Length=len(data), **headers)
        self.wfile.write(data)

    def begin(self, kind='text/html; charset=utf-8', status=200, **headers):
        """Status and headers alone; the body is up to the route."""
        self.send_response(status)
        self.send_header('Content-Type', kind)
        for name, value in headers.items():
            self.send_header(name.replace('_', '-'), value)
        self.end_headers()

    def log_message(self, *_):
        """Says nothing."""


class PageServer(ThreadingHTTPServer):
    """Serves routes: functions of an Exchange, or texts that are HTML documents, by path; a path of which only the
    folder is a route's is that route's too. Exchange.number counts the requests of one path from 1. Use as a context
    manager."""

    daemon_threads = True
    request_queue_size = 128

    def __init__(self, routes):
        super().__init__(('127.0.0.1', 0), Exchange)
        self.routes = {path: self._route(page) for path, page in routes.items()}
        self.requests = Counter()
        self.times = []  # (path, when by the monotonic clock), in order of arrival.
        self.lock = threading.Lock()

    @staticmethod
    def _route(page):
        return page if callable(page) else lambda exchange: exchange.reply(page)

    def url(self, path):
        return f'http://127.0.0.1:{self.server_port}{path}'

    def arrivals(self, folder=''):
        """When the requests of a folder's paths came, in order."""
        with self.lock:
            return [when for path, when in self.times if path.startswith(folder)]

    def __enter__(self):
        threading.Thread(target=self.serve_forever, kwargs={'poll_interval': 0.05}, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.shutdown()
        self.server_close()

    def handle_error(self, request, client_address):
        # A browser that goes away in the middle of an answer is no fault of the server's.
        if not isinstance(sys.exc_info()[1], OSError):
            super().handle_error(request, client_address)
