// The program: shows the window and ends with it.
import { MainWindow } from './main.js';

await new MainWindow().showAsync();
