'use strict';
// What a page is printed on: the options of savePdf, checked, as the component takes them.

const { typeError } = require('./arguments.js');
const { checkOptions } = require('./options.js');

/** Width and height in millimetres. */
const sizes = { A3: [297, 420], A4: [210, 297], A5: [148, 210], Letter: [215.9, 279.4], Legal: [215.9, 355.6] };
const usualMargin = 20;
const sides = ['top', 'right', 'bottom', 'left'];
const parts = ['left', 'center', 'right'];
const leastContent = 10;
const largestSize = 5000;

const isLength = (value) => typeof value === 'number' && value >= 0 && value <= largestSize;
const isRecord = (value) => typeof value === 'object' && value !== null && !Array.isArray(value);

/** An object that has some of these properties and no others, each of which is of the kind. */
function isRecordOf(value, names, accepts) {
    return isRecord(value) && Object.entries(value).every(([name, each]) => names.includes(name) && (each === undefined || accepts(each)));
}

const isSize = (value) => isRecordOf(value, ['width', 'height'], isLength) && value.width > 0 && value.height > 0;
const paper = {
    accepts: (value) => Object.hasOwn(sizes, value) || isSize(value),
    says: `${Object.keys(sizes).map((name) => `"${name}"`).join(', ')} or { width, height } in millimetres`,
};
const margins = {
    accepts: (value) => isLength(value) || isRecordOf(value, sides, isLength),
    says: 'millimetres, as a number or as { top, right, bottom, left }',
};
const line = {
    accepts: (value) => typeof value === 'string' || isRecordOf(value, parts, (each) => typeof each === 'string'),
    says: 'a string or { left, center, right }',
};
const table = { paper, landscape: 'boolean', margins, header: line, footer: line };

function sizeOf({ paper: named = 'A4', landscape = false }) {
    const [width, height] = typeof named === 'string' ? sizes[named] : [named.width, named.height];
    return landscape ? [Math.max(width, height), Math.min(width, height)] : [width, height];
}

function marginsOf({ margins: given = {} }) {
    return sides.map((side) => (typeof given === 'number' ? given : given[side] ?? usualMargin));
}

function lineOf(given = '') {
    return typeof given === 'string' ? ['', given, ''] : parts.map((part) => given[part] ?? '');
}

/** Width and height, the four margins, and the two lines in three parts each; throws a TypeError that names what is wrong. */
function checkPaper(caller, given, method) {
    const options = checkOptions(caller, given, table, method);
    const [width, height] = sizeOf(options);
    const [top, right, bottom, left] = marginsOf(options);
    const [wide, high] = [width - left - right, height - top - bottom];
    if (wide < leastContent || high < leastContent) {
        throw typeError(`${caller}: the option "margins" must leave ${leastContent} millimetres each way, not ${wide} by ${high}`, method);
    }
    return [width, height, top, right, bottom, left, ...lineOf(options.header), ...lineOf(options.footer)];
}

/** A file that could not be written. */
class PdfError extends Error {
    constructor(message, file) {
        super(message);
        this.path = file;
    }
}
Object.defineProperty(PdfError.prototype, 'name', { value: 'Error' });

module.exports = { checkPaper, PdfError };
