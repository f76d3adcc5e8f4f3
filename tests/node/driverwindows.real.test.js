'use strict';
// What the test driver reads from windows, its pictures, and which windows it finds.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { after, afterEach, beforeEach, describe, test } = require('node:test');
const { dialog, drive } = require('./driven.js').driver;
const { end, fails, nothing, open, short, shown, tarn } = require('./driven.js');
const { scratch, sleep } = require('./helpers.js');

afterEach(end);

describe('what is read', () => {
    const page = '<h1>Order</h1><p>Three <b>cups</b></p><table><tr><td name="total">Total: 3</td><td>EUR</td></tr></table>'
        + '<form><input type="text" name="who" value="Ann" label="Your name"><input type="button" name="save" value="Save it" disabled>'
        + '<select name="size"><option value="s">Small<option value="m" selected>Medium</select>'
        + '<input type="checkbox" name="agree" checked><input type="radio" name="color" value="red"><input type="radio" name="color" value="blue" checked></form>'
        + '<details><summary>More</summary>hidden text</details>'
        + '<object classid="flexlist" name="list"><column text="Name" width="80"><option value="a" text="Ann" type="checkbox" checked></object>';

    test('text: of elements, of controls, of the page as it is seen', async () => {
        const w = await open(page);
        assert.equal(await w.text('total'), 'Total: 3');
        assert.equal(await w.text('who'), 'Ann');
        assert.equal(await w.text('save'), 'Save it');
        assert.equal(await w.text('size'), 'Medium');
        assert.equal(await w.text(), 'Order\nThree cups\nTotal: 3\tEUR');
    });

    test('value: as the form has it', async () => {
        const w = await open(page);
        assert.deepEqual(await Promise.all(['who', 'size', 'agree', 'color', 'list'].map((name) => w.value(name))), ['Ann', 'm', true, 'blue', null]);
        await fails(w.value('total'), 'value("total"): the element "total" has no value');
    });

    test('rows: of lists and selects', async () => {
        const w = await open(page);
        const [row] = await w.rows('list');
        assert.deepEqual([row.value, row.texts, row.checked, row.selected], ['a', ['Ann'], true, false]);
        assert.deepEqual(await w.rows('list'), shown.window.control('list').rows());
        assert.deepEqual(await w.rows('size'), [{ value: 's', text: 'Small', selected: false }, { value: 'm', text: 'Medium', selected: true }]);
        await fails(w.rows('who'), 'rows("who"): the field "who" is no list');
    });

    test('find: what is known of a thing, null without waiting when it is not there', async () => {
        const w = await open(page);
        assert.deepEqual(await w.find('save'), { kind: 'button', name: 'save', text: 'Save it', label: '', value: null, enabled: false, visible: true });
        assert.deepEqual(await w.find({ field: 'Your name' }), { kind: 'field', name: 'who', text: 'Ann', label: 'Your name', value: 'Ann', enabled: true, visible: true });
        assert.equal((await w.find('agree')).checked, true);
        const started = Date.now();
        assert.equal(await w.find('nothing'), null);
        assert.ok(Date.now() - started < 2000);
    });

    test('label: what a screen reader calls it', async () => {
        const w = await open('<label for="who">&Name</label> <input type="text" name="who"><label><input type="checkbox" name="milk"> with milk</label>'
            + '<p>Age: <input type="number" name="age"></p><input type="text" name="town" label="Town"><p>How many?</p><input type="button" name="go" value="Go">');
        const labelOf = async (name) => (await w.find(name)).label;
        assert.deepEqual(await Promise.all(['who', 'milk', 'age', 'town', 'go'].map(labelOf)), ['Name', 'with milk', 'Age', 'Town', '']);
        await w.type({ field: 'Name' }, 'Ann');
        await w.check('with milk');
        assert.deepEqual([await w.value('who'), await w.value('milk')], ['Ann', true]);
    });

    test('title', async () => {
        const w = await open(page);
        shown.window.setTitle('Other');
        assert.equal(await w.title(), 'Other');
    });

    test('reading waits for what is not there yet, and fails with what there is', async () => {
        const w = await open('<table><tr><td name="place">-</td></tr></table>');
        setTimeout(() => shown.window.control('place').setText('<table name="late"><tr><td>now</td></tr></table>'), 40);
        assert.equal(await w.text('late'), 'now');
        await fails(w.text('lte', short),
            'text("lte"): the window "Order" has no "lte"; did you mean "late"? it has nothing to work with (waited 60 ms)');
    });
});

