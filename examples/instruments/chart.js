'use strict';
// A curve of 10,000 points, which may move at 60 frames a second.

const { CustomElement } = require('../../host/node');

const count = 10000;
const frameMs = 1000 / 60;
const margin = { left: 44, right: 12, top: 12, bottom: 24 };
const lowest = -100;
const highest = 100;

class Chart extends CustomElement {
    #values = new Float64Array(count);
    #next = 0; // where the oldest value is
    #points = new Float64Array(2 * count);
    #timer; // while it moves
    frames = 0;

    constructor() {
        super();
        this.#advance(count);
    }

    /** Puts new values in place of the oldest ones: a slow wave with a faster one on it. */
    #advance(steps) {
        for (let i = 0; i < steps; ++i) {
            const at = this.time = (this.time ?? 0) + 1;
            this.#values[this.#next] = 55 * Math.sin(at / 900) + 25 * Math.sin(at / 130) + 12 * Math.sin(at / 41);
            this.#next = (this.#next + 1) % count;
        }
    }

    run() {
        this.#timer ??= setInterval(() => {
            this.#advance(20);
            this.toolkit.repaint();
        }, frameMs);
    }

    pause() {
        clearInterval(this.#timer);
        this.#timer = undefined;
    }

    eDestroy() {
        this.pause();
    }

    eMouseMove() {
        this.pointed = this.mouse.x;
        this.toolkit.repaint();
    }

    /** The arrows go along the curve. */
    eKey() {
        const by = { Left: -5, Right: 5 }[this.keyboard.key];
        if (by === undefined) return;
        const right = this.toolkit.rect.width - margin.right;
        this.pointed = Math.min(right, Math.max(margin.left, (this.pointed ?? margin.left) + by));
        this.toolkit.repaint();
    }

    eMouseOut() {
        this.pointed = undefined;
        this.toolkit.repaint();
    }

    ePaint() {
        const { width, height } = this.toolkit.rect;
        const plot = { left: margin.left, top: margin.top, width: width - margin.left - margin.right, height: height - margin.top - margin.bottom };
        const yOf = (value) => plot.top + (highest - value) / (highest - lowest) * plot.height;
        this.#paintAxes(plot, yOf);
        for (let i = 0; i < count; ++i) {
            this.#points[2 * i] = plot.left + i / (count - 1) * plot.width;
            this.#points[2 * i + 1] = yOf(this.#values[(this.#next + i) % count]);
        }
        this.toolkit.drawPolyline('#1F6FEB', this.#points, 1);
        this.#paintPointed(plot, yOf);
        ++this.frames;
    }

    #paintAxes(plot, yOf) {
        const { toolkit } = this;
        toolkit.fontSize = 8;
        toolkit.textColor = '#6B7280';
        for (let value = lowest; value <= highest; value += 50) {
            const y = Math.round(yOf(value));
            toolkit.drawLine(value ? '#EEF0F3' : '#C3C9D2', plot.left, y, plot.left + plot.width, y, 1);
            toolkit.drawText(`${value}`, { left: 0, top: y - 8, width: plot.left, height: 18 }, toolkit.XRIGHT);
        }
        const label = { left: plot.left, top: plot.top + plot.height + 4, width: plot.width, height: 18 };
        toolkit.drawText('oldest', label, toolkit.XLEFT);
        toolkit.drawText('newest', label, toolkit.XRIGHT);
    }

    #paintPointed(plot, yOf) {
        const { toolkit, pointed } = this;
        if (pointed === undefined || pointed < plot.left || pointed > plot.left + plot.width) {
            return;
        }
        const index = Math.round((pointed - plot.left) / plot.width * (count - 1));
        const value = this.#values[(this.#next + index) % count];
        const y = Math.round(yOf(value));
        toolkit.drawLine('#D9480F', pointed, plot.top, pointed, plot.top + plot.height, 1);
        toolkit.drawEllipse('#D9480F', pointed - 4, y - 4, 9, 9);
        toolkit.textColor = '#D9480F';
        toolkit.bold = true;
        const isLeft = pointed > plot.left + plot.width / 2;
        const box = { left: isLeft ? pointed - 86 : pointed + 6, top: plot.top, width: 80, height: 18 };
        toolkit.drawText(value.toFixed(1), box, isLeft ? toolkit.XRIGHT : toolkit.XLEFT);
    }
}

module.exports = { Chart };
