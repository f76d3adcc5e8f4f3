// The window: its page is main.html, its handlers are the methods that the page names.
import { GuiWindow } from 'tarn-gui';

/** @extends {GuiWindow<{ who: string }>} */
export class MainWindow extends GuiWindow {
    constructor() {
        super('main.html');
        this.setFocus('who');
    }

    onGreet() {
        this.control('answer')?.setText(`Hello, ${this.form.who || 'whoever you are'}!`);
    }
}
