'use strict';
// What the inspector says of an element, in words: why it has its size, above all.

const px = (number) => `${number} px`;

const springyWidth = ({ least, room }) => `springy: an equal part of what the row of ${px(room)} has left; never less than ${px(least)}, which its content needs`;

function percentOf({ wanted, least, room, got }, around) {
    const share = Math.floor(room * wanted / 100);
    const base = `${wanted} % of the ${px(room)} in ${around}`;
    return got === least && least > share ? `${base} would be ${px(share)}, but its content needs ${px(least)}` : base;
}

function pixelsOf({ asked, least, got }) {
    if (got === asked) {
        return `asked for ${px(asked)}, and got them`;
    }
    return got > asked ? `asked for ${px(asked)}, but its content needs ${px(least)}`
        : `asked for ${px(asked)}, but the row is too narrow for all: this is its share, in proportion to what each lacks`;
}

/** Why the element is as wide as it is. */
function whyWidth(width) {
    if (width.room === undefined) {
        return 'the window is as wide';
    }
    if (width.isSpringy) {
        return springyWidth(width);
    }
    if (width.wantedUnit === 'percent') {
        return percentOf(width, 'the element around');
    }
    if (width.askedUnit === 'pixels') {
        return pixelsOf(width);
    }
    if (width.got < width.wanted) {
        return `its content would like ${px(width.wanted)}, but the row is too narrow for all; it needs ${px(width.least)}`;
    }
    return width.got === width.wanted ? 'as wide as its content' : `its content needs ${px(width.least)}`;
}

function heightByContent({ content, got, isSpringy, isShared }) {
    if (got === content) {
        return 'as high as its content';
    }
    if (got < content) {
        return `cut off: its content needs ${px(content)}`;
    }
    return isSpringy && isShared ? `springy: its content needs ${px(content)}, the rest is its part of what the element around has left`
        : `its content needs ${px(content)}; it is as high as the row that it stands in`;
}

/** Why the element is as high as it is. */
function whyHeight(height) {
    if (height.room === undefined) {
        return 'the window is as high';
    }
    if (height.wantedUnit === 'percent') {
        return percentOf(height, 'the element around');
    }
    if (height.askedUnit === 'pixels' && height.got <= height.asked) {
        return `asked for ${px(height.asked)}${height.got === height.asked ? ', and got them' : ''}`;
    }
    if (height.askedUnit === 'pixels') {
        return `asked for ${px(height.asked)}; ${height.isSpringy ? 'springy: the rest is its part of what is left' : `it needs ${px(Math.max(height.least, height.asked))}, the row is higher`}`;
    }
    return heightByContent(height);
}

function request({ asked: wish, askedUnit, least }) {
    const wanted = { none: 'nothing', pixels: px(wish), percent: `${wish} %` }[askedUnit];
    return `${wanted}; needs ${px(least)}`;
}

const scrollWords = { yes: 'gets scroll bars', grow: 'grows with its content', no: 'cuts its content off' };

function scrolled({ policy, x, y, rangeX, rangeY }) {
    const bars = [rangeX > 0 ? `${x} of ${rangeX} to the right` : '', rangeY > 0 ? `${y} of ${rangeY} down` : ''].filter(Boolean);
    return bars.length === 0 ? scrollWords[policy] : `${scrollWords[policy]}; scrolled ${bars.join(', ')}`;
}

const color = ({ color: value, isGiven }) => (isGiven ? value : 'the desktop\'s');

function fontName({ family, points, isBold, isItalic }) {
    return `${family}, ${points} pt${isBold ? ', bold' : ''}${isItalic ? ', italic' : ''}`;
}

/** Whether an attribute names what a script does. */
const isHandler = ([name, value]) => /^on/i.test(name) || /^event:/i.test(value);

/** What an element is called in the tree: td "total", or the text of a text. */
function title({ tag, kind, name, text, isHidden }) {
    const what = kind === 'text' ? `“${text ?? ''}”` : tag || kind;
    return `${what}${name ? ` ${name}` : ''}${isHidden ? ' (hidden)' : ''}`;
}

/** Where it stands: "order.html:12", or only the line when that is in `file` or in no file. */
function place(node, file = '') {
    if (!node.line) {
        return '';
    }
    const name = node.file && node.file !== file ? `${node.file.slice(node.file.lastIndexOf('/') + 1)}:` : '';
    return `${name}${node.line}`;
}

/** What there is to say, in groups of [label, value]. */
function describe(node) {
    const [x, y, width, height] = node.place;
    const colors = [`text ${color(node.colors.text)}`, `links ${color(node.colors.link)}`];
    if (node.colors.background) {
        colors.push(`ground ${color(node.colors.background)}`);
    }
    return {
        Place: [['In the window', `${width} × ${height} at ${x}, ${y}`], ['In the text', place(node) || 'made by the program']],
        Handlers: node.attributes.filter(isHandler),
        Width: [['Asked for', request(node.width)], ['Got', px(node.width.got)], ['Why', whyWidth(node.width)]],
        Height: [['Asked for', request(node.height)], ['Got', px(node.height.got)], ['Why', whyHeight(node.height)]],
        Box: [['Border, space', `${px(node.border)}, ${px(node.space)}`], ['Between parts', px(node.divide)],
            ['Content', `${node.alignX}, ${node.alignY}`], ['Too much', scrolled(node.scroll)]],
        Look: [['Colors', colors.join(', ')], ['Font', fontName(node.font)], ['State', [node.isEnabled ? 'enabled' : 'disabled', node.isHidden ? 'hidden' : 'shown'].join(', ')]],
        Attributes: node.attributes.filter((attribute) => !isHandler(attribute)),
    };
}

module.exports = { describe, place, title, whyHeight, whyWidth };
