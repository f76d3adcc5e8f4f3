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

module.exports = { meant, tell, tellUnknownPolicy };
