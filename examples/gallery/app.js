'use strict';
// Everything that can stand in a page, to be looked at and tried out. The status line says what was done last; File, Print values,
// or leaving, prints what all of it has become.

const tarn = require('../../host/node');

/** A custom element: as many stars as were asked for, by the mouse or by the arrow keys. */
class Stars extends tarn.CustomElement {
    count = '0';

    stars = 0;

    eCreate() { this.set(Number(this.count)); }

    set(count) {
        this.stars = Math.min(5, Math.max(0, count));
        this.toolkit.repaint();
        const window = /** @type {Gallery | null} */ (this.window);
        if (window?.isOpen()) window.say(`${this.stars} stars`);
    }

    eMouseDown() { this.set(Math.floor(this.mouse.x / 28) + 1); }

    eKey() { this.set(this.stars + ({ Right: 1, Up: 1, Left: -1, Down: -1 }[this.keyboard.key] ?? 0)); }

    ePaint() {
        for (let star = 0; star < 5; ++star) {
            const points = Array.from({ length: 10 }, (_, i) => i).flatMap((i) => {
                const [angle, radius] = [Math.PI * (i / 5 - 0.5), i % 2 ? 5 : 12];
                return [14 + 28 * star + radius * Math.cos(angle), 15 + radius * Math.sin(angle)];
            });
            this.toolkit.drawPolygon(star < this.stars ? '#E0A030' : '#B8BCC2', points);
        }
    }
}
tarn.register('Stars', Stars);

const files = [
    ['guide', 'guide.txt', '12 KB', '2026-01-09'], ['photo', 'photo 2.png', '840 KB', '2025-12-24'],
    ['film', 'photo 10.png', '1024 KB', '2026-02-01'], ['notes', 'notes.txt', '3 KB', '2026-03-15'],
];
const places = [
    { value: 'europe', texts: ['Europe'] }, { value: 'bern', texts: ['Bern'], parent: 'europe' },
    { value: 'ulm', texts: ['Ulm'], parent: 'europe' }, { value: 'asia', texts: ['Asia'], expanded: false },
    { value: 'kyoto', texts: ['Kyoto'], parent: 'asia' },
];

class Gallery extends tarn.GuiWindow {
    constructor() {
        super('gallery.html');
        this.control('files').setRows(files.map(([value, ...texts]) => ({ value, texts, icon: 'document.svg' })));
        this.control('places').setRows(places);
        this.clicks = 0;
        this.setFocus('who');
    }

    say(words) { this.control('status').setText(words); }

    /** Fields, lists, buttons: each names this handler. */
    onChange({ currentControl: control }) { this.say(`${control?.name}: ${control?.value}`); }

    onClick() { this.say(`clicked ${++this.clicks} times`); }

    onSend({ currentForm: form }) { this.say(`sent, ${form.valid ? 'and all is right' : 'and something is wrong'}`); }

    /** The bar of progress follows the slider. */
    onLevel({ currentForm: form }) {
        this.form.done = this.form.fuel = form.level / 100;
        this.say(`level: ${form.level}`);
    }

    onLink(session, name) { this.say(`link: ${name}`); }

    onArea(session, name) { this.say(`area: ${name}`); }

    onOpenRow({ event }) { this.say(`opened ${event.row}`); }

    eMenu(session, item) {
        if (item === 'quit') this.close();
        else if (item === 'print') this.printValues();
        else if (item === 'about') tarn.alertAsync('Everything that can stand in a page.', { title: 'About', icon: 'info' });
        else this.say(`menu: ${item}`);
    }

    /** The form's values, and what is no part of it. */
    printValues() {
        const more = { stars: this.control('stars').stars, tasks: this.control('tasks').checked, towns: this.control('towns').selection };
        console.log(JSON.stringify({ ...this.form, ...more, clicks: this.clicks }));
    }
}

new Gallery().showAsync();
