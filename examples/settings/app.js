'use strict';
// A settings dialog: a form that is filled from a file, checked, and written back. app.js [FILE]

const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const tarn = require('../../host/node');

const file = process.argv[2] ?? path.join(os.tmpdir(), 'tarn-settings.json');
const usual = { name: os.userInfo().username, language: 'en', theme: 'light', size: 11, folder: os.homedir(), backup: true };
const names = Object.keys(usual);

function read() {
    return fs.existsSync(file) ? { ...usual, ...JSON.parse(fs.readFileSync(file, 'utf8')) } : usual;
}

/** What is wrong, and where: [control, words]; null when all is well. */
function problemIn(form) {
    const { name, size, folder } = form;
    if (!name.trim()) return ['name', 'Who are you?'];
    if (!(size >= 6 && size <= 72)) return ['size', 'A text size is a number from 6 to 72.'];
    if (!fs.existsSync(folder)) return ['folder', 'There is no such folder.'];
    return null;
}

class Settings extends tarn.GuiWindow {
    constructor(values) {
        super('settings.html');
        Object.assign(this.form, values);
        this.before = this.values();
        this.setEnterControl('ok');
        this.setEscapeControl('X');
        this.setFocus('name');
    }

    values() {
        const { form } = this;
        return JSON.stringify({ ...Object.fromEntries(names.map((name) => [name, form[name]])), size: Number(form.size), backup: form.backup !== null });
    }

    onBrowse() {
        const folder = tarn.openFolder({ title: 'Where are your files?', folder: this.form.folder });
        if (folder !== null) this.form.folder = folder;
    }

    onOk() {
        const problem = problemIn(this.form);
        if (problem) {
            this.setFocus(problem[0]);
            this.control('problem').setText(tarn.html`<font color="#A02020">${problem[1]}</font>`);
        } else {
            this.setReturnValue(JSON.parse(this.values()));
            this.close();
        }
    }

    async onCancel() {
        if (await this.eClose()) this.close();
    }

    /** The title bar, Alt+F4 and the Escape key ask here. */
    async eClose() {
        return this.values() === this.before || await tarn.confirmAsync('Forget the changes?', { title: 'Unsaved changes' });
    }
}

new Settings(read()).showAsync().then((values) => {
    if (values) fs.writeFileSync(file, JSON.stringify(values, null, 2));
    console.log(values ? `saved ${Object.values(values).join(', ')}` : 'nothing was changed');
});
