'use strict';
// A quiz: one question after the other, and at the end what was wrong. app.js [QUESTIONS.json]
//
// One page for all questions: the part that changes is a cell that gets new content. The questions are data of others, so `html`
// writes them: a question about <b> shows the letters.

const fs = require('node:fs');
const path = require('node:path');
const { GuiWindow, html } = require('../../host/node');

const red = '#B3261E';
const green = '#1A7F37';

class Quiz extends GuiWindow {
    at = 0;
    /** @type {number[]} */
    given = [];

    constructor(questions) {
        super('quiz.html');
        this.questions = questions;
        this.setEnterControl('go');
        this.setEscapeControl('X');
        this.begin();
    }

    begin() {
        this.at = 0;
        this.given = [];
        this.ask();
    }

    get right() { return this.given.filter((answer, index) => answer === this.questions[index].right).length; }

    /** What stands above the question. */
    showProgress() {
        const many = this.questions.length;
        this.control('count').setText(this.at < many ? `Question ${this.at + 1} of ${many}` : 'The end');
        this.control('score').setText(`${this.right} right`);
        this.control('bar').value = this.given.length / many;
    }

    ask() {
        const { ask, answers } = this.questions[this.at];
        const choice = (text, index) => html`<p><label><input type="radio" name="answer" value="${index}" onclick="event://onChoose"> ${text}</label></p>`;
        this.control('question').setText(html`<h3>${ask}</h3>${answers.map(choice)}`);
        this.say('', '');
        this.control('go').setCaption('Answer');
        this.control('go').disable(); // until one is chosen
        this.showProgress();
        this.setFocus('answer');
    }

    onChoose() { this.control('go').enable(); }

    /** The one button: Answer, then Next, at the end Again. */
    onGo() {
        if (this.at === this.questions.length) this.begin();
        else if (this.given.length === this.at) this.judge(Number(this.control('answer').value));
        else if (++this.at < this.questions.length) this.ask();
        else this.showEnd();
    }

    judge(answer) {
        const { answers, right, because } = this.questions[this.at];
        this.given.push(answer);
        this.say(answer === right ? 'Right.' : `No: ${answers[right]}.`, because, answer === right ? green : red);
        this.control('go').setCaption(this.at + 1 < this.questions.length ? 'Next' : 'Result');
        this.showProgress();
        this.setFocus('go');
    }

    say(verdict, because, color) {
        this.control('verdict').setText(html`<font color="${color || green}"><b>${verdict}</b></font> ${because}`);
    }

    showEnd() {
        const wrong = this.questions.filter(({ right }, index) => this.given[index] !== right);
        const mistake = ({ ask, answers, right }) => html`<p>${ask} <b>${answers[right]}</b></p>`;
        this.control('question').setText(html`<h3>${this.right} of ${this.questions.length} right</h3>${wrong.length === 0 ? 'No mistake.' : wrong.map(mistake)}`);
        this.say('', '');
        this.control('go').setCaption('Again');
        this.showProgress();
    }
}

new Quiz(JSON.parse(fs.readFileSync(process.argv[2] ?? path.join(__dirname, 'questions.json'), 'utf8'))).showAsync();
