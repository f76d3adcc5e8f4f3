'use strict';
// The handbook of tarn, as a program that tarn shows: the contents and a search on the left, a chapter on the right, and a place to
// write pages in and see them. The chapters are the documents of this repository (book.js), made into pages (markdown.js).

const { spawn } = require('node:child_process');
const path = require('node:path');
const { GuiWindow, html } = require('../../host/node');
const { chapters, contents, examples, read, search, startPage } = require('./book');

const mostHits = 100;
const firstTry = `<body valign="top" margin="12" gap="8">
<h2>Hello</h2>
<p>Change <b>anything</b> above.</p>
<form><p><label for="who">Your name</label> <input type="text" name="who"></p></form>
</body>`;

/** Places in the handbook: a chapter, or a heading of it; "start"; "try/…". */
class Handbook extends GuiWindow {
    constructor() {
        super('handbook.html');
        this.visited = [];
        this.at = -1;
        this.tries = [];
        this.showContents();
        this.go({ kind: 'start' });
    }

    // ---- Where the reader is ----

    go(place) {
        this.visited = [...this.visited.slice(0, this.at + 1), place];
        this.at = this.visited.length - 1;
        this.showPlace(place);
    }

    step(by) {
        if (this.visited[this.at + by] === undefined) return;
        this.at += by;
        this.showPlace(this.visited[this.at]);
    }

    showPlace(place) {
        ({ start: () => this.showStart(), chapter: () => this.showChapter(place), try: () => this.showTry(place) })[place.kind]();
    }

    setPage(markup) {
        this.control('page').setText(html`<body valign="top"><table width="100%" margin="20"><tr><td>${markup}</td></tr></table></body>`);
    }

    showStart() {
        this.setTitle('The tarn handbook');
        this.setPage(startPage());
    }

    showChapter({ file, heading }) {
        const { title, text, tries } = read(file);
        this.tries = tries;
        this.setTitle(`${title} - The tarn handbook`);
        this.control('page').setText(`<body valign="top"><table width="100%" margin="20"><tr><td>${text}${this.foot(file)}</td></tr></table></body>`);
        if (heading) this.load(`#${heading}`);
    }

    /** The chapters before and behind. */
    foot(file) {
        const at = chapters.indexOf(file);
        const link = (to, word) => (to === undefined ? '' : html`${word}: <a href="event://onOpen/${to}/">${read(to).title}</a>`);
        return html`<hr><table width="100%"><tr><td>${link(chapters[at - 1], 'Before')}</td><td align="right">${link(chapters[at + 1], 'Next')}</td></tr></table>`;
    }

    showTry({ text, isByList }) {
        this.setTitle('Try a page - The tarn handbook');
        this.control('page').setText(html`<body><splitter name="handbook-try" vertical>
            <pane height="280" minheight="80" scrolling="no"><table width="100%" height="100%"><tr><td cellpadding="8" height="100%">
            <textarea name="markup" title="The page" onchange="event://onMarkup" width="100%" height="100%">${text}</textarea></td></tr></table></pane>
            <pane name="preview" minheight="80" scrolling="yes"></pane></splitter></body>`);
        this.control('preview').setText(text); // the form has the new field's value from the next handler on
        if (!isByList) this.setFocus('markup');
    }

    onMarkup() {
        this.control('preview').setText(this.form.markup);
    }

    // ---- Contents and search ----

    showContents() {
        const chapterRows = (group) => group.chapters.flatMap((file) => [
            { value: file, texts: [read(file).title], parent: group.name, expanded: false },
            ...read(file).headings.filter(({ level }) => level === 2).map(({ title, id }) => ({ value: `${file}#${id}`, texts: [title], parent: file })),
        ]);
        this.control('contents').setRows([{ value: 'start', texts: ['Start'] }, { value: 'try', texts: ['Try a page'] },
            ...contents.flatMap((group) => [{ value: group.name, texts: [group.name], bold: true }, ...chapterRows(group)])]);
    }

    onWords() {
        const { words } = this.form;
        if (words.trim().length < 2) {
            this.showContents();
            return;
        }
        const hits = search(words);
        const rows = hits.slice(0, mostHits).flatMap(({ file, heading, line }, i) => [
            { value: `${file}#${heading.id}#${i}`, texts: [`${heading.title} (${read(file).title})`] },
            { value: `${file}#${heading.id}#${i} line`, texts: [line], parent: `${file}#${heading.id}#${i}` }]);
        this.control('contents').setRows(rows.length > 0 ? rows : [{ value: '', texts: ['Nothing found'], enabled: false }]);
    }

    /** Return in the search shows the first section that was found. */
    onFirst() {
        const [first] = this.control('contents').rows();
        if (first?.value) this.goTo(first.value);
    }

    onContents() {
        const [selected] = this.control('contents').selection;
        if (selected !== undefined) this.goTo(selected);
    }

    goTo(value) {
        const [file, heading] = value.split(/[# ]/);
        if (value === 'start') this.go({ kind: 'start' });
        if (value === 'try') this.go({ kind: 'try', text: firstTry, isByList: true });
        if (chapters.includes(file)) this.go({ kind: 'chapter', file, heading });
    }

    // ---- Links ----

    /** Links of chapters: the parts of the file's name, and a heading. */
    onOpen(session, ...parts) {
        const heading = parts.pop();
        this.go({ kind: 'chapter', file: parts.join('/'), heading });
    }

    onTry(session, which) {
        this.go({ kind: 'try', text: which === 'new' ? firstTry : this.tries[Number(which)] });
    }

    onRun(session, name) {
        spawn(process.execPath, [path.join(examples, name, 'app.js')], { stdio: 'inherit' }).unref();
    }

    eMenu(session, item) {
        const here = chapters.indexOf(this.visited[this.at].file);
        const to = { next: chapters[here + 1], previous: chapters[here - 1] }[item];
        if (to !== undefined) this.go({ kind: 'chapter', file: to });
        ({
            start: () => this.go({ kind: 'start' }), try: () => this.go({ kind: 'try', text: firstTry }), search: () => this.setFocus('words'),
            back: () => this.step(-1), forward: () => this.step(1), quit: () => this.close(),
        })[item]?.();
    }
}

new Handbook().showAsync();
