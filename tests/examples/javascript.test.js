'use strict';
// docs/javascript.md has an entry with an example for every public name of index.d.ts and none for another, and the examples compile.

const assert = require('node:assert/strict');
const { spawnSync } = require('node:child_process');
const fs = require('node:fs');
const path = require('node:path');
const { test } = require('node:test');
const { packageFolder, scratch } = require('../node/helpers.js');
const ts = require(path.join(packageFolder, 'node_modules', 'typescript'));

const root = path.join(__dirname, '..', '..');

/** The code between the backquotes of a cell. */
function codeOf(cell) {
    const [, quotes, code] = /^(`+)(.*?)\1$/.exec(cell.trim()) ?? [null, '', ''];
    return (quotes.length > 1 ? code.trim() : code).replaceAll('\\|', '|');
}

/** The entries of the document: { section, names, example }. */
function readEntries() {
    const entries = [];
    let section = '';
    for (const line of fs.readFileSync(path.join(root, 'docs', 'javascript.md'), 'utf8').split('\n')) {
        section = /^##+ (.*)/.exec(line)?.[1] ?? section;
        const cells = line.split(/(?<!\\)\|/).slice(1, -1);
        if (cells.length === 3 && cells[0].includes('`')) {
            const names = [...cells[0].matchAll(/`(\w+)`/g)].map(([, name]) => name);
            entries.push({ section, names, example: codeOf(cells[2]) });
        }
    }
    return entries;
}

const entries = readEntries();
const file = path.join(packageFolder, 'index.d.ts');
const program = ts.createProgram([file], { noLib: true, types: [] });
const source = program.getSourceFile(file);

/** The names of the members that the declarations of this class or interface write out, "constructor" among them. */
function membersOf(declaration) {
    const members = (declaration.members ?? []).filter((member) => !ts.isIndexSignatureDeclaration(member));
    return [...new Set(members.map((member) => (member.name ? member.name.text ?? '' : 'constructor')))].filter(Boolean);
}

const declarations = source.statements.filter((statement) => !ts.isExportDeclaration(statement)
    && statement.modifiers?.some(({ kind }) => kind === ts.SyntaxKind.ExportKeyword));
const nameOf = (statement) => (ts.isVariableStatement(statement) ? statement.declarationList.declarations[0] : statement).name.text;
const hasMembers = (statement) => ts.isClassDeclaration(statement) || ts.isInterfaceDeclaration(statement);
/** Interfaces that are only a few properties, which their one entry lists. */
const plain = new Set(['AlertOptions', 'PdfOptions', 'OpenFileOptions', 'SaveFileOptions', 'FileFilter', 'ErrorPlace', 'Rect', 'Extent', 'Html', 'Messages',
    'TrayOptions', 'TaskbarOptions', 'Reload', 'WatchOptions', 'ListRow', 'NewListRow', 'ListItem', 'NewListItem', 'ListColumn', 'ListText']);

const namesIn = (section) => entries.filter((entry) => entry.section.split(' ').includes(section)).flatMap(({ names }) => names);
const everyName = entries.flatMap(({ names }) => names);
const sections = new Set(entries.map(({ section }) => section));

test('every public name has an entry', () => {
    assert.ok(declarations.length > 50);
    for (const statement of declarations) {
        const name = nameOf(statement);
        assert.ok(everyName.includes(name) || sections.has(name), `${name} is not in docs/javascript.md`);
        if (hasMembers(statement) && !plain.has(name)) {
            assert.deepEqual(membersOf(statement).filter((member) => !namesIn(name).includes(member)), [], `members of ${name} without an entry`);
        }
    }
});

test('no entry is for a name that is not there', () => {
    const known = new Set(['eMenu', 'eSelect', 'eChange', 'eStopped', 'onAnyName', 'readText', 'writeText', ...declarations.map(nameOf)]);
    for (const { section, names } of entries) {
        const owner = declarations.find((statement) => section.split(' ').includes(nameOf(statement)) && hasMembers(statement));
        const members = owner ? membersOf(owner) : declarations.filter(hasMembers).flatMap(membersOf);
        assert.deepEqual(names.filter((name) => !known.has(name) && !members.includes(name)), [], section);
    }
});

test('every entry has an example that uses its name', () => {
    for (const { names, example, section } of entries) {
        const wanted = names.includes('constructor') || names.includes('onAnyName') ? [''] : names;
        const uses = wanted.some((name) => example.includes(name)) || section === 'Options of dialogs';
        assert.ok(example !== '' && (uses || ['Handlers', 'Messages'].includes(names[0])), `${section}, ${names}: ${example}`);
    }
});

const types = declarations.filter((each) => ts.isInterfaceDeclaration(each) || ts.isTypeAliasDeclaration(each) || nameOf(each) === 'GuiControl').map(nameOf);

const prelude = `import * as all from ${JSON.stringify(packageFolder)};
import { GuiImage, GuiSizePolicy, GuiWindow, html } from ${JSON.stringify(packageFolder)};
import type { ${types.join(', ')} } from ${JSON.stringify(packageFolder)};
declare const tarn: typeof all, window: GuiWindow<any>, control: GuiControl, text: TextControl, button: ButtonControl;
declare const list: ListControl, table: FlexListControl, menu: MenuControl, session: Session, element: all.CustomElement;
declare const toolkit: all.GuiToolkit, image: GuiImage, mouse: all.Mouse, keyboard: all.Keyboard, tray: all.Tray | null;
interface Drawn extends all.CustomElement {}
class Drawn { part = 0; }
void [tarn, text, GuiSizePolicy];
`;

/** An example of a handler is a method of a class, others are statements. */
function wrap({ section, example }, index) {
    if (section === 'Events of GuiWindow') {
        return `export class Window${index} extends GuiWindow<any> { ${example} }`;
    }
    return section === 'CustomElementHandlers'
        ? `export class Element${index} extends Drawn implements all.CustomElementHandlers { ${example} }`
        : `export async function example${index}() { ${example}; }`;
}

test('every example compiles', () => {
    const examples = path.join(scratch, 'examples.ts');
    fs.writeFileSync(examples, prelude + entries.map(wrap).join('\n'));
    const options = ['--strict', '--noEmit', '--target', 'es2022', '--module', 'commonjs', '--moduleResolution', 'node10', '--lib', 'es2022',
        '--types', 'node', '--typeRoots', path.join(packageFolder, 'node_modules', '@types'), examples];
    const { stdout, status } = spawnSync(process.execPath, [path.join(packageFolder, 'node_modules', 'typescript', 'bin', 'tsc'), ...options],
        { encoding: 'utf8' });
    const lines = fs.readFileSync(examples, 'utf8').split('\n');
    const told = stdout.replace(/^.*?\((\d+),\d+\)(.*)$/gm, (all, line, message) => `${lines[line - 1]}\n${message}`);
    assert.equal(status, 0, told);
});
