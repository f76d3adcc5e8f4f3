// Type definitions of tarn-gui: native windows whose content is a page in a small HTML.
//
// All methods run on the script thread and wait for the GUI thread; handlers and timers may run meanwhile. A method that is
// called with other arguments than declared here throws a TypeError that names the method and the argument. A method of a
// window or control that is gone gives its neutral result: false, null, 0 or "".

/** A value that the component hands to a handler or takes from one. `undefined` becomes `null`, a `bigint` a number. */
export type Value = null | boolean | number | string | object;

/** How an element deals with content larger than itself; also as constants of `GuiSizePolicy`. */
export type SizePolicy = 'SCROLL' | 'RESIZE' | 'FIXED';

/** What a control can take as its value. */
export type FormValue = string | number | boolean | null;

/**
 * Values of a window's controls by name. A field has its text, a list the value of the selected entry (null without one), a group
 * of radio buttons the value of the one that is on, a check box its value or null, and one without a value `true` or `false`. A
 * field for a number, a slider, a progress and a meter have a number, or null.
 *
 * While a handler of the window runs these are the values when it began, and what it assigns is shown when it returns. At any
 * other time, behind an `await` too, reading gives what the control shows now and assigning shows it at once. `true` and `false`
 * switch a check box, a number becomes its text; a value that the control cannot take throws a `TypeError`.
 *
 * `form.valid` says whether all values are as the page asks for now, unless a control has that name. Who declares the values of a
 * form and asks that declares `readonly valid: boolean` too.
 */
export interface Form {
    [control: string]: any;
}

/** What the component says about itself; also the first argument of every handler. */
export interface Session {
    /** Until a handler returns, the window that it belongs to; otherwise the one that was loaded or activated last. */
    readonly currentWindow: GuiWindow<any> | null;
    /** The control with a name whose use called the handler. It has the methods that all elements have. */
    readonly currentControl: GuiControl | null;
    /** The form of that window. */
    readonly currentForm: Form | null;
    /**
     * What the user has just done, in a handler that is called because of it; `undefined` in every other: one that runs because
     * of what script does, and outside of handlers, behind an `await` too. So take it at the beginning:
     * `onPick({ event }) { … }`.
     */
    readonly event: UserEvent | undefined;
}

/** What the user has done. What makes no sense is missing: a key has no button, a button no row. */
export interface UserEvent {
    /**
     * "click" of a button, link or area, "change" of a control, "menu" for an item, "context" for the right button or
     * the menu key, "focus", "blur" and "enter" of a control, "activate", "expand", "sort", "header" and "rename" of a list,
     * "mousedown", "mouseup", "mouseover", "mouseout", "mousemove" of an element that asks for them.
     */
    readonly type: string;
    /** The button of the mouse. */
    readonly button?: 'left' | 'middle' | 'right';
    /** "A", "Left", "Return", "Space", "Del", "Esc", "PgUp", "F1". */
    readonly key?: string;
    /** Those of "ctrl+alt+shift+meta" that are down, in this order; "" for none. */
    readonly modifiers: string;
    /** Where, in pixels from the corner of the window, inside its frame. */
    readonly x?: number;
    readonly y?: number;
    /** In a list: the value of the row, and the column, counted from 1. */
    readonly row?: string;
    readonly column?: number;
    /** What the user has given a cell of a list as its new text. */
    readonly text?: string;
}

/** The name of a file: relative to the folder of the calling script, a full path, `vfs://name/path`, or a `file:` URL. */
export type Path = string | URL;

/** Page text that `html` has made; its `toString()` gives the text. */
export interface Html {
    readonly [htmlBrand]: true;
    toString(): string;
}
declare const htmlBrand: unique symbol;

/** What may stand in `html`: nothing comes of null, undefined and false, and all of an array. */
export type HtmlValue = Html | string | number | bigint | boolean | Date | null | undefined | readonly HtmlValue[];

/**
 * Makes page text in which the values are data, whatever they contain: `<`, `>`, `&` and quotation marks in them are
 * written as references. A value that is itself made by `html`, and an array of such, is taken as it is. Put
 * quotation marks around an attribute whose value comes from the program.
 *
 *     const rows = people.map((each) => html`<tr><td>${each.name}</td></tr>`);
 *     GuiWindow.from(html`<table border="1">${rows}</table>`).show();
 */
export function html(strings: TemplateStringsArray, ...values: HtmlValue[]): Html;

/**
 * A handler, as a method of a window, of a control or of a custom element: a link `event://onPick/3/red` calls
 * `onPick(session, '3', 'red')`. A non-empty string that it returns is followed as a link. While it runs, clicks and keys are
 * ignored, except what is typed into a text field, which gets it when the handler has returned. What it throws is an uncaught
 * error of the process, unless the program has set `tarn.onError`.
 *
 * It may be `async`: the window is free as soon as it waits. A string that the promise resolves to is followed then, if the window
 * still shows the same page. The button, link or menu item that called it takes no second activation until the promise has
 * settled; a field calls it once more then, if its value has changed meanwhile.
 *
 *     const pick: Handler = (session, number, colour) => { session.currentWindow?.setTitle(`${number} ${colour}`); };
 */
export type Handler = (session: Session, ...args: string[]) => unknown;

/** Takes the text of a page and returns what replaces it; an empty result leaves the page as it is. */
export type PageFilter = (window: GuiWindow<any>, text: string) => string | null | undefined | Promise<string | null | undefined>;

