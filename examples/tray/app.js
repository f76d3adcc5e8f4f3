'use strict';
// Says when it is time for a break, from the desktop's tray. app.js [SECONDS] makes a minute that long, for those who cannot wait.
//
// With a tray closing the window hides it, and the picture in the tray brings it back. A desktop without one answers with null: then the
// window is all there is, so closing it ends the program, and it says so.

const tarn = require('../../host/node');

const minuteMs = (Number(process.argv[2]) || 60) * 1000;

class Break extends tarn.GuiWindow {
    constructor() {
        super('tray.html');
        this.setEnterControl('start');
        this.setEscapeControl('hide');
        this.setFocus('minutes');
        this.tray = tarn.tray({ icon: 'free.svg', tip: 'No break is planned', onClick: () => this.appear(), menu: this.menu() });
        this.control('hint').setText(this.tray ? '' : '<font color="#57606A">No tray here: the window stays.</font>');
        this.control('hide').enable(this.tray !== null);
        this.refresh();
    }

    /** @returns {import('../../host/node').TrayItem[]} */
    menu() {
        const isRunning = this.end !== undefined;
        return [{ text: '&Show', onClick: () => this.appear() }, { text: isRunning ? '&Stop' : '&Start', onClick: () => this.onStart() }, '-',
            { text: '&Quit', onClick: () => this.onQuit() }];
    }

    appear() { if (!this.isOpen()) this.open(); }

    /** The button and the item of the tray: starts, or stops what runs. */
    onStart() {
        const isRunning = this.end !== undefined;
        this.minutes = this.form.minutes;
        this.end = isRunning ? undefined : Date.now() + this.minutes * minuteMs;
        this.refresh();
    }

    /** Says how it stands, in the window and in the tray, and wakes when that is another text. */
    refresh() {
        clearTimeout(this.timer);
        const isRunning = this.end !== undefined;
        const leftMs = isRunning ? this.end - Date.now() : 0;
        if (isRunning && leftMs <= 0) {
            this.ring();
            return;
        }
        const minutes = Math.ceil(leftMs / minuteMs);
        const text = !isRunning ? 'No break is planned' : minutes === 1 ? 'A break in a minute' : `A break in ${minutes} minutes`;
        this.control('left').setText(`<h2>${text}</h2>`);
        this.control('bar').value = isRunning ? 1 - minutes / this.minutes : 0;
        this.control('start').setCaption(isRunning ? 'Stop' : 'Start');
        this.control('minutes').enable(!isRunning);
        this.tray?.update({ icon: isRunning ? 'busy.svg' : 'free.svg', tip: text, menu: this.menu() });
        if (isRunning) this.timer = setTimeout(() => this.refresh(), leftMs - (minutes - 1) * minuteMs);
    }

    async ring() {
        this.end = undefined;
        this.refresh();
        await tarn.alertAsync(this.form.say, { title: 'Break', icon: 'info', buttons: ['Thanks'] });
    }

    onHide() { this.close(); }

    onQuit() {
        clearTimeout(this.timer);
        this.tray?.close();
        this.close();
    }

    /** The title bar: with a tray the program goes on without its window. */
    eClose() {
        if (!this.tray) this.onQuit();
        return true;
    }
}

new Break().open();
