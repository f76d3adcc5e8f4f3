'use strict';
// tarn-gui create: the programs that it makes run, and their tests pass.

const assert = require('node:assert/strict');
const { spawnSync } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { beforeEach, test } = require('node:test');
const { packageFolder, scratch } = require('./helpers.js');
const { driver: { launch } } = require('./driven.js');

const home = path.join(scratch, 'made');
const command = path.join(packageFolder, 'bin', 'tarn-gui.js');
const tools = path.join(packageFolder, 'node_modules');
const env = { ...process.env, NODE_TEST_CONTEXT: undefined }; // the program's test is a run of its own

beforeEach(() => {
    fs.rmSync(home, { recursive: true, force: true });
    fs.mkdirSync(home);
});

function run(program, args, folder = home) {
    const { stdout, stderr, status } = spawnSync(program, args, { cwd: folder, env, encoding: 'utf8' });
    return { stdout, stderr, status };
}
const create = (...args) => run(process.execPath, [command, 'create', ...args]);
const npm = (folder, ...args) => run('npm', ['--no-update-notifier', '--loglevel=error', ...args], folder);
const tsc = (folder, ...args) => run(process.execPath, [path.join(tools, 'typescript', 'bin', 'tsc'), ...args], folder);
const read = (...names) => fs.readFileSync(path.join(home, ...names), 'utf8');

test('a JavaScript program: its test passes, it starts, its types are right', async () => {
    assert.deepEqual(create('My Tea'), { stdout: 'My Tea is made; there: npm start, npm test\n', stderr: '', status: 0 });
    const folder = path.join(home, 'My Tea');
    assert.deepEqual(fs.readdirSync(folder).sort(), ['app.js', 'app.test.js', 'jsconfig.json', 'main.html', 'main.js', 'node_modules', 'package.json']);
    assert.equal(JSON.parse(read('My Tea', 'package.json')).name, 'my-tea');
    const tested = npm(folder, 'test');
    assert.equal(tested.status, 0, tested.stdout + tested.stderr);
    assert.match(tested.stdout, /^(#|ℹ) pass 2$/m);
    const app = await launch(path.join(folder, 'app.js'));
    assert.match(await (await app.window('My Tea')).text(), /^My Tea/);
    assert.equal(await app.close(), 0);
    fs.symlinkSync(path.join(tools, '@types'), path.join(folder, 'node_modules', '@types'));
    assert.deepEqual(tsc(folder, '--noEmit', '--project', 'jsconfig.json'), { stdout: '', stderr: '', status: 0 });
});

test('the test that it makes fails when the program is wrong', () => {
    create('tea');
    fs.writeFileSync(path.join(home, 'tea', 'main.js'), read('tea', 'main.js').replace('Hello', 'Bye'));
    const { status, stdout } = npm(path.join(home, 'tea'), 'test');
    assert.equal(status, 1);
    assert.match(stdout, /Bye, Ann!/);
});

test('a TypeScript program', () => {
    assert.equal(create('--typescript', 'tea').stdout, 'tea is made; there: npm install, npm start, npm test\n');
    const modules = path.join(home, 'tea', 'node_modules');
    fs.mkdirSync(path.join(modules, '.bin')); // in place of npm install
    fs.symlinkSync(path.join(tools, 'typescript', 'bin', 'tsc'), path.join(modules, '.bin', 'tsc'));
    fs.symlinkSync(path.join(tools, '@types'), path.join(modules, '@types'));
    fs.symlinkSync(path.join(tools, 'undici-types'), path.join(modules, 'undici-types'));
    const tested = npm(path.join(home, 'tea'), 'test');
    assert.equal(tested.status, 0, tested.stdout + tested.stderr);
    assert.match(tested.stdout, /^(#|ℹ) pass 2$/m);
});

test('an empty folder is taken, one with files is not, in one line', () => {
    fs.mkdirSync(path.join(home, 'empty'));
    assert.equal(create('empty').status, 0);
    assert.deepEqual(create('empty'), { stdout: '', stderr: 'tarn-gui: create: the folder "empty" is not empty\n', status: 2 });
    fs.writeFileSync(path.join(home, 'file'), '');
    assert.deepEqual(create('file'), { stdout: '', stderr: 'tarn-gui: create: "file" is a file\n', status: 2 });
    assert.equal(read('file'), '');
    assert.deepEqual(create('file/below'), { stdout: '', stderr: 'tarn-gui: create: "file/below" cannot be made: ENOTDIR\n', status: 2 });
});

test('wrong arguments are told in one line', () => {
    const told = (...args) => {
        const { stdout, stderr, status } = create(...args);
        assert.deepEqual([stdout, status, fs.readdirSync(home)], ['', 2, []]);
        return stderr;
    };
    assert.equal(told(), 'tarn-gui: create needs a name for the folder\n');
    assert.equal(told('a', 'b'), 'tarn-gui: create makes one folder, "b" is one too many\n');
    assert.equal(told('a', '--ts'), 'tarn-gui: create has no option --ts; there is --typescript\n');
});

test('help and the manual name it', () => {
    assert.match(run(process.execPath, [command, '--help']).stdout, /tarn-gui create NAME \[--typescript\]/);
    assert.match(fs.readFileSync(path.join(packageFolder, 'man', 'tarn-gui.1'), 'utf8'), /tarn-gui create/);
});
