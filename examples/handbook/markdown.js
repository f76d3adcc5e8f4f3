'use strict';
// Markdown as this repository's documents use it, as the text of a page: headings, paragraphs, lists, tables, program text, links,
// pictures. A block is found by its first line; what stands in a line is replaced from left to right.

const path = require('node:path');
const { html } = require('../../host/node');

const escape = (text) => String(html`${text}`);

/** "All tags and attributes" -> "all-tags-and-attributes", as the links to headings have it. */
const slug = (text) => text.toLowerCase().replace(/[^\p{L}\p{N} _-]/gu, '').trim().replace(/ /g, '-');

/** Where a link leads: to another document, an example, a heading; others are only text, since nothing here opens a browser. */
function target(link, file) {
    const [name, heading = ''] = link.split('#');
    if (/^[a-z]+:/.test(link)) {
        return /^event:/.test(link) ? link : null;
    }
    const whole = name === '' ? file : path.resolve(path.dirname(file), name);
    const example = /\/examples\/(?!recipes|README)(\w+)/.exec(whole);
    return example ? `event://onRun/${example[1]}` : whole.endsWith('.md') ? `event://onOpen/${whole}/${heading}` : null;
}

/** @type {[RegExp, (match: RegExpExecArray, file: string) => string][]} */
const inlines = [
    [/^`` ?(.+?) ?``/, ([, code]) => `<code>${escape(code)}</code>`],
    [/^`([^`]+)`/, ([, code]) => `<code>${escape(code)}</code>`],
    [/^!\[([^\]]*)\]\(([^)]+)\)/, ([, alt, src], file) => String(html`<img src="${path.resolve(path.dirname(file), src)}" alt="${alt}">`)],
    [/^\[((?:[^\]`]|`[^`]*`)+)\]\(([^)]+)\)/, ([, text, link], file) => {
        const to = target(link, file);
        return to === null ? inline(text, file) : `<a href="${escape(to)}">${inline(text, file)}</a>`;
    }],
    [/^\*\*([^*]+)\*\*/, ([, text], file) => `<b>${inline(text, file)}</b>`],
    [/^\*([^*\s][^*]*)\*/, ([, text], file) => `<i>${inline(text, file)}</i>`],
    [/^\\([|`*\\[\]])/, ([, sign]) => escape(sign)],
    [/^.[^`![*\\]*/s, ([plain]) => escape(plain)],
];

/** A line of text. `file`: where it stands, from which its links start. */
function inline(text, file) {
    let out = '';
    for (let rest = text; rest !== '';) {
        for (const [pattern, write] of inlines) {
            const match = pattern.exec(rest);
            if (!match) continue;
            out += write(match, file);
            rest = rest.slice(match[0].length);
            break;
        }
    }
    return out;
}

const cellsOf = (line) => line.replace(/^\||\|\s*$/g, '').split(/(?<!\\)\|/).map((cell) => cell.trim().replaceAll('\\|', '|'));

/** Columns get a share of the width by what is in them, so that their longest words fit on a page of usual width. */
function shares(rows) {
    const usual = 80; // letters
    const columns = rows[0].map((_, i) => rows.map((row) => row[i] ?? ''));
    const least = columns.map((texts) => Math.ceil((Math.max(...texts.flatMap((text) => text.split(/\s/)).map((word) => word.length)) + 2) / usual * 100));
    const longest = columns.map((texts) => Math.max(8, Math.min(60, ...[Math.max(...texts.map((text) => text.length))])));
    const sum = longest.reduce((all, each) => all + each);
    return longest.map((each, i) => Math.max(Math.min(least[i], 30), Math.floor(each / sum * 99)));
}

function table(lines, file) {
    const rows = [lines[0], ...lines.slice(2)].map(cellsOf);
    const widths = shares(rows);
    const row = (cells, tag) => `<tr>${widths.map((width, i) => `<td width="${width}%" cellpadding="4" valign="top">${
        tag ? `<b>${inline(cells[i] ?? '', file)}</b>` : inline(cells[i] ?? '', file)}</td>`).join('')}</tr>`;
    return `<table width="100%">${rows.map((cells, i) => `${row(cells, i === 0)}<tr><td><hr></td></tr>`).join('\n')}</table><p></p>`;
}

/** Program text; pages can be tried out. `tries`: where their texts are kept. */
function programText(lines, language, tries) {
    const text = lines.join('\n');
    const link = language === 'html' ? `<p><a href="event://onTry/${tries.push(text) - 1}">Try it</a></p>` : '';
    return `<table width="100%" border="1" cellpadding="8"><tr><td><pre>${escape(text)}</pre></td></tr></table>${link}<p></p>`;
}

/** How many lines from the one at `at` on fit. */
function run(lines, at, pattern) {
    let end = at;
    while (end < lines.length && pattern.test(lines[end])) {
        ++end;
    }
    return end - at;
}

const isBlockStart = /^(#{1,6} |```|\||[-*] |\d+\. |> | {4}\S|\s*$)/;

/** One block of the document: { lines, text, heading }. */
function block(lines, at, file, tries) {
    const line = lines[at];
    const heading = /^(#{1,6}) (.*)/.exec(line);
    if (heading) {
        const [, { length: level }, title] = heading;
        const plain = title.replace(/[`*]|\[([^\]]*)\]\([^)]*\)/g, '$1');
        return { lines: 1, text: `<h${level} id="${slug(plain)}">${inline(title, file)}</h${level}>`, heading: { level, title: plain, id: slug(plain) } };
    }
    if (line.startsWith('```')) {
        const length = run(lines, at + 1, /^(?!```)/);
        return { lines: length + 2, text: programText(lines.slice(at + 1, at + 1 + length), line.slice(3), tries) };
    }
    if (line.startsWith('|')) {
        const length = run(lines, at, /^\|/);
        return { lines: length, text: table(lines.slice(at, at + length), file) };
    }
    if (/^ {4}\S/.test(line)) {
        const length = run(lines, at, /^( {4}|\s*$)/);
        return { lines: length, text: programText(lines.slice(at, at + length).map((each) => each.slice(4)).join('\n').trimEnd().split('\n'), '', tries) };
    }
    if (/^([-*]|\d+\.) /.test(line)) {
        const length = run(lines, at, /^([-*]|\d+\.) |^ {2,}\S/);
        const items = lines.slice(at, at + length).join('\n').split(/\n(?=(?:[-*]|\d+\.) )/).map((item) => item.replace(/^([-*]|\d+\.) /, '').replace(/\n\s*/g, ' '));
        const tag = /^\d/.test(line) ? 'ol' : 'ul';
        return { lines: length, text: `<${tag} marks>${items.map((item) => `<li>${inline(item, file)}</li>`).join('')}</${tag}>` };
    }
    if (/^> /.test(line)) {
        const length = run(lines, at, /^> ?/);
        return { lines: length, text: `<blockquote>${inline(lines.slice(at, at + length).map((each) => each.replace(/^> ?/, '')).join(' '), file)}</blockquote>` };
    }
    const length = Math.max(1, run(lines, at, new RegExp(`^(?!${isBlockStart.source.slice(1)})`)));
    const text = lines.slice(at, at + length).join(' ').trim();
    return { lines: length, text: text === '' ? '' : `<p>${inline(text, file)}</p>` };
}

/**
 * A document as { text, headings, tries }: the text for a page, the headings { level, title, id }, and the program texts that can be
 * tried out. `file`: its full name.
 */
function toPage(markdown, file) {
    const lines = markdown.split('\n');
    /** @type {{ text: string, headings: { level: number, title: string, id: string }[], tries: string[] }} */
    const page = { text: '', headings: [], tries: [] };
    for (let at = 0; at < lines.length;) {
        const { lines: length, text, heading } = block(lines, at, file, page.tries);
        page.text += `${text}\n`;
        if (heading) {
            page.headings.push(heading);
        }
        at += length;
    }
    return page;
}

module.exports = { inline, toPage };
