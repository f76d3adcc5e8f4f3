'use strict';
// The gallery, in which everything stands that a page can have, used twice: by the keyboard alone, and by the mouse alone. What has
// become of it is what the program prints in the end.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { findActiveWindow, keys, press, type, xdotool } = require('../node/desktop.js');
const { scratch, until } = require('../node/helpers.js');
const { Driven, examples } = require('./driven.js');

const current = 'tarn.session.currentWindow';

/** What the form has when nothing was done. */
const untouched = {
    who: '', code: 'AB-12', find: '', secret: 'secret', path: '', count: 3, day: '2026-03-01', hour: '09:30', paint: '#1F6FEB',
    fixed: 'can only be read', off: 'can not be used', notes: 'Several\nlines', milk: 'yes', sugar: null, size: 'large', drink: 'tea',
    town: 'Bern', shade: 'r', towns: null, level: 40, done: 0.4, fuel: 0.4, busy: null, files: null, places: null, tasks: null,
    parts: '169,170', part: 'one', inOne: '1', inTwo: null, more: false, stars: 2, clicks: 0,
};

class Visitor extends Driven {
    constructor(folder) {
        super(path.join(examples, 'gallery', 'app.js'), [], { cwd: folder, limitMs: 180000 });
    }

    async arrive() {
        this.window = await this.at('Gallery');
        await this.becomes(`${current}.getFocus()`, 'who');
    }

    formBecomes(name, value) {
        return this.becomes(`${current}.form.${name}`, value);
    }

    /** Waits until the status line was set to this; a page can not read it, so the window is watched. */
    async hears(words) {
        await this.becomes('globalThis.said', words);
        await this.becomes('isIdle()', true);
    }

    /** Notes what the window says from now on. */
    listen() {
        return this.ask(`(${current}.say = function (words) { globalThis.said = words; this.control('status').setText(words); }, 1)`);
    }

    /** What the program prints about itself. */
    async values() {
        await until(() => this.stdout.includes('\n'));
        return JSON.parse(this.stdout);
    }
}

/** `folder`: in which the program is started. */
async function visit(t, folder = scratch) {
    const visitor = new Visitor(folder);
    t.after(() => visitor.kill());
    await visitor.arrive();
    await visitor.listen();
    return visitor;
}

/** Waits until something else has the keyboard. From one link of a text to the next, which have no names, nothing is to be seen. */
async function focusLeaves(visitor, focus) {
    const limitMs = focus === '' ? 2000 : 10000;
    await until(async () => await visitor.ask(`${current}.getFocus()`) !== focus, limitMs).catch((error) => {
        if (focus !== '') {
            throw error;
        }
    });
}

/** Presses Tab until the control has the keyboard. */
async function tabTo(visitor, name) {
    for (let stops = 0; stops < 40; ++stops) {
        const focus = await visitor.ask(`${current}.getFocus()`);
        if (focus === name) {
            return;
        }
        await keys('Tab');
        await focusLeaves(visitor, focus);
    }
    throw new Error(`Tab does not reach ${name}`);
}

async function fill(visitor, name, text, value = text) {
    await tabTo(visitor, name);
    await keys('ctrl+a');
    await type(text);
    await visitor.formBecomes(name, value);
}

async function pressOn(visitor, name, key, value) {
    await tabTo(visitor, name);
    await keys(key);
    await visitor.formBecomes(name, value);
}

/** Presses keys with a handler behind each: the next one is not pressed before it is done. */
async function pressInTurn(visitor, ...steps) {
    for (const [key, words] of steps) {
        await keys(key);
        await visitor.hears(words);
    }
}

async function useFieldsByKeys(visitor) {
    await fill(visitor, 'who', 'Gra');
    await keys('Down', 'Return');
    await visitor.formBecomes('who', 'Grace');
    await fill(visitor, 'code', 'XY-789');
    await fill(visitor, 'find', 'tea');
    await fill(visitor, 'secret', 'word');
    await fill(visitor, 'path', '/tmp/a');
    await pressOn(visitor, 'count', 'Up', 4);
    await pressOn(visitor, 'day', 'Up', '2026-03-02');
    await pressOn(visitor, 'hour', 'Up', '09:31');
    await tabTo(visitor, 'paint');
    await keys('space');
    await findActiveWindow('Select Color');
    await keys('alt+h');
    await keys('ctrl+a');
    await type('#00aa7f');
    await keys('Return');
    await visitor.formBecomes('paint', '#00AA7F');
    await tabTo(visitor, 'fixed');
    await type('no');
    await tabTo(visitor, 'notes');
    await keys('ctrl+End', 'Return');
    await type('more');
    await visitor.formBecomes('notes', 'Several\nlines\nmore');
}

