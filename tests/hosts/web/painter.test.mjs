import assert from "node:assert/strict";
import { beforeEach, test } from "node:test";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();
let tab;

beforeEach(async () => {
    tab = await site.open(site.address);
});

const names = ["save", "restore", "transform", "clip", "fill", "fillGradient", "stroke", "shadow", "text", "image"];
const red = 0xff0000ff;
const white = 0xffffffff;

// Draws commands, each a name and its numbers, on a black canvas of 100 by 100 pixels, and returns what the
// pixels at these places are.
function paint(commands, places) {
    const words = commands.flatMap(([name, ...numbers]) => [names.indexOf(name), ...numbers]);
    return tab.evaluate(async ([numbers, points]) => {
        const { Painter } = await import(new URL("painter.js", location.href).href);
        const canvas = document.createElement("canvas");
        canvas.width = 100;
        canvas.height = 100;
        const picture = document.createElement("canvas");
        picture.width = 2;
        picture.height = 1;
        const half = picture.getContext("2d");
        half.fillStyle = "lime";
        half.fillRect(0, 0, 2, 1);
        const painter = new Painter(canvas, null, { bitmap: (number) => number === 7 ? picture : null });
        const context = canvas.getContext("2d");
        // Not every engine has a canvas that is black by itself.
        context.fillRect(0, 0, 100, 100);
        painter.paint(new Float64Array(numbers));
        return points.map(([x, y]) => Array.from(context.getImageData(x, y, 1, 1).data.slice(0, 3)));
    }, [words, places]);
}

test("shapes end where their corners and clips end, and what was saved comes back", async () => {
    const pixels = await paint([
        ["save"],
        ["clip", 10, 10, 80, 80, 20],
        ["transform", 2, 0, 0, 2, 0, 0],
        ["fill", 0, 0, 50, 50, 0, red],
        ["restore"],
        ["fill", 0, 96, 4, 4, 0, white],
    ], [[50, 50], [12, 12], [50, 12], [50, 95], [2, 98], [6, 98]]);
    assert.deepEqual(pixels, [[255, 0, 0], [0, 0, 0], [255, 0, 0], [0, 0, 0], [255, 255, 255], [0, 0, 0]]);
});

test("a gradient runs from a shape's top to its bottom", async () => {
    const [top, middle, bottom, below] = await paint(
        [["fillGradient", 0, 20, 100, 60, 0, 3, 0, white, 0.5, red, 1, 0x000000ff]],
        [[50, 20], [50, 50], [50, 79], [50, 81]]);
    assert.ok(top.every((part) => part > 245) && middle[0] > 245 && middle[1] < 15);
    assert.ok(bottom[0] < 15);
    assert.deepEqual(below, [0, 0, 0]);
});

test("a line follows its rectangle, and its middle stays as it was", async () => {
    const pixels = await paint([["stroke", 22, 22, 56, 56, 0, 4, white]], [[21, 50], [23, 50], [26, 50], [50, 50]]);
    assert.deepEqual(pixels, [[255, 255, 255], [255, 255, 255], [0, 0, 0], [0, 0, 0]]);
});

test("a shadow is cast beside its rectangle, is soft, and follows the transform", async () => {
    const [inside, edge, rest, afterwards] = await paint([
        ["transform", 2, 0, 0, 2, 20, 20],
        ["shadow", 0, 0, 20, 20, 0, white, 20, 0, 8],
        ["fill", 30, 30, 5, 5, 0, red],
    ], [[60, 40], [80, 40], [20, 20], [82, 82]]);
    assert.deepEqual(inside, [255, 255, 255]);
    assert.ok(edge[0] > 80 && edge[0] < 180, `half a shadow at its edge, not ${edge}`);
    assert.deepEqual(rest, [0, 0, 0], "where the rectangle is and its shadow is not");
    assert.deepEqual(afterwards, [255, 0, 0], "what follows is drawn where it was");
});

test("a picture is stretched and fades, and one that is not there is left out", async () => {
    const [faded, outside] = await paint(
        [["image", 7, 10, 10, 60, 60, 0.5], ["image", 8, 0, 0, 100, 100, 1]], [[40, 40], [80, 80]]);
    assert.ok(faded[0] === 0 && Math.abs(faded[1] - 128) <= 1);
    assert.deepEqual(outside, [0, 0, 0]);
});
