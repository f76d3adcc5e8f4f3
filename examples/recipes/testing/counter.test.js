'use strict';
// The test of a program: node --test. Without a screen: QT_QPA_PLATFORM=offscreen node --test
const assert = require('node:assert/strict');
const { test } = require('node:test');
const { session } = require('tarn-gui');
const { makeCounter } = require('./counter.js');

test('the counter counts and returns', async () => {
    const counter = makeCounter();
    const answer = counter.showAsync();
    counter.onAdd(session, '1');
    counter.onAdd(session, '2');
    assert.equal(counter.form.count, '3');
    counter.form.count = 7; // as a user who types it
    counter.onDone();
    assert.equal(await answer, 7);
    assert.equal(counter.isOpen(), false);
});
