'use strict';
// The keyboard alone, where there is no tray, as in most tests; and with a tray that the test makes up.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { setTimeout: sleep } = require('node:timers/promises');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const app = path.join(__dirname, 'app.js');
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tray-'));
after(() => fs.rmSync(folder, { recursive: true }));

/** Loaded in front of the program: a tray that prints what it is told, and is clicked when a file appears. */
const madeUp = path.join(folder, 'tray.js');
const wish = path.join(folder, 'wish');
fs.writeFileSync(madeUp, `const fs = require('node:fs');
    require(${JSON.stringify(path.join(__dirname, '../../host/node'))}).tray = (options) => {
        const alive = setInterval(() => {
            if (!fs.existsSync(${JSON.stringify(wish)})) return;
            const item = fs.readFileSync(${JSON.stringify(wish)}, 'utf8');
            fs.rmSync(${JSON.stringify(wish)});
            if (item === '') options.onClick(); else options.menu.find(({ text }) => text === item).onClick();
        }, 10);
        return { update: (given) => { Object.assign(options, given); console.log(options.tip, options.icon); }, close: () => clearInterval(alive) };
    };`);

/** Clicks on the picture (''), or on this item of its menu. */
async function pick(item) {
    fs.writeFileSync(`${wish}.new`, item);
    fs.renameSync(`${wish}.new`, wish); // at once
    for (const end = Date.now() + 5000; Date.now() < end && fs.existsSync(wish);) await sleep(10);
}

test('without a tray the window says so and stays; the break comes', async () => {
    const program = await launch(app, { args: ['0.4'] });
    const w = await program.window('Break');
    assert.equal(await w.text('hint'), 'No tray here: the window stays.');
    assert.equal((await w.find('hide'))?.enabled, false);
    await w.press('Escape');
    await w.type('300');
    await w.press('Enter');
    assert.equal(await w.text('left'), 'No break is planned', 'too many minutes');
    await w.press('Ctrl+A');
    await w.type('2');
    await w.press('Alt+W');
    await w.type('Tea!');
    await w.press('Enter');
    assert.equal(await w.text('left'), 'A break in 2 minutes');
    assert.deepEqual([(await w.find('start'))?.text, (await w.find('minutes'))?.enabled], ['Stop', false]);
    const dialog = await program.dialog();
    assert.match(await dialog.text(), /Tea!/);
    await dialog.press('Enter');
    assert.equal(await w.text('left'), 'No break is planned');
    await w.press('Tab, Tab, Space'); // the button Hide is off
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('a break that is stopped does not come, and the window may close meanwhile', async () => {
    const program = await launch(app, { args: ['60'] });
    const w = await program.window('Break');
    await w.press('Enter');
    assert.equal(await w.text('left'), 'A break in 25 minutes');
    await w.press('Enter');
    assert.equal(await w.text('left'), 'No break is planned');
    await w.press('Enter');
    assert.equal(await program.close(), 0);
});

test('with a tray Escape hides the window, which comes back; its menu starts and quits', async () => {
    const program = await launch(app, { args: ['60'], execArgv: ['--require', madeUp] });
    const w = await program.window('Break');
    assert.equal(await w.text('hint'), '');
    await w.press('Escape');
    await assert.rejects(w.text('left'), /the window is closed/);
    await pick('&Start');
    await pick('');
    const again = await program.window('Break');
    for (const end = Date.now() + 5000; Date.now() < end && await again.text('left') !== 'A break in 25 minutes';) await again.idle();
    assert.equal(await again.text('left'), 'A break in 25 minutes');
    assert.match(program.stdout, /^A break in 25 minutes busy\.svg$/m);
    await pick('&Quit');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});
