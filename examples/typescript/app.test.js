'use strict';
// The keyboard alone; and that app.js is what the compiler makes of app.ts, and that the types find mistakes.

const assert = require('node:assert/strict');
const { spawnSync } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, test } = require('node:test');
const { launch } = require('../../host/node/test');

const compiler = path.join(__dirname, '..', '..', 'host', 'node', 'node_modules', 'typescript', 'bin', 'tsc'); // nothing is fetched
const folder = fs.mkdtempSync(path.join(__dirname, '.test-')); // beside app.ts, since that names its imports from there
const out = fs.mkdtempSync(path.join(os.tmpdir(), 'typescript-'));
after(() => [folder, out].forEach((each) => fs.rmSync(each, { recursive: true })));
const read = (file) => fs.readFileSync(file, 'utf8');
const compile = (...args) => spawnSync(process.execPath, [compiler, ...args], { encoding: 'utf8' });

test('amounts are converted as one types, from and to any unit', async () => {
    const program = await launch(path.join(__dirname, 'app.js'));
    const w = await program.window('Converter');
    assert.equal(await w.value('result'), '0.001');
    await w.type('2.5');
    assert.equal(await w.value('result'), '0.0025');
    await w.press('Tab');
    await w.type('mi'); // of the list that has the keyboard
    assert.deepEqual([await w.value('from'), await w.value('result')], ['mile', '4.02336']);
    await w.press('Tab, Tab, Tab, Space'); // past the result and its unit
    assert.deepEqual([await w.value('from'), await w.value('to'), await w.value('result')], ['kilometre', 'mile', '1.553428']);
    await w.press('Alt+W, End');
    assert.deepEqual([await w.value('from'), await w.value('to'), await w.value('result')], ['Celsius', 'Fahrenheit', '36.5']);
    await w.press('Alt+A, Ctrl+A, Delete');
    assert.equal(await w.value('result'), '');
    await w.type('-40');
    assert.equal(await w.value('result'), '-40');
    assert.deepEqual([await program.close(), program.stderr], [0, '']);
});

test('app.js is compiled from app.ts', () => {
    const { status, stdout } = compile('-p', __dirname, '--outDir', out);
    assert.deepEqual([status, stdout], [0, '']);
    assert.equal(read(path.join(__dirname, 'app.js')), read(path.join(out, 'app.js')), 'tsc makes it anew');
});

test('mistakes are errors of the compiler', () => {
    const source = read(path.join(__dirname, 'app.ts')).replace("'../../host/node'", "'../../../host/node'")
        .replace('const { amount } = this.form', 'const { amuont } = this.form').replace("super('converter.html')", 'super(7)');
    fs.writeFileSync(path.join(folder, 'app.ts'), source);
    fs.copyFileSync(path.join(__dirname, 'tsconfig.json'), path.join(folder, 'tsconfig.json'));
    const { stdout } = compile('-p', folder, '--noEmit');
    assert.match(stdout, /error TS2339: Property 'amuont' does not exist on type 'Values'/);
    assert.match(stdout, /error TS2345: Argument of type '7' is not assignable to parameter of type 'Path \| undefined'/);
    assert.doesNotMatch(stdout, /TS2307/, 'the package is found');
});
