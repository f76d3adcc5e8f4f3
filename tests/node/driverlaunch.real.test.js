'use strict';
// The test driver and programs in processes of their own.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { pathToFileURL } = require('node:url');
const { afterEach, test } = require('node:test');
const { packageFolder, runScript, scratch, until } = require('./helpers.js');
const { DriveError, launch } = require(path.join(packageFolder, 'test.js'));

const file = path.join(scratch, 'app.js');
const library = JSON.stringify(packageFolder);
let app;

function write(source, name = file) {
    fs.writeFileSync(name, source);
    return name;
}

/** A program with one window; `script` is what else it does. */
const program = (script, content = '<form><input type="text" name="who"><input type="button" name="go" value="Go" onclick="event://onGo"></form>'
    + '<table><tr><td name="said">-</td></tr></table>') => `'use strict';
const tarn = require(${library});
class Main extends tarn.GuiWindow {
    onGo() { return go.call(this); }
}
let go = function () { this.control('said').setText('went ' + this.form.who); };
const window = Main.from(${JSON.stringify(`<html><head><title>Main</title></head><body width="300" height="120">${content}</body></html>`)});
${script}`;

const fails = (promise, message) => assert.rejects(promise, (error) => {
    assert.ok(error instanceof DriveError, error.stack);
    assert.equal(error.message, message);
    return true;
});

afterEach(() => app?.kill());

test('a program is started, used and closed; its exit code', async () => {
    app = await launch(write(program('window.open(); process.on("exit", () => { console.log("bye"); process.exitCode = 7; });')));
    const w = await app.window('Main');
    await w.type('who', 'Änn');
    await w.click('go');
    assert.deepEqual([await w.text('said'), await w.value('who'), await w.find('nothing')], ['went Änn', 'Änn', null]);
    assert.deepEqual([await app.close(), await app.exit, app.stdout, app.stderr], [7, { code: 7, signal: null }, 'bye\n', '']);
});

test('it gets arguments, variables and a folder, and window() is the last one', async () => {
    write(program('console.log(JSON.stringify([process.argv.slice(2), process.env.WHO, process.cwd(), process.execArgv])); window.open();'));
    app = await launch(pathToFileURL(file), { args: ['-x', 'a b'], env: { WHO: 'Ann' }, cwd: scratch, execArgv: ['--no-warnings'] });
    assert.equal(await (await app.window()).title(), 'Main');
    assert.deepEqual(JSON.parse(app.stdout), [['-x', 'a b'], 'Ann', fs.realpathSync(scratch), ['--no-warnings']]);
    assert.equal(await app.close(), 0);
});

test('what a program starts is not the test\'s', async () => {
    const child = write('console.log("child", process.execArgv.length, process.listenerCount("message"));', path.join(scratch, 'child.js'));
    app = await launch(write(program(`require('node:child_process').fork(${JSON.stringify(child)}); window.open();`)));
    await app.window('Main');
    await app.close();
    assert.equal(app.stdout, 'child 0 0\n');
});

test('a program that waits in show(), at its top and in handlers', async () => {
    app = await launch(write(program(`go = function () {
        const front = tarn.GuiWindow.from('<html><head><title>Front</title></head><body width="200" height="80"><input type="button" name="ok" value="OK" onclick="event://ok"></body></html>');
        front.ok = function () { this.setReturnValue(5); this.close(); };
        this.control('said').setText(front.show() + ' ' + tarn.confirm('Sure?'));
    };
    console.log('returned', window.show());`)));
    const w = await app.window('Main');
    await w.click('go');
    await fails(w.click('go', { timeout: 60 }), 'click("go"): the button "go" is behind the window "Front", which has to be closed first (waited 60 ms)');
    await (await app.window('Front')).click('ok');
    await (await app.dialog()).click('OK');
    assert.equal(await w.text('said'), '5 true');
    assert.deepEqual([await app.close(), app.stdout], [0, 'returned null\n']);
});

test('an ES module that waits in showAsync()', async () => {
    const source = `import tarn, { GuiWindow } from ${JSON.stringify(pathToFileURL(path.join(packageFolder, 'index.mjs')).href)};
        const window = GuiWindow.from('<html><head><title>Module</title></head><body width="200" height="80"><input type="button" name="ok" value="OK" onclick="event://ok"></body></html>');
        window.ok = function () { this.setReturnValue('done'); this.close(); };
        console.log(await window.showAsync(), tarn.session !== undefined);`;
    app = await launch(write(source, path.join(scratch, 'app.mjs')));
    await (await app.window('Module')).click('ok');
    assert.deepEqual([await app.exit, app.stdout, app.stderr], [{ code: 0, signal: null }, 'done true\n', '']);
});

test('an action may end the program; afterwards nothing can be read', async () => {
    app = await launch(write(program('go = () => { process.stderr.write("over\\n"); process.exit(3); }; window.open();')));
    const w = await app.window('Main');
    await w.click('go');
    assert.deepEqual(await app.exit, { code: 3, signal: null });
    await fails(w.text('said'), 'text("said"): the program has ended with exit code 3: over');
    await fails(app.window('Main'), 'app.window("Main"): the program has ended with exit code 3: over');
    assert.equal(await app.close(), 3);
});

