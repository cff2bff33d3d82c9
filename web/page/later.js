// Exports the parts of the page that are not needed before the first picture.

export { Dialog } from './dialog.js';
export { Microphone } from './microphone.js';
export { Input } from './input.js';
export { TakeIn } from './takein.js';
export { Update } from './update.js';
export { Speaker } from './speaker.js';