/** Texts for the markers `@1`, `@2` and so on in a page. */
export interface Messages {
    /** Called with "AUTO" and the number; anything but a value leaves the marker as it is. */
    getString(key: string): string | null | undefined;
}

/**
 * Names of handlers, "onOk" or "eMenu": functions of these names may be assigned to windows and controls, and what a page
 * names in `event://onOk/1/2` is called with the session and the texts behind the name.
 *
 *     window.onOk = (session, first, second) => window.close();
 */
export interface Handlers {
    [handler: `on${Capitalize<string>}` | `e${Capitalize<string>}`]: Handler | undefined;
}

/**
 * A window whose content is a page. Handlers are methods of a subclass, or functions assigned to the object. The values of its
 * form may be declared: `class Order extends GuiWindow<{ who: string; milk: boolean }>`.
 *
 *     class Order extends GuiWindow {
 *         onOk(session: Session, id: string) { this.setReturnValue(id); this.close(); }
 *     }
 *     const id = new Order('order.html').show();
 */
export class GuiWindow<Values extends object = Form> {
    [handler: `on${Capitalize<string>}` | `e${Capitalize<string>}`]: Handler | undefined;

    /**
     * With a path, loads that page. A relative path starts at the folder of the script that makes the window;
     * `vfs://name/path` lies in a folder that was registered with `tarn.mount`. A page that cannot be read throws an
     * `Error` with `code`, such as "ENOENT", and `path`.
     *
     *     const window = new GuiWindow('order.html');
     *     const other = new GuiWindow(new URL('order.html', import.meta.url));
     */
    constructor(path?: Path);

    /**
     * A window, or one of the class that it is called on, whose page is this text. The title and the sizes of the body
     * become the window's; relative names in the text start at the folder of the calling script.
     *
     *     GuiWindow.from(html`<title>Hello</title><body width="300" height="100"><p>Hello, ${name}`).open();
     */
    static from<Window extends GuiWindow<any>>(this: new () => Window, page: string | Html): Window;

    /**
     * Registers a filter for pages whose name matches `pattern`: a function, or an object that knows messages. Without a
     * filter, removes those of that pattern.
     *
     *     GuiWindow.onLoad('*.html', (window, text) => text.replace('VERSION', '1.2'));
     */
    static onLoad(pattern: string, filter?: PageFilter | Messages): null;

    /**
     * Opens the window and returns. True when it is open. `window.open(true)` blocks the others until it is closed. A window that is
     * open already comes to the front.
     */
    open(modal?: boolean): boolean;
    /**
     * Opens the window modally and returns when it is closed: the value set with `setReturnValue`, null without one.
     * Timers, promises and I/O go on meanwhile.
     *
     *     const name = new AskName('name.html').show();
     */
    show(): any;
    /**
     * `show()` as a promise, which settles when the window closes. At most 50 calls of `show()` may wait inside each other; this
     * one takes no stack.
     *
     *     const name = await new AskName('name.html').showAsync();
     */
    showAsync(): Promise<any>;
    /** The values of the page's controls; always the same object: `window.form.who = 'Ann';` */
    readonly form: Values;
    /** Closes the window. The one method of the package that a page may call: `<a href="event://close">`. */
    close(session?: Session): null;
    /** Whether the window is open: `if (!help.isOpen()) help.open();` */
    isOpen(): boolean;
    /**
     * Shows the context menu of that name, `<object classid="contextmenu">`, at a place in pixels from the corner of the window, or at
     * the pointer. Its items call `eMenu` or what their `onclick` names, and `session.event` has the place. False when there is no such
     * menu: `window.popup('rows', event.x, event.y)`.
     */
    popup(name: string): boolean;
    popup(name: string, x: number, y: number): boolean;
    /** Whether the window has a page: false before the first, and after a load that failed. */
    isValid(): boolean;

    /** Loads a page into this window: `window.load('next.html')`. One that cannot be read leaves the window empty. */
    load(path: Path): boolean;
    /** The same as `load`. */
    loadFile(path: Path): boolean;
    /**
     * Replaces the content by this markup. In a window without a page it is one: its title and sizes become the window's.
     *
     *     window.setText(html`<p>${count} files`);
     */
    setText(markup: string | Html): boolean;
    /** Replaces the background picture: `window.loadBackground('paper.png')`. */
    loadBackground(path: Path): boolean;

    /** What `show()` returns when the window is closed: `this.setReturnValue(this.control('name')?.name)`. */
    setReturnValue(value: Value | undefined): null;

    /** How small the user may make the window, in pixels; 0 leaves a direction as it was: `window.setMinimumSize(300, 0)`. */
    setMinimumSize(width: number, height: number): null;
    /** How large, as above. */
    setMaximumSize(width: number, height: number): null;
    /** How large the window opens, or is from now on, as above. */
    setDefaultSize(width: number, height: number): null;
    /** `setResizable(false)` fixes the window at its size. */
    setResizable(resizable?: boolean | number): null;
    /** `useSystemFont(true)` shows the page in the desktop's font and size, headings and other sizes in proportion. */
    useSystemFont(use?: boolean | number): null;
    /**
     * How large the page is shown, 0.5 to 3; 1 is as it is written. The user changes it with Ctrl and plus, minus, 0 or the wheel.
     * Hundredths count. The window keeps its size: `window.zoom = 1.25`.
     *
     * @throws TypeError for anything but a number in that range.
     */
    zoom: number;
    /** What a page does that is larger than the window: `window.setSizePolicy(GuiSizePolicy.SCROLL)`. */
    setSizePolicy(policy: SizePolicy): null;
    getSizePolicy(): SizePolicy;

