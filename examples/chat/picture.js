'use strict';
// The chat as it is pictured: two others have said something.
const net = require('node:net');
const os = require('node:os');
const path = require('node:path');

const file = path.join(os.tmpdir(), 'chat');
const said = [{ from: 'emmy', joined: true }, { from: 'emmy', text: 'Is the lake frozen yet?' }, { from: 'karl', joined: true },
    { from: 'karl', text: 'Only at the edge. Wait for January before you take the skates out.' }];

function say() {
    const socket = net.connect(file, () => said.forEach((message) => socket.write(`${JSON.stringify(message)}\n`)));
    socket.on('error', () => setTimeout(say, 20)); // nobody listens yet
}
process.argv.push('ada', file);
require('./app.js');
say();
