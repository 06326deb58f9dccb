// The Mac lays text out with the metrics of its own font. Where this browser's font runs wider, it is set a little
// smaller; a line that still is too long for its frame has its letters a little closer.

const sizes = { body: 13, title: 22, heading: 15, caption: 11 };
const weights = { title: 700, heading: 600 };
const measured = new Map();
let context = null;
let family = null;
let factor = null;

const sample = "abcdefghijklmnopqrstuvwxyz";
const sampleWidth = 13.2; // times the size, in the Mac's font
const factorMin = 0.85;

function measure(font, text) {
    context ??= document.createElement("canvas").getContext("2d");
    family ??= getComputedStyle(document.body).fontFamily;
    context.font = `${font} ${family}`;
    return context.measureText(text).width;
}

// By how much the browser's font is set smaller. Style sheets know it as --type.
export function typeFactor() {
    factor ??= Math.max(factorMin, Math.min(1, (sampleWidth * 100) / measure("100px", sample)));
    return factor;
}

function widthOf(text, style) {
    const key = `${style} ${text}`;
    if (measured.has(key)) return measured.get(key);
    const width = measure(`${weights[style] ?? 400} ${sizes[style] * typeFactor()}px`, text);
    if (measured.size > 5000) measured.clear();
    measured.set(key, width);
    return width;
}

export function fitting(text, style, room) {
    const excess = widthOf(text, style) - room;
    return excess > 0 && text.length > 1 ? -Math.min(0.6, Math.ceil((excess / text.length) * 100) / 100) : 0;
}
