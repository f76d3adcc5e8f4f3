'use strict';
// Comparing a window with a picture.

const fs = require('node:fs');
const path = require('node:path');
const { DriveError } = require('./waiting.js');

/** How much a colour of a pixel may differ, of 255, and how many pixels may differ by more. */
const usual = { tolerance: 16, pixels: 0 };
const optionsOfPictures = { tolerance: 'number', pixels: 'number' };

/** "/x/page.png" is compared with "/x/page.actual.png". */
function actualOf(file) {
    const { dir, name, ext } = path.parse(file);
    return path.join(dir, `${name}.actual${ext}`);
}

function differenceOf({ isMissing, isSize, wanted, actual, differing }, pixels) {
    if (isMissing) {
        return 'there is no such picture';
    }
    if (isSize === false) {
        return `the window has ${actual} pixels, the picture ${wanted}`;
    }
    return differing > pixels ? `${differing} pixels differ${pixels > 0 ? `, more than ${pixels}` : ''}` : null;
}

async function compare(tools, file, options) {
    const { tolerance, pixels } = { ...usual, ...options };
    const answer = await tools.limit.until(() => tools.ask({ do: 'compare', file, tolerance }));
    const difference = differenceOf(answer, pixels);
    const actual = actualOf(file);
    if (difference === null) {
        fs.rmSync(actual, { force: true });
        return;
    }
    const isUpdate = process.env.TARN_UPDATE === '1';
    const target = isUpdate ? file : actual;
    await tools.limit.until(() => tools.ask({ do: 'picture', file: target }));
    if (!isUpdate) {
        throw new DriveError(`${tools.limit.what}: ${difference}; the window as it is now is in ${target}, TARN_UPDATE=1 takes it over`);
    }
    fs.rmSync(actual, { force: true });
}

module.exports = { compare, optionsOfPictures };
