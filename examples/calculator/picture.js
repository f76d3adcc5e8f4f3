'use strict';
// The calculator as it is pictured: with some lines on its tape.
process.argv.push('12 * (3 + 4)', '84 / 10', 'sqrt 2', '19.90 * 15%');
require('./app.js');
