'use strict';
// A document from data: a table of several sheets, written without a window on the screen.
const { GuiWindow, html } = require('tarn-gui');

const orders = Array.from({ length: 120 }, (_, i) => ({ number: 1001 + i, what: ['Tea', 'Coffee', 'Cocoa'][i % 3], price: 2 + (i * 37) % 90 }));
const cells = (number, what, price, ground) => html`<td width="90" bgcolor="${ground}">${number}</td><td width="300" bgcolor="${ground}">${what}</td>
    <td width="90" align="right" bgcolor="${ground}">${price}</td>`;

const report = GuiWindow.from(html`<title>Orders</title><body valign="top"><h1>Orders</h1>
    <table cellspacing="0" cellpadding="3"><tr head>${cells('Number', 'What', 'Price', '#DDE6F0')}</tr>
    ${orders.map(({ number, what, price }) => html`<tr>${cells(number, what, price.toFixed(2), '#FFFFFF')}</tr>`)}</table>
    <p><b>Sum: ${orders.reduce((sum, { price }) => sum + price, 0).toFixed(2)}</b></p>`);

const file = process.argv[2] ?? 'orders.pdf';
report.savePdf(file, { margins: { left: 25 }, footer: { left: '{title}', right: '{page} / {pages}' } })
    .then(() => console.log(`${file} is written`));
