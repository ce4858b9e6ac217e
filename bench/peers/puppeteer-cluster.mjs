// puppeteer-cluster in its usual form: one browser, a context and a page of its own for each address.
import { Cluster } from 'puppeteer-cluster';
import puppeteer from 'puppeteer-core';
import { complain, jpegQuality, readTask, viewport } from './task.mjs';

const task = readTask();
const picture = task.format === 'jpeg' ? { type: 'jpeg', quality: jpegQuality } : { type: 'png' };
const cluster = await Cluster.launch({
    puppeteer,
    concurrency: Cluster.CONCURRENCY_CONTEXT,
    maxConcurrency: task.jobs,
    puppeteerOptions: {
        executablePath: task.browser,
        headless: 'shell',
        pipe: true,
        defaultViewport: viewport,
    },
});
cluster.on('taskerror', (error, page) => complain(page, error));
await cluster.task(async ({ page, data: { address, file } }) => {
    await page.goto(address);
    await page.screenshot({ ...picture, path: file, fullPage: true });
});
for (const page of task.pages) cluster.queue(page);
await cluster.idle();
await cluster.close();
