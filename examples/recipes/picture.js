'use strict';
// A picture that changes: the page has one img, each click shows another file in it.
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { GuiWindow, html } = require('tarn-gui');

const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'pictures-'));
const files = ['#C0392B', '#27AE60', '#2F6FB0'].map((color, index) => {
    const file = path.join(folder, `${index}.svg`);
    fs.writeFileSync(file, `<svg xmlns="http://www.w3.org/2000/svg" width="200" height="120"><rect width="200" height="120" fill="${color}"/></svg>`);
    return file;
});

class Show extends GuiWindow {
    at = 0;

    onNext() {
        this.at = (this.at + 1) % files.length;
        const loaded = this.control('picture').loadFile(files[this.at]);
        this.setTitle(loaded ? `${this.at + 1} of ${files.length}` : 'no picture');
    }
}

const show = Show.from(html`<title>Pictures</title><body width="240" height="200" valign="top" cellpadding="10"><img name="picture" src="${files[0]}" width="200" height="120">
    <p><input type="button" name="next" value="Next" onclick="event://onNext"></p>`);
show.showAsync().then(() => fs.rmSync(folder, { recursive: true }));
