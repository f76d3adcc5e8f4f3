#!/usr/bin/env node
'use strict';
// tarn-gui: windows from the shell. The package is only loaded once the arguments are understood, so that --help needs no library.

const { main } = require('../shell/main.js');

main(process.argv.slice(2), () => require('../index.js')).then((code) => { process.exitCode = code; });