async function useChoicesByKeys(visitor) {
    await tabTo(visitor, 'stars');
    await pressInTurn(visitor, ['Right', '3 stars'], ['Up', '4 stars']);
    await pressOn(visitor, 'milk', 'space', null);
    await pressOn(visitor, 'sugar', 'space', 'yes');
    await pressOn(visitor, 'size', 'Left', 'small');
    await pressOn(visitor, 'drink', 'Down', 'coffee');
    await fill(visitor, 'town', 'Lyon');
    await pressOn(visitor, 'shade', 'Down', 'g');
    await tabTo(visitor, 'towns');
    await keys('Home', 'shift+Down');
    await visitor.becomes(`${current}.control('towns').selection`, ['Bern', 'Lyon']);
    await pressOn(visitor, 'level', 'End', 100);
    await visitor.hears('level: 100');
    await tabTo(visitor, 'plain');
    await pressInTurn(visitor, ['space', 'clicked 1 times']);
    await tabTo(visitor, 'send');
    await pressInTurn(visitor, ['space', 'sent, and all is right']);
}

async function useListsByKeys(visitor) {
    await pressOn(visitor, 'files', 'Down', 'photo');
    await pressInTurn(visitor, ['Return', 'opened photo']);
    await tabTo(visitor, 'places');
    await keys('End');
    await visitor.formBecomes('places', 'asia');
    await keys('Right', 'Down');
    await visitor.formBecomes('places', 'kyoto');
    await pressOn(visitor, 'tasks', 'Down', 'dry');
    await pressInTurn(visitor, ['space', 'tasks: dry']);
    await visitor.becomes(`${current}.control('tasks').checked`, ['wash', 'dry', 'fold']);
}

async function useContainersByKeys(visitor) {
    await tabTo(visitor, 'places');
    await keys('Tab', 'Right'); // the divider
    await visitor.formBecomes('parts', '179,160');
    await visitor.rest();
    await pressOn(visitor, 'part', 'Right', 'two');
    await visitor.rest();
    await pressOn(visitor, 'inTwo', 'space', 'yes');
    await visitor.rest();
    await keys('ctrl+Prior');
    await visitor.formBecomes('part', 'one');
    await visitor.rest();
    await pressOn(visitor, 'more', 'space', true);
    await visitor.rest();
}

async function useMenusByKeys(visitor) {
    await pressInTurn(visitor, ['ctrl+s', 'menu: save'], ['ctrl+plus', 'menu: larger']);
    await keys('F10', 'Right');
    await pressInTurn(visitor, ['Return', 'menu: ruler']);
    await visitor.becomes(`${current}.control('menu').isItemChecked('ruler')`, false);
    await keys('alt+v');
    await pressInTurn(visitor, ['i', 'menu: icons']);
    await visitor.becomes(`['details', 'icons'].map((item) => ${current}.control('menu').isItemChecked(item))`, [false, true]);
    await tabTo(visitor, 'helpButton');
    await pressInTurn(visitor, ['Return', 'link: help']);
    await tabTo(visitor, 'milk');
    await keys('Menu');
    await pressInTurn(visitor, ['p', 'menu: paste']);
    await keys('F1');
    await findActiveWindow('About');
    await keys('Return');
    await visitor.at('Gallery');
}

test('all of it is used by the keyboard alone', async (t) => {
    const visitor = await visit(t);
    await useFieldsByKeys(visitor);
    await useChoicesByKeys(visitor);
    await useListsByKeys(visitor);
    await useContainersByKeys(visitor);
    await useMenusByKeys(visitor);
    await keys('alt+l');
    await visitor.formBecomes('size', 'large');
    await keys('ctrl+p');
    assert.deepEqual(await visitor.values(), {
        ...untouched, who: 'Grace', code: 'XY-789', find: 'tea', secret: 'word', path: '/tmp/a', count: 4, day: '2026-03-02', hour: '09:31',
        paint: '#00AA7F', notes: 'Several\nlines\nmore', milk: null, sugar: 'yes', size: 'large', drink: 'coffee', town: 'Lyon', shade: 'g',
        towns: ['Bern', 'Lyon'], level: 100, done: 1, fuel: 1, files: 'photo', places: 'kyoto', tasks: ['wash', 'dry', 'fold'], stars: 4,
        clicks: 1, parts: '179,160', inTwo: 'yes', more: true,
    });
    await keys('ctrl+q');
    await visitor.ends(visitor.stdout);
});

