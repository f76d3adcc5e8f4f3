'use strict';
// Async handlers on a display: the window is free while their promises are on the way, only what raised the call is not.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, test } = require('node:test');
const { closeByUser, findActiveWindow, keys, press, type, waitGone } = require('./desktop.js');
const { runScript, scratch, sleep } = require('./helpers.js');
const { Program } = require('./program.js');

const row = (height, content) => `<tr><td height="${height}">${content}</td></tr>`;
const button = (name, more) => `<input type="button" name="${name}" value="${name}" ${more} width="100" height="30">`;
const pageOf = (title, more = '') => `<html><head><title>${title}</title></head><body width="500" height="300" valign="top">
<table width="480" cellspacing="0" cellpadding="0">
${row(40, button('load', 'onclick="event://onLoad"') + button('cancel', 'onclick="event://onCancel"'))}
${row(40, '<input type="text" name="state" width="400" height="30">')}
${row(40, '<input type="text" name="field" onchange="event://onField" width="400" height="30">')}
${row(40, '<a href="event://onLink">go there</a>')}
</table>${more}</body></html>`;
const at = { load: [50, 20], cancel: [150, 20], state: [200, 60], field: [200, 100], link: [20, 140] };
const menu = '<object classid="menu" name="menu"><param name="one" value="One"></object>';

const source = `
let window, other, seen = [], settle = {};
class Page extends tarn.GuiWindow {
    async onLoad() {
        seen.push('load');
        this.form.state = 'loading';
        const answer = await new Promise((resolve) => { settle.load = resolve; });
        this.form.state = 'loaded';
        seen.push('loaded');
        return answer;
    }
    onCancel() { seen.push('cancel'); }
    async onField() {
        seen.push('field ' + this.form.field);
        await new Promise((resolve) => { settle.field = resolve; });
    }
    async onLink() {
        seen.push('link');
        await new Promise((resolve) => { settle.link = resolve; });
    }
    async eMenu(session, name) {
        seen.push('menu ' + name);
        await new Promise((resolve) => { settle.menu = resolve; });
    }
}
`;

let program;
let window;

before(async () => {
    fs.writeFileSync(path.join(scratch, 'async.html'), pageOf('Async'));
    fs.writeFileSync(path.join(scratch, 'other.html'), pageOf('Other'));
    fs.writeFileSync(path.join(scratch, 'menu.html'), pageOf('Other', menu));
    fs.writeFileSync(path.join(scratch, 'next.html'), '<html><head><title>Next</title></head><body>the next page</body></html>');
    program = await Program.start(source);
});
/** One handler goes on when its page has made way for another. */
after(() => program.end('tarn: the form has no control "state"\n'));

async function withWindow(work) {
    await program.ask("window = new Page('async.html'); seen = []; settle = {}; window.open()");
    window = await findActiveWindow('Async');
    try {
        await work();
    } finally {
        await program.ask('window.close(), other?.close()');
        await waitGone('Async');
        await waitGone('Other');
    }
}

const calls = (wanted) => program.becomes('seen', wanted);

test('while a handler waits its window is free, and what raised it takes no second activation', async () => {
    await withWindow(async () => {
        await press(window, ...at.load);
        await calls(['load']);
        await program.becomes("window.control('state').value", 'loading');
        await press(window, ...at.load);
        await press(window, ...at.cancel);
        await calls(['load', 'cancel']);
        await press(window, ...at.load);
        await press(window, ...at.cancel);
        await calls(['load', 'cancel', 'cancel']);
        await program.ask('settle.load(), 0');
        await calls(['load', 'cancel', 'cancel', 'loaded']);
        assert.equal(await program.ask("window.control('state').value"), 'loaded');
        await press(window, ...at.load);
        await calls(['load', 'cancel', 'cancel', 'loaded', 'load']);
    });
});

test('a link and a menu item take no second activation either', async () => {
    await withWindow(async () => {
        for (let i = 0; i < 3; ++i) {
            await press(window, ...at.link);
        }
        await press(window, ...at.cancel);
        await calls(['link', 'cancel']);
        await program.ask("settle.link(), other = new Page('menu.html'), other.open()");
        await program.ask("other.control('menu').activateItem('one'), other.control('menu').activateItem('one')");
        await calls(['link', 'cancel', 'menu one']);
        await program.ask('settle.menu(), 0');
        await program.ask("other.control('menu').activateItem('one')");
        await calls(['link', 'cancel', 'menu one', 'menu one']);
        await program.ask('other.close()');
        await waitGone('Other');
        await press(window, ...at.link);
        await calls(['link', 'cancel', 'menu one', 'menu one', 'link']);
    });
});

