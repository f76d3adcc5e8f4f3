'use strict';
// The face of a clock, drawn anew at every size. What it shows is set from outside; it has no timer of its own.

const { CustomElement } = require('../../host/node');

const light = { ground: '#FFFFFF', rim: '#C9CFD6', mark: '#57606A', hand: '#1F2328' };
const dark = { ground: '#1C2733', rim: '#3A4A5C', mark: '#9FB0C3', hand: '#F0F4F8' };
const secondHand = '#D9480F';

class Face extends CustomElement {
    time = { hour: 0, minute: 0, second: null };

    /** The time of day; `second` is null where there is no hand for it. Draws only what has changed. */
    show(time) {
        const isSame = Object.keys(time).every((part) => time[part] === this.time[part]);
        if (isSame) return false;
        this.time = time;
        this.toolkit.tooltip = `${time.hour}:${String(time.minute).padStart(2, '0')}`;
        this.toolkit.repaint();
        return true;
    }

    /** A place on a circle around the middle. `part`: of a whole turn, from the top on. */
    place(part, radius) {
        const { width, height } = this.toolkit.rect;
        const angle = part * 2 * Math.PI;
        return [width / 2 + radius * Math.sin(angle), height / 2 - radius * Math.cos(angle)];
    }

    ePaint() {
        const { toolkit, time: { hour, minute, second } } = this;
        const { width, height } = toolkit.rect;
        const radius = Math.min(width, height) / 2 - 3;
        const colors = hour < 7 || hour >= 19 ? dark : light; // at night the face is dark
        const disc = (color, r, line) => toolkit.drawEllipse(color, width / 2 - r, height / 2 - r, 2 * r, 2 * r, ...line);
        toolkit.smooth = true;
        disc(colors.ground, radius, []);
        disc(colors.rim, radius, [Math.max(2, radius / 28)]);
        for (let mark = 0; mark < 60; ++mark) {
            const isHour = mark % 5 === 0;
            if (!isHour && radius < 60) continue; // too small for minutes
            const from = this.place(mark / 60, radius * 0.92);
            toolkit.drawPolyline(colors.mark, [...from, ...this.place(mark / 60, radius * (isHour ? 0.82 : 0.88))], isHour ? Math.max(2, radius / 40) : 1);
        }
        this.hand(colors.hand, (hour % 12 + minute / 60) / 12, radius * 0.52, radius * 0.05);
        this.hand(colors.hand, (minute + (second ?? 0) / 60) / 60, radius * 0.78, radius * 0.035);
        if (second !== null) this.hand(secondHand, second / 60, radius * 0.84, radius * 0.012);
        disc(second === null ? colors.hand : secondHand, Math.max(3, radius * 0.06), []);
    }

    /** A hand that gets narrower, with a tail behind the middle. */
    hand(color, part, length, half) {
        const side = (turn) => this.place(part + turn, half);
        this.toolkit.drawPolygon(color, [...this.place(part, length), ...side(0.25), ...this.place(part + 0.5, length * 0.16), ...side(0.75)]);
    }
}

module.exports = { Face };
