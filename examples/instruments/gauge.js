'use strict';
// A dial with a needle that the user can drag, or move by the arrow keys.

const { CustomElement } = require('../../host/node');

const startAngle = 210; // degrees from three o'clock, counter-clockwise; from here the needle turns clockwise
const sweep = 240;
const largest = 100;
const steps = { Up: 1, Right: 1, Down: -1, Left: -1, PgUp: 10, PgDown: -10, Home: -largest, End: largest };

/** Points on an arc around (x, y), x and y in turn. */
function arc(x, y, radius, from, to) {
    const points = [];
    for (let i = 0; i <= 60; ++i) {
        const angle = (from + (to - from) * i / 60) * Math.PI / 180;
        points.push(x + radius * Math.cos(angle), y - radius * Math.sin(angle));
    }
    return points;
}

const angleOf = (value) => startAngle - sweep * value / largest;

class Gauge extends CustomElement {
    value = 0;
    label = '';
    centerX = 0;
    centerY = 0;

    eCreate() {
        this.set(Number(this.value));
    }

    set(value) {
        this.value = Math.min(largest, Math.max(0, value));
        this.toolkit.repaint();
    }

    /** The value at which the needle points to the pointer. */
    follow() {
        const { x, y } = this.mouse;
        const angle = Math.atan2(this.centerY - y, x - this.centerX) * 180 / Math.PI;
        const turned = (startAngle - angle + 360) % 360;
        this.set(turned <= sweep ? turned / sweep * largest : turned < (sweep + 360) / 2 ? largest : 0);
    }

    eMouseDown() {
        this.follow();
    }

    eMouseMove() {
        if (this.mouse.button === 'left') {
            this.follow();
        }
    }

    eKey() {
        this.set(this.value + (steps[this.keyboard.key] ?? 0));
    }

    eMouseWheel() {
        this.set(this.value + this.mouse.wheel / 120);
    }

    ePaint() {
        const { toolkit } = this;
        const { width, height } = toolkit.rect;
        const radius = Math.min(width / 2, height / 1.75) - 14;
        this.centerX = width / 2;
        this.centerY = radius + 14;
        this.paintScale(radius);
        this.paintNeedle(radius);
        toolkit.fontSize = 20;
        toolkit.bold = true;
        const top = Math.round(this.centerY + radius * 0.38);
        toolkit.drawText(this.value.toFixed(0), { left: 0, top, width, height: 40 }, toolkit.XCENTER);
        toolkit.fontSize = 10;
        toolkit.bold = false;
        toolkit.textColor = '#6B7280';
        toolkit.drawText(this.label, { left: 0, top: top + 30, width, height: 24 }, toolkit.XCENTER);
    }

    paintScale(radius) {
        const { toolkit, centerX, centerY } = this;
        const end = angleOf(largest);
        toolkit.drawPolyline('#DDE1E7', arc(centerX, centerY, radius, startAngle, end), 12);
        toolkit.drawPolyline(this.value > 80 ? '#D9480F' : '#1F6FEB', arc(centerX, centerY, radius, startAngle, angleOf(this.value)), 12);
        for (let mark = 0; mark <= largest; mark += 10) {
            const [fromX, fromY] = arc(centerX, centerY, radius - 12, angleOf(mark), 0);
            const [toX, toY] = arc(centerX, centerY, radius - (mark % 50 ? 17 : 22), angleOf(mark), 0);
            toolkit.drawPolyline('#9AA2AE', [fromX, fromY, toX, toY], 1);
        }
    }

    paintNeedle(radius) {
        const { toolkit, centerX, centerY } = this;
        const angle = angleOf(this.value);
        const [tipX, tipY] = arc(centerX, centerY, radius - 18, angle, 0);
        const [leftX, leftY] = arc(centerX, centerY, 5, angle + 90, 0);
        const [rightX, rightY] = arc(centerX, centerY, 5, angle - 90, 0);
        toolkit.drawPolygon('#2A2F36', [tipX, tipY, leftX, leftY, rightX, rightY]);
        toolkit.drawEllipse('#2A2F36', Math.round(centerX) - 7, Math.round(centerY) - 7, 14, 14);
    }
}

module.exports = { Gauge };
