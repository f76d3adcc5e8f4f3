// Compiled, never run: every class, method and constant in use.
import * as tarn from '../../../host/node';
import { GuiControl, GuiImage, GuiSizePolicy, GuiToolkit, GuiWindow } from '../../../host/node';
import type { CustomElement, CustomElementHandlers, Form, Handler, Rect, Session, SizePolicy, TextControl } from '../../../host/node';

class Order extends GuiWindow {
    #total = 0;

    onOk(session: Session, id: string): string {
        this.#total += Number(id);
        session.currentControl?.enable(false);
        this.setReturnValue(this.#total);
        this.close();
        return '';
    }

    async onLater(): Promise<void> {
        await new Promise((resolve) => setTimeout(resolve, 1));
    }

    ePostOpen(session: Session): void {
        const form: Form | null = session.currentForm;
        const place: [number?, number?] = [session.event?.x, session.event?.y];
        const button: 'left' | 'middle' | 'right' | undefined = session.event?.button;
        console.log(place, button, session.event?.row, session.event?.column);
        if (form) form.name = 'Ada';
    }
}

interface Gauge extends CustomElement {}
class Gauge implements CustomElementHandlers {
    value = '0';
    eMouseWheel(): void {}
    eKey(): void {
        this.value += this.keyboard.key + this.keyboard.text + this.keyboard.modifiers;
        this.toolkit.tooltip = this.value;
    }
    ePaint(): void {
        const { toolkit } = this;
        const area: Rect = { left: 0, top: 0, width: toolkit.rect.width, height: 10 };
        toolkit.color = '#FF0000';
        toolkit.fill('');
        toolkit.fill('blue', area);
        toolkit.drawLine('', 0, 0, this.mouse.x, this.mouse.y, 2);
        toolkit.drawText('text');
        toolkit.drawText('text', area, toolkit.XCENTER);
        toolkit.drawImage(picture, 1, 2);
        toolkit.drawImage(picture, 1, 2, 3, 4);
        toolkit.drawImage(picture, 1, 2, 3, 4, 5, 6);
        toolkit.repaint();
        toolkit.repaint(area);
        toolkit.repaint(1, 2, 3, 4);
        toolkit.fontFace = 'Serif';
        toolkit.fontSize = toolkit.measureText('text', 100)?.height ?? 12;
        toolkit.bold = toolkit.italic = toolkit.smooth = true;
        toolkit.textColor = 'navy';
        toolkit.drawEllipse('red', 1, 2, 3, 4);
        toolkit.drawEllipse('red', 1, 2, 3, 4, 5);
        toolkit.drawPolygon('red', [1, 2, 3, 4]);
        toolkit.drawPolygon('red', [[1, 2], [3, 4]], 2);
        toolkit.drawPolyline('red', new Float64Array(4), 2);
        const wheel: number = this.mouse.wheel + this.mouse.modifiers.length;
        if (this.mouse.button === 'left' && wheel > 0) this.disable();
        this.setSize('50%', 20);
    }
}

const picture = new GuiImage();
const loaded: boolean = picture.loadFile('a.png');
const size: number = picture.width * picture.height;

tarn.register('Gauge', Gauge);
tarn.mount('Shop', 'pages');
GuiWindow.onLoad('*.html', (window, text) => text.replace('a', window.getTitle()));
GuiWindow.onLoad('*.html', { getString: (key) => key });
GuiWindow.onLoad('*.html');

const order = new Order('order.html');
const shown: unknown = order.show();
const later: Promise<unknown> = order.showAsync();
const flags: boolean[] = [order.open(), order.open(true), order.isOpen(), order.isValid(), order.load('a'), order.loadFile('a'),
    order.setText('<p>'), order.loadBackground('a')];
order.setMinimumSize(1, 2);
order.setMaximumSize(1, 2);
order.setDefaultSize(1, 2);
order.setResizable();
order.setResizable(false);
order.useSystemFont(1);
order.setTitle('t');
order.setFocus('a');
order.setEnterControl('X');
order.setEscapeControl('X');
order.setSizePolicy(GuiSizePolicy.FIXED);
const policy: SizePolicy = order.getSizePolicy();
const texts: string[] = [order.getTitle(), order.getFocus(), order.getEnterControl(), order.getEscapeControl()];

const control: GuiControl | null = order.control('amount');
if (control) {
    const there: boolean[] = [control.loadBackground('a'), control.loadFile('a'), control.setText('a'), control.isEnabled()];
    control.setCaption('a');
    control.play(true);
    control.enable();
    control.disable();
    control.setSizePolicy(GuiSizePolicy.SCROLL);
    const same: boolean = control.window === tarn.session.currentWindow && control.getSizePolicy() === GuiSizePolicy.RESIZE;
    void [there, same, control.width + control.height, control.name];
    // @ts-expect-error: read-only
    control.width = 1;
    // @ts-expect-error: no such policy
    control.setSizePolicy('fixed');
}

const handler: Handler = (session, first) => `${session.currentControl?.name}${first}`;
const text: string = tarn.pageText({});
// @ts-expect-error: a path is a text
new GuiWindow(3);
// @ts-expect-error: not a class
tarn.register('Gauge', 3);
void [shown, later, flags, policy, texts, loaded, size, handler, text, GuiToolkit];

// --- pages from text, handlers that are assigned, dialogs ---

const listed = ['a', 'b'].map((each) => tarn.html`<li>${each}`);
const fromText: Order = Order.from(tarn.html`<ul>${listed}</ul>${null}${new Date()}${3}`);
fromText.onPick = (session, first) => session.currentWindow?.setTitle(first ?? '');
fromText.eMenu = async () => undefined;
const field = fromText.control<TextControl>('who');
if (field) {
    field.onTyped = () => field.setText('x');
}
const buttonName: string | null = tarn.alert('text', { icon: 'warning', buttons: ['Yes', 'No'] });
const answers: [boolean, string | null] = [tarn.confirm('text'), tarn.prompt('text', { value: 'x', password: true })];
const files: string[] | null = tarn.openFile({ multiple: true, filters: [{ name: 'Texts', patterns: ['*.txt'] }] });
const file: string | null = tarn.openFile({ folder: '.' });
const others: Promise<string | null>[] = [tarn.saveFileAsync({ name: 'x' }), tarn.openFolderAsync(), tarn.pickColorAsync({ color: 'red' })];
tarn.clipboard.writeText(tarn.clipboard.readText());
tarn.confine('pages', new URL('file:///pages'));
const hears: typeof tarn.onError = (error, { window, handler: name }) => { window?.setTitle(`${name}: ${error}`); };
void [buttonName, answers, files, file, others, hears];
// @ts-expect-error: html has no place for an object
tarn.html`${{}}`;
// @ts-expect-error: no function
fromText.onPick = 3;
// @ts-expect-error: handlers begin with "on" or "e"
fromText.pick = () => {};
// @ts-expect-error: no such icon
tarn.alert('text', { icon: 'warn' });
// @ts-expect-error: no such option
tarn.openFile({ filter: [] });
