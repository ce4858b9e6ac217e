"""Runs of vistrel-batch that are cut off: killed, out of space, their folder closed or gone."""
import os
import pathlib
import random
import shutil
import signal
import subprocess
import time
import unittest

from tests.support.batch_program import CONVERTED, FAILED, JOURNAL, BatchTest, kill, pictures, wait_until

KILLS = int(os.environ.get('VISTREL_KILLS', '12'))
SOME_FAILED, USAGE, NO_BROWSER = 1, 2, 3


def page(exchange):
    name = exchange.path.rpartition('/')[2]
    exchange.reply(f'<!doctype html><title>{name}</title><body style="height:1200px"><h1>{name}</h1>'
                   f'{"<p>some text" * 30}<div style="width:900px;height:300px;background:linear-gradient(red,blue)">')


class CutOffTest(BatchTest):
    routes = {'/page': page}

    def addresses(self, count):
        return [self.server.url(f'/page/{number}') for number in range(count)]


class KilledRuns(CutOffTest):
    OPTIONS = '-j', 3, '-f', 'png,jpeg', '--thumbnail', '80x60'

    def test_a_run_killed_again_and_again_makes_what_an_undisturbed_run_makes(self):
        lines = self.addresses(30)
        entries = self.write_list([*lines, *lines[:10]])  # Ten names are taken twice.
        undisturbed = self.folder / 'undisturbed'
        self.assertEqual(self.run_batch(*self.OPTIONS, entries, output=undisturbed)[0], 0)
        self.kill_at_random(entries)
        code, said = self.run_batch('--resume')
        self.assertEqual(code, 0, said)
        self.assertEqual(pictures(self.out), pictures(undisturbed))
        self.assertEqual(set(self.states().values()), {CONVERTED})
        self.assertEqual(len(self.states()), 40)
        self.assert_nothing_left()

    def test_a_run_with_nothing_left_to_convert_clears_up_after_a_killed_one_too(self):
        self.assertEqual(self.run_batch(self.write_list(self.addresses(1)))[0], 0)
        (self.temporary / 'vistrel-browser-999999999-1-abcdef' / 'profile').mkdir(parents=True)
        self.assertEqual(self.run_batch('--resume')[0], 0)
        self.assert_nothing_left()

    def kill_at_random(self, entries):
        seed = int(os.environ.get('VISTREL_KILL_SEED', random.randrange(1000000)))
        print(f'VISTREL_KILL_SEED={seed}')
        moments = random.Random(seed)
        for _ in range(KILLS):
            process = self.start('--resume')
            time.sleep(moments.uniform(0, 1.6))
            if process.poll() == USAGE:  # There is nothing yet to go on with.
                process = self.start(*self.OPTIONS, entries)
                time.sleep(moments.uniform(0, 1.6))
            kill(process)


class LostBrowsers(CutOffTest):
    def test_a_page_that_brings_browsers_down_takes_no_other_with_it(self):
        self.server.routes['/killer'] = lambda exchange: kill_browsers(self.temporary)
        lines = self.addresses(12)
        code, said = self.run_batch('-j', 4, self.write_list([*lines[:2], self.server.url('/killer'), *lines[2:]]))
        self.assertEqual(code, SOME_FAILED, said)
        self.assertEqual([number for number, state in self.states().items() if state != CONVERTED], [3], said)
        self.assertIn('the browser went down with this page, twice', said)


def kill_browsers(temporary):
    subprocess.run(['pkill', '-KILL', '-f', f'user-data-dir={temporary}'])


class InterruptedRuns(CutOffTest):
    def test_a_request_to_end_is_followed_at_once_and_the_run_can_go_on(self):
        entries = self.write_list(self.addresses(300))
        for request, code in (signal.SIGINT, 130), (signal.SIGTERM, 143), (signal.SIGHUP, 129):
            process = self.start('-j', 2, '--name', 'number', entries)
            self.assertTrue(wait_until((self.out / '3.png').exists))
            process.send_signal(request)
            said, _ = process.communicate(timeout=10)
            self.assertEqual(process.returncode, code, said)
            self.assertIn('--resume goes on with them', said)
            self.assert_nothing_left()
            shutil.rmtree(self.out)

    def test_a_run_that_waits_for_its_entries_ends_at_once(self):
        self.server.routes['/sitemap.xml'] = lambda exchange: time.sleep(5)
        for arguments in ['--sitemap', self.server.url('/sitemap.xml')], ['-']:
            ours, theirs = os.pipe()
            process = self.start(*arguments, stdin=ours)
            self.assertTrue(wait_until((self.out / JOURNAL).exists))
            time.sleep(0.3)
            process.send_signal(signal.SIGINT)
            said, _ = process.communicate(timeout=2)
            self.assertEqual(process.returncode, 130, said)
            self.assertIn('nothing was converted', said)
            for end in ours, theirs:
                os.close(end)
            shutil.rmtree(self.out)

    def test_a_browser_that_cannot_be_started_ends_the_run(self):
        code, said = self.run_batch('--browser', '/no/such/browser', self.write_list(self.addresses(1)))
        self.assertEqual(code, NO_BROWSER)
        self.assertIn('/no/such/browser', said)


