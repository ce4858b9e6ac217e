// A plain loop over playwright-core: one browser, a context and a page of its own for each address.
import { chromium } from 'playwright-core';
import { convertAll, jpegQuality, readTask, viewport } from './task.mjs';

const task = readTask();
const picture = task.format === 'jpeg' ? { type: 'jpeg', quality: jpegQuality } : { type: 'png' };
const browser = await chromium.launch({ executablePath: task.browser, chromiumSandbox: true });
await convertAll(task, async ({ address, file }) => {
    const page = await browser.newPage({ viewport });
    try {
        await page.goto(address);
        await page.screenshot({ ...picture, path: file, fullPage: true });
    } finally {
        await page.close();
    }
});
await browser.close();
