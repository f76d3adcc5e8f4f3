// tarn-gui/test for `import`: the same functions as for `require`, each by its name.
import driver from './test.js';

export const { DriveError, dialog, drive, launch } = driver;

export default driver;
