// The package tarn-gui for `import`: the same objects as for `require`, each by its name. A property that programs assign
// to is not among them, since nobody can assign to an imported name: it belongs to the default export.
import tarn from './index.js';

export const {
    CustomElement, GuiControl, GuiImage, GuiSizePolicy, GuiToolkit, GuiWindow, alert, alertAsync, clipboard, confine, confirm, confirmAsync, html, mount,
    openFile, openFileAsync, openFolder, openFolderAsync, pageText, pickColor, pickColorAsync, prompt, promptAsync, register, saveFile,
    saveFileAsync, session, taskbar, tray, watch,
} = tarn;

export default tarn;
