'use strict';
// A board of cards in columns, kept in a file. app.js [FILE]
//
// The board draws and hears of pointer and arrows (board.js); everything that changes cards is here, as items of a menu with keys.

const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { GuiWindow, promptAsync, register } = require('../../host/node');
const { Board } = require('./board');

register('Board', Board);
const file = process.argv[2] ?? path.join(os.tmpdir(), 'tarn-kanban.json');
const usual = { 'To do': ['Draw the cover', 'Ask the printer for a price'], Doing: ['Write chapter three: how the lake froze'], Done: ['Choose a title'] };

class Kanban extends GuiWindow {
    constructor() {
        super('kanban.html');
        const saved = fs.existsSync(file) ? JSON.parse(fs.readFileSync(file, 'utf8')) : usual;
        this.board = this.control('board');
        this.columns = this.board.columns = Object.entries(saved).map(([title, cards]) => ({ title, cards }));
        this.setFocus('board');
        this.onAt();
    }

    /** Another card is the current one. */
    onAt() {
        const { column, index } = this.board.at;
        const { title, cards } = this.columns[column];
        this.control('status').setText(cards.length ? `${title}: ${index + 1} of ${cards.length}` : `${title}: no cards`);
        for (const item of ['edit', 'remove', 'left', 'right', 'up', 'down']) this.control('menu').enableItem(item, cards.length > 0);
    }

    /** Takes a card out of its place and puts it before another one, or behind the last. */
    move(from, to) {
        const [card] = this.columns[from.column].cards.splice(from.index, 1);
        const isBehind = to.column === from.column && to.index > from.index;
        const index = Math.max(0, to.index - Number(isBehind));
        this.columns[to.column].cards.splice(index, 0, card);
        this.change({ column: to.column, index });
    }

    /** Something was changed: the file has it at once. */
    change(at) {
        fs.writeFileSync(file, JSON.stringify(Object.fromEntries(this.columns.map(({ title, cards }) => [title, cards])), null, 2));
        this.board.go(at);
    }

    eMenu(session, item) { return this.actions[item](this.board.at, this.columns[this.board.at.column].cards); }

    actions = {
        add: async (at, cards) => {
            const text = await promptAsync('What is to be done?', { title: 'New card' });
            if (text) this.change({ ...at, index: cards.push(text) - 1 });
        },
        edit: async (at, cards) => {
            const text = await promptAsync('What is to be done?', { title: 'Card', value: cards[at.index] });
            if (text) cards[at.index] = text;
            this.change(at);
        },
        remove: (at, cards) => { cards.splice(at.index, 1); this.change(at); },
        left: (at) => { if (at.column > 0) this.move(at, { ...at, column: at.column - 1 }); },
        right: (at) => { if (at.column < this.columns.length - 1) this.move(at, { ...at, column: at.column + 1 }); },
        up: (at) => this.move(at, { ...at, index: at.index - 1 }),
        down: (at) => this.move(at, { ...at, index: at.index + 2 }),
        quit: () => this.close(),
    };
}

new Kanban().showAsync();
