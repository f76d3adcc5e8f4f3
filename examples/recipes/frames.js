'use strict';
// A window in two parts: links on the left load pages into the frame on the right.
const { GuiWindow, html } = require('tarn-gui');

const chapters = { one: 'It begins.', two: 'It goes on.', three: 'It ends.' };

class Book extends GuiWindow {
    onChapter(session, name) {
        this.control('page').setText(html`<body valign="top" bgcolor="#FFFFFF"><h2>Chapter ${name}</h2><p>${chapters[name]}</p></body>`);
        this.setTitle(`Chapter ${name}`);
    }
}

const links = Object.keys(chapters).map((name) => html`<p><a href="event://onChapter/${name}">${name}</a></p>`);
const book = Book.from(html`<body width="460" height="240"><frameset cols="120,*"><td valign="top" cellpadding="6">${links}</td>
    <td name="page" bgcolor="#FFFFFF" scrolling="yes"></td></frameset></body>`);
book.onChapter(null, 'one');
book.open();
