/**
 * An element of index.html, by its identifier.
 * @param {string} id
 */
export function part(id) {
    return /** @type {HTMLElement} */ (document.getElementById(id));
}
