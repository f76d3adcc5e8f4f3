'use strict';
// The tables of an SQLite file: their rows, a statement of one's own, its result. app.js [FILE]
//
// Node.js brings SQLite along (node:sqlite), with all that is needed here from 22.16 on; with an older one the program says so in one
// line. Rows are asked for when they come into view, so that a table of a million rows opens at once.

const path = require('node:path');
const tarn = require('../../host/node');

/** The class of databases, null where Node.js has none. That it is experimental it says on standard error, which nobody reads here. */
function sqlite() {
    const { emitWarning } = process;
    try {
        process.emitWarning = () => {};
        const { DatabaseSync, StatementSync } = require(/** @type {any} */ ('node:sqlite')); // which the types of older ones do not know
        return 'columns' in StatementSync.prototype ? DatabaseSync : null;
    } catch {
        return null;
    } finally {
        process.emitWarning = emitWarning;
    }
}

const Database = sqlite();
const quoted = (name) => `"${name.replaceAll('"', '""')}"`;
const inWords = (value) => (value === null ? { text: 'NULL', color: '#9AA0A6' } : value instanceof Uint8Array ? `${value.length} bytes` : String(value));

/** A database to look at when no file is named. */
function makeSample() {
    const sample = new Database(':memory:');
    sample.exec(`create table towns (name text primary key, inhabitants integer, ferry text);
        insert into towns values ('Arden', 8120, 'daily'), ('Moss End', 1250, null), ('Port Ely', 23400, 'hourly'), ('Low Bay', 410, 'in summer');
        create table crossings (day text, town text references towns, passengers integer);
        with recursive n(i) as (select 0 union all select i + 1 from n where i < 49999)
        insert into crossings select date('2026-01-01', (i / 140) || ' days'), case i % 3 when 0 then 'Arden' when 1 then 'Port Ely' else 'Low Bay' end, (i * 7919) % 180 from n;`);
    return sample;
}

class Browser extends tarn.GuiWindow {
    /** @type {(first: number, most: number) => any[]} */
    rowsFrom = () => [];

    constructor(file) {
        super('sqlitebrowser.html');
        this.setFocus('tables');
        this.openDatabase(file);
    }

    openDatabase(file) {
        this.database = file === undefined ? makeSample() : new Database(file, { readOnly: true });
        this.database.prepare('select count(*) from sqlite_schema').get(); // a file that is no database is noticed here
        this.setTitle(`${file === undefined ? 'Sample' : path.basename(file)} - SQLite`);
        const tables = this.database.prepare("select name, type from sqlite_schema where type in ('table', 'view') and name not like 'sqlite_%' order by name").all();
        this.control('tables').setRows(tables.map(({ name, type }) => ({ value: name, texts: [type === 'view' ? `${name} (view)` : name] })));
        this.control('tables').selection = tables.slice(0, 1).map(({ name }) => name);
    }

    onTable() {
        const [name] = this.control('tables').selection;
        if (name === undefined) return;
        this.form.statement = `select * from ${quoted(name)}`;
        this.run(`select * from ${quoted(name)}`);
    }

    onRun() { this.run(this.form.statement.trim().replace(/;$/, '')); }

    /** Shows what a statement finds. It must be one that can stand in brackets: a question. */
    run(statement) {
        try {
            const columns = this.database.prepare(`select * from (${statement}) limit 0`).columns().map(({ name }) => name);
            const { count } = this.database.prepare(`select count(*) as count from (${statement})`).get();
            const part = this.database.prepare(`select * from (${statement}) limit ? offset ?`);
            part.setReturnArrays?.(true);
            const list = this.control('rows');
            list.columns = columns.map((text) => ({ text, width: Math.max(110, 9 * text.length) }));
            this.rowsFrom = (first, most) => part.all(most, first).map((row, index) => ({ value: String(first + index), texts: Object.values(row).map(inWords) }));
            list.setSource(count, this.rowsFrom);
            this.tell(`${count.toLocaleString('en')} rows`);
        } catch (error) {
            this.tell(/** @type {Error} */ (error).message);
        }
    }

    /** All of a row in the line below, whatever room its columns have. */
    onRow() {
        const [row] = this.rowsFrom(Number(this.control('rows').selection[0] ?? 0), 1);
        this.tell(row.texts.map((text) => text.text ?? text).join('  |  '));
    }

    tell(words) { this.control('status').setText(words); }

    async eMenu(session, item) {
        const file = item === 'open' ? await tarn.openFileAsync({ filters: [{ name: 'SQLite', patterns: ['*.sqlite', '*.db'] }] }) : null;
        if (['statement', 'tables', 'rows'].includes(item)) this.setFocus(item);
        if (item === 'quit') this.close();
        if (file === null) return;
        try {
            this.openDatabase(file);
        } catch (error) {
            this.tell(`${path.basename(file)}: ${/** @type {Error} */ (error).message}`);
        }
    }
}

if (Database === null) {
    tarn.alertAsync(`This is Node.js ${process.versions.node}; the SQLite browser needs 22.16 or newer, which bring node:sqlite.`, { title: 'SQLite', icon: 'error' });
} else {
    new Browser(process.argv[2]).showAsync();
}