test('a string that the promise resolves to is followed while the window shows the same page', async () => {
    await withWindow(async () => {
        await press(window, ...at.load);
        await calls(['load']);
        await program.ask("settle.load('next.html'), 0");
        await program.becomes('window.getTitle()', 'Next');
    });
    await withWindow(async () => {
        await press(window, ...at.load);
        await calls(['load']);
        await program.ask("window.setText('<p>another page</p><input type=text name=mine>'), settle.load('next.html'), 0");
        await calls(['load', 'loaded']);
        await sleep(100);
        assert.equal(await program.ask("window.control('mine') !== null"), true);
    });
});

test('a field tells once more what was typed while its handler waited', async () => {
    await withWindow(async () => {
        await press(window, ...at.field);
        await program.becomes('window.getFocus()', 'field');
        await type('a');
        await calls(['field a']);
        await type('bcd');
        await program.becomes("window.control('field').value", 'abcd');
        await program.ask('settle.field(), 0');
        await calls(['field a', 'field abcd']);
        await type('e');
        await keys('BackSpace');
        await program.becomes("window.control('field').value", 'abcd');
        await program.ask('settle.field(), 0');
        await sleep(100);
        await calls(['field a', 'field abcd']);
    });
});

test('a handler that never ends costs another window nothing', async () => {
    await withWindow(async () => {
        await press(window, ...at.load);
        await calls(['load']);
        await program.ask("other = new Page('other.html'), other.open()");
        window = await findActiveWindow('Other');
        await press(window, ...at.load);
        await press(window, ...at.cancel);
        await calls(['load', 'load', 'cancel']);
    });
});

test('a closed window forgets its handlers: opened again it is as new', async () => {
    await withWindow(async () => {
        await press(window, ...at.load);
        await calls(['load']);
        await program.ask('window.close()');
        await waitGone('Async');
        await program.ask('window.open()');
        window = await findActiveWindow('Async');
        await press(window, ...at.load);
        await calls(['load', 'load']);
    });
});

test('await showAsync() in a handler leaves the windows their input', async () => {
    await withWindow(async () => {
        await program.ask(`window.onLoad = async () => {
            other = new Page('other.html');
            seen.push('closed ' + await other.showAsync());
        }, 0`);
        await press(window, ...at.load);
        window = await findActiveWindow('Other');
        await press(window, ...at.cancel);
        await calls(['cancel']);
        await program.ask('other.setReturnValue(7), other.close()');
        await calls(['cancel', 'closed 7']);
    });
});

test('the user closes a window only if it lets him', async () => {
    await withWindow(async () => {
        await program.ask("window.eClose = (session) => { seen.push('close ' + (session === tarn.session)); return false; }, 0");
        await program.ask("window.setEscapeControl('X')");
        await closeByUser(window);
        await calls(['close true']);
        await keys('Escape');
        await calls(['close true', 'close true']);
        assert.equal(await program.ask('window.isOpen()'), true);
        await program.ask('window.close()');
        await waitGone('Async');
        await calls(['close true', 'close true']);
    });
    for (const [answer, stays] of [['false', true], ['undefined', false], ['true', false]]) {
        await withWindow(async () => {
            await program.ask("window.eClose = () => { seen.push('asked'); return new Promise((resolve) => { settle.close = resolve; }); }, 0");
            await closeByUser(window);
            await calls(['asked']);
            await closeByUser(window);
            await press(window, ...at.cancel);
            await calls(['asked', 'cancel']);
            await program.ask(`settle.close(${answer}), 0`);
            await program.becomes('window.isOpen()', stays);
        });
    }
    await withWindow(async () => {
        await program.ask("window.eClose = async () => { seen.push(window.form.state); return true; }, window.setEscapeControl('X')");
        await press(window, ...at.state);
        await type('typed');
        await keys('Escape');
        await waitGone('Async');
        await calls(['typed']);
    });
});

const often = Number(process.env.TARN_SHOWS ?? 60);

