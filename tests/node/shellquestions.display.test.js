'use strict';
// What the command tarn-gui asks by a single control: a day, a number, a color, a text of several lines; and where it begins to look for files.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { run } = require('./command.js');
const { findActiveWindow, keys, type } = require('./desktop.js');
const { scratch } = require('./helpers.js');

/** Runs the command, with "Ask" as the title of its window, and presses the keys there. */
async function expect(args, act, expected, input) {
    assert.deepEqual(await run([...args, '--title', 'Ask'], async () => {
        await findActiveWindow('Ask');
        await act();
    }, input), { stdout: '', stderr: '', code: 0, ...expected });
}

test('a day is printed as fields have it, today when none is given', async () => {
    await expect(['--calendar', 'When?', '--value', '2026-12-24'], () => keys('Return'), { stdout: '2026-12-24\n' });
    const today = () => new Date(Date.now() - new Date().getTimezoneOffset() * 60000).toJSON().slice(0, 10);
    const days = [today()];
    const { stdout } = await run(['--calendar', '--title', 'Ask'], async () => {
        await findActiveWindow('Ask');
        await keys('Return');
    });
    assert.ok([...days, today()].includes(stdout.trim()), stdout); // midnight may pass meanwhile
});

test('another day is typed, and one that is none is not taken', async () => {
    await expect(['--calendar', '--value', '2026-12-24'], async () => {
        await keys('ctrl+a', 'Delete', 'Return');
        await findActiveWindow('Ask');
        await type('2027-01-02');
        await keys('Return');
    }, { stdout: '2027-01-02\n' });
});

test('a slider prints its number', async () => {
    await expect(['--scale', 'How much?', '--value', '40'], () => keys('Right', 'Right', 'Return'), { stdout: '42\n' });
    await expect(['--scale', '--min=-1', '--max', '1', '--step', '0.25'], () => keys('Right', 'Return'), { stdout: '-0.75\n' });
});

test('Escape answers no question', async () => {
    for (const kind of ['--calendar', '--scale', '--color', '--text-info']) {
        await expect([kind], () => keys('Escape'), { code: 1 });
    }
});

test('a color is printed in figures', async () => {
    await expect(['--color', '--value', '#6495ed'], () => keys('Return'), { stdout: '#6495ED\n' });
});

const file = path.join(scratch, 'notes.txt');
fs.writeFileSync(file, '\nfirst <b>\n  second & third\n');

test('a text that is only shown prints nothing, whatever is typed', async () => {
    await expect(['--text-info', file], async () => {
        await type('x');
        await keys('Tab', 'space');
    }, { stdout: '' });
});

test('a text that can be changed is printed as it is then', async () => {
    const act = async () => {
        await keys('ctrl+Home');
        await type('more ');
        await keys('Tab', 'space');
    };
    await expect(['--text-info', '--edit', file], act, { stdout: 'more \nfirst <b>\n  second & third\n' });
    await expect(['--text-info', '--edit'], act, { stdout: 'more one\ntwo\n' }, 'one\ntwo');
});

test('a time limit holds for questions', async () => {
    for (const kind of ['--calendar', '--scale', '--color', '--text-info']) {
        await expect([kind, '--timeout', '1.5'], () => {}, { code: 5 });
    }
});

test('a dialog for files begins where it is told, with the files that a pattern names', async () => {
    const folder = fs.mkdtempSync(path.join(scratch, 'files-'));
    fs.writeFileSync(path.join(folder, 'a.txt'), '');
    fs.writeFileSync(path.join(folder, 'b.md'), '');
    await expect(['--file', '--save', '--value', path.join(folder, 'new.txt')], () => keys('Return'), { stdout: `${path.join(folder, 'new.txt')}\n` });
    await expect(['--file', '--folder', '--value', folder], () => keys('Return'), { stdout: `${folder}\n` });
    await expect(['--file', '--value', folder, '--filter', 'Notes (*.md *.rst)'], async () => {
        await keys('shift+Tab', 'Down', 'space', 'Return');
    }, { stdout: `${path.join(folder, 'b.md')}\n` });
});

const mistakes = [
    [['--notify'], '--notify needs a text'],
    [['--notify', 'a', '--buttons', 'b'], '--buttons is not for --notify'],
    [['--notify', 'a', '--icon', 'bell'], '--icon must be info, warning, error, question, not "bell"'],
    [['--text', 'a', '--value', 'b'], '--value is not for --text'],
    [['--scale', '--value', 'much'], '--value must be a number, not "much"'],
    [['--scale', '--value', '101'], '--value must be from 0 to 100, not 101'],
    [['--scale', '--min', '5', '--max', '5'], '--min must be below --max, not 5 and 5'],
    [['--scale', '--step', '0'], '--step must be a number above 0, not "0"'],
    [['--calendar', '--value', '2026-02-30'], '--value must be a day such as 2026-12-24, not "2026-02-30"'],
    [['--color', '--value', '#12'], '--value must be a color such as "#6495ED", not "#12"'],
    [['--file', '--filter', '*.txt'], '--filter must be a name and patterns such as "Texts (*.txt *.md)", not "*.txt"'],
    [['--file', '--folder', '--filter', 'a (b)'], '--folder and --filter do not go together'],
];
for (const [args, message] of mistakes) {
    test(`wrong arguments are told in one line: ${message}`, async () => {
        assert.deepEqual(await run(args), { stdout: '', stderr: `tarn-gui: ${message}\n`, code: 2 });
    });
}

test('a text that is not there is named', async () => {
    const { code, stderr, stdout } = await run(['--text-info', 'missing.txt']);
    assert.deepEqual([code, stdout], [2, '']);
    assert.match(stderr, /missing\.txt/);
});
