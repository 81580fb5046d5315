/** Binary property lists, as far as archives and settings need them. */

/** A reference to another object of the archive. */
export class Reference {
    constructor(number) {
        this.number = number;
    }
}

const kinds = { constant: 0, number: 1, ascii: 5, utf16: 6, reference: 8, array: 10, dictionary: 13 };

/** The value that these bytes hold. */
export function read(file) {
    const bytes = Buffer.from(file);
    const offsetSize = bytes[bytes.length - 26];
    const placeSize = bytes[bytes.length - 25];
    const table = Number(bytes.readBigUInt64BE(bytes.length - 8));
    const number = (at, size) => (size > 6 ? Number(bytes.readBigUInt64BE(at)) : bytes.readUIntBE(at, size));

    const value = (index) => {
        let at = number(table + index * offsetSize, offsetSize);
        const kind = bytes[at] >> 4;
        let count = bytes[at] & 15;
        at += 1;
        if (kind === kinds.constant) {
            return { 8: false, 9: true }[count];
        }
        if (kind === kinds.number) {
            return number(at, 1 << count);
        }
        if (kind === kinds.reference) {
            return new Reference(number(at, count + 1));
        }
        if (count === 15) {
            const size = 1 << (bytes[at] & 15);
            count = number(at + 1, size);
            at += 1 + size;
        }
        const places = (first) =>
            Array.from({ length: count }, (_, place) => value(number(at + (first + place) * placeSize, placeSize)));
        switch (kind) {
        case kinds.ascii:
            return bytes.toString("latin1", at, at + count);
        case kinds.utf16:
            return Buffer.from(bytes.subarray(at, at + 2 * count)).swap16().toString("utf16le");
        case kinds.array:
            return places(0);
        case kinds.dictionary: {
            const values = places(count);
            return Object.fromEntries(places(0).map((key, place) => [key, values[place]]));
        }
        default:
            throw new Error(`What is a ${kind} in a property list?`);
        }
    };
    return value(bytes.readUInt32BE(bytes.length - 12));
}

/** The bytes for a value. */
export function write(root) {
    const objects = [];
    const texts = new Map();
    const flatten = (value) => {
        if (texts.has(value)) {
            return texts.get(value);
        }
        const index = objects.push(null) - 1;
        if (Array.isArray(value)) {
            objects[index] = { kind: kinds.array, places: value.map(flatten) };
        } else if (typeof value === "object" && !(value instanceof Reference)) {
            const places = [...Object.keys(value).map(flatten), ...Object.values(value).map(flatten)];
            objects[index] = { kind: kinds.dictionary, places };
        } else {
            objects[index] = scalar(value);
        }
        if (typeof value === "string") {
            texts.set(value, index);
        }
        return index;
    };
    flatten(root);
    const pieces = [Buffer.from("bplist00")];
    const offsets = [];
    let length = 8;
    for (const object of objects) {
        offsets.push(length);
        const piece = object.places ? container(object) : object;
        pieces.push(piece);
        length += piece.length;
    }
    const trailer = Buffer.alloc(32);
    trailer.set([4, 4], 6);
    trailer.writeUInt32BE(objects.length, 12);
    trailer.writeUInt32BE(length, 28);
    return Buffer.concat([...pieces, numbers(offsets), trailer]);
}

function numbers(values) {
    const bytes = Buffer.alloc(4 * values.length);
    values.forEach((value, place) => bytes.writeUInt32BE(value, 4 * place));
    return bytes;
}

function marked(kind, count, rest) {
    const mark = count < 15
        ? Buffer.from([(kind << 4) | count])
        : Buffer.concat([Buffer.from([(kind << 4) | 15, 0x12]), numbers([count])]);
    return Buffer.concat([mark, rest]);
}

function container({ kind, places }) {
    return marked(kind, kind === kinds.dictionary ? places.length / 2 : places.length, numbers(places));
}

function scalar(value) {
    if (typeof value === "boolean") {
        return Buffer.from([value ? 9 : 8]);
    }
    if (typeof value === "number") {
        return Buffer.concat([Buffer.from([0x12]), numbers([value])]);
    }
    if (value instanceof Reference) {
        return Buffer.concat([Buffer.from([0x83]), numbers([value.number])]);
    }
    return marked(kinds.utf16, value.length, Buffer.from(value, "utf16le").swap16());
}
