'use strict';
// Characters of several keys: dead keys and compose sequences of the toolkit's own input method, in every kind of field. A key
// that only begins a character changes nothing.

const { after, before, test } = require('node:test');
const { findActiveWindow, keys, run } = require('./desktop.js');
const { Program } = require('./program.js');

const page = `<html><head><title>Composed</title></head><body width="400" height="300" valign="top">
<input type="text" name="line" onchange="event://onAny" width="300" height="30"><br>
<input type="search" name="search" onchange="event://onAny" width="300" height="30"><br>
<input type="password" name="secret" onchange="event://onAny" width="300" height="30"><br>
<textarea name="area" onchange="event://onAny" width="300" height="60"></textarea><br>
<select name="combo" edit onchange="event://onAny" width="300" height="30"><option value="a">a</select>
</body></html>`;

const source = `
let window, seen = [];
class Composed extends tarn.GuiWindow { onAny() { seen.push(this.form[this.getFocus()]); } }
`;

let program;

before(async () => {
    await run('setxkbmap', 'us', '-variant', 'intl', '-option', 'compose:menu');
    program = await Program.start(source);
    await program.ask(`window = Composed.from(${JSON.stringify(page)}); window.open()`);
    await findActiveWindow('Composed');
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
