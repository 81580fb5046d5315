/** Which browser the tests are run in. */
export const engine = process.env.VELMORATH_ENGINE ?? "chromium";

/** For a test that only this engine can be asked for. @param {string} reason what the others' drivers lack */
export function only(name, reason) {
    return { skip: engine === name ? false : `only ${name}: ${reason}` };
}

/** For what no engine does in its own way. */
export const sameEverywhere = only("chromium", "it is the same everywhere");
