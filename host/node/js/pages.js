'use strict';
// The page of a window: from a file, or from text.

const { callerFile } = require('./callerfolder.js');
const { checkArguments, parseSignature } = require('./arguments.js');
const { allowPath, missingPage } = require('./files.js');
const { native } = require('./native.js');

const signature = parseSignature('new GuiWindow(path?: path)');

/** Names of the pages from text that are being read. */
const names = new Set();

/** A name beside the calling script, where relative names in the page start: "/app/main.js (text)". */
function nameOfText(file) {
    for (let count = 1; ; ++count) {
        const name = `${file} (${count === 1 ? 'text' : `text ${count}`})`;
        if (!names.has(name)) {
            return name;
        }
    }
}

/** Loads a page from text as one from a file: the title and the sizes of its body count. `load(name)` reads the page. */
function loadText(text, load) {
    const name = nameOfText(callerFile());
    const page = /<(body|html)[\s>]/i.test(text) ? text : `<body>${text}</body>`;
    names.add(name);
    native.addPage(name, `\uFEFF${page}`);
    try {
        return load(name);
    } finally {
        native.forgetPage(name);
        names.delete(name);
    }
}

/** The arguments of a constructor as the component takes them; what `Class` is called with may be more, for a subclass. */
function pageArguments(args, folder, constructor) {
    const checked = checkArguments([signature], args, constructor);
    native.setNextFolder(folder);
    if (checked.length > 0) {
        allowPath(folder, checked[0]);
    }
    return checked;
}

/** Throws when the page that a window was made with could not be read. */
function requirePage(window, args, folder) {
    const error = args.length === 0 || window.isValid() ? undefined : missingPage(folder, args[0], 'new GuiWindow(path)');
    if (error !== undefined) {
        throw error;
    }
}

module.exports = { loadText, pageArguments, requirePage };
