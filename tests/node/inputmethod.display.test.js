'use strict';
// Characters of several keys: dead keys and compose sequences of the toolkit's own input method, in every kind of field. A key
// that only begins a character changes nothing.

const { after, before, test } = require('node:test');
const { startComposing } = require('./composing.js');
const { keys, run } = require('./desktop.js');

let program;

before(async () => {
    await run('setxkbmap', 'us', '-variant', 'intl', '-option', 'compose:menu');
    program = await startComposing();
});
after(async () => {
    await program.ask('window.close()');
    await program.end();
});

for (const name of ['line', 'search', 'secret', 'area', 'combo']) {
    const text = `window.control('${name}').value`;

    test(`${name}: a dead key and a letter are one change`, async () => {
        await program.ask(`window.setFocus('${name}'); window.control('${name}').value = ''; seen = []`);
        await keys('dead_acute');
        await keys('e');
        await program.becomes(text, 'é');
        await program.becomes('seen', ['é']);
    });

    test(`${name}: a compose sequence is one change`, async () => {
        await program.ask(`window.setFocus('${name}'); window.control('${name}').value = ''; seen = []`);
        await keys('Multi_key');
        await keys('o');
        await keys('e');
        await program.becomes(text, 'œ');
        await program.becomes('seen', ['œ']);
    });

    test(`${name}: a dead key that is given up changes nothing`, async () => {
        await program.ask(`window.setFocus('${name}'); window.control('${name}').value = ''; seen = []`);
        await keys('dead_acute');
        await keys('BackSpace');
        await keys('x');
        await program.becomes(text, 'x');
        await program.becomes('seen', ['x']);
    });
}
