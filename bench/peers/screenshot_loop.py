"""The browser's own --screenshot, started once for each page: BROWSER LIST OUT FORMAT. It shoots its window only."""
import pathlib
import subprocess
import sys
import tempfile

browser, addresses, out, image_format = sys.argv[1:]
for number, address in enumerate(pathlib.Path(addresses).read_text().split(), start=1):
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as profile:
        subprocess.run([browser, '--headless', '--disable-gpu', '--hide-scrollbars', '--window-size=1280,800',
                        f'--user-data-dir={profile}', f'--screenshot={out}/{number}.{image_format}', address],
                       stdout=subprocess.DEVNULL, check=False)
