// Compiled, never run: every method of the window, of controls and of the session, each used as it is meant and as it is
// not. A wrong use that compiles fails the test, as does a right one that does not.
import * as tarn from '../../../host/node';
import { GuiControl, GuiSizePolicy, GuiWindow } from '../../../host/node';
import type { Form, Html, Messages, PageFilter, Session, SizePolicy } from '../../../host/node';

/** True when the two types are the same, `any` included. */
type Same<A, B> = (<T>() => T extends A ? 1 : 2) extends (<T>() => T extends B ? 1 : 2) ? true : false;
function same<A, B>(_: Same<A, B>): void {}

const window = new GuiWindow();
new GuiWindow('page.html');
new GuiWindow(new URL('file:///page.html'));

// --- what each method takes and gives ---

same<typeof window.open, (modal?: boolean) => boolean>(true);
same<typeof window.show, () => any>(true);
same<typeof window.close, (session?: Session) => null>(true);
same<typeof window.isOpen, () => boolean>(true);
same<typeof window.isValid, () => boolean>(true);
same<typeof window.load, (path: string | URL) => boolean>(true);
same<typeof window.loadFile, (path: string | URL) => boolean>(true);
same<typeof window.setText, (markup: string | Html) => boolean>(true);
same<typeof window.loadBackground, (path: string | URL) => boolean>(true);
same<typeof window.setMinimumSize, (width: number, height: number) => null>(true);
same<typeof window.setMaximumSize, (width: number, height: number) => null>(true);
same<typeof window.setDefaultSize, (width: number, height: number) => null>(true);
same<typeof window.setResizable, (resizable?: boolean | number) => null>(true);
same<typeof window.useSystemFont, (use?: boolean | number) => null>(true);
same<typeof window.zoom, number>(true);
window.zoom = 1.5;
same<ReturnType<typeof window.print>, Promise<boolean>>(true);
same<ReturnType<typeof window.savePdf>, Promise<void>>(true);
window.savePdf('a.pdf', { paper: { width: 100, height: 50 }, margins: { top: 3 }, header: '{page}', footer: { left: '{title}' } });
same<typeof window.setTitle, (title: string) => null>(true);
same<typeof window.getTitle, () => string>(true);
same<typeof window.setIcon, (file: string | URL) => null>(true);
same<typeof window.find, (text: string, options?: { next?: boolean; previous?: boolean; case?: boolean }) => number>(true);
same<typeof window.selection, string>(true);
// @ts-expect-error the user selects
window.selection = 'text';
same<typeof window.setFocus, (control: string) => null>(true);
same<typeof window.getFocus, () => string>(true);
same<typeof window.setEnterControl, (control: string) => null>(true);
same<typeof window.getEnterControl, () => string>(true);
same<typeof window.setEscapeControl, (control: string) => null>(true);
same<typeof window.getEscapeControl, () => string>(true);
same<typeof window.setSizePolicy, (policy: SizePolicy) => null>(true);
same<typeof window.getSizePolicy, () => SizePolicy>(true);
same<ReturnType<typeof window.showAsync>, Promise<any>>(true);
same<ReturnType<typeof window.setReturnValue>, null>(true);
for (const value of [undefined, null, true, 1, 'text', {}, [1]]) {
    window.setReturnValue(value);
}
window.setReturnValue(() => 1);
same<SizePolicy, 'SCROLL' | 'RESIZE' | 'FIXED'>(true);
same<typeof GuiSizePolicy.FIXED, 'FIXED'>(true);
// @ts-expect-error: the helper above tells types apart
same<string, any>(true);

// --- what they refuse ---

