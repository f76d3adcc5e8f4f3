'use strict';
// Live reload: pages with errors, with the real component off the screen.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { packageFolder, sleep, until } = require('./helpers.js');
const { page, tarn, withPage } = require('./live.js');
const driver = require(path.join(packageFolder, 'test.js'));

const field = '<input type="text" name="who">';

/** Saves what can not be shown, and then again what can: the page stays as it was, and below it stands why. */
async function breakAndMend(live, name, broken, message, good) {
    await live.driven.type('who', 'Ada');
    const text = await live.driven.text();
    const before = await live.picture();
    const { problem } = await (broken === null ? live.save(name, '', fs.unlinkSync) : live.save(name, broken));
    assert.match(problem, message);
    assert.equal(live.errors.lines.at(-1), `tarn: ${problem}\n`);
    assert.equal(problem.includes('\n'), false);
    assert.equal(await live.driven.text(), text);
    assert.notEqual(await live.picture(), before);
    assert.equal(live.window.form.who, 'Ada');
    await live.driven.type('who', ' Lovelace', { append: true });
    const mended = await live.save(name, good);
    assert.equal(mended.problem, null);
    assert.equal(live.window.form.who, 'Ada Lovelace');
    await live.driven.type('who', 'Ada');
    return before;
}

test('markup that can not be read', withPage(page(`good ${field}`), async (live) => {
    const before = await breakAndMend(live, 'page.html', page('bad < >'), /page\.html: line 2: /, page(`good ${field}`));
    assert.equal(await live.picture(), before);
}));

test('a page that it loads is missing, until it is there', withPage(page(`good ${field}`), async (live) => {
    await breakAndMend(live, 'page.html', page(`${field}<table><tr><td src="missing.html"></table>`), /missing\.html: there is no such file$/, page(`good ${field}`));
    const { problem } = await live.save('page.html', page(`${field}<table><tr><td src="missing.html"></table>`));
    assert.match(problem, /missing\.html/);
    assert.equal((await live.save('missing.html', 'now there')).problem, null);
    assert.match(await live.driven.text(), /now there/);
}));

test('a page that it loads can not be read, however deep', withPage({
    'page.html': page(`${field}<table><tr><td src="one.html"></table>`), 'one.html': '<table><tr><td src="two.html"></table>', 'two.html': 'two',
}, async (live) => {
    await breakAndMend(live, 'two.html', '< >', /two\.html: line 1: /, 'two again');
    assert.match(await live.driven.text(), /two again/);
}));

test('a file that is removed', withPage(page(`good ${field}`), async (live) => {
    const before = await breakAndMend(live, 'page.html', null, /page\.html: there is no such file$/, page(`good ${field}`));
    assert.equal(await live.picture(), before);
}));

test('an empty file', withPage(page(`good ${field}`), async (live) => {
    await breakAndMend(live, 'page.html', ' \n', /page\.html: the page is empty$/, page(`good ${field}`));
}));

test('a filter that throws, and one that is rejected', async () => {
    let fails = false;
    tarn.GuiWindow.onLoad('page.html', async (window, text) => {
        if (fails) {
            throw new RangeError('of the\nfilter');
        }
        return text;
    });
    const errors = [];
    tarn.onError = (error) => errors.push(error);
    try {
        await withPage(page(`good ${field}`), async (live) => {
            fails = true;
            const { problem } = await live.save('page.html', page(`other ${field}`));
            assert.match(problem, /^RangeError: of the filter \(.*liveerrors\.real\.test\.js:\d+\)$/);
            assert.match(await live.driven.text(), /good/);
            fails = false;
            assert.equal((await live.save('page.html', page(`another ${field}`))).problem, null);
            assert.match(await live.driven.text(), /another/);
        })();
        assert.deepEqual(errors, []);
    } finally {
        tarn.onError = null;
        tarn.GuiWindow.onLoad('page.html');
    }
});

test('a filter that throws for several windows of one page', async () => {
    let fails = false;
    tarn.GuiWindow.onLoad('page.html', async (window, text) => {
        await sleep(20);
        if (fails) {
            throw new RangeError('of the filter');
        }
        return text.replace('RAW', 'filtered');
    });
    try {
        await withPage(page('RAW'), async (live) => {
            const windows = [live.window, new tarn.GuiWindow(live.file('page.html'))];
            windows[1].open();
            const second = await driver.drive(windows[1]);
            fails = true;
            fs.writeFileSync(live.file('page.html'), page('RAW again'));
            await until(() => live.reloads.length === 2, 5000);
            assert.deepEqual(new Set(live.reloads.map(({ window }) => window)), new Set(windows));
            for (const { problem } of live.reloads) {
                assert.match(problem, /^RangeError: of the filter/);
            }
            assert.deepEqual([await live.driven.text(), await second.text()], ['filtered', 'filtered']);
            windows[1].close();
        })();
    } finally {
        tarn.GuiWindow.onLoad('page.html');
    }
});

test('what was saved beside an error is shown with the next good save', withPage({
    'page.html': page('first <table><tr><td src="inner.html"></table>'), 'inner.html': 'inner',
}, async (live) => {
    fs.writeFileSync(live.file('page.html'), page('second <table><tr><td src="inner.html"></table>'));
    fs.writeFileSync(live.file('inner.html'), '< >');
    await until(() => live.reloads.some(({ problem }) => problem !== null), 3000);
    await sleep(50);
    assert.equal((await live.save('inner.html', 'other')).problem, null);
    assert.match(await live.driven.text(), /second\s+other/);
}));

test('the strip stands above the status line and goes with the window\'s size', withPage(page(`good ${field}<statusbar>ready</statusbar>`), async (live) => {
    await breakAndMend(live, 'page.html', page('< >'), /line 2/, page(`good ${field}<statusbar>ready</statusbar>`));
    await live.save('page.html', page('< >'));
    live.window.setDefaultSize(500, 200);
    await live.driven.press('Ctrl+F'); // the find bar stands above it
    await live.picture();
    await live.driven.press('Escape');
}));

test('a window that is closed meanwhile', withPage(page('good'), async (live) => {
    fs.writeFileSync(live.file('page.html'), page('other'));
    live.window.close();
    await sleep(80);
    live.window.open();
    assert.equal(live.window.isOpen(), true);
    await until(() => live.reloads.length > 0, 3000);
    assert.equal(live.reloads[0].problem, null);
}));
