'use strict';
// A board to draw on with the pointer, or with the keys: the arrows move a cross, Space puts the pen down and up, digits change it. The
// pens are part of the drawing.

const { CustomElement } = require('../../host/node');

const pens = ['#2A2F36', '#1F6FEB', '#2F9E44', '#F08C00', '#D9480F', '#C2255C'];
const penSize = 22;
const gap = 8;
const step = 10; // of the cross, pixels
const moves = { Left: [-step, 0], Right: [step, 0], Up: [0, -step], Down: [0, step] };
const thickness = { left: 3, right: 9, middle: 1 };

const penPlace = (index) => ({ left: gap, top: gap + index * (penSize + gap), width: penSize, height: penSize });

class Board extends CustomElement {
    strokes = [];
    #pen = pens[1];
    #cross = [100, 60]; // where the keys draw
    /** @type {any} */
    #keyStroke = null; // while they do

    clear() {
        this.strokes = [];
        this.toolkit.repaint();
    }

    eKey() {
        const { key } = this.keyboard;
        if (key === 'Space' && !this.#keyStroke) this.#keyStroke = this.begin(...this.#cross, 'left');
        else if (key === 'Space') this.#keyStroke = null;
        this.#pen = pens[Number(key) - 1] ?? this.#pen;
        if (key in moves) this.moveCross(moves[key]);
        this.toolkit.repaint();
    }

    moveCross([x, y]) {
        const { width, height } = this.toolkit.rect;
        this.#cross = [Math.min(width, Math.max(0, this.#cross[0] + x)), Math.min(height, Math.max(0, this.#cross[1] + y))];
        this.#keyStroke?.points.push(...this.#cross);
    }

    eFocus() {
        this.hasKeyboard = true;
        this.toolkit.repaint();
    }

    eBlur() {
        this.hasKeyboard = false;
        this.#keyStroke = null;
        this.toolkit.repaint();
    }

    /** A stroke with the pen, which is a dot as yet. */
    begin(x, y, button) {
        const stroke = { colour: this.#pen, width: thickness[button], points: [x, y, x, y] };
        this.strokes.push(stroke);
        return stroke;
    }

    eMouseDown() {
        const { x, y, button } = this.mouse;
        const pen = x < 2 * gap + penSize ? pens[Math.floor((y - gap / 2) / (penSize + gap))] : undefined;
        if (pen !== undefined) {
            this.#pen = pen;
        } else {
            this.begin(x, y, button);
            this.isDrawing = true;
        }
        this.toolkit.repaint();
    }

    eMouseMove() {
        if (!this.isDrawing) {
            return;
        }
        const stroke = this.strokes.at(-1);
        const [fromX, fromY] = stroke.points.slice(-2);
        const { x, y } = this.mouse;
        stroke.points.push(x, y);
        const edge = stroke.width + 2;
        this.toolkit.repaint(Math.min(x, fromX) - edge, Math.min(y, fromY) - edge, Math.abs(x - fromX) + 2 * edge, Math.abs(y - fromY) + 2 * edge);
    }

    eMouseUp() {
        this.isDrawing = false;
    }

    ePaint() {
        const { toolkit } = this;
        for (const { colour, width, points } of this.strokes) {
            toolkit.drawPolyline(colour, points, width);
        }
        pens.forEach((pen, index) => {
            const { left, top, width, height } = penPlace(index);
            toolkit.drawEllipse(pen, left, top, width, height);
            if (pen === this.#pen) {
                toolkit.drawEllipse('#9AA2AE', left - 3, top - 3, width + 6, height + 6, 2);
            }
        });
        if (this.hasKeyboard) {
            const [x, y] = this.#cross;
            toolkit.drawLine('#2A2F36', x - 6, y, x + 6, y, 1);
            toolkit.drawLine('#2A2F36', x, y - 6, x, y + 6, 1);
        }
        if (this.strokes.length === 0) {
            toolkit.textColor = '#9AA2AE';
            toolkit.drawText('Draw here: each button has a pen of its own. Keys: the arrows, Space, 1 to 6.', { left: 50, top: 10, width: toolkit.rect.width - 60, height: 20 });
        }
    }
}

module.exports = { Board };
