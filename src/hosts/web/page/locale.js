/** The user's languages, most wanted first. */
export function languages() {
    return [...(navigator.languages ?? [navigator.language])].filter(Boolean);
}

let format = null;
let formatZone = null;

/** An unknown zone means the machine's own, and languages can be malformed. */
function dateFormat(timeZone) {
    const dateStyle = "medium";
    for (const [tags, zone] of [[languages(), timeZone], [languages(), undefined]]) {
        try {
            return new Intl.DateTimeFormat(tags, { dateStyle, timeZone: zone });
        } catch {
            // The next one is simpler.
        }
    }
    return new Intl.DateTimeFormat(undefined, { dateStyle });
}

/** The day on which a moment (seconds since 1970 UTC) falls in a time zone. */
export function mediumDate(seconds, timeZone) {
    if (timeZone !== formatZone) {
        format = dateFormat(timeZone);
        formatZone = timeZone;
    }
    const date = new Date(seconds * 1000);
    return Number.isNaN(date.getTime()) ? "" : format.format(date);
}
