'use strict';
// The calendar as it is pictured: on a certain day, with some appointments.
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');

const file = path.join(os.tmpdir(), 'calendar.json');
fs.writeFileSync(file, JSON.stringify({
    '2026-11-10': [{ time: '08:15', text: 'Train' }],
    '2026-11-23': [{ time: '09:30', text: 'Dentist' }, { time: '14:00', text: 'The printer' }, { time: '18:00', text: 'Choir' }],
    '2026-11-26': [{ time: '11:00', text: 'Proofs' }],
    '2026-12-02': [{ time: '10:00', text: 'Release' }],
}));
process.argv.push(file, '2026-11-23');
require('./app.js');
