'use strict';
// The package as somebody else gets it: packed, installed from its file into an empty folder without a network, and used from
// there. TARN_TARBALL names a package that is made already; else one is made from what the build has left in host/node/lib.

const assert = require('node:assert/strict');
const { execFile, execFileSync, spawnSync } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { before, test } = require('node:test');
const { promisify } = require('node:util');
const { findWindow, waitForPixel } = require('./desktop.js');
const { packageFolder, scratch } = require('./helpers.js');

const root = path.join(__dirname, '..', '..');
const home = path.join(scratch, 'program');
const installed = path.join(home, 'node_modules', 'tarn-gui');
const tools = path.join(packageFolder, 'node_modules');
let tarball = process.env.TARN_TARBALL;

const write = (name, text) => fs.writeFileSync(path.join(home, name), text);
const read = (name) => fs.readFileSync(path.join(installed, name), 'utf8');

/** Runs Node.js in the folder of the program; [standard output, error output, exit code]. */
function runNode(args, more) {
    const env = { ...process.env, NODE_TEST_CONTEXT: undefined, ...more }; // a test runner that finds this runs no files
    const { stdout, stderr, status } = spawnSync(process.execPath, args, { cwd: home, env, encoding: 'utf8' });
    return [stdout, stderr, status];
}
const node = (...args) => runNode(args, {});
/** The same without a display. */
const nowhere = (...args) => runNode(args, { DISPLAY: undefined, WAYLAND_DISPLAY: undefined, QT_QPA_PLATFORM: undefined });

before(() => {
    tarball ??= execFileSync(path.join(root, 'scripts', 'pack.sh'), [path.join(packageFolder, 'lib'), scratch], { encoding: 'utf8' }).trim();
    fs.mkdirSync(home);
    write('package.json', '{ "name": "program", "private": true }');
    const offline = ['install', '--offline', '--no-audit', '--no-fund', '--no-update-notifier', '--cache', path.join(scratch, 'cache'), tarball];
    execFileSync('npm', offline, { cwd: home, stdio: ['ignore', 'ignore', 'pipe'] });
    const page = (title, content) => `<html><head><title>${title}</title></head><body width="300" height="200" bgcolor="#3060A0">${content}</body></html>`;
    write('page.html', page('Page', 'text'));
    write('picture.html', page('Installed', '<h1>Installed</h1><form><input type="submit" name="ok" value="OK"></form><img src="missing.png">'));
});

test('the package holds what it needs as real files, and no install script', () => {
    const { version, scripts, files, private: isPrivate, dependencies, devDependencies, cpu } = JSON.parse(read('package.json'));
    assert.deepEqual([scripts, isPrivate, dependencies, devDependencies, cpu], [undefined, undefined, undefined, undefined, [process.arch]]);
    assert.equal(path.basename(tarball), `tarn-gui-${version}.tgz`);
    assert.match(fs.readFileSync(path.join(root, 'CMakeLists.txt'), 'utf8'), new RegExp(`^project\\(tarn VERSION ${version} `, 'm'));
    for (const file of [...files, 'lib/tarn.node', 'lib/libtarn.so', 'lib/libtarn-sound.so', 'lib/libtarn-print.so', 'vfs/GuiWindow/broken.png', 'README.md', 'LICENSE']) {
        assert.ok(!fs.lstatSync(path.join(installed, file)).isSymbolicLink(), file);
    }
});

test('live reload from the package: a process stands in front of the program, and a page that is saved is shown', () => {
    write('live.html', '<title>first</title><body>text');
    write('live.js', `
        const tarn = require('tarn-gui');
        const window = new tarn.GuiWindow('live.html');
        window.open();
        setTimeout(() => require('node:fs').writeFileSync('live.html', '<title>second</title><body>text'), 100);
        setInterval(() => window.getTitle() === 'second' && (console.log('shown', process.ppid), process.exit()), 20);
        setTimeout(() => process.exit(3), 20000);`);
    const [stdout, stderr, status] = runNode(['live.js'], { TARN_WATCH: '1' });
    assert.match(stdout, /^shown \d+\n$/);
    assert.deepEqual([stderr, status], ['', 0]);
});

