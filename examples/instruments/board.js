'use strict';
// A board to draw on with the pointer. The pens are part of the drawing.

const { CustomElement } = require('../../host/node');

const pens = ['#2A2F36', '#1F6FEB', '#2F9E44', '#F08C00', '#D9480F', '#C2255C'];
const penSize = 22;
const gap = 8;
const thickness = { left: 3, right: 9, middle: 1 };

const penPlace = (index) => ({ left: gap, top: gap + index * (penSize + gap), width: penSize, height: penSize });

class Board extends CustomElement {
    strokes = [];
    #pen = pens[1];

    clear() {
        this.strokes = [];
        this.toolkit.repaint();
    }

    eMouseDown() {
        const { x, y, button } = this.mouse;
        const pen = x < 2 * gap + penSize ? pens[Math.floor((y - gap / 2) / (penSize + gap))] : undefined;
        if (pen !== undefined) {
            this.#pen = pen;
        } else {
            this.strokes.push({ colour: this.#pen, width: thickness[button], points: [x, y, x, y] });
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
        if (this.strokes.length === 0) {
            toolkit.textColor = '#9AA2AE';
            toolkit.drawText('Draw here: each button has a pen of its own.', { left: 50, top: 10, width: toolkit.rect.width - 60, height: 20 });
        }
    }
}

module.exports = { Board };
