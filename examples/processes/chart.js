'use strict';
// A curve of what was, newest on the right: a custom element, which draws when it is told of a value. <param name="color">

const { CustomElement } = require('../../host/node');

const most = 120; // values that are shown

class Chart extends CustomElement {
    values = [];

    /** A part of 1, and what to write above it. */
    add(value, words) {
        this.values = [...this.values.slice(1 - most), value];
        this.words = words;
        this.toolkit.repaint();
    }

    ePaint() {
        const { toolkit } = this;
        const { width, height } = toolkit.rect;
        for (const part of [0.25, 0.5, 0.75]) toolkit.drawLine('#E6E9ED', 0, Math.round(height * part), width, Math.round(height * part), 1);
        const xOf = (index) => width - (this.values.length - 1 - index) * width / (most - 1);
        const curve = this.values.map((value, index) => [xOf(index), (height - 2) * (1 - value) + 1]);
        toolkit.smooth = true;
        if (curve.length > 1) {
            toolkit.drawPolygon(this.ground, [...curve, [width, height], [xOf(0), height]]);
            toolkit.drawPolyline(this.color, curve, 2);
        }
        toolkit.bold = true;
        toolkit.textColor = '#2A2F36';
        toolkit.drawText(`${this.title}  ${this.words ?? ''}`, { left: 10, top: 6, width: width - 20, height: 20 });
    }
}

module.exports = { Chart };
