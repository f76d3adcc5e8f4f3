'use strict';
// Three questions of one line each, without a page: prompt, confirm, alert.
const { alert, confirm, prompt } = require('tarn-gui');

const name = prompt('What is your name?', { title: 'Name', value: 'Ada' });
if (name !== null && confirm(`Are you really ${name}?`, { title: 'Sure' })) {
    console.log(alert(`Hello, ${name}!`, { title: 'Greeting', icon: 'info', buttons: ['Fine', 'Go away'] }));
}
