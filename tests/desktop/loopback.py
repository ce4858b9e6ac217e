"""A web site of this machine for the wizard to convert; its page /endless never comes."""
import contextlib
import http.server
import threading


class Loopback:
    """Serves pages (HTML texts by path) from entering to leaving the context."""

    def __init__(self, pages):
        self.pages = pages
        self.endless_asked = threading.Event()
        self._closing = threading.Event()

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            self._server = stack.enter_context(http.server.ThreadingHTTPServer(('127.0.0.1', 0), self._handler()))
            thread = threading.Thread(target=self._server.serve_forever, kwargs={'poll_interval': 0.05})
            thread.start()
            for undo in (thread.join, self._server.shutdown, self._closing.set):
                stack.callback(undo)
            self._stack = stack.pop_all()
        return self

    def __exit__(self, *error):
        self._stack.close()

    def address(self, path):
        return f'http://127.0.0.1:{self._server.server_port}{path}'

    def _handler(site):
        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                if self.path == '/endless':
                    site.endless_asked.set()
                    site._closing.wait()
                    return
                page = site.pages.get(self.path)
                self.send_response(200 if page else 404)
                self.send_header('Content-Type', 'text/html; charset=utf-8')
                self.end_headers()
                self.wfile.write((page or '').encode())

            def log_message(self, *words):
                pass

        return Handler
