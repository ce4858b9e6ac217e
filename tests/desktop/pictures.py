"""Takes the pictures of the wizard that the documentation shows: pictures.py PROGRAM.

The files of a user named anna are seen in them: her home, /home/anna, is made for it and deleted at the end; there must
not be one.
"""
import contextlib
import pathlib
import shutil
import sys
import tempfile
import time

from screen import SIZE, Screen, wait_for
from wizard import BY_NUMBER, MANUAL, Wizard

ROOT = pathlib.Path(__file__).parents[2]
HOME = pathlib.Path('/home/anna')
LIST = ('* Pages for the spring issue', 'ferry.html', 'garden-year.html', '* If there is room',
        'low-water.html', 'tea-ledger.html')
DOCS, HELP = ROOT / 'docs/pictures', ROOT / 'help/pictures'
TITLE_BAR, BORDER, BOTTOM = 20, 1, 5  # What openbox puts around a dialog, in pixels.
STEADY_S = 0.3


@contextlib.contextmanager
def home_of_anna():
    HOME.mkdir()
    try:
        for page in (ROOT / 'examples/pages').glob('*/'):
            shutil.copytree(page, HOME / 'pages', dirs_exist_ok=True)
        (HOME / 'Pictures').mkdir()
        yield
    finally:
        shutil.rmtree(HOME)


@contextlib.contextmanager
def started_wizard(program, scale=1, **settings):
    with Screen(scale) as screen, tempfile.TemporaryDirectory(prefix='vistrel-pictures-') as folder:
        pathlib.Path(folder).chmod(0o755)  # For the browser, which may run under another account.
        wizard = Wizard(screen, program, pathlib.Path(folder), home=HOME)
        if settings:
            wizard.write_settings(OutputFolder=f'{HOME}/Pictures/', **settings)
        with wizard:
            yield wizard


def fill_list(wizard):
    wizard.replace_list(*(line if line.startswith('*') else f'{HOME}/pages/{line}' for line in LIST))
    put_pointer_away(wizard)


def save_when_steady(wizard, path, *rectangle):
    def is_steady():
        before = wizard.screen.picture(*rectangle)
        time.sleep(STEADY_S)
        return wizard.screen.picture(*rectangle) == before
    wait_for(is_steady, 'a steady picture')
    wizard.screen.save(path, *rectangle)
    print(path, path.stat().st_size)


def put_pointer_away(wizard):
    wizard.screen.do('mousemove', SIZE[0] - 1, SIZE[1] - 1)


def take_window(wizard, path):
    window = wizard.window
    save_when_steady(wizard, path, window.left, window.top, window.width, window.height)


def take_dialog(wizard, title, path):
    """With its frame, without the window behind it. Then it is cancelled."""
    dialog = wizard.dialog(title)
    put_pointer_away(wizard)
    left, top = dialog.left - 2 * BORDER, dialog.top - 2 * TITLE_BAR  # xdotool counts the frame twice.
    save_when_steady(wizard, path, left, top, dialog.width + 2 * BORDER, dialog.height + TITLE_BAR + BOTTOM)
    wizard.answer('Escape', title=title)


def take_first_start(program):
    with started_wizard(program) as wizard:
        wizard.dialog()
        put_pointer_away(wizard)
        take_window(wizard, DOCS / 'wizard-first-run.png')
        wizard.answer('Return')


def take_pages(program):
    with started_wizard(program, DelayTime=5, Thumbnail='a', ThumWidth=160, ThumHeight=120) as wizard:
        fill_list(wizard)
        take_window(wizard, DOCS / 'wizard-convert.png')
        wizard.show_page(1)
        put_pointer_away(wizard)
        take_window(wizard, DOCS / 'wizard-options.png')
        take_window(wizard, HELP / 'options.png')
        left, top, _, height = wizard.place('csQuality')
        y = top + height // 2
        wizard.screen.do('mousemove', left + 153, y, 'mousedown', 1, 'sleep', 0.1, 'mousemove', left + 120, y)
        take_window(wizard, DOCS / 'wizard-slider.png')
        wizard.screen.do('mouseup', 1)
        wizard.click('fbOutpath')
        take_dialog(wizard, 'Choose an output folder: ', DOCS / 'dialog-output-folder.png')


def take_list_messages(program):
    with started_wizard(program, DelayTime=0) as wizard:
        fill_list(wizard)
        wizard.click('fbAddFiles')
        take_dialog(wizard, 'Open', DOCS / 'dialog-add-files.png')
        (HOME / 'empty.txt').write_text('')
        (HOME / 'spring.txt').write_text('old')
        wizard.click('fbLoadList')
        wizard.answer_file_dialog('Open', HOME / 'empty.txt')
        wizard.dialog()
        put_pointer_away(wizard)
        take_window(wizard, DOCS / 'wizard-invalid-file.png')
        wizard.answer('Return')
        wizard.click('fbSaveList')
        wizard.answer_file_dialog('Select a file', HOME / 'spring.txt')
        wizard.dialog()
        put_pointer_away(wizard)
        take_window(wizard, DOCS / 'wizard-overwrite.png')
        wizard.answer('Return')


def take_run(program):
    with started_wizard(program, DelayTime=2, NameAs=BY_NUMBER) as wizard:
        fill_list(wizard)
        wizard.start_run()
        put_pointer_away(wizard)
        wait_for(lambda: (HOME / 'Pictures/2.jpg').exists(), 'the second picture')
        time.sleep(1)  # Amid the delay before the third picture.
        wizard.screen.save(HELP / 'convert.png', *wizard.place('frmMain'))
        shutil.copy(HELP / 'convert.png', DOCS / 'wizard-running.png')
        wizard.dialog()
        put_pointer_away(wizard)
        take_window(wizard, DOCS / 'wizard-complete.png')
        wizard.answer('Return')


def take_manual_names(program):
    taken = HOME / 'Pictures/1.jpg'
    with started_wizard(program, DelayTime=0, NameAs=MANUAL) as wizard:
        fill_list(wizard)
        wizard.start_run()
        wizard.answer_file_dialog('Save as', taken)
        wizard.dialog()
        put_pointer_away(wizard)
        take_window(wizard, DOCS / 'wizard-manual.png')
        wizard.answer('alt+n')
        take_dialog(wizard, 'Save as', DOCS / 'dialog-save-as.png')


def take_large(program):
    with started_wizard(program, scale=2, DelayTime=0) as wizard:
        fill_list(wizard)
        take_window(wizard, DOCS / 'wizard-convert@2x.png')


if __name__ == '__main__':
    with home_of_anna():
        for take in (take_first_start, take_pages, take_list_messages, take_run, take_manual_names, take_large):
            take(sys.argv[1])
