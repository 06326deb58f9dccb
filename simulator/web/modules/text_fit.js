// The Mac lays text out with the metrics of its own font. Where this browser's font runs wider, the letters are set a
// little closer, so that a line stays within its frame.

const sizes = { body: 13, title: 22, heading: 15, caption: 11 };
const weights = { title: 700, heading: 600 };
const measured = new Map();
let context = null;
let family = null;

function widthOf(text, style) {
    const key = `${style} ${text}`;
    if (measured.has(key)) return measured.get(key);
    context ??= document.createElement("canvas").getContext("2d");
    family ??= getComputedStyle(document.body).fontFamily;
    context.font = `${weights[style] ?? 400} ${sizes[style]}px ${family}`;
    const width = context.measureText(text).width;
    if (measured.size > 5000) measured.clear();
    measured.set(key, width);
    return width;
}

export function fitting(text, style, room) {
    const excess = widthOf(text, style) - room;
    return excess > 0 && text.length > 1 ? -Math.min(1, Math.ceil((excess / text.length) * 100) / 100) : 0;
}
