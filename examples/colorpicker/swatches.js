'use strict';
// A row of colours. The arrows go along it, Return or a click takes one, Delete removes it; the window hears of it by onSwatch(color).

const { CustomElement } = require('../../host/node');

const [size, step] = [28, 34]; // in pixels; from one to the next

class Swatches extends CustomElement {
    colors = [];
    at = 0;

    keep(color) {
        this.colors = [color, ...this.colors.filter((each) => each !== color)];
        this.go(0);
    }

    eMouseDown() { this.go(Math.floor(this.mouse.x / step), true); }

    eKey() {
        const { key } = this.keyboard;
        if (key === 'Left' || key === 'Right') this.go(this.at + (key === 'Right' ? 1 : -1));
        if (key === 'Return' || key === 'Space') this.go(this.at, true);
        if (key === 'Del' && this.colors.length > 1) this.colors.splice(this.at, 1);
        this.toolkit.repaint();
    }

    go(index, takes = false) {
        this.at = Math.min(Math.max(index, 0), this.colors.length - 1);
        if (takes) /** @type {any} */ (this.window).onSwatch(this.colors[this.at]);
        this.toolkit.repaint();
    }

    ePaint() {
        this.colors.forEach((color, index) => this.toolkit.fill(color, { left: index * step, top: 0, width: size, height: size }));
        this.toolkit.fill('#FFFFFF', { left: this.at * step + 10, top: 10, width: size - 20, height: size - 20 });
    }
}

module.exports = { Swatches };
