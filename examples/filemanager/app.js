'use strict';
// A file manager: folders on the left, what is in one of them on the right. app.js [FOLDER]
//
// Columns can be dragged, and sorted by a click on their headings; F2 renames in place. What the menus offer is one table of
// functions, called by the names of their items.

const fs = require('node:fs');
const path = require('node:path');
const tarn = require('../../host/node');

const order = new Intl.Collator('en', { numeric: true });
const byColumn = [(a, b) => order.compare(a.name, b.name), (a, b) => a.size - b.size, (a, b) => a.changed - b.changed];
const inKilobytes = (bytes) => `${Math.ceil(bytes / 1024).toLocaleString('en')} KB`;

/** What is in a folder and can be seen; nothing when it can not be read. */
function entriesOf(folder) {
    try {
        return fs.readdirSync(folder, { withFileTypes: true }).filter(({ name }) => !name.startsWith('.')).map((entry) => {
            const whole = path.join(folder, entry.name);
            const { size, mtime } = fs.statSync(whole, { throwIfNoEntry: false }) ?? { size: 0, mtime: new Date(0) };
            return { name: entry.name, path: whole, isFolder: entry.isDirectory(), size, changed: mtime };
        });
    } catch {
        return [];
    }
}

class FileManager extends tarn.GuiWindow {
    constructor(top) {
        super('filemanager.html');
        this.top = top;
        this.folder = top;
        this.expanded = new Set([top]);
        this.sorting = { column: 1, direction: 'ascending' };
        this.enter(top);
        this.setFocus('files');
    }

    /** Shows a folder in both lists. */
    enter(folder) {
        this.folder = folder;
        for (let each = folder; each.startsWith(this.top); each = path.dirname(each)) this.expanded.add(each);
        this.control('folders').setRows(this.tree(this.top, null));
        this.control('folders').selection = [folder];
        this.control('up').enable(folder !== this.top);
        this.setTitle(`${path.basename(folder)} - File manager`);
        this.refresh();
    }

    /** The rows of a folder and of those below it, one level further than can be seen. */
    tree(folder, parent) {
        const row = { value: folder, texts: [path.basename(folder)], parent, icon: 'folder.svg', expanded: this.expanded.has(folder) };
        const isSeen = parent === null || this.expanded.has(parent);
        const below = isSeen ? entriesOf(folder).filter((entry) => entry.isFolder).sort(byColumn[0]) : [];
        return [row, ...below.flatMap((entry) => this.tree(entry.path, folder))];
    }

    refresh() {
        const { column, direction } = this.sorting;
        const compare = (a, b) => b.isFolder - a.isFolder || byColumn[column - 1](a, b) * (direction === 'descending' ? -1 : 1);
        const entries = entriesOf(this.folder).sort(compare);
        this.control('files').setRows(entries.map((entry) => ({
            value: entry.path, icon: entry.isFolder ? 'folder.svg' : 'file.svg',
            texts: [entry.name, entry.isFolder ? '' : inKilobytes(entry.size), entry.changed.toISOString().slice(0, 16).replace('T', ' ')],
        })));
        this.onSelect();
    }

    onFolder() {
        const [folder] = this.control('folders').selection;
        if (folder !== undefined && folder !== this.folder) this.enter(folder);
    }

    onExpand({ event }) {
        const { row } = event;
        if (this.control('folders').isItemExpanded(row)) this.expanded.add(row);
        else this.expanded.delete(row);
        this.control('folders').setRows(this.tree(this.top, null));
    }

    onSort(session, column, direction) {
        this.sorting = { column: Number(column), direction };
        this.refresh();
    }

    onSelect() {
        const chosen = this.control('files').selection;
        this.control('status').setText(chosen.length ? chosen.map((each) => path.basename(each)).join(', ') : `${entriesOf(this.folder).length} entries`);
        for (const item of ['open', 'rename', 'remove']) {
            for (const menu of ['menu', 'here']) this.control(menu).enableItem(item, chosen.length === 1);
        }
    }

    /** A name that was changed in the list; false puts the old one back. */
    onRename({ event }) { return this.change(() => fs.renameSync(event.row, path.join(this.folder, path.basename(event.text)))); }

    onActivate({ event }) { this.actions.open(event.row); }

    async eMenu(session, item) {
        const [chosen] = this.control('files').selection;
        await this.actions[item](chosen);
    }

    actions = {
        open: (chosen) => (fs.statSync(chosen).isDirectory() ? this.enter(chosen) : this.control('status').setText(`${chosen}: a file`)),
        up: () => this.enter(path.dirname(this.folder)),
        rename: async (chosen) => {
            const name = await tarn.promptAsync('The new name?', { title: 'Rename', value: path.basename(chosen) });
            if (name) this.change(() => fs.renameSync(chosen, path.join(this.folder, path.basename(name))));
        },
        folder: async () => {
            const name = await tarn.promptAsync('The name of the folder?', { title: 'New folder' });
            if (name) this.change(() => fs.mkdirSync(path.join(this.folder, path.basename(name))));
        },
        remove: async (chosen) => {
            if (await tarn.confirmAsync(`Remove ${path.basename(chosen)} for ever?`, { title: 'Remove' })) this.change(() => fs.rmSync(chosen, { recursive: true }));
        },
        quit: () => this.close(),
    };

    /** Does something to the files, and shows what has become of them; whether it went well. */
    change(act) {
        try {
            act();
            this.enter(this.folder);
            return true;
        } catch (error) {
            tarn.alertAsync(String(error), { title: 'File manager', icon: 'error' });
            return false;
        }
    }
}

new FileManager(path.resolve(process.argv[2] ?? path.join(__dirname, '..'))).showAsync();
