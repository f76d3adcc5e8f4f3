'use strict';
// The markup of the file browser's frames. Every function takes what it shows and returns a page; none knows a window.

const path = require('node:path');

/** Text as a page spells it. */
function text(string) {
    return string.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;').replace(/"/g, '&quot;');
}

function link(event, words) {
    return `<a href="event://${event}">${words}</a>`;
}

/** The top: where we are, and what can be done. About replaces the list alone, Help the whole window. */
function bar(where, canGoUp) {
    const places = [canGoUp ? link('onUp', 'Up') : '', '<a href="about.html" target="list">About</a>',
        '<a href="help.html" target="_top">Help</a>', link('onQuit', 'Quit')];
    return `<body bgcolor="#24384F" text="#FFFFFF" link="#FFD98A" alink="#FFFFFF" valign="center">
        <table width="100%"><tr>
            <td width="12" height="40"></td>
            <td height="40"><font size="4"><b>${text(where.split(path.sep).join(' / '))}</b></font></td>
            ${places.map((place) => `<td width="64" height="40" align="right">${place}</td>`).join('')}
            <td width="12" height="40"></td>
        </tr></table></body>`;
}

/** The left: a line for each folder, 14 pixels further in for each folder around it, the open one in bold. */
function tree(folders, open) {
    const line = ({ folder, depth }, number) => {
        const words = text(path.basename(folder));
        const isOpen = folder === open;
        return `<tr><td><table width="100%"><tr>
            <td width="${8 + 14 * depth}" height="24"></td>
            <td height="24">${isOpen ? `<b>${words}</b>` : link(`onFolder/${number}`, words)}</td>
        </tr></table></td></tr>`;
    };
    const gap = '<tr><td height="8"></td></tr>';
    return `<body valign="top"><table width="100%">${gap}${folders.map(line).join('')}</table></body>`;
}

const columns = [['name', 'Name'], ['size', 'Size'], ['changed', 'Changed']];

/** A row of the table: three cells of the same widths in every row, or the columns would not line up. */
function row(color, cells) {
    return `<tr><td bgcolor="${color}"><table width="100%"><tr>
        <td width="10" height="26"></td>
        <td height="26">${cells[0]}</td>
        <td width="90" height="26" align="right">${cells[1]}</td>
        <td width="150" height="26" align="right">${cells[2]}</td>
        <td width="10" height="26"></td>
    </tr></table></td></tr>`;
}

/** The files of the open folder. */
function list(entries, sortedBy, chosen) {
    const head = row('#E9E5DA', columns.map(([column, title]) =>
        (column === sortedBy ? `<b>${title}</b>` : link(`onSort/${column}`, title))));
    const rows = entries.map((entry, number) => row(
        entry === chosen ? '#FFE9B8' : number % 2 ? '#F8F6F0' : '#FFFFFF',
        [name(entry, number), entry.isFolder ? '' : size(entry.size), day(entry.changed)]));
    const empty = '<p align="center"><font color="#808080">There is nothing in this folder.</font></p>';
    const below = entries.length ? '' : empty;
    return `<body valign="top"><table width="100%">${head}${rows.join('')}</table>${below}</body>`;
}

function name(entry, number) {
    const words = text(entry.name);
    return link(`onEntry/${number}`, entry.isFolder ? `<b>${words}</b>` : words);
}

function description(file) {
    const changed = file.changed.toISOString().slice(0, 16).replace('T', ' ');
    return `${text(file.name)}: ${file.size.toLocaleString('en')} bytes, changed ${changed}`;
}

/** The bottom: the chosen file, or how much there is. */
function status(entries, chosen) {
    const folders = entries.filter((entry) => entry.isFolder).length;
    const all = `${count(folders, 'folder')}, ${count(entries.length - folders, 'file')}`;
    const words = chosen ? description(chosen) : all;
    return `<body bgcolor="#E9E5DA" valign="center"><table width="100%"><tr><td width="12"></td>
        <td><font size="2">${words}</font></td></tr></table></body>`;
}

function count(number, what) {
    return `${number} ${what}${number === 1 ? '' : 's'}`;
}

function size(bytes) {
    if (bytes < 1000) return `${bytes} B`;
    return bytes < 1e6 ? `${(bytes / 1e3).toFixed(1)} KB` : `${(bytes / 1e6).toFixed(1)} MB`;
}

function day(date) {
    return date.toISOString().slice(0, 10);
}

module.exports = { bar, tree, list, status };
