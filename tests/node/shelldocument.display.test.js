'use strict';
// Every line of docs/shell.md that calls tarn-gui, run by a shell as its reader would run it.

const assert = require('node:assert/strict');
const { spawn } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, test } = require('node:test');
const { follow, program } = require('./command.js');
const { findActiveWindow, keys } = require('./desktop.js');
const { scratch, sleep, until } = require('./helpers.js');
const { startBus, startService } = require('./notices.js');

const document = fs.readFileSync(path.join(__dirname, '../../docs/shell.md'), 'utf8');
const blocks = (language) => [...document.matchAll(new RegExp(`^\`\`\`${language}\n([^]*?)^\`\`\``, 'gm'))].map((found) => found[1]);
const lines = blocks('sh').flatMap((block) => block.split('\n')).filter((line) => /\btarn-gui\b/.test(line));

/** What the user does in the window of this title, and what the line prints then, by the line's beginning or another part of it. */
const uses = [
    ["'All 12 files", 'Copy', ['Return'], ''],
    ["'The disk is almost", 'Copy', ['Return'], ''],
    ["'The disk is full", 'Copy', ['Escape'], '', 1],
    ["'Go on?", 'Copy', ['Tab', 'space'], 'No\n', 1],
    ["'Keep the old", 'Copy', ['Tab', 'Tab', 'space'], 'Both\n', 2],
    ["'Your name?", 'Sign', ['Return'], 'Ada\n'],
    ["'Password'", 'Sign', ['s', 'e', 'a', 'Return'], 'sea\n'],
    ['--calendar', 'Trip', ['Return'], '2026-12-24\n'],
    ['--scale', 'Sound', ['Right', 'Return'], '45\n'],
    ['--color', 'Paint', ['Return'], '#6495ED\n'],
    ['--file --title Open --filter', 'Open', ['shift+Tab', 'Down', 'space', 'Return'], 'notes.txt\n'],
    ['--file --title Open --multiple', 'Open', ['shift+Tab', 'ctrl+a', 'Return'], 'notes.txt\nother.bin\nperson.html\n'],
    ['--file --title Save', 'Save', ['Return', 'alt+y'] /* it may be replaced */, 'notes.txt\n'],
    ['--file --title Folder', 'Folder', ['Return'], '\n'],
    ["--list 'Which", 'Pick', ['Down', 'Return'], 'tea\t3\n'],
    ['--list --title Pick --multiple', 'Pick', ['Home', 'shift+End', 'Return'], 'tea\nmilk\n'],
    ['--progress', 'Busy', null, ''],
    ['--text-info notes.txt', 'Read', ['Tab', 'space'], ''],
    ['--text-info --edit', 'Read', ['Tab', 'space'], 'tea\nmilk\n'],
    ['--notify', null, null, ''],
    ['person.html', 'Person', ['Tab', 's', 'Tab', 'Tab', 'space'], 'born,secret,who\r\n,s,Ada\n'],
];

const folder = path.join(scratch, 'reader');
let bus;
let service;
let env;
before(async () => {
    fs.mkdirSync(path.join(folder, 'bin'), { recursive: true });
    fs.mkdirSync(path.join(folder, 'work'));
    fs.writeFileSync(path.join(folder, 'bin', 'tarn-gui'), `#!/bin/sh\nexec '${process.execPath}' '${program}' "$@"\n`, { mode: 0o755 });
    fs.writeFileSync(path.join(folder, 'work', 'notes.txt'), 'tea\n');
    fs.writeFileSync(path.join(folder, 'work', 'other.bin'), '');
    fs.writeFileSync(path.join(folder, 'work', 'person.html'), blocks('html')[0]);
    bus = await startBus();
    service = await startService(bus.address);
    env = { ...process.env, PATH: `${path.join(folder, 'bin')}:${process.env.PATH}`, DBUS_SESSION_BUS_ADDRESS: bus.address };
});
after(async () => {
    await service.end();
    bus.end();
});

test('every line of the document is used here, and every use is a line of it', () => {
    assert.equal(lines.length, uses.length);
    for (const [part] of uses) {
        assert.equal(lines.filter((line) => line.includes(part)).length, 1, part);
    }
});

for (const [part, title, pressed, stdout, code = 0] of uses) {
    const line = lines.find((each) => each.includes(part));
    test(`runs: ${line}`, async () => {
        const child = spawn('/bin/sh', ['-c', line], { cwd: path.join(folder, 'work'), env });
        const result = await follow(child, async () => {
            if (pressed !== null) {
                await findActiveWindow(title);
                await sleep(500); // rows and files have come
                for (const key of pressed) {
                    await keys(key);
                    await sleep(200); // a window may come of it
                }
            }
        }, '');
        const inWork = { ...result, stdout: result.stdout.replaceAll(path.join(folder, 'work'), '').replaceAll(/^\//gm, '') };
        assert.deepEqual(inWork, { stdout, stderr: '', code });
    });
}

test('the notification was shown', async () => {
    await until(() => service.notices.length > 0);
    assert.deepEqual(service.notices.map(({ summary, icon }) => [summary, icon]), [['The copy is made.', 'dialog-information']]);
});
