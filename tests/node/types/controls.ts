// Compiled, never run: every method that some kinds of controls have besides those of all, each used as it is meant and as
// it is not. A wrong use that compiles fails the test, as does a right one that does not.
import { GuiControl, GuiWindow } from '../../../host/node';
import type { AnyControl, ButtonControl, FlexListControl, ListControl, MenuControl, RowType, TextControl } from '../../../host/node';

/** True when the two types are the same, `any` included. */
type Same<A, B> = (<T>() => T extends A ? 1 : 2) extends (<T>() => T extends B ? 1 : 2) ? true : false;
function same<A, B>(_: Same<A, B>): void {}

/** A method that asks for the state of a row or item, one that sets it, and one that ends it. */
type Ask = (value: string) => boolean;
type Set = (value: string, on?: boolean | number) => null;
type End = (value: string) => null;

const window = new GuiWindow('page.html');

// --- which control it is ---

const plain = window.control('a');
same<typeof plain, AnyControl>(true);
plain.whatTheElementHas(1).isNotKnown = plain.value;
const declared = new GuiWindow<{ who: string }>('page.html');
const known: AnyControl = declared.control('who');
known.setText('Ada');
// @ts-expect-error: not a name of the form, so it may be null
declared.control('other').setText('Eve');
declared.control('other')?.setText('Eve');
// @ts-expect-error: of a kind that was said, only what that has
declared.control<ButtonControl>('who').addItem('a');
const button = window.control<ButtonControl>('b');
const list = window.control<ListControl>('c');
const flex = window.control<FlexListControl>('d');
const menu = window.control<MenuControl>('e');
for (const each of [button, list, flex, menu]) {
    same<string, typeof each.name>(true);
    each.setText('they have what all controls have');
    each.disable();
}
// @ts-expect-error: no control
window.control<GuiWindow>('b');
// @ts-expect-error: they come with pages
new ButtonControl();

// --- fields ---

same<TextControl['select'], (start: number, end?: number) => null>(true);
// @ts-expect-error: a place is a number
window.control<TextControl>('who')?.select('a');

// --- buttons, check boxes, radio buttons ---

same<typeof button.isChecked, () => boolean>(true);
same<typeof button.check, (on?: boolean | number) => null>(true);
same<typeof button.uncheck, () => null>(true);
button.check();
button.check(0);
// @ts-expect-error: too many
button.isChecked(true);
// @ts-expect-error: no switch
button.check('on');
// @ts-expect-error: too many
button.uncheck(false);
// @ts-expect-error: of lists
button.selectItem('a');

// --- lists ---

same<typeof list.addItem, (value: string, text?: string) => null>(true);
same<typeof list.removeItem, End>(true);
same<typeof list.selectItem, Set>(true);
list.addItem('v');
list.addItem('v', 'Violet');
list.selectItem('v', false);
// @ts-expect-error: no text
list.addItem(1);
// @ts-expect-error: too many
list.addItem('v', 'Violet', '', 0);
// @ts-expect-error: too few
list.removeItem();
// @ts-expect-error: no switch
list.selectItem('v', 'on');
same<typeof list.isItemSelected, Ask>(true);
// @ts-expect-error: of flex lists
list.isItemChecked('v');

// --- flex lists ---