describe('pictures', () => {
    const page = '<table width="100" height="40" bgcolor="#FF0000"><tr><td name="it">-</td></tr></table>';
    const file = path.join(scratch, 'pictures', 'page.png');
    const actual = path.join(scratch, 'pictures', 'page.actual.png');
    beforeEach(() => fs.rmSync(path.dirname(file), { recursive: true, force: true }));
    after(() => { delete process.env.TARN_UPDATE; });

    test('screenshot writes a picture of the window\'s size', async () => {
        const w = await open(page);
        assert.equal(await w.screenshot(file), file);
        const bytes = fs.readFileSync(file);
        assert.deepEqual([bytes.subarray(1, 4).toString(), bytes.readUInt32BE(16), bytes.readUInt32BE(20)], ['PNG', 420, 300]);
        await fails(w.screenshot('/dev/null/x.png', short),
            'screenshot("/dev/null/x.png"): the file /dev/null/x.png cannot be written (waited 60 ms)');
    });

    test('matches compares, and writes only where it is told to', async () => {
        const w = await open(page);
        await fails(w.matches(file),
            `matches(${JSON.stringify(file)}): there is no such picture; the window as it is now is in ${actual}, TARN_UPDATE=1 takes it over`);
        assert.deepEqual([fs.existsSync(file), fs.existsSync(actual)], [false, true]);
        process.env.TARN_UPDATE = '1';
        await w.matches(file);
        delete process.env.TARN_UPDATE;
        assert.deepEqual([fs.existsSync(file), fs.existsSync(actual)], [true, false]);
        await w.matches(file);
    });

    test('matches tells how many pixels differ', async () => {
        const w = await open(page);
        await w.screenshot(file);
        shown.window.control('it').setText('<table width="10" height="10" bgcolor="#00FF00" cellspacing="0" cellpadding="0"></table>');
        const message = (await w.matches(file).catch((error) => error)).message;
        const [, differing] = /: (\d+) pixels differ; the window/.exec(message) ?? [];
        assert.ok(differing > 20 && differing < 500, message);
        assert.ok(fs.existsSync(actual));
        await w.matches(file, { pixels: Number(differing) });
        await fails(w.matches(file, { pixels: differing - 1 }),
            `matches(${JSON.stringify(file)}): ${differing} pixels differ, more than ${differing - 1}; the window as it is now is in ${actual}, TARN_UPDATE=1 takes it over`);
        await w.matches(file, { tolerance: 255 });
    });

    test('matches tells of another size, and of a file that is no picture', async () => {
        const w = await open(page);
        fs.mkdirSync(path.dirname(file));
        fs.writeFileSync(file, 'no picture');
        await fails(w.matches(file, short), `matches(${JSON.stringify(file)}): the file ${file} is no picture (waited 60 ms)`);
        const other = tarn.GuiWindow.from('<html><body width="99" height="77">x</body></html>');
        const small = await drive(other);
        await small.screenshot(file);
        await small.close();
        await fails(w.matches(file),
            `matches(${JSON.stringify(file)}): the window has 420 by 300 pixels, the picture 99 by 77; the window as it is now is in ${actual}, TARN_UPDATE=1 takes it over`);
    });

    test('a cursor does not blink on a picture', async () => {
        const w = await open('<form><input type="text" name="who"></form>');
        await w.type('who', 'x');
        await w.screenshot(file);
        await sleep(700);
        await w.matches(file);
    });
});

