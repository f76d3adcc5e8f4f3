'use strict';
// What the tests of live reload share: a page in a folder of its own, in a window that is driven, and what is told of reloads.

const { createHash } = require('node:crypto');
const fs = require('node:fs');
const path = require('node:path');
const { packageFolder, scratch, until } = require('./helpers.js');
const tarn = require(packageFolder);
const driver = require(path.join(packageFolder, 'test.js'));

let folders = 0;

/** Keeps lines on standard error away from the test's own output; gives them. */
function captured() {
    const lines = [];
    const { write } = process.stderr;
    process.stderr.write = (text, ...rest) => (String(text).startsWith('tarn: ') ? lines.push(String(text)) > 0 : Reflect.apply(write, process.stderr, [text, ...rest]));
    return { lines, end: () => { process.stderr.write = write; } };
}

class Live {
    folder = path.join(scratch, `live${++folders}`);
    reloads = [];
    errors = captured();

    /** Watches, and shows `files['page.html']` among these files of a new folder in a window of the class. */
    static async open(files, Window = tarn.GuiWindow) {
        const live = new Live();
        fs.mkdirSync(live.folder);
        Object.entries(files).forEach(([name, content]) => fs.writeFileSync(live.file(name), content));
        live.watcher = tarn.watch({ onReload: (told) => live.reloads.push(told) });
        live.window = new Window(live.file('page.html'));
        live.driven = await driver.drive(live.window);
        return live;
    }

    file(name) {
        return path.join(this.folder, name);
    }

    /** Saves by `way(file, content)` and waits for what is told of it. */
    async save(name, content, way = fs.writeFileSync) {
        const before = this.reloads.length;
        way(this.file(name), content);
        return this.next(before);
    }

    /** What is told next, as soon as more than `before` reloads were. */
    async next(before = this.reloads.length) {
        await until(() => this.reloads.length > before, 5000);
        return this.reloads.at(-1);
    }

    /** What tells one picture of the window from another. */
    async picture() {
        const file = path.join(scratch, 'picture.png');
        await this.driven.screenshot(file);
        return createHash('sha256').update(fs.readFileSync(file)).digest('hex');
    }

    end() {
        this.watcher.close();
        this.window.close();
        this.errors.end();
    }
}

/** A page with this content; `head` and `attributes` of the body besides. */
const page = (content, { head = '<title>Page</title>', attributes = 'width="420" height="300"' } = {}) => `<html><head>${head}</head><body ${attributes}>\n${content}\n</body></html>\n`;

/** Runs `work(live)` with a page that is closed at the end. */
const withPage = (files, work, Window) => async () => {
    const live = await Live.open(typeof files === 'string' ? { 'page.html': files } : files, Window);
    try {
        await work(live);
    } finally {
        live.end();
    }
};

module.exports = { page, tarn, withPage };
