'use strict';
// The desktop's own dialogs and the clipboard, used by mouse and keyboard: over a window, without one, from a handler, and while
// the program goes on.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { execFileSync } = require('node:child_process');
const { after, afterEach, before, test } = require('node:test');
const { click, closeByUser, findActiveWindow, findWindow, keys, type, waitGone, xdotool } = require('./desktop.js');
const { scratch } = require('./helpers.js');
const { Program } = require('./program.js');

fs.writeFileSync(path.join(scratch, 'owner.html'), `<html><head><title>Owner</title></head><body width="420" height="160" valign="top">
<input type="button" name="ask" value="Ask" width="200" height="60" onclick="event://onAsk"></body></html>`);
const folder = path.join(scratch, 'files');
fs.mkdirSync(path.join(folder, 'inner'), { recursive: true });
for (const name of ['one.txt', 'two.txt', 'three.md']) {
    fs.writeFileSync(path.join(folder, name), name);
}

let program;

before(async () => { program = await Program.start('let window, got, ticks = 0; setInterval(() => ++ticks, 5).unref();'); });
after(() => program.end());
afterEach(() => program.ask('window?.close()'));

/** Saves what a window looks like, for whoever wants to look: TARN_PICTURES names a folder. */
function picture(window, name) {
    if (process.env.TARN_PICTURES) {
        execFileSync('import', ['-window', window, path.join(process.env.TARN_PICTURES, `${name}.png`)]);
    }
}

/** Starts a call that waits for the user; `got` becomes [what it returns]. */
const start = (call) => program.ask(`got = undefined; void setTimeout(async () => {
    try { got = [await tarn.${call}]; } catch (error) { got = String(error); }
})`);

/** Opens the dialog, does what the user does in it, and gives what the program got. */
async function use(call, title, act, wanted, shown = title) {
    await start(call);
    const dialog = await findActiveWindow(title);
    if (shown !== null) {
        picture(dialog, shown);
    }
    await act(dialog);
    await program.becomes('got', [wanted]);
    await waitGone(title);
}

for (const suffix of ['', 'Async']) {
    test(`alert${suffix}: the name of the button, null when it is closed`, async () => {
        await use(`alert${suffix}('Saved.', { title: 'Plain' })`, 'Plain', () => keys('Return'), 'OK');
        await use(`alert${suffix}('Saved.', { title: 'Plain' })`, 'Plain', () => keys('Escape'), null, null);
        await use(`alert${suffix}('Saved.', { title: 'Plain' })`, 'Plain', closeByUser, null, null);
        const options = "{ title: 'Three', icon: 'warning', buttons: ['Save & close', 'Discard', 'Back'] }";
        await use(`alert${suffix}('Keep <b>all</b> changes?', ${options})`, 'Three', () => keys('Return'), 'Save & close');
        await use(`alert${suffix}('Keep all changes?', ${options})`, 'Three', () => keys('Tab', 'space'), 'Discard', null);
        await use(`alert${suffix}('Keep all changes?', ${options})`, 'Three', () => keys('Escape'), null, null);
    });

    test(`confirm${suffix}: true or false`, async () => {
        await use(`confirm${suffix}('Delete the order?', { title: 'Delete' })`, 'Delete', () => keys('Return'), true);
        await use(`confirm${suffix}('Delete the order?', { title: 'Delete' })`, 'Delete', () => keys('Escape'), false, null);
    });

    test(`prompt${suffix}: the text, null when it is cancelled`, async () => {
        const options = "{ title: 'Name', value: 'Ada' }";
        await use(`prompt${suffix}('Your <name>?', ${options})`, 'Name', () => keys('End', 'exclam', 'Return'), 'Ada!');
        await use(`prompt${suffix}('Your name?', ${options})`, 'Name', () => keys('BackSpace', 'Return'), '', null);
        await use(`prompt${suffix}('Your name?', ${options})`, 'Name', () => keys('Escape'), null, null);
        await use(`prompt${suffix}('Password?', { title: 'Secret', password: true })`, 'Secret', async () => {
            await type('s3cret');
            await keys('Return');
        }, 's3cret');
    });

    test(`openFile${suffix}: a path, several, null; filters hide the others`, async () => {
        const common = `title: 'Pick', folder: ${JSON.stringify(folder)}`;
        const texts = "filters: [{ name: 'Texts', patterns: ['*.txt'] }, { name: 'All files', patterns: ['*'] }]";
        await use(`openFile${suffix}({ ${common} })`, 'Pick', async (dialog) => {
            await type('three.md');
            picture(dialog, 'Pick a file');
            await keys('Return');
        }, path.join(folder, 'three.md'), null);
        await use(`openFile${suffix}({ ${common}, multiple: true, ${texts} })`, 'Pick', async (dialog) => {
            await type('"one.txt" "two.txt"');
            picture(dialog, 'Pick texts');
            await keys('Return');
        }, [path.join(folder, 'one.txt'), path.join(folder, 'two.txt')], null);
        await use(`openFile${suffix}({ ${common} })`, 'Pick', () => keys('Escape'), null, null);
        await use(`openFile${suffix}({ ${common}, multiple: true })`, 'Pick', () => keys('Escape'), null, null);
    });

    test(`saveFile${suffix}: the name is there already; openFolder${suffix}: a folder`, async () => {
        const common = `folder: ${JSON.stringify(folder)}`;
        await use(`saveFile${suffix}({ title: 'Save as', ${common}, name: 'new.txt' })`, 'Save as', () => keys('Return'), path.join(folder, 'new.txt'));
        await use(`saveFile${suffix}({ title: 'Save as', ${common}, name: 'new.txt' })`, 'Save as', () => keys('Escape'), null, null);
        await use(`openFolder${suffix}({ title: 'Folder', ${common} })`, 'Folder', async () => {
            await type('inner');
            await keys('Return');
        }, path.join(folder, 'inner'));
    });

    test(`pickColor${suffix}: #RRGGBB`, async () => {
        await use(`pickColor${suffix}({ title: 'Colour', color: '#1a2b3c' })`, 'Colour', () => keys('Return'), '#1A2B3C');
        await use(`pickColor${suffix}({ title: 'Colour', color: 'red' })`, 'Colour', () => keys('Return'), '#FF0000', null);
        await use(`pickColor${suffix}({ title: 'Colour' })`, 'Colour', () => keys('Escape'), null, null);
    });
}