describe('windows', () => {
    test('idle waits for promises and layout', async () => {
        const w = await open('<table name="it"><tr><td>-</td></tr></table>', { eTick: nothing });
        await w.idle();
        const stuck = await open('<p><a href="event://never">never</a></p>', { never: () => new Promise(nothing) });
        await stuck.click({ link: 'never' }, { timeout: 40 }).catch(nothing);
        await fails(stuck.idle({ timeout: 80 }), 'idle(): a handler\'s promise has not settled (waited 80 ms)');
    });

    test('close is the user\'s: the window may refuse', async () => {
        let stays = true;
        const w = await open('x', { eClose: () => !stays });
        await fails(w.close({ timeout: 80 }), 'close(): the window "Order" stays open: its eClose keeps it (waited 80 ms)');
        stays = false;
        await w.close();
        assert.equal(shown.window.isOpen(), false);
        await fails(w.click('x'), 'click("x"): the window is closed');
    });

    test('drive takes a window that is open, one that is not, and a title', async () => {
        shown.window = tarn.GuiWindow.from('<html><head><title>Early</title></head><body width="99" height="77">x</body></html>');
        shown.window.open();
        assert.equal(await (await drive(shown.window)).title(), 'Early');
        assert.equal(await (await drive('Early')).title(), 'Early');
        await fails(drive('Late', short), 'drive("Late"): no window has the title "Late"; open are "Early" (waited 60 ms)');
        await assert.rejects(drive(7), { name: 'TypeError', message: 'drive(window): "window" must be a GuiWindow or a title, not the number 7' });
        await assert.rejects(drive(shown.window, { time: 1 }), { name: 'TypeError', message: 'drive(window, options): there is no option "time"; there are timeout' });
    });

    test('a handler that waits in show(): the test goes on in the window in front', async () => {
        const w = await open('<p><a href="event://ask">ask</a></p><table name="said"><tr><td>-</td></tr></table>', {
            ask() {
                const front = tarn.GuiWindow.from('<html><head><title>Front</title></head><body width="200" height="80"><form><input type="text" name="who">'
                    + '<input type="button" name="ok" value="OK" onclick="event://ok"></form></body></html>');
                front.ok = function () { this.setReturnValue(this.form.who); this.close(); };
                this.control('said').setText(`it was ${front.show()}`);
            },
        });
        await w.click({ link: 'ask' });
        const front = await drive('Front');
        await front.type('who', 'Ann');
        await front.click('ok');
        assert.equal(await w.text('said'), 'it was Ann');
    });

    test('alert, confirm and prompt, awaited or not', async () => {
        const w = await open('<p><a href="event://sync">sync</a> <a href="event://async">async</a> <a href="event://name">name</a></p><table name="said"><tr><td>-</td></tr></table>', {
            sync() { this.control('said').setText(String(tarn.confirm('Really?', { title: 'Sure' }))); },
            async async() { this.control('said').setText(String(await tarn.alertAsync('Hm', { buttons: ['Keep', 'Drop'] }))); },
            name() { this.control('said').setText(String(tarn.prompt('Name', { value: 'x' }))); },
        });
        await w.click({ link: 'sync' });
        const confirm = await dialog();
        assert.equal(await confirm.text(), 'Really?');
        await fails(confirm.click('Nope', short),
            'click("Nope"): the dialog "Sure" has no "Nope"; it has the text "Really?"; the buttons "OK", "Cancel" (waited 60 ms)');
        await fails(w.click({ link: 'async' }, short),
            'click({ link: "async" }): the link "async" is behind the dialog "Sure", which has to be closed first (waited 60 ms)');
        await confirm.click('Cancel');
        assert.equal(await w.text('said'), 'false');
        await w.click({ link: 'async' });
        await (await dialog()).click('Drop');
        assert.equal(await w.text('said'), 'Drop');
        await w.click({ link: 'name' });
        const prompt = await dialog();
        await prompt.press('Ctrl+A');
        await prompt.type('Ann');
        await prompt.press('Enter');
        assert.equal(await w.text('said'), 'Ann');
        await fails(dialog(short), 'dialog(): no dialog is open; open are "Order" (waited 60 ms)');
    });

    test('dialogs for files and colours', async () => {
        const answers = [];
        const w = await open('<p><a href="event://file">file</a> <a href="event://color">color</a></p>', {
            file: () => { answers.push(tarn.openFile()); },
            color: () => { answers.push(tarn.pickColor({ color: '#102030' })); },
        });
        await w.click({ link: 'file' });
        const files = await dialog();
        await files.type('fileNameEdit', __filename);
        await files.click('Open');
        await w.click({ link: 'color' });
        await (await dialog()).click('OK');
        await w.idle();
        assert.deepEqual(answers, [__filename, '#102030']);
    });

    test('TARN_SLOW is a pause behind each action', async () => {
        const w = await open('<form><input type="button" name="a" value="A"></form>');
        process.env.TARN_SLOW = '60';
        const started = Date.now();
        await w.click('a');
        await w.click('a');
        delete process.env.TARN_SLOW;
        assert.ok(Date.now() - started >= 120);
    });

    test('what is not awaited keeps its order', async () => {
        const w = await open('<form><input type="text" name="who"></form>');
        w.type('who', 'a');
        w.type('b');
        w.type('c');
        assert.equal(await w.value('who'), 'abc');
    });
});
