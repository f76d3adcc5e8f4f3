// Type definitions of tarn-gui/test: windows in the hands of a test.
//
// Every verb waits until what it is about is there, in view, enabled and not covered, acts with real mouse and key events, and
// then waits until handlers, async ones too, layout and painting are done. What cannot be done in time rejects with a DriveError
// that says what the window has instead.

import { GuiWindow, ListRow } from './index.js';

/** The time that one call may take, in milliseconds; 5000 when it does not say. */
export interface TimeOptions {
    timeout?: number;
}

/** Keys that are held while the mouse clicks. */
export interface ClickOptions extends TimeOptions {
    /** "Ctrl", "Shift", "Alt", or several of them with "+" between. */
    modifiers?: string;
}

/**
 * What a verb is about. A text is the name of an element; when nothing has this name, the text of a button, link, tab, item of a
 * menu, check box or radio button. Otherwise the thing that fits all that is said:
 *
 *     w.click('save');  w.click({ link: 'Next' });  w.click({ row: 'b', in: 'list' });  w.check({ name: 'color', value: 'red' });
 */
export type Target = string | {
    /** The name that the page gives it. */
    name?: string;
    /** The text of a link, button, tab, or item of a menu; the label of a field. */
    link?: string;
    button?: string;
    tab?: string;
    menu?: string;
    item?: string;
    field?: string;
    /** The text of whatever it is. */
    text?: string;
    /** The value of a radio button, among those of one name. */
    value?: string;
    /** The value, or a text, of a row in the list of this name. */
    row?: string;
    in?: Target;
    /** Which of several, counted from 0. */
    nth?: number;
};

/** What find() tells. */
export interface Found {
    /** "button", "check box", "radio button", "field", "list", "tabs", "tab", "menu bar", "menu", "item", "link", "element", "text". */
    kind: string;
    name: string | null;
    text: string;
    label: string;
    /** As the form has it; null without one. */
    value: string | number | boolean | null;
    /** Of check boxes and radio buttons. */
    checked?: boolean;
    enabled: boolean;
    visible: boolean;
}

/** A row of a `select`. */
export interface SelectRow {
    value: string;
    text: string;
    selected: boolean;
}

/** How pictures are compared. */
export interface PictureOptions extends TimeOptions {
    /** How much each colour of a pixel may differ, of 255; 16 when it does not say. */
    tolerance?: number;
    /** How many pixels may differ by more; 0 when it does not say. */
    pixels?: number;
}

/** A window or dialog, of this process or another one. Calls that are not awaited keep their order. */
export interface DrivenWindow {
    /** Scrolls it into view and clicks in its middle. */
    click(target: Target, options?: ClickOptions): Promise<void>;
    doubleClick(target: Target, options?: ClickOptions): Promise<void>;
    rightClick(target: Target, options?: ClickOptions): Promise<void>;

    /** Moves the pointer there. */
    hover(target: Target, options?: ClickOptions): Promise<void>;

    /** Clicks into the field and types in place of what it holds, with `append` behind it. */
    type(target: Target, text: string, options?: TimeOptions & { append?: boolean }): Promise<void>;
    /** Types where the keyboard is. */
    type(text: string, options?: TimeOptions): Promise<void>;
    /** Presses "Ctrl+S", "Tab", "Shift+F10"; several with ", " between. */
    press(keys: string, options?: TimeOptions): Promise<void>;

    /** Chooses a row of a list, an entry of a select, a tab, or a radio button of a group, by its value or its text. */
    select(target: Target, choice: string, options?: ClickOptions): Promise<void>;
    /** Clicks unless it is checked already. */
    check(target: Target, options?: TimeOptions): Promise<void>;
    uncheck(target: Target, options?: TimeOptions): Promise<void>;
    /** Chooses an item by the texts on the way: of the menu that is open, or else of the menu bar. */
    menu(...texts: string[]): Promise<void>;

    /** The text of an element or a control; without a target that of the whole page, as it is seen. */
    text(target?: Target, options?: TimeOptions): Promise<string>;
    /** The value as the form has it. */
    value(target: Target, options?: TimeOptions): Promise<string | number | boolean | null>;
    /** The rows of a list as its `rows()` gives them, or those of a select. */
    rows(target: Target, options?: TimeOptions): Promise<Array<ListRow & SelectRow>>;
    /** What is known of it; null, without waiting, when it is not there. */
    find(target: Target, options?: TimeOptions): Promise<Found | null>;
    title(options?: TimeOptions): Promise<string>;

    /** Writes a picture of the window's content, from the working folder on; its whole path. */
    screenshot(file: string, options?: TimeOptions): Promise<string>;
    /**
     * Compares the window's content with a picture. Where it differs, or there is none, `NAME.actual.png` beside it gets what the
     * window shows, and the promise is rejected; with TARN_UPDATE=1 the picture itself gets it.
     */
    matches(file: string, options?: PictureOptions): Promise<void>;

    /** Waits until no handler runs and the promises of all have settled. */
    idle(options?: TimeOptions): Promise<void>;
    /** Closes it as its title bar does. A question that comes up instead ends the wait, too. */
    close(options?: TimeOptions): Promise<void>;
}

/** A program in a process of its own. */
export interface DrivenProgram {
    /** The window of this title, once it is there; without one, the window that was opened last. */
    window(title?: string, options?: TimeOptions): Promise<DrivenWindow>;
    /** The dialog that is open, once there is one. */
    dialog(options?: TimeOptions): Promise<DrivenWindow>;
    /** Closes all windows as the user does and waits for the end of the program; its exit code. */
    close(): Promise<number | null>;
    /** Ends it at once. */
    kill(): Promise<{ code: number | null; signal: string | null }>;
    /** How it ends. */
    readonly exit: Promise<{ code: number | null; signal: string | null }>;
    /** What it has written so far. */
    readonly stdout: string;
    readonly stderr: string;
    readonly pid: number | undefined;
}

/** How a program is started. */
export interface LaunchOptions extends TimeOptions {
    args?: string[];
    /** Added to the environment of the test. */
    env?: Record<string, string>;
    cwd?: string;
    /** For Node.js itself. */
    execArgv?: string[];
}

/**
 * A window of this process, which is shown as `showAsync()` does it when it is not yet; or the window of this title, once it is
 * there. Without a display the windows are drawn into memory.
 *
 *     const w = await drive(new Order('order.html'));
 *     await w.type('who', 'Ann');
 *     await w.click('order');
 *     assert.equal(await w.text('total'), 'Total: 3');
 */
export function drive(window: GuiWindow<any> | string, options?: TimeOptions): Promise<DrivenWindow>;

/** The dialog of this process that is open, once there is one: `await (await dialog()).click('OK')`. */
export function dialog(options?: TimeOptions): Promise<DrivenWindow>;

/**
 * Starts a program, with Node.js, and drives its windows. A `file` that is a path starts at the working folder.
 *
 *     const app = await launch('app.js', { args: ['order.json'] });
 *     await (await app.window('Order')).click('order');
 *     assert.equal(await app.close(), 0);
 */
export function launch(file: string | URL, options?: LaunchOptions): Promise<DrivenProgram>;

/** What could not be done: `error.message` says what, why, and what is there instead. `code` is "TARN_DRIVE". */
export class DriveError extends Error {
    readonly code: 'TARN_DRIVE';
}
