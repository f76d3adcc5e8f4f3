'use strict';
// Where the windows of a test are: on the display, or nowhere when there is none.

/** Has the toolkit draw into memory in an environment without a display, unless it says itself what is wanted. */
function choose(env) {
    if (!env.QT_QPA_PLATFORM && !env.DISPLAY && !env.WAYLAND_DISPLAY) {
        env.QT_QPA_PLATFORM = 'offscreen';
    }
    return env;
}

module.exports = { choose };
