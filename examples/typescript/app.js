"use strict";
Object.defineProperty(exports, "__esModule", { value: true });
// A converter of units, in TypeScript. `tsc` in this folder makes app.js, which ./tarn run takes.
//
// The form has a type, so `this.form.amuont` is an error of the compiler, and so is a text where a number belongs. What a control is can
// not be read from the page: control<ListControl>('from') says it.
const node_1 = require("../../host/node");
const kinds = {
    length: { text: 'Length', units: { metre: { factor: 1 }, kilometre: { factor: 1000 }, inch: { factor: 0.0254 }, foot: { factor: 0.3048 }, mile: { factor: 1609.344 } } },
    mass: { text: 'Mass', units: { kilogram: { factor: 1 }, gram: { factor: 0.001 }, ounce: { factor: 0.028349523125 }, pound: { factor: 0.45359237 } } },
    temperature: { text: 'Temperature', units: { Celsius: { factor: 1 }, Fahrenheit: { factor: 5 / 9, offset: -160 / 9 }, Kelvin: { factor: 1, offset: -273.15 } } },
};
function convert(amount, from, to) {
    return (amount * from.factor + (from.offset ?? 0) - (to.offset ?? 0)) / to.factor;
}
class Converter extends node_1.GuiWindow {
    constructor() {
        super('converter.html');
        this.list('kind').setItems(Object.entries(kinds).map(([value, { text }]) => ({ value, text, selected: value === 'length' })));
        this.fill('length');
        this.setFocus('amount');
    }
    /** The drop-down list of this name, which the page has. */
    list(name) {
        return this.control(name);
    }
    /** Both lists of units, for another kind: the first one, and the second. */
    fill(kind) {
        const units = Object.keys(kinds[kind].units);
        this.list('from').setItems(units.map((value, index) => ({ value, text: value, selected: index === 0 })));
        this.list('to').setItems(units.map((value, index) => ({ value, text: value, selected: index === 1 })));
        this.showResult(kind);
    }
    /** Values are asked of the controls: the form of a running handler is older than what it has changed. */
    showResult(kind) {
        const { units } = kinds[kind];
        const [from, to] = [this.list('from').selection[0], this.list('to').selection[0]].map((unit) => units[unit]);
        const { amount } = this.form;
        this.form.result = amount === null ? '' : convert(amount, from, to).toLocaleString('en', { maximumSignificantDigits: 8 });
    }
    onKind() { this.fill(this.form.kind); }
    onChange() { this.showResult(this.form.kind); }
    onSwap() {
        const [from, to] = [this.form.from, this.form.to];
        this.list('from').selection = [to];
        this.list('to').selection = [from];
        this.showResult(this.form.kind);
    }
}
new Converter().showAsync();
