'use strict';
// An installer: asks where, copies with a progress bar, and takes back what it did when it is cancelled. app.js [TARGET [SOURCE]]
const { existsSync, promises: fs } = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { setTimeout: pause } = require('node:timers/promises');
const { CustomElement, GuiWindow, alertAsync, confirmAsync, html, openFolderAsync, register } = require('../../host/node');
const [target = path.join(os.tmpdir(), 'tarn-examples'), source = path.join(__dirname, '..')] = process.argv.slice(2);

async function filesIn(folder) {
    const entries = await fs.readdir(folder, { withFileTypes: true });
    const inside = entries.map((entry) => (entry.isDirectory() ? filesIn(path.join(folder, entry.name)) : path.join(folder, entry.name)));
    return (await Promise.all(inside)).flat();
}

register('Bar', class extends CustomElement {
    part = 0;
    ePaint() {
        const { width, height } = this.toolkit.rect;
        this.toolkit.fill('#DADDE1');
        this.toolkit.fill('#2F6FB0', { left: 0, top: 0, width: Math.round(width * this.part), height });
    }
});

class Installer extends GuiWindow {
    constructor() {
        super('installer.html');
        this.form.folder = target;
        this.setEscapeControl('X');
    }

    async onBrowse() {
        const folder = await openFolderAsync({ title: 'Where to?' });
        this.form.folder = folder ?? this.form.folder;
    }

    async onInstall() {
        const { folder } = this.form;
        if (existsSync(folder)) {
            await alertAsync('There is such a folder already.', { title: 'Installation', icon: 'warning' });
            return;
        }
        this.control('go').disable();
        this.control('step').setText(html`<p>Copying to ${folder}</p>
            <object classid="Bar" name="bar" width="100%" height="16"></object><table><tr><td name="file" height="30"></td></tr></table>`);
        this.running = new AbortController();
        const copied = await this.copy(folder, this.running.signal);
        this.setReturnValue(copied);
        this.running = null;
        this.control('step').setText(copied ? html`<p><b>Done.</b></p><p>${copied} files are in ${folder}.</p>` : html`<p>Nothing was installed.</p>`);
        this.control('cancel').setCaption('Close');
    }

    /** How many files there are now; 0 when it was stopped, which leaves nothing behind. */
    async copy(folder, signal) {
        const files = await filesIn(source);
        const made = await fs.mkdir(folder, { recursive: true }) ?? folder; // the topmost one that is new
        for (const [index, file] of files.entries()) {
            if (signal.aborted) {
                await fs.rm(made, { recursive: true });
                return 0;
            }
            const name = path.relative(source, file);
            await fs.cp(file, path.join(folder, name));
            this.control('file').setText(html`<font color="#57606A">${name}</font>`);
            Object.assign(this.control('bar'), { part: (index + 1) / files.length }).toolkit.repaint();
            await pause(25); // small files: without it there would be nothing to see
        }
        return files.length;
    }

    async onCancel() {
        if (await this.eClose()) this.close();
    }

    /** While files are copied the window stays: cancelling stops the copying, which tells how it ended. */
    async eClose() {
        if (!this.running) return true;
        if (await confirmAsync('Stop, and remove what was copied?', { title: 'Cancel' })) this.running?.abort();
        return false;
    }
}

new Installer().showAsync().then((copied) => console.log(copied ? `${copied} files installed` : 'nothing installed'));