same<typeof flex.scrollToTop, () => null>(true);
same<typeof flex.isItemChecked, Ask>(true);
same<typeof flex.checkItem, Set>(true);
same<typeof flex.uncheckItem, End>(true);
same<typeof flex.isItemSelected, Ask>(true);
same<typeof flex.selectItem, Set>(true);
same<typeof flex.unselectItem, End>(true);
same<typeof flex.isItemEnabled, Ask>(true);
same<typeof flex.enableItem, Set>(true);
same<typeof flex.disableItem, End>(true);
same<typeof flex.isItemExpanded, Ask>(true);
same<typeof flex.expandItem, Set>(true);
same<typeof flex.collapseItem, End>(true);
same<typeof flex.addItem, (value: string, text?: string | null, parent?: string | null, type?: RowType) => null>(true);
same<typeof flex.removeItem, End>(true);
same<typeof flex.setHeaderEnabled, (enabled: boolean | number) => null>(true);
same<typeof flex.setColumnWidth, (column: number, width: number) => null>(true);
same<typeof flex.setColumnText, (column: number, text: string) => null>(true);
same<typeof flex.setItemText, (value: string, column: number, text: string) => null>(true);
same<RowType, 'normal' | 'checkbox' | 'radiobutton' | 0 | 1 | 2>(true);
flex.addItem('a');
flex.addItem('b', null, null, 'radiobutton');
flex.addItem('c', 'first|2|second', 'a', 1);
// @ts-expect-error: no value
flex.scrollToTop('a');
// @ts-expect-error: too few
flex.isItemChecked();
// @ts-expect-error: no switch
flex.checkItem('a', 'yes');
// @ts-expect-error: too many
flex.uncheckItem('a', false);
// @ts-expect-error: no text
flex.isItemSelected(1);
// @ts-expect-error: too few
flex.selectItem();
// @ts-expect-error: too many
flex.unselectItem('a', 1);
// @ts-expect-error: too many
flex.isItemEnabled('a', 1);
// @ts-expect-error: no switch
flex.enableItem('a', null);
// @ts-expect-error: too few
flex.disableItem();
// @ts-expect-error: no text
flex.isItemExpanded(true);
// @ts-expect-error: no switch
flex.expandItem('a', []);
// @ts-expect-error: too many
flex.collapseItem('a', true);
// @ts-expect-error: no such type
flex.addItem('a', 'A', '', 'radio');
// @ts-expect-error: too many
flex.removeItem('a', 'b');
// @ts-expect-error: too few
flex.setHeaderEnabled();
// @ts-expect-error: no number
flex.setColumnWidth('1', 20);
// @ts-expect-error: the column comes first
flex.setColumnText('Size', 1);
// @ts-expect-error: too few
flex.setItemText('a', 'text');

// --- menus ---

same<typeof menu.isItemChecked, Ask>(true);
same<typeof menu.checkItem, (name: string, on?: boolean | number) => null>(true);
same<typeof menu.uncheckItem, End>(true);
same<typeof menu.isItemEnabled, Ask>(true);
same<typeof menu.enableItem, (name: string, on?: boolean | number) => null>(true);
same<typeof menu.disableItem, End>(true);
same<typeof menu.setItemText, (name: string, text: string) => null>(true);
same<typeof menu.activateItem, End>(true);
// @ts-expect-error: no text
menu.isItemChecked(1);
// @ts-expect-error: no switch
menu.checkItem('save', 'on');
// @ts-expect-error: too many
menu.uncheckItem('save', true);
// @ts-expect-error: too few
menu.isItemEnabled();
// @ts-expect-error: no switch
menu.enableItem('save', {});
// @ts-expect-error: too many
menu.disableItem('save', true);
// @ts-expect-error: too few
menu.setItemText('save');
// @ts-expect-error: too few
menu.activateItem();
// @ts-expect-error: of lists
menu.selectItem('save');
menu.addItem('recent', 'Recent', 'file', 'radiobutton');
menu.addItem('line', '-', null);
// @ts-expect-error: no type
menu.addItem('recent', 'Recent', 'file', 'radio');
menu.removeItem('recent');
menu.setItemKey('save', 'Ctrl+S');
// @ts-expect-error: too few
menu.setItemKey('save');
menu.setItemIcon('save', 'disk.png');

// --- a list as data ---

same<ReturnType<typeof flex.setRows>, null>(true);
flex.setRows([{ value: 'a', texts: ['b', 1, null], type: 'checkbox', checked: true }, {}] as const);
flex.setRows(flex.rows());
flex.setRows([{ texts: ['a', { text: 'late', color: 'red', bold: true }], bgcolor: '#FFC' }]);
const late: string | undefined = flex.rows().flatMap(({ texts }) => texts).map((each) => (typeof each === 'string' ? each : each.text))[0];
// @ts-expect-error: no colour
flex.setRows([{ color: 5 }]);
flex.columns = [{ text: 'Size', order: 1, editable: true }];
const selected: string[] = flex.selection;
flex.selection = ['a'];
flex.checked = selected;
flex.columns = [{ text: 'Size', width: 90, align: 'right', sort: 'number' }];
flex.columns = flex.columns;
// @ts-expect-error: no such property
flex.setRows([{ txets: [] }]);
// @ts-expect-error: no such word
flex.columns = [{ align: 'top' }];
// @ts-expect-error: takes nothing
flex.clear(1);
flex.setSource(10, (first, count) => [{ texts: [first, count] }]);
flex.setSource(10, async () => []);
// @ts-expect-error: no rows
flex.setSource(10, () => 5);
