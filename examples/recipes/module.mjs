// An ES module: windows are awaited, one after the other.
import { GuiWindow, html } from 'tarn-gui';

class Choice extends GuiWindow {
    onPick(session, name) {
        this.setReturnValue(name);
        this.close();
    }
}

const ask = (question, answers) => Choice.from(html`<title>${question}</title><body width="300" height="110" valign="top" cellpadding="10"><p>
    ${answers.map((name) => html`<input type="button" name="${name}" value="${name}" onclick="event://onPick/${name}"> `)}</p>`).showAsync();

const drink = await ask('What?', ['tea', 'coffee']);
const size = drink && await ask('How much?', ['cup', 'pot']);
console.log(size ? `a ${size} of ${drink}` : 'nothing');
