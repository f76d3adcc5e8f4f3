'use strict';
// A wizard: a journey is planned in three steps. Each step is a modal window of its own; its show() returns the answer.
//
// While a step is open, the window behind it paints, but takes no clicks. A step that is closed by its title bar or by
// the Escape key returns null.

const { GuiWindow } = require('../../host/node');
const pages = require('./pages');

const places = [
    { name: 'Lisbon', color: '#E0A84C', words: 'tiles, trams and the ocean' },
    { name: 'Trondheim', color: '#5C8FB8', words: 'wooden houses by the fjord' },
    { name: 'Kyoto', color: '#B05468', words: 'a thousand temples and gardens' },
];
const seasons = [
    { name: 'spring', color: '#9CC069', words: 'mild, with blossoms' },
    { name: 'summer', color: '#E6C34A', words: 'warm, and everybody is there' },
    { name: 'autumn', color: '#C9803C', words: 'quiet and colourful' },
    { name: 'winter', color: '#8FA9C4', words: 'cold, dark, and never crowded' },
];
const agreement = [{ name: 'Yes', color: '#4F8A5B', words: 'book this journey' }];

/** One question. Its links call onAnswer with what is to be returned. */
class Step extends GuiWindow {
    constructor(number, question, choices) {
        super('step.html');
        this.setText(pages.step(number, question, choices));
        this.setTitle(`Step ${number} of 3`);
        this.setEscapeControl('X');
    }

    onAnswer(session, answer) {
        this.setReturnValue(answer);
        this.close();
    }
}

/** Asks three questions in turn. "Back" asks the one before again; null when the traveller has changed their mind. */
function planJourney() {
    const answers = [];
    const questions = [
        () => new Step(1, 'Where do you want to go?', places),
        () => new Step(2, `${answers[0]}: in which season?`, seasons),
        () => new Step(3, `${answers[0]} in ${answers[1]}. Shall we?`, agreement),
    ];
    while (answers.length < questions.length) {
        const answer = questions[answers.length]().show();
        if (answer === null || answer === 'Cancel') return null;
        if (answer === 'Back') answers.pop();
        else answers.push(answer);
    }
    return { place: answers[0], season: answers[1] };
}

class Travels extends GuiWindow {
    constructor() {
        super('travels.html');
        this.journeys = [];
        this.refresh('No journey is planned yet.');
    }

    onPlan() {
        const journey = planJourney();
        if (journey) this.journeys.push(journey);
        this.refresh(journey ? 'Anywhere else?' : 'Another time, then.');
    }

    onQuit() {
        this.setReturnValue(this.journeys.map(({ place, season }) => `${place} in ${season}`).join(', '));
        this.close();
    }

    refresh(words) {
        this.control('journeys').setText(pages.journeys(this.journeys, words));
    }
}

const planned = new Travels().show();
if (planned !== null) console.log(`Planned: ${planned || 'nothing'}.`);
