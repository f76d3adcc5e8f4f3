// Type definitions of tarn-gui/test for `import`: those for `require`, and the whole as the default export.
import * as driver from './test.js';

export * from './test.js';
export default driver;
