'use strict';
// A tree that loads as it opens: what is in a folder is read when the folder is selected for the first time.
const fs = require('node:fs');
const path = require('node:path');
const { GuiWindow, html } = require('tarn-gui');

const root = path.resolve(process.argv[2] ?? '.');

class Tree extends GuiWindow {
    #read = new Set();

    onSelect() {
        this.read(this.form.tree);
    }

    read(folder) {
        if (this.#read.has(folder) || !fs.statSync(folder).isDirectory()) return;
        this.#read.add(folder);
        const tree = this.control('tree');
        const names = fs.readdirSync(folder).sort();
        names.forEach((name) => tree.addItem(path.join(folder, name), name.replaceAll('|', '/'), folder));
        tree.expandItem(folder);
        this.setTitle(`${path.basename(folder)}: ${names.length} inside`);
    }
}

const window = Tree.from(html`<title>Tree</title><body width="360" height="400" valign="top" cellpadding="10">
    <object classid="treeview" name="tree" size="24" width="100%" onselect="event://onSelect"><param value="${root}" text1="${root}"></object>`);
window.read(root);
window.open();
