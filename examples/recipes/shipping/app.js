#!/usr/bin/env node
'use strict';
// A program to be shipped: its pages lie beside it and are named relative to it, wherever it is installed.
const { GuiWindow, alert } = require('tarn-gui');

class Timer extends GuiWindow {
    onStart() {
        this.setReturnValue(Number(this.form.minutes));
        this.close();
    }
}

const minutes = new Timer('pages/timer.html').show();
if (minutes !== null) {
    setTimeout(() => alert('The tea is ready.', { title: 'Ready' }), minutes * 60000);
}
