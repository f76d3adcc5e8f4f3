'use strict';
// Opens the example applications one after the other, again and again, in one process, so that
// whatever they leave behind adds up. Each is loaded as if for the first time. Prints the name of each as it begins.

const fs = require('node:fs');
const path = require('node:path');

const applications = process.argv.splice(2).map(name => path.resolve(name)); // taken out: applications read them too
require('../../host/node'); // stays; only the applications are loaded anew

/** What an application that ends its process meets instead. */
class Leave extends Error {}
process.exit = () => { throw new Leave(); };

// The interpreter's own threads begin with the first file that is read in the background, and stay: not a leak either.
for (let each = 0; each < 4; each += 1) {
    fs.stat(__filename, () => {});
}

// Goes on while a window is shown. Without it, garbage that nobody has collected yet would look like a leak.
setInterval(() => global.gc(), 500);

function forget(application) {
    const folder = path.dirname(application) + path.sep;
    for (const file of Object.keys(require.cache).filter(name => name.startsWith(folder))) {
        delete require.cache[file];
    }
    module.children.length = 0; // holds every module that was ever loaded from here
}

function open(application) {
    console.log(`opened ${path.basename(path.dirname(application))}`);
    forget(application);
    try {
        require(application); // returns when its windows are closed, if it shows them modally
    } catch (error) {
        if (!(error instanceof Leave)) {
            throw error;
        }
    }
}

/** Whether an application that does not wait for its windows still has one. */
function hasWindow() {
    return require('../../host/node').session?.currentWindow?.isOpen() ?? false;
}

function next(turn) {
    if (!hasWindow()) {
        open(applications[turn % applications.length]);
        turn += 1;
    }
    setTimeout(next, 20, turn);
}

next(0);
