'use strict';
// A curve of what was, newest on the right: a custom element that draws when it is told of a value.

const { CustomElement } = require('../../host/node');

const most = 120; // values that are shown

class Chart extends CustomElement {
    title = ''; color = ''; ground = ''; // as the page says, <param name="title">
    values = [];
    words = '';

    /** A part of 1, and what to write above it. */
    add(value, words) {
        this.values = [...this.values.slice(1 - most), value];
        this.words = words;
        this.toolkit.repaint();
    }

    ePaint() {
        const { toolkit, values } = this;
        const { width, height } = toolkit.rect;
        for (let y = height / 4; y < height; y += height / 4) toolkit.drawLine('#E6E9ED', 0, y, width, y, 1);
        const curve = values.flatMap((value, index) => [width - (values.length - 1 - index) * width / (most - 1), (height - 2) * (1 - value) + 1]);
        Object.assign(toolkit, { smooth: true, bold: true, textColor: '#2A2F36' });
        toolkit.drawPolygon(this.ground, [...curve, width, height, curve[0], height]);
        toolkit.drawPolyline(this.color, curve, 2);
        toolkit.drawText(`${this.title}  ${this.words}`, { left: 10, top: 6, width: width - 20, height: 20 });
    }
}

module.exports = { Chart };
