'use strict';
// The desktop's dialogs. Each prints its answer; closed by the user it prints nothing.

const path = require('node:path');

const textOptions = ({ title, icon, buttons }) => ({ ...(title && { title }), ...(icon && { icon }), ...(buttons && { buttons }) });

/** The number of the button. */
async function showText(tarn, options, print) {
    const answer = await tarn.alertAsync(options.text, textOptions(options));
    if (answer === null) {
        return 1;
    }
    if (options.buttons) {
        print(answer);
    }
    return Math.max(0, options.buttons?.indexOf(answer) ?? 0);
}

function answered(answer, print) {
    if (answer === null) {
        return 1;
    }
    print([answer].flat().join('\n'));
    return 0;
}

async function showEntry(tarn, { text, title, value, password }, print) {
    return answered(await tarn.promptAsync(text, { ...(title && { title }), ...(value && { value }), ...(password && { password }) }), print);
}

async function showFile(tarn, { title, save, folder, multiple, value, filters }, print) {
    const place = value === undefined ? {} : placeOf(value, save);
    const named = { ...place, ...(title && { title }) };
    if (folder) {
        return answered(await tarn.openFolderAsync(named), print);
    }
    const shown = { ...named, ...(filters && { filters }) };
    return answered(await (save ? tarn.saveFileAsync(shown) : tarn.openFileAsync({ ...shown, multiple: Boolean(multiple) })), print);
}

/** Where a dialog for files begins: in a folder, or with the name of a file that is to be saved. */
function placeOf(value, save) {
    return save && !value.endsWith('/') ? { folder: path.dirname(value), name: path.basename(value) } : { folder: value };
}

module.exports = { showText, showEntry, showFile };
