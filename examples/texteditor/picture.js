'use strict';
// The editor as it is pictured: with a text.
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');

const file = path.join(os.tmpdir(), 'skates.txt');
fs.writeFileSync(file, `Skates

The lake freezes from the edge. Nobody goes out before the ice bears
a stone of the size of a fist, thrown from the shore; and even then the
first ones walk where the reed stands, since reed keeps the ice thin.

Bring: a rope, a thermos, the long poles from the boat house. The ferry
does not run once the ice is closed, so the last one home is at six.
`);
process.argv.push(file);
require('./app.js');
