'use strict';
// Notes, each in a window of its own. app.js [FILE...]
//
// What all windows share is the list of them: each shows it in its menu. The program needs no end of its own: open windows keep it
// alive, and the last one that closes ends it.

const fs = require('node:fs');
const path = require('node:path');
const tarn = require('../../host/node');

const filters = [{ name: 'Texts', patterns: ['*.txt', '*.md'] }, { name: 'All files', patterns: ['*'] }];
const documents = []; // the open ones, in the order in which they were opened
let made = 0;

/** Every window's menu shows every document: called when there is one more or less, or one has another name. */
function showList() {
    for (const document of documents) document.listWindows();
}

class Document extends tarn.GuiWindow {
    constructor(file) {
        super('documents.html');
        this.number = ++made;
        this.items = [];
        this.form.text = file ? fs.readFileSync(file, 'utf8') : '';
        this.take(file, this.form.text);
        this.setFocus('text');
        documents.push(this);
        this.open();
        showList();
    }

    get isChanged() { return this.form.text !== this.saved; }
    get label() { return this.file ? path.basename(this.file) : `Untitled ${this.number}`; }

    /** This text is what the file of this name holds. */
    take(file, text) {
        this.file = file;
        this.saved = text;
        this.onChange();
    }

    onChange() {
        this.setTitle(`${this.isChanged ? '*' : ''}${this.label} - Notes`);
        this.control('status').setText(`${this.form.text.split(/\s+/).filter(Boolean).length} words`);
    }

    /** The part of the menu that is the same in all windows, but for the mark at the own one. */
    listWindows() {
        const menu = this.control('menu');
        for (const item of this.items) menu.removeItem(item);
        this.items = documents.map(({ number }) => `window${number}`);
        documents.forEach(({ label }, index) => menu.addItem(this.items[index], `&${index + 1} ${label.replaceAll('&', '&&')}`, 'window', 'checkbox'));
        menu.checkItem(`window${this.number}`);
    }

    /** The file is written; false when the user did not say where, or it can not be. */
    async save(file) {
        const chosen = file ?? await tarn.saveFileAsync({ title: 'Save', name: `${this.label}.txt`, filters });
        if (chosen === null) return false;
        try {
            fs.writeFileSync(chosen, this.form.text);
        } catch (error) {
            await tarn.alertAsync(String(error), { title: 'Save', icon: 'error' });
            return false;
        }
        this.take(chosen, this.form.text);
        showList();
        return true;
    }

    /** Whether the window may close: asks when something would be lost. */
    async mayClose() {
        if (!this.isChanged) return true;
        this.open(); // in front, so that one sees what is asked about
        const answer = await tarn.alertAsync(`Save ${this.label}?`, { title: 'Unsaved', icon: 'question', buttons: ['Save', 'Discard', 'Cancel'] });
        return answer === 'Discard' || (answer === 'Save' && this.save(this.file));
    }

    /** The title bar and Close ask here. */
    async eClose() {
        if (!await this.mayClose()) return false;
        documents.splice(documents.indexOf(this), 1);
        showList();
        return true;
    }

    async onClose() { if (await this.eClose()) this.close(); }

    actions = {
        new: () => new Document(),
        open: async () => {
            const file = await tarn.openFileAsync({ title: 'Open', filters });
            if (file === null) return;
            const open = documents.find((document) => document.file === file);
            if (open) open.open(); // it comes to the front
            else new Document(file);
        },
        save: () => this.save(this.file),
        saveAs: () => this.save(),
        next: () => documents[(documents.indexOf(this) + 1) % documents.length].open(),
        close: () => this.onClose(),
        quit: async () => {
            for (const document of [...documents].reverse()) {
                if (!await document.eClose()) return;
                document.close();
            }
        },
    };

    async eMenu(session, item) {
        const chosen = documents.find(({ number }) => item === `window${number}`);
        if (!chosen) return this.actions[item]();
        chosen.open();
        this.listWindows(); // choosing an item may have changed its mark
        return undefined;
    }
}

const files = process.argv.slice(2).map((file) => path.resolve(file));
for (const file of files.length ? files : [undefined]) new Document(file);
