'use strict';
// A text editor: files are opened and saved, texts found and replaced, and changes are not lost without a question. app.js [FILE]
//
// What was saved last is kept as a text: the file is changed when the field holds another one, so undoing all changes is no change.

const fs = require('node:fs');
const path = require('node:path');
const tarn = require('../../host/node');

const nameOf = (file) => (file === null ? 'Untitled' : path.basename(file));

class TextEditor extends tarn.GuiWindow {
    file = null;
    saved = '';

    constructor(file) {
        super('texteditor.html');
        this.field = this.control('text');
        this.onChange();
        if (file !== undefined) this.showFile(path.resolve(file));
        this.setFocus('text');
    }

    get text() { return String(this.field.value); }
    get isChanged() { return this.text !== this.saved; }

    /** Shows a file, or an empty text. The field may write ends of lines in another way: its text is the one that counts. */
    showFile(file) {
        try {
            this.field.setText(file === null ? '' : fs.readFileSync(file, 'utf8'));
        } catch (error) {
            this.tell(`${nameOf(file)} can not be read: ${/** @type {Error} */ (error).message}`);
            return;
        }
        Object.assign(this, { file, saved: this.text });
        this.field.select(0);
        this.onChange();
    }

    onChange() {
        const { text } = this;
        this.setTitle(`${this.isChanged ? '*' : ''}${nameOf(this.file)} - Text editor`);
        this.tell(`${text.split('\n').length} lines, ${(text.match(/\S+/g) ?? []).length} words`);
    }

    tell(words) { this.control('status').setText(words); }

    /** Saves, under another name where `file` is null; whether that was done. */
    async save(file) {
        const to = file ?? await tarn.saveFileAsync({ name: `${nameOf(this.file)}${this.file === null ? '.txt' : ''}` });
        if (to === null) return false;
        try {
            fs.writeFileSync(to, this.text);
            Object.assign(this, { file: to, saved: this.text });
            this.onChange();
            return true;
        } catch (error) {
            await tarn.alertAsync(`${nameOf(to)} can not be written: ${/** @type {Error} */ (error).message}`, { title: 'Text editor', icon: 'error' });
            return false;
        }
    }

    /** Asks when something would be lost; false when it shall not. */
    async mayGo() {
        if (!this.isChanged) return true;
        const answer = await tarn.alertAsync(`Save the changes to ${nameOf(this.file)}?`, { title: 'Text editor', icon: 'question', buttons: ['Save', 'Discard', 'Cancel'] });
        return answer === 'Discard' || (answer === 'Save' && this.save(this.file));
    }

    eClose() { return this.mayGo(); }

    /** Selects the next place, or the one before; from the end of the text it goes on at its beginning. */
    seek(step) {
        const [text, sought] = [this.text, this.form.find].map((each) => each.toLowerCase());
        const places = [];
        for (let at = text.indexOf(sought); sought !== '' && at >= 0; at = text.indexOf(sought, at + sought.length)) places.push(at);
        const next = places.find((place) => place > (this.at ?? -1)) ?? places[0];
        this.at = step > 0 ? next : places.filter((place) => place < this.at).at(-1) ?? places.at(-1);
        this.tell(places.length === 0 ? `There is no "${this.form.find}"` : `${places.indexOf(this.at) + 1} of ${places.length}`);
        if (this.at !== undefined) this.field.select(this.at, this.at + sought.length);
    }

    /** While one types: from where the last place was. */
    onFind() {
        if (this.at !== undefined) this.at -= 1;
        this.seek(1);
    }

    onNext() { this.seek(1); }

    onReplace() {
        const { text } = this;
        const end = this.at + this.form.find.length;
        if (this.at !== undefined && text.slice(this.at, end).toLowerCase() === this.form.find.toLowerCase()) {
            this.field.setText(text.slice(0, this.at) + this.form.replacement + text.slice(end));
            this.at += this.form.replacement.length - 1;
            this.onChange();
        }
        this.seek(1);
    }

    async eMenu(session, item) { await this.actions[item](); }

    actions = {
        create: async () => { if (await this.mayGo()) this.showFile(null); },
        open: async () => {
            const file = await this.mayGo() ? await tarn.openFileAsync() : null;
            if (file !== null) this.showFile(file);
            this.setFocus('text');
        },
        save: () => this.save(this.file),
        saveAs: () => this.save(null),
        quit: async () => { if (await this.mayGo()) this.close(); },
        find: () => { this.setFocus('find'); this.control('find').select(0, this.form.find.length); },
        next: () => this.seek(1),
        previous: () => this.seek(-1),
        replace: () => this.onReplace(),
        text: () => this.setFocus('text'),
    };
}

new TextEditor(process.argv[2]).showAsync();
