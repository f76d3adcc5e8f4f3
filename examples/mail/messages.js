'use strict';
// Messages that nobody has written: each is worked out from its number, so that a hundred thousand take no room.

const names = ['Ada Byron', 'Grace Hopper', 'Emmy Noether', 'Alan Turing', 'Lise Meitner', 'Niels Bohr', 'Mary Somerville', 'Carl Gauss'];
const things = ['the bridge', 'a journey to Bern', 'the new engine', 'our garden', 'chapter seven', 'the invoice', 'a cup of tea', 'winter'];
const openings = ['About', 'Question about', 'Again:', 'Good news of', 'Nothing new about', 'Photographs of', 'Plans for'];
const sentences = ['I have looked at it again, and it seems to be right.', 'Could you have a look before Friday?',
    'The numbers are in the table below, as far as we have them.', 'It took longer than we thought, but it stands.',
    'Let us talk about the rest when you are here.', 'Nobody has answered yet.'];

/** One of a list, for a message; `salt` makes the choices of a message independent of each other. */
function pick(list, number, salt) {
    const mixed = Math.imul(number ^ Math.imul(salt, 0x9e3779b1), 0x85ebca6b);
    return list[(Math.imul(mixed ^ mixed >>> 13, 0xc2b2ae35) >>> 16) % list.length];
}

function head(number) {
    return { from: pick(names, number, 1), subject: `${pick(openings, number, 2)} ${pick(things, number, 3)}` };
}

function makeMessage(number) {
    const day = new Date(Date.UTC(2026, 2, 31) - number * 600_000).toISOString().slice(0, 16).replace('T', ' ');
    const lines = Array.from({ length: 3 + number % 4 }, (_, line) => pick(sentences, number, 4 + line));
    return { ...head(number), day, lines: [...lines, `This is message ${number + 1}.`] };
}

/** What is searched, one text for each message. */
function summaries(count) {
    return Array.from({ length: count }, (_, number) => {
        const { from, subject } = head(number);
        return `${from} ${subject}`.toLowerCase();
    });
}

module.exports = { makeMessage, summaries };
