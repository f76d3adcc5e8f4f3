'use strict';
// The output of a command as it comes; closing the window ends the command.
const { spawn } = require('node:child_process');
const { GuiWindow, html } = require('tarn-gui');

const [command, ...args] = process.argv.length > 2 ? process.argv.slice(2) : ['ls', '-l'];

class Output extends GuiWindow {
    run() {
        const child = spawn(command, args);
        const show = (data) => { this.form.text += data; };
        child.stdout.setEncoding('utf8').on('data', show);
        child.stderr.setEncoding('utf8').on('data', show);
        child.on('close', (code, signal) => this.setTitle(`${command} ended: ${signal ?? code}`));
        return child;
    }
}

const output = Output.from(html`<title>${command}</title><body width="520" height="320" valign="top" cellpadding="10"><textarea name="text" width="100%" height="280"></textarea>`);
const child = output.run();
output.showAsync().then(() => child.kill());
