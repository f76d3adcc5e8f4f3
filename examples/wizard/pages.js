'use strict';
// The markup of the wizard's windows. Every function takes what it shows and returns a page or a piece of one.

const fs = require('node:fs');
const path = require('node:path');

const frame = fs.readFileSync(path.join(__dirname, 'step.html'), 'utf8');

/** A step's page: step.html, with what stands behind each $name filled in. */
function step(number, question, choices) {
    const values = {
        question, progress: progress(number), choices: choices.map(card).join('<tr><td height="6"></td></tr>'),
        back: number > 1 ? button('Back') : '', cancel: button('Cancel'),
    };
    return frame.replace(/\$(\w+)/g, (whole, name) => values[name] ?? whole);
}

/** Three short bars; those of the steps that were reached are lit. */
function progress(reached) {
    const bar = (number) => `<td width="18" height="6" bgcolor="${number <= reached ? '#FFD98A' : '#4B607A'}"></td>`;
    return `<table cellspacing="4"><tr>${[1, 2, 3].map(bar).join('')}</tr></table>`;
}

/** A choice: a coloured edge, a link, and what speaks for it. */
function card({ name, color, words }) {
    return `<tr><td bgcolor="#FFFFFF" border="1" bordercolor="#D5CDBB"><table width="100%"><tr>
        <td width="6" height="50" bgcolor="${color}"></td><td width="8" height="50"></td>
        <td height="50"><a href="event://onAnswer/${name}"><b>${name}</b></a><br>
            <font color="#7A7468">${words}</font></td></tr></table></td></tr>`;
}

function button(words) {
    return `<td width="90" height="30" align="center" bgcolor="#FFFFFF" border="1" bordercolor="#B8B09C">
        <a href="event://onAnswer/${words}">${words}</a></td>`;
}

/** The list of journeys, and a word about it. */
function journeys(list, words) {
    const line = ({ place, season }, index) => `<tr><td width="30" height="26">${index + 1}.</td>
        <td height="26"><b>${place}</b> in ${season}</td></tr>`;
    return `<body valign="top"><table width="100%">${list.map(line).join('')}</table>
        <p><font color="#7A7468">${words}</font></p></body>`;
}

module.exports = { step, journeys };
