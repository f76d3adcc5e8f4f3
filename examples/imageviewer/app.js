'use strict';
// The pictures of a folder, one at a time: smaller, larger, as large as there is room. app.js [FOLDER]
//
// A picture is an <img> in a cell that scrolls. GuiImage says how large it is in its file; the cell, how much room there is.

const fs = require('node:fs');
const path = require('node:path');
const { GuiImage, GuiWindow, html, openFolderAsync } = require('../../host/node');

const isPicture = (name) => /\.(bmp|gif|jpe?g|png|svg|tiff?|webp)$/i.test(name);
const inOrder = new Intl.Collator('en', { numeric: true }).compare;
const steps = [0.1, 0.25, 0.5, 0.75, 1, 1.5, 2, 3, 4, 8];

class ImageViewer extends GuiWindow {
    /** @type {string[]} */
    names = [];
    image = new GuiImage();

    constructor(folder) {
        super('imageviewer.html');
        this.folder = folder;
        this.zoomed = null; // a number, or null for as large as there is room
    }

    /** Only an open window knows how much room there is. */
    ePostOpen() { this.enter(this.folder); }

    enter(folder) {
        this.folder = folder;
        this.names = fs.readdirSync(folder).filter(isPicture).sort(inOrder);
        this.control('files').setRows(this.names.map((name) => ({ value: name, texts: [name], icon: path.join(folder, name) })));
        this.control('files').selection = this.names.slice(0, 1);
        this.setFocus('files');
        this.onShow();
    }

    get name() { return this.control('files').selection[0]; }

    onShow() {
        const { name, folder } = this;
        if (name === undefined) {
            this.control('pane').setText(html`<p align="center">There are no pictures in ${folder}.</p>`);
            this.tell('');
            return;
        }
        this.setTitle(`${name} - Pictures`);
        this.image = new GuiImage();
        this.image.loadFile(path.join(folder, name));
        this.show();
    }

    /** How large a picture is shown: as the user has said, or so that all of it is seen, but never larger than it is. */
    get scale() {
        const { width, height } = this.image;
        const pane = this.control('pane');
        return this.zoomed ?? Math.min(1, (pane.width - 16) / width, (pane.height - 16) / height);
    }

    show() {
        const place = `${this.names.indexOf(this.name) + 1} of ${this.names.length}`;
        const { scale, image: { width, height } } = this;
        if (!width) { // which could not be read
            this.control('pane').setText('');
            this.tell(`${place}    no picture`);
            return;
        }
        const [shownWidth, shownHeight] = [width, height].map((size) => Math.max(1, Math.round(size * scale)));
        this.control('pane').setText(html`<table width="100%" height="100%"><tr><td align="center" valign="middle" height="100%">
            <img src="${path.join(this.folder, this.name)}" alt="${this.name}" width="${shownWidth}" height="${shownHeight}"></td></tr></table>`);
        this.tell(`${place}    ${width} x ${height} pixels    ${Math.round(100 * scale)} %`);
    }

    tell(words) { this.control('status').setText(words); }

    go(step) {
        const index = Math.min(Math.max(this.names.indexOf(this.name) + step, 0), this.names.length - 1);
        this.control('files').selection = [this.names[index]];
        this.onShow();
    }

    zoomTo(zoomed) {
        this.zoomed = zoomed;
        this.show();
    }

    eMenu(session, item) { return this.name === undefined && item !== 'open' && item !== 'quit' ? undefined : this.actions[item](); }

    actions = {
        open: async () => {
            const folder = await openFolderAsync({ folder: this.folder });
            if (folder !== null) this.enter(folder);
        },
        next: () => this.go(1),
        previous: () => this.go(-1),
        larger: () => this.zoomTo(steps.find((step) => step > this.scale + 0.001) ?? steps.at(-1)),
        smaller: () => this.zoomTo(steps.filter((step) => step < this.scale - 0.001).at(-1) ?? steps[0]),
        fit: () => this.zoomTo(null),
        actual: () => this.zoomTo(1),
        quit: () => this.close(),
    };
}

new ImageViewer(path.resolve(process.argv[2] ?? path.join(__dirname, '..', '..', 'docs', 'pictures'))).showAsync();
