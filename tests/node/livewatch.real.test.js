'use strict';
// Live reload: programs that are started anew when a script is saved, and what programs cost that do not ask for it, with the
// real component off the screen.

const assert = require('node:assert/strict');
const { spawn } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { packageFolder, runScript, scratch, sleep, until } = require('./helpers.js');

const command = path.join(packageFolder, 'bin', 'tarn-gui.js');
const load = `require(${JSON.stringify(packageFolder)})`;
let programs = 0;

/** Runs a program of these files, the script app.js or another one; { said, folder, child, exit }. */
function start(files, { args = ['watch', 'app.js', 'argument'], node = [command], env = {}, detached = false } = {}) {
    const folder = path.join(scratch, `program${++programs}`);
    fs.mkdirSync(folder);
    Object.entries(files).forEach(([name, content]) => fs.writeFileSync(path.join(folder, name), content));
    const child = spawn(process.execPath, [...node, ...args], { cwd: folder, detached, env: { ...process.env, NODE_TEST_CONTEXT: undefined, ...env } });
    process.on('exit', () => child.kill('SIGKILL'));
    const program = { folder, child, said: '', errors: '' };
    child.stdout.on('data', (data) => { program.said += data; });
    child.stderr.on('data', (data) => { program.errors += data; });
    program.exit = new Promise((resolve) => { child.on('close', (code, signal) => resolve(signal ?? code)); });
    program.save = (name, content) => fs.writeFileSync(path.join(folder, name), content);
    program.says = (text) => until(() => program.said.includes(text), 15000).catch(() => assert.fail(`no ${text} in:\n${program.said}${program.errors}`));
    return program;
}

const page = '<html><head><title>Page</title></head><body width="300" height="200"><table width="100%" name="all"><tr><td>first</table></body></html>';

/** Says its word, and how wide its page is and what stands on it. */
const app = (word) => `const tarn = ${load};
const window = new tarn.GuiWindow('page.html');
window.open();
const say = (what) => console.log(what, ${word}, process.argv[2], window.control('all').width);
setTimeout(() => say('opened'), 60);
if (!require('node:fs').existsSync('sized')) setTimeout(() => { require('node:fs').writeFileSync('sized', ''); window.setDefaultSize(420, 260); setTimeout(() => say('sized'), 100); }, 120);
`;

const withWord = { 'page.html': page, 'app.js': `const { word } = require('./word.js');\n${app('word')}`, 'word.js': "exports.word = 'one';" };

test('a script that was saved starts the program anew, its window as large as before', async () => {
    const program = start(withWord);
    await program.says('opened one argument 300');
    await program.says('sized one argument 420');
    program.save('word.js', "exports.word = 'two';");
    await program.says('opened two argument 420');
    program.save('app.js', `// changed\n${withWord['app.js'].replace('word.js', 'word.js').replace("'opened'", "'again'")}`);
    await program.says('again two argument 420');
    assert.match(program.errors, /^tarn: word\.js was saved; the program starts anew$/m);
    program.child.kill('SIGTERM');
    assert.equal(await program.exit, 1);
});

test('a program that can not start waits until its script is mended', async () => {
    const program = start({ ...withWord, 'word.js': 'exports.word = (' });
    await until(() => program.errors.includes('the program has ended with code 1; it starts anew'), 15000);
    program.save('word.js', "exports.word = 'mended';");
    await program.says('opened mended');
    program.child.kill('SIGINT');
    await program.exit;
});

test('a program that cleans up when it is told to end is not waited for', async () => {
    for (const name of ['SIGTERM', 'SIGINT']) {
        const program = start({ 'app.js': `process.on('${name}', () => process.exit(3)); setInterval(() => {}, 1000); console.log('runs');` });
        await program.says('runs');
        program.child.kill(name);
        const late = setTimeout(() => program.child.kill('SIGKILL'), 5000);
        assert.equal(await program.exit, 3);
        clearTimeout(late);
        assert.equal(program.errors, '');
    }
});

test('Ctrl+C in a terminal reaches the program once', async () => {
    const program = start({ 'app.js': `let count = 0;
process.on('SIGINT', () => { if (++count === 1) setTimeout(() => { console.log('interrupted', count); process.exit(0); }, 150); });
setInterval(() => {}, 1000);
console.log('runs');` }, { detached: true });
    await program.says('runs');
    process.kill(-program.child.pid, 'SIGINT'); // the whole group, as a terminal does
    assert.equal(await program.exit, 0);
    assert.equal(program.said, 'runs\ninterrupted 1\n');
});

test('a program that ends ends it, with its exit code 0', async () => {
    const program = start({ 'app.js': `${load}; console.log('done');` });
    assert.equal(await program.exit, 0);
    assert.equal(program.said, 'done\n');
});

test('modules, and a page that is saved does not start anything', async () => {
    const program = start({
        'page.html': page, 'word.mjs': "export const word = 'one';",
        'app.mjs': `import { word } from './word.mjs';\nimport tarn from ${JSON.stringify(path.join(packageFolder, 'index.mjs'))};
import { createRequire } from 'node:module';
const require = createRequire(import.meta.url);
const window = new tarn.GuiWindow('page.html');
window.open();
setTimeout(() => console.log('opened', word, process.pid), 50);
setInterval(() => console.log(window.getTitle()), 50);
`,
    }, { args: ['watch', 'app.mjs'] });
    await program.says('opened one');
    program.save('page.html', page.replace('Page', 'Other'));
    await program.says('Other');
    assert.equal(program.said.match(/opened/g).length, 1);
    program.save('word.mjs', "export const word = 'two';");
    await program.says('opened two');
    program.child.kill();
    await program.exit;
});