/** Places in the window, and in what opens over it, in pixels from its corner. */
const places = {
    who: [213, 97], code: [213, 129], find: [213, 161], eye: [311, 193], folder: [311, 225], upArrow: [182, 252], calendar: [195, 289],
    twelfth: [217, 387], minutes: [122, 321], paint: [126, 353], notes: [125, 449], fifthStar: [142, 563], milkLabel: [382, 95], sugar: [498, 95],
    small: [359, 123], drink: [411, 154], coffee: [379, 178], town: [600, 154], ulm: [550, 185], green: [380, 197], lyon: [510, 197],
    rome: [510, 225], handle: [507, 301], plain: [394, 457], send: [487, 457], link: [393, 528], square: [382, 579], circle: [444, 579],
    picture: [502, 565], sizeHeading: [850, 91], firstRow: [720, 107], asia: [666, 282], kyoto: [703, 302], dry: [845, 242], iron: [845, 262],
    divider: [830, 263], tabTwo: [754, 338], inTwo: [690, 371], more: [690, 469],
    saveButton: [17, 36], rulerButton: [59, 36], helpButton: [121, 36], fileMenu: [20, 9], printItem: [47, 52], quitItem: [47, 76],
    viewMenu: [59, 9], iconsItem: [84, 76], ground: [800, 600], copyItem: [840, 611],
};

const clickOn = (visitor, name) => press(visitor.window, ...places[name]);

const moveTo = (visitor, name) => xdotool('mousemove', '--window', visitor.window, ...places[name]);

const windowCount = async () => (await xdotool('search', '--onlyvisible', '--name', '.*')).split('\n').length;

/** Clicks at what opens a menu, a list or a calendar, and waits for that. */
async function openOver(visitor, name, button = 1) {
    const before = await windowCount();
    await moveTo(visitor, name);
    await xdotool('click', button);
    await until(async () => await windowCount() > before);
}

async function clickAndHear(visitor, name, words) {
    await clickOn(visitor, name);
    await visitor.hears(words);
}

async function clickFor(visitor, name, control, value) {
    await clickOn(visitor, name);
    await visitor.formBecomes(control, value);
}

/** Drags from one place to another one, in steps as a hand does. */
async function drag(visitor, from, to) {
    const [[x, y], [toX, toY]] = [places[from], places[to] ?? to];
    await xdotool('mousemove', '--window', visitor.window, x, y, 'mousedown', 1);
    for (let step = 1; step <= 4; ++step) {
        await xdotool('mousemove', '--window', visitor.window, x + (toX - x) * step / 4, y + (toY - y) * step / 4);
    }
    await xdotool('mouseup', 1);
}

/** A double click selects a word, the middle button puts it elsewhere. */
async function carryWord(visitor, from, to, value) {
    await moveTo(visitor, from);
    await xdotool('click', '--repeat', 2, '--delay', 60, 1);
    await moveTo(visitor, to);
    await xdotool('click', 2);
    await visitor.formBecomes(to, value);
}

async function useFieldsByMouse(visitor, file) {
    await carryWord(visitor, 'notes', 'who', 'Several');
    await carryWord(visitor, 'notes', 'find', 'Several');
    await clickOn(visitor, 'eye');
    await clickOn(visitor, 'folder');
    const chooser = await findActiveWindow('Open');
    await xdotool('mousemove', '--window', chooser, 151, 71, 'click', '--repeat', 2, '--delay', 60, 1);
    await visitor.formBecomes('path', file);
    await visitor.at('Gallery');
    await clickFor(visitor, 'upArrow', 'count', 4);
    await openOver(visitor, 'calendar');
    await clickFor(visitor, 'twelfth', 'day', '2026-03-12');
    await clickOn(visitor, 'minutes');
    await visitor.becomes(`${current}.getFocus()`, 'hour');
    await xdotool('click', 4);
    await visitor.formBecomes('hour', '09:31');
    await clickOn(visitor, 'paint');
    const colours = await findActiveWindow('Select Color');
    await press(colours, 53, 115);
    await press(colours, 392, 382);
    await visitor.formBecomes('paint', '#FF0000');
    await visitor.at('Gallery');
}

