'use strict';
// The processes as they are pictured: those of a made-up machine, looked at often, so that the charts have something to show.
const proc = require('./proc');

let look = 0;
/** @type {[string, string, number, number][]} */
const names = [['gimp', 'ada', 812.4, 9], ['node', 'ada', 97.4, 5], ['Xorg', 'root', 73.1, 3], ['openbox', 'ada', 24.6, 1], ['ssh-agent', 'ada', 4.2, 0], ['cupsd', 'root', 9.8, 0],
    ['dbus-daemon', 'messagebus', 5.1, 0], ['cron', 'root', 2.9, 0], ['bash', 'ada', 5.4, 0], ['vim', 'ada', 11.3, 0], ['systemd', 'root', 12.7, 0], ['rsyslogd', 'root', 6.3, 0]];
proc.readProcesses = () => names.map(([name, user, memory, share], index) => ({ pid: 400 + 37 * index, name, user, memory, ticks: look * share }));
proc.readProcessors = () => {
    look += 1;
    return { busy: Math.round(look * 40 + 90 * Math.sin(look / 5) + 40 * Math.sin(look / 2)), all: look * 100 };
};
proc.readMemory = () => ({ all: 15.6, used: 5.2 + 0.6 * Math.sin(look / 14) });
process.argv.push('40');
require('./app.js');
