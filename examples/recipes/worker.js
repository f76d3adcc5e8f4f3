'use strict';
// A long computation in a thread of its own: the window answers meanwhile.
const { Worker, isMainThread, parentPort, workerData } = require('node:worker_threads');
function countPrimes(limit) {
    let count = 0;
    for (let n = 2; n < limit; ++n) {
        let divisor = 2;
        while (divisor * divisor <= n && n % divisor !== 0) ++divisor;
        if (divisor * divisor > n) ++count;
    }
    return count;
}

/** The window; the thread of the computation does not load the package. */
function main() {
    const { GuiWindow, html } = require('tarn-gui');
    class Primes extends GuiWindow {
        async onCount() {
            const worker = new Worker(__filename, { workerData: Number(this.form.limit) });
            const count = await new Promise((resolve, reject) => worker.on('message', resolve).on('error', reject));
            this.setTitle(`${count} primes`);
        }
    }
    Primes.from(html`<title>Primes</title><body width="300" height="90" valign="top" cellpadding="10"><p>below <input type="text" name="limit" value="1000000" size="9">
        <input type="button" name="count" value="Count" onclick="event://onCount"></p>`).open();
}

if (isMainThread) {
    main();
} else {
    parentPort?.postMessage(countPrimes(workerData));
}
