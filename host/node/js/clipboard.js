'use strict';
// tarn.clipboard: the text that the desktop keeps for pasting.

const { checkArguments, parseSignature } = require('./arguments.js');
const { callDesktop } = require('./desktop.js');

const reading = parseSignature('clipboard.readText()');
const writing = parseSignature('clipboard.writeText(text: string)');

const clipboard = Object.freeze({
    readText(...args) {
        checkArguments([reading], args, clipboard.readText);
        return callDesktop(reading.text, 'readClipboard') ?? '';
    },

    writeText(...args) {
        callDesktop(writing.text, 'writeClipboard', ...checkArguments([writing], args, clipboard.writeText));
    },
});

module.exports = { clipboard };
