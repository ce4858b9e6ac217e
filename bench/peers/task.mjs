// What every driver of this folder is told, and the settings that they share.
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { parseArgs } from 'node:util';

export const viewport = { width: 1280, height: 800 };
export const jpegQuality = 80;

// Options: --browser PROGRAM --list FILE (one address a line) --out FOLDER --format jpeg|png --jobs N, pages at a time.
// The picture of the nth address, from 1, goes to out/n.format.
export function readTask() {
    const { values } = parseArgs({
        options: {
            browser: { type: 'string' },
            list: { type: 'string' },
            out: { type: 'string' },
            format: { type: 'string' },
            jobs: { type: 'string' },
        },
    });
    const addresses = readFileSync(values.list, 'utf8').split('\n').filter(Boolean);
    return {
        browser: values.browser,
        format: values.format,
        jobs: Number(values.jobs),
        pages: addresses.map((address, number) => ({ address, file: join(values.out, `${number + 1}.${values.format}`) })),
    };
}

// Runs convert(page) for each page, at most jobs at a time, in order. A page that fails is told of and left out.
export async function convertAll({ pages, jobs }, convert) {
    const rest = pages.values();
    await Promise.all(Array.from({ length: jobs }, async () => {
        for (const page of rest) await convert(page).catch(error => complain(page, error));
    }));
}

export function complain(page, error) {
    console.error(`${page.address}: ${String(error.message).split('\n')[0]}`);
}
