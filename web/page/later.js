// Exports the parts of the page that are not needed before the first picture.

export { Dialog } from './dialog.js';
export { Ears } from './ears.js';
export { Hands } from './hands.js';
export { TakeIn } from './takein.js';
export { Update } from './update.js';
export { Voice } from './voice.js';
