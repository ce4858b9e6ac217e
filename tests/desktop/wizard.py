"""The built wizard, run as a user runs it: in a folder of its own, with a home of its own, by mouse and keyboard."""
import configparser
import contextlib
import os
import pathlib
import shutil
import signal
import subprocess

from screen import wait_for

DESIGN = pathlib.Path(__file__).parents[2] / 'app/forms/frmMain.design'
HELP = pathlib.Path(__file__).parents[2] / 'help'
TITLE, POPUP_TITLE = 'Vistrel', 'vistrel'
TWIPS_PER_PIXEL = 15
CHECK_BOX = 12  # Its width in pixels.
BLACK, DARK_BLUE, FRAME = (0, 0, 0), (0, 65, 99), (128, 128, 128)
SELECTED_PAGE = (224, 224, 224)
FORMATS = ('png', 'jpg', 'gif', 'bmp', 'tif')  # In the order of the settings' numbers.
BY_URL, BY_NUMBER, MANUAL = range(3)
# An opener that only writes down what it is asked to open.
OPENER = '#!/bin/sh\nprintf "%s\\n" "$1" >>"$HOME/opened"\n'


def read_sections(path):
    """Sections of lines "key = value", as design data and profile files have them."""
    sections = configparser.RawConfigParser(delimiters='=', comment_prefixes=None, strict=False)
    sections.optionxform = str
    sections.read(path, encoding='utf-8')
    return sections


def control_places():
    """Left, top, width and height of the wizard's controls, in pixels of its window, by name."""
    design = read_sections(DESIGN)
    places = {}
    for section in design.sections():
        values = design[section]
        left, top, width, height = (int(values.get(key, values.get(f'Client{key}', '0'))) // TWIPS_PER_PIXEL
                                    for key in ('Left', 'Top', 'Width', 'Height'))
        outer = places.get(values.get('Container', '').strip('"'), (0, 0))
        places[section.split()[0]] = (outer[0] + left, outer[1] + top, width, height)
    return places


