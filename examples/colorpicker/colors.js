'use strict';
// Colours in three ways: Red, Green and Blue (0 to 255); Hue (degrees), Saturation and Value (percent); and "#RRGGBB".

/** Red, Green, Blue: each is the Value, less what the distance of its hue takes away. */
function toRgb({ Hue, Saturation, Value }) {
    const [Red, Green, Blue] = [5, 3, 1].map((offset) => {
        const place = (offset + Hue / 60) % 6;
        return Math.round(255 * Value / 100 * (1 - Saturation / 100 * Math.max(0, Math.min(place, 4 - place, 1))));
    });
    return { Red, Green, Blue };
}

/** The way back. A gray has no hue of its own and keeps that of `before`, so that one slider does not move another to its end. */
function toHsv({ Red, Green, Blue }, before = { Hue: 0 }) {
    const most = Math.max(Red, Green, Blue);
    const range = most - Math.min(Red, Green, Blue);
    const turn = most === Red ? (Green - Blue) / range : most === Green ? 2 + (Blue - Red) / range : 4 + (Red - Green) / range;
    const Hue = range === 0 ? before.Hue : Math.round(60 * turn + 360) % 360;
    return { Hue, Saturation: most === 0 ? 0 : Math.round(100 * range / most), Value: Math.round(most / 2.55) };
}

const toHex = ({ Red, Green, Blue }) => `#${[Red, Green, Blue].map((part) => part.toString(16).padStart(2, '0')).join('').toUpperCase()}`;

/** "#369" and "336699" are right, too; null for anything that is no colour. */
function fromHex(text) {
    const digits = /^#?([0-9a-f]{6}|[0-9a-f]{3})$/i.exec(text.trim())?.[1];
    if (digits === undefined) return null;
    const [Red, Green, Blue] = (digits.length === 3 ? digits.replace(/./g, '$&$&') : digits).match(/../g)?.map((part) => parseInt(part, 16)) ?? [];
    return { Red, Green, Blue };
}

module.exports = { fromHex, toHex, toHsv, toRgb };