    /** The text in the title bar: `window.setTitle('Order 7')`. */
    setTitle(title: string): null;
    /** The picture that stands for the window, a file named as the page names its files; '' for none: `window.setIcon('busy.png')`. */
    setIcon(file: Path): null;
    getTitle(): string;
    /** Gives the keyboard to the control of that name: `window.setFocus('who')`. */
    setFocus(control: string): null;
    /** The name of the control that has the keyboard, or of the picture that is the current link; "" when none has. */
    getFocus(): string;
    /** The control that the Enter key triggers; "X" closes the window: `window.setEnterControl('ok')`. */
    setEnterControl(control: string): null;
    getEnterControl(): string;
    /** The control that the Escape key triggers; "X" closes the window: `window.setEscapeControl('X')`. */
    setEscapeControl(control: string): null;
    getEscapeControl(): string;

    /**
     * The control of that name, null, with a line on standard error, when the page has none. The same object each time.
     * Letters' case does not matter. What kind of control it is only the page knows: say it to have its methods checked. In a
     * window whose form is declared, only the names of that form are taken to be there.
     *
     *     window.control<ListControl>('colours').addItem('red', 'Red');
     */
    control<Kind extends GuiControl = AnyControl>(name: keyof Values & string): Kind;
    control<Kind extends GuiControl = AnyControl>(name: string): Kind | null;

    /** The text of the page that the user has selected, as Ctrl+C copies it; "" for none: `clipboard.writeText(window.selection)`. */
    readonly selection: string;

    /**
     * Looks for a text on the page, marks all places where it stands, selects one and scrolls to it; how many there are. It is the
     * first one; with `next` or `previous` the one behind or before the one that was selected by the last call, round and round. Case does
     * not matter without `case`. A part of the page that is put away is shown when something in it is selected. "" ends the marks.
     *
     *     const count = window.find('tea', { next: true });
     */
    find(text: string, options?: { next?: boolean; previous?: boolean; case?: boolean }): number;

    /**
     * Writes the whole page into a PDF file, as it is at this moment: laid out anew at the width of the paper, with its controls as
     * they look, links that can be followed, and its headings as an outline. Sheets end between lines and rows. The window need not be
     * open. The promise is rejected, with `path`, when the file can not be written; then there is none, or the one that was there before.
     *
     *     await window.savePdf('order.pdf', { paper: 'A5', margins: 15, footer: '{page} of {pages}' });
     *
     * @throws TypeError for options that are not as described.
     */
    savePdf(path: Path, options?: PdfOptions): Promise<void>;

    /**
     * Shows the desktop's print dialog over the window and prints the whole page, laid out for the paper that the user chooses. True when
     * it was printed, false when the user cancelled. The promise is rejected when there is no such dialog (Debian: libqt6printsupport6).
     *
     *     if (await window.print()) window.close();
     */
    print(): Promise<boolean>;

    /** Called when `show()` or `showAsync()` has opened the window: `ePostOpen() { this.setFocus('who'); }` */
    ePostOpen?(session: Session): unknown;
    /**
     * Called when the user wants to close the window: by its title bar, by Alt+F4, by a key that is set to "X", or by ending the
     * desktop's session. With `false`, or a promise of it, the window stays. `close()` does not ask.
     */
    eClose?(session: Session): unknown;
    /**
     * Called when the user follows a link to `http:`, `https:` or `mailto:`, with the address as the page has it. Without this
     * method the desktop opens the address. What it returns does not matter.
     *
     *     eLink(session: Session, url: string) { log(url); }
     */
    eLink?(session: Session, url: string): unknown;
}

/** What elements of a page have in common: controls, and the instances of custom elements. */
export interface Element {
    /** Replaces the background picture: `element.loadBackground('paper.png')`. */
    loadBackground(path: Path): boolean;
    /** A picture: shows another file. Anything else: loads the content from a file. `element.loadFile('part.html')` */
    loadFile(path: Path): boolean;
    /** A field: what stands in it. Anything else: its content, as markup. */
    setText(text: string | Html): boolean;
    /** The text of a button or beside a box, or above a frame: `button.setCaption('Stop')`. */
    setCaption(text: string): null;
    /** A movie: plays it: `element.play()`. */
    play(loop?: boolean | number): null;
    /** Lets the user use the element: `element.enable()`, `element.enable(count > 0)`. */
    enable(enabled?: boolean | number): null;
    disable(): null;
    isEnabled(): boolean;
    /** What content larger than the element does: `element.setSizePolicy(GuiSizePolicy.SCROLL)`. */
    setSizePolicy(policy: SizePolicy): null;
    getSizePolicy(): SizePolicy;
}

/**
 * One named element of a window's page. Survives the page: then its methods give their neutral results.
 *
 *     const ok = window.control('ok');
 *     if (ok) ok.onPress = () => window.close();   // for `onclick="event://onPress"`
 */
export class GuiControl implements Element {
    [handler: `on${Capitalize<string>}` | `e${Capitalize<string>}`]: Handler | undefined;

