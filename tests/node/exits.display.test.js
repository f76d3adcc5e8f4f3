'use strict';
// How a program ends whose windows were on a display. What goes wrong between the toolkit's last static objects goes wrong
// by chance, so each way is taken TARN_EXITS times, the pages in turn: the exit code or signal must be right and nothing may
// be printed. tests/node/exits.fake.test.js has more ways, without a display.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { before, test } = require('node:test');
const { runMany, runScript, scratch } = require('./helpers.js');

const times = Number(process.env.TARN_EXITS ?? 20);
const width = 3;
const parts = path.join(__dirname, '..', 'pages', 'parts');

const pages = {
    'menu.html': `<object classid="menu" name="m"><menu name="file" value="File"><param name="open" value="Open"></menu></object>
        <form name="f"><input type="text" name="a" value="text"><input type="submit" name="b" value="Go"></form>`,
    'picture.html': '<img src="picture.png"><img src="small.gif"><img src="tall.jpg" width="20">',
    'lists.html': `<form><select name="s" size="4"><option value="1">one<option value="2">two</select><select name="t"><option>three</select>
        <object classid="treeview" name="l"><option value="1" text="row"><option value="2" text="leaf" parent="1"></object><textarea name="x">text</textarea></form>`,
    'movie.html': '<img src="movie.avz" loop><img src="movie.avi"><img src="tone.wav">',
};

const ways = {
    'the windows are closed': { source: 'windows.forEach((window) => window.close());', code: 0 },
    'process.exit()': { source: 'process.exit(3);', code: 3 },
    'an uncaught throw': { source: "throw new Error('thrown');", code: 1, stderr: /Error: thrown/ },
    SIGTERM: { source: "console.log('ready');", signal: 'SIGTERM' },
};

before(() => {
    for (const name of ['picture.png', 'small.gif', 'tall.jpg', 'movie.avi', 'movie.avz']) {
        fs.copyFileSync(path.join(parts, name), path.join(scratch, name));
    }
    fs.writeFileSync(path.join(scratch, 'tone.wav'), tone(1));
    for (const [name, content] of Object.entries(pages)) {
        fs.writeFileSync(path.join(scratch, name), `<html><head><title>${name}</title></head>
            <body width="300" height="200">${content}</body></html>`);
    }
});

/** A WAV file of this many seconds, 8000 bytes each. */
function tone(seconds) {
    const header = Buffer.from('RIFF____WAVEfmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x40\x1f\0\0\x01\0\x08\0data____', 'latin1');
    const samples = Buffer.alloc(8000 * seconds, 128);
    header.writeUInt32LE(header.length - 8 + samples.length, 4);
    header.writeUInt32LE(samples.length, header.length - 4);
    return Buffer.concat([header, samples]);
}

const names = Object.keys(pages);
/** Where there is no audio device, that is said. */
const silence = /^guiSound::play\(\) - movies are silent; there is no audio device\n/m;
const program = (index, source) => `
    const windows = [0, 1].map(() => new tarn.GuiWindow(${JSON.stringify(names[index % names.length])}));
    windows.forEach((window) => window.open());
    setTimeout(() => { ${source} }, ${index % 5 * 10});`;

for (const [name, { source, code = null, signal = null, stderr = /^$/ }] of Object.entries(ways)) {
    test(`a program with windows on a display ends well: ${name}`, async () => {
        const onOutput = signal ? (text, child) => child.kill(signal) : undefined;
        const results = await runMany(times, width, (index) => runScript(program(index, source), { limitMs: 30000, onOutput }));
        const bad = results.map((result, index) => ({ ...result, page: names[index % names.length] }))
            .filter((result) => result.code !== code || result.signal !== signal || !stderr.test(result.stderr.replace(silence, '')));
        assert.deepEqual(bad, [], `${bad.length} of ${times}`);
    });
}
