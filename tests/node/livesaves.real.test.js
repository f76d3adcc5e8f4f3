'use strict';
// Live reload: what counts as a save, and of which files, with the real component off the screen.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { sleep } = require('./helpers.js');
const { page, tarn, withPage } = require('./live.js');

/** A picture of one colour, 8 by 8 pixels. */
const picture = (color) => `<svg xmlns="http://www.w3.org/2000/svg" width="8" height="8"><rect width="8" height="8" fill="${color}"/></svg>\n`;

const ways = {
    'written in place': (file, content) => {
        const descriptor = fs.openSync(file, 'r+');
        fs.writeSync(descriptor, content);
        fs.ftruncateSync(descriptor, Buffer.byteLength(content));
        fs.closeSync(descriptor);
    },
    'truncated and written': fs.writeFileSync,
    'written beside it and renamed': (file, content) => {
        fs.writeFileSync(`${file}.new`, content);
        fs.renameSync(`${file}.new`, file);
    },
    'removed and written': (file, content) => {
        fs.unlinkSync(file);
        fs.writeFileSync(file, content);
    },
    'moved away and written': (file, content) => {
        fs.renameSync(file, `${file}~`);
        fs.writeFileSync(file, content);
    },
};

for (const [name, way] of Object.entries(ways)) {
    test(`a page is shown anew that was ${name}, again and again`, withPage(page('first'), async (live) => {
        for (const text of ['second', 'third and longer', 'x']) {
            const { problem, files, ms, window } = await live.save('page.html', page(text), way);
            assert.equal(problem, null);
            assert.deepEqual(files, [live.file('page.html')]);
            assert.equal(window, live.window);
            assert.ok(ms >= 0 && ms < 1000, `${ms} ms`);
            assert.equal(await live.driven.text(), text);
        }
    }));
}

test('a file that is written in parts is shown once, when it is whole', withPage(page('first'), async (live) => {
    const whole = page('second '.repeat(1000));
    const half = whole.length / 2;
    fs.writeFileSync(live.file('page.html'), '');
    await sleep(40);
    fs.appendFileSync(live.file('page.html'), whole.slice(0, half));
    await sleep(30);
    fs.appendFileSync(live.file('page.html'), whole.slice(half));
    const { problem } = await live.next(0);
    assert.equal(problem, null);
    await sleep(100);
    assert.equal(live.reloads.length, 1);
    assert.equal(await live.driven.text(), 'second '.repeat(1000).trim());
}));

test('several files that are saved together are shown together', withPage({
    'page.html': page('<table><tr><td src="inner.html"></table>'), 'inner.html': 'inner',
}, async (live) => {
    fs.writeFileSync(live.file('inner.html'), 'other');
    fs.writeFileSync(live.file('page.html'), page('around <table><tr><td src="inner.html"></table>'));
    await live.next(0);
    await sleep(60);
    assert.match(await live.driven.text(), /around\s+other/);
}));

test('a picture that was saved is shown', withPage({ 'page.html': page('<img src="it.svg">'), 'it.svg': picture('red') }, async (live) => {
    const red = await live.picture();
    const { files } = await live.save('it.svg', picture('blue'));
    assert.deepEqual(files, [live.file('it.svg')]);
    assert.notEqual(await live.picture(), red);
    await live.save('it.svg', picture('red'));
    assert.equal(await live.picture(), red);
}));

test('a background, and a picture that was missing', withPage(page('<img src="late.svg">', { attributes: 'width="200" height="100" background="back.svg"' }), async (live) => {
    const none = await live.picture();
    await live.save('back.svg', picture('green'));
    const green = await live.picture();
    assert.notDeepEqual(green, none);
    await live.save('late.svg', picture('red'));
    assert.notEqual(await live.picture(), green);
}));

test('a page from text shows its pictures anew', async () => {
    const folder = fs.mkdtempSync(path.join(require('./helpers.js').scratch, 'text'));
    const file = path.join(folder, 'it.svg');
    fs.writeFileSync(file, picture('red'));
    const reloads = [];
    const watcher = tarn.watch({ onReload: (told) => reloads.push(told) });
    const window = tarn.GuiWindow.from(`<title>Text</title><body width="90" height="40"><img src="${file}"> text`);
    window.open();
    fs.writeFileSync(file, picture('blue'));
    await require('./helpers.js').until(() => reloads.length > 0, 3000);
    assert.equal(reloads[0].problem, null);
    assert.equal(window.getTitle(), 'Text');
    window.close();
    watcher.close();
});

/** Reads its included file as programs do. */
class Including extends tarn.GuiWindow {
    included = '';

    part() {
        return fs.readFileSync(path.join(this.included, 'part.txt'), 'utf8');
    }
}

test('a file that a handler includes', withPage({ 'page.html': page('nothing yet'), 'part.txt': 'first part' }, async (live) => {
    live.window.included = live.folder;
    await live.save('page.html', page('<!--#exec cgi="event://part"-->'));
    assert.equal(await live.driven.text(), 'first part');
    const { files } = await live.save('part.txt', 'second part');
    assert.deepEqual(files, [live.file('part.txt')]);
    assert.equal(await live.driven.text(), 'second part');
}, Including));

