'use strict';
// A program with a field of every kind into which people type; it notes each change.

const { findActiveWindow } = require('./desktop.js');
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

/** Starts it, with `env` added to the environment; ready when its window is the active one. */
async function startComposing(env = {}) {
    const program = await Program.start(source, 120000, env);
    await program.ask(`window = Composed.from(${JSON.stringify(page)}); window.open()`);
    await findActiveWindow('Composed');
    return program;
}

module.exports = { startComposing };