class PrivateMount:
    """A file system in memory, mounted where only commands behind inside() see it. Needs the superuser, or
    user namespaces."""

    def __init__(self, folder, size):
        self.folder = folder
        folder.mkdir()
        script = 'mount -t tmpfs -o mode=755,size="$1" none "$2" && echo ready && exec cat'
        streams = dict.fromkeys(('stdin', 'stdout', 'stderr'), subprocess.PIPE)
        self._keeper = subprocess.Popen(['unshare', *self._namespaces(), 'sh', '-c', script, 'sh', size, folder],
                                        text=True, **streams)
        if self._keeper.stdout.readline() != 'ready\n':
            raise unittest.SkipTest('no file system can be mounted here: ' + self._keeper.communicate()[1].strip())

    @staticmethod
    def _namespaces():
        return ['--mount'] if os.geteuid() == 0 else ['--user', '--map-root-user', '--mount']

    @property
    def path(self):
        """The mounted folder, seen from outside."""
        return pathlib.Path(f'/proc/{self._keeper.pid}/root{self.folder}')

    def inside(self):
        """What a command has to be put behind to see the mount, with the rights that it has outside."""
        if os.geteuid() == 0:
            return self._enter()
        return [*self._enter(), 'unshare', '--user', f'--map-user={os.geteuid()}', f'--map-group={os.getegid()}']

    def _enter(self):
        own = [] if os.geteuid() == 0 else ['--user', '--preserve-credentials']
        return ['nsenter', f'--target={self._keeper.pid}', '--mount', *own]

    def remount(self, options):
        # With its source named, mount does not repeat options that belong to another user's numbers.
        mount = ['mount', '-t', 'tmpfs', '-o', f'remount,{options}', 'none', self.folder]
        subprocess.run([*self._enter(), *mount], check=True)

    def close(self):
        self._keeper.communicate()


class Folders(CutOffTest):
    def mount(self, size):
        disk = PrivateMount(self.out, size)
        self.addCleanup(disk.close)
        return disk

    def test_a_disk_full_of_pictures_ends_the_run_and_room_lets_it_go_on(self):
        disk = self.mount('2m')
        entries = self.write_list(self.addresses(3))
        code, said = self.run_batch('-j', 1, '-f', 'bmp', '--name', 'number', entries, before=disk.inside())
        self.assertEqual(code, SOME_FAILED, said)
        self.assertIn(f'a file in {self.out} cannot be written: No space left on device', said)
        self.assertEqual(pictures(disk.path), {})
        disk.remount('size=40m')
        code, said = self.run_batch('--resume', before=disk.inside())
        self.assertEqual(code, 0, said)
        self.assertEqual(sorted(pictures(disk.path)), ['1.bmp', '2.bmp', '3.bmp'])
        self.assert_nothing_left()

    def test_a_disk_full_of_the_journal_does_the_same(self):
        disk = self.mount('200k')
        entries = self.write_list(f'/no/such/{number}.html' for number in range(1000))
        code, said = self.run_batch('-j', 4, entries, before=disk.inside())
        self.assertEqual(code, SOME_FAILED, said)
        self.assertIn(f'{self.out}/{JOURNAL}: database or disk is full', said)
        disk.remount('size=40m')
        code, said = self.run_batch('--resume', before=disk.inside())
        self.assertEqual((code, set(self.states(disk.path).values())), (SOME_FAILED, {FAILED}), said)
        self.assert_nothing_left()

    def test_a_read_only_folder_is_refused(self):
        disk = self.mount('20m')
        entries = self.write_list(['/no/such/file.html'])
        self.assertEqual(self.run_batch(entries, before=disk.inside())[0], SOME_FAILED)
        disk.remount('ro')
        for arguments in ([entries], ['--resume']):
            code, said = self.run_batch(*arguments, before=disk.inside())
            self.assertEqual(code, USAGE)
            self.assertIn(f'the folder {self.out} cannot be written', said)

    def test_a_folder_that_vanishes_ends_the_run(self):
        process = self.start('-j', 2, '--name', 'number', self.write_list(self.addresses(1000)))
        self.assertTrue(wait_until((self.out / '4.png').exists))
        self.out.rename(self.folder / 'elsewhere')
        said, _ = process.communicate(timeout=20)
        self.assertEqual(process.returncode, SOME_FAILED, said)
        self.assertIn(' cannot be written: No such file or directory', said)
        self.assertIn('start the run anew', said)
        self.assertNotIn('--resume', said)
        self.assert_nothing_left()


if __name__ == '__main__':
    unittest.main()
