'use strict';
// Choosing in lists, in groups of radio buttons and in menus. `tools`: what window.js gives its helpers.

const { ask, inside, state } = require('./component.js');
const { called, pick, show } = require('./targets.js');
const { act } = require('./waiting.js');

const most = 12;

/** One of these words is meant; and which there are. */
function noSuch(owner, word, known) {
    const more = known.length > most ? ` and ${known.length - most} more` : '';
    const names = known.slice(0, most).map((each) => JSON.stringify(each)).join(', ');
    const hint = inside.meant(word, known).replace(/^; /, '');
    return `${owner} has no ${JSON.stringify(word)}; ${hint === '' ? '' : `${hint} `}${known.length === 0 ? 'it is empty' : `it has ${names}${more}`}`;
}

/** The row of a list as a thing to click, or { problem }. */
async function rowIn(tools, list, row) {
    const found = await tools.ask({ do: 'findRow', thing: list.thing, row });
    if (found.problem !== undefined) {
        return { ...found, problem: found.isFinal ? found.problem : `${called(list)} is no list` };
    }
    if (found.part === undefined) {
        return { problem: noSuch(called(list), row, found.known) };
    }
    const { isCheckable, isChecked, ...rest } = found;
    return { kind: 'row', name: row, ...rest, ...isCheckable ? { isChecked } : {}, isHidden: list.isHidden, why: list.why,
        isDisabled: list.isDisabled || found.isDisabled, thing: { ...list.thing, part: found.part } };
}

/** The newest window of a kind that has popped up. */
const newest = async (kind) => (await state()).windows.filter((each) => each.kind === kind).sort((a, b) => b.id - a.id)[0];
const isOpen = async (id) => (await state()).windows.some((each) => each.id === id);

/** Chooses in the list that a select has opened: points at the row and presses Return. */
async function chooseInPopup(tools, popup, row) {
    const request = (more) => ask({ window: popup.id, ...more });
    const { items } = await request({ do: 'look' });
    const view = items.find(({ kind }) => kind === 'list');
    await act(tools.limit, () => request({ do: 'click', click: 'move', thing: { ...view.thing, part: row.part } }));
    await act(tools.limit, () => request({ do: 'press', keys: 'Return' }));
    await tools.limit.until(async () => (await isOpen(popup.id) ? { problem: 'its list stays open' } : {}));
}

async function openPopup(tools, target, choice) {
    let row;
    await act(tools.limit, async () => {
        const list = await tools.find(target);
        row = list.problem === undefined ? await rowIn(tools, list, choice) : list;
        return row.problem === undefined ? tools.click({ ...list, isDisabled: row.isDisabled }) : row;
    });
    return row;
}

async function chooseRow(tools, target, choice, options) {
    await act(tools.limit, async () => {
        const list = await tools.find(target);
        return list.problem === undefined ? tools.click(await rowIn(tools, list, choice), options) : list;
    });
}

/** The tab or radio button that is meant, null when the target is neither. */
async function partOf(tools, target, choice) {
    const { items } = await tools.look();
    const named = items.filter(({ name }) => name === target || (target.name !== undefined && name === target.name));
    const radios = named.filter(({ kind }) => kind === 'radio button');
    if (radios.length > 0) {
        return radios.find(({ part, label }) => part === choice || label === choice)
            ?? { problem: noSuch(`the group ${show(target)}`, choice, radios.map(({ part }) => part)) };
    }
    const bar = named.find(({ kind }) => kind === 'tabs');
    if (bar === undefined) {
        return null;
    }
    const tabs = items.filter(({ kind, thing }) => kind === 'tab' && thing.node === bar.thing.node);
    return tabs.find(({ part, text }) => part === choice || text === choice) ?? { problem: noSuch(called(bar), choice, tabs.map(({ text }) => text)) };
}

async function chooseIn(tools, target, choice, options) {
    if (await partOf(tools, target, choice) !== null) {
        await act(tools.limit, async () => tools.click(await partOf(tools, target, choice)));
        return;
    }
    const list = await tools.limit.until(() => tools.find(target));
    if (list.kind !== 'list') {
        await tools.limit.until(() => ({ problem: `${called(list)} has nothing to choose from`, isFinal: true }));
    }
    const found = await tools.limit.until(() => rowIn(tools, list, choice));
    if (!found.isPopup) {
        await chooseRow(tools, target, choice, options);
        return;
    }
    const row = await openPopup(tools, target, choice);
    const popup = await tools.limit.until(async () => await newest('list') ?? { problem: 'its list does not open' });
    await chooseInPopup(tools, popup, row);
}

// ---- Menus ----

async function chooseInPopups(tools, texts, first) {
    let above = -1;
    let owner = first;
    for (const text of texts) {
        const menu = await tools.limit.until(async () => {
            const found = await newest('menu');
            return found !== undefined && found.id !== above ? found : { problem: 'no menu opens' };
        });
        await act(tools.limit, async () => {
            const seen = await ask({ window: menu.id, do: 'look' });
            const item = (seen.items ?? []).find((each) => each.text === text);
            if (item === undefined) {
                const known = (seen.items ?? []).map((each) => each.text);
                return { problem: noSuch(owner, text, known) };
            }
            const { problem } = await ask({ window: menu.id, do: 'click', thing: item.thing });
            return problem === undefined ? {} : { problem: `the item ${JSON.stringify(text)} is ${problem}` };
        });
        above = menu.id;
        owner = `the menu ${JSON.stringify(text)}`;
    }
}

/** Closes a list that has popped up to complete what was typed, or that a select has left open; whether there was one. */
async function closeList() {
    const open = await newest('list');
    if (open !== undefined) {
        await ask({ window: open.id, do: 'press', keys: 'Esc' });
    }
    return open !== undefined;
}

async function closeMenus() {
    for (let open = await newest('menu'); open !== undefined; open = await newest('menu')) {
        await ask({ window: open.id, do: 'press', keys: 'Esc' });
    }
}

/** An item of the menu that is open, or else of the menu bar. */
async function chooseInMenu(tools, texts) {
    try {
        if (await newest('menu') !== undefined) {
            await chooseInPopups(tools, texts, 'the menu');
            return;
        }
        const [first, ...rest] = texts;
        await act(tools.limit, async () => {
            const seen = await tools.look();
            return tools.click(seen.problem === undefined ? pick(seen, { menu: first }) : seen);
        });
        await chooseInPopups(tools, rest, `the menu ${JSON.stringify(first)}`);
    } catch (error) {
        await closeMenus(); // what comes next is not to find it in its way
        throw error;
    }
}

module.exports = { chooseIn, chooseInMenu, closeList, rowIn };
