'use strict';
// The keyboard alone: requests of several methods to a server of the test's own, what it answers, and one that is stopped.

const assert = require('node:assert/strict');
const http = require('node:http');
const path = require('node:path');
const { after, before, test } = require('node:test');
const { launch } = require('../../host/node/test');

const app = path.join(__dirname, 'app.js');
const waiting = [];
const server = http.createServer(answer);
let origin;

async function answer(request, response) {
    if (request.url === '/slow') { waiting.push(response); return; }
    let body = '';
    for await (const part of request.setEncoding('utf8')) body += part;
    const status = request.url === '/none' ? 404 : 200;
    response.writeHead(status, { 'Content-Type': 'application/json', 'X-Tea': 'green' });
    response.end(JSON.stringify({ method: request.method, tea: request.headers['x-want'] ?? null, body }));
}

before(async () => {
    await new Promise((resolve) => { server.listen(0, '127.0.0.1', () => resolve(null)); });
    origin = `http://127.0.0.1:${/** @type {import('node:net').AddressInfo} */ (server.address()).port}`;
});
after(() => { server.closeAllConnections(); server.close(); });

/** Waits for a status line like this one: the answer comes some time after the keys. */
async function says(w, pattern) {
    for (const end = Date.now() + 5000; Date.now() < end && !pattern.test(await w.text('status'));) await new Promise((resolve) => { setTimeout(resolve, 10); });
    assert.match(await w.text('status'), pattern);
}

test('an address and Return; the answer and its headers; another method with headers and a body', async () => {
    const program = await launch(app);
    const w = await program.window('Requests');
    await w.type(`${origin}/tea`);
    await w.press('Enter');
    await says(w, /^200 OK, \d+ bytes, \d+ ms$/);
    assert.equal(await w.text('text'), '{\n  "method": "GET",\n  "tea": null,\n  "body": ""\n}');
    await w.press('Alt+I');
    const headers = (await w.rows('list')).map(({ texts }) => texts.join(': '));
    assert.ok(headers.includes('x-tea: green'), headers.join());

    await w.press('Ctrl+L, Shift+Tab');
    await w.type('po');
    assert.equal(await w.value('method'), 'POST');
    await w.press('Tab, Tab, Tab, Tab, Ctrl+End, Return'); // address, Send, tabs, the text on the first one
    await w.type('X-Want: black');
    await w.press('Shift+Tab, Right, Tab');
    await w.type('two cups');
    await w.press('Ctrl+Return, Alt+A');
    await says(w, /^200 OK/);
    assert.deepEqual(JSON.parse(await w.text('text')), { method: 'POST', tea: 'black', body: 'two cups' });
    await w.press('Ctrl+Q');
    assert.deepEqual([await program.exit, program.stderr], [{ code: 0, signal: null }, '']);
});

test('what goes wrong is told: a status, no server, a header that is none', async () => {
    const program = await launch(app, { args: [`${origin.replace('http://', '')}/none`] });
    const w = await program.window();
    await w.press('Ctrl+Return');
    await says(w, /^404 Not Found/);
    await w.press('Ctrl+L, Ctrl+A');
    await w.type('http://127.0.0.1:1/');
    await w.press('Enter');
    await says(w, /^Failed: /);
    assert.equal(await w.text('text'), '', 'the old answer is gone');
    await w.press('Ctrl+L, Tab, Tab, Tab, Ctrl+A');
    await w.type('no header');
    await w.press('Ctrl+Return');
    await says(w, /^Failed: A header is "Name: value", not "no header"$/);
    assert.equal(await program.close(), 0);
});

test('a request is stopped, and one that is under way when the window closes keeps nobody', async () => {
    const program = await launch(app, { args: [`${origin}/slow`] });
    const w = await program.window();
    w.press('Enter', { timeout: 60 }).catch(() => {}); // waits for the answer in vain
    await says(w, /^GET /);
    await w.press('Ctrl+.');
    await says(w, /^Stopped\.$/);
    w.press('Enter', { timeout: 60 }).catch(() => {});
    await says(w, /^GET /);
    await w.press('Ctrl+Q');
    assert.deepEqual(await program.exit, { code: 0, signal: null });
    assert.equal(waiting.length, 2);
});
