'use strict';
// The package from outside: its types, its lock file, and what it says when something is missing.

const assert = require('node:assert/strict');
const { execFileSync, spawnSync } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { test } = require('node:test');
const { packageFolder, runScript, scratch } = require('./helpers.js');
const { explain } = require(path.join(packageFolder, 'js', 'loader.js'));

const compiler = path.join(packageFolder, 'node_modules', 'typescript', 'bin', 'tsc');

function compile(file) {
    const types = path.join(packageFolder, 'node_modules', '@types');
    return spawnSync(process.execPath, [compiler, '--noEmit', '--strict', '--target', 'ES2022', '--module', 'commonjs',
        '--moduleResolution', 'node', '--types', 'node', '--typeRoots', types, file], { encoding: 'utf8' });
}

test('the types compile with a sample that uses all of them', () => {
    const { stdout, status } = compile(path.join(__dirname, 'types', 'sample.ts'));
    assert.deepEqual([stdout, status], ['', 0]);
});

for (const part of ['window', 'controls', 'driver']) {
    test(`the types take every right use of ${part} and refuse every wrong one`, () => {
        const { stdout, status } = compile(path.join(__dirname, 'types', `${part}.ts`));
        assert.deepEqual([stdout, status], ['', 0]);
    });
}

/** The examples are JavaScript without annotations, so their parameters may be of any type; all else is strict. */
test('the types fit every example', () => {
    const folders = { 'tarn-gui': 'index.d.ts', 'tarn-gui/test': 'test.d.ts', esbuild: 'node_modules/esbuild' };
    const settings = path.join(scratch, 'examples.json');
    fs.writeFileSync(settings, JSON.stringify({
        compilerOptions: {
            strict: true, noImplicitAny: false, allowJs: true, checkJs: true, noEmit: true, target: 'es2022', module: 'nodenext', types: ['node'],
            typeRoots: [path.join(packageFolder, 'node_modules', '@types')], skipLibCheck: true,
            paths: Object.fromEntries(Object.entries(folders).map(([name, file]) => [name, [path.join(packageFolder, file)]])),
        },
        include: ['js', 'mjs', 'ts'].map((ending) => path.join(__dirname, '..', '..', 'examples', '**', `*.${ending}`)),
    }));
    const { stdout, status } = spawnSync(process.execPath, [compiler, '--project', settings, '--listFilesOnly'], { encoding: 'utf8' });
    assert.equal(status, 0);
    assert.ok(stdout.split('\n').filter((file) => file.includes(`${path.sep}examples${path.sep}`)).length > 40, stdout);
    const checked = spawnSync(process.execPath, [compiler, '--project', settings], { encoding: 'utf8' });
    assert.deepEqual([checked.stdout, checked.status], ['', 0]);
});

test('the types name exactly what the package exports', () => {
    const text = fs.readFileSync(path.join(packageFolder, 'index.d.ts'), 'utf8');
    const declared = [...text.matchAll(/^export (?:class|function|const|let) (\w+)/gm)].map((match) => match[1]);
    assert.deepEqual([...new Set(declared)].sort(), Object.keys(require(packageFolder)).sort());
});

test('the lock file pins the packages and names no registry', () => {
    const lock = fs.readFileSync(path.join(packageFolder, 'package-lock.json'), 'utf8');
    assert.doesNotMatch(lock, /https?:/);
    assert.match(lock, /"node-addon-api": "\d+\.\d+\.\d+"/);
});

test('the package is found from any folder', () => {
    const out = execFileSync(process.execPath, ['-p', `require(${JSON.stringify(packageFolder)}).GuiWindow.name`],
        { cwd: os.tmpdir(), encoding: 'utf8' });
    assert.equal(out, 'GuiWindow\n');
});

