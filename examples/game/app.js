'use strict';
// Falling blocks, played by the keyboard: arrows move and turn, Space lets a block fall. app.js [SEED] plays the same game each time.

const { CustomElement, GuiWindow, register } = require('../../host/node');
const { Field, columns, rows } = require('./field');

const colors = ['#3FA7D6', '#F2C14E', '#A06CD5', '#F08C3A', '#4C6EF5', '#59A96A', '#E5484D'];
const keys = {
    Left: (field) => field.move(-1),
    Right: (field) => field.move(1),
    Up: (field) => field.turn(),
    Down: (field) => field.fall(),
    Space: (field) => { while (field.fall()); },
};

/** The field as an element. It gets the keyboard because it has `eKey`. */
class Blocks extends CustomElement {
    eKey() { /** @type {Game} */ (this.window).play(this.keyboard.key); }

    ePaint() {
        const { toolkit } = this;
        const { field } = /** @type {Game} */ (this.window);
        const { width, height } = toolkit.rect;
        const side = Math.floor(Math.min((width - 20) / columns, (height - 20) / rows));
        const [left, top] = [Math.floor((width - side * columns) / 2), Math.floor((height - side * rows) / 2)];
        toolkit.fill('#1B2129', { left, top, width: side * columns, height: side * rows });
        for (const [x, y, kind] of field.squares()) {
            toolkit.fill(colors[kind], { left: left + x * side + 1, top: top + y * side + 1, width: side - 2, height: side - 2 });
        }
        if (!field.isOver) return;
        toolkit.fill('#12161C', { left, top: height / 2 - 30, width: side * columns, height: 60 });
        Object.assign(toolkit, { fontSize: 14, bold: true, textColor: '#F0F4F8' });
        toolkit.drawText('The end. F2 begins anew.', { left, top: height / 2 - 10, width: side * columns, height: 24 }, toolkit.XCENTER);
    }
}

class Game extends GuiWindow {
    field = new Field();

    constructor(seed) {
        super('game.html');
        this.random = () => { seed = seed * 48271 % 2147483647; return seed / 2147483647; }; // the same game for the same seed
        this.begin();
        this.setFocus('blocks');
    }

    begin() {
        this.field = new Field(this.random);
        this.control('menu').checkItem('pause', false);
        this.refresh();
    }

    get isRunning() { return !this.field.isOver && !this.control('menu').isItemChecked('pause'); }

    play(key) {
        if (!this.isRunning || !(key in keys)) return;
        keys[key](this.field);
        this.refresh();
    }

    /** Shows the field, and sets the clock: blocks fall faster with more points. A game that stands has no timer. */
    refresh() {
        const { score, isOver } = this.field;
        this.control('blocks').toolkit?.repaint();
        this.control('status').setText(`${score} points${isOver ? '. The end' : this.isRunning ? '' : '. Pause'}`);
        clearTimeout(this.timer);
        if (this.isRunning) this.timer = setTimeout(() => this.play('Down'), Math.max(90, 600 - 12 * score));
    }

    actions = { again: () => this.begin(), pause: () => this.refresh(), quit: () => this.close() };

    eMenu(session, item) { this.actions[item](); }
}

register('Blocks', Blocks);
const game = new Game(Number(process.argv[2]) || Date.now() % 2147483646 + 1);
game.showAsync().then(() => clearTimeout(game.timer));