/** Opens the window and clicks its button, whose handler is `source`. */
async function clickAsk(source) {
    await program.ask(`calls.length = 0; got = undefined; window = new tarn.GuiWindow('owner.html'); window.onAsk = ${source}; window.open()`);
    await click(await findActiveWindow('Owner'), 60, 30);
}

test('a dialog over a window blocks it, whether it waits or promises, and belongs to it', async () => {
    for (const call of ["tarn.confirm('Sure?', { title: 'Sure' })", "await tarn.confirmAsync('Sure?', { title: 'Sure' })"]) {
        await clickAsk(`async () => { calls.push('asked'); const it = ${call}; calls.push(it); }`);
        const dialog = await findActiveWindow('Sure');
        const owner = await findWindow('Owner');
        const parent = /window id # (0x[0-9a-f]+)/.exec(execFileSync('xprop', ['-id', dialog, 'WM_TRANSIENT_FOR'], { encoding: 'utf8' }))?.[1];
        assert.equal(Number(parent), Number(owner));
        await click(owner, 60, 30); // the window manager may give the owner the keyboard
        await xdotool('windowactivate', '--sync', dialog);
        await findActiveWindow('Sure');
        await keys('Return');
        await program.becomes('calls', ['asked', true]);
        await waitGone('Sure');
        await program.ask('window.close()');
        await waitGone('Owner');
    }
});

test('timers go on while a dialog waits', async () => {
    await use("alert('Wait', { title: 'Waiting' })", 'Waiting', async () => {
        const from = await program.ask('ticks');
        await program.becomes(`ticks > ${from} + 20`, true);
        await keys('Return');
    }, 'OK', null);
});

test('a dialog whose window is closed answers that it was closed', async () => {
    await clickAsk("async () => { got = [await tarn.alertAsync('Hello', { title: 'Orphan', buttons: ['Yes'] })]; }");
    await findActiveWindow('Orphan');
    await program.ask('window.close()');
    await program.becomes('got', [null]);
    await waitGone('Orphan');
});

test('dialogs stand upon each other', async () => {
    await start("alert('First', { title: 'First' })");
    await findActiveWindow('First');
    await use("prompt('Second', { title: 'Second', value: 'x' })", 'Second', () => keys('Return'), 'x', null);
    await findActiveWindow('First');
    await program.ask('got = undefined');
    await keys('Return');
    await program.becomes('got', ['OK']);
});

test('the clipboard is read and written, also by other programs', async () => {
    await program.ask('tarn.clipboard.writeText("grün \u{1f600}\\n2")');
    assert.equal(await program.ask('tarn.clipboard.readText()'), 'grün \u{1f600}\n2');
    await program.ask('tarn.clipboard.writeText("grün \u{1f600}")');
    await use("prompt('Paste', { title: 'Paste' })", 'Paste', () => keys('ctrl+v', 'Return'), 'grün \u{1f600}', null);
    await use("prompt('Copy', { title: 'Copy', value: 'copied' })", 'Copy', () => keys('ctrl+a', 'ctrl+c', 'Escape'), null, null);
    assert.equal(await program.ask('tarn.clipboard.readText()'), 'copied');
});
