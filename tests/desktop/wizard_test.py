"""The built wizard from its start to its end, with a real window, mouse, keyboard, files and browser.

Run by ctest; by hand: wizard_test.py PROGRAM FOLDER [names of tests]. FOLDER takes a picture of the screen at every
failure.
"""
import os
import pathlib
import struct
import sys
import tempfile
import unittest

from loopback import Loopback
from screen import Screen, wait_for
from wizard import BY_NUMBER, FORMATS, MANUAL, Wizard

GREEN, BLUE = (0, 128, 0), (0, 0, 255)
BEGINNINGS = {'png': b'\x89PNG', 'jpg': b'\xff\xd8\xff', 'gif': b'GIF8', 'bmp': b'BM', 'tif': b'II*\0'}


def page(colour, height=900):
    return f'<!doctype html><style>body{{margin:0;height:{height}px;background:{colour}}}</style>'


def bitmap(path):
    """Width, height and the middle pixel of a BMP file of 24 bits a pixel."""
    data = path.read_bytes()
    start, = struct.unpack_from('<I', data, 10)
    width, height = struct.unpack_from('<ii', data, 18)
    line = (3 * width + 3) // 4 * 4
    middle = start + abs(height) // 2 * line + width // 2 * 3
    return width, abs(height), tuple(data[middle:middle + 3][::-1])


class WizardTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.screen = cls.enterClassContext(Screen())
        cls.site = cls.enterClassContext(Loopback({'/green': page('green')}))

    def setUp(self):
        # The browser may run under another account, which has to get at its part of the folder.
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix='vistrel-wizard-')))
        self.folder.chmod(0o755)
        self.wizard = Wizard(self.screen, program, self.folder, failures / f'{self._testMethodName}.png')
        self.local = self.folder / 'local.html'
        self.local.write_text(page('blue', 1000))

    def assert_images(self, *names):
        """In the documents' folder are these and no others."""
        self.assertEqual(sorted(names), sorted(os.listdir(self.wizard.documents)))

    def test_first_start_asks_for_the_options_and_keeps_every_one(self):
        out = self.wizard.documents / 'out'
        out.mkdir()
        with self.wizard as wizard:
            wizard.dialog()
            self.assertTrue(wizard.shows_page(1), 'the first start shows the options')
            wizard.answer('Return')

            wizard.click('fbOutpath')
            wizard.answer_file_dialog('Choose an output folder: ', out)
            wizard.choose('cobFileType', 3, of=5)
            wizard.click('cobFileName')
            items = wizard.item_list()
            wizard.press('Down', 'Down', 'Return')
            wizard.wait_until_gone(items)
            wizard.drag('csQuality', from_x=150, to_x=400)
            wizard.fill('txtDelay', '2.5x')
            wizard.fill('txtTimeOut', '301')
            wizard.toggle('chkEnableActiveX')
            wizard.toggle('chkEnableScript')
            wizard.toggle('chkThum')
            wizard.fill('txtThumWidth', '120')
            wizard.fill('txtThumHeight', '90')
            wizard.toggle('chkOverwrite')
            wizard.toggle('chkOpenOutput')
            wizard.close()
        self.assertEqual(list(wizard.settings().items()), [
            ('FirstTime', '1'), ('OutputFolder', f'{out}/'), ('ImageType', '3'), ('NameAs', '2'), ('OverWrite', '0'),
            ('OpenOutput', '0'), ('TimeOut', '60'), ('DelayTime', '2'), ('JpgQuality', '100'), ('Thumbnail', 'a'),
            ('ThumWidth', '120'), ('ThumHeight', '90'), ('EnableActiveX', 'b'), ('EnableJava', 'a'),
            ('EnableScript', 'b')])

    def test_converts_in_every_format(self):
        self.wizard.write_settings(NameAs=BY_NUMBER, OpenOutput=1)
        expected = []
        with self.wizard as wizard:
            wizard.replace_list('* a comment', str(self.local), '', self.site.address('/green'))
            for index, ending in enumerate(FORMATS):
                wizard.show_page(1)
                wizard.choose('cobFileType', index, of=len(FORMATS))
                wizard.show_page(0)
                wizard.start_run()
                wizard.answer('Return')
                self.assertFalse(wizard.is_running())
                expected += [f'1.{ending}', f'2.{ending}']
                self.assert_images(*expected)
            wait_for(lambda: wizard.opened() == [f'{wizard.documents.as_uri()}/'] * len(FORMATS), 'the opened folder')
            wizard.close()
        for name in expected:
            beginning = BEGINNINGS[name[2:]]
            self.assertEqual(beginning, (wizard.documents / name).read_bytes()[:len(beginning)], name)
        self.assertEqual((1280, 1000, BLUE), bitmap(wizard.documents / '1.bmp'))
        self.assertEqual((1280, 900, GREEN), bitmap(wizard.documents / '2.bmp'))

    def test_manual_names_are_asked_for(self):
        self.wizard.write_settings(ImageType=FORMATS.index('bmp'), NameAs=MANUAL)
        taken = self.wizard.documents / 'taken.bmp'
        taken.write_text('old')
        with self.wizard as wizard:
            wizard.replace_list(*[str(self.local)] * 3)
            wizard.start_run()
            wizard.answer_file_dialog('Save as', wizard.documents / 'fresh')

            wizard.answer_file_dialog('Save as', taken)
            wizard.answer('alt+n')
            wizard.answer('Escape', title='Save as')
            self.assertEqual('old', taken.read_text())

            wizard.answer_file_dialog('Save as', taken)
            wizard.answer('alt+y')
            wizard.answer('Return')
            wizard.close()
        self.assert_images('fresh.bmp', 'taken.bmp')
        self.assertEqual((1280, 1000, BLUE), bitmap(taken))

    def test_lists_are_loaded_saved_and_added_to(self):
        self.wizard.write_settings()
        lists = {name: self.folder / f'{name}.txt' for name in ('short', 'long', 'saved')}
        lists['short'].write_text('ab')
        lists['long'].write_bytes(b'*\r\n' * 20000 + b'\r\nlast')
        lists['saved'].write_text('old')
        shortcut = self.folder / 'shortcut.url'
        shortcut.write_text('[InternetShortcut]\nURL=http://shortcut.example/\n')
        with self.wizard as wizard:
            wizard.click('fbClear')
            wizard.click('fbLoadList')
            wizard.answer_file_dialog('Open', lists['short'])
            wizard.answer('Return')
            wizard.click('fbLoadList')
            wizard.answer_file_dialog('Open', lists['long'])
            wizard.click('fbAddFiles')
            wizard.answer_file_dialog('Open', shortcut)
            for answer, expected in (('Return', 'old'), ('alt+y', None)):
                wizard.click('fbSaveList')
                wizard.answer_file_dialog('Select a file', lists['saved'])
                wizard.answer(answer)
                expected = expected or ('* The line starts with "*" will be treated as comment\r\n\r\n' +
                                        lists['long'].read_bytes().decode() + '\r\nhttp://shortcut.example/\r\n')
                self.assertEqual(expected, lists['saved'].read_bytes().decode())
            wizard.close()

    def test_stop_before_an_entry_ends_the_run(self):
        self.wizard.write_settings(NameAs=BY_NUMBER)
        with self.wizard as wizard:
            wizard.replace_list(self.site.address('/green'))
            with wizard.frozen():  # It takes up the second click when the run looks at events, before the first entry.
                wizard.start_run()
                wizard.click('fbStop')
            wizard.answer('Return')
            self.assertFalse(wizard.is_running())
            wizard.close()
        self.assert_images()

    def start_endless_run(self, wizard):
        self.site.endless_asked.clear()
        wizard.replace_list(self.site.address('/endless'), self.site.address('/green'))
        wizard.start_run()
        wait_for(self.site.endless_asked.is_set, 'the request of the browser')
        self.assertTrue(wizard.is_running())

    def test_stop_during_a_capture_leaves_the_window_in_its_running_state(self):
        self.wizard.write_settings(NameAs=BY_NUMBER)
        with self.wizard as wizard:
            self.start_endless_run(wizard)
            notice = wizard.picture('lblNotice')
            wizard.click('fbStop')
            wait_for(lambda: not wizard.processes(), 'the end of the browser')
            wait_for(lambda: wizard.picture('lblNotice') != notice, 'the notice of the stop')
            self.assertTrue(wizard.is_running())
            self.assertEqual([wizard.window], wizard.windows(), 'no message is shown')
            wizard.close()
        self.assert_images()

    def test_closing_during_a_capture_ends_the_program(self):
        self.wizard.write_settings(NameAs=BY_NUMBER)
        with self.wizard as wizard:
            self.start_endless_run(wizard)
            wizard.show_page(1)
            wizard.toggle('chkOverwrite')
            wizard.press('alt+F4')
            wizard.wait_until_ended()
        self.assertEqual('0', wizard.settings()['OverWrite'])
        self.assert_images()

    def test_the_head_of_the_window(self):
        self.wizard.write_settings()
        with self.wizard as wizard:
            wizard.click('fbMake(3)')
            wizard.click('picLogo')
            book = wizard.program.parent / 'help/index.html'
            wait_for(lambda: wizard.opened() == [book.as_uri(), 'https://vistrel.example/'], 'the opened help and site')
            self.assertTrue(wizard.shows_page(0), 'the page stays')

            place = wizard.window.left - 100, wizard.window.top + 50
            wizard.drag('picCaption', from_x=200, to_x=100, down=50)
            wait_for(lambda: wizard.is_painted() and (wizard.window.left, wizard.window.top) == place, 'the move')
            number = wizard.window.number
            wizard.click('winCmd(0)')
            wait_for(lambda: not wizard.windows(), 'the minimised window')
            self.screen.do('windowactivate', '--sync', number)
            wait_for(wizard.is_painted, 'the restored window')
            wizard.close()


if __name__ == '__main__':
    program, failures = map(pathlib.Path, sys.argv[1:3])
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
