'use strict';
// The keyboard alone: arrows and Space choose, Return answers and goes on.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const app = path.join(__dirname, 'app.js');
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'quiz-'));
after(() => fs.rmSync(folder, { recursive: true }));

const button = async (w) => { const { text, enabled } = await w.find('go'); return enabled ? text : `(${text})`; };

test('all questions, one of them answered wrong, the result, and once more', async () => {
    const program = await launch(app);
    const w = await program.window('Quiz');
    assert.deepEqual([await w.text('count'), await w.text('score'), await button(w)], ['Question 1 of 5', '0 right', '(Answer)']);
    await w.press('Enter');
    assert.equal(await w.text('verdict'), '', 'nothing is chosen');
    await w.press('Space, Down, Down, Enter');
    assert.deepEqual([await w.value('answer'), await w.text('verdict'), await button(w)], ['2', 'Right. 51, 57 and 63 are multiples of 3.', 'Next']);
    assert.equal(await w.value('bar'), 0.2);

    await w.press('Enter, Space, Enter');
    assert.deepEqual([await w.text('verdict'), await w.text('score')], ['No: In water. Feet in the water, head in the sun.', '1 right']);
    await w.press('Shift+Tab, Down, Tab');
    assert.equal(await button(w), 'Next', 'an answer is an answer');
    await w.press('Enter, Space, Down, Down, Down, Enter, Enter');
    assert.equal(await w.text('score'), '2 right');
    await w.press('Space, Down, Down, Enter, Enter');
    assert.match(await w.text('question'), /Which language do <b> and <i> belong to\?/);
    await w.press('Space, Enter');
    assert.equal(await button(w), 'Result');
    await w.press('Enter');
    assert.deepEqual([await w.text('count'), (await w.text('question')).split('\n').filter(Boolean), await button(w)],
        ['The end', ['4 of 5 right', 'Where do the roots of a date palm like to stand? In water'], 'Again']);
    await w.press('Enter');
    assert.deepEqual([await w.text('count'), await w.text('score'), await w.value('bar')], ['Question 1 of 5', '0 right', 0]);
    await w.press('Escape');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('questions of one\'s own', async () => {
    const file = path.join(folder, 'own.json');
    fs.writeFileSync(file, JSON.stringify([{ ask: '1 + 1?', answers: ['1', '2'], right: 1, because: '' }]));
    const program = await launch(app, { args: [file] });
    const w = await program.window('Quiz');
    await w.press('Space, Down, Enter, Enter');
    assert.equal(await w.text('question'), '1 of 1 right\nNo mistake.');
    assert.equal(await program.close(), 0);
});
