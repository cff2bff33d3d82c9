// @ts-check
// Makes elements of the page. Texts are set as texts, never as markup.

/** @param {string} tag @param {object} properties @param {(Node | string)[]} children @returns {any} */
export function make(tag, properties = {}, ...children) {
    const element = Object.assign(document.createElement(tag), properties);
    element.append(...children);
    return element;
}

/** @param {string} textContent @param {() => void} onclick @returns {HTMLButtonElement} */
export function newButton(textContent, onclick) {
    return make('button', { type: 'button', textContent, onclick });
}