test('a file that a filter reads, waiting or not', async () => {
    let folder;
    tarn.GuiWindow.onLoad('page.html', async (window, text) => {
        const part = await fs.promises.readFile(path.join(folder, 'part.txt'), 'utf8');
        return text.replace('PART', part).replace('OTHER', fs.readFileSync(path.join(folder, 'other.txt'), 'utf8'));
    });
    class Filtered extends tarn.GuiWindow {
        constructor(file) {
            folder = path.dirname(file);
            super(file);
        }
    }
    try {
        await withPage({ 'page.html': page('PART and OTHER'), 'part.txt': 'one', 'other.txt': 'two' }, async (live) => {
            assert.equal(await live.driven.text(), 'one and two');
            await live.save('part.txt', 'three');
            assert.equal(await live.driven.text(), 'three and two');
            await live.save('other.txt', 'four');
            assert.equal(await live.driven.text(), 'three and four');
        }, Filtered)();
    } finally {
        tarn.GuiWindow.onLoad('page.html');
    }
});

/** Counts in a file of its own how often it was made, and goes on reading that. */
class Counter {
    eCreate() {
        const file = path.join(path.dirname(Counter.page), 'state.json');
        const read = () => JSON.parse(fs.readFileSync(file, 'utf8'));
        fs.writeFileSync(file, JSON.stringify({ made: read().made + 1 }));
        this.timer = setInterval(read, 10);
    }

    eDestroy() {
        clearInterval(this.timer);
    }
}
tarn.register('Counter', Counter);

test('a file that an element reads and writes is its own', async () => {
    class Counting extends tarn.GuiWindow {
        constructor(file) {
            Counter.page = file;
            super(file);
        }
    }
    await withPage({ 'page.html': page('first <object classid="counter" name="counter" width="20" height="20">'), 'state.json': '{"made":0}' }, async (live) => {
        await live.save('page.html', page('second <object classid="counter" name="counter" width="20" height="20">'));
        fs.writeFileSync(live.file('state.json'), '{ "made": 7 }');
        await sleep(300);
        assert.deepEqual(live.reloads.map(({ files }) => files), [[live.file('page.html')]]);
    }, Counting)();
});

test('the page of a cell is shown anew alone', withPage({
    'page.html': page('<input type="text" name="outer"><table><tr><td name="cell" src="inner.html"></table>'), 'inner.html': '<input type="text" name="inner" value="as given"> first',
}, async (live) => {
    await live.driven.type('outer', 'typed');
    await live.driven.type('inner', 'typed, too');
    const focus = live.window.getFocus();
    await live.save('inner.html', '<input type="text" name="inner" value="other"> second');
    assert.match(await live.driven.text(), /second/);
    assert.deepEqual({ ...live.window.form }, { outer: 'typed', inner: 'typed, too' });
    assert.equal(live.window.getFocus(), focus);
}));

test('a page within a page within a frame', withPage({
    'page.html': '<html><head><title>Frames</title></head><frameset cols="*,*"><frame name="left" src="left.html"><frame name="right" src="right.html"></frameset></html>',
    'left.html': page('<table><tr><td src="deep.html"></table>'), 'right.html': page('right'), 'deep.html': 'deep',
}, async (live) => {
    await live.save('deep.html', 'deeper');
    assert.match(await live.driven.text(), /deeper/);
    await live.save('right.html', page('on the right'));
    assert.match(await live.driven.text(), /deeper\s+on the right/);
}));

test('a frame that was led to another page stays there', withPage({
    'page.html': page('around <table><tr><td name="cell" src="one.html"></table>'), 'one.html': 'one', 'two.html': 'two',
}, async (live) => {
    live.window.control('cell').loadFile(live.file('two.html'));
    await live.save('page.html', page('about <table><tr><td name="cell" src="one.html"></table>'));
    assert.match(await live.driven.text(), /about\s+two/);
    await live.save('two.html', 'three');
    assert.match(await live.driven.text(), /about\s+three/);
}));

test('a folder that is removed and made again', withPage({ 'page.html': page('first') }, async (live) => {
    fs.renameSync(live.folder, `${live.folder}.away`);
    fs.mkdirSync(live.folder);
    fs.writeFileSync(live.file('page.html'), page('second'));
    assert.equal((await live.next(0)).problem, null);
    assert.equal(await live.driven.text(), 'second');
    await live.save('page.html', page('third'));
    assert.equal(await live.driven.text(), 'third');
}));

test('a file behind a symbolic link', withPage({ 'page.html': page('nothing') }, async (live) => {
    fs.mkdirSync(live.file('real'));
    fs.writeFileSync(live.file('real/it.svg'), picture('red'));
    fs.symlinkSync(live.file('real/it.svg'), live.file('it.svg'));
    await live.save('page.html', page('<img src="it.svg">'));
    await live.save('real/it.svg', picture('blue')).then(({ problem }) => assert.equal(problem, null));
}));

test('a touch that changes nothing is no save, and after close() nothing is', withPage(page('first'), async (live) => {
    fs.chmodSync(live.file('page.html'), 0o600);
    await sleep(80);
    assert.equal(live.reloads.length, 0);
    live.watcher.close();
    fs.writeFileSync(live.file('page.html'), page('second'));
    await sleep(120);
    assert.equal(live.reloads.length, 0);
    assert.equal(await live.driven.text(), 'first');
}));
