'use strict';
// What Linux tells of processes in /proc, as it is written there: proc(5).

const fs = require('node:fs');

const read = (name) => fs.readFileSync(`/proc/${name}`, 'utf8');
const users = new Map(fs.readFileSync('/etc/passwd', 'utf8').split('\n').map((line) => line.split(':')).map(([name, , id]) => [id, name]));

/** How many ticks all processors have worked, and how many they have lived, since the machine was started. */
function readProcessors() {
    const ticks = read('stat').split('\n')[0].split(/\s+/).slice(1, 9).map(Number);
    const all = ticks.reduce((sum, each) => sum + each);
    return { busy: all - ticks[3] - ticks[4], all };
}

/** Gigabytes: all there are, and those that are in use. */
function readMemory() {
    const [all, free] = ['MemTotal', 'MemAvailable'].map((key) => Number(new RegExp(`^${key}: +(\\d+)`, 'm').exec(read('meminfo'))?.[1]) / 2 ** 20);
    return { all, used: all - free };
}

/** One process, none when it has ended meanwhile. Its name stands in brackets, and may have brackets itself. */
function readProcess(pid) {
    try {
        const [, name = '', rest = ''] = /^\d+ \((.*)\) (.*)/s.exec(read(`${pid}/stat`)) ?? [];
        const fields = rest.split(' ').map(Number);
        const [, user = ''] = /^Uid:\s+(\d+)/m.exec(read(`${pid}/status`)) ?? [];
        return [{ pid: Number(pid), name, user: users.get(user) ?? user, memory: fields[21] * 4096 / 2 ** 20, ticks: fields[11] + fields[12] }];
    } catch {
        return [];
    }
}

const readProcesses = () => fs.readdirSync('/proc').filter((name) => /^\d+$/.test(name)).flatMap(readProcess);

module.exports = { readMemory, readProcesses, readProcessors };
