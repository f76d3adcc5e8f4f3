'use strict';
// The player, used by the keyboard alone. Machines that test need no sound: that the player says once.
const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { setTimeout: sleep } = require('node:timers/promises');
const { launch } = require('../../host/node/test');
const { readWav } = require('./wav');

/** A file of 8,000 samples a second, of two channels of 16 bits, with a chunk before its sound that is of no interest. */
function writeWav(file, seconds) {
    const data = Buffer.alloc(seconds * 32000, Buffer.from([1, 2, 3, 4]));
    const head = Buffer.from('RIFF....WAVEfmt \x10\0\0\0\x01\0\x02\0\x40\x1f\0\0\0\x7d\0\0\x04\0\x10\0LIST\x03\0\0\0odd\0data....', 'latin1');
    head.writeUInt32LE(head.length - 8 + data.length, 4);
    head.writeUInt32LE(data.length, head.length - 4);
    fs.writeFileSync(file, Buffer.concat([head, data]));
}

function folderOf(t, tracks) {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-music-'));
    t.after(() => fs.rmSync(folder, { recursive: true }));
    Object.entries(tracks).forEach(([name, seconds]) => writeWav(path.join(folder, `${name}.wav`), seconds));
    return folder;
}

test('what is left of a file is a file', (t) => {
    const folder = folderOf(t, { one: 2 });
    const wav = readWav(path.join(folder, 'one.wav'));
    assert.equal(wav.seconds, 2);
    assert.deepEqual(wav.from(0), fs.readFileSync(path.join(folder, 'one.wav')));
    fs.writeFileSync(path.join(folder, 'rest.wav'), wav.from(1.50001));
    assert.equal(readWav(path.join(folder, 'rest.wav')).seconds, 0.5);
    assert.deepEqual([...wav.from(1.50001).subarray(-4)], [1, 2, 3, 4], 'cut between samples');
    fs.writeFileSync(path.join(folder, 'rest.wav'), 'RIFFxxxxWAVE');
    assert.throws(() => readWav(path.join(folder, 'rest.wav')), /is no \.wav file/);
});

test('tracks are played, paused, turned and sought', async (t) => {
    const folder = folderOf(t, { a: 100, b: 1, c: 65 });
    fs.writeFileSync(path.join(folder, 'broken.wav'), 'nothing');
    const temporary = folderOf(t, {});
    const app = await launch(path.join(__dirname, 'app.js'), { args: [folder], env: { TMPDIR: temporary } });
    const w = await app.window('Music');
    const becomes = async (target, wanted) => {
        for (let turn = 0; turn < 100 && !wanted.test(await w.text(target)); ++turn) await sleep(40);
        assert.match(await w.text(target), wanted);
    };
    assert.deepEqual((await w.rows('list')).map(({ texts }) => texts), [['a', '1:40'], ['b', '0:01'], ['c', '1:05']]);
    assert.equal(await w.text('play'), 'Play');
    await w.press('Ctrl+P');
    assert.equal(await w.text('play'), 'Pause');
    await becomes('time', /^0:01 of 1:40$/);
    await w.press('Ctrl+P');
    const stopped = await w.text('time');
    await sleep(1200);
    assert.equal(await w.text('time'), stopped, 'it is paused');

    await w.press('Shift+Tab, Shift+Tab, Shift+Tab, Shift+Tab, PgUp'); // from the list to the slider, up by ten of a hundred
    assert.match(await w.text('time'), /^0:1\d of 1:40$/);
    await w.press('Alt+Left'); // to its beginning
    assert.equal(await w.text('time'), '0:00 of 1:40');
    await w.press('Alt+Right, Ctrl+P'); // the short one, and on by itself
    await becomes('title', /^c$/);
    assert.equal((await w.rows('list')).findIndex(({ selected }) => selected), 2);
    await w.press('End'); // of the slider: the end of the last track
    await becomes('title', /^a$/);
    assert.equal(await w.text('play'), 'Play', 'at the end it stops');

    await w.press('Tab, Tab, Tab, Tab, Down, Down, Enter'); // the last track, from the list
    assert.equal(await w.text('title'), 'c');
    assert.equal(await w.text('play'), 'Pause');
    await w.press('Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.match(app.stderr, /^(guiSound::play\(\) - movies are silent; .*\n)?$/);
    assert.deepEqual(fs.readdirSync(temporary).filter((name) => name.startsWith('tarn-')), [], 'nothing is left behind');
});

test('a folder without music is none', async (t) => {
    const app = await launch(path.join(__dirname, 'app.js'), { args: [folderOf(t, {})] });
    const w = await app.window('Music');
    await w.press('Ctrl+P, Alt+Right, Alt+Left');
    assert.equal(await w.text('title'), 'Nothing to play');
    assert.equal(await w.text('time'), '0:00 of 0:00');
    await w.press('Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
});
