'use strict';
// A JSON file as a tree: names and values are changed in their places, entries added and removed. app.js [FILE]
//
// A row is called by its path in the document, itself written as JSON: '["towns",0,"name"]'.

const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const tarn = require('../../host/node');

const sample = path.join(os.tmpdir(), 'towns.json');
const filters = [{ name: 'JSON', patterns: ['*.json'] }];
const isGroup = (value) => typeof value === 'object' && value !== null;
const kindOf = (value) => (value === null ? 'null' : Array.isArray(value) ? 'array' : typeof value);

/** The rows of a value and of all that is in it. */
function* rowsOf(value, name, place, parent) {
    const id = JSON.stringify(place);
    const text = isGroup(value) ? { text: `${Object.keys(value).length} entries`, color: '#6B7280' } : JSON.stringify(value);
    yield { value: id, parent, texts: [String(name), text, kindOf(value)], expanded: place.length < 2 };
    if (isGroup(value)) for (const key of Object.keys(value)) yield* rowsOf(value[key], key, [...place, key], id);
}

/** What was typed: JSON where it is some, else a text, so that nobody needs to write quotation marks. */
function valueOf(text) {
    try {
        return JSON.parse(text);
    } catch {
        return text;
    }
}

class JsonEditor extends tarn.GuiWindow {
    constructor(file) {
        super('jsoneditor.html');
        this.setFocus('tree');
        this.showFile(file);
    }

    showFile(file) {
        this.document = file === null ? {} : JSON.parse(fs.readFileSync(file, 'utf8'));
        this.file = file;
        this.isChanged = false;
        this.show('[]');
    }

    /** Shows the document, with this row selected. */
    show(row) {
        const tree = this.control('tree');
        tree.setRows([...rowsOf(this.document, this.file === null ? 'new' : path.basename(this.file), [], null)]);
        tree.selection = [row];
        this.setTitle(`${this.isChanged ? '*' : ''}${this.file === null ? 'new' : path.basename(this.file)} - JSON editor`);
        this.onSelect();
    }

    onSelect() { this.control('status').setText(['document', ...this.entry().place].join(' / ')); }

    /** { id, owner, key, value } of a row, without an owner for the uppermost one. */
    entry(id = this.control('tree').selection[0] ?? '[]') {
        const place = JSON.parse(id);
        const owner = place.slice(0, -1).reduce((value, key) => value[key], this.document);
        return place.length > 0 ? { id, place, owner, key: place.at(-1), value: owner[place.at(-1)] } : { id, place, value: this.document };
    }

    change(row) {
        this.isChanged = true;
        this.show(row);
    }

    onRename({ event }) {
        const { place, owner, key, value } = this.entry(event.row);
        if (!owner) return false;
        if (event.column === 2) {
            owner[key] = valueOf(event.text);
            this.change(event.row);
            return true;
        }
        if (Array.isArray(owner) || Object.hasOwn(owner, event.text)) return false;
        const renamed = Object.entries(owner).map(([each, its]) => (each === key ? [event.text, value] : [each, its]));
        for (const each of Object.keys(owner)) delete owner[each];
        Object.assign(owner, Object.fromEntries(renamed)); // in the same order
        this.change(JSON.stringify([...place.slice(0, -1), event.text]));
        return true;
    }

    async eMenu(session, item) { await this.actions[item](); }

    actions = {
        create: async () => { if (await this.mayForget()) this.showFile(null); },
        open: async () => {
            const file = await this.mayForget() && await tarn.openFileAsync({ filters });
            if (file) this.showFile(file);
        },
        save: async () => {
            this.file ??= await tarn.saveFileAsync({ name: 'new.json', filters });
            if (this.file === null) return;
            fs.writeFileSync(this.file, `${JSON.stringify(this.document, null, 2)}\n`);
            this.isChanged = false;
            this.show(this.entry().id);
        },
        add: () => {
            const chosen = this.entry();
            const [owner, place] = isGroup(chosen.value) ? [chosen.value, chosen.place] : [chosen.owner, chosen.place.slice(0, -1)];
            let key = Array.isArray(owner) ? String(owner.length) : 'name';
            while (Object.hasOwn(owner, key)) key += "'";
            owner[key] = null;
            this.change(JSON.stringify([...place, key]));
        },
        remove: () => {
            const { place, owner, key } = this.entry();
            if (!owner) return;
            if (Array.isArray(owner)) owner.splice(key, 1);
            else delete owner[key];
            this.change(JSON.stringify(place.slice(0, -1)));
        },
        quit: async () => { if (await this.eClose()) this.close(); },
    };

    async mayForget() { return !this.isChanged || await tarn.confirmAsync('Forget the changes?', { title: 'JSON editor' }); }

    eClose() { return this.mayForget(); }
}

if (process.argv[2] === undefined) fs.copyFileSync(path.join(__dirname, 'towns.json'), sample);
new JsonEditor(process.argv[2] ?? sample).showAsync();
