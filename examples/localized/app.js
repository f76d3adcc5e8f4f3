'use strict';
// One program in three languages, one of them written from the right, changed while it runs. app.js [en|de|ar]
//
// The page is made by a function of the language. `dir` turns its text; what stands beside each other stays where it is, so a row is
// written from its end. Days, numbers and prices are those of Intl. What the toolkit itself says (and how it shows a day in a
// field) is in the language of the user's desktop, whatever is chosen here.

const { GuiWindow, html } = require('../../host/node');
const { texts } = require('./texts');

const priceOfNight = 89.5;
const priceOfBreakfast = 12;
const dayMs = 86_400_000;
const fields = ['name', 'arrival', 'nights', 'breakfast'];

/** The page in a language. */
function page(chosen) {
    const t = texts[chosen];
    const isRight = t.dir === 'rtl';
    const row = (name, field) => {
        const cells = [html`<td width="110"><label for="${name}">${t[name]}</label></td>`, html`<td>${field}</td>`];
        return html`<tr>${isRight ? cells.reverse() : cells}</tr>`;
    };
    const language = ([code, { language: own }]) => html`<param name="${code}" value="${own}" type="radiobutton" ${code === chosen && html`checked`}>`;
    return html`<html dir="${t.dir}"><head><title>${t.title}</title></head><body width="400" height="264" minwidth="340" minheight="264" margin="16" gap="10" valign="top">
        <object classid="menu" name="menu"><menu name="languages" value="${t.menu}">${Object.entries(texts).map(language)}</menu></object>
        <table width="100%">
        ${row('name', html`<input type="text" name="name" onchange="event://onChange" width="100%">`)}
        ${row('arrival', html`<input type="date" name="arrival" required onchange="event://onChange" width="100%">`)}
        ${row('nights', html`<input type="number" name="nights" min="1" max="60" required onchange="event://onChange" width="100%">`)}
        ${row('breakfast', html`<input type="checkbox" name="breakfast" onclick="event://onChange">`)}
        </table><hr><table width="100%" name="answer"><tr><td></td></tr></table></body></html>`;
}

class Stay extends GuiWindow {
    constructor(language) {
        super();
        this.fill({ name: '', arrival: '2026-03-06', nights: 3, breakfast: false }, language);
    }

    /** The page in a language, with these values. */
    fill(values, language) {
        this.language = language;
        this.setText(page(language));
        this.setTitle(texts[language].title);
        // Not by the form: that of a running handler is the one of the page before.
        for (const [name, value] of Object.entries(values)) this.control(name).value = value;
        this.setFocus('name');
        this.onChange();
    }

    onChange() {
        const t = texts[this.language];
        const { name, arrival, nights, breakfast } = this.values();
        if (!this.form.valid) {
            this.control('answer').setText('');
            return;
        }
        const day = new Intl.DateTimeFormat(t.locale, { weekday: 'short', day: 'numeric', month: 'long', timeZone: 'UTC' });
        const begin = Date.parse(arrival);
        const words = t.count[new Intl.PluralRules(t.locale).select(nights)].replace('#', new Intl.NumberFormat(t.locale).format(nights));
        const price = nights * (priceOfNight + (breakfast ? priceOfBreakfast : 0));
        const money = new Intl.NumberFormat(t.locale, { style: 'currency', currency: 'EUR' }).format(price);
        this.control('answer').setText(html`<p dir="${t.dir}">${t.from(name, words, day.format(begin), day.format(begin + nights * dayMs))}</p>
            <p dir="${t.dir}">${t.price}: <b>${money}</b></p>`);
    }

    /** What is in the fields; not of the form, see above. */
    values() { return Object.fromEntries(fields.map((field) => [field, /** @type {any} */ (this.control(field)).value])); }

    eMenu(session, item) { this.fill(this.values(), item); }
}

const wanted = process.argv[2] ?? (process.env.LANG ?? '').slice(0, 2);
new Stay(wanted in texts ? wanted : 'en').open();
