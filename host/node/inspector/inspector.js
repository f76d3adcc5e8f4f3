'use strict';
// The inspector of one window: its elements on the left; what there is to know of one, what the handlers did, and what the form
// holds on the right. It asks several times a second, and shows only what has changed.

const fs = require('node:fs');
const path = require('node:path');
const { ask, look } = require('./asking.js');
const { tarn } = require('./package.js');
const { describe, place, title } = require('./words.js');

const { GuiWindow, html } = tarn;
const { isOpen } = tarn[Symbol.for('tarn-gui inside')];

const glanceMs = 120;
const formEvery = 4; // glances

const page = () => fs.readFileSync(path.join(__dirname, 'inspector.html'), 'utf8');

const group = ([heading, rows]) => (rows.length === 0 ? '' : html`<tr><td height="6"></td></tr><tr><td><b>${heading}</b></td></tr>${
    rows.map(([label, value]) => html`<tr><td width="110" valign="top"><font color="#6E7781">${label}</font></td><td>${value}</td></tr>`)}`);

const about = (node) => html`<body valign="top"><table width="100%" cellpadding="10"><tr><td><h3>${title(node)}</h3><table width="100%" gap="4">${
    Object.entries(describe(node)).map(group)}</table></td></tr></table></body>`;

const hasValue = ({ name, value, kind }) => name && value !== undefined && value !== null && kind !== 'element';

class Inspector extends GuiWindow {
    /** `windowId`: the component's number of the window that is inspected. */
    static open(windowId, log) {
        const inspector = this.from(page());
        Object.assign(inspector, { windowId, log, selected: '', shape: '', shown: '', logged: -1, glances: 0 });
        inspector.run();
        return inspector;
    }

    async run() {
        await ask({ do: 'open', window: this.windowId }, this);
        this.open(false); // the window that is inspected goes on to be used
        while (this.isOpen && await this.glance()) {
            await new Promise((resolve) => { setTimeout(resolve, glanceMs).unref(); });
        }
        ask({ do: 'leave', window: this.windowId });
        this.windowId = 0;
        this.close();
    }

    get isOpen() {
        return isOpen(this);
    }

    pick(isOn) {
        ask({ do: 'pick', isOn });
    }

    /** Asks what is new, and shows it. False when the window has gone. */
    async glance() {
        const now = await ask({ do: 'glance', node: this.selected });
        if (now.isGone || !this.isOpen) {
            return false;
        }
        if (now.shape !== this.shape && !await this.showTree(now)) {
            return false;
        }
        this.showPicked(now);
        this.showElement(now.node);
        this.showLog();
        if (this.glances++ % formEvery === 0) {
            await this.showForm();
        }
        return true;
    }

    async showTree({ shape, title: name }) {
        const { nodes } = await ask({ do: 'tree' });
        if (nodes === undefined || !this.isOpen) {
            return false;
        }
        this.shape = shape;
        this.setTitle(`Inspector - ${name}`);
        const file = nodes.find((node) => node.file)?.file;
        this.control('tree').setRows(nodes.map((node) => ({
            value: node.id, texts: [title(node), place(node, file)], ...node.parent === '' ? {} : { parent: node.parent },
        })));
        return true;
    }

    /** An element that was clicked, or is under the pointer, is selected in the tree. */
    showPicked({ picked, isPicking, node }) {
        const chosen = picked || (isPicking && node?.id);
        if (chosen && chosen !== this.selected) {
            this.selected = chosen;
            this.control('tree').selection = [chosen];
        }
        this.control('status').setText(isPicking ? 'Click an element of the window, or press Escape there.' : 'Ctrl+Shift+I picks an element of the window.');
    }

    showElement(node) {
        const now = node === undefined ? '' : JSON.stringify(node);
        if (now !== this.shown) {
            this.shown = now;
            this.control('about').setText(node === undefined ? '' : about(node));
        }
    }

    showLog() {
        if (this.log.count !== this.logged) {
            this.logged = this.log.count;
            this.control('log').setRows(this.log.entries);
        }
    }

    async showForm() {
        const { items } = await look(this.windowId);
        if (items === undefined || !this.isOpen) {
            return;
        }
        const rows = items.filter(hasValue).map(({ name, value, kind, part }, index) => ({
            value: String(index), texts: [part === undefined ? name : `${name} (${part})`, JSON.stringify(value), kind],
        }));
        const now = JSON.stringify(rows);
        if (now !== this.values) {
            this.values = now;
            this.control('values').setRows(rows);
        }
    }

    /** Also when the selection has followed what was picked, which changes nothing. */
    onSelect() {
        const [selected = ''] = this.control('tree').selection;
        if (selected !== this.selected) {
            this.selected = selected;
            this.pick(false);
        }
    }

    eMenu(session, item) {
        if (item === 'pick') {
            this.pick(true);
        } else {
            this.close();
        }
    }
}

module.exports = { Inspector };