    constructor();
    /** The window that holds the element. */
    readonly window: GuiWindow<any>;
    /** The element's name in the page. */
    readonly name: string;
    /**
     * The value as it is in the form, read from and shown on the page at once; null for an element without one. A value that the
     * control cannot take throws a `TypeError`.
     */
    get value(): string | number | boolean | null;
    set value(value: FormValue);
    /** The size on the screen, in pixels; 0 when the page has no such element. */
    readonly width: number;
    readonly height: number;

    loadBackground(path: Path): boolean;
    loadFile(path: Path): boolean;
    setText(text: string | Html): boolean;
    setCaption(text: string): null;
    play(loop?: boolean | number): null;
    enable(enabled?: boolean | number): null;
    disable(): null;
    isEnabled(): boolean;
    setSizePolicy(policy: SizePolicy): null;
    getSizePolicy(): SizePolicy;
}

/** A control of which nobody has said what kind it is, or a custom element with members of its own. */
export type AnyControl = GuiControl & { [member: string]: any };

/**
 * A field that text is typed into: `<input>` of the types text, search, password and file, and `<textarea>`. `setText` sets what
 * stands in it.
 *
 *     window.control<TextControl>('who')?.setText('Ada');
 */
export interface TextControl extends GuiControl {
    /**
     * Selects the text from one place to another, counted as JavaScript counts a string, and scrolls to the second, where the cursor
     * goes; without an end only that. In a field that is in a window.
     */
    select(start: number, end?: number): null;
}

/** A push button, a check box or a radio button: `<input>` of the types button, submit, reset, checkbox and radio. */
export interface ButtonControl extends GuiControl {
    /** Whether the check box or radio button is on; always false for a push button. */
    isChecked(): boolean;
    /** Switches a check box or radio button on, or as said. */
    check(on?: boolean | number): null;
    uncheck(): null;
}

/** An item of a `<select>`. */
export interface ListItem {
    value: string;
    text: string;
    selected: boolean;
}

/** An item as `setItems()` takes it: without a value its text is one, without a text its value is shown. */
export interface NewListItem {
    value?: string | number | null;
    text?: string | number | null;
    selected?: boolean;
}

/** A drop-down list or a list box: `<select>`. Entries are named by their values; letters' case does not matter. */
export interface ListControl extends GuiControl {
    /**
     * Adds an entry and, while the window is open, selects it; without a text its value is shown. It takes the place of the first
     * one removed.
     */
    addItem(value: string, text?: string): null;
    /** Removes every entry of that value. */
    removeItem(value: string): null;
    /** Selects the entry. False takes it out of the selection of a list box. */
    selectItem(value: string, on?: boolean | number): null;
    isItemSelected(value: string): boolean;
    /**
     * Shows these items in place of all others: `list.setItems(['Oslo', { value: 'rom', text: 'Rome' }])`. A text alone is a value
     * that is shown as it is. Unless an item says that it is selected, what was selected stays so.
     */
    setItems(items: readonly (string | number | NewListItem)[]): null;
    /** All items. */
    items(): ListItem[];
    /** Removes all items. */
    clear(): null;
    /** The values of the selected items. Assigning selects these and no others. */
    selection: string[];
}

/** What stands before a row of a flex list: nothing, a check box or a radio button; by name or as a number. */
export type RowType = 'normal' | 'checkbox' | 'radiobutton' | 0 | 1 | 2;

/** A text of a row that says how it looks; what is left out or null is as in the row. Colours are as in pages. */
export interface ListText {
    text?: string | number | null;
    color?: string | null;
    bgcolor?: string | null;
    bold?: boolean | null;
}

/** A row of a list with columns, as `rows()` returns it. */
export interface ListRow {
    /** What scripts call the row. */
    value: string;
    /** What it shows, by column: strings, except for those that say how they look. */
    texts: (string | Required<ListText> & { text: string })[];
    /** The value of the row that it lies under; null at the top level. */
    parent: string | null;
    type: 'normal' | 'checkbox' | 'radiobutton';
    checked: boolean;
    selected: boolean;
    enabled: boolean;
    /** Whether the rows under it are shown. */
    expanded: boolean;
    /** A picture file; null without one. */
    icon: string | null;
    /** How its texts look; null for as usual. */
    color: string | null;
    bgcolor: string | null;
    bold: boolean;
}

/**
 * A row of a list with columns, as `setRows()` takes it; what is left out is as usual. A row without `value` has its first text as
 * such, one without `texts` shows its value. Numbers become texts.
 */
export interface NewListRow {
    value?: string | number | null;
    texts?: readonly (string | number | ListText | null | undefined)[];
    /** The value of a row before this one. */
    parent?: string | number | null;
    type?: RowType | null;
    checked?: boolean;
    selected?: boolean;
    enabled?: boolean;
    expanded?: boolean;
    icon?: string | null;
    /** Colours as in pages: "red", "#F80". A row that is selected has those of all selected rows. */
    color?: string | null;
    bgcolor?: string | null;
    bold?: boolean | null;
}

/** A column of a list. */
export interface ListColumn {
    /** Its heading. */
    text?: string | null;
    /** Its width in pixels; without one it follows its content. */
    width?: number | null;
    align?: 'left' | 'right' | 'center' | null;
    /** How rows are compared when the list is sorted by this column. */
    sort?: 'text' | 'number' | 'date' | 'natural' | null;
    /** Its place from the left, from 0, to which the user may have dragged it. */
    order?: number | null;
    /** Whether the user may change its texts, of which "onrename" is told. */
    editable?: boolean;
}

