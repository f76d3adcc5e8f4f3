// Compiled, never run: forms whose values are declared, and the values of controls.
import { GuiControl, GuiWindow } from '../../../host/node';
import type { Form, FormValue, Session } from '../../../host/node';

type Same<A, B> = (<T>() => T extends A ? 1 : 2) extends (<T>() => T extends B ? 1 : 2) ? true : false;
function same<A, B>(_: Same<A, B>): void {}

class Order extends GuiWindow<{ who: string; milk: boolean }> {
    onOk(session: Session): void {
        this.form.who = this.form.milk ? `${this.form.who} with milk` : 'nobody';
        this.form.milk = true;
        // @ts-expect-error: no control of that name
        this.form.sugar = true;
        // @ts-expect-error: a box is no text
        this.form.milk = 'yes';
        session.currentWindow?.close();
    }

    eClose(): boolean {
        return this.form.who !== '';
    }
}

class Later extends GuiWindow {
    async eClose(): Promise<boolean> {
        return this.form.anything === 1;
    }
}

interface Values { name: string }
const windows: GuiWindow<any>[] = [new Order('order.html'), new Later('later.html'), new GuiWindow<Values>('values.html')];
same<typeof windows[0]['form'], any>(true);
same<Order['form'], { who: string; milk: boolean }>(true);
same<Later['form'], Form>(true);
// @ts-expect-error: the form itself stays
new Order('order.html').form = { who: '', milk: false };

const control = new GuiControl();
same<typeof control.value, string | number | boolean | null>(true);
for (const value of ['text', 1, true, null] satisfies FormValue[]) {
    control.value = value;
}
// @ts-expect-error: an object is no value
control.value = {};
// @ts-expect-error: neither is undefined
control.value = undefined;
// @ts-expect-error: the values of a form are an object
new GuiWindow<string>('page.html');
