'use strict';
// The desktop's keyring, by its command secret-tool (Debian: libsecret-tools). A password goes to it by standard input: arguments of
// commands can be read by anybody. Each function promises null when the keyring fails, and undefined when there is none.

const { execFile } = require('node:child_process');

function run(args, input = '') {
    return new Promise((resolve) => {
        const child = execFile('secret-tool', args, (error, stdout) => resolve(error?.code === 'ENOENT' ? undefined : error ? null : stdout));
        child.stdin?.on('error', () => {}); // the command may have ended without reading
        child.stdin?.end(input);
    });
}

const keyOf = (account) => ['service', 'tarn-login', 'account', account];

module.exports = {
    lookUp: (account) => run(['lookup', ...keyOf(account)]),
    store: (account, password) => run(['store', '--label=Login of an example', ...keyOf(account)], password),
    forget: (account) => run(['clear', ...keyOf(account)]),
};
