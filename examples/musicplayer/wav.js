'use strict';
// A .wav file: how long it is, and what is left of it from a place on. It is made of chunks (RIFF): a name, a length, so many bytes, and
// one more where the length is odd.

const fs = require('node:fs');

/** { seconds, from(position) } of a file; throws an Error when it is no such file. */
function readWav(file) {
    const bytes = fs.readFileSync(file);
    const chunks = {}; // { start, end } by names
    for (let at = 12, size = 0; at + 8 <= bytes.length; at += 8 + size + size % 2) {
        size = bytes.readUInt32LE(at + 4);
        chunks[bytes.toString('latin1', at, at + 4)] ??= { start: at + 8, end: Math.min(at + 8 + size, bytes.length) };
    }
    if (!/^RIFF....WAVE/s.test(bytes.toString('latin1', 0, 12)) || !chunks['fmt '] || !chunks.data) throw new Error(`${file} is no .wav file`);
    const { data: { start, end }, 'fmt ': format } = chunks;
    const perSecond = bytes.readUInt32LE(format.start + 8); // bytes
    const frame = bytes.readUInt16LE(format.start + 12); // bytes: one sample of each channel
    return {
        seconds: (end - start) / perSecond,
        from(position) {
            const rest = Buffer.concat([bytes.subarray(0, start), bytes.subarray(start + Math.floor(position * perSecond / frame) * frame, end)]);
            rest.writeUInt32LE(rest.length - 8, 4);
            rest.writeUInt32LE(rest.length - start, start - 4);
            return rest;
        },
    };
}

module.exports = { readWav };
