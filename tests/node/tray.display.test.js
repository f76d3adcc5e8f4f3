'use strict';
// A picture in the desktop's tray: seen, clicked, its menu used; and a desktop without a tray.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { spawn } = require('node:child_process');
const { once } = require('node:events');
const { after, before, test } = require('node:test');
const { findWindow, keys, pixel, waitForPixel, xdotool } = require('./desktop.js');
const { scratch, sleep, until } = require('./helpers.js');
const { Program } = require('./program.js');

for (const [name, colour] of [['red', '#CC0000'], ['blue', '#0000CC']]) {
    fs.writeFileSync(path.join(scratch, `${name}.svg`),
        `<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64"><rect width="64" height="64" fill="${colour}"/></svg>`);
}
const file = (name) => JSON.stringify(path.join(scratch, name));
const middle = [16, 16];

let program;
let panel;
let bar;

before(async () => { program = await Program.start('let tray, got = [];'); });
after(async () => {
    await program.end();
    panel?.kill();
});

/** The panel comes on the screen; the program has asked for a tray before. */
async function startPanel() {
    panel = spawn(process.env.TARN_TRAY_HOST, { stdio: ['ignore', 'pipe', 'inherit'] });
    await once(panel.stdout, 'data');
    bar = await findWindow('Tray');
}

async function click(button) {
    await xdotool('mousemove', '--window', bar, ...middle);
    await sleep(50);
    await xdotool('click', button);
}

test('a desktop without a tray answers with null, and nothing keeps the program', async () => {
    assert.equal(await program.ask(`tarn.tray({ icon: ${file('red.svg')} })`), null);
});

test('the picture stands in the tray, and a click on it is heard', async () => {
    await startPanel();
    const made = `tarn.tray({ icon: ${file('red.svg')}, tip: 'Mail', onClick: (from) => got.push(from === tray), menu: [
        { text: '&Open', onClick: () => got.push('open') }, '-', { text: '&Paused', checked: true, onClick: () => got.push('paused') },
        { text: 'Away', enabled: false, onClick: () => got.push('away') }] })`;
    await until(() => program.ask(`(tray = ${made}) !== null`));
    await waitForPixel(bar, ...middle, '#CC0000');
    await click(1);
    await program.becomes('got', [true]);
});

test('its menu opens at the right button, and tells which item was chosen', async () => {
    await program.ask('got.length = 0');
    for (const [key, wanted] of [['o', 'open'], ['p', 'paused']]) {
        await click(3);
        await sleep(300);
        await keys(key);
        await program.becomes('got.at(-1)', wanted);
    }
    await click(3);
    await sleep(300);
    await keys('a', 'Escape');
    await sleep(200);
    assert.deepEqual(await program.ask('got'), ['open', 'paused'], 'what is grey can not be chosen');
});

test('what is changed is named, and the rest stays', async () => {
    await program.ask(`tray.update({ icon: ${file('blue.svg')} })`);
    await waitForPixel(bar, ...middle, '#0000CC');
    await program.ask('got.length = 0');
    await click(1);
    await program.becomes('got', [true]);
});

test('mistakes are told, and what is shown stays', async () => {
    const thrown = (call) => program.ask(`(() => { try { ${call}; } catch (error) { return error.message; } })()`);
    assert.match(await thrown('tarn.tray()'), /the option "icon" is missing/);
    assert.match(await thrown("tarn.tray({ icon: 'x.png', menus: [] })"), /there is no option "menus"; did you mean "menu"\?/);
    assert.match(await thrown("tray.update({ menu: ['Open'] })"), /an item of "menu" must be "-" or \{ text: "..." \}, not the string "Open"/);
    assert.match(await thrown(`tray.update({ icon: ${file('missing.png')} })`), /no picture can be read from .*missing\.png/);
    assert.equal(await pixel(bar, ...middle), '#0000CC');
});

test('it is gone when it is closed, and closing again does nothing', async () => {
    await program.ask('tray.close(), tray.close()');
    await waitForPixel(bar, ...middle, '#FFFFFF');
});
