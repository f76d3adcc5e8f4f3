'use strict';
// A dialog in steps: each is a window that returns an answer; "Back" goes to the one before.
const { GuiWindow, html } = require('tarn-gui');

class Step extends GuiWindow {
    onAnswer(session, answer) {
        this.setReturnValue(answer);
        this.close();
    }
}

function ask(question, choices) {
    const button = (name) => html`<input type="button" name="${name}" value="${name}" onclick="event://onAnswer/${name}"> `;
    return Step.from(html`<title>${question}</title><body width="320" height="100" valign="top" cellpadding="10"><p>${[...choices, 'Back'].map(button)}</p>`).showAsync();
}

async function main() {
    const questions = [['Where to?', ['North', 'South']], ['When?', ['Today', 'Tomorrow']]];
    const answers = [];
    while (answers.length < questions.length) {
        const answer = await ask(...questions[answers.length]);
        if (answer === null) return 'nowhere';
        if (answer === 'Back') answers.pop();
        else answers.push(answer);
    }
    return answers.join(', ');
}
main().then(console.log);
