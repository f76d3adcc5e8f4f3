'use strict';
// A menu with keys: Alt and the letter behind "&" opens one, the letter of an item chooses it.
const { GuiWindow, html } = require('tarn-gui');

class Editor extends GuiWindow {
    eMenu(session, item) {
        const menu = this.control('menu');
        if (item === 'wrap') menu.checkItem('wrap', !menu.isItemChecked('wrap'));
        if (item === 'clear') this.form.text = '';
        if (item === 'quit') this.close();
        console.log(`${item}${item === 'wrap' ? `: ${menu.isItemChecked('wrap')}` : ''}`);
    }
}

Editor.from(html`<title>Editor</title><body width="360" height="220" valign="top" cellpadding="10">
    <object classid="menu" name="menu">
      <menu name="file" value="&amp;File"><param name="clear" value="&amp;Clear"><param value="-"><param name="quit" value="&amp;Quit"></menu>
      <menu name="view" value="&amp;View"><param name="wrap" value="&amp;Wrap lines" checked></menu>
    </object>
    <textarea name="text" width="100%" height="160">some text</textarea>`).open();