test('what is published is complete: it is found by its name and needs no other file', () => {
    const { name, files } = JSON.parse(fs.readFileSync(path.join(packageFolder, 'package.json'), 'utf8'));
    const published = path.join(scratch, 'elsewhere', 'node_modules', name);
    for (const file of [...files, 'package.json']) {
        fs.cpSync(path.join(packageFolder, file), path.join(published, file), { recursive: true });
    }
    const out = execFileSync(process.execPath, ['-p', `const { GuiWindow } = require(${JSON.stringify(name)});
        new GuiWindow().testReadFile('vfs://GuiWindow/broken.png') > 0`], { cwd: path.join(scratch, 'elsewhere'), encoding: 'utf8' });
    assert.equal(out, 'true\n');
});

const missing = (library) => `${library}: cannot open shared object file: No such file or directory`;

test('a missing library is named together with its package', () => {
    const expected = {
        'libQt6Widgets.so.6': 'libqt6widgets6',
        'libQt6Gui.so.6': 'libqt6gui6',
        'libQt6Core.so.6': 'libqt6core6',
        'libQt6Multimedia.so.6': 'libqt6multimedia6',
        'libicuuc.so.72': 'libicu72',
        'libxcb-cursor.so.0': 'libxcb-cursor0',
        'libxcb.so.1': 'libxcb1',
        'libstdc++.so.6': 'libstdc++6',
    };
    for (const [library, name] of Object.entries(expected)) {
        assert.equal(explain(missing(library), 'the component'),
            `tarn: the library ${library} is missing, which the component needs; install it with "apt-get install ${name}"`);
    }
    assert.match(explain(missing('libother.so.3'), 'the component'), /libother\.so\.3 is missing.*install the package that holds it/);
    assert.equal(explain('undefined symbol: x', 'the component'), 'tarn: the component cannot be loaded: undefined symbol: x');
});

test('a component that lacks a library ends the program with one clear sentence', async () => {
    const source = path.join(scratch, 'lacking.c');
    fs.writeFileSync(source, 'int answer(void); int Init(void) { return answer(); }');
    fs.writeFileSync(path.join(scratch, 'answer.c'), 'int answer(void) { return 42; }');
    const gone = path.join(scratch, 'libQt6Widgets.so.6');
    execFileSync('cc', ['-shared', '-fPIC', '-Wl,-soname,libQt6Widgets.so.99', '-o', gone, path.join(scratch, 'answer.c')]);
    const component = path.join(scratch, 'liblacking.so');
    execFileSync('cc', ['-shared', '-fPIC', '-o', component, source, gone]);
    const { code, stderr } = await runScript('', { env: { TARN_LIBRARY: component } });
    assert.equal(code, 1);
    assert.match(stderr, /Error: tarn: the library libQt6Widgets\.so\.99 is missing, which the component .* needs; install it with "apt-get install libqt6widgets6"/);
});

test('a component file that is no component is refused', async () => {
    const { code, stderr } = await runScript('', { env: { TARN_LIBRARY: '/nowhere/libtarn.so' } });
    assert.equal(code, 1);
    assert.match(stderr, /Error: tarn: .*\/nowhere\/libtarn\.so/);
});

test('the session is one object, kept before the first window and live from then on', async () => {
    const { stdout, stderr, code } = await runScript(`
        const { session } = tarn;
        const { inspect } = require('node:util');
        console.log(inspect(session), Object.keys(session).length, 'currentWindow' in session);
        const window = new tarn.GuiWindow('p');
        window.onGo = function () { console.log(tarn.session === session, session.currentControl === null); this.close(); };
        session.mine = 1;
        console.log(inspect(session).includes('mine: 1'), Object.keys(session).includes('mine'), delete session.mine, session.mine);
        window.open();
        window.testFire(0, 'onGo');`);
    assert.deepEqual([stdout, stderr, code], [['{ currentWindow: null, currentControl: null, currentForm: null } 3 true',
        'true true true undefined', 'true true', ''].join('\n'), '', 0]);
});
