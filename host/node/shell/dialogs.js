'use strict';
// The desktop's dialogs. Each prints its answer; closed by the user it prints nothing.

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

async function showFile(tarn, { title, save, folder, multiple }, print) {
    const named = title ? { title } : {};
    if (save) {
        return answered(await tarn.saveFileAsync(named), print);
    }
    return answered(await (folder ? tarn.openFolderAsync(named) : tarn.openFileAsync({ ...named, multiple: Boolean(multiple) })), print);
}

module.exports = { showText, showEntry, showFile };
