'use strict';
// What is in the handbook: the documents of this repository, a page that leads to all of it, and one to try things out.

const fs = require('node:fs');
const path = require('node:path');
const { html } = require('../../host/node');
const { inline, toPage } = require('./markdown');

const root = path.join(__dirname, '..', '..');
const docs = path.join(root, 'docs');
const examples = path.join(root, 'examples');

const tutorial = fs.readdirSync(path.join(docs, 'tutorial')).sort().map((name) => `tutorial/${name}`);
const groups = {
    Tutorial: tutorial,
    'Writing programs': ['page-language.md', 'javascript.md', 'cookbook.md', 'using.md', 'shell.md', 'testing-programs.md', 'inspector.md', 'live-reload.md'],
    'How it works': ['architecture.md', 'performance.md', 'testing.md', 'node.md', 'host-abi.md'],
};

const isThere = (name) => fs.existsSync(path.join(docs, name));

/** [{ name, chapters: [file] }], full names of files. */
const contents = Object.entries(groups).map(([name, files]) => ({ name, chapters: files.filter(isThere).map((file) => path.join(docs, file)) }));
const chapters = contents.flatMap((group) => group.chapters);

const pages = new Map();

/** A chapter as a page: { title, text, headings, tries, sections }, read once. */
function read(file) {
    if (!pages.has(file)) {
        const markdown = fs.readFileSync(file, 'utf8');
        const page = toPage(markdown, file);
        pages.set(file, { ...page, title: page.headings[0].title, sections: sectionsOf(markdown) });
    }
    return pages.get(file);
}

/** The words below each heading, in order. */
function sectionsOf(markdown) {
    return markdown.split(/^(?=#{1,6} )/m).filter((part) => part.startsWith('#')).map((part) => part.replace(/[`*]/g, ''));
}

/** The sections in which all words stand, those with them in the heading first: [{ file, heading, line }]. */
function search(text) {
    const words = text.toLowerCase().split(/\s+/).filter(Boolean);
    const hits = chapters.flatMap((file) => {
        const { headings, sections } = read(file);
        return sections.map((section, i) => ({ file, heading: headings[i], section, low: section.toLowerCase() }));
    }).filter(({ low }) => words.every((word) => low.includes(word)));
    const isInHeading = ({ heading }) => words.every((word) => heading.title.toLowerCase().includes(word));
    return [...hits.filter(isInHeading), ...hits.filter((hit) => !isInHeading(hit))]
        .map(({ file, heading, section, low }) => ({ file, heading, line: lineAround(section, low.indexOf(words[0])) }));
}

const lineAround = (section, at) => section.slice(section.lastIndexOf('\n', at) + 1).split('\n', 1)[0].replace(/\s*\|\s*/g, '  ').trim();

/** The examples of the table in examples/README.md: [{ name, about, shows }]. */
function exampleList() {
    const rows = fs.readFileSync(path.join(examples, 'README.md'), 'utf8').matchAll(/^\| `(\w+)` \| ([^|]*) \| ([^|]*) \|$/gm);
    return [...rows].map(([, name, about, shows]) => ({ name, about, shows }));
}

const picture = ({ name }) => {
    const file = path.join(examples, name, `${name}.png`);
    return fs.existsSync(file) ? html`<img src="${file}" width="240" alt="">` : '';
};

/** A cell of that table as page text: html`...` takes what it is called with itself as it is. */
function marked(cell) {
    const text = inline(cell, path.join(examples, 'README.md'));
    return html(Object.assign([text], { raw: [text] }));
}

/** The first page. */
function startPage() {
    const first = tutorial.map((name) => path.join(docs, name));
    return html`<h1>Windows from a script</h1>
<p>What a window shows is a page in a small HTML; what the user does comes back as calls of methods of your own class. This handbook is such
a program, written in 400 lines.</p>
<h3>Learn it</h3>
${first.map((file) => html`<p><a href="event://onOpen/${file}/">${read(file).title}</a></p>`)}
<h3>Try it</h3>
<p><a href="event://onTry/new">Write a page and see it</a>, as you type. Every page in the other chapters can be tried out the same way.</p>
<h3>Programs to look at</h3>
<p>Each is shown by a click. They lie in <code>examples</code>.</p>
<table width="100%">${exampleList().map((example) => html`<tr>
<td width="250" valign="top" cellpadding="4">${picture(example)}</td>
<td valign="top" cellpadding="4"><p><b><a href="event://onRun/${example.name}">${example.name}</a></b>: ${marked(example.about)}</p><p>${marked(example.shows)}</p></td></tr>`)}</table>`;
}

const exampleNames = () => exampleList().map(({ name }) => name);

module.exports = { chapters, contents, exampleNames, examples, read, search, startPage };
