/** The user's languages, most wanted first. */
export function languages() {
    return [...(navigator.languages ?? [navigator.language])].filter(Boolean);
}

let format = null;
let formatZone = null;

function dateFormat(timeZone) {
    const options = { dateStyle: "medium", timeZone };
    try {
        return new Intl.DateTimeFormat(languages(), options);
    } catch {
        // An unknown zone means the machine's own, and languages can be malformed.
        return new Intl.DateTimeFormat(undefined, { dateStyle: "medium" });
    }
}

/** The day on which a moment (seconds since 1970 UTC) falls in a time zone. */
export function mediumDate(seconds, timeZone) {
    if (timeZone !== formatZone) {
        format = dateFormat(timeZone);
        formatZone = timeZone;
    }
    return format.format(seconds * 1000);
}
