'use strict';
// Work in the background, with progress and Cancel: an async handler leaves the window free.
const { setTimeout: work } = require('node:timers/promises');
const { GuiWindow, html } = require('tarn-gui');

class Job extends GuiWindow {
    async onStart() {
        this.stop = new AbortController();
        try {
            for (let percent = 0; percent <= 100; percent += 2) {
                this.control('bar').setText(html`<table width="100%"><tr><td width="${percent}%" height="14" bgcolor="#2F6FB0"></td><td bgcolor="#DADDE1"></td></tr></table>`);
                this.setTitle(`${percent} %`);
                await work(40, null, { signal: this.stop.signal });
            }
            console.log('finished');
        } catch (error) {
            console.log(this.stop.signal.aborted ? `stopped at ${this.getTitle()}` : error);
        }
    }

    onCancel() {
        this.stop?.abort();
    }
}

const job = Job.from(html`<title>Job</title><body width="340" height="120" valign="top" cellpadding="10"><table width="100%"><tr><td name="bar" height="20"></td></tr></table>
    <p><input type="button" name="start" value="Start" onclick="event://onStart"> <input type="button" name="cancel" value="Cancel" onclick="event://onCancel"></p>`);
job.open();