/**
 * A list with columns: `<object>` with the classid flexlist, checklist, listview or treeview. Rows are named by their values;
 * letters' case does not matter, and of two rows with one value the first counts. Columns count from 1.
 */
export interface FlexListControl extends GuiControl {
    scrollToTop(): null;

    /** Whether the box or radio button of the row is on; false for a row without one. */
    isItemChecked(value: string): boolean;
    /** Switches it on, or as said; "onchange" follows as after a click. */
    checkItem(value: string, on?: boolean | number): null;
    uncheckItem(value: string): null;

    isItemSelected(value: string): boolean;
    /** Selects the row, or as said. A disabled row is not selected. */
    selectItem(value: string, on?: boolean | number): null;
    unselectItem(value: string): null;

    isItemEnabled(value: string): boolean;
    enableItem(value: string, on?: boolean | number): null;
    disableItem(value: string): null;

    /** Whether the rows under this one are shown. */
    isItemExpanded(value: string): boolean;
    expandItem(value: string, on?: boolean | number): null;
    collapseItem(value: string): null;

    /**
     * Adds a row, under the row `parent` or, without one of that value, at the top level. Text of further columns follows in
     * `text` as "|2|second|3|third"; without a text the value is shown.
     */
    addItem(value: string, text?: string | null, parent?: string | null, type?: RowType): null;
    removeItem(value: string): null;

    /** Shows or hides the headings of the columns. */
    setHeaderEnabled(enabled: boolean | number): null;
    /** The width in pixels. */
    setColumnWidth(column: number, width: number): null;
    /** The heading of a column; columns that are missing up to it are added. */
    setColumnText(column: number, text: string): null;
    setItemText(value: string, column: number, text: string): null;

    /**
     * Shows these rows in place of all others, 100,000 in the time of a few frames:
     *
     *     list.setRows(files.map(({ name, size }) => ({ value: name, texts: [name, size] })));
     *
     * What is selected and expanded and the place of the scroll bar stay with the values of the rows.
     */
    setRows(rows: readonly NewListRow[]): null;
    /**
     * Shows `count` rows, up to 100 million, that are asked for when they come into view, some hundred at a time; until then they
     * are empty. The list does not wait for them, and forgets those that are far away:
     *
     *     list.setSource(await mail.count(), (first, count) => mail.read(first, count));
     *
     * Such rows have texts, a value (else their number, as text), `enabled` and an icon. `setRows` or `clear` ends it; until then
     * methods that change single rows do nothing, except the selection of rows that are known.
     */
    setSource(count: number, source: (first: number, count: number) => readonly NewListRow[] | Promise<readonly NewListRow[]>): null;
    /** All rows, each behind the one that it lies under; none when they come from a source. */
    rows(): ListRow[];
    /** Removes all rows. */
    clear(): null;
    /** The values of the selected rows. Assigning selects these and no others. */
    selection: string[];
    /** The values of the rows whose box or radio button is on. Assigning switches the others off. */
    checked: string[];
    get columns(): ListColumn[];
    /** The columns: their headings and widths, how their texts stand, and how rows are sorted by them. */
    set columns(columns: readonly ListColumn[]);
}

/**
 * What becomes of an item's check mark when the item is chosen: "normal" and "checkbox" leave it to the handler, "toggle" switches
 * it, and of the "radiobutton"s that follow each other one is on.
 */
export type MenuItemType = 'normal' | 'checkbox' | 'toggle' | 'radiobutton';

/**
 * A menu bar: `<object classid="menu">`. Items are named; letters' case does not matter, and of two items with one name the
 * first counts, those inside an item before the ones behind it.
 */
export interface MenuControl extends GuiControl {
    isItemChecked(name: string): boolean;
    checkItem(name: string, on?: boolean | number): null;
    uncheckItem(name: string): null;
    isItemEnabled(name: string): boolean;
    enableItem(name: string, on?: boolean | number): null;
    disableItem(name: string): null;
    setItemText(name: string, text: string): null;
    /** The keys that choose the item while the window is active, "Ctrl+S", "F5"; "" for none: `menu.setItemKey('save', 'Ctrl+S')`. */
    setItemKey(name: string, key: string): null;
    /** The picture beside the text, a file beside the page; "" for none: `menu.setItemIcon('save', 'disk.png')`. */
    setItemIcon(name: string, file: string): null;
    /**
     * Adds an item at the end of the menu called `parent`, or of the bar; without a text its name is shown. An item that gets the
     * first item below it becomes a menu: `menu.addItem('recent1', 'notes.txt', 'recent')`. A text "-" is a line.
     */
    addItem(name: string, text?: string | null, parent?: string | null, type?: MenuItemType | null): null;
    /** Removes the item and all below it. */
    removeItem(name: string): null;
    /** Does what choosing the item does: calls `eMenu(session, name)`. Nothing for an item that is disabled, or in a disabled one. */
    activateItem(name: string): null;
}

/** The size policies: `window.setSizePolicy(GuiSizePolicy.FIXED)`. */
export class GuiSizePolicy {
    static readonly SCROLL: 'SCROLL';
    static readonly RESIZE: 'RESIZE';
    static readonly FIXED: 'FIXED';
}

