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

/** @param {string} textContent @param {() => void} onclick @param {string} of  tells buttons of one text apart @returns {HTMLButtonElement} */
export function newButton(textContent, onclick, of = '') {
    return make('button', { type: 'button', textContent, onclick, ariaLabel: of ? `${textContent}: ${of}` : null });
}