class Wizard:
    """Runs from entering to leaving the context, at whose end no process of its may be left. An error that leaves the
    context keeps a picture of the screen at failure_picture."""

    places = control_places()

    def __init__(self, screen, program, folder, failure_picture=None, home=None):
        self.screen = screen
        self.failure_picture = failure_picture
        self.folder = folder
        self.home = home or self._make_folder('home')
        self.documents = self.home / 'Documents'
        self.documents.mkdir(exist_ok=True)
        self.temporary = self._make_folder('temporary')
        self.program = pathlib.Path(shutil.copy2(program, self._make_folder('program')))
        shutil.copytree(HELP, self.program.parent / 'help', dirs_exist_ok=True)
        opener = self._make_folder('bin') / 'xdg-open'
        opener.write_text(OPENER)
        opener.chmod(0o755)

    def _make_folder(self, name, mode=0o755):
        path = self.folder / name
        path.mkdir(exist_ok=True)
        path.chmod(mode)
        return path

    @property
    def settings_file(self):
        return self.program.parent / 'Config.Ini'

    def settings(self):
        return dict(read_sections(self.settings_file)['Main'])

    def write_settings(self, **settings):
        """Those of a later start, and by default those that make a run quick and quiet."""
        settings = {'FirstTime': 1, 'OutputFolder': f'{self.documents}/', 'DelayTime': 0, 'OpenOutput': 0, **settings}
        lines = [f'{key}={value}' for key, value in settings.items()]
        self.settings_file.write_text('\n'.join(['[Main]', *lines, '']))

    def opened(self):
        """What the desktop was asked to open so far."""
        notes = self.home / 'opened'
        return notes.read_text().splitlines() if notes.exists() else []

    def __enter__(self):
        self.start()
        try:
            wait_for(self.is_painted, 'the main window')
        except BaseException as error:
            self.__exit__(type(error), error, None)
            raise
        return self

    def __exit__(self, kind, error, trace):
        if error is not None and self.failure_picture:
            self.screen.save(self.failure_picture)
            error.add_note(f'The screen at that moment: {self.failure_picture}')
        self.end()

    def start(self):
        environment = {**self.screen.environment, 'HOME': str(self.home), 'TMPDIR': str(self.temporary),
                       'XDG_RUNTIME_DIR': str(self._make_folder('runtime', mode=0o700)),
                       'PATH': f'{self.folder}/bin:{os.environ["PATH"]}'}
        for name in ('XDG_CONFIG_HOME', 'XDG_DATA_HOME', 'XDG_CACHE_HOME'):
            environment.pop(name, None)
        self.process = subprocess.Popen([self.program], env=environment, cwd=self.home, stdin=subprocess.DEVNULL)

    def end(self):
        """Whatever it is doing; the browser ends with it."""
        self.process.kill()
        self.process.wait()
        wait_for(lambda: not self.processes(), 'the end of the browser')

    def is_painted(self):
        """Whether the main window is on the screen, with its frame; notes where."""
        self.window = next(iter(self.windows()), None)
        return self.window is not None and self.pixel('frmMain', 0, 0) == DARK_BLUE

    # ---- What is seen ----------------------------------------------------------------------------------

    def windows(self):
        return self.screen.windows(self.process.pid)

    def dialog(self, title=TITLE):
        """The window of that title in front of the main window, once there is one. Message boxes have the program's."""
        def find():
            return next((w for w in self.windows() if w.title == title and w.number != self.window.number), None)
        return wait_for(find, f'a dialog titled "{title}"')

    def popups(self):
        """What opens below a box: items to choose from, or completions of what was typed."""
        return [window for window in self.windows() if window.title == POPUP_TITLE]

    def item_list(self):
        return wait_for(self.popups, 'the list of a combo box')[0]

    def wait_until_gone(self, window):
        wait_for(lambda: window.number not in [w.number for w in self.windows()], f'the end of "{window.title}"')

    def wait_until_closed(self, dialog):
        """Until its popups are gone as well, and the window manager has put away its frame and made another window the
        active one: earlier, a click may get lost."""
        self.wait_until_gone(dialog)
        wait_for(lambda: not self.popups(), f'the end of the completions in "{dialog.title}"')
        wait_for(lambda: self.screen.active_window() in [w.number for w in self.windows()], 'another active window')

    def place(self, control):
        left, top, width, height = (self.screen.scale * length for length in self.places[control])
        return self.window.left + left, self.window.top + top, width, height

    def pixel(self, control, x=3, y=3):
        left, top, _, _ = self.place(control)
        return self.screen.pixel(left + x, top + y)

    def picture(self, control):
        return self.screen.picture(*self.place(control))

    def shows_page(self, index):
        return self.pixel(f'fbMake({index})') == SELECTED_PAGE

    def is_running(self):
        """Whether the window shows a run: the frame of the busy bar."""
        return self.shows_page(0) and self.pixel('sFrame', 0, 0) == FRAME

    def is_checked(self, check):
        """Whether there is black in its box."""
        left, top, _, height = self.place(check)
        return any(self.screen.pixel(left + x, top + y) == BLACK for x in range(CHECK_BOX) for y in range(height))

    def processes(self):
        """The processes that the wizard started, browsers' children included: they name its temporary folder."""
        found = []
        for entry in pathlib.Path('/proc').glob('[0-9]*/cmdline'):
            try:
                if str(self.temporary).encode() in entry.read_bytes():
                    found.append(int(entry.parent.name))
            except OSError:
                pass  # It has ended meanwhile.
        return found

    @contextlib.contextmanager
    def frozen(self):
        """Lets the program stand still, so that it sees all that happens meanwhile at one moment."""
        self.process.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self.process.send_signal(signal.SIGCONT)

    # ---- What the user does ----------------------------------------------------------------------------

    def click(self, control):
        left, top, width, height = self.place(control)
        self.screen.do('mousemove', left + width // 2, top + height // 2, 'click', 1)

    def toggle(self, check):
        before = self.is_checked(check)
        self.click(check)
        wait_for(lambda: self.is_checked(check) != before, f'the change of {check}')

    def press(self, *keys):
        self.screen.do('key', '--delay', 5, *keys)

    def type(self, text):
        """xdotool leaves out line breaks."""
        for number, line in enumerate(text.split('\n')):
            if number > 0:
                self.press('Return')
            if line:
                self.screen.do('type', '--delay', 3, '--', line)

    def show_page(self, index):
        self.click(f'fbMake({index})')
        wait_for(lambda: self.shows_page(index), f'page {index}')

    def replace_list(self, *lines):
        self.click('txtURLList')
        self.press('ctrl+a', 'Delete')
        self.type('\n'.join(lines))

    def answer(self, *keys, title=TITLE):
        """Answers the message in front, or the dialog of that title; returns after it has gone."""
        dialog = self.dialog(title)
        self.screen.do('windowfocus', '--sync', dialog.number)
        self.press(*keys)
        self.wait_until_closed(dialog)

    def answer_file_dialog(self, title, path):
        dialog = self.dialog(title)
        self.screen.do('windowfocus', '--sync', dialog.number)
        self.press('ctrl+a')
        self.type(str(path))
        self.press('Return')
        self.wait_until_closed(dialog)

    def start_run(self):
        self.click('fbConvert')

    def close(self):
        """By the button of its caption."""
        self.click('winCmd(1)')
        self.wait_until_ended()

    def wait_until_ended(self):
        """Well, with everything that it started, and without a trace in the folder for temporary files."""
        wait_for(lambda: self.process.poll() is not None, 'the end of the program')
        if self.process.returncode != 0:
            raise AssertionError(f'the program ended with {self.process.returncode}')
        wait_for(lambda: not self.processes(), f'the end of the browser {self.processes()}')
        wait_for(lambda: not list(self.temporary.iterdir()), f'an empty {self.temporary}')

    def fill(self, box, text):
        """Into a box for one line, which the focus then leaves."""
        self.click(box)
        self.press('ctrl+a')
        self.type(text)
        self.press('Tab')

    def choose(self, combo, index, of):
        """Item index, of so many, by the mouse."""
        self.click(combo)
        items = self.item_list()
        row = items.top + items.height * (2 * index + 1) // (2 * of)
        self.screen.do('mousemove', items.left + items.width // 2, row, 'click', 1)
        self.wait_until_gone(items)

    def drag(self, control, from_x, to_x, down=0):
        left, top, _, height = self.place(control)
        y = top + height // 2
        self.screen.do('mousemove', left + from_x, y, 'mousedown', 1, 'sleep', 0.05,
                       'mousemove', left + to_x - 1, y + down, 'sleep', 0.05,
                       'mousemove', left + to_x, y + down, 'sleep', 0.05, 'mouseup', 1)
