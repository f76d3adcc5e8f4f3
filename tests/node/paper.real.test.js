'use strict';
// Pages as PDF files, read back by other programs.

const assert = require('node:assert/strict');
const { execFileSync } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { after, before, test } = require('node:test');
const { packageFolder, scratch } = require('./helpers.js');

const tarn = require(packageFolder);
const { GuiWindow, html } = tarn;

const pdf = path.join(scratch, 'out.pdf');

/** What pdfinfo says, by the names that it has for it. */
function infoOf(file) {
    const text = execFileSync('pdfinfo', [file], { encoding: 'utf8' });
    return Object.fromEntries(text.trim().split('\n').map((line) => line.match(/^([^:]+): *(.*)$/).slice(1)));
}

/** The text of each sheet. */
function textsOf(file) {
    return execFileSync('pdftotext', ['-layout', file, '-'], { encoding: 'utf8' }).split('\f').slice(0, -1);
}

const linesOf = (text) => text.split('\n').map((line) => line.trim()).filter((line) => line !== '');

const long = html`<title>Tea & more</title><body width="400" height="300" valign="top"><h1>Tea</h1>
    ${Array.from({ length: 150 }, (_, i) => html`<p>Paragraph ${i + 1} of many</p>`)}</body>`;

let window;
before(() => {
    window = GuiWindow.from(long);
    window.open();
});
after(() => window.close());

test('savePdf writes the whole page, not what the window shows', async () => {
    assert.equal(await window.savePdf(pdf), undefined);
    const info = infoOf(pdf);
    assert.equal(info.Title, 'Tea & more');
    assert.match(info['Page size'], /^59[45]\.?\d* x 84[12]\.?\d* pts \(A4\)$/);
    const texts = textsOf(pdf);
    assert.equal(texts.length, Number(info.Pages));
    assert.ok(texts.length > 3);
    assert.deepEqual(linesOf(texts.join('\n')), ['Tea', ...Array.from({ length: 150 }, (_, i) => `Paragraph ${i + 1} of many`)]);
});

test('no two sheets have a paragraph in common, and each begins with one', async () => {
    await window.savePdf(pdf);
    const firsts = textsOf(pdf).map((text) => linesOf(text)[0]);
    assert.equal(firsts[0], 'Tea');
    assert.ok(firsts.slice(1).every((line) => /^Paragraph \d+ of many$/.test(line)), String(firsts));
});

test('paper, margins and landscape', async () => {
    for (const [options, size] of [
        [{ paper: 'A5' }, [419.5, 595.2]], [{ paper: 'A3' }, [841.8, 1190.5]], [{ paper: 'Letter' }, [612, 792]],
        [{ paper: 'Legal' }, [612, 1008]], [{ paper: 'A4', landscape: true }, [841.8, 595.2]],
        [{ paper: { width: 100, height: 200 }, margins: { left: 5, right: 5 } }, [283.4, 566.9]], [{ margins: 0 }, [595.2, 841.8]],
    ]) {
        await window.savePdf(pdf, options);
        const [, width, height] = infoOf(pdf)['Page size'].match(/^([\d.]+) x ([\d.]+) pts/);
        assert.ok(Math.abs(width - size[0]) < 1.1 && Math.abs(height - size[1]) < 1.1, `${JSON.stringify(options)}: ${width} x ${height}`);
    }
});

test('narrower margins make fewer sheets', async () => {
    const count = async (margins) => {
        await window.savePdf(pdf, { margins });
        return Number(infoOf(pdf).Pages);
    };
    assert.ok(await count(5) < await count({ top: 60, bottom: 60 }));
});