test('its inspector opens', () => {
    write('inspected.js', `const tarn = require('tarn-gui');
        const { drive } = require('tarn-gui/test');
        const window = tarn.GuiWindow.from('<title>Seen</title><body width="200" height="80">text</body>');
        drive(window).then((w) => w.press('Ctrl+Shift+I')).then(() => drive('Inspector - Seen')).then((w) => w.rows('tree'))
            .then((rows) => { console.log(rows.map((row) => row.texts[0]).join()); process.exit(); });`);
    assert.deepEqual(runNode(['inspected.js'], { TARN_INSPECT: '1' }), ['page,“text”\n', '', 0]);
});

test('nothing in the package names a folder of the machine that made it', () => {
    const names = ['tarn.node', 'libtarn.so', 'libtarn-sound.so', 'libtarn-print.so'];
    const dynamic = names.map((name) => execFileSync('readelf', ['-d', path.join(installed, 'lib', name)], { encoding: 'utf8' })).join('');
    assert.match(dynamic, /NEEDED/);
    assert.doesNotMatch(dynamic, /RPATH|RUNPATH/);
});

test('a CommonJS program gets it by its name', () => {
    write('program.cjs', `const { GuiWindow, session } = require('tarn-gui');
        console.log(session.currentWindow === null, new GuiWindow('page.html').isValid(), require('tarn-gui/package.json').name);`);
    assert.deepEqual(node('program.cjs'), ['true true tarn-gui\n', '', 0]);
});

test('its command shows a page', () => {
    const command = path.join(home, 'node_modules', '.bin', 'tarn-gui');
    const { stdout, stderr, status } = spawnSync(command, ['page.html', '--timeout', '0.2'], { cwd: home, encoding: 'utf8' });
    assert.deepEqual([stdout, stderr, status], ['', '', 5]);
    assert.equal(execFileSync(command, ['--version'], { encoding: 'utf8' }), `${JSON.parse(read('package.json')).version}\n`);
});

