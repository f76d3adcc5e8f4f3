// npm test. No screen is needed; on one, TARN_SLOW=300 npm test shows what it does.
import { test } from 'node:test';
import assert from 'node:assert/strict';
import { drive, launch } from 'tarn-gui/test';
import { MainWindow } from './main.js';

test('the window greets by name', async () => {
    const window = await drive(new MainWindow());
    await window.type('who', 'Ann');
    await window.click('greet');
    assert.equal(await window.text('answer'), 'Hello, Ann!');
    await window.close();
});

test('the program ends with its window', async () => {
    const program = await launch(new URL('app.js', import.meta.url));
    await program.window('@name@');
    assert.equal(await program.close(), 0);
});
