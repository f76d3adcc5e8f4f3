'use strict';
// Measures what pictures take: opens one page, waits until it has been painted, closes it, and prints resident memory before
// the page, at its highest, with the page, after it, and with the page once more, in MiB.
//
//   node tests/soak/pictures.js same COUNT      one picture of 8192 by 8192 pixels, COUNT times
//   node tests/soak/pictures.js photos COUNT    COUNT different photographs of 12 megapixels, each 100 by 100 pixels
//
// The photographs are made with ImageMagick's `convert`, all in a folder that is removed at the end.

const { execFileSync } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const zlib = require('node:zlib');
const { GuiWindow } = require('../../host/node');

const [kind, count] = [process.argv[2], Number(process.argv[3])];
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-pictures-'));
const inFolder = (name) => path.join(folder, name);
process.on('exit', () => fs.rmSync(folder, { recursive: true, force: true }));

function crc32(bytes) {
    let crc = ~0;
    for (const byte of bytes) {
        crc ^= byte;
        for (let bit = 0; bit < 8; ++bit) {
            crc = crc >>> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
        }
    }
    return ~crc >>> 0;
}

/** One bit for each pixel, all of them black: a few kilobytes. */
function blackPng(side) {
    const number = (value) => { const bytes = Buffer.alloc(4); bytes.writeUInt32BE(value); return bytes; };
    const chunk = (name, data) => {
        const named = Buffer.concat([Buffer.from(name), data]);
        return Buffer.concat([number(data.length), named, number(crc32(named))]);
    };
    const header = Buffer.concat([number(side), number(side), Buffer.from([1, 0, 0, 0, 0])]);
    const rows = zlib.deflateSync(Buffer.alloc((side / 8 + 1) * side));
    return Buffer.concat([Buffer.from('\x89PNG\r\n\x1a\n', 'latin1'), chunk('IHDR', header), chunk('IDAT', rows),
        chunk('IEND', Buffer.alloc(0))]);
}

function writeSame() {
    fs.writeFileSync(inFolder('one.png'), blackPng(8192));
    return '<img src="one.png">'.repeat(count);
}

/** A few are made, the others are links to them: the program sees different files. */
function writePhotos() {
    const made = 4;
    for (let i = 0; i < made; ++i) {
        execFileSync('convert', ['-size', '4000x3000', `plasma:tomato-steelblue`, '-seed', `${i}`, '-quality', '85', inFolder(`${i}.jpg`)]);
    }
    for (let i = made; i < count; ++i) {
        fs.linkSync(inFolder(`${i % made}.jpg`), inFolder(`${i}.jpg`));
    }
    return Array.from({ length: count }, (_, i) => `<img src="${i}.jpg" width="100" height="100">`).join('');
}

function memory(field) {
    const line = new RegExp(`^${field}:\\s+(\\d+) kB`, 'm').exec(fs.readFileSync('/proc/self/status', 'utf8'));
    return Math.round(Number(line[1]) / 1024);
}

const sleep = (ms) => new Promise((resolve) => { setTimeout(resolve, ms); });

async function run() {
    const write = (name, content) => fs.writeFileSync(inFolder(name), `<html><body width="640" height="480">${content}</body></html>`);
    write('page.html', kind === 'same' ? writeSame() : writePhotos());
    write('empty.html', 'nothing');
    const empty = new GuiWindow(inFolder('empty.html'));
    empty.open();
    await sleep(300);
    const before = memory('VmRSS');
    const started = Date.now();
    const page = new GuiWindow(inFolder('page.html'));
    page.open();
    const opened = Date.now() - started;
    await sleep(1000);
    const [open, most] = [memory('VmRSS'), memory('VmHWM')];
    page.setText('');
    page.close();
    await sleep(500);
    const after = memory('VmRSS');
    const second = new GuiWindow(inFolder('page.html'));
    second.open();
    await sleep(1000);
    console.log(`${kind} ${count}: before ${before}, at most ${most}, open ${open}, after ${after}, open again ${memory('VmRSS')} MiB; `
        + `opened in ${opened} ms`);
    second.close();
    empty.close();
}

run();
