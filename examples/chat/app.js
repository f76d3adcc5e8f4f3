'use strict';
// A chat between programs on one machine, over a socket in a file. app.js [NAME [SOCKET]]
//
// The first program listens, and hands on to the others what one of them says. When it ends, the one that is first to listen takes its
// place. Each line on the wire is a message in JSON; who wrote it is unknown, so that it is looked at before it is believed.

const fs = require('node:fs');
const net = require('node:net');
const os = require('node:os');
const path = require('node:path');
const readline = require('node:readline');
const { GuiWindow, html } = require('../../host/node');

const name = process.argv[2] ?? os.userInfo().username;
const file = process.argv[3] ?? path.join(process.env.XDG_RUNTIME_DIR ?? os.tmpdir(), `tarn-chat-${os.userInfo().uid}.sock`);
const colors = ['#1F6FEB', '#2F9E44', '#C2255C', '#C4500A', '#6741D9'];
const colorOf = (who) => colors[[...who].reduce((sum, letter) => sum + letter.codePointAt(0), 0) % colors.length];

/** The message in a line, null when it is none. */
function messageIn(line) {
    try {
        const { from, text, joined } = JSON.parse(line);
        return typeof from === 'string' && (joined === true || typeof text === 'string') ? { from, text, joined } : null;
    } catch {
        return null;
    }
}

class Chat extends GuiWindow {
    said = []; // the newest first
    others = new Set(); // sockets: of the program that listens those to all others, of any other the one to that

    constructor() {
        super('chat.html');
        this.setTitle(`${name} - Chat`);
        this.setEnterControl('send');
        this.setFocus('text');
        this.connect();
    }

    connect() {
        if (this.isDone) return;
        const socket = net.connect(file, () => {
            this.talkWith(socket, () => this.connect());
            this.send({ from: name, joined: true });
            this.tell('Connected');
        });
        socket.on('error', (/** @type {NodeJS.ErrnoException} */ { code }) => {
            if (code === 'ECONNREFUSED') fs.rmSync(file, { force: true }); // left behind by a program that was killed
            if (!this.others.has(socket)) this.listen();
        });
    }

    listen() {
        const server = net.createServer((socket) => { this.talkWith(socket, () => {}); this.tell('Connected'); });
        server.on('error', (/** @type {NodeJS.ErrnoException} */ { code, message }) => (code === 'EADDRINUSE' ? this.connect() : this.tell(message))); // somebody was faster
        server.listen(file, () => {
            this.server = server;
            this.tell('Waiting for others');
        });
    }

    talkWith(socket, onEnd) {
        this.others.add(socket);
        socket.on('error', () => {}); // "close" follows
        socket.on('close', () => { this.others.delete(socket); onEnd(); });
        readline.createInterface(socket).on('line', (line) => {
            const message = messageIn(line);
            if (message) this.show(message);
            if (message && this.server) this.send(message, socket);
        });
    }

    /** To all others but one. */
    send(message, from = null) {
        for (const each of this.others) if (each !== from) each.write(`${JSON.stringify(message)}\n`);
    }

    show({ from, text, joined = false }) {
        this.said.unshift(html`<p><font color="${colorOf(from)}"><b>${from}</b></font> ${joined ? html`<font color="#57606A">is here</font>` : text}</p>`);
        this.control('said').setText(html`<body bgcolor="#FFFFFF" text="#1F2328" valign="top"><table width="100%" cellpadding="12"><tr><td>${this.said}</td></tr></table></body>`);
    }

    tell(words) { this.control('status').setText(words); }

    onSend() {
        const message = { from: name, text: this.form.text.trim() };
        this.form.text = '';
        this.setFocus('text');
        if (message.text === '') return;
        this.show(message);
        this.send(message);
    }

    end() {
        this.isDone = true;
        this.server?.close();
        for (const each of this.others) each.destroy();
    }
}

const chat = new Chat();
chat.showAsync().then(() => chat.end());