async function useChoicesByMouse(visitor) {
    await clickAndHear(visitor, 'fifthStar', '5 stars');
    await clickFor(visitor, 'milkLabel', 'milk', null);
    await clickFor(visitor, 'sugar', 'sugar', 'yes');
    await clickFor(visitor, 'small', 'size', 'small');
    await openOver(visitor, 'drink');
    await clickFor(visitor, 'coffee', 'drink', 'coffee');
    await openOver(visitor, 'town');
    await clickFor(visitor, 'ulm', 'town', 'Ulm');
    await clickFor(visitor, 'green', 'shade', 'g');
    await drag(visitor, 'lyon', 'rome');
    await visitor.becomes(`${current}.control('towns').selection`, ['Lyon', 'Oslo', 'Rome']);
    await drag(visitor, 'handle', [660, 301]);
    await visitor.formBecomes('level', 100);
    await visitor.hears('level: 100');
    await clickAndHear(visitor, 'plain', 'clicked 1 times');
    await clickAndHear(visitor, 'plain', 'clicked 2 times');
    await clickAndHear(visitor, 'send', 'sent, and all is right');
    await clickAndHear(visitor, 'link', 'link: text');
    await clickAndHear(visitor, 'square', 'area: square');
    await clickAndHear(visitor, 'circle', 'area: circle');
    await clickAndHear(visitor, 'picture', 'link: picture');
}

async function useListsByMouse(visitor) {
    await clickFor(visitor, 'firstRow', 'files', 'guide');
    await clickOn(visitor, 'sizeHeading');
    await clickFor(visitor, 'firstRow', 'files', 'notes');
    await moveTo(visitor, 'firstRow');
    await xdotool('click', '--repeat', 2, '--delay', 60, 1);
    await visitor.hears('opened notes');
    await clickOn(visitor, 'asia');
    await visitor.becomes(`${current}.control('places').isItemExpanded('asia')`, true);
    await clickFor(visitor, 'kyoto', 'places', 'kyoto');
    await clickOn(visitor, 'dry');
    await visitor.becomes(`${current}.control('tasks').checked`, ['wash', 'dry', 'fold']);
    await clickOn(visitor, 'iron');
    await visitor.becomes(`${current}.control('tasks').checked`, ['wash', 'dry', 'iron']);
}

async function useContainersByMouse(visitor) {
    await drag(visitor, 'divider', [850, 263]);
    await visitor.formBecomes('parts', '189,150');
    await visitor.rest();
    await clickFor(visitor, 'tabTwo', 'part', 'two');
    await visitor.rest();
    await clickFor(visitor, 'inTwo', 'inTwo', 'yes');
    await visitor.rest();
    await clickFor(visitor, 'more', 'more', true);
    await visitor.rest();
}

async function useMenusByMouse(visitor) {
    await clickAndHear(visitor, 'saveButton', 'menu: save');
    await clickAndHear(visitor, 'rulerButton', 'menu: ruler');
    await visitor.becomes(`${current}.control('menu').isItemChecked('ruler')`, false);
    await clickAndHear(visitor, 'helpButton', 'link: help');
    await openOver(visitor, 'viewMenu');
    await clickAndHear(visitor, 'iconsItem', 'menu: icons');
    await openOver(visitor, 'ground', 3);
    await clickAndHear(visitor, 'copyItem', 'menu: copy');
}

test('all of it is used by the mouse alone', async (t) => {
    const folder = path.join(scratch, 'one file');
    fs.mkdirSync(folder);
    fs.writeFileSync(path.join(folder, 'one.txt'), '');
    const visitor = await visit(t, folder);
    await useFieldsByMouse(visitor, path.join(folder, 'one.txt'));
    await useChoicesByMouse(visitor);
    await useListsByMouse(visitor);
    await useContainersByMouse(visitor);
    await useMenusByMouse(visitor);
    await openOver(visitor, 'fileMenu');
    await clickOn(visitor, 'printItem');
    assert.deepEqual(await visitor.values(), {
        ...untouched, who: 'Several', find: 'Several', path: path.join(folder, 'one.txt'), count: 4, day: '2026-03-12', hour: '09:31',
        paint: '#FF0000', milk: null, sugar: 'yes', size: 'small', drink: 'coffee', town: 'Ulm', shade: 'g', towns: ['Lyon', 'Oslo', 'Rome'],
        level: 100, done: 1, fuel: 1, files: 'notes', places: 'kyoto', tasks: ['wash', 'dry', 'iron'], stars: 5, clicks: 2,
        parts: '189,150', part: 'two', inTwo: 'yes', more: true,
    });
    await openOver(visitor, 'fileMenu');
    await clickOn(visitor, 'quitItem');
    await visitor.ends(visitor.stdout);
});
