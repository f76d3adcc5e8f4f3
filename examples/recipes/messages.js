'use strict';
// Texts in the user's language: the page has markers (@1, @2), a filter puts the words in their places.
const { GuiWindow } = require('tarn-gui');

const texts = {
    en: { AUTO1: 'Good morning', AUTO2: 'Close' },
    de: { AUTO1: 'Guten Morgen', AUTO2: 'Schließen' },
};
const words = texts[process.argv[2]] ?? texts.en;

GuiWindow.onLoad('messages*', { getString: (key) => words[key] });
const window = new GuiWindow('messages.html');
window.setTitle(words.AUTO1);
window.open();