test('TARN_WATCH=1 does the same for a script that is run as always', async () => {
    const program = start(withWord, { node: [], args: ['app.js', 'argument'], env: { TARN_WATCH: '1' } });
    await program.says('opened one argument');
    program.save('word.js', "exports.word = 'two';");
    await program.says('opened two argument');
    program.child.kill('SIGKILL'); // what it has started goes, too
    await program.exit;
    const length = program.said.length;
    await sleep(1500);
    program.save('word.js', "exports.word = 'three';");
    await sleep(800);
    assert.equal(program.said.length, length);
});

test('a program whose supervisor has gone keeps its files to itself', async () => {
    const program = start({
        'late.js': '',
        'app.js': `${load};
const fs = require('node:fs');
const supervisor = process.ppid;
console.log('runs');
const wait = setInterval(() => {
    if (process.ppid === supervisor) return;
    clearInterval(wait);
    setTimeout(() => {
        const file = fs.openSync('data', 'w+');
        require('./late.js');
        console.log('data', file, JSON.stringify(fs.readFileSync('data', 'utf8')));
    }, 100);
}, 10);`,
    });
    await program.says('runs');
    program.child.kill('SIGKILL');
    await program.exit;
    assert.equal(program.said, 'runs\ndata 3 ""\n'); // 3: the descriptor that the pipe had
});

test('what a program starts is not watched', async () => {
    const program = start({ 'app.js': `${load}; console.log('has', Object.keys(process.env).filter((name) => name.startsWith('TARN_WATCH')));` });
    await program.exit;
    assert.equal(program.said, 'has []\n');
});

test('wrong arguments are told in one line', async () => {
    for (const [args, message] of [[['watch'], 'watch needs a script: tarn-gui watch app.js'], [['watch', 'none.js'], 'there is no script none.js']]) {
        const program = start({}, { args });
        assert.equal(await program.exit, 2);
        assert.equal(program.errors, `tarn-gui: ${message}\n`);
    }
});

test('the files of a window that is gone are not watched any more', async () => {
    const { stdout, stderr } = await runScript(`
        const fs = require('node:fs');
        const path = require('node:path');
        const open = new Set();
        const { watch } = fs;
        fs.watch = (at, ...rest) => {
            const watcher = watch(at, ...rest);
            const { close } = watcher;
            open.add(at);
            watcher.close = () => { open.delete(at); Reflect.apply(close, watcher, []); };
            return watcher;
        };
        const watcher = tarn.watch();
        const show = (name) => {
            const folder = path.join(__dirname, name);
            fs.mkdirSync(folder);
            fs.writeFileSync(path.join(folder, 'page.html'), '<title>' + name + '</title><body>x</body>');
            const window = new tarn.GuiWindow(path.join(folder, 'page.html'));
            window.open();
            return window;
        };
        const watched = () => [...open].map((at) => path.basename(at)).filter((name) => name.startsWith('only'));
        show('only-once').close();
        const kept = show('only-kept'); // the window that was made last is held
        let turns = 0;
        let wereBoth = false;
        const wait = setInterval(() => {
            if (!wereBoth && watched().length === 2) {
                wereBoth = true;
                console.log(watched());
            }
            if (wereBoth) {
                global.gc();
            }
            if ((wereBoth && watched().length === 1) || ++turns === 100) {
                clearInterval(wait);
                console.log(watched(), kept.getTitle());
                kept.close();
                watcher.close();
            }
        }, 20);`, { args: ['--expose-gc'] });
    assert.equal(stdout, "[ 'only-once', 'only-kept' ]\n[ 'only-kept' ] only-kept\n", stderr);
});

test('a program that does not ask for it loads nothing of it and watches nothing', async () => {
    const { stdout } = await runScript(`
        const fs = require('node:fs');
        const path = require('node:path');
        const file = path.join(__dirname, 'unwatched.html');
        fs.writeFileSync(file, '<title>first</title><body>x</body>');
        const window = new tarn.GuiWindow(file);
        window.open();
        fs.writeFileSync(file, '<title>second</title><body>x</body>');
        setTimeout(() => {
            console.log(window.getTitle(), Object.keys(require.cache).filter((name) => name.includes('/live/')),
                process.getActiveResourcesInfo().filter((name) => name.includes('Event')));
            window.close();
        }, 200);`, { env: { TARN_WATCH: undefined } });
    assert.equal(stdout, 'first [] []\n');
});

test('options are checked', () => {
    const tarn = require(packageFolder);
    assert.throws(() => tarn.watch({ onreload: () => {} }), { name: 'TypeError', message: /no option "onreload"; did you mean "onReload"/ });
    assert.throws(() => tarn.watch({ onReload: 1 }), { name: 'TypeError', message: /"onReload" must be a function, not/ });
});
