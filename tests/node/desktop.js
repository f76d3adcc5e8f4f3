'use strict';
// A user of the virtual display: finds windows, clicks, types, looks at pixels. For tests under tests/e2e/with-display.sh.

const { execFile } = require('node:child_process');
const { promisify } = require('node:util');
const { sleep } = require('./helpers.js');

const run = async (program, ...args) => (await promisify(execFile)(program, args.map(String))).stdout.trim();
const xdotool = (...args) => run('xdotool', ...args);

/** The window with this title, once it is on the screen and the window manager has stopped moving it. */
async function findWindow(title) {
    let before = '';
    for (const end = Date.now() + 15000; Date.now() < end; await sleep(100)) {
        const found = await xdotool('search', '--onlyvisible', '--name', `^${title}$`).catch(() => '');
        const window = found.split('\n')[0];
        const place = window && await xdotool('getwindowgeometry', window).catch(() => '');
        if (place !== '' && place === before) {
            return window;
        }
        before = place;
    }
    throw new Error(`no window called ${title}`);
}

/** Waits until no window has this title. */
async function waitGone(title) {
    for (const end = Date.now() + 15000; Date.now() < end; await sleep(20)) {
        if (await xdotool('search', '--onlyvisible', '--name', `^${title}$`).catch(() => '') === '') {
            return;
        }
    }
    throw new Error(`the window ${title} stays`);
}

/** Clicks at a point of the window, in pixels from its upper left corner. */
async function click(window, x, y) {
    await xdotool('mousemove', '--window', window, x, y);
    await sleep(50);
    await xdotool('click', 1);
}

/** Closes the window as the button in its title bar does. */
async function closeByUser(window) {
    await xdotool('windowactivate', '--sync', window);
    await xdotool('key', 'alt+F4');
}

/** The colour at a point of the window, "#RRGGBB". */
async function pixel(window, x, y) {
    const text = await run('import', '-window', window, '-crop', `1x1+${x}+${y}`, '-depth', '8', 'txt:-');
    return /#[0-9A-F]{6}/.exec(text)?.[0];
}

/** Processor time that a process has taken, in clock ticks of 10 ms. */
function processorTicks(pid) {
    const fields = require('node:fs').readFileSync(`/proc/${pid}/stat`, 'utf8').replace(/^.*\) /, '').split(' ');
    return Number(fields[11]) + Number(fields[12]);
}

module.exports = { click, closeByUser, findWindow, pixel, processorTicks, waitGone, xdotool };
