'use strict';
// Sends HTTP requests and shows what comes back. app.js [ADDRESS]
//
// The handler is async: while it awaits the answer the window works, and the button that called it takes no second click. Stop ends
// the wait by an AbortController; so does closing the window.

const tarn = require('../../host/node');
const { html } = tarn;

const mostBytes = 2 ** 20; // that are read of an answer; a download is another program's work
const withoutBody = ['GET', 'HEAD'];

/** "Name: value" lines as pairs. Throws for a line without a colon. */
function parseHeaders(text) {
    return text.split('\n').filter((line) => line.trim() !== '').map((line) => {
        const colon = line.indexOf(':');
        if (colon < 1) throw new Error(`A header is "Name: value", not "${line.trim()}"`);
        return [line.slice(0, colon).trim(), line.slice(colon + 1).trim()];
    });
}

/** The answer's first bytes; the connection is given up after them. */
async function readSome(response) {
    const parts = [];
    let size = 0;
    for await (const part of response.body ?? []) {
        parts.push(part);
        size += part.length;
        if (size >= mostBytes) break;
    }
    return Buffer.concat(parts).subarray(0, mostBytes);
}

/** As it is to be read: JSON indented, anything that is no text as its size. */
function shown(bytes, type) {
    const text = bytes.toString('utf8');
    if (text.includes('\0')) return `${bytes.length} bytes of ${type ?? 'an unknown kind'}`;
    try {
        return /\bjson\b/.test(type) ? JSON.stringify(JSON.parse(text), null, 2) : text;
    } catch {
        return text; // it said that it was JSON
    }
}

/** The reason is what the system said, which fetch wraps in "fetch failed". */
const reasonOf = (error) => (error.name === 'AbortError' ? 'Stopped.' : `Failed: ${error.cause?.message || error.cause?.code || error.message}`);

class Requests extends tarn.GuiWindow {
    constructor(address) {
        super('httpclient.html');
        this.form.address = address;
        this.onMethod();
        this.setFocus('address');
    }

    /** GET and HEAD send no body. */
    onMethod() { this.control('content').enable(!withoutBody.includes(this.form.method)); }

    async onSend() {
        if (this.stop) return; // Return in the field, while the button's request is under way
        this.setBusy(new AbortController());
        const begin = performance.now();
        try {
            const { response, bytes } = await this.request();
            this.showAnswer(response, bytes);
            this.say(`${response.status} ${response.statusText}, ${bytes.length.toLocaleString('en')} bytes, ${Math.round(performance.now() - begin)} ms`);
        } catch (error) {
            this.showAnswer(null, Buffer.alloc(0));
            this.say(reasonOf(error));
        } finally {
            this.setBusy(null);
        }
    }

    async request() {
        const { method, address, sent, content } = this.form;
        const url = /^https?:/i.test(address) ? address : `http://${address}`;
        const body = withoutBody.includes(method) || content === '' ? undefined : content;
        this.say(`${method} ${url}`);
        const response = await fetch(url, { method, headers: parseHeaders(sent), body, redirect: 'manual', signal: this.stop.signal });
        return { response, bytes: await readSome(response) };
    }

    showAnswer(response, bytes) {
        const headers = [...response?.headers ?? []];
        this.control('text').setText(html`<pre>${shown(bytes, response?.headers.get('content-type'))}</pre>`);
        this.control('list').setRows(headers.map((texts, index) => ({ value: String(index), texts })));
    }

    say(text) { this.control('status').setText(text); }

    setBusy(stop) {
        this.stop = stop;
        this.control('menu').enableItem('send', !stop);
        this.control('menu').enableItem('stop', Boolean(stop));
    }

    async eMenu(session, item) {
        if (item === 'send') await this.onSend();
        if (item === 'stop') this.stop?.abort();
        if (item === 'address') this.setFocus('address');
        if (item === 'quit') this.close();
    }
}

const window = new Requests(process.argv[2] ?? '');
window.showAsync().then(() => window.stop?.abort());
