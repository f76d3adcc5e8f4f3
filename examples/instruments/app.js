'use strict';
// Three custom elements: a gauge, a chart and a board to draw on. Each is a class that draws with its toolkit and hears of
// the pointer; the page says where it stands and how large it is.

const { GuiWindow, register } = require('../../host/node');
const { Board } = require('./board.js');
const { Chart } = require('./chart.js');
const { Gauge } = require('./gauge.js');

register('Gauge', Gauge);
register('Chart', Chart);
register('Board', Board);

class Instruments extends GuiWindow {
    onRun() {
        this.control('chart').run();
    }

    onPause() {
        this.control('chart').pause();
    }

    onClear() {
        this.control('board').clear();
    }

    onDone() {
        const gauge = Math.round(Number(this.control('gauge').value));
        const strokes = this.control('board').strokes.length;
        console.log(`The gauge is at ${gauge}, and ${strokes === 1 ? 'one stroke is' : `${strokes} strokes are`} on the board.`);
        this.close();
    }
}

new Instruments('instruments.html').open();
