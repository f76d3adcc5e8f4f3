'use strict';
// What Linux tells of processes in /proc, as it is written there: proc(5).

const fs = require('node:fs');

const pageBytes = 4096;
const users = new Map(fs.readFileSync('/etc/passwd', 'utf8').split('\n').map((line) => line.split(':')).map(([name, , id]) => [Number(id), name]));

/** The file, or null when its process has ended meanwhile. */
function read(name) {
    try {
        return fs.readFileSync(`/proc/${name}`, 'utf8');
    } catch {
        return null;
    }
}

/** How many ticks all processors have worked, and how many they have lived, since the machine was started. */
function readProcessors() {
    const ticks = read('stat').split('\n')[0].split(/\s+/).slice(1).map(Number);
    const all = ticks.slice(0, 8).reduce((sum, each) => sum + each, 0);
    return { busy: all - ticks[3] - ticks[4], all };
}

/** Bytes: all there are, and those that are in use. */
function readMemory() {
    const bytes = (key) => 1024 * Number(new RegExp(`^${key}: +(\\d+)`, 'm').exec(read('meminfo'))[1]);
    return { all: bytes('MemTotal'), used: bytes('MemTotal') - bytes('MemAvailable') };
}

/** { pid, name, user, memory, ticks } of one; null when it has ended. Its name is in brackets, and may have some itself. */
function readProcess(pid) {
    const stat = read(`${pid}/stat`);
    const status = read(`${pid}/status`);
    if (stat === null || status === null) return null;
    const fields = stat.slice(stat.lastIndexOf(')') + 2).split(' ');
    const uid = Number(/^Uid:\s+(\d+)/m.exec(status)[1]);
    const name = stat.slice(stat.indexOf('(') + 1, stat.lastIndexOf(')'));
    return { pid: Number(pid), name, user: users.get(uid) ?? String(uid), memory: Number(fields[21]) * pageBytes, ticks: Number(fields[11]) + Number(fields[12]) };
}

const readProcesses = () => fs.readdirSync('/proc').filter((name) => /^\d+$/.test(name)).map(readProcess).filter(Boolean);

module.exports = { readMemory, readProcesses, readProcessors };
