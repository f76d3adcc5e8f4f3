'use strict';
// The command tarn-gui as a shell script uses it: what is shown, what is printed, the exit code.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { run } = require('./command.js');
const { closeByUser, findActiveWindow, keys, type } = require('./desktop.js');
const { packageFolder, scratch, sleep } = require('./helpers.js');
const { version } = require(path.join(packageFolder, 'package.json'));

const page = path.join(scratch, 'order.html');
fs.writeFileSync(page, `<html><head><title>Order</title></head><body width="300" height="160">
<input type="text" name="who" width="200" height="26"><br><input type="checkbox" name="milk" height="24">Milk<br>
<input type="button" name="a" value="OK" onclick="event://ok"><input type="button" name="b" value="Cancel" onclick="event://cancel">
<input type="button" name="c" value="Three" onclick="event://exit/3">
</body></html>`);

async function expectPage(args, pressed, expected) {
    assert.deepEqual(await run([page, ...args], async () => {
        await findActiveWindow('Order');
        await keys(...pressed);
    }), { stderr: '', ...expected });
}

test('a button of a page prints its values and decides the exit code', async () => {
    await expectPage(['who=Ann'], ['Tab', 'Tab', 'space'], { stdout: '{"milk":false,"who":"Ann"}\n', code: 0 });
    await expectPage(['milk=yes'], ['Tab', 'Tab', 'Tab', 'space'], { stdout: '{"milk":true,"who":""}\n', code: 1 });
    await expectPage(['milk=no', 'who=a=b'], ['Tab', 'Tab', 'Tab', 'Tab', 'space'], { stdout: '{"milk":false,"who":"a=b"}\n', code: 3 });
});

test('values are printed for a shell and as a table', async () => {
    await expectPage(['--format', 'shell', 'who=it\'s "me"'], ['Tab', 'Tab', 'space'], { stdout: 'milk=\'false\'\nwho=\'it\'\\\'\'s "me"\'\n', code: 0 });
    await expectPage(['--format', 'csv', 'who=a, "b"'], ['Tab', 'Tab', 'space'], { stdout: 'milk,who\r\nfalse,"a, ""b"""\n', code: 0 });
});

test('a page that the user closes prints nothing', async () => {
    const { code, stdout } = await run([page], async () => closeByUser(await findActiveWindow('Order')));
    assert.deepEqual([code, stdout], [1, '']);
});

test('a title and a time limit hold for a page', async () => {
    const { code, stdout } = await run([page, '--title', 'Other', '--timeout', '1.5'], () => findActiveWindow('Other'));
    assert.deepEqual([code, stdout], [5, '']);
});

test('a message prints its button, whose number is the exit code', async () => {
    const args = ['--text', 'Really?', '--title', 'Ask', '--buttons', 'Yes,No,Later'];
    assert.deepEqual(await run(args, async () => {
        await findActiveWindow('Ask');
        await keys('Tab', 'space');
    }), { stdout: 'No\n', stderr: '', code: 1 });
});

test('a field prints what was typed', async () => {
    const args = ['--entry', 'Name?', '--title', 'Ask', '--value', 'Ada'];
    assert.deepEqual(await run(args, async () => {
        await findActiveWindow('Ask');
        await type('Grace');
        await keys('Return');
    }), { stdout: 'Grace\n', stderr: '', code: 0 });
});

test('a list prints the lines that were chosen as they came', async () => {
    const lines = Array.from({ length: 3000 }, (_, i) => `name ${i}\tsize | ${i}`);
    assert.deepEqual(await run(['--list', '--multiple', '--columns', 'Name,Size', '--title', 'Pick'], async () => {
        await findActiveWindow('Pick');
        await sleep(500);
        await keys('End', 'shift+Up', 'Return');
    }, `${lines.join('\n')}\n`), { stdout: `${lines.slice(-2).join('\n')}\n`, stderr: '', code: 0 });
});

test('a list without a choice stays open, and Escape closes it', async () => {
    assert.deepEqual(await run(['--list', 'Which?', '--title', 'Pick'], async () => {
        await findActiveWindow('Pick');
        await keys('Return');
        await findActiveWindow('Pick');
        await keys('Escape');
    }, 'a\n'), { stdout: '', stderr: '', code: 1 });
});

test('rows are shown before the input ends, and what was chosen stays', async () => {
    assert.deepEqual(await run(['--list', '--title', 'Pick'], async (child) => {
        child.stdin.write('first\nsecond\n');
        await findActiveWindow('Pick');
        await sleep(600);
        await keys('Down', 'Down');
        child.stdin.write('third\n');
        await sleep(600);
        await keys('Return');
    }, null), { stdout: 'second\n', stderr: '', code: 0 });
});

test('progress ends with its input', async () => {
    assert.deepEqual(await run(['--progress', 'Working', '--close', '--title', 'Busy'], async (child) => {
        child.stdin.write('# one\n10\nnothing\n');
        await findActiveWindow('Busy');
        child.stdin.end('300\n');
    }, null), { stdout: '', stderr: '', code: 0 });
});

test('progress that the user cancels ends at once', async () => {
    assert.deepEqual(await run(['--progress', '--title', 'Busy'], async (child) => {
        child.stdin.write('10\n');
        await findActiveWindow('Busy');
        await keys('Escape');
    }, null), { stdout: '', stderr: '', code: 1 });
});

const mistakes = [
    [[], 'no page is named; --help tells more'],
    [['--bad'], "Unknown option '--bad'"],
    [['--text', '--list'], '--text and --list do not go together'],
    [['--text'], '--text needs a text'],
    [['--text', 'a', 'b'], '"b" is one text too many'],
    [['--entry', 'a', '--multiple'], '--multiple is not for --entry'],
    [[page, '--close'], '--close is not for a page'],
    [[page, '--format', 'xml'], '--format must be json, shell, csv, not "xml"'],
    [[page, '--timeout', 'soon'], '--timeout must be a number of seconds, not "soon"'],
    [[page, 'milk'], '"milk" is no NAME=VALUE'],
    [[page, 'nobody=x'], `${page} has no control "nobody"`],
];
for (const [args, message] of mistakes) {
    test(`wrong arguments are told in one line: ${message.replace(page, 'PAGE')}`, async () => {
        assert.deepEqual(await run(args), { stdout: '', stderr: `tarn-gui: ${message}\n`, code: 2 });
    });
}

test('a page that is not there is named', async () => {
    const { code, stderr, stdout } = await run(['missing.html']);
    assert.deepEqual([code, stdout], [2, '']);
    assert.match(stderr, /missing\.html/);
});

test('help and version need no display', async () => {
    assert.match((await run(['--help'])).stdout, /^usage: tarn-gui /);
    assert.equal((await run(['--version'])).stdout, `${version}\n`);
});
