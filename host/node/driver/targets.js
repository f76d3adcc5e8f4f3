'use strict';
// What a test means by "save" or { link: 'Next' }: the thing on a window, or what the window has instead.

const { inside } = require('./component.js');

const { describe, meant } = inside;

/** What can be asked for by its text, and the kinds of things that this may be. */
const kindsOf = {
    link: ['link'], button: ['button'], tab: ['tab'], menu: ['menu'], item: ['item'], field: ['field', 'list', 'check box', 'radio button'],
};
/** What a plain text may stand for when nothing has it as its name. */
const spoken = ['button', 'link', 'tab', 'item', 'check box', 'radio button'];
const keys = [...Object.keys(kindsOf), 'name', 'text', 'value', 'row', 'in', 'nth'];

/** As a message shows it: "save", { link: "Next" }. */
function show(target) {
    if (typeof target !== 'object' || target === null) {
        return String(JSON.stringify(target));
    }
    return `{ ${Object.entries(target).map(([key, value]) => `${key}: ${JSON.stringify(value)}`).join(', ')} }`;
}

/** Throws for what is no target. */
function check(caller, target) {
    if (typeof target === 'string' && target !== '') {
        return;
    }
    const known = typeof target === 'object' && target !== null && !Array.isArray(target) ? Object.keys(target) : [];
    if (known.length === 0) {
        throw new TypeError(`${caller}: the target must be a name or { link: "Next" }, not ${describe(target)}`);
    }
    const wrong = known.find((key) => !keys.includes(key));
    if (wrong !== undefined) {
        throw new TypeError(`${caller}: a target has no "${wrong}"${meant(wrong, keys) || `; there are ${keys.join(', ')}`}`);
    }
    if (target.row !== undefined && target.in === undefined) {
        throw new TypeError(`${caller}: a row needs the name of its list: { row: ${JSON.stringify(target.row)}, in: "list" }`);
    }
}

const captions = ({ text, label }) => [text, label].filter((each) => each !== undefined && each !== '');
const says = (item, text) => captions(item).includes(text);

function byText(items, kind, text) {
    return items.filter((item) => kindsOf[kind].includes(item.kind) && says(item, text));
}

/** All things that fit the target. */
function fitting(items, target) {
    if (typeof target === 'string') {
        const named = items.filter(({ name }) => name === target);
        return named.length > 0 ? named : items.filter((item) => spoken.includes(item.kind) && says(item, target));
    }
    const kind = Object.keys(kindsOf).find((each) => target[each] !== undefined);
    let found = kind === undefined ? items : byText(items, kind, target[kind]);
    found = target.name === undefined ? found : found.filter(({ name }) => name === target.name);
    found = target.value === undefined ? found : found.filter(({ part }) => part === target.value);
    return target.text === undefined ? found : found.filter((item) => says(item, target.text));
}

// ---- What there is instead ----

const plural = { 'check box': 'check boxes', tabs: 'tabs' };
const most = 12;
const shownName = (item) => JSON.stringify(item.name ?? captions(item)[0]);

function listed(kind, items) {
    const names = [...new Set(items.map(shownName))];
    const more = names.length > most ? ` and ${names.length - most} more` : '';
    return `${names.length === 1 ? kind : plural[kind] ?? `${kind}s`} ${names.slice(0, most).join(', ')}${more}`;
}

/** What messages do not count up. */
const silent = ['element', 'hidden value', 'menu bar'];

/** What is on the window, by kind: `the fields "who", "mail"; the link "Next"`. */
function contents(items) {
    const groups = new Map();
    for (const item of items) {
        if (!silent.includes(item.kind) && (item.name ?? captions(item)[0]) !== undefined) {
            groups.set(item.kind, [...groups.get(item.kind) ?? [], item]);
        }
    }
    const parts = [...groups].map(([kind, found]) => `the ${listed(kind, found)}`);
    return parts.length === 0 ? 'it has nothing to work with' : `it has ${parts.join('; ')}`;
}

/** The words that could have been meant. */
function words(items, target) {
    if (typeof target === 'string') {
        return items.flatMap((item) => [item.name, ...spoken.includes(item.kind) ? captions(item) : []]).filter(Boolean);
    }
    const kind = Object.keys(kindsOf).find((each) => target[each] !== undefined);
    const fits = kind === undefined ? items : items.filter((item) => kindsOf[kind].includes(item.kind));
    return target.name === undefined ? fits.flatMap(captions) : items.map(({ name }) => name).filter(Boolean);
}

const wordOf = (target) => (typeof target === 'string' ? target : Object.values(target).find((value) => typeof value === 'string'));

/** The window's name in a message. */
function windowName({ title, kind }) {
    const what = kind === 'dialog' ? 'dialog' : 'window';
    return title === '' ? `the ${what}` : `the ${what} "${title}"`;
}

function missing(seen, target) {
    const { items } = seen;
    const hint = meant(wordOf(target) ?? '', [...new Set(words(items, target))]).replace(/^; /, '');
    return `${windowName(seen)} has no ${show(target)}; ${hint === '' ? '' : `${hint} `}${contents(items)}`;
}

/** What a thing is called in messages: the button "save". */
function called(item) {
    const name = item.name ?? captions(item)[0];
    return name === undefined ? `the ${item.kind}` : `the ${item.kind} ${JSON.stringify(name)}`;
}

/** The thing that a target stands for, or { problem }. `isGroup`: any radio button stands for all of its name. */
function pick(seen, target, isGroup = false) {
    const fits = fitting(seen.items, target);
    if (fits.length === 0) {
        return { problem: missing(seen, target) };
    }
    if (target.nth !== undefined) {
        return fits[target.nth] ?? { problem: `${windowName(seen)} has ${fits.length} of ${show(target)}, no number ${target.nth}` };
    }
    const shown = fits.filter(({ isHidden }) => !isHidden);
    if (shown.length > 1 && !(isGroup && shown.every(({ kind, name }) => kind === 'radio button' && name === shown[0].name))) {
        const values = shown.every(({ kind }) => kind === 'radio button') ? `"value", which is one of ${shown.map(({ part }) => JSON.stringify(part)).join(', ')}`
            : '"nth", counted from 0';
        return { problem: `${windowName(seen)} has ${shown.length} of ${show(target)}: say which one with ${values}` };
    }
    return shown[0] ?? fits[0];
}

module.exports = { called, check, contents, pick, show, windowName };
