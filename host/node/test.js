'use strict';
// tarn-gui/test: windows in the hands of a test. drive() takes a window of this process, launch() starts a program.

const { inside } = require('./driver/component.js');
const { dialog, drive } = require('./driver/drive.js');
const { launch } = require('./driver/launch.js');
const { DriveError } = require('./driver/waiting.js');

inside.dropHolds(); // a test that fails leaves its windows open, and has to end

module.exports = { DriveError, dialog, drive, launch };
