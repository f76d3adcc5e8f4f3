// The window: its page is main.html, its handlers are the methods that the page names.
import { GuiWindow } from 'tarn-gui';

interface Values {
    who: string;
}

export class MainWindow extends GuiWindow<Values> {
    constructor() {
        super('../main.html'); // from the folder of the compiled script
        this.setFocus('who');
    }

    onGreet(): void {
        this.control('answer')?.setText(`Hello, ${this.form.who || 'whoever you are'}!`);
    }
}
