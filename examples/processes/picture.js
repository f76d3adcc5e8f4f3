'use strict';
// The processes as they are pictured: looked at often, so that the charts have something to show.
process.argv.push('100');
require('./app.js');
