'use strict';
// Words that are one of a few, and what was probably meant by another one.

const { native } = require('./native.js');

/** `; did you mean "x"?`, "" when nothing comes close. Letters' case does not matter. */
function meant(word, known) {
    const nearest = native.nearestWord(word.toLowerCase(), known.map((each) => each.toLowerCase()));
    const found = known.find((each) => each.toLowerCase() === nearest);
    return found === undefined ? '' : `; did you mean "${found}"?`;
}

/** One line on standard error. */
function tell(message) {
    process.stderr.write(`tarn: ${message}\n`);
}

const policies = ['SCROLL', 'RESIZE', 'FIXED'];

function tellUnknownPolicy(owner, object, policy) {
    if (!policies.includes(policy)) {
        const name = owner === 'control' ? 'CustomElement' : owner;
        tell(`${name}.setSizePolicy(policy): "${policy}" is none of "SCROLL", "RESIZE" and "FIXED"${meant(policy, policies)}`);
    }
}

/** The names that were told already, by form. */
const toldNames = new WeakMap();

/** Node.js and JavaScript ask objects for these by themselves. */
const askedAnyway = new Set(['then', 'toJSON', 'inspect', 'asymmetricMatch', 'nodeType', ...Object.getOwnPropertyNames(Object.prototype)]);

/** Script reads or assigns a property of a form that is no control: one line for each name. `known`: the controls' names. */
function tellUnknownControl(form, name, known) {
    const told = toldNames.get(form) ?? new Set();
    toldNames.set(form, told);
    if (known.length === 0 || askedAnyway.has(name) || told.has(name)) {
        return;
    }
    told.add(name);
    tell(`the form has no control "${name}"${meant(name, known)}`);
}

module.exports = { meant, tell, tellUnknownControl, tellUnknownPolicy };
