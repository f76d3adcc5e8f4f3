'use strict';
// Columns of cards: the pointer drags a card, the arrows go from card to card. What becomes of cards is the window's business: the
// board calls its move(from, to) and onAt(). A place is { column, index }.

const { CustomElement } = require('../../host/node');

const [gap, head, cardHeight] = [12, 40, 56];
const step = cardHeight + 8;
const arrows = { Left: [-1, 0], Right: [1, 0], Up: [0, -1], Down: [0, 1] };
const within = (number, most) => Math.max(0, Math.min(number, most));

class Board extends CustomElement {
    columns = [];
    at = { column: 0, index: 0 };

    get columnWidth() { return (this.toolkit.rect.width + gap) / this.columns.length; }

    /** The place under the pointer, which may be the one behind the last card. */
    get pointed() {
        const column = within(Math.floor(this.mouse.x / this.columnWidth), this.columns.length - 1);
        return { column, index: within(Math.floor((this.mouse.y - head) / step), this.columns[column].cards.length) };
    }

    /** Goes to a place, or to the nearest card that there is. */
    go(place) {
        const column = within(place.column, this.columns.length - 1);
        this.at = { column, index: within(place.index, this.columns[column].cards.length - 1) };
        /** @type {any} */ (this.window).onAt();
        this.toolkit.repaint();
    }

    eKey() {
        const { key, modifiers } = this.keyboard;
        if (key in arrows && modifiers === '') this.go({ column: this.at.column + arrows[key][0], index: this.at.index + arrows[key][1] });
        if (key === 'Return') this.window.control('menu').activateItem('edit');
    }

    eMouseDown() {
        this.go(this.pointed);
        this.isDragging = this.pointed.index < this.columns[this.at.column].cards.length;
    }

    eMouseMove() { if (this.isDragging) this.toolkit.repaint(); }

    eMouseUp() {
        if (this.isDragging) /** @type {any} */ (this.window).move(this.at, this.pointed);
        this.isDragging = false;
    }

    ePaint() {
        const { toolkit } = this;
        const width = Math.round(this.columnWidth) - gap;
        this.columns.forEach(({ title, cards }, column) => {
            const left = Math.round(column * this.columnWidth);
            toolkit.fill('#E1E4EA', { left, top: 0, width, height: toolkit.rect.height });
            Object.assign(toolkit, { bold: true, textColor: '#1D2125' });
            toolkit.drawText(title, { left: left + 8, top: 10, width: width - 16, height: 20 });
            toolkit.bold = false;
            cards.forEach((text, index) => {
                const card = { left: left + 8, top: head + index * step, width: width - 16, height: cardHeight };
                const edge = column === this.at.column && index === this.at.index ? 2 : 0;
                if (edge) toolkit.fill('#1F6FEB', card);
                toolkit.fill('#FFFFFF', { left: card.left + edge, top: card.top + edge, width: card.width - 2 * edge, height: card.height - 2 * edge });
                toolkit.drawText(text, { left: card.left + 8, top: card.top + 8, width: card.width - 16, height: card.height - 14 });
            });
        });
        if (!this.isDragging) return;
        const { column, index } = this.pointed; // a line where the card would come to stand
        toolkit.fill('#1F6FEB', { left: Math.round(column * this.columnWidth) + 8, top: head + index * step - 6, width: width - 16, height: 4 });
    }
}

module.exports = { Board };
