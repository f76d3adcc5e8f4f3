'use strict';
// An element of one's own: a bar chart that is drawn by a class and answers clicks.
const { CustomElement, GuiWindow, html, register } = require('tarn-gui');

class Chart extends CustomElement {
    values = ''; // of the page
    picked = -1;

    ePaint() {
        const { toolkit } = this;
        const bars = this.values.split(',').map(Number);
        const width = toolkit.rect.width / bars.length;
        toolkit.fill('#FFFFFF');
        bars.forEach((bar, index) => {
            const height = toolkit.rect.height * bar / Math.max(...bars);
            const area = { left: index * width + 3, top: toolkit.rect.height - height, width: width - 6, height };
            toolkit.fill(index === this.picked ? '#C0392B' : '#2F6FB0', area);
        });
    }

    eMouseDown() {
        const bars = this.values.split(',');
        this.picked = Math.floor(this.mouse.x * bars.length / this.toolkit.rect.width);
        this.toolkit.repaint();
        this.window.setTitle(`bar ${this.picked + 1}: ${bars[this.picked]}`);
    }
}

register('Chart', Chart);
GuiWindow.from(html`<title>Chart</title><body width="320" height="200" valign="top" cellpadding="10">
    <object classid="Chart" name="chart" width="280" height="160" border="1"><param name="values" value="3,7,5,9,4"></object>`).open();
