'use strict';
// The difference of two texts, line by line: the shortest way from one to the other, found by going ever more steps of one line.
//
// A place (x, y) stands behind x lines of the left text and y of the right one. Equal lines are walked for nothing; a step to the right
// removes a line, a step down adds one. `reached[d]` says how far d steps lead on each diagonal x - y. Time and memory grow with the
// lines and the steps, so the steps are bounded: texts that have less in common differ as a whole.

const mostSteps = 1000;

/** How far each number of steps leads, up to the one that leads to the end; null when that takes too many. */
function walk(left, right) {
    const reached = [];
    let last = new Map([[1, 0]]);
    for (let steps = 0; steps <= mostSteps; ++steps) {
        const now = new Map();
        for (let diagonal = -steps; diagonal <= steps; diagonal += 2) {
            let x = Math.max(last.get(diagonal + 1) ?? -1, (last.get(diagonal - 1) ?? -2) + 1);
            while (x < left.length && x - diagonal < right.length && left[x] === right[x - diagonal]) ++x;
            now.set(diagonal, x);
            if (x >= left.length && x - diagonal >= right.length) return reached;
        }
        reached.push(last = now);
    }
    return null;
}

/** The steps from the end back to the beginning, as { line, isRemoved }, the first one first. */
function stepsOf(left, right, reached) {
    const steps = [];
    let [x, diagonal] = [left.length, left.length - right.length];
    for (const before of reached.reverse()) {
        const [down, along] = [before.get(diagonal + 1) ?? -1, before.get(diagonal - 1) ?? -2];
        const isRemoved = along + 1 > down;
        [x, diagonal] = isRemoved ? [along, diagonal - 1] : [down, diagonal + 1];
        steps.unshift({ isRemoved, line: isRemoved ? x : x - diagonal });
    }
    return steps;
}

/** The numbers, from 0, of the lines of each side that the other one has not: { removed, added }, two sets. */
function differenceOf(left, right) {
    const reached = walk(left, right);
    if (reached === null) return { removed: new Set(left.keys()), added: new Set(right.keys()) };
    const steps = stepsOf(left, right, reached);
    const linesOf = (isRemoved) => new Set(steps.filter((step) => step.isRemoved === isRemoved).map(({ line }) => line));
    return { removed: linesOf(true), added: linesOf(false) };
}

module.exports = { differenceOf };
