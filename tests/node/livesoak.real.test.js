'use strict';
// Live reload of a large page that is in use, a thousand times: nothing typed is lost, and memory stays as it is. TARN_SAVES in
// the environment: how many saves; TARN_TELL=1 prints how long they took.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const { test } = require('node:test');
const { page, withPage } = require('./live.js');

const saves = Number(process.env.TARN_SAVES ?? 1000);
const warmUp = Math.min(100, saves / 2);
/** How many saves before and after which memory is looked at: what has just been freed comes back with the next one. */
const samples = 10;
/** On an idle machine it is a tenth of that: see docs/performance.md. */
const patienceMs = 500;
const letters = 'abcdefghijklmnopqrstuvwxyz';
const megabyte = 1024 * 1024;

const paragraph = (i) => `<p>Paragraph ${i} of a page that somebody works on, with <b>bold</b> words and <a href="event://nothing">a link</a> in it.\n`;
const filling = Array.from({ length: 9000 }, (_, i) => paragraph(i)).join('');

/** A page of 1 MB whose head says how often it was saved. */
const large = (version) => page(`<h2>Version ${version}</h2><form><input type="text" name="line" size="60"> <input type="checkbox" name="box">
<select name="tea"><option>green<option>black</select> <textarea name="note" rows="3"></textarea></form>${filling}`);

/** Each way of saving in turn. */
const ways = [
    (file, content) => fs.writeFileSync(file, content),
    (file, content) => { fs.writeFileSync(`${file}.new`, content); fs.renameSync(`${file}.new`, file); },
    (file, content) => { fs.writeFileSync(file, content, { flag: 'r+' }); fs.truncateSync(file, Buffer.byteLength(content)); },
];

/** Resident memory of this process without what the collector has not come to, in MiB. */
function memory() {
    globalThis.gc?.();
    return Number(/VmRSS:\s+(\d+)/.exec(fs.readFileSync('/proc/self/status', 'utf8'))[1]) / 1024;
}

function tell(times, start, end) {
    const sorted = [...times].sort((a, b) => a - b);
    const at = (share) => sorted[Math.floor((sorted.length - 1) * share)];
    if (process.env.TARN_TELL) {
        process.stdout.write(`${JSON.stringify({ saves, bytes: large(0).length, medianMs: at(0.5), p95Ms: at(0.95), p99Ms: at(0.99), mostMs: at(1), startMiB: start, endMiB: end })}\n`);
    }
    return at(0.5);
}

test('a page of 1 MB is saved a thousand times while its form is filled in', { timeout: 900000 }, withPage(large(0), async (live) => {
    const { driven, window } = live;
    assert.ok(large(0).length > megabyte);
    await driven.check('box');
    await driven.select('tea', 'black');
    await driven.type('note', 'a note');
    await driven.type('line', 'begin ');
    let typed = 'begin ';
    const resident = [];
    const times = [];
    for (let i = 1; i <= saves; ++i) {
        const letter = letters[i % letters.length];
        typed += letter;
        const saved = live.save('page.html', large(i), ways[i % ways.length]);
        await driven.type(letter, { timeout: 20000 }); // while the page is being shown anew, or just before, or after
        const { problem, ms } = await saved;
        assert.equal(problem, null);
        times.push(ms);
        if (i > saves - samples || (i > warmUp - samples && i <= warmUp)) {
            resident.push(memory());
        }
    }
    const [start, end] = [Math.min(...resident.slice(0, samples)), Math.min(...resident.slice(samples))];
    const median = tell(times, start, end);
    assert.deepEqual({ ...window.form }, { box: true, tea: 'black', note: 'a note', line: typed });
    assert.equal(window.getFocus(), 'line');
    assert.equal(window.find(`Version ${saves}`), 1);
    // A leak of 50 KB a save would take more, and so much comes and goes on a loaded machine.
    assert.ok(end < start + 40, `${start} MiB after ${warmUp} saves, ${end} after ${saves}`);
    assert.ok(median < patienceMs, `${median} ms`);
}));