// @ts-expect-error: too many
new GuiWindow('page.html', 1);
// @ts-expect-error: a number is no path
new GuiWindow(1);
// @ts-expect-error: a class is called with new
GuiWindow();
// @ts-expect-error: a number is no switch here
window.open(1);
// @ts-expect-error: too many
window.open(true, true);
// @ts-expect-error: too many
window.isOpen(1);
same<ReturnType<typeof window.popup>, boolean>(true);
window.popup('rows');
window.popup('rows', 1, 2);
// @ts-expect-error: a place has two numbers
window.popup('rows', 1);
// @ts-expect-error: too many
window.isValid(undefined);
// @ts-expect-error: too few
window.load();
// @ts-expect-error: no text
window.load(1);
// @ts-expect-error: no text
window.load(null);
// @ts-expect-error: too many
window.loadFile('a', 'b');
// @ts-expect-error: too few
window.setText();
// @ts-expect-error: no text
window.loadBackground(['a']);
// @ts-expect-error: too few
window.setReturnValue();
// @ts-expect-error: too many
window.setReturnValue(1, 2);
// @ts-expect-error: too few
window.setMinimumSize(1);
// @ts-expect-error: no numbers
window.setMaximumSize('1', '2');
// @ts-expect-error: too many
window.setDefaultSize(1, 2, 3);
// @ts-expect-error: no switch
window.setResizable('no');
// @ts-expect-error: too many
window.useSystemFont(true, false);
// @ts-expect-error: no number
window.zoom = '2';
// @ts-expect-error: no such paper
window.savePdf('a.pdf', { paper: 'A9' });
// @ts-expect-error: no such side
window.savePdf('a.pdf', { margins: { up: 3 } });
// @ts-expect-error: no text
window.setTitle(3);
// @ts-expect-error: too many
window.getTitle(1);
// @ts-expect-error: no text
window.setFocus(null);
// @ts-expect-error: too many
window.getFocus('a');
// @ts-expect-error: too few
window.setEnterControl();
// @ts-expect-error: no text
window.setEscapeControl(window);
// @ts-expect-error: no such policy
window.setSizePolicy('scroll');
// @ts-expect-error: a text is not known to be a policy
window.setSizePolicy(window.getTitle());
// @ts-expect-error: too many
window.getSizePolicy(1);
// @ts-expect-error: no text
window.control(1);
// @ts-expect-error: no such method
window.hide();
// @ts-expect-error: a function of the class
window.onLoad('*.html');

// --- controls ---

const control = new GuiControl();
same<typeof control.loadBackground, (path: string | URL) => boolean>(true);
same<typeof control.loadFile, (path: string | URL) => boolean>(true);
same<typeof control.setText, (text: string | Html) => boolean>(true);
same<typeof control.setCaption, (text: string) => null>(true);
same<typeof control.enable, (enabled?: boolean | number) => null>(true);
same<typeof control.disable, () => null>(true);
same<typeof control.isEnabled, () => boolean>(true);
same<typeof control.getSizePolicy, () => SizePolicy>(true);
same<ReturnType<typeof control.play>, null>(true);
control.play();
control.play(true);
control.enable(0);
// @ts-expect-error: no text
control.setText(1);
// @ts-expect-error: no text
control.setCaption();
// @ts-expect-error: no switch
control.enable('yes');
// @ts-expect-error: too many
control.disable(true);
// @ts-expect-error: too many
control.isEnabled(1);
// @ts-expect-error: no switch
control.play('fast');
// @ts-expect-error: read-only
control.width = 1;
// @ts-expect-error: read-only
control.height = 1;
// @ts-expect-error: read-only
control.name = 'a';
// @ts-expect-error: read-only
control.window = window;
// @ts-expect-error: read-only
GuiSizePolicy.FIXED = 'FIXED';

// --- filters, handlers, the session ---

const filter: PageFilter = (page, text) => (page.isOpen() ? text : null);
const messages: Messages = { getString: () => undefined };
same<ReturnType<typeof GuiWindow.onLoad>, null>(true);
GuiWindow.onLoad('*', filter);
GuiWindow.onLoad('*', messages);
GuiWindow.onLoad('*');
// @ts-expect-error: too few
GuiWindow.onLoad();
// @ts-expect-error: no text
GuiWindow.onLoad(1, filter);
// @ts-expect-error: neither a function nor messages
GuiWindow.onLoad('*', 'text');
// @ts-expect-error: knows no messages
GuiWindow.onLoad('*', {});
// @ts-expect-error: a filter gives text
GuiWindow.onLoad('*', () => 3);

class Order extends GuiWindow {
    eLink(session: Session, url: string): void {
        same<typeof url, string>(true);
    }

    ePostOpen(session: Session): void {
        const form: Form | null = session.currentForm;
        if (form) form.name = 'Ada';
    }
}
// @ts-expect-error: handlers of the window itself get the session
class Wrong extends GuiWindow { ePostOpen(count: number): void {} }

same<typeof tarn.session.currentWindow, GuiWindow<any> | null>(true);
same<typeof tarn.session.currentControl, GuiControl | null>(true);
same<typeof tarn.session.currentForm, Form | null>(true);
// @ts-expect-error: read-only
tarn.session.currentWindow = null;
void [Order, Wrong];
