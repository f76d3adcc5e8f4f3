'use strict';
// Plays the .wav files of a folder, one after the other. app.js [FOLDER]
//
// An <img> whose file is a sound plays it as soon as it stands in the page, and until it goes. To go on in the middle, the program
// writes what is left into a file of its own; where it is by now, it knows by the clock.

const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { GuiWindow, html, openFolderAsync } = require('../../host/node');
const { readWav } = require('./wav');

const inMinutes = (seconds) => `${Math.floor(seconds / 60)}:${String(Math.floor(seconds % 60)).padStart(2, '0')}`;

/** The track in a file, none where there is no sound in it. */
function tracksIn(file) {
    try {
        return [{ name: path.basename(file).slice(0, -4), ...readWav(file) }];
    } catch {
        return [];
    }
}

class MusicPlayer extends GuiWindow {
    rest = path.join(fs.mkdtempSync(path.join(os.tmpdir(), 'tarn-musicplayer-')), 'rest.wav');
    position = 0; // in seconds, when it was last begun
    /** @type {number | null} */
    since = null; // when that was, in milliseconds; null while nothing plays
    /** @type {ReturnType<typeof tracksIn>} */
    tracks = [];
    at = 0;

    constructor(folder) {
        super('musicplayer.html');
        this.setFocus('list');
        this.enter(folder);
    }

    enter(folder) {
        const names = fs.existsSync(folder) ? fs.readdirSync(folder).filter((name) => /\.wav$/i.test(name)).sort() : [];
        this.tracks = names.flatMap((name) => tracksIn(path.join(folder, name)));
        this.control('list').setRows(this.tracks.map(({ name, seconds }, index) => ({ value: String(index), texts: [name, inMinutes(seconds)] })));
        this.control('status').setText(`${this.tracks.length} tracks`);
        this.turnTo(0, false);
    }

    get track() { return this.tracks[this.at]; }
    get now() { return this.since === null ? this.position : this.position + (performance.now() - this.since) / 1000; }

    /** The current track from a place on; plays it, or waits there. */
    begin(position, plays) {
        this.position = position;
        this.since = plays && this.track ? performance.now() : null;
        if (this.since !== null) fs.writeFileSync(this.rest, this.track.from(position));
        this.control('sound').setText(this.since === null ? '' : html`<img src="${this.rest}" alt="">`);
        this.control('play').setCaption(this.since === null ? 'Play' : 'Pause');
        this.tick();
    }

    /** Another track, round and round. */
    turnTo(index, plays = this.since !== null) {
        this.at = (index + this.tracks.length) % Math.max(1, this.tracks.length);
        this.control('list').selection = [String(this.at)];
        this.control('title').setText(html`<h2>${this.track?.name ?? 'Nothing to play'}</h2>`);
        this.begin(0, plays);
    }

    /** Now and then: shows where it is. At the end of the last track it stops. */
    tick() {
        const { now, track: { seconds } = { seconds: 0 } } = this;
        if (this.since !== null && now >= seconds) {
            this.turnTo(this.at + 1, this.at + 1 < this.tracks.length);
            return;
        }
        this.control('time').setText(`${inMinutes(now)} of ${inMinutes(seconds)}`);
        this.form.place = seconds > 0 ? Math.round(100 * now / seconds) : 0;
    }

    /** The slider was moved, by the user and not by tick(). */
    onPlace({ event }) { if (event && this.track) this.begin(this.form.place / 100 * this.track.seconds, this.since !== null); }

    /** Return or a double click on a track. */
    onTrack({ event }) { this.turnTo(Number(event.row), true); }

    onPlay() { this.begin(this.now, this.since === null); }
    onNext() { this.turnTo(this.at + 1); }
    onPrevious() { this.turnTo(this.now > 3 ? this.at : this.at - 1); }

    async eMenu(session, item) {
        const folder = item === 'open' ? await openFolderAsync() : null;
        if (folder !== null) this.enter(folder);
        if (item === 'quit') this.close();
    }
}

const player = new MusicPlayer(process.argv[2] ?? path.join(os.homedir(), 'Music'));
const timer = setInterval(() => player.since !== null && player.tick(), 200);
player.showAsync().then(() => {
    clearInterval(timer);
    fs.rmSync(path.dirname(player.rest), { recursive: true });
});
