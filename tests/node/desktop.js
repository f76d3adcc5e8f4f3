'use strict';
// A user of the virtual display: finds windows, clicks, types, looks at pixels. For tests under tests/e2e/with-display.sh.

const { execFile } = require('node:child_process');
const { promisify } = require('node:util');
const { sleep } = require('./helpers.js');

/** Runs a program; what it prints. */
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

/** The window with this title, once it is the active one too: what is typed goes there. */
async function findActiveWindow(title) {
    const window = await findWindow(title);
    for (const end = Date.now() + 15000; Date.now() < end; await sleep(20)) {
        if (await xdotool('getactivewindow').catch(() => '') === window) {
            return window;
        }
    }
    throw new Error(`the window ${title} does not become active`);
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

/** Moves the pointer and presses the button as one step: the program sees the two in this order, however late. */
const press = (window, x, y) => xdotool('mousemove', '--window', window, x, y, 'click', 1);

/** Types a text where the focus is. */
const type = (text) => xdotool('type', '--delay', 5, text);

/** Presses keys, one after the other. */
const keys = (...names) => xdotool('key', '--delay', 5, ...names);

/** Waits until the point of the window has one of the colours, "#RRGGBB"; the colour. */
async function waitForPixel(window, x, y, ...colours) {
    let seen;
    for (const end = Date.now() + 20000; Date.now() < end; await sleep(20)) {
        seen = await pixel(window, x, y).catch((error) => error.message); // a window may go while it is looked at
        if (colours.includes(seen)) {
            return seen;
        }
    }
    throw new Error(`the point ${x}, ${y} is ${seen}, not ${colours}`);
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

/** The smallest area of the window, which is `width` by `height` pixels large, that holds every pixel of exactly this colour. */
async function findColour(window, width, height, colour) {
    const arguments_ = ['-window', window, '-crop', `${width}x${height}+0+0`, '-depth', '8', 'rgb:-'];
    const { stdout } = await promisify(execFile)('import', arguments_, { encoding: 'buffer', maxBuffer: 2 ** 26 });
    const wanted = parseInt(colour.slice(1), 16);
    let area = null;
    for (let i = 0; i < width * height; ++i) {
        if (stdout.readUIntBE(3 * i, 3) === wanted) {
            const [x, y] = [i % width, Math.floor(i / width)];
            area ??= { left: x, right: x, top: y, bottom: y };
            area = { left: Math.min(area.left, x), right: Math.max(area.right, x), top: area.top, bottom: y };
        }
    }
    return area;
}

/** The pixels of an area of the window, to be compared with others. */
async function picture(window, left, top, width, height) {
    const arguments_ = ['-window', window, '-crop', `${width}x${height}+${left}+${top}`, '-depth', '8', 'rgb:-'];
    const { stdout } = await promisify(execFile)('import', arguments_, { encoding: 'buffer', maxBuffer: 2 ** 26 });
    return stdout.toString('base64');
}

/** Processor time that a process has taken, in clock ticks of 10 ms. */
function processorTicks(pid) {
    const fields = require('node:fs').readFileSync(`/proc/${pid}/stat`, 'utf8').replace(/^.*\) /, '').split(' ');
    return Number(fields[11]) + Number(fields[12]);
}

module.exports = {
    click, closeByUser, findActiveWindow, findColour, findWindow, keys, picture, pixel, press, processorTicks, run, type, waitForPixel, waitGone, xdotool,
};