test('showAsync() settles however soon its window closes', async () => {
    const { code, stdout, stderr } = await runScript(`
        const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
        (async () => {
            let settled = 0;
            for (let i = 0; i < ${often}; ++i) {
                const window = new tarn.GuiWindow('other.html');
                const how = i % 4, delay = i % 101;
                window.setReturnValue(i); // first, since timers and immediates may run meanwhile
                if (how === 1) window.ePostOpen = () => window.close();
                if (how === 2) setTimeout(() => window.close(), delay);
                if (how === 3) setImmediate(() => window.close());
                const shown = window.showAsync();
                if (how === 0) {
                    await sleep(delay);
                    window.close();
                }
                if (await shown === i) ++settled;
            }
            console.log(settled);
        })();`, { limitMs: 30000 + 300 * often });
    assert.deepEqual([stdout, stderr, code], [`${often}\n`, '', 0]);
});

test('showAsync() is show() as a promise: its opening event, form and errors', async () => {
    const run = (show) => runScript(`
        process.on('uncaughtException', (error) => console.log('uncaught', error.message));
        const window = new (class extends tarn.GuiWindow {
            ePostOpen(session) {
                console.log(session === tarn.session, this.isOpen(), session.currentForm === this.form, this.form.state);
                this.form.state = 'opened';
                setTimeout(() => { console.log(this.form.state, this.control('state').value); this.close(); }, 100);
                throw new Error('broken');
            }
        })('async.html');
        window.setReturnValue({ some: 'value' });
        (async () => { console.log(${show}, window.form.state); })();`);
    const shown = await run('window.show()');
    assert.deepEqual([shown.stderr, shown.code], ['', 0]);
    assert.match(shown.stdout, /^true true true \nuncaught broken\nopened opened\n\{ some: 'value' \} opened\n$/);
    assert.deepEqual((await run('await window.showAsync()')).stdout, shown.stdout);
});

test('windows whose handlers never settle give their memory back', async () => {
    const { code, stdout, stderr } = await runScript(`
        const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
        let ended = 0;
        const registry = new FinalizationRegistry(() => ++ended);
        class Never extends tarn.GuiWindow {
            data = new Array(100000).fill(1);
            async ePostOpen() { await new Promise(() => {}); this.data = null; }
            async eMenu() { await new Promise(() => {}); this.data = null; }
        }
        const one = async () => {
            const window = new Never('menu.html');
            registry.register(window);
            const shown = window.showAsync();
            window.control('menu').activateItem('one');
            window.close();
            await shown;
        };
        (async () => {
            for (let i = 0; i < 40; ++i) await one();
            for (let i = 0; i < 50 && ended < 38; ++i) { gc(); await sleep(20); }
            console.log(ended >= 38, ended);
        })();`, { args: ['--expose-gc'] });
    assert.deepEqual([stderr, code], ['', 0]);
    assert.match(stdout, /^true/);
});

test('too many windows inside each other are refused in one line', async () => {
    const nest = (step) => runScript(`
        let depth = 0, refused = null;
        const next = () => {
            if (refused) return;
            const window = new tarn.GuiWindow('other.html');
            try {
                ++depth;
                ${step}
            } catch (error) {
                refused ??= [depth, error.name, error.message];
                window.close();
            }
        };
        next();
        setTimeout(() => console.log(refused), 0);`, { limitMs: 120000 });
    const nested = {
        'in ePostOpen': 'window.ePostOpen = () => { next(); window.close(); }; window.show();',
        'in promises': 'Promise.resolve().then(() => { next(); window.close(); }); window.show();',
    };
    for (const [how, step] of Object.entries(nested)) {
        const { code, stdout, stderr } = await nest(step);
        assert.deepEqual([how, stderr, code], [how, '', 0]);
        assert.match(stdout, /51, *\s*'Error', *\s*'GuiWindow.show\(\) waits inside 50 others/, how);
    }
});

test('a handler that calls itself without end is refused in one line', async () => {
    const { code, stdout, stderr } = await runScript(`
        process.on('uncaughtException', (error) => console.log(error.name, error.message));
        const window = new tarn.GuiWindow('menu.html');
        let calls = 0;
        window.eMenu = () => { ++calls; window.control('menu').activateItem('one'); };
        window.open();
        window.control('menu').activateItem('one');
        console.log(calls);
        window.close();`);
    assert.deepEqual([stderr, code], ['', 0]);
    assert.match(stdout, /^RangeError the handler eMenu\(\) was called inside 150 handlers that are still running\n150\n$/);
});
