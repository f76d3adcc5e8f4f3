// Type definitions of tarn-gui for `import`: those for `require`, and the whole as the default export.
import * as tarn from './index.js';

export * from './index.js';
export default tarn;

/** Not a name of its own, since nobody can assign to one: say `tarn.onError = …` with the default export. */
declare const onError: never;
export { onError };
