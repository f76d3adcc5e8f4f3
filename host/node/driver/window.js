'use strict';
// A window in the hands of a test: what can be done with it. What is read from it is in reading.js, what is chosen in lists and
// menus in choosing.js.

const path = require('node:path');
const { ask, inside, state } = require('./component.js');
const { chooseIn, chooseInMenu, closeList, rowIn } = require('./choosing.js');
const { compare, optionsOfPictures } = require('./pictures.js');
const { description, readRows, readText, valueOf } = require('./reading.js');
const { called, check, pick, show, windowName } = require('./targets.js');
const { Limit, act, settle, sleep } = require('./waiting.js');

const timeoutOption = { timeout: 'number' };
const modifiers = { accepts: (value) => typeof value === 'string' && /^(Ctrl|Shift|Alt)(\+(Ctrl|Shift|Alt))*$/.test(value), says: '"Ctrl", "Shift", "Alt" or several with "+"' };
const clickOptions = { ...timeoutOption, modifiers };

/** Long enough for what a list shows with its next frame. */
const frameMs = 40;

class DrivenWindow {
    #id;
    #timeout;
    #last = Promise.resolve();

    /** Only the driver makes one. `id`: the window's number. */
    constructor(id, { timeout } = {}) {
        this.#id = id;
        this.#timeout = timeout;
    }

    // ---- What a user does ----

    click(target, options) {
        return this.#click('click', 'left', target, options);
    }

    doubleClick(target, options) {
        return this.#click('doubleClick', 'double', target, options);
    }

    rightClick(target, options) {
        return this.#click('rightClick', 'right', target, options);
    }

    /** Moves the pointer there. */
    hover(target, options) {
        return this.#click('hover', 'move', target, options);
    }

