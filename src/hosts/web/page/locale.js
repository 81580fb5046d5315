/** The user's languages, most wanted first. */
export function languages() {
    return [...(navigator.languages ?? [navigator.language])].filter(Boolean);
}

/** @type {Intl.DateTimeFormat | null} */
let format = null;

/** Browsers know no customs of their own for dates: they follow the languages, which can be malformed. */
function dateFormat() {
    /** @type {Intl.DateTimeFormatOptions} */
    const options = { dateStyle: "medium", timeZone: "UTC" };
    try {
        return new Intl.DateTimeFormat(languages(), options);
    } catch {
        return new Intl.DateTimeFormat(undefined, options);
    }
}

/** The day on which a moment (seconds since 1970 UTC) falls in UTC. @param {number} seconds */
export function mediumDate(seconds) {
    format ??= dateFormat();
    const date = new Date(seconds * 1000);
    return Number.isNaN(date.getTime()) ? "" : format.format(date);
}
