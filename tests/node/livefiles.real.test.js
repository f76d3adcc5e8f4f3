'use strict';
// Live reload: which touches of files are heard of, whatever becomes of the folders and links on the way to them.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { packageFolder, scratch, sleep, until } = require('./helpers.js');
const { FileWatch } = require(path.join(packageFolder, 'live', 'files.js'));

/** Runs `work({ folder, watch, touches })` in a folder of its own. */
const withWatch = (work) => async () => {
    const touches = [];
    const watch = new FileWatch((file) => touches.push(file));
    try {
        await work({ folder: fs.realpathSync(fs.mkdtempSync(path.join(scratch, 'files'))), watch, touches });
    } finally {
        watch.close();
    }
};

/** Waits until the file was touched, and for the rest of what was heard. */
async function heard(touches, file) {
    await until(() => touches.includes(file), 2000);
    await sleep(30);
    touches.length = 0;
}

function put(file, content) {
    fs.mkdirSync(path.dirname(file), { recursive: true });
    fs.writeFileSync(file, content);
}

test('a folder that is swapped for another one, however far above the file', withWatch(async ({ folder, watch, touches }) => {
    const file = path.join(folder, 'dist/pages/a.html');
    put(file, 'old');
    put(path.join(folder, 'new/pages/a.html'), 'new');
    watch.add(file);
    fs.renameSync(path.join(folder, 'dist'), path.join(folder, 'old'));
    fs.renameSync(path.join(folder, 'new'), path.join(folder, 'dist'));
    await heard(touches, file);
    fs.appendFileSync(file, ' and more');
    await heard(touches, file);
    fs.appendFileSync(path.join(folder, 'old/pages/a.html'), ' and more');
    await sleep(50);
    assert.deepEqual(touches, []);
}));

test('folders that are removed and made again at once', withWatch(async ({ folder, watch, touches }) => {
    const file = path.join(folder, 'dist/pages/a.html');
    put(file, 'old');
    watch.add(file);
    for (const text of ['new', 'newer']) {
        fs.rmSync(path.join(folder, 'dist'), { recursive: true });
        put(file, text);
        await heard(touches, file);
        fs.appendFileSync(file, ' and more');
        await heard(touches, file);
    }
}));

test('folders that come one after the other', withWatch(async ({ folder, watch, touches }) => {
    const file = path.join(folder, 'one/two/a.html');
    watch.add(file);
    fs.mkdirSync(path.join(folder, 'one'));
    await sleep(20);
    fs.mkdirSync(path.join(folder, 'one/two'));
    await sleep(20);
    touches.length = 0;
    fs.writeFileSync(file, 'text');
    await heard(touches, file);
}));

for (const [name, link, target] of [['a link to a file', 'b.html', (version) => `${version}/b.html`], ['a link to a folder', 'current', (version) => version]]) {
    test(`${name} that is led elsewhere`, withWatch(async ({ folder, watch, touches }) => {
        put(path.join(folder, 'v1/b.html'), 'one');
        put(path.join(folder, 'v2/b.html'), 'two');
        const at = path.join(folder, link);
        const file = link === 'b.html' ? at : path.join(at, 'b.html');
        fs.symlinkSync(target('v1'), at);
        watch.add(file);
        fs.symlinkSync(target('v2'), `${at}.new`);
        fs.renameSync(`${at}.new`, at);
        await heard(touches, file);
        fs.appendFileSync(path.join(folder, 'v2/b.html'), ' and more');
        await heard(touches, file);
    }));
}

/** Runs `work()` with another fs.watch. */
async function withWatchFunction(make, work) {
    const { watch } = fs;
    fs.watch = make(watch);
    try {
        await work();
    } finally {
        fs.watch = watch;
    }
}

test('a folder that can not be watched is told once, and tried again', withWatch(async ({ folder, watch, touches }) => {
    const lines = [];
    const { write } = process.stderr;
    const fails = (original) => (at, ...rest) => {
        if (at === folder) {
            throw Object.assign(new Error('no'), { code: 'ENOSPC' });
        }
        return original(at, ...rest);
    };
    process.stderr.write = (text) => lines.push(text) > 0;
    try {
        await withWatchFunction(fails, () => ['a.html', 'b.html'].forEach((name) => watch.add(path.join(folder, name))));
    } finally {
        process.stderr.write = write;
    }
    assert.deepEqual(lines, [`tarn: ${folder} can not be watched: ENOSPC\n`]);
    watch.add(path.join(folder, 'a.html'));
    fs.writeFileSync(path.join(folder, 'b.html'), 'text');
    await heard(touches, path.join(folder, 'b.html'));
}));

test('a file that is removed from the watch leaves no watch behind', withWatch(async ({ folder, watch, touches }) => {
    const open = new Set();
    const counts = (original) => (at, ...rest) => {
        const watcher = original(at, ...rest);
        const { close } = watcher;
        open.add(at);
        watcher.close = () => {
            open.delete(at);
            Reflect.apply(close, watcher, []);
        };
        return watcher;
    };
    const [one, two] = ['one/a.html', 'one/two/b.html'].map((name) => path.join(folder, name));
    put(one, '1');
    put(two, '2');
    await withWatchFunction(counts, async () => {
        watch.add(one);
        watch.add(two);
        assert.ok(open.has(path.dirname(one)) && open.has(path.dirname(two)));
        watch.remove(two);
        assert.ok(open.has(path.dirname(one)) && !open.has(path.dirname(two)));
        fs.writeFileSync(two, 'other');
        fs.writeFileSync(one, 'other');
        await heard(touches, one);
        watch.remove(one);
        assert.deepEqual([...open], []);
    });
}));