test('its command makes a program, which npm installs and whose test passes', () => {
    const command = path.join(home, 'node_modules', '.bin', 'tarn-gui');
    assert.equal(execFileSync(command, ['create', 'tea'], { cwd: home, encoding: 'utf8' }), 'tea is made; there: npm start, npm test\n');
    const options = { cwd: path.join(home, 'tea'), env: { ...process.env, NODE_TEST_CONTEXT: undefined }, encoding: 'utf8' };
    assert.match(execFileSync('npm', ['test'], { ...options, stdio: 'pipe' }), /^(#|ℹ) pass 2$/m);
    const offline = ['install', '--offline', '--no-audit', '--no-fund', '--no-update-notifier', '--cache', path.join(scratch, 'cache')];
    execFileSync('npm', offline, { ...options, stdio: ['ignore', 'ignore', 'pipe'] });
    assert.match(execFileSync('npm', ['test'], { ...options, stdio: 'pipe' }), /^(#|ℹ) pass 2$/m);
});

test('an ES module gets every name, and the same objects', () => {
    write('program.mjs', `import { createRequire } from 'node:module';
        import whole, { GuiWindow, GuiControl, GuiImage, GuiSizePolicy, GuiToolkit, session, register, mount, pageText } from 'tarn-gui';
        import * as names from 'tarn-gui';
        const required = createRequire(import.meta.url)('tarn-gui');
        const fixed = Object.entries(Object.getOwnPropertyDescriptors(required)).filter(([, property]) => 'value' in property);
        const { default: all, ...named } = names;
        const becomes = async (check) => {
            for (let i = 0; i < 500 && !check(); ++i) await new Promise((resolve) => setTimeout(resolve, 10));
            return check();
        };
        const before = session.currentWindow;
        const window = new GuiWindow('page.html');
        console.log(JSON.stringify([
            Object.keys(named).sort().join() === fixed.map(([name]) => name).sort().join() || [Object.keys(named), fixed.map(([name]) => name)],
            fixed.every(([name, { value }]) => names[name] === value), all === required && whole === required, window instanceof required.GuiWindow,
            window.isValid(), before, window.open(), await becomes(() => session.currentWindow === window), required.session === session,
            [GuiControl, GuiImage, GuiSizePolicy, GuiToolkit, register, mount, pageText].every((value) => typeof value === 'function'),
        ]));
        window.close();`);
    assert.deepEqual(node('program.mjs'), ['[true,true,true,true,true,null,true,true,true,true]\n', '', 0]);
});

const resolutions = {
    nodenext: ['program.mts', 'nodenext', 'nodenext'],
    'nodenext, CommonJS': ['program.cts', 'nodenext', 'nodenext'],
    bundler: ['program.ts', 'esnext', 'bundler'],
    'commonjs and node10': ['program.ts', 'commonjs', 'node10'],
};
for (const [name, [file, module, resolution]] of Object.entries(resolutions)) {
    test(`TypeScript takes the package: ${name}`, () => {
        write(file, `import { GuiWindow, session } from 'tarn-gui';
            import type { Session } from 'tarn-gui';
            import { drive } from 'tarn-gui/test';
            class Order extends GuiWindow {
                onPick(session: Session, cups: string) { this.setReturnValue(Number(cups)); this.close(); }
            }
            const answer: Promise<number | null> = new Order('page.html').showAsync();
            const current: GuiWindow | null = session.currentWindow;
            // @ts-expect-error there is no such method
            new Order('page.html').shou();
            const text: Promise<string> = drive('Order').then((w) => w.text('total'));
            export { answer, current, text };`);
        const options = ['--strict', '--target', 'ES2022', '--module', module, '--moduleResolution', resolution, '--outDir', 'out',
            '--types', 'node', '--typeRoots', path.join(tools, '@types')];
        assert.deepEqual(node(path.join(tools, 'typescript', 'bin', 'tsc'), ...options, file), ['', '', 0]);
    });
}

test('a compiled TypeScript program runs', () => {
    write('start.cts', `import { GuiWindow } from 'tarn-gui';
        const window = new GuiWindow('page.html');
        console.log(window.isValid());`);
    const options = ['--strict', '--target', 'ES2022', '--module', 'nodenext', '--types', 'node', '--typeRoots', path.join(tools, '@types')];
    assert.deepEqual(node(path.join(tools, 'typescript', 'bin', 'tsc'), ...options, 'start.cts'), ['', '', 0]);
    assert.deepEqual(node('start.cjs'), ['true\n', '', 0]);
});

test('a test of a program runs', () => {
    write('program.test.mjs', `import { test } from 'node:test';
        import assert from 'node:assert/strict';
        import { GuiWindow } from 'tarn-gui';
        test('the window answers', async () => {
            const window = new GuiWindow('page.html');
            window.ePostOpen = function () { this.setReturnValue(7); setTimeout(() => this.close(), 10); };
            assert.equal(await window.showAsync(), 7);
        });`);
    const [stdout, stderr, status] = node('--test', 'program.test.mjs');
    assert.deepEqual([stderr, status], ['', 0], stdout);
    assert.match(stdout, /^(#|ℹ) pass 1$/m);
});

for (const where of ['on a display', 'without a display']) {
    test(`a test of a program clicks and types ${where}, in its own process and in another`, () => {
        write('order.html', '<html><head><title>Order</title></head><body width="300" height="100"><form><input type="text" name="who">'
            + '<input type="button" name="ok" value="OK" onclick="event://onOk"></form></body></html>');
        write('order.cjs', `const { GuiWindow } = require('tarn-gui');
            class Order extends GuiWindow { onOk() { console.log('for ' + this.form.who); this.close(); } }
            if (require.main === module) new Order('order.html').show();
            module.exports = { Order };`);
        write('driven.test.mjs', `import { test } from 'node:test';
            import assert from 'node:assert/strict';
            import { drive, launch } from 'tarn-gui/test';
            import { Order } from './order.cjs';
            test('here', async () => {
                const w = await drive(new Order('order.html'));
                await w.type('who', 'Ann');
                assert.equal(await w.value('who'), 'Ann');
                await assert.rejects(w.click('okk', { timeout: 50 }), /has no "okk"; did you mean "ok"/);
                await w.click('ok');
            });
            test('there', async () => {
                const app = await launch('order.cjs');
                const w = await app.window('Order');
                await w.type('who', 'Bob');
                await w.click('ok');
                assert.deepEqual([await app.exit, app.stdout], [{ code: 0, signal: null }, 'for Bob\\n']);
            });`);
        const [stdout, stderr, status] = where === 'on a display' ? node('--test', 'driven.test.mjs') : nowhere('--test', 'driven.test.mjs');
        assert.deepEqual([stderr, status], ['', 0], stdout);
        assert.match(stdout, /^(#|ℹ) pass 2$/m);
    });
}

for (const [format, file] of [['cjs', 'program.cjs'], ['esm', 'program.mjs']]) {
    test(`a bundle that leaves the package outside runs: ${format}`, () => {
        const bundle = path.join(home, `bundle.${format === 'cjs' ? 'cjs' : 'mjs'}`);
        write(`bundled-${file}`, format === 'cjs' ? "const { GuiWindow } = require('tarn-gui'); console.log(new GuiWindow('page.html').isValid());"
            : "import { GuiWindow } from 'tarn-gui'; console.log(new GuiWindow('page.html').isValid());");
        execFileSync(path.join(tools, '.bin', 'esbuild'), [`bundled-${file}`, '--bundle', '--platform=node', '--external:tarn-gui',
            `--format=${format}`, `--outfile=${bundle}`, '--log-level=warning'], { cwd: home });
        assert.match(fs.readFileSync(bundle, 'utf8'), /(require\(|from )"tarn-gui"/);
        assert.deepEqual(node(bundle), ['true\n', '', 0]);
    });
}

test('a window of the installed package shows its page, and the picture in place of one that is missing', async () => {
    write('window.cjs', `const { GuiWindow } = require('tarn-gui');
        const window = new GuiWindow('picture.html');
        window.open();
        process.stdin.on('end', () => window.close()).resume();`);
    const run = promisify(execFile)(process.execPath, ['window.cjs'], { cwd: home });
    const window = await findWindow('Installed');
    await waitForPixel(window, 250, 150, '#3060A0');
    if (process.env.TARN_PICTURE) {
        execFileSync('import', ['-window', window, process.env.TARN_PICTURE]);
    }
    run.child.stdin.end();
    const { stderr } = await run;
    assert.match(stderr, /missing\.png/);
});

/** A copy of the package whose component asks for another library than the one that is here. */
function copyWithout(library) {
    const copy = path.join(scratch, `without-${library}`, 'tarn-gui');
    fs.cpSync(installed, copy, { recursive: true });
    const file = path.join(copy, 'lib', 'libtarn.so');
    const bytes = fs.readFileSync(file);
    const at = bytes.indexOf(`${library}.so.`);
    assert.ok(at > 0, library);
    bytes[at + library.length + 4] = '9'.charCodeAt(0);
    fs.writeFileSync(file, bytes);
    return copy;
}

for (const [library, name] of [['libQt6Widgets', 'libqt6widgets6'], ['libQt6Core', 'libqt6core6'], ['libQt6Gui', 'libqt6gui6']]) {
    test(`without ${library} the program ends with one line that names it and its Debian package`, () => {
        const [stdout, stderr, status] = node('-e', `require(${JSON.stringify(copyWithout(library))})`);
        assert.deepEqual([stdout, status], ['', 1]);
        const lines = stderr.split('\n').filter((line) => line.includes('tarn: '));
        assert.equal(lines.length, 1, stderr);
        assert.match(lines[0], new RegExp(`^Error: tarn: the library ${library}\\.so\\.9 is missing, .*; install it with "apt-get install ${name}"`));
    });
}

test('a package without its libraries says which file is missing', () => {
    const copy = path.join(scratch, 'empty', 'tarn-gui');
    fs.cpSync(installed, copy, { recursive: true });
    fs.rmSync(path.join(copy, 'lib'), { recursive: true });
    const [, stderr, status] = node('-e', `require(${JSON.stringify(copy)})`);
    assert.equal(status, 1);
    assert.match(stderr, /^Error: tarn: the file .*\/lib\/tarn\.node is missing/m);
});
