// The least that a program can do: the browser's own protocol over its pipe, no library, no waiting but for load.
// What this reaches is what the browser gives; what others reach less is theirs to answer for.
import { spawn } from 'node:child_process';
import { mkdtempSync, rmSync } from 'node:fs';
import { writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { convertAll, jpegQuality, readTask, viewport } from './task.mjs';

const loadLimitMs = 30000;

class Browser {
    #calls = new Map(); // By number: resolve, reject.
    #listeners = new Map(); // By session and event: resolve.
    #chunks = []; // Of the message that has begun.
    #lastCall = 0;

    constructor(program) {
        this.profile = mkdtempSync(join(tmpdir(), 'bare-pipe-'));
        const args = ['--headless', '--remote-debugging-pipe', `--user-data-dir=${this.profile}`, '--no-first-run',
            '--disable-gpu', '--hide-scrollbars', 'about:blank'];
        this.process = spawn(program, args, { stdio: ['ignore', 'ignore', 'ignore', 'pipe', 'pipe'] });
        this.process.stdio[4].on('data', chunk => this.#split(chunk));
    }

    call(method, params = {}, sessionId) {
        const id = ++this.#lastCall;
        this.process.stdio[3].write(JSON.stringify({ id, method, params, sessionId }) + '\0');
        return new Promise((resolve, reject) => this.#calls.set(id, { resolve, reject }));
    }

    event(method, sessionId) {
        return new Promise(resolve => this.#listeners.set(sessionId + method, resolve));
    }

    async close() {
        const gone = new Promise(resolve => this.process.once('exit', resolve));
        await this.call('Browser.close');
        await gone;
        rmSync(this.profile, { recursive: true, force: true, maxRetries: 3 });
    }

    #split(chunk) {
        let start = 0;
        for (let end = chunk.indexOf(0); end >= 0; end = chunk.indexOf(0, start)) {
            this.#chunks.push(chunk.subarray(start, end));
            this.#receive(JSON.parse(Buffer.concat(this.#chunks).toString()));
            this.#chunks = [];
            start = end + 1;
        }
        this.#chunks.push(chunk.subarray(start));
    }

    #receive(message) {
        if (message.id) {
            const { resolve, reject } = this.#calls.get(message.id);
            this.#calls.delete(message.id);
            if (message.error) reject(new Error(message.error.message));
            else resolve(message.result);
        } else {
            const key = message.sessionId + message.method;
            this.#listeners.get(key)?.(message.params);
            this.#listeners.delete(key);
        }
    }
}

const task = readTask();
const picture = task.format === 'jpeg'
    ? { format: 'jpeg', quality: jpegQuality }
    : { format: 'png', optimizeForSpeed: true };

async function load(browser, sessionId, url) {
    const loaded = browser.event('Page.loadEventFired', sessionId);
    const { errorText } = await browser.call('Page.navigate', { url }, sessionId);
    if (errorText) throw new Error(errorText);
    let timer;
    await Promise.race([loaded, new Promise(resolve => { timer = setTimeout(resolve, loadLimitMs); })]);
    clearTimeout(timer);
}

async function shoot(browser, sessionId) {
    const { cssContentSize: { width, height } } = await browser.call('Page.getLayoutMetrics', {}, sessionId);
    const clip = { x: 0, y: 0, width: Math.ceil(width), height: Math.ceil(height), scale: 1 };
    const { data } =
        await browser.call('Page.captureScreenshot', { ...picture, clip, captureBeyondViewport: true }, sessionId);
    return Buffer.from(data, 'base64');
}

const browser = new Browser(task.browser);
await convertAll(task, async ({ address, file }) => {
    const { targetId } = await browser.call('Target.createTarget', { url: 'about:blank' });
    const { sessionId } = await browser.call('Target.attachToTarget', { targetId, flatten: true });
    try {
        await browser.call('Page.enable', {}, sessionId);
        await browser.call('Emulation.setDeviceMetricsOverride', { ...viewport, deviceScaleFactor: 1, mobile: false },
            sessionId);
        await load(browser, sessionId, address);
        await writeFile(file, await shoot(browser, sessionId));
    } finally {
        await browser.call('Target.closeTarget', { targetId });
    }
});
await browser.close();
