'use strict';
// The preferences of a program that does not exist, with every kind of field. app.js [FILE]
//
// The page says what is asked of each field (required, pattern, min, max): OK and Apply are submit buttons, so they do nothing until all
// is right, and turn to the tab where it is not. Values are those of the form, by the names of the fields; nothing lists them here.

const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const tarn = require('../../host/node');

const file = process.argv[2] ?? path.join(os.tmpdir(), 'tarn-preferences.json');

class Preferences extends tarn.GuiWindow {
    constructor() {
        super('preferences.html');
        if (fs.existsSync(file)) Object.assign(this.form, JSON.parse(fs.readFileSync(file, 'utf8')));
        this.saved = this.values();
        this.setEnterControl('ok');
        this.setEscapeControl('cancel');
        this.setFocus('name');
        this.onChange();
    }

    /** All values of the form as text, but which tab is shown. */
    values() {
        return JSON.stringify({ ...this.form, part: undefined }, null, 2);
    }

    get isChanged() { return this.values() !== this.saved; }

    /** Every field calls this after a change. */
    onChange() {
        const { form } = this;
        this.control('proxy').enable(form.network === 'proxy');
        this.control('port').enable(form.network === 'proxy');
        this.control('apply').enable(this.isChanged);
        this.control('state').setText(form.valid || !this.isChanged ? '' : '<font color="#B3261E">Something is missing or wrong.</font>');
    }

    onApply() {
        fs.writeFileSync(file, this.values());
        this.saved = this.values();
        this.onChange();
    }

    onOk() {
        if (this.isChanged) this.onApply();
        this.close();
    }

    async onCancel() {
        if (await this.eClose()) this.close();
    }

    /** The title bar, Escape and Cancel ask here. */
    async eClose() {
        return !this.isChanged || await tarn.confirmAsync('Forget the changes?', { title: 'Unsaved changes' });
    }
}

new Preferences().showAsync();