/** A rectangle in pixels, from the upper left corner of a custom element. */
export interface Rect {
    left: number;
    top: number;
    width: number;
    height: number;
}

/** A width and a height in pixels. */
export interface Extent {
    width: number;
    height: number;
}

/** x and y in turn, or pairs of them; a typed array is read fastest. */
export type Points = readonly number[] | readonly (readonly [number, number])[] | Float64Array | Float32Array | Int32Array | Int16Array;

/**
 * Draws into a custom element, inside its `ePaint` only: outside, these methods do nothing. The drawing is
 * recorded and handed over whole when `ePaint` returns, so no call waits for the window; what an `async` handler draws
 * behind an `await` is lost. Nothing shows outside of the element. Colours are names or "#RRGGBB". Numbers are pixels, cut to
 * whole ones except in lists of points.
 */
export class GuiToolkit {
    constructor();
    /** Alignments for `drawText`. */
    readonly XLEFT: 0;
    readonly XCENTER: 1;
    readonly XRIGHT: 2;

    // All of these are as described at the start of each `ePaint`, whatever the last one has set.
    /** What an empty colour of a filled area or a shape stands for; black. */
    color: string;
    /** The colour of text; "": that of the page. */
    textColor: string;
    /** The face of text, "" for that of the page, and its size in points, 0 for that of the page. */
    fontFace: string;
    fontSize: number;
    bold: boolean;
    italic: boolean;
    /** Whether lines are smooth; ellipses, polygons and polylines always are. */
    smooth: boolean;
    /** The element's own area: left and top are 0. */
    readonly rect: Rect;

    /** Shown when the pointer rests on the element, in place of its attribute `title`; stays as it is set. */
    tooltip: string;

    /** Fills a rectangle, or everything. */
    fill(color: string, rect?: Rect): null;
    /** Both ends included. An empty colour is black. */
    drawLine(color: string, x1: number, y1: number, x2: number, y2: number, width: number): null;
    /**
     * The picture that the image has when `ePaint` returns, in its own size or cut to a size, or repeated in a larger one. The offsets
     * move where the first one begins: a negative one shows a later part.
     */
    drawImage(image: GuiImage, x: number, y: number): null;
    drawImage(image: GuiImage, x: number, y: number, width: number, height: number): null;
    drawImage(image: GuiImage, x: number, y: number, width: number, height: number, offsetX: number, offsetY: number): null;
    /** Text as pages show it, broken into lines and cut to the rectangle. */
    drawText(text: string, rect?: Rect, align?: 0 | 1 | 2): null;
    /** An ellipse inside the rectangle: filled, or its outline when a line width is given. */
    drawEllipse(color: string, x: number, y: number, width: number, height: number, lineWidth?: number): null;
    /** Filled, or its outline when a line width is given. */
    drawPolygon(color: string, points: Points, lineWidth?: number): null;
    /** A line through all points, one pixel wide unless said otherwise. */
    drawPolyline(color: string, points: Points, lineWidth?: number): null;

    /** The room that a text takes in the present font, on one line or broken at a width; null when the element is gone. At any time. */
    measureText(text: string, width?: number): Extent | null;
    /** Asks for an `ePaint`, after which a part, or everything, is painted. At any time; requests join, up to 60 a second are served. */
    repaint(rect?: Rect): null;
    repaint(left: number, top: number, width: number, height: number): null;
}

/**
 * A picture for `GuiToolkit.drawImage`.
 *
 *     const logo = new GuiImage();
 *     logo.loadFile('logo.png');
 *     // in ePaint: this.toolkit.drawImage(logo, 0, 0);
 */
export class GuiImage {
    constructor();
    /** The size of the picture in pixels, once one was loaded. */
    readonly width: number;
    readonly height: number;
    /** Reads a picture; true when that went well: `image.loadFile('logo.png')`. */
    loadFile(path: Path): boolean;
}

/** Where the pointer is, in pixels from the corner of what `toolkit.rect` covers, and what goes with the event that is being told. */
export interface Mouse {
    readonly x: number;
    readonly y: number;
    /** The button that went down or up, or that is down while the pointer moves. */
    readonly button: '' | 'left' | 'middle' | 'right';
    /** Those of "ctrl+alt+shift+meta" that are down, in this order. */
    readonly modifiers: string;
    /** How far the wheel was turned, in eighths of a degree, usually 120 a step; positive away from the user. */
    readonly wheel: number;
}

/** The key that "eKey" is about. */
export interface Keyboard {
    /** "A", "Left", "Return", "Space", "Del", "Esc", "PgUp", "F1". */
    readonly key: string;
    /** What it types, "" for a key that types nothing. */
    readonly text: string;
    /** As those of the mouse. */
    readonly modifiers: string;
}

/**
 * What the instance of a custom element has when its handlers run. A class need not extend this one, which adds nothing: it lets
 * an editor know. `class Gauge extends CustomElement { ePaint() { … } }` The attributes `<param name value>` are properties too, always texts. They are set
 * when the constructor has returned; a window that is opened again makes its elements anew.
 */
export interface CustomElement extends Element {
    readonly toolkit: GuiToolkit;
    readonly mouse: Mouse;
    /** Only when the class has an `eKey`. */
    readonly keyboard: Keyboard;
    readonly window: GuiWindow<any>;
    readonly name: string;
    /** Pixels, or a text such as "50%". Without a height that stays as it was. */
    setSize(width: number | string, height?: number | string): null;
}
export class CustomElement {}

