'use strict';
// The way to the inspector, which lies in files of its own, inspector/, and is only loaded when it is asked for.

function startInspector(tarn) {
    if (process.env.TARN_INSPECT === '1') {
        require('../inspector/package.js').tarn = tarn;
        require('../inspector/start.js');
    }
}

module.exports = { startInspector };
