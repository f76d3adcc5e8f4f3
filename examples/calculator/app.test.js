'use strict';
// The calculator, used by the keyboard alone.
const assert = require('node:assert/strict');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');
const { evaluate } = require('./evaluate');

test('lines come to what they should', () => {
    const lines = { '1 + 2 * 3': 7, '(1 + 2) * 3': 9,
        '2 (3 + 4)^2': 98, '-2^2': -4, '2^3^2': 512, '2^-1': 0.5, '50%': 0.5, '200 * 15%': 30,
        'sqrt 16 + 1': 5, '7 - 2 / 4': 6.5, '1e3': 1000, '.5': 0.5, '2pi': 2 * Math.PI, 'round(sin pi)': 0, 'PI / pi': 1 };
    for (const [line, value] of Object.entries(lines)) assert.equal(evaluate(line), value, line);
    const wrong = { '2 +': 'a number is missing at the end', '(1': 'a ) is missing', '1 2': 'what is 2 for?',
        '1 + x': 'what is "x"?', '1 $ 2': 'what is $ for?', 'sqrt': 'a number is missing at the end', '* 2': 'a number is missing before *', '': 'a number is missing at the end' };
    for (const [line, message] of Object.entries(wrong)) assert.throws(() => evaluate(line), { name: 'SyntaxError', message }, line);
});

test('from the first digit to the end by the keyboard', async () => {
    const app = await launch(path.join(__dirname, 'app.js'));
    const w = await app.window('Calculator');
    await w.type('12 * (3 + 4');
    assert.equal(await w.text('result'), '12', 'the last line that was whole');
    await w.press('Enter');
    assert.equal(await w.text('result'), 'a ) is missing');
    await w.type(')');
    assert.equal(await w.text('result'), '84');
    await w.press('Enter');
    assert.equal(await w.value('line'), '84');

    await w.press('End');
    await w.type(' / 10');
    await w.press('Enter');
    const texts = (await w.rows('tape')).map((row) => row.texts);
    assert.deepEqual(texts, [['84 / 10', '8.4'], ['12 * (3 + 4)', '84']]);

    await w.press('Escape');
    assert.equal(await w.value('line'), '');
    assert.equal(await w.text('result'), '0');

    await w.press('Ctrl+T, End, Enter'); // the oldest line of the tape
    assert.equal(await w.value('line'), '12 * (3 + 4)');
    await w.press('Ctrl+Shift+C, Escape, Ctrl+V');
    assert.equal(await w.value('line'), '84', 'the result was on the clipboard');

    await w.press('Escape, Tab, Tab, Space'); // C, then ( by its button
    await w.type('0.1+0.2)');
    assert.equal(await w.text('result'), '0.3');
    await w.press('Ctrl+Q');
    assert.deepEqual(await app.exit, { code: 0, signal: null });
    assert.equal(app.stderr, '');
});
