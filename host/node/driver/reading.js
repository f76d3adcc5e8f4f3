'use strict';
// What a test reads from a window. Each gives { result } or { problem }. `tools`: what window.js gives its helpers.

const { inside } = require('./component.js');
const { called } = require('./targets.js');

const { isSelected, unpack, unpackRows } = inside;

/** The text of a control is its own, that of an element what is in it, that of a dialog what it says. */
async function readText(tools, item) {
    if (item.items !== undefined) { // the whole window
        const said = item.items.filter(({ kind }) => kind === 'text').map(({ text }) => text);
        const answer = await tools.ask({ do: 'read' });
        return { result: answer.problem === undefined ? answer.text : said.join('\n') };
    }
    if (item.kind !== 'element') {
        return { result: item.text ?? '' };
    }
    const { problem, text } = await tools.ask({ do: 'read', thing: item.thing });
    return problem === undefined ? { result: text } : { problem };
}

/** The value as the form has it. */
function valueOf(item, items) {
    if (item.kind === 'radio button') {
        const on = items.find(({ kind, name, isChecked }) => kind === 'radio button' && name === item.name && isChecked);
        return { result: on?.part ?? null };
    }
    return 'value' in item ? { result: item.value } : { problem: `${called(item)} has no value`, isFinal: true };
}

/** The rows of a list, as its rows() gives them; those of a select have `value`, `text` and `selected`. */
async function readRows(tools, item) {
    const { problem, packed, isRich } = await tools.ask({ do: 'rows', thing: item.thing });
    if (problem !== undefined) {
        return { problem: `${called(item)} is no list`, isFinal: true };
    }
    const units = Buffer.from(packed, 'base64').toString('utf16le');
    return { result: isRich ? unpackRows(units)
        : unpack(units, ([value, text], state) => ({ value, text, selected: isSelected(state) })) };
}

/** What find() tells of a thing. */
function description({ kind, name = null, text = '', label = '', value = null, isChecked, isDisabled = false, isHidden = false }) {
    return { kind, name, text, label, value, ...isChecked === undefined ? {} : { checked: isChecked }, enabled: !isDisabled, visible: !isHidden };
}

module.exports = { description, readRows, readText, valueOf };
