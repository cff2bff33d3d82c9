// Finds and makes elements of the page. Texts are set as texts, never as markup.

/** @template {HTMLElement} T @param {string} id @returns {T} */
export function find(id) {
    return /** @type {T} */ (document.getElementById(id));
}

/** @param {string} tag @param {object} properties @param {(Node | string)[]} children @returns {any} */
export function make(tag, properties = {}, ...children) {
    const element = Object.assign(document.createElement(tag), properties);
    element.append(...children);
    return element;
}

/** A button that ignores the second tap of a double tap, which may be meant for something that was there before. @param {string} textContent @param {() => void} act @param {string} of  what it acts on, if other buttons have the same text @returns {HTMLButtonElement} */
export function newButton(textContent, act, of = '') {
    const onclick = (/** @type {MouseEvent} */ event) => event.detail > 1 || act();
    return make('button', { type: 'button', textContent, onclick, ariaLabel: of ? `${textContent}: ${of}` : null });
}
