'use strict';
// docs/cookbook.md quotes the recipes as they are. With TARN_UPDATE_COOKBOOK set it is rewritten instead.

const assert = require('node:assert/strict');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');

const root = path.join(__dirname, '..', '..');
const recipes = path.join(root, 'examples', 'recipes');
const document = path.join(root, 'docs', 'cookbook.md');

/** A link to a file of a recipe, and the block behind it. */
const quotation = /^\[([^\]]+)\]\(\.\.\/examples\/recipes\/([^)]+)\)\n\n```\w+\n([^]*?)\n```$/gm;

const textOf = (name) => fs.readFileSync(path.join(recipes, name), 'utf8').trimEnd();

function filesIn(folder, prefix = '') {
    return fs.readdirSync(folder, { withFileTypes: true }).filter((entry) => entry.name !== 'node_modules').flatMap((entry) => (
        entry.isDirectory() ? filesIn(path.join(folder, entry.name), `${prefix}${entry.name}/`) : [prefix + entry.name]));
}

test('the cookbook quotes every recipe as it is', () => {
    if (process.env.TARN_UPDATE_COOKBOOK) {
        const now = fs.readFileSync(document, 'utf8');
        fs.writeFileSync(document, now.replace(quotation, (all, title, name, code) => all.replace(code, () => textOf(name))));
    }
    const quoted = [...fs.readFileSync(document, 'utf8').matchAll(quotation)];
    for (const [, title, name, code] of quoted) {
        assert.equal(title, name);
        assert.equal(code, textOf(name), name);
    }
    assert.deepEqual(quoted.map(([, , name]) => name).sort(), filesIn(recipes).sort());
    assert.equal(fs.readFileSync(document, 'utf8').match(/^### /gm).length, 31);
});
