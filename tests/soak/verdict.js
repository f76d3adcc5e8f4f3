'use strict';
// What a run's samples say: whether anything grew between the second quarter, when all is warm, and the last.

const slackKb = 6000; // what caches of pages and glyphs may still take, besides the share below
const share = 0.05;

const median = (numbers) => [...numbers].sort((a, b) => a - b)[Math.floor(numbers.length / 2)];

function quarter(samples, number) {
    return samples.slice(Math.floor(samples.length * (number - 1) / 4), Math.floor(samples.length * number / 4));
}

/** The figure's median in the second and in the last quarter. */
function beforeAndAfter(samples, name) {
    return [2, 4].map((number) => median(quarter(samples, number).map((sample) => sample[name])));
}

/** samples: {seconds, memory (KB), handles, threads}, in order of time. */
function verdictOf(samples) {
    if (samples.length < 8) {
        return { faults: [`only ${samples.length} samples were taken`], text: '' };
    }
    const [memory, memoryAfter] = beforeAndAfter(samples, 'memory');
    const [handles, handlesAfter] = beforeAndAfter(samples, 'handles');
    const [threads, threadsAfter] = beforeAndAfter(samples, 'threads');
    const faults = [];
    if (memoryAfter > memory * (1 + share) + slackKb) {
        faults.push(`memory grew from ${memory} to ${memoryAfter} KB`);
    }
    if (handlesAfter > handles + 2) {
        faults.push(`file handles grew from ${handles} to ${handlesAfter}`);
    }
    if (threadsAfter > threads + 1) {
        faults.push(`threads grew from ${threads} to ${threadsAfter}`);
    }
    const text = `memory ${memory} -> ${memoryAfter} KB, handles ${handles} -> ${handlesAfter}, `
        + `threads ${threads} -> ${threadsAfter}`;
    return { faults, text };
}

module.exports = { verdictOf };
