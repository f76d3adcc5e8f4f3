'use strict';
// The login window, used by the keyboard alone: with a keyring, which is a script here, and without one.
const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

// Keeps each password in a file, named by the account, and each call in a list.
const script = `#!${process.execPath}
const fs = require('node:fs');
const [verb, ...rest] = process.argv.slice(2);
const file = __dirname + '/kept-' + rest.at(-1);
fs.appendFileSync(__dirname + '/calls', [verb, ...rest].join(' ') + '\\n');
if (verb === 'store' && fs.existsSync(__dirname + '/locked')) process.exit(1);
if (verb === 'store') fs.writeFileSync(file, fs.readFileSync(0));
if (verb === 'clear') fs.rmSync(file, { force: true });
if (verb === 'lookup') fs.existsSync(file) ? process.stdout.write(fs.readFileSync(file)) : process.exit(1);
`;

function begin(t, withKeyring) {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-login-'));
    t.after(() => fs.rmSync(folder, { recursive: true }));
    if (withKeyring) fs.writeFileSync(path.join(folder, 'secret-tool'), script, { mode: 0o755 });
    const open = async () => {
        const app = await launch(path.join(__dirname, 'app.js'), { env: { PATH: folder } });
        const w = await app.window('Sign in');
        await w.idle(); // it has asked for a keyring
        return { app, w };
    };
    return { folder, open };
}

async function ends(app, words) {
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stdout, `${words}\n`);
    assert.equal(app.stderr, '');
}

test('a password is kept, found again and forgotten', async (t) => {
    const { folder, open } = begin(t, true);
    const first = await open();
    await first.w.type('ada');
    await first.w.press('Tab');
    await first.w.type('analytical');
    await first.w.press('Alt+K, Enter');
    await ends(first.app, 'ada has signed in');
    assert.equal(fs.readFileSync(path.join(folder, 'kept-ada'), 'utf8'), 'analytical');
    assert.ok(!fs.readFileSync(path.join(folder, 'calls'), 'utf8').includes('analytical'), 'it is no argument of the command');

    const second = await open();
    await second.w.type('ada');
    await second.w.press('Tab');
    assert.equal(await second.w.value('password'), 'analytical');
    assert.equal(await second.w.value('keep'), true);
    await second.w.press('Alt+K, Enter');
    await ends(second.app, 'ada has signed in');
    assert.ok(!fs.existsSync(path.join(folder, 'kept-ada')));
});

test('a keyring that takes nothing is told of', async (t) => {
    const { folder, open } = begin(t, true);
    fs.writeFileSync(path.join(folder, 'locked'), '');
    const { app, w } = await open();
    await w.type('emmy');
    await w.press('Tab');
    await w.type('invariant');
    await w.press('Alt+K, Enter');
    const dialog = await app.dialog();
    assert.equal(await dialog.text(), 'The keyring has not taken the password.');
    await dialog.press('Enter');
    await ends(app, 'emmy has signed in');
});

test('without a keyring nothing is kept, and the window says so', async (t) => {
    const { open } = begin(t, false);
    const { app, w } = await open();
    assert.equal(await w.text('said'), 'There is no keyring (secret-tool): nothing is kept.');
    assert.equal((await w.find('keep'))?.enabled, false);
    await w.press('Enter'); // both fields are empty
    await w.type('ada');
    await w.press('Alt+P');
    await w.type('engine');
    await w.press('Enter');
    assert.equal(await w.text('said'), 'Name or password is wrong. 2 attempts are left.');
    await w.type('analytical'); // the keyboard is in the field, which is empty
    await w.press('Enter');
    await ends(app, 'ada has signed in');
});

test('three wrong attempts, or Escape, are the end', async (t) => {
    const { open } = begin(t, false);
    const { app, w } = await open();
    await w.type('constructor');
    await w.press('Tab');
    for (const said of [/^.*2 attempts are left\.$/, /^.*One attempt is left\.$/, null]) {
        await w.type('x');
        await w.press('Enter');
        if (said) assert.match(await w.text('said'), said);
    }
    await ends(app, 'nobody has signed in');
    const other = await open();
    await other.w.press('Escape');
    await ends(other.app, 'nobody has signed in');
});
