'use strict';
// The keyboard alone: a stay is filled in, and told in one language after the other.

const assert = require('node:assert/strict');
const path = require('node:path');
const { test } = require('node:test');
const { launch } = require('../../host/node/test');

const app = path.join(__dirname, 'app.js');
const answer = async (w) => (await w.text('answer')).split('\n').filter(Boolean).map((line) => line.replace(/[\u00A0\u202F\u200E\u200F\u061C]/g, ' '));

test('what is filled in stays when the language changes', async () => {
    const program = await launch(app, { args: ['en'] });
    const w = await program.window('A stay');
    await w.type('Ann');
    await w.press('Alt+I, Ctrl+A');
    await w.type('5');
    await w.press('Tab, Space');
    assert.deepEqual(await answer(w), ['Ann will stay 5 nights, from Fri 6 March to Wed 11 March.', 'Price: €507.50']);

    await w.press('Alt+L, Down'); // the second language
    await w.press('Return');
    assert.equal(await w.title(), 'Ein Aufenthalt');
    assert.deepEqual(await answer(w), ['Ann: 5 Nächte, von Fr., 6. März bis Mi., 11. März.', 'Preis: 507,50 €']);
    assert.deepEqual([await w.value('name'), await w.value('nights'), await w.value('breakfast')], ['Ann', 5, true]);

    await w.press('Alt+S, Up, Return'); // the last one
    assert.equal(await w.title(), 'إقامة');
    assert.deepEqual(await answer(w), ['Ann: ٥ ليال، من الجمعة، ٦ مارس إلى الأربعاء، ١١ مارس.', 'السعر:  ٥٠٧٫٥٠ €']);
    assert.equal((await w.find('nights'))?.label, 'الليالي (I)');
    await w.press('Alt+I, Ctrl+A');
    await w.type('2');
    assert.match((await answer(w))[0], /^Ann: ليلتان،/, 'two has a form of its own');
    assert.deepEqual([await program.close(), program.stderr], [0, '']);
});

test('numbers that are none have no price; the desktop\'s language is the first', async () => {
    const program = await launch(app, { env: { LANG: 'de_DE.UTF-8' } });
    const w = await program.window('Ein Aufenthalt');
    await w.press('Tab, Tab, Ctrl+A, Delete');
    assert.deepEqual(await answer(w), []);
    await w.type('1');
    assert.equal((await answer(w))[0], 'Sie: 1 Nacht, von Fr., 6. März bis Sa., 7. März.');
    assert.equal(await program.close(), 0);
});
