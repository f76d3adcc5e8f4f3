'use strict';
// A program without a window that asks when something happens: here when somebody connects to its socket.
const net = require('node:net');
const { alertAsync } = require('tarn-gui');

const server = net.createServer((socket) => {
    socket.once('data', async (data) => {
        const answer = await alertAsync(`Allow ${String(data).trim()}?`, { title: 'Door', icon: 'question', buttons: ['Allow', 'Deny'] });
        socket.end(answer ?? 'Deny');
    });
});
server.listen(process.argv[2], () => console.log('listening'));
process.on('SIGTERM', () => server.close());
