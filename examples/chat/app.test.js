'use strict';
// Programs that talk to each other, used by the keyboard alone.
const assert = require('node:assert/strict');
const fs = require('node:fs');
const net = require('node:net');
const os = require('node:os');
const path = require('node:path');
const { once } = require('node:events');
const { test } = require('node:test');
const { setTimeout: sleep } = require('node:timers/promises');
const { launch } = require('../../host/node/test');

/** Waits, for 5 seconds at most, until an element has this text: it comes from another program. */
async function shows(w, target, words) {
    let text;
    for (let turn = 0; turn < 100; ++turn, await sleep(50)) {
        text = (await w.text(target)).trim().split('\n').map((line) => line.trim()).filter(Boolean);
        if (text.join('|') === words.join('|')) return;
    }
    assert.deepEqual(text, words);
}

test('three programs hear each other, also when the one that listens ends', async (t) => {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-chat-'));
    t.after(() => fs.rmSync(folder, { recursive: true }));
    const file = path.join(folder, 'socket');
    const stale = net.createServer().listen(file);
    await once(stale, 'listening');
    fs.linkSync(file, path.join(folder, 'left'));
    stale.close();
    await once(stale, 'close');
    fs.renameSync(path.join(folder, 'left'), file); // as a program that was killed leaves it behind

    const join = async (name) => {
        const app = await launch(path.join(__dirname, 'app.js'), { args: [name, file] });
        return { app, w: await app.window(`${name} - Chat`) };
    };
    const ada = await join('ada');
    await shows(ada.w, 'status', ['Waiting for others']);
    const emmy = await join('emmy');
    await shows(emmy.w, 'status', ['Connected']);
    await shows(ada.w, 'said', ['emmy is here']);
    const karl = await join('karl');
    await shows(emmy.w, 'said', ['karl is here']);

    await emmy.w.type('1 < 2 & so on');
    await emmy.w.press('Enter');
    await shows(karl.w, 'said', ['emmy 1 < 2 & so on']);
    await shows(emmy.w, 'said', ['emmy 1 < 2 & so on', 'karl is here']);
    await emmy.w.press('Enter'); // there is nothing to be said
    await ada.w.type('hello');
    await ada.w.press('Tab, Space'); // the button; the keyboard goes back to the field
    await shows(emmy.w, 'said', ['ada hello', 'emmy 1 < 2 & so on', 'karl is here']);
    await shows(karl.w, 'said', ['ada hello', 'emmy 1 < 2 & so on']);

    const stranger = net.connect(file);
    stranger.write('{"from": 7}\nnonsense\n{"from": "bot", "text": "beep"}\n');
    await shows(karl.w, 'said', ['bot beep', 'ada hello', 'emmy 1 < 2 & so on']);
    stranger.destroy();

    assert.equal(await ada.app.close(), 0);
    for (let turn = 0; turn < 100 && !fs.existsSync(file); ++turn) await sleep(50);
    await emmy.w.type('still there?');
    await emmy.w.press('Enter');
    const last = (lines) => lines.trim().split('\n').map((line) => line.trim()).includes('emmy still there?');
    for (let turn = 0; turn < 100 && !last(await karl.w.text('said')); ++turn) await sleep(50);
    assert.ok(last(await karl.w.text('said')), await karl.w.text('said'));
    assert.equal(await emmy.app.close(), 0);
    assert.equal(await karl.app.close(), 0);
    assert.equal(ada.app.stderr + emmy.app.stderr + karl.app.stderr, '');
});
