import { after } from "node:test";
import { Helper } from "./helper.mjs";

const python = new Helper("formats.py");
after(() => python.stop());

/** The page's files. */
export const paths = {
    notes: "/velmorath/Documents/noteSalvate.archive",
    settings: "/velmorath/defaults.plist",
};

/** The notes of an archive, top first, each with `text`, `date` and `completed`. */
export async function notesIn(bytes) {
    const notes = await python.ask("read_notes", { archive: bytes.toString("base64") });
    return notes.map(([text, date, completed]) => ({ text, date, completed }));
}

/** An archive of such notes; a mere text is an open note without a date. */
export async function archiveOf(notes) {
    const records = notes
        .map((note) => (typeof note === "string" ? { text: note } : note))
        .map(({ text, date = null, completed = false }) => [text, date, completed]);
    return Buffer.from(await python.ask("write_notes", { notes: records }), "base64");
}

/** The settings of somebody who has had the program for some time. */
export async function usualSettings() {
    return Buffer.from(await python.ask("usual_settings"), "base64");
}

/** What the page was set to, by name. */
export async function settingsIn(bytes) {
    const { settaggi } = await python.ask("read_settings", { file: bytes.toString("base64") });
    return settaggi;
}

/** What a PNG shows, by whole pixels. */
export class Picture {
    static async of(png) {
        const picture = new Picture();
        const { pixels, ...size } = await python.ask("read_picture", { png: png.toString("base64") });
        Object.assign(picture, size);
        picture.#pixels = Buffer.from(pixels, "base64");
        return picture;
    }

    /** The colour of a pixel, as [red, green, blue]. */
    pixel(x, y) {
        const at = Math.round(y) * this.stride + Math.round(x) * this.channels;
        return Array.from(this.#pixels.subarray(at, at + 3));
    }

    #pixels;
    stride = 0;
    channels = 0;
}
