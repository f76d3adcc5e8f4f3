'use strict';
// A login window: a name, a password, three attempts. The password is kept in the desktop's keyring if the user wants that and there is
// one; where there is none, the window says so, and nothing is kept: a password does not belong into a file.

const { scryptSync, timingSafeEqual } = require('node:crypto');
const { GuiWindow, alertAsync, html } = require('../../host/node');
const keyring = require('./keyring');

/** Stands for a server, which knows no password, but what becomes of it: "analytical" of ada's, "invariant" of emmy's. */
const accounts = {
    ada: { salt: 'mill', hash: 'ddc4dd7298a46663fd568bc6112c99e0' },
    emmy: { salt: 'ring', hash: 'b00a03f2fbfe875afc3ff2f8889cc4ad' },
};

function isRight(name, password) {
    const isKnown = Object.hasOwn(accounts, name);
    const { salt, hash } = isKnown ? accounts[name] : { salt: '', hash: '00'.repeat(16) }; // nobody takes as long as somebody
    return timingSafeEqual(scryptSync(password, salt, 16), Buffer.from(hash, 'hex')) && isKnown;
}

class Login extends GuiWindow {
    attempts = 3;

    constructor() {
        super('login.html');
        this.setEnterControl('ok');
        this.setEscapeControl('X');
        this.setFocus('name');
    }

    async ePostOpen() {
        if (await keyring.lookUp('') !== undefined) return;
        this.control('keep').disable();
        this.say('#57606A', 'There is no keyring (secret-tool): nothing is kept.');
    }

    say(color, words) { this.control('said').setText(html`<font color="${color}">${words}</font>`); }

    /** The name is complete when the keyboard goes elsewhere. */
    async onName() {
        const { name, password } = this.form;
        const kept = name && !password && await keyring.lookUp(name);
        if (!kept || name !== this.form.name) return;
        this.form.password = kept;
        this.form.keep = true;
    }

    async onSignIn() {
        const { name, password, keep } = this.form;
        if (!isRight(name, password)) {
            this.refuse();
            return;
        }
        if (this.control('keep').isEnabled()) {
            const done = await (keep ? keyring.store(name, password) : keyring.forget(name));
            if (keep && typeof done !== 'string') await alertAsync('The keyring has not taken the password.', { title: 'Keyring', icon: 'warning' });
        }
        this.setReturnValue(name);
        this.close();
    }

    refuse() {
        this.attempts -= 1;
        if (this.attempts === 0) {
            this.close();
            return;
        }
        this.form.password = '';
        this.setFocus('password');
        this.say('#B3261E', `Name or password is wrong. ${this.attempts === 1 ? 'One attempt is' : `${this.attempts} attempts are`} left.`);
    }
}

new Login().showAsync().then((name) => console.log(name === null ? 'nobody has signed in' : `${name} has signed in`));
