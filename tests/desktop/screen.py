"""An X display of its own, without a monitor: a window manager on it, hands (xdotool) and eyes (its frame buffer)."""
import contextlib
import mmap
import os
import pathlib
import struct
import subprocess
import tempfile
import time
import zlib
from dataclasses import dataclass

LIMIT_S = 20
POLL_S = 0.02
SIZE = (1280, 960)
# What would lead a program to another display, or to another platform than X11.
FOREIGN_VARIABLES = ('QT_QPA_PLATFORM', 'QT_QPA_PLATFORMTHEME', 'WAYLAND_DISPLAY', 'XDG_CURRENT_DESKTOP')

# New windows get the keyboard, and Alt+F4 closes. Clicks reach the windows without a detour.
WINDOW_MANAGER_SETTINGS = """<openbox_config xmlns="http://openbox.org/3.4/rc">
<focus><focusNew>yes</focusNew></focus>
<keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
</openbox_config>
"""


def wait_for(condition, what, limit_s=LIMIT_S):
    """The first true value of condition(); an AssertionError that names what was awaited when there is none."""
    end = time.monotonic() + limit_s
    while not (value := condition()):
        if time.monotonic() > end:
            raise AssertionError(f'waited {limit_s} s in vain for {what}')
        time.sleep(POLL_S)
    return value


@dataclass(frozen=True)
class Window:
    """A visible window, its place in pixels of the display, without what the window manager puts around it."""
    number: str
    title: str
    left: int
    top: int
    width: int
    height: int


class Screen:
    """Runs from entering to leaving the context. scale is what its programs take for device pixels per pixel."""

    def __init__(self, scale=1):
        self.scale = scale

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            folder = stack.enter_context(tempfile.TemporaryDirectory(prefix='vistrel-screen-'))
            self.environment = self._start_server(stack, folder)
            self._pixels = self._map_pixels(stack, pathlib.Path(folder, 'Xvfb_screen0'))
            self._start_window_manager(stack, folder)
            self._stack = stack.pop_all()
        return self

    def __exit__(self, *error):
        self._stack.close()

    @staticmethod
    def _start(stack, command, **options):
        """To run until the stack closes, or until we are killed."""
        process = subprocess.Popen(['setpriv', '--pdeathsig', 'KILL', *command], stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
        stack.callback(process.wait)
        stack.callback(process.kill)

    def _start_server(self, stack, folder):
        """Returns the environment for programs on it. The server picks a free display and tells its number."""
        reader, writer = os.pipe()
        with open(reader, 'rb') as answer:
            with open(writer, 'wb'):
                self._start(stack, ['Xvfb', '-displayfd', str(writer), '-fbdir', folder, '-nolisten', 'tcp',
                                    '-noreset', '-screen', '0', f'{SIZE[0]}x{SIZE[1]}x24'], pass_fds=[writer])
            number = answer.readline().decode().strip()
        if not number:
            raise RuntimeError('Xvfb ended at its start')
        own = {name: value for name, value in os.environ.items() if name not in FOREIGN_VARIABLES}
        return {**own, 'DISPLAY': f':{number}', 'QT_SCALE_FACTOR': str(self.scale),
                'DBUS_SESSION_BUS_ADDRESS': 'disabled:'}

    def _start_window_manager(self, stack, folder):
        """It is ready when it has told the display so: a desktop's number exists."""
        settings = pathlib.Path(folder, 'rc.xml')
        settings.write_text(WINDOW_MANAGER_SETTINGS)
        self._start(stack, ['openbox', '--sm-disable', '--config-file', settings],
                    env={**self.environment, 'HOME': folder})
        query = ['xdotool', 'get_num_desktops']
        wait_for(lambda: subprocess.run(query, env=self.environment, capture_output=True).returncode == 0, 'openbox')

    def _map_pixels(self, stack, path):
        """The frame buffer: an X window dump (32 bits a pixel: blue, green, red, nothing) that is always up to date."""
        with open(path, 'rb') as file:
            view = stack.enter_context(mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ))
        header = struct.unpack('>25I', view[:100])
        self._bytes_per_line, colours = header[12], header[19]
        self._start_of_pixels = header[0] + 12 * colours
        return view

    def _run(self, *words):
        return subprocess.run(['xdotool', *map(str, words)], env=self.environment, capture_output=True, text=True)

    def do(self, *words):
        """Has xdotool carry out a chain of its commands; returns what it says, None when it fails."""
        told = self._run(*words)
        return told.stdout if told.returncode == 0 else None

    def windows(self, process):
        """The visible windows of a process, the oldest first."""
        told = self._run('search', '--onlyvisible', '--pid', process)
        while told.stderr:  # A window vanished during the search, which ends it; finding nothing is no error.
            told = self._run('search', '--onlyvisible', '--pid', process)
        windows = [self._window(number) for number in sorted(told.stdout.split(), key=int)]
        return [window for window in windows if window]

    def active_window(self):
        """The number of the one that the window manager gave the keyboard; empty for none."""
        return (self.do('getactivewindow') or '').strip()

    def _window(self, number):
        """None when it has vanished meanwhile."""
        told = self.do('getwindowname', number, 'getwindowgeometry', '--shell', number)
        if told is None:
            return None
        title, *values = told.splitlines()
        values = dict(value.split('=') for value in values)
        return Window(number, title, *(int(values[name]) for name in ('X', 'Y', 'WIDTH', 'HEIGHT')))

    def pixel(self, x, y):
        """Red, green, blue."""
        start = self._start_of_pixels + y * self._bytes_per_line + 4 * x
        return tuple(self._pixels[start:start + 3][::-1])

    def picture(self, left=0, top=0, width=SIZE[0], height=SIZE[1]):
        """The rows of a rectangle, three bytes a pixel: red, green, blue."""
        rows = []
        for y in range(top, top + height):
            start = self._start_of_pixels + y * self._bytes_per_line + 4 * left
            line = self._pixels[start:start + 4 * width]
            row = bytearray(3 * width)
            for channel in range(3):
                row[channel::3] = line[2 - channel::4]
            rows.append(bytes(row))
        return rows

    def save(self, path, *rectangle):
        path.parent.mkdir(parents=True, exist_ok=True)
        save_png(self.picture(*rectangle), path)


def save_png(rows, path):
    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))
    header = struct.pack('>IIBBBBB', len(rows[0]) // 3, len(rows), 8, 2, 0, 0, 0)
    pixels = zlib.compress(b''.join(b'\0' + row for row in rows), 9)
    path.write_bytes(b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', header) + chunk(b'IDAT', pixels) + chunk(b'IEND', b''))