    /** type(target, text) types in place of what the field holds, type(text) where the keyboard is. */
    type(...args) {
        const hasTarget = typeof args[1] === 'string';
        const [target, text, options] = hasTarget ? args : [undefined, ...args];
        const what = `type(${hasTarget ? `${show(target)}, ` : ''}${JSON.stringify(text)})`;
        if (typeof text !== 'string') {
            throw new TypeError(`${what}: the text must be a string, not ${inside.describe(text)}`);
        }
        return this.#run(what, options, { ...timeoutOption, append: 'boolean' }, async (limit, { append }) => {
            if (hasTarget) {
                await this.#enter(limit, target, append === true);
            }
            await act(limit, () => this.#ask(text === '' ? { do: 'press', keys: 'Delete' } : { do: 'type', text }));
        });
    }

    /** Presses keys such as "Ctrl+S", several with ", " between them. */
    press(keys, options) {
        const what = `press(${JSON.stringify(keys)})`;
        if (typeof keys !== 'string') {
            throw new TypeError(`${what}: the keys must be a string such as "Ctrl+S", not ${inside.describe(keys)}`);
        }
        const named = keys.replace(/(^|\+|, )Enter(?=$|, )/g, '$1Return').replace(/(^|\+|, )Escape(?=$|, )/g, '$1Esc');
        return this.#run(what, options, timeoutOption, async (limit) => {
            for (const each of named.split(/, (?=.)/)) { // a handler that one calls is done before the next
                await act(limit, async () => {
                    const { isUnknown, ...answer } = await this.#ask({ do: 'press', keys: each });
                    return isUnknown ? { problem: 'there are no such keys; "Ctrl+S", "Alt+F4", "Return", "Escape", "Tab", "F1" are some', isFinal: true } : answer;
                });
            }
        });
    }

    /** Chooses a row of a list, an entry of a select, a tab, or a radio button of a group, by its value or its text. */
    select(target, choice, options) {
        const what = `select(${show(target)}, ${JSON.stringify(choice)})`;
        if (typeof choice !== 'string') {
            throw new TypeError(`${what}: what to choose must be a string, not ${inside.describe(choice)}`);
        }
        return this.#run(what, options, clickOptions, (limit, rest) => chooseIn(this.#tools(limit), target, choice, rest));
    }

    check(target, options) {
        return this.#setChecked('check', true, target, options);
    }

    uncheck(target, options) {
        return this.#setChecked('uncheck', false, target, options);
    }

    /** Chooses an item: of a menu that is open, or of the menu bar. */
    menu(...texts) {
        const options = typeof texts.at(-1) === 'object' ? texts.pop() : undefined;
        const what = `menu(${texts.map((each) => JSON.stringify(each)).join(', ')})`;
        if (texts.length === 0 || !texts.every((each) => typeof each === 'string')) {
            throw new TypeError(`${what}: takes the texts of a menu and its items, such as menu("File", "Open")`);
        }
        return this.#run(what, options, timeoutOption, (limit) => chooseInMenu(this.#tools(limit), texts));
    }

    /** Closes the window as its title bar does. When that opens a question instead, the window is left as it is. */
    close(options) {
        return this.#run('close()', options, timeoutOption, async (limit) => {
            const before = await state();
            await act(limit, () => this.#ask({ do: 'close' }));
            await limit.until(async () => {
                const { windows } = await state();
                const asks = windows.some(({ id, kind }) => kind !== 'menu' && !before.windows.some((each) => each.id === id));
                const open = windows.find(({ id }) => id === this.#id);
                return asks || !open ? {} : { problem: `${windowName(open)} stays open: its eClose keeps it` };
            });
        });
    }

    // ---- What a user sees ----

    /** The text of an element or a control; without a target that of the whole page. */
    text(target, options) {
        return this.#read('text', target, options, (item) => readText(this.#tools(), item));
    }

    value(target, options) {
        return this.#read('value', target, options, (item, items) => valueOf(item, items));
    }

    rows(target, options) {
        return this.#read('rows', target, options, (item) => readRows(this.#tools(), item));
    }

    /** What is known of a thing, null when it is not there. Does not wait for it. */
    find(target, options) {
        check('find(target)', target);
        return this.#run(`find(${show(target)})`, options, timeoutOption, async (limit) => {
            await settle(limit);
            const item = pick(await this.#look(), target);
            return item.problem === undefined ? description(item) : null;
        });
    }

    title(options) {
        return this.#run('title()', options, timeoutOption, async () => (await this.#look()).title);
    }

    /** Writes a picture of the window's content; its path. */
    screenshot(file, options) {
        const whole = path.resolve(file);
        return this.#run(`screenshot(${JSON.stringify(file)})`, options, timeoutOption, async (limit) => {
            await this.#still(limit);
            await limit.until(() => this.#ask({ do: 'picture', file: whole }));
            return whole;
        });
    }

    /** Compares the window with a picture in a file, which TARN_UPDATE=1 writes. */
    matches(file, options) {
        const what = `matches(${JSON.stringify(file)})`;
        return this.#run(what, options, { ...timeoutOption, ...optionsOfPictures }, async (limit, rest) => {
            await this.#still(limit);
            await compare(this.#tools(limit), path.resolve(file), rest);
        });
    }

    /** Waits until no handler runs, the promises of all have settled, and everything is laid out and painted. */
    idle(options) {
        return this.#run('idle()', options, timeoutOption, (limit) => settle(limit, 0));
    }

    // ---- Inside ----

    /** One after the other, also when the test does not wait. */
    #run(what, options, table, work) {
        const { timeout, ...rest } = inside.checkOptions(what, options, table);
        const done = this.#last.then(() => work(new Limit(what, timeout ?? this.#timeout), rest));
        this.#last = done.catch(() => {});
        return done;
    }

    #tools(limit) {
        return {
            ask: (request) => this.#ask(request), click: (...args) => this.#clickOnce(...args), find: (target) => this.#find(target), limit,
            look: () => this.#look(),
        };
    }

    async #ask(request) {
        const answer = await ask({ window: this.#id, ...request });
        return answer.isGone ? { problem: 'the window is closed', isFinal: true } : answer;
    }

    async #look() {
        const answer = await this.#ask({ do: 'look' });
        return answer.items === undefined ? { title: '', items: [], ...answer } : answer;
    }

    /** One attempt to find a thing: it, or { problem }. */
    async #find(target) {
        const seen = await this.#look();
        return seen.problem === undefined ? pick(seen, target) : seen;
    }

    /** One attempt to click on a thing that was found; { problem } or not. */
    async #clickOnce(item, request = {}) {
        if (item.problem !== undefined) {
            return item;
        }
        if (item.isHidden || item.isDisabled) {
            return { problem: `${called(item)} is ${item.isHidden ? item.why : 'disabled'}` };
        }
        let answer = await this.#ask({ do: 'click', thing: item.thing, ...request });
        if (answer.problem !== undefined && !answer.isFinal && await closeList()) { // which the hand would click away
            answer = await this.#ask({ do: 'click', thing: item.thing, ...request });
        }
        return answer.problem === undefined || answer.isFinal ? answer : { problem: `${called(item)} is ${answer.problem}` };
    }

    #click(verb, click, target, options) {
        const what = `${verb}(${show(target)})`;
        check(what, target);
        return this.#run(what, options, clickOptions, async (limit, rest) => {
            await act(limit, async () => this.#clickOnce(await this.#part(limit, target), { click: click === 'double' ? 'left' : click, ...rest }));
            if (click === 'double') {
                await act(limit, async () => this.#clickOnce(await this.#part(limit, target), { click: 'again', ...rest }));
            }
        });
    }

    /** A thing, or the row of one. */
    async #part(limit, target) {
        if (target.row === undefined) {
            return this.#find(target);
        }
        const list = await this.#find(target.in);
        return list.problem === undefined ? rowIn(this.#tools(limit), list, target.row) : list;
    }

    async #enter(limit, target, append) {
        check(limit.what, target);
        await act(limit, async () => {
            const item = await this.#find(target);
            if (item.problem === undefined && item.kind !== 'field' && item.kind !== 'list') {
                return { problem: `${called(item)} takes no text`, isFinal: true };
            }
            return item.isReadOnly ? { problem: `${called(item)} is read-only` } : this.#clickOnce(item);
        });
        await act(limit, () => this.#ask({ do: 'press', keys: append ? 'Ctrl+End' : 'Ctrl+A' }));
    }

    #setChecked(verb, wanted, target, options) {
        const what = `${verb}(${show(target)})`;
        check(what, target);
        return this.#run(what, options, timeoutOption, async (limit) => {
            const isRow = target.row !== undefined;
            const isRight = async () => (await this.#part(limit, target)).isChecked === wanted;
            if (await isRight()) {
                return;
            }
            await act(limit, async () => {
                const item = await this.#part(limit, target);
                if (item.problem === undefined && item.isChecked === undefined) {
                    return { problem: `${called(item)} has no check mark`, isFinal: true };
                }
                if (item.kind === 'radio button' && !wanted) {
                    return { problem: `${called(item)} goes off only when another one of its group is switched on`, isFinal: true };
                }
                return this.#clickOnce(item);
            });
            if (isRow && !await isRight()) {
                await act(limit, () => this.#ask({ do: 'press', keys: 'Space' }));
            }
            await limit.until(async () => (await isRight() ? {} : { problem: `it stays ${wanted ? 'off' : 'on'} after the click` }));
        });
    }

    #read(verb, target, options, read) {
        const what = `${verb}(${target === undefined ? '' : show(target)})`;
        if (target !== undefined || verb !== 'text') {
            check(what, target);
        }
        return this.#run(what, options, timeoutOption, async (limit) => {
            await settle(limit);
            const answer = await limit.until(async () => {
                const seen = await this.#look();
                const item = seen.problem !== undefined || target === undefined ? seen : pick(seen, target, verb === 'value');
                return item.problem === undefined ? read(item, seen.items) : item;
            });
            return answer.result;
        });
    }

    async #still(limit) {
        await settle(limit);
        await sleep(frameMs);
        await settle(limit);
    }
}

/** Names of everything that a test can do with a window. */
const verbs = Object.getOwnPropertyNames(DrivenWindow.prototype).filter((name) => name !== 'constructor');

module.exports = { DrivenWindow, verbs };