/**
 * Handlers that a custom element may have. The user goes on working while one runs, so a slow one is told of the last of several
 * moves only. Nobody waits for the promise of an `async` one. While a button is down all moves go to the element on which it went
 * down.
 */
export interface CustomElementHandlers {
    /** The page is complete. */
    eCreate?(session: Session): unknown;
    /** The window closes, or other content takes the place of the element. */
    eDestroy?(session: Session): unknown;
    /** Draws: before the window appears, when the size has changed and when `repaint` was called. */
    ePaint?(session: Session): unknown;
    eMouseMove?(session: Session): unknown;
    eMouseOver?(session: Session): unknown;
    eMouseOut?(session: Session): unknown;
    eMouseDown?(session: Session): unknown;
    eMouseUp?(session: Session): unknown;
    /** The wheel was turned over the element; the page does not scroll then. */
    eMouseWheel?(session: Session): unknown;
    /** A key but Tab and Escape was pressed while the element has the keyboard: Tab stops at it, and a click gives it to it. */
    eKey?(session: Session): unknown;
    eFocus?(session: Session): unknown;
    eBlur?(session: Session): unknown;
}

/** The session; its properties are null before the first window: `tarn.session.currentWindow?.close()`. */
export const session: Session;

/**
 * Makes `<object classid="name">` an instance of `Class`. Letters' case does not matter.
 *
 *     tarn.register('Gauge', Gauge);
 */
export function register(name: string, Class: new () => object): void;

/**
 * Makes the files of `folder` readable as `vfs://name/…`. A relative folder starts at that of the calling script.
 *
 *     tarn.mount('Shop', 'pages');
 *     new GuiWindow('vfs://Shop/order.html');
 */
export function mount(name: string, folder: Path): void;

/**
 * From now on pages read only files below these folders, symbolic links followed, and in mounted ones; others are refused in
 * one line. Further calls add folders. A file that script names itself, by its full path or relative to the script, is read
 * wherever it is. For programs that show pages of others. A relative folder starts at that of the calling script.
 *
 *     tarn.confine('pages');
 */
export function confine(...folders: [Path, ...Path[]]): void;

/**
 * The text of the page that is being filtered for this form, "" when there was none.
 *
 *     GuiWindow.onLoad('*', () => tarn.pageText(tarn.session.currentForm!).toUpperCase());
 */
export function pageText(form: Form): string;

/** What has become of a page whose files were saved. */
export interface Reload {
    window: GuiWindow<any>;
    /** Those that were saved, in full. */
    files: string[];
    /** Why the old page stays, in one line; null when the new one is shown. */
    problem: string | null;
    /** Milliseconds from the last touch of the files until the page was painted. */
    ms: number;
}

/** Options of `watch`. */
export interface WatchOptions {
    /** Hears of each reload. */
    onReload?: (reload: Reload) => void;
}

/** What `watch` gives. */
export interface Watcher {
    /** Files are not watched any more, unless somebody else has asked for it, too. */
    close(): void;
}

/**
 * Shows pages, pictures and included files anew as soon as they are saved, in the windows that are open, with what the user has done in
 * them. Best called before the first window is made. Scripts are not watched: the command `tarn-gui watch` does that, too.
 *
 *     const watcher = tarn.watch({ onReload: ({ files, problem }) => console.log(files, problem) });
 *
 * @throws TypeError when an option is wrong
 */
export function watch(options?: WatchOptions): Watcher;

/** Where an error of a handler comes from: its window, null for a filter, and the handler's name. */
export interface ErrorPlace {
    window: GuiWindow<any> | null;
    handler: string;
}

/**
 * Hears what handlers throw, and what their promises reject with, in place of the process, which an uncaught error ends.
 * What it throws itself is an uncaught error. Null, as at first, leaves them to the process.
 *
 *     tarn.onError = (error, { window, handler }) => tarn.alert(`${handler}: ${error}`, { icon: 'error' });
 */
export let onError: ((error: any, place: ErrorPlace) => void) | null;

/**
 * The text that the desktop keeps for pasting. On most desktops what a program has written goes with it.
 *
 *     tarn.clipboard.writeText(tarn.clipboard.readText().trim());
 */
export const clipboard: {
    /** "" when there is no text. */
    readText(): string;
    writeText(text: string): void;
};

/** A line of a tray's menu: "-" between groups, or a text with "&" before its key. */
export type TrayItem = '-' | {
    text: string;
    onClick?: (tray: Tray) => void | Promise<void>;
    /** False shows it grey. */
    enabled?: boolean;
    /** With it the item has a check mark, set or not. */
    checked?: boolean;
};

/** Options of `tray`. */
export interface TrayOptions {
    /** A picture, a file beside the script: SVG, PNG and so on. */
    icon: string | URL;
    /** What the pointer reads. */
    tip?: string;
    menu?: readonly TrayItem[];
    /** A click on the picture itself. */
    onClick?: (tray: Tray) => void | Promise<void>;
}

/** What stands in the desktop's tray. It keeps the program alive, as an open window does. */
export interface Tray {
    /** Changes what is named, and leaves the rest: `tray.update({ icon: 'new-mail.svg', tip: '3 new' })`. */
    update(options: Partial<TrayOptions>): void;
    /** Takes it out of the tray. */
    close(): void;
}