test('lines above and below have the number of the sheet, how many there are, and the title', async () => {
    await window.savePdf(pdf, { header: { left: '{title}', right: 'left {x} {' }, footer: '{page}/{pages}' });
    const texts = textsOf(pdf);
    texts.forEach((text, i) => {
        const lines = linesOf(text);
        assert.match(lines[0], /^Tea & more {2,}left \{x\} \{$/);
        assert.equal(lines.at(-1), `${i + 1}/${texts.length}`);
    });
});

test('a window that is not open can be saved, and is not open afterwards', async () => {
    const other = GuiWindow.from(html`<body width="300" height="200">Hello <input type="text" name="who" value="Ada Lovelace" width="200">`);
    await other.savePdf(pdf);
    assert.deepEqual(textsOf(pdf).map((text) => text.includes('Hello') && text.includes('Ada Lovelace')), [true]);
    assert.equal(other.isOpen(), false);
    assert.equal(other.form.who, 'Ada Lovelace');
});

test('what was typed and set is what is printed', async () => {
    window.setText(html`<input type="text" name="who" value="Ada" width="200"><select name="tea"><option value="g" selected>Green<option value="b">Black</select>`);
    window.form.who = 'Grace Hopper';
    window.form.tea = 'b';
    await window.savePdf(pdf);
    const [text] = textsOf(pdf);
    assert.match(text, /Grace Hopper/);
    assert.match(text, /Black/);
    assert.doesNotMatch(text, /Green/);
    window.setText(String(long).replace(/<title>.*?<\/title>/, ''));
});

test('all controls of a large form are seen', async () => {
    const form = GuiWindow.from(html`<body width="300" height="200" valign="top">${Array.from({ length: 2500 }, (_, i) => (
        html`<p><input type="text" value="number ${i}." width="150"></p>`))}`);
    await form.savePdf(pdf);
    const text = textsOf(pdf).join('\n');
    const seen = new Set(text.match(/number \d+\./g));
    assert.equal(seen.size, 2500);
});

test('the head of a table stands on each sheet that the table is on', async () => {
    const rows = Array.from({ length: 200 }, (_, i) => html`<tr><td width="200">row ${i + 1}<td>x</tr>`);
    for (const head of ['<tr head><td>Name<td>X</tr>', '<thead><tr><td>Name<td>X</tr></thead>']) {
        const table = GuiWindow.from(`<body valign="top"><p>Before</p><table>${head}${rows.join('')}</table>${'<p>Behind</p>'.repeat(200)}`);
        await table.savePdf(pdf);
        const texts = textsOf(pdf);
        const withRows = texts.filter((text) => /row \d/.test(text));
        assert.ok(withRows.length > 2);
        for (const text of withRows) {
            assert.equal(text.match(/Name/g)?.length, 1, text);
        }
        assert.deepEqual(texts.filter((text) => !/row \d/.test(text) && /Name/.test(text)), []);
        assert.deepEqual(texts.join('\n').match(/row \d+/g), Array.from({ length: 200 }, (_, i) => `row ${i + 1}`));
    }
});

test('links to the web, links within the page and the outline are there', async () => {
    const page = GuiWindow.from(html`<body valign="top"><h1>One</h1><a href="https://example.org/tea?a=1&b=2">out</a> <a href="#last">down</a>
        <a href="event://onGo">act</a>${Array.from({ length: 100 }, () => html`<p>x</p>`)}<h2 id="last">Last one</h2>`);
    await page.savePdf(pdf);
    const bytes = fs.readFileSync(pdf, 'latin1');
    assert.deepEqual(bytes.match(/\/URI \(.*?\)/g), ['/URI (https://example.org/tea?a=1&b=2)']);
    assert.equal(bytes.match(/\/S \/GoTo \/D \[/g).length, 1);
    assert.equal(bytes.match(/\/Title <feff/g).length, 2);
    const xml = execFileSync('pdftohtml', ['-xml', '-stdout', '-i', pdf], { encoding: 'utf8' });
    assert.match(xml, /<a href="https:\/\/example\.org\/tea\?a=1&(amp;)?b=2">out<\/a>/);
    assert.match(xml, /<outline>\s*<item page="1">One<\/item>\s*<outline>\s*<item page="\d+">Last one<\/item>/);
});

test('pictures have more pixels on paper than on the screen', async () => {
    const picture = path.join(__dirname, '..', '..', 'examples', 'preferences', 'preferences.png');
    const page = GuiWindow.from(html`<body width="300" height="200" valign="top"><img src="${picture}" width="100">`);
    page.open();
    await page.savePdf(pdf);
    page.close();
    const [, , line] = execFileSync('pdfimages', ['-list', pdf], { encoding: 'utf8' }).split('\n');
    assert.ok(Number(line.trim().split(/ +/)[3]) >= 300, line);
});

test('a file that can not be written is told in one line, and nothing is left behind', async () => {
    const folder = fs.mkdtempSync(path.join(scratch, 'empty-'));
    const caller = 'GuiWindow.savePdf(path, options): can not write ';
    for (const [file, why] of [[path.join(folder, 'none', 'a.pdf'), /./], [folder, /^Is a directory$/], ['/dev/null', /plain file/]]) {
        await assert.rejects(window.savePdf(file), (error) => {
            assert.ok(error instanceof Error && error.message.startsWith(`${caller}${file}: `), error.message);
            assert.match(error.message.slice(caller.length + file.length + 2), why);
            assert.equal(error.path, file);
            return !error.message.includes('\n');
        });
    }
    assert.deepEqual(fs.readdirSync(folder), []);
});

test('a window without a page has nothing to write', async () => {
    await assert.rejects(new GuiWindow().savePdf(path.join(scratch, 'none.pdf')), /the window has no page$/);
    assert.equal(fs.existsSync(path.join(scratch, 'none.pdf')), false);
});

test('wrong arguments throw at once, and the message names them', () => {
    for (const [args, message] of [
        [[], /"path" is missing/], [[1], /"path" must be a path, as a string or a file URL, not the number 1/],
        [['a.pdf', 1], /"options" must be an object/], [['a.pdf', { papr: 'A4' }], /there is no option "papr"; is "paper" meant\?|"papr"/],
        [['a.pdf', { paper: 'A9' }], /the option "paper" must be "A3".* or \{ width, height \} in millimetres, not the string "A9"/],
        [['a.pdf', { paper: { width: 0, height: 9 } }], /"paper"/], [['a.pdf', { paper: { width: 10 } }], /"paper"/],
        [['a.pdf', { paper: 'toString' }], /"paper"/], [['a.pdf', { landscape: 1 }], /"landscape" must be true or false/],
        [['a.pdf', { margins: -1 }], /"margins" must be millimetres/], [['a.pdf', { margins: { up: 1 } }], /"margins"/],
        [['a.pdf', { margins: NaN }], /"margins"/], [['a.pdf', { margins: 105 }], /"margins" must leave 10 millimetres each way, not 0 by 87/],
        [['a.pdf', { header: 1 }], /"header" must be a string or \{ left, center, right \}/], [['a.pdf', { footer: { middle: 'x' } }], /"footer"/],
    ]) {
        assert.throws(() => window.savePdf(...args), (error) => {
            assert.equal(error.name, 'TypeError');
            assert.match(error.message, /^GuiWindow\.savePdf\(path, options\): /);
            assert.match(error.message, message);
            return !error.message.includes('\n');
        });
    }
    assert.equal(fs.existsSync('a.pdf'), false);
});