test('a program that fails at its start says why', async () => {
    app = await launch(write('throw new Error("no such luck");'));
    await assert.rejects(app.window(), { name: 'DriveError', message: /^app\.window\(\): the program has ended with exit code 1: / });
    assert.match(app.stderr, /no such luck/);
    await assert.rejects(launch(path.join(scratch, 'none.js')).then((none) => none.window()), /has ended with exit code 1/);
});

test('a program that does not end is ended, and told', async () => {
    app = await launch(write(program('window.eClose = () => false; window.open();')), { timeout: 700 });
    await app.window('Main', { timeout: 20000 });
    await fails(app.close(), 'app.close(): the program does not end: open are "Main" (waited 700 ms)');
    app = await launch(write(program('setInterval(() => {}, 1000); window.open();')), { timeout: 700 });
    await app.window('Main', { timeout: 20000 });
    await fails(app.close(), 'app.close(): the program does not end: it goes on without a window (waited 700 ms)');
});

test('failures and wrong arguments arrive as they are in one process', async () => {
    app = await launch(write(program('window.open();')), { timeout: 80 });
    const w = await app.window('Main', { timeout: 5000 });
    await fails(app.window('Mian'), 'drive("Mian"): no window has the title "Mian"; open are "Main" (waited 80 ms)');
    await fails(app.dialog(), 'dialog(): no dialog is open; open are "Main" (waited 80 ms)');
    await fails(w.click('goo', { timeout: 60 }), 'click("goo"): the window "Main" has no "goo"; did you mean "go"? it has the field "who"; the button "go" (waited 60 ms)');
    await assert.rejects(w.click(7), { name: 'TypeError', message: 'click(7): the target must be a name or { link: "Next" }, not the number 7' });
    assert.throws(() => launch(7), { name: 'TypeError', message: 'launch(file, options): "file" must be a path or a file: URL, not the number 7' });
    assert.throws(() => launch(file, { arg: [] }), { name: 'TypeError', message: 'launch(file, options): there is no option "arg"; did you mean "args"?' });
});

test('pictures lie where the test says', async () => {
    const deep = path.join(scratch, ...'abcdefghijklmnopqrst');
    fs.mkdirSync(deep, { recursive: true });
    app = await launch(write(program(`process.chdir(${JSON.stringify(deep)}); window.open();`)));
    const w = await app.window('Main');
    const picture = path.relative('', path.join(scratch, 'remote.png'));
    assert.equal(await w.screenshot(picture), path.join(scratch, 'remote.png'));
    await w.matches(picture);
});

test('both kinds of import give the same', async () => {
    const source = `const required = require(${JSON.stringify(path.join(packageFolder, 'test.js'))});
        import(${JSON.stringify(pathToFileURL(path.join(packageFolder, 'test.mjs')).href)}).then(({ default: whole, ...named }) => {
            console.log(whole === required, Object.keys(named).sort().join(), Object.keys(required).every((name) => named[name] === required[name]));
        });`;
    assert.equal((await runScript(source)).stdout, 'true DriveError,dialog,drive,launch true\n');
});

test('without a display the windows are drawn into memory, and the environment may say otherwise', async () => {
    const ask = (env) => runScript(`require(${JSON.stringify(path.join(packageFolder, 'test.js'))}); console.log(process.env.QT_QPA_PLATFORM);`, { env });
    const none = { QT_QPA_PLATFORM: '', DISPLAY: '', WAYLAND_DISPLAY: '' };
    const platforms = await Promise.all([none, { ...none, DISPLAY: ':7' }, { ...none, QT_QPA_PLATFORM: 'minimal' }].map(async (env) => (await ask(env)).stdout.trim()));
    assert.deepEqual(platforms, ['offscreen', '', 'minimal']);
});

test('a test that fails ends, though its windows, dialogs and programs are open', async () => {
    write(program('window.open();'));
    const { stdout, stderr, code, signal } = await runScript(`const { drive, launch } = require(${JSON.stringify(path.join(packageFolder, 'test.js'))});
        (async () => {
            const window = tarn.GuiWindow.from('<body width="99" height="77"><a href="event://ask">ask</a></body>');
            window.ask = () => tarn.alertAsync('Hm');
            const w = await drive(window);
            await w.click('ask');
            const app = await launch(${JSON.stringify(file)});
            await app.window('Main');
            console.log(app.pid);
        })();`);
    assert.deepEqual([code, signal, stderr], [0, null, '']);
    const stat = `/proc/${Number(stdout)}/stat`;
    await until(() => !fs.existsSync(stat) || / [ZX] /.test(fs.readFileSync(stat, 'utf8')));
});

test('no program has anything of it unless it asks', async () => {
    const { stdout } = await runScript(`console.log(Object.keys(require.cache).filter((name) => /node.driver/.test(name)).length, tarn.GuiWindow.prototype.drive);`);
    assert.equal(stdout, '0 undefined\n');
});