/**
 * Puts a picture into the desktop's tray. Null on a desktop that has no tray, so a program needs another way to be reached there.
 *
 *     const tray = tarn.tray({ icon: 'mail.svg', tip: 'Mail', menu: [{ text: '&Quit', onClick: (tray) => tray.close() }] });
 */
export function tray(options: TrayOptions): Tray | null;

/** Options of `taskbar`. What is not named is not shown. */
export interface TaskbarOptions {
    /** The name of the program's desktop file, by which the desktop knows its windows: "mail.desktop". */
    desktopFile: `${string}.desktop`;
    /** 0 to 1; null for no bar. */
    progress?: number | null;
    /** A number on the entry, such as that of new messages; 0 for none. */
    count?: number;
    /** Asks for the user's attention. */
    urgent?: boolean;
}

/**
 * Shows progress and a number on the program's entry in the taskbar or dock, on desktops whose dock listens to launcher entries.
 * False without a session bus; whether anybody shows it is not known.
 *
 *     tarn.taskbar({ desktopFile: 'mail.desktop', progress: 0.4, count: 3 });
 */
export function taskbar(options: TaskbarOptions): boolean;

// The desktop's own dialogs. Each belongs to the active window and blocks it; without a window it stands alone. The plain form
// waits for the user as `show()` does, the one with Async promises the answer. When the window is closed the dialog is too.

/** Options of `alert`. */
export interface AlertOptions {
    title?: string;
    icon?: 'info' | 'warning' | 'error' | 'question';
    /** Names of the buttons, the usual one first; "OK" when there are none. */
    buttons?: readonly [string, ...string[]];
}

/** A kind of files, `{ name: 'Texts', patterns: ['*.txt', '*.md'] }`. A pattern has neither blanks nor parentheses. */
export interface FileFilter {
    name: string;
    patterns: readonly string[];
}

/** Options of `openFile`. */
export interface OpenFileOptions {
    title?: string;
    /** Where to begin; a relative one starts at the working folder of the process. */
    folder?: string;
    filters?: readonly FileFilter[];
    /** Whether several files may be chosen: then the answer is an array. */
    multiple?: boolean;
}

/** Options of `saveFile`; `name` is what the file is called at first. */
export interface SaveFileOptions {
    title?: string;
    folder?: string;
    name?: string;
    filters?: readonly FileFilter[];
}

/** The line above or below the pages of a document. A string stands in the middle. */
export type PaperLine = string | { left?: string; center?: string; right?: string };

/**
 * Options of `savePdf`. `paper` is "A4" without it, or width and height in millimetres; `margins` are millimetres, 20 where they are not
 * given. In `header` and `footer` "{page}" is the number of the sheet, "{pages}" how many there are, "{title}" the title of the window.
 */
export interface PdfOptions {
    paper?: 'A3' | 'A4' | 'A5' | 'Letter' | 'Legal' | { width: number; height: number };
    landscape?: boolean;
    margins?: number | { top?: number; right?: number; bottom?: number; left?: number };
    header?: PaperLine;
    footer?: PaperLine;
}

/**
 * Shows a message. The name of the button that was pressed, null when the message was closed.
 *
 *     if (tarn.alert('Save the changes?', { icon: 'question', buttons: ['Save', 'Discard'] }) === 'Save') save();
 */
export function alert(text: string | number, options?: AlertOptions): string | null;
export function alertAsync(text: string | number, options?: AlertOptions): Promise<string | null>;

/** Asks for OK: `if (tarn.confirm('Delete the order?')) remove();` */
export function confirm(text: string | number, options?: { title?: string }): boolean;
export function confirmAsync(text: string | number, options?: { title?: string }): Promise<boolean>;

/** Asks for a text, null when that was cancelled: `const name = tarn.prompt('Your name?', { value: 'Ada' });` */
export function prompt(text: string | number, options?: { title?: string; value?: string; password?: boolean }): string | null;
export function promptAsync(text: string | number, options?: { title?: string; value?: string; password?: boolean }): Promise<string | null>;

/**
 * Asks for a file that exists: its full path, with `multiple` an array of paths, null when that was cancelled.
 *
 *     const path = tarn.openFile({ filters: [{ name: 'Texts', patterns: ['*.txt'] }] });
 */
export function openFile(options: OpenFileOptions & { multiple: true }): string[] | null;
export function openFile(options?: OpenFileOptions & { multiple?: false }): string | null;
export function openFileAsync(options: OpenFileOptions & { multiple: true }): Promise<string[] | null>;
export function openFileAsync(options?: OpenFileOptions & { multiple?: false }): Promise<string | null>;

/** Asks where to save: `const path = tarn.saveFile({ name: 'order.txt' });` The user was asked before a file is replaced. */
export function saveFile(options?: SaveFileOptions): string | null;
export function saveFileAsync(options?: SaveFileOptions): Promise<string | null>;

/** Asks for a folder: `const folder = tarn.openFolder({ title: 'Where are the pictures?' });` */
export function openFolder(options?: { title?: string; folder?: string }): string | null;
export function openFolderAsync(options?: { title?: string; folder?: string }): Promise<string | null>;

/** Asks for a colour, "#RRGGBB", null when that was cancelled: `tarn.pickColor({ color: '#336699' })`. */
export function pickColor(options?: { title?: string; color?: string }): string | null;
export function pickColorAsync(options?: { title?: string; color?: string }): Promise<string | null>;

export {}; // only what says so is exported
